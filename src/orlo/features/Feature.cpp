#include "orlo/features/Feature.h"

namespace orlo::features {

Feature::Feature() : system(core::makeSystem()), status(core::Status::success()) {}

Feature::Feature(const core::AttributeCollection& attributes,
                 const std::shared_ptr<core::System>& system)
    : attributes(attributes), system(system), status(core::Status::success()) {}

Feature::~Feature() = default;

void Feature::setStatus(const core::Status& status) {
  this->status = status;
  if (statusListener != nullptr && statusContext != nullptr) statusListener(statusContext, status);
}

}  // namespace orlo::features
