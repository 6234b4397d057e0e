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
    field("Bits 7:5", "Reserved",                                    decimal),
    field("Bit 4",    "NPWG, NPWA, NPDG, NPDA, NOWS Fields Support", decimal).since(kNVMe1_4),
    field("Bit 3",    "Non-Zero NGUID and EUI64 Non-Reuse Support",  decimal).since(kNVMe1_3),
    field("Bit 2",    "Unwritten Logical Block Error Support",       decimal).since(kNVMe1_2),
    field("Bit 1",    "NAWUN, NAWUPF, NACWU Fields Support",         decimal).since(kNVMe1_2),
    field("Bit 0",    "Thin Provisioning Support",                   decimal),
};

constexpr Row kFormattedLbaSize[] = {
    field("Bits 7:5", "Reserved",              decimal),
    field("Bit 4",    "Metadata transfer bit", decimal),
    field("Bits 0:3", "LBA Format Support",    decimal),
};

constexpr Row kMetadataCapabilities[] = {
    field("Bits 7:2", "Reserved",                                                  decimal),
    field("Bit 1",    "Metadata transferred as part of a separate buffer support", decimal),
    field("Bit 0",    "Metadata transferred part of extended data LBA Support",    decimal),
};

constexpr Row kDataProtectionCapabilities[] = {
    field("Bits 7:5", "Reserved",                                                         decimal),
    field("Bit 4",    "Protection Info transferred as last 8 bytes of metadata Support",  decimal),
    field("Bit 3",    "Protection Info transferred as first 8 bytes of metadata Support", decimal),
    field("Bit 2",    "Protection Type 3 Support",                                        decimal),
    field("Bit 1",    "Protection Type 2 Support",                                        decimal),
    field("Bit 0",    "Protection Type 1 Support",                                        decimal),
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
    field("Bits 7:4", "Reserved",                        hex()),
    field("Bit 3",    "Protection Information Transfer", decimal).named(kTransfer),
    field("Bits 2:0", "Protection Type Information",     decimal).named(kProtectionType),
};

constexpr Row kMultiPathSharing[] = {
    field("Bits 7:1", "Reserved",                    hex()),
    field("Bit 0",    "Namespace is Private/Shared", decimal),
};

constexpr Row kReservationCapabilities[] = {
    field("Bit 7", "Ignore Existing Key Revision Support",         decimal).since(kNVMe1_3),
    field("Bit 6", "Exclusive Access All Registrants supported",   decimal),
    field("Bit 5", "Write Exclusive All Registrants supported",    decimal),
    field("Bit 4", "Exclusive Access Registrants Only supported ", decimal),
    field("Bit 3", "Write Exclusive Registrants Only supported",   decimal),
    field("Bit 2", "Exclusive Access supported",                   decimal),
    field("Bit 1", "Write Exclusive supported",                    decimal),
    field("Bit 0", "Protection Type 1 Support",                    decimal),
};

constexpr Row kFormatProgress[] = {
    field("Bit 7",    "Supported",            decimal),
    field("Bits 6:0", "Percentage Remaining", decimal),
};

constexpr Row kDeallocateFeatures[] = {
    field("Bits 7:5", "Reserved",                                         hex()),
    field("Bit 4",    "Guard Field for Deallocated Logical Blocks Value", decimal),
    field("Bit 3",    "Deallocate Bit in Write Zeroes Command Supported", decimal),
    field("Bits 2:0", "Deallocated Logical Block and Metadata Value",     decimal),
};

constexpr Row kNamespaceAttributes[] = {
    field("Bits 7:1", "Reserved",        hex()),
    field("Bit 0",    "Write Protected", decimal),
};

// Read as two little-endian numbers: x at 104, and y at 112, whose low 24 bits are the OUI.
// The labels count from the start of the structure, the rows from the group's first byte.
constexpr Row kGloballyUniqueIdentifier[] = {
    field("Bytes 111:104", "Vendor Specific Extension",          hex(16)).readsBytes(range(0, 7)),
    field("Bytes 114:112", "Organizationally Unique Identifier", hex(6)).readsBytes(range(8, 15)).readsBits(bits(23, 0)),
    field("Bytes 119:115", "Extension Identifier",               hex(10)).readsBytes(range(8, 15)).readsBits(bits(63, 24)),
};

constexpr Row kFirstTable[] = {
    field("Bytes 07:00", "Namespace Size",                           decimal).as("nsze"),
    field("Bytes 15:08", "Namespace Capacity",                       decimal).as("ncap"),
    field("Bytes 23:16", "Namespace Utilization",                    decimal).as("nuse"),
    group("Byte 24",     "Namespace Features",                       hex(2), kNamespaceFeatures).as("nsfeat"),
    field("Byte 25",     "Number of LBA Formats",                    hex(2)).as("nlbaf"),
    group("Byte 26",     "Formatted LBA Size",                       hex(2), kFormattedLbaSize).as("flbas"),
    group("Byte 27",     "Metadata Capabilities",                    hex(2), kMetadataCapabilities).as("mc"),
    group("Byte 28",     "End-to-end Data Protection Capabilities",  hex(2), kDataProtectionCapabilities).as("dpc"),
    group("Byte 29",     "End-to-end Data Protection Type Settings", hex(2), kDataProtectionSettings).as("dps"),
};

constexpr Row kSecondTable[] = {
    group("Byte 30",     "Namespace Multi-path I/O and Sharing Capabilities", bareHex(2), kMultiPathSharing).as("nmic"),
    group("Byte 31",     "Reservation Capabilities",                          hex(2),     kReservationCapabilities).as("rescap"),
    group("Byte 32",     "Format Progress Indicator",                         hex(2),     kFormatProgress).as("fpi"),
    group("Byte 33",     "Deallocate Logical Block Features",                 hex(2),     kDeallocateFeatures).since(kNVMe1_3).as("dlfeat"),
    reserved("Byte 33").until(kNVMe1_3),
    field("Bytes 35:34", "Namespace Atomic Write Unit Normal",                hex(4)).as("nawun"),
    field("Bytes 37:36", "Namespace Atomic Write Unit Power Fail",            hex(4)).as("nawupf"),
    field("Bytes 39:38", "Namespace Atomic Compare & Write Unit",             hex(4)).as("nacwu"),
    field("Bytes 41:40", "Namespace Atomic Boundary Size Normal",             hex(4)).as("nabsn"),
    field("Bytes 43:42", "Namespace Atomic Boundary Offset",                  hex(4)).as("nabo"),
    field("Bytes 45:44", "Namespace Atomic Boundary Size Power Fail",         hex(4)).as("nabspf"),
    field("Bytes 47:46", "Namespace Optimal I/O Boundary",                    hex(4)).since(kNVMe1_3).as("noiob"),
    reserved("Bytes 47:46").until(kNVMe1_3),
    field("Bytes 63:48", "NVM Capacity",                                      hex128).as("nvmcap"),
};

constexpr Row kBeforeThirdTable[] = {
    reserved("Bytes 103:64"),
};

constexpr Row kThirdTable[] = {
    field("Bytes 65:64",   "Namespace Preferred Write Granularity",      hex(4)).as("npwg"),
    field("Bytes 67:66",   "Namespace Preferred Write Alignment",        hex(4)).as("npwa"),
    field("Bytes 69:68",   "Namespace Preferred Deallocate Granularity", hex(4)).as("npdg"),
    field("Bytes 71:70",   "Namespace Preferred Deallocate Alignment",   hex(4)).as("npda"),
    field("Bytes 73:72",   "Namespace Optimal Write Size",               hex(4)).as("nows"),
    reserved("Bytes 91:74"),
    field("Bytes 95:92",   "ANA Group Identifier",                       hex(8)).as("anagrpid"),
    reserved("Bytes 98:96"),
    group("Byte 99",       "Namespace Attributes",                       hex(2), kNamespaceAttributes).as("nsattr"),
    field("Bytes 101:100", "NVM Set Identifier",                         hex(4)).as("nvmsetid"),
    field("Bytes 103:102", "Endurance Group Identifier",                 hex(4)).as("endgid"),
};

constexpr Row kFourthTable[] = {
    group("Bytes 119:104", "Namespace Globally Unique Identifier", hex128, kGloballyUniqueIdentifier).as("nguid"),
    field("Bytes 127:120", "IEEE Extended Unique Identifier",      hex(16)).as("eui64"),
};

constexpr const char* kRelativePerformanceWords[] = {
    " (Best performance)",
    " (Better performance)",
    " (Good performance)",
    " (Degraded performance)",
};
constexpr Words kRelativePerformance = appended(kRelativePerformanceWords);

constexpr Row kLbaFormat[] = {
    field("Bits 31:26", "Reserved",             hex()),
    field("Bits 25:24", "Relative Performance", hex(1)).named(kRelativePerformance).as("rp"),
    field("Bits 23:16", "LBA Data Size",        hex(2)).as("ds"),
    field("Bits 15:0",  "Metadata Size",        hex(4)).as("ms"),
};

constexpr Section kSections[] = {
    {Gate{},                            kFirstTable},
    {since(kNVMe1_2),                   kSecondTable},
    {since(kNVMe1_2) & until(kNVMe1_4), kBeforeThirdTable},
    {since(kNVMe1_2 | kNVMe1_4),        kThirdTable},
    {since(kNVMe1_2),                   kFourthTable},
};
// clang-format on

// Before 1.2 only the first 30 bytes are shown; from 1.2 on, each version's rows cover the
// bytes before the LBA formats once.
static_assert(tiledUpTo(kSections, kNVMe1_0) == 30 && tiledUpTo(kSections, kNVMe1_1) == 30);
static_assert(tiledUpTo(kSections, kAnnounced[2]) == kFirstLbaFormat);
static_assert(tiledUpTo(kSections, kAnnounced[3]) == kFirstLbaFormat);
static_assert(tiledUpTo(kSections, kAnnounced[4]) == kFirstLbaFormat);
static_assert(tiledUpTo(kSections, kAnnounced[5]) == kFirstLbaFormat);

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
  addFields(*root, kSections, source);
  addLbaFormats(*root, source);
  return root;
}

}  // namespace orlo::features::identify::nvme::namespaceData
