#include "orlo/features/nvme_get_log/NVMeDriveLog.h"

#include <cstddef>
#include <iterator>
#include <string>
#include <utility>

#include "orlo/core/PropertyDescriptors.h"
#include "orlo/features/nvme_get_log/DeviceSelfTestLog.h"
#include "orlo/features/nvme_get_log/ErrorInformationLog.h"
#include "orlo/features/nvme_get_log/FirmwareSlotLog.h"
#include "orlo/features/nvme_get_log/LogFactories.h"
#include "orlo/features/nvme_get_log/LogNames.h"
#include "orlo/features/nvme_get_log/LogTree.h"
#include "orlo/features/nvme_get_log/SmartHealthLog.h"

namespace orlo::features::nvme_get_log {

namespace {

namespace layout = commands::nvme::layout;
namespace properties = core::properties;

constexpr uint32_t kAllNamespaces = 0xFFFFFFFF;

// clang-format off
const DriveLogPage kDriveLogPages[] = {
    {&logNames::ErrorInfo,         "Error Information Log",          layout::kErrorInformationLog, errorInformation::decode, false},
    {&logNames::SmartHealthInfo,   "SMART / Health Information Log", layout::kSmartHealthLog,      smartHealth::decode,      true},
    {&logNames::FirmwareSlotInfo,  "Firmware Slot Information Log",  layout::kFirmwareSlotLog,     firmwareSlot::decode,     false},
    {&logNames::DeviceSelfTestLog, "Device Self-test Log",           layout::kDeviceSelfTestLog,   deviceSelfTest::decode,   false},
};
// clang-format on

template <std::size_t Index>
std::unique_ptr<NVMeGetLog> makeDriveLog(const std::shared_ptr<core::Device>& device,
                                         const core::AttributeCollection& attributes) {
  return std::make_unique<NVMeDriveLog>(device, kDriveLogPages[Index], attributes);
}

template <std::size_t... Index>
bool registerAll(std::index_sequence<Index...>) {
  return (registerLogFactory(*kDriveLogPages[Index].name, makeDriveLog<Index>) && ...);
}

[[maybe_unused]] const bool registered =
    registerAll(std::make_index_sequence<std::size(kDriveLogPages)>());

uint32_t bytesOf(const DriveLogPage& kind, const core::Device& device) {
  return layout::logPageSize(kind.page,
                             core::readUInt8(device.attributes, properties::errorLogPageEntries()));
}

}  // namespace

NVMeDriveLog::NVMeDriveLog(const std::shared_ptr<core::Device>& device, const DriveLogPage& kind,
                           const core::AttributeCollection& attributes)
    : NVMeGetLog(device, kind.page.id, numDWORDsFor(bytesOf(kind, *device)), *kind.name,
                 attributes),
      kind_(kind) {
  core::writeString(this->attributes, properties::logDescription(), kind.description);
  if (kind.perNamespace && core::readBool(device->attributes, properties::smartPerNamespace()) &&
      core::hasAttribute(attributes, properties::namespaceId())) {
    core::writeUInt32(this->attributes, properties::namespaceId(),
                      core::readUInt32(attributes, properties::namespaceId()));
  }
}

NVMeDriveLog::~NVMeDriveLog() = default;

core::Status NVMeDriveLog::canRun() {
  const core::Status result = device->supportsProtocol("NVME")
                                  ? core::Status::success()
                                  : core::Status(35, "Device does not support this command set.");
  setStatus(result);
  return result;
}

std::unique_ptr<core::xml::XmlObject> NVMeDriveLog::getXml() {
  auto tree = kind_.decode(payload);
  if (kind_.perNamespace) {
    const uint32_t id = core::readUInt32(attributes, properties::namespaceId());
    addNameValue(*tree, "Namespace",
                 id == kAllNamespaces ? "All (controller-wide)" : std::to_string(id))
        .keyed() = core::xml::Keyed::number("nsid", id);
  }
  return tree;
}

uint8_t NVMeDriveLog::getUUIDIndex() {
  return 0;
}

}  // namespace orlo::features::nvme_get_log
