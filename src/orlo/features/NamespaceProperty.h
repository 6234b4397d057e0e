#pragma once

#include "orlo/core/PropertyDescriptors.h"

namespace orlo::features {

// The namespace a feature works on: the toolkit's "NamespaceId" descriptor.
inline core::Attribute namespaceProperty() {
  return core::properties::namespaceId();
}

}  // namespace orlo::features
