#include "orlo/features/IFeature.h"

#include <algorithm>

namespace orlo::features {

core::Status IFeature::check() {
  for (const auto& entry : requiredAttributes()) {
    if (attributes.find(entry.second.name) == attributes.end()) {
      return core::Status(36, "Invalid arguments.");
    }
  }
  return canRun();
}

core::Status IFeature::run() {
  return core::Status::notImplemented();
}

Json& IFeature::json() {
  return jsonDocument;
}

void IFeature::setDevice(const std::shared_ptr<core::Device>& selected) {
  device = selected;
}

core::Status IFeature::canRun() {
  if (device) return core::Status::success();
  // Numbered once per process, so every refusal gives the same value.
  static const core::Status noDevice = core::Status::allocate("No device selected.");
  return noDevice;
}

core::AttributeCollection IFeature::allAttributes() {
  core::AttributeCollection all = requiredAttributes();
  for (const auto& entry : optionalAttributes()) {
    // Keys are compared exactly here, as the collection stores them.
    const bool taken = std::any_of(all.begin(), all.end(),
                                   [&](const auto& held) { return held.first == entry.first; });
    if (!taken) all.add(entry.second);
  }
  return all;
}

}  // namespace orlo::features
