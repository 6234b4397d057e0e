#pragma once

#include <memory>

#include "orlo/core/AttributeCollection.h"
#include "orlo/core/Device.h"
#include "orlo/core/Payload.h"
#include "orlo/core/Status.h"
#include "orlo/core/xml/XmlObject.h"
#include "orlo/features/Feature.h"

namespace orlo::features::identify {

// What every Identify class offers: send the command, say whether it can be sent,
// and decode what came back. `payload` holds the bytes the drive returned.
class IdentifyInterface : public Feature {
 public:
  IdentifyInterface(const std::shared_ptr<core::Device>& device,
                    const core::AttributeCollection& attributes)
      : device(device) {
    this->attributes = attributes;
  }

  virtual core::Status identify() = 0;
  virtual core::Status canRun() = 0;
  virtual std::unique_ptr<core::xml::XmlObject> getXml() = 0;

  std::shared_ptr<core::Device> device;
  core::Payload payload;
};

}  // namespace orlo::features::identify
