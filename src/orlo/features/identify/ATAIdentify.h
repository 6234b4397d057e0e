#pragma once

#include <memory>

#include "orlo/core/AttributeCollection.h"
#include "orlo/core/Device.h"
#include "orlo/core/Status.h"
#include "orlo/core/xml/XmlObject.h"
#include "orlo/features/identify/IdentifyInterface.h"

namespace orlo::features::identify::ata {

// IDENTIFY DEVICE for an ATA drive, decoded into one child per word or range of
// words. The feature's attributes take no part in the command: an NVMe structure or
// namespace asked of an ATA drive is refused.
class Identify : public IdentifyInterface {
 public:
  Identify(const std::shared_ptr<orlo::core::Device>& device,
           const orlo::core::AttributeCollection& attributes);

  // Sends IDENTIFY DEVICE, after a READ DMA (or CHECK POWER MODE if that fails) that
  // clears a pending PIO error, unless the drive sits behind CSMI. Only the identify
  // command decides the result; its data is kept whether it succeeded or not.
  orlo::core::Status identify() override;
  orlo::core::Status canRun() override;
  // The tree of the data of the last identify; a bare root without 512 bytes of it.
  std::unique_ptr<orlo::core::xml::XmlObject> getXml() override;
};

}  // namespace orlo::features::identify::ata
