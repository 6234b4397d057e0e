#pragma once

#include <memory>

#include "orlo/core/AttributeCollection.h"
#include "orlo/core/Device.h"
#include "orlo/core/Status.h"
#include "orlo/core/xml/XmlObject.h"
#include "orlo/features/identify/IdentifyInterface.h"

namespace orlo::features::identify::nvme {

// One NVMe Identify command. The feature's `ControllerNamespaceStructure` (CNS) picks
// both the structure the drive returns and the decoder that reads it; `NamespaceId`
// and `CSI` go into the command as they are.
class Identify : public IdentifyInterface {
 public:
  // Fills in what the caller left out: CNS 0, and the device's own namespace (the
  // broadcast namespace if it has none, 0 for the namespace lists).
  Identify(const std::shared_ptr<core::Device>& device,
           const core::AttributeCollection& attributes);

  // Sends the command if canRun allows it, and keeps the returned data whatever the
  // drive's status. On a drive with namespace management, CNS 0 for a single namespace
  // is sent as CNS 17, except on the Microsoft command path.
  core::Status identify() override;
  // Status 35 when the drive is not NVMe or its version or namespace management does
  // not offer the structure asked for.
  core::Status canRun() override;
  // The decoded structure of the last identify; an empty object for a CNS with no decoder.
  std::unique_ptr<core::xml::XmlObject> getXml() override;
};

}  // namespace orlo::features::identify::nvme
