#pragma once

#include <memory>

#include "orlo/core/AttributeCollection.h"
#include "orlo/core/Status.h"
#include "orlo/core/System.h"

namespace orlo::features {

// Base of the device features (Get Log, the Identify family): their inputs as
// attributes, a System of their own, and the last result. An embedding program may
// follow a feature's progress by setting `statusListener` and `statusContext`.
class Feature {
 public:
  using StatusListener = void (*)(void* context, const core::Status& status);

  // Empty attributes and a new System for this platform.
  Feature();
  Feature(const core::AttributeCollection& attributes, const std::shared_ptr<core::System>& system);
  virtual ~Feature();

  // Keeps the status and tells the listener, if there is one with a context.
  void setStatus(const core::Status& status);

  core::AttributeCollection attributes;
  std::shared_ptr<core::System> system;
  void* statusContext = nullptr;
  StatusListener statusListener = nullptr;
  core::Status status;
};

}  // namespace orlo::features
