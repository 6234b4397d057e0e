#include "plugins/device_features/IdentifyFeature.h"

#include <memory>

#include "orlo/core/OwnStatuses.h"
#include "orlo/core/PropertyDescriptors.h"
#include "orlo/features/identify/Identify.h"

namespace plugin::cli {

namespace {

using orlo::core::AttributeCollection;
using orlo::core::Status;
namespace properties = orlo::core::properties;

// The framework leaves a property empty when its text does not convert, and an
// empty attribute reads as 0: CNS 0 would be shown for "ControllerNamespaceStructure=x".
Status checkPropertyValues(const AttributeCollection& given, const AttributeCollection& declared) {
  for (const auto& entry : declared) {
    const auto found = given.find(entry.second.name);
    if (found != given.end() && found->second.value.size() == 0) {
      return orlo::core::invalidPropertyValue(entry.second.name, entry.second.type);
    }
  }
  return Status::success();
}

}  // namespace

AttributeCollection IdentifyFeature::requiredAttributes() {
  return {};
}

AttributeCollection IdentifyFeature::optionalAttributes() {
  AttributeCollection optional;
  optional.add(properties::controllerNamespaceStructure());
  optional.add(properties::namespaceId());
  return optional;
}

Status IdentifyFeature::run() {
  tree.reset();
  Status status = check();
  if (orlo::core::succeeded(status)) status = checkPropertyValues(attributes, optionalAttributes());
  if (!orlo::core::succeeded(status)) return status;

  orlo::features::identify::Identify identify(device, attributes);
  status = identify.identify();
  if (!orlo::core::succeeded(status)) return status;
  auto decoded = identify.getXml();
  if (decoded->isEmpty()) {
    return orlo::core::noIdentifyDecoder(
        readUInt8(attributes, properties::controllerNamespaceStructure()));
  }
  tree = std::move(decoded);
  return status;
}

}  // namespace plugin::cli
