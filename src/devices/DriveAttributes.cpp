#include "devices/DriveAttributes.h"

#include <cstdint>
#include <string>

#include "orlo/commands/ata/IdentifyDevice.h"
#include "orlo/commands/ata/Layout.h"
#include "orlo/commands/nvme/Identify.h"
#include "orlo/core/BitField.h"
#include "orlo/core/LittleEndian.h"
#include "orlo/core/PropertyDescriptors.h"
#include "orlo/core/Strings.h"

namespace orlo::devices {

namespace {

namespace properties = core::properties;
using Descriptor = core::Attribute (*)();

namespace layout = commands::nvme::layout;

namespace ataLayout = commands::ata::layout;

struct AtaText {
  Descriptor descriptor;
  ataLayout::WordText field;
};

struct NvmeText {
  Descriptor descriptor;
  layout::ByteField field;
};

struct NvmeFlag {
  Descriptor descriptor;
  layout::FlagField field;
};

struct VersionGate {
  Descriptor descriptor;
  uint32_t version;  // major in bits 31:16, minor in bits 15:8
};

// Identify Controller.
constexpr NvmeText kNvmeTexts[] = {
    {properties::serialNumber, layout::kSerialNumber},
    {properties::modelNumber, layout::kModelNumber},
    {properties::firmware, layout::kFirmwareRevision},
};
constexpr NvmeFlag kNvmeFlags[] = {
    {properties::uuidSupported, layout::kUuidListSupported},
    {properties::namespaceManagementSupported, layout::kNamespaceManagementSupported},
    {properties::supportCommandEffectsLogEnhancements, layout::kCommandEffectsLogEnhanced},
    {properties::smartPerNamespace, layout::kSmartPerNamespace},
};
constexpr VersionGate kVersionGates[] = {
    {properties::nvme1Point1OrGreater, 0x00010100}, {properties::nvme1Point2OrGreater, 0x00010200},
    {properties::nvme1Point3OrGreater, 0x00010300}, {properties::nvme1Point4OrGreater, 0x00010400},
    {properties::nvme2Point0OrGreater, 0x00020000},
};

constexpr AtaText kAtaTexts[] = {
    {properties::serialNumber, ataLayout::kSerialNumber},
    {properties::firmware, ataLayout::kFirmwareRevision},
    {properties::modelNumber, ataLayout::kModelNumber},
};

uint32_t readLittleEndian(const core::Payload& data, const layout::ByteField& field) {
  if (field.length == 0) return 0;
  data[field.offset + field.length - 1];  // throws when the field runs past the data
  return static_cast<uint32_t>(core::le::read(data.data() + field.offset, field.length));
}

std::string nvmeText(const core::Payload& data, const layout::ByteField& field) {
  return core::strings::sanitize(
      std::string(reinterpret_cast<const char*>(data.data()) + field.offset, field.length));
}

std::string ataText(const core::Payload& data, const ataLayout::WordText& field) {
  std::string text;
  for (uint32_t word = field.first; word < field.first + field.count; ++word) {
    text += static_cast<char>(data[2 * word + 1]);
    text += static_cast<char>(data[2 * word]);
  }
  return core::strings::sanitize(text);
}

void setCommon(core::AttributeCollection& attributes, bool maker, bool nvme) {
  core::writeString(attributes, properties::product(),
                    core::readString(attributes, properties::modelNumber()));
  core::writeUInt8(attributes, properties::csmi(), 0);
  core::writeUInt8(attributes, properties::veldra(), maker);
  core::writeUInt8(attributes, properties::veldraNVMe(), maker && nvme);
}

}  // namespace

void setNvmeAttributes(core::AttributeCollection& attributes, const core::Payload& controllerData,
                       const VendorList& makers) {
  if (controllerData.size() < layout::kIdentifySize) return;
  for (const NvmeText& text : kNvmeTexts) {
    core::writeString(attributes, text.descriptor(), nvmeText(controllerData, text.field));
  }
  for (const NvmeFlag& flag : kNvmeFlags) {
    const uint32_t value = readLittleEndian(controllerData, flag.field.bytes);
    core::writeUInt8(attributes, flag.descriptor(), core::extract(value, flag.field.bit));
  }
  core::writeUInt8(
      attributes, properties::errorLogPageEntries(),
      static_cast<uint8_t>(readLittleEndian(controllerData, layout::kErrorLogPageEntries)));
  const uint32_t version = readLittleEndian(controllerData, layout::kVersion) & 0xFFFFFF00;
  for (const VersionGate& gate : kVersionGates) {
    core::writeUInt8(attributes, gate.descriptor(), version >= gate.version);
  }
  const bool maker =
      makers.contains(static_cast<uint16_t>(readLittleEndian(controllerData, layout::kVendorId))) ||
      makers.contains(
          static_cast<uint16_t>(readLittleEndian(controllerData, layout::kSubsystemVendorId)));
  setCommon(attributes, maker, true);
}

void setAtaAttributes(core::AttributeCollection& attributes, const core::Payload& identifyData) {
  if (identifyData.size() < ataLayout::kSectorSize) return;
  for (const AtaText& text : kAtaTexts) {
    core::writeString(attributes, text.descriptor(), ataText(identifyData, text.field));
  }
  setCommon(attributes, false, false);
}

core::Status identifyDrive(core::Device& device, const VendorList& makers) {
  if (device.supportsProtocol("NVME")) {
    commands::nvme::Identify identify;
    identify.setCns(layout::kCnsController);
    const core::CommandRecord record = device.send(identify);
    if (core::succeeded(record.status)) {
      setNvmeAttributes(device.attributes, record.outputPayload, makers);
    }
    return record.status;
  }
  if (device.supportsProtocol("ATA")) {
    commands::ata::IdentifyDevice identify;
    const core::CommandRecord record = device.send(identify);
    if (core::succeeded(record.status)) setAtaAttributes(device.attributes, record.outputPayload);
    return record.status;
  }
  return core::Status(35, "Device does not support this command set.");
}

}  // namespace orlo::devices
