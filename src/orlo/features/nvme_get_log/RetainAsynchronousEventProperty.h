#pragma once

#include "orlo/core/Attribute.h"
#include "orlo/core/AttributeType.h"

namespace orlo::features::nvme_get_log {

// Whether a log read leaves an asynchronous event outstanding (bit 15 of DWord 10).
inline core::Attribute retainAsynchronousEventProperty() {
  return core::Attribute("RetainAsynchronousEvent", "Retain Asynchronous Event",
                         core::attributeType::boolean());
}

}  // namespace orlo::features::nvme_get_log
