#include "orlo/features/identify/NVMeIdentify.h"

#include <cstdint>

#include "orlo/commands/nvme/Identify.h"
#include "orlo/core/AttributeType.h"
#include "orlo/core/CommandRecord.h"
#include "orlo/core/Logging.h"
#include "orlo/core/Payload.h"
#include "orlo/core/PropertyDescriptors.h"
#include "orlo/core/ScopeTrace.h"
#include "orlo/features/identify/NVMe_CommandSetVector.h"
#include "orlo/features/identify/NVMe_ControllerData.h"
#include "orlo/features/identify/NVMe_ControllerList.h"
#include "orlo/features/identify/NVMe_NamespaceData.h"
#include "orlo/features/identify/NVMe_NamespaceGranularityList.h"
#include "orlo/features/identify/NVMe_NamespaceIdentification.h"
#include "orlo/features/identify/NVMe_NamespaceList.h"
#include "orlo/features/identify/NVMe_PrimaryControllerCapabilities.h"
#include "orlo/features/identify/NVMe_SecondaryControllerList.h"
#include "orlo/features/identify/NVMe_UUIDList.h"

namespace orlo::features::identify::nvme {

namespace {

namespace properties = core::properties;
using core::Attribute;
using core::AttributeCollection;
using core::Payload;
using core::Status;
using core::xml::XmlObject;

constexpr uint32_t kBroadcastNamespace = 0xFFFFFFFF;

namespace layout = commands::nvme::layout;

// The command set of DWord 11; no other feature reads it.
Attribute csi() {
  return Attribute("CSI", "Command Set Identifier", core::attributeType::uint8());
}

Status unsupported() {
  return Status(35, "Device does not support this command set.");
}

// Structures that a drive offers only from an NVMe version on, or only with namespace
// management. CNS 17 is not listed: it may be asked of any drive, and the single
// namespace rewrite makes it only where namespace management exists.
struct CnsRequirement {
  uint8_t cns;
  Attribute (*capability)();
};

// clang-format off
const CnsRequirement kRequirements[] = {
    {layout::kCnsActiveNamespaceList,           properties::nvme1Point2OrGreater},
    {layout::kCnsNamespaceIdentification,       properties::nvme1Point3OrGreater},
    {layout::kCnsPrimaryControllerCapabilities, properties::nvme1Point3OrGreater},
    {layout::kCnsSecondaryControllerList,       properties::nvme1Point3OrGreater},
    {layout::kCnsAllocatedNamespaceList,        properties::namespaceManagementSupported},
    {layout::kCnsAttachedControllers,           properties::namespaceManagementSupported},
    {layout::kCnsAllControllers,                properties::namespaceManagementSupported},
};
// clang-format on

using Decoder = std::unique_ptr<XmlObject> (*)(const Payload&, const AttributeCollection&);

// Adapts a decoder that reads nothing of the device.
template <std::unique_ptr<XmlObject> (*decode)(const Payload&)>
std::unique_ptr<XmlObject> payloadOnly(const Payload& payload, const AttributeCollection&) {
  return decode(payload);
}

struct StructureDecoder {
  uint8_t cns;
  Decoder decode;
  // The root's name and key for a list whose meaning only the CNS tells; null keeps
  // what the decoder set.
  const char* listName;
};

// clang-format off
const StructureDecoder kDecoders[] = {
    {layout::kCnsNamespace,                     namespaceData::toXmlObject,                              nullptr},
    {layout::kCnsAllocatedNamespace,            namespaceData::toXmlObject,                              nullptr},
    {layout::kCnsController,                    controllerData::toXmlObject,                             nullptr},
    {layout::kCnsActiveNamespaceList,           payloadOnly<namespaceList::toXmlObject>,                 "Attached Namespace IDs"},
    {layout::kCnsNamespaceIdentification,       payloadOnly<namespaceIdentification::toXmlObject>,       nullptr},
    {layout::kCnsAllocatedNamespaceList,        payloadOnly<namespaceList::toXmlObject>,                 "Allocated Namespace IDs"},
    {layout::kCnsAttachedControllers,           payloadOnly<controllerList::toXmlObject>,                "Attached Controllers"},
    {layout::kCnsAllControllers,                payloadOnly<controllerList::toXmlObject>,                "All Controllers"},
    {layout::kCnsPrimaryControllerCapabilities, payloadOnly<primaryControllerCapabilities::toXmlObject>, nullptr},
    {layout::kCnsSecondaryControllerList,       payloadOnly<secondaryControllerList::toXmlObject>,       nullptr},
    {layout::kCnsNamespaceGranularityList,      payloadOnly<namespaceGranularityList::toXmlObject>,      nullptr},
    {layout::kCnsUuidList,                      payloadOnly<UUIDList::toXmlObject>,                      nullptr},
    {layout::kCnsIoCommandSetAllocatedNamespaceList, payloadOnly<namespaceList::toXmlObject>,            nullptr},
    {layout::kCnsIoCommandSetVector,            payloadOnly<commandSetVector::toXmlObject>,              nullptr},
};
// clang-format on

// On a drive with namespace management, the structure of one namespace is asked as
// that of an allocated namespace (CNS 17), which the same decoder reads. The Microsoft
// command path does not pass CNS 17 on, and the broadcast namespace has no allocation.
void rewriteSingleNamespaceCns(AttributeCollection& attributes,
                               const AttributeCollection& deviceAttributes) {
  if (core::readUInt8(attributes, properties::controllerNamespaceStructure()) != layout::kCnsNamespace ||
      !core::readBool(deviceAttributes, properties::namespaceManagementSupported())) {
    return;
  }
  if (core::readUInt32(attributes, properties::namespaceId()) < kBroadcastNamespace &&
      !core::readBool(deviceAttributes, properties::isCommandPathNVMeMSFT())) {
    core::writeUInt8(attributes, properties::controllerNamespaceStructure(),
                     layout::kCnsAllocatedNamespace);
  }
}

}  // namespace

Identify::Identify(const std::shared_ptr<core::Device>& device,
                   const AttributeCollection& attributes)
    : IdentifyInterface(device, attributes) {
  if (!core::hasAttribute(this->attributes, properties::controllerNamespaceStructure())) {
    core::writeUInt8(this->attributes, properties::controllerNamespaceStructure(), layout::kCnsNamespace);
  }
  if (!core::hasAttribute(this->attributes, properties::namespaceId())) {
    uint32_t namespaceId = core::readUInt32(device->attributes, properties::namespaceId());
    if (namespaceId == 0) namespaceId = kBroadcastNamespace;
    const uint8_t cns =
        core::readUInt8(this->attributes, properties::controllerNamespaceStructure());
    if (cns == layout::kCnsActiveNamespaceList || cns == layout::kCnsAllocatedNamespaceList) {
      namespaceId = 0;
    }
    core::writeUInt32(this->attributes, properties::namespaceId(), namespaceId);
  }
}

Status Identify::canRun() {
  ORLO_SCOPE_TRACE();
  const uint8_t cns = core::readUInt8(attributes, properties::controllerNamespaceStructure());
  if (!device->supportsProtocol("NVME")) return unsupported();
  for (const auto& requirement : kRequirements) {
    if (requirement.cns == cns && !core::readBool(device->attributes, requirement.capability())) {
      return unsupported();
    }
  }
  return Status::success();
}

Status Identify::identify() {
  ORLO_SCOPE_TRACE();
  const Status allowed = canRun();
  if (!core::succeeded(allowed)) return allowed;

  commands::nvme::Identify command;
  rewriteSingleNamespaceCns(attributes, device->attributes);

  // The namespace line shows its low byte only; the command takes all 32 bits.
  ORLO_LOG(info,
           "CNS  = " << core::readUInt32(attributes, properties::controllerNamespaceStructure()));
  ORLO_LOG(info, "NSID = " << +core::readUInt8(attributes, properties::namespaceId()));
  ORLO_LOG(info, "CSI  = " << +core::readUInt8(attributes, csi()));

  command.submissionEntry.set(layout::kNamespaceId,
                              core::readUInt32(attributes, properties::namespaceId()));
  command.setCns(core::readUInt8(attributes, properties::controllerNamespaceStructure()));
  command.submissionEntry.set(layout::kCommandSetId, core::readUInt8(attributes, csi()));

  const core::CommandRecord record = device->send(command);
  payload = record.outputPayload;
  return record.status;
}

std::unique_ptr<XmlObject> Identify::getXml() {
  const uint8_t cns = core::readUInt8(attributes, properties::controllerNamespaceStructure());
  for (const auto& decoder : kDecoders) {
    if (decoder.cns != cns) continue;
    std::unique_ptr<XmlObject> root = decoder.decode(payload, device->attributes);
    if (decoder.listName != nullptr) {
      root->attribute("name") = decoder.listName;
      root->attribute("key") = root->getAttribute("name");
    }
    return root;
  }
  return std::make_unique<XmlObject>();
}

}  // namespace orlo::features::identify::nvme
