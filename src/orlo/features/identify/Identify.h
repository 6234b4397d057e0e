#pragma once

#include <memory>

#include "orlo/core/AttributeCollection.h"
#include "orlo/core/Device.h"
#include "orlo/core/Status.h"
#include "orlo/core/xml/XmlObject.h"
#include "orlo/features/identify/IdentifyInterface.h"

namespace orlo::features::identify {

// Identify for a drive of either protocol: the protocol object is chosen once, at
// construction, ATA before NVMe, and every operation is forwarded to it. This object's
// own `payload` stays empty; the returned bytes are in `identifyObject->payload`.
class Identify : public IdentifyInterface {
 public:
  Identify(const std::shared_ptr<core::Device>& device,
           const core::AttributeCollection& attributes);

  // The protocol object's identify, if its canRun allows it.
  core::Status identify() override;
  // The protocol object's canRun; status 35 for a drive with neither protocol.
  core::Status canRun() override;
  // The protocol object's tree, or an empty object.
  std::unique_ptr<core::xml::XmlObject> getXml() override;

  // Makes the object for the drive's protocol, with a copy of this object's attributes
  // as they are now, and records the outcome with setStatus.
  void setIdentifyObject();

  // Null for a drive that speaks neither ATA nor NVMe.
  std::unique_ptr<IdentifyInterface> identifyObject;
};

}  // namespace orlo::features::identify
