#pragma once

#include "orlo/core/PropertyDescriptors.h"

namespace orlo::features::nvme_get_log {

// The index in the drive's UUID list that a log read uses: the toolkit's
// "UUIDIndex" descriptor.
inline core::Attribute uuidIndexProperty() {
  return core::properties::uuidIndex();
}

}  // namespace orlo::features::nvme_get_log
