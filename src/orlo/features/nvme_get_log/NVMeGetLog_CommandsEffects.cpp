#include "orlo/features/nvme_get_log/NVMeGetLog_CommandsEffects.h"

#include "orlo/core/PropertyDescriptors.h"
#include "orlo/features/nvme_get_log/CommandEffectsDecoder.h"
#include "orlo/features/nvme_get_log/CommandEffectsRows.h"
#include "orlo/features/nvme_get_log/LogFactories.h"
#include "orlo/features/nvme_get_log/LogNames.h"

namespace orlo::features::nvme_get_log {

namespace {

constexpr uint8_t kLogId = commands::nvme::layout::kCommandsEffectsLog.id;

std::unique_ptr<NVMeGetLog> makeCommandsEffects(const std::shared_ptr<core::Device>& device,
                                                const core::AttributeCollection& attributes) {
  return std::unique_ptr<NVMeGetLog>(new NVMeGetLog_CommandsEffects(device, attributes));
}

[[maybe_unused]] const bool registered =
    registerLogFactory(logNames::CommandEffectsLog, makeCommandsEffects);

}  // namespace

const uint32_t NVMeGetLog_CommandsEffects::defaultNumDWORDs =
    numDWORDsFor(commandEffects::kLogSize);

NVMeGetLog_CommandsEffects::NVMeGetLog_CommandsEffects(const std::shared_ptr<core::Device>& device,
                                                       const core::AttributeCollection& attributes)
    : NVMeGetLog(device, kLogId, defaultNumDWORDs, logNames::CommandEffectsLog, attributes) {
  core::writeString(this->attributes, core::properties::logDescription(),
                    "Commands Supported and Effects Log");
}

NVMeGetLog_CommandsEffects::~NVMeGetLog_CommandsEffects() = default;

std::unique_ptr<core::xml::XmlObject> NVMeGetLog_CommandsEffects::getXml() {
  return commandEffects::decode(payload, device->attributes);
}

}  // namespace orlo::features::nvme_get_log
