#include "orlo/features/identify/NVMe_NamespaceData.h"

#include <string>

#include "orlo/core/AttributeCollection.h"
#include "orlo/core/Payload.h"
#include "orlo/features/identify/IdentifyTable.h"

namespace orlo::features::identify::nvme::namespaceData {

namespace {

using namespace table;

constexpr uint32_t kLbaFormats = 16;
constexpr uint32_t kFirstLbaFormat = 128;
constexpr uint32_t kNumberOfLbaFormats = 25;

// clang-format off
constexpr Row kNamespaceFeatures[] = {
    field("Bits 7:5", "Reserved",                                    bits(7, 5), decimal),
    field("Bit 4",    "NPWG, NPWA, NPDG, NPDA, NOWS Fields Support", bit(4),     decimal).since(kNVMe1_4),
    field("Bit 3",    "Non-Zero NGUID and EUI64 Non-Reuse Support",  bit(3),     decimal).since(kNVMe1_3),
    field("Bit 2",    "Unwritten Logical Block Error Support",       bit(2),     decimal).since(kNVMe1_2),
    field("Bit 1",    "NAWUN, NAWUPF, NACWU Fields Support",         bit(1),     decimal).since(kNVMe1_2),
    field("Bit 0",    "Thin Provisioning Support",                   bit(0),     decimal),
};

constexpr Row kFormattedLbaSize[] = {
    field("Bits 7:5", "Reserved",              bits(7, 5), decimal),
    field("Bit 4",    "Metadata transfer bit", bit(4),     decimal),
    field("Bits 0:3", "LBA Format Support",    bits(3, 0), decimal),
};

constexpr Row kMetadataCapabilities[] = {
    field("Bits 7:2", "Reserved",                                                  bits(7, 2), decimal),
    field("Bit 1",    "Metadata transferred as part of a separate buffer support", bit(1),     decimal),
    field("Bit 0",    "Metadata transferred part of extended data LBA Support",    bit(0),     decimal),
};

constexpr Row kDataProtectionCapabilities[] = {
    field("Bits 7:5", "Reserved",                                                         bits(7, 5), decimal),
    field("Bit 4",    "Protection Info transferred as last 8 bytes of metadata Support",  bit(4),     decimal),
    field("Bit 3",    "Protection Info transferred as first 8 bytes of metadata Support", bit(3),     decimal),
    field("Bit 2",    "Protection Type 3 Support",                                        bit(2),     decimal),
    field("Bit 1",    "Protection Type 2 Support",                                        bit(1),     decimal),
    field("Bit 0",    "Protection Type 1 Support",                                        bit(0),     decimal),
};

constexpr const char* kTransferWords[] = {
    " (Transferred as the last eight bytes of metadata.)",
    " (Transferred as the first eight bytes of metadata.)",
};
constexpr Words kTransfer = appended(kTransferWords);
constexpr const char* kProtectionTypeWords[] = {
    " (Protection Information is not enabled)",
    " (Protection Information is enabled, Type 1)",
    " (Protection Information is enabled, Type 2)",
    " (Protection Information is enabled, Type 3)",
};
constexpr Words kProtectionType = appended(kProtectionTypeWords, " (Reserved)");

constexpr Row kDataProtectionSettings[] = {
    field("Bits 7:4", "Reserved",                        bits(7, 4), hex()),
    field("Bit 3",    "Protection Information Transfer", bit(3),     decimal).named(kTransfer),
    field("Bits 2:0", "Protection Type Information",     bits(2, 0), decimal).named(kProtectionType),
};

constexpr Row kMultiPathSharing[] = {
    field("Bits 7:1", "Reserved",                    bits(7, 1), hex()),
    field("Bit 0",    "Namespace is Private/Shared", bit(0),     decimal),
};

constexpr Row kReservationCapabilities[] = {
    field("Bit 7", "Ignore Existing Key Revision Support",         bit(7), decimal).since(kNVMe1_3),
    field("Bit 6", "Exclusive Access All Registrants supported",   bit(6), decimal),
    field("Bit 5", "Write Exclusive All Registrants supported",    bit(5), decimal),
    field("Bit 4", "Exclusive Access Registrants Only supported ", bit(4), decimal),
    field("Bit 3", "Write Exclusive Registrants Only supported",   bit(3), decimal),
    field("Bit 2", "Exclusive Access supported",                   bit(2), decimal),
    field("Bit 1", "Write Exclusive supported",                    bit(1), decimal),
    field("Bit 0", "Protection Type 1 Support",                    bit(0), decimal),
};

constexpr Row kFormatProgress[] = {
    field("Bit 7",    "Supported",            bit(7),     decimal),
    field("Bits 6:0", "Percentage Remaining", bits(6, 0), decimal),
};

constexpr Row kDeallocateFeatures[] = {
    field("Bits 7:5", "Reserved",                                         bits(7, 5), hex()),
    field("Bit 4",    "Guard Field for Deallocated Logical Blocks Value", bit(4),     decimal),
    field("Bit 3",    "Deallocate Bit in Write Zeroes Command Supported", bit(3),     decimal),
    field("Bits 2:0", "Deallocated Logical Block and Metadata Value",     bits(2, 0), decimal),
};

constexpr Row kNamespaceAttributes[] = {
    field("Bits 7:1", "Reserved",        bits(7, 1), hex()),
    field("Bit 0",    "Write Protected", bit(0),     decimal),
};

// Read as two little-endian numbers: x at 104, and y at 112, whose low 24 bits are the OUI.
constexpr Row kGloballyUniqueIdentifier[] = {
    field("Bytes 111:104", "Vendor Specific Extension",          range(0, 7),  hex(16)),
    field("Bytes 114:112", "Organizationally Unique Identifier", range(8, 15), bits(23, 0),  hex(6)),
    field("Bytes 119:115", "Extension Identifier",               range(8, 15), bits(63, 24), hex(10)),
};

constexpr Row kFirstTable[] = {
    field("Bytes 07:00", "Namespace Size",                           range(7, 0),   decimal).as("nsze"),
    field("Bytes 15:08", "Namespace Capacity",                       range(15, 8),  decimal).as("ncap"),
    field("Bytes 23:16", "Namespace Utilization",                    range(23, 16), decimal).as("nuse"),
    group("Byte 24",     "Namespace Features",                       byte(24),      hex(2), kNamespaceFeatures).as("nsfeat"),
    field("Byte 25",     "Number of LBA Formats",                    byte(25),      hex(2)).as("nlbaf"),
    group("Byte 26",     "Formatted LBA Size",                       byte(26),      hex(2), kFormattedLbaSize).as("flbas"),
    group("Byte 27",     "Metadata Capabilities",                    byte(27),      hex(2), kMetadataCapabilities).as("mc"),
    group("Byte 28",     "End-to-end Data Protection Capabilities",  byte(28),      hex(2), kDataProtectionCapabilities).as("dpc"),
    group("Byte 29",     "End-to-end Data Protection Type Settings", byte(29),      hex(2), kDataProtectionSettings).as("dps"),
};

constexpr Row kSecondTable[] = {
    group("Byte 30",     "Namespace Multi-path I/O and Sharing Capabilities", byte(30),      bareHex(2), kMultiPathSharing).as("nmic"),
    group("Byte 31",     "Reservation Capabilities",                          byte(31),      hex(2),     kReservationCapabilities).as("rescap"),
    group("Byte 32",     "Format Progress Indicator",                         byte(32),      hex(2),     kFormatProgress).as("fpi"),
    group("Byte 33",     "Deallocate Logical Block Features",                 byte(33),      hex(2),     kDeallocateFeatures).since(kNVMe1_3).as("dlfeat"),
    reserved("Byte 33").until(kNVMe1_3),
    field("Bytes 35:34", "Namespace Atomic Write Unit Normal",                range(35, 34), hex(4)).as("nawun"),
    field("Bytes 37:36", "Namespace Atomic Write Unit Power Fail",            range(37, 36), hex(4)).as("nawupf"),
    field("Bytes 39:38", "Namespace Atomic Compare & Write Unit",             range(39, 38), hex(4)).as("nacwu"),
    field("Bytes 41:40", "Namespace Atomic Boundary Size Normal",             range(41, 40), hex(4)).as("nabsn"),
    field("Bytes 43:42", "Namespace Atomic Boundary Offset",                  range(43, 42), hex(4)).as("nabo"),
    field("Bytes 45:44", "Namespace Atomic Boundary Size Power Fail",         range(45, 44), hex(4)).as("nabspf"),
    field("Bytes 47:46", "Namespace Optimal I/O Boundary",                    range(47, 46), hex(4)).since(kNVMe1_3).as("noiob"),
    reserved("Bytes 47:46").until(kNVMe1_3),
    field("Bytes 63:48", "NVM Capacity",                                      range(63, 48), hex128).as("nvmcap"),
};

constexpr Row kBeforeThirdTable[] = {
    reserved("Bytes 103:64"),
};

constexpr Row kThirdTable[] = {
    field("Bytes 65:64",   "Namespace Preferred Write Granularity",      range(65, 64),   hex(4)).as("npwg"),
    field("Bytes 67:66",   "Namespace Preferred Write Alignment",        range(67, 66),   hex(4)).as("npwa"),
    field("Bytes 69:68",   "Namespace Preferred Deallocate Granularity", range(69, 68),   hex(4)).as("npdg"),
    field("Bytes 71:70",   "Namespace Preferred Deallocate Alignment",   range(71, 70),   hex(4)).as("npda"),
    field("Bytes 73:72",   "Namespace Optimal Write Size",               range(73, 72),   hex(4)).as("nows"),
    reserved("Bytes 91:74"),
    field("Bytes 95:92",   "ANA Group Identifier",                       range(95, 92),   hex(8)).as("anagrpid"),
    reserved("Bytes 98:96"),
    group("Byte 99",       "Namespace Attributes",                       byte(99),        hex(2), kNamespaceAttributes).as("nsattr"),
    field("Bytes 101:100", "NVM Set Identifier",                         range(101, 100), hex(4)).as("nvmsetid"),
    field("Bytes 103:102", "Endurance Group Identifier",                 range(103, 102), hex(4)).as("endgid"),
};

constexpr Row kFourthTable[] = {
    group("Bytes 119:104", "Namespace Globally Unique Identifier", range(119, 104), hex128, kGloballyUniqueIdentifier).as("nguid"),
    field("Bytes 127:120", "IEEE Extended Unique Identifier",      range(127, 120), hex(16)).as("eui64"),
};

constexpr const char* kRelativePerformanceWords[] = {
    " (Best performance)",
    " (Better performance)",
    " (Good performance)",
    " (Degraded performance)",
};
constexpr Words kRelativePerformance = appended(kRelativePerformanceWords);

constexpr Row kLbaFormat[] = {
    field("Bits 31:26", "Reserved",             bits(31, 26), hex()),
    field("Bits 25:24", "Relative Performance", bits(25, 24), hex(1)).named(kRelativePerformance).as("rp"),
    field("Bits 23:16", "LBA Data Size",        bits(23, 16), hex(2)).as("ds"),
    field("Bits 15:0",  "Metadata Size",        bits(15, 0),  hex(4)).as("ms"),
};
// clang-format on

// Formats past the count in byte 25 are shown as plain fields marked "(N/A)"; the keyed form
// lists only the formats in use, so that a format's number is its index.
void addLbaFormats(core::xml::XmlObject& root, const Source& source) {
  const uint32_t inUse = source.payload.data()[kNumberOfLbaFormats];
  for (uint32_t i = 0; i < kLbaFormats; ++i) {
    const uint32_t offset = kFirstLbaFormat + 4 * i;
    const std::string name = "Bytes " + std::to_string(offset + 3) + ":" + std::to_string(offset);
    const std::string description = "LBA Format " + std::to_string(i) + " Support";
    if (i > inUse) {
      const std::string unused = description + " (N/A)";
      addFields(root, field(name.c_str(), unused.c_str(), range(offset + 3, offset), hex(8)).as(""),
                source);
    } else {
      addFields(
          root,
          group(name.c_str(), description.c_str(), range(offset + 3, offset), hex(8), kLbaFormat)
              .as("lbafs")
              .repeated(),
          source);
    }
  }
}

}  // namespace

XmlObject::~XmlObject() = default;

std::unique_ptr<core::xml::XmlObject> toXmlObject(
    const core::Payload& payload, const core::AttributeCollection& deviceAttributes) {
  auto root = std::make_unique<XmlObject>();
  if (payload.size() < kReplySize) {
    return root;
  }
  nameRoot(*root, "Identify Namespace");
  const Source source{payload, 0, versionsOf(deviceAttributes)};
  addFields(*root,
            {
                {Gate{}, kFirstTable},
                {since(kNVMe1_2), kSecondTable},
                {since(kNVMe1_2) & until(kNVMe1_4), kBeforeThirdTable},
                {since(kNVMe1_2 | kNVMe1_4), kThirdTable},
                {since(kNVMe1_2), kFourthTable},
            },
            source);
  addLbaFormats(*root, source);
  return root;
}

}  // namespace orlo::features::identify::nvme::namespaceData
