#pragma once

#include <memory>

#include "orlo/core/AttributeCollection.h"
#include "orlo/core/Status.h"
#include "orlo/features/Json.h"

namespace orlo::core {
class Device;
}

namespace orlo::features {

// The work of one command, apart from the command line: it reads named
// attributes, runs, and leaves a Status and a JSON document. The framework
// calls setDevice, fills `attributes`, then calls run and json; it never calls
// check or canRun, which are there for a feature's own run to use.
class IFeature {
 public:
  IFeature() = default;
  virtual ~IFeature() = default;

  // "Invalid arguments." if a required attribute is missing, else canRun.
  virtual core::Status check();
  virtual core::Status run();
  virtual Json& json();
  virtual void setDevice(const std::shared_ptr<core::Device>& selected);
  virtual core::AttributeCollection requiredAttributes() = 0;
  virtual core::AttributeCollection optionalAttributes() = 0;
  // "No device selected." (category 100) while no device is set.
  virtual core::Status canRun();

  // The required attributes, and the optional ones under keys not taken yet.
  core::AttributeCollection allAttributes();

  core::AttributeCollection attributes;
  std::shared_ptr<core::Device> device;
  Json jsonDocument;
};

}  // namespace orlo::features
