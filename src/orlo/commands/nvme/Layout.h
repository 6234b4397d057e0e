#pragma once

#include <cstddef>
#include <cstdint>

#include "orlo/core/BitField.h"

// Where each thing stands in the NVMe commands that orlo sends and in the
// structures it reads outside the decoder tables: the command dwords of
// Identify and Get Log Page, the Identify structures (CNS values) and log pages
// orlo knows, and the few fields of Identify Controller and the UUID list that
// the drive attributes, capture and replay read. Each number stands here once.
namespace orlo::commands::nvme::layout {

// Some bits of command dword `dword` of a submission entry.
struct EntryField {
  std::size_t dword;
  core::BitField bits;
};

inline constexpr EntryField kNamespaceId{1, core::bits(31, 0)};  // NSID

// Identify (opcode 06h).
inline constexpr uint8_t kIdentifyOpcode = 0x06;
inline constexpr EntryField kCns{10, core::bits(7, 0)};             // CNS
inline constexpr EntryField kControllerId{10, core::bits(31, 16)};  // CNTID
inline constexpr EntryField kCommandSetId{11, core::bits(31, 24)};  // CSI
inline constexpr std::size_t kIdentifySize = 4096;

// Get Log Page (opcode 02h). The dword count is 0's based and split in two.
inline constexpr uint8_t kGetLogPageOpcode = 0x02;
inline constexpr EntryField kLogId{10, core::bits(7, 0)};                 // LID
inline constexpr EntryField kLogSpecificField{10, core::bits(14, 8)};     // LSP
inline constexpr EntryField kRetainAsynchronousEvent{10, core::bit(15)};  // RAE
inline constexpr EntryField kDwordCountLower{10, core::bits(31, 16)};     // NUMDL
inline constexpr EntryField kDwordCountUpper{11, core::bits(15, 0)};      // NUMDU
inline constexpr EntryField kLogSpecificId{11, core::bits(31, 16)};       // LSI
inline constexpr EntryField kLogOffsetLower{12, core::bits(31, 0)};       // LPOL
inline constexpr EntryField kLogOffsetUpper{13, core::bits(31, 0)};       // LPOU
inline constexpr EntryField kUuidIndex{14, core::bits(6, 0)};             // UUID Index

// The Identify structures that orlo decodes, by CNS value, and whether the
// structure depends on the namespace field (a namespace, or a list that starts
// after one).
struct IdentifyStructure {
  uint8_t cns;
  bool perNamespace;
};
inline constexpr uint8_t kCnsNamespace = 0x00;
inline constexpr uint8_t kCnsController = 0x01;
inline constexpr uint8_t kCnsActiveNamespaceList = 0x02;
inline constexpr uint8_t kCnsNamespaceIdentification = 0x03;
inline constexpr uint8_t kCnsAllocatedNamespaceList = 0x10;
inline constexpr uint8_t kCnsAllocatedNamespace = 0x11;
inline constexpr uint8_t kCnsAttachedControllers = 0x12;
inline constexpr uint8_t kCnsAllControllers = 0x13;
inline constexpr uint8_t kCnsPrimaryControllerCapabilities = 0x14;
inline constexpr uint8_t kCnsSecondaryControllerList = 0x15;
inline constexpr uint8_t kCnsNamespaceGranularityList = 0x16;
inline constexpr uint8_t kCnsUuidList = 0x17;
inline constexpr uint8_t kCnsIoCommandSetAllocatedNamespaceList = 0x1A;
inline constexpr uint8_t kCnsIoCommandSetVector = 0x1C;
inline constexpr IdentifyStructure kDecodedStructures[] = {
    {kCnsNamespace, true},
    {kCnsController, false},
    {kCnsActiveNamespaceList, true},
    {kCnsNamespaceIdentification, true},
    {kCnsAllocatedNamespaceList, true},
    {kCnsAllocatedNamespace, true},
    {kCnsAttachedControllers, true},
    {kCnsAllControllers, false},
    {kCnsPrimaryControllerCapabilities, false},
    {kCnsSecondaryControllerList, false},
    {kCnsNamespaceGranularityList, false},
    {kCnsUuidList, false},
    {kCnsIoCommandSetAllocatedNamespaceList, true},
    {kCnsIoCommandSetVector, false},
};

// The CNS values whose structure depends on the namespace field, decoded by
// orlo or not, so that a recorded reply is named by the namespace only where it
// matters.
inline constexpr uint8_t kPerNamespaceCns[] = {0x00, 0x02, 0x03, 0x05, 0x06, 0x07, 0x08,
                                               0x10, 0x11, 0x12, 0x1A, 0x1B, 0x1F};

// The log pages orlo reads, and whether a drive is asked for one with the
// UUID index of the maker's GUID. A page of entries gives the size of one; the
// drive keeps as many as Identify Controller's ELPE says (0's based).
struct LogPage {
  uint8_t id;
  uint32_t size;
  bool makersUuid;
  bool entriesFromElpe = false;
};
inline constexpr LogPage kErrorInformationLog{0x01, 64, false, true};
inline constexpr LogPage kSmartHealthLog{0x02, 512, false};
inline constexpr LogPage kFirmwareSlotLog{0x03, 512, false};
inline constexpr LogPage kCommandsEffectsLog{0x05, 4096, false};
inline constexpr LogPage kDeviceSelfTestLog{0x06, 564, false};
inline constexpr LogPage kMarketingDescriptionLog{0xDD, 512, true};
inline constexpr LogPage kReadLogPages[] = {kErrorInformationLog, kSmartHealthLog,
                                            kFirmwareSlotLog,     kCommandsEffectsLog,
                                            kDeviceSelfTestLog,   kMarketingDescriptionLog};

// The bytes a drive sends of `page` when its ELPE reads `elpe`.
constexpr uint32_t logPageSize(const LogPage& page, uint8_t elpe) {
  return page.entriesFromElpe ? page.size * (elpe + 1u) : page.size;
}

// A run of bytes of a structure; for a flag, the bit of the little-endian value
// that holds it.
struct ByteField {
  uint32_t offset;
  uint32_t length;
};
struct FlagField {
  ByteField bytes;
  core::BitField bit;
};

// Identify Controller.
inline constexpr ByteField kVendorId{0, 2};                                        // VID
inline constexpr ByteField kSubsystemVendorId{2, 2};                               // SSVID
inline constexpr ByteField kSerialNumber{4, 20};                                   // SN
inline constexpr ByteField kModelNumber{24, 40};                                   // MN
inline constexpr ByteField kFirmwareRevision{64, 8};                               // FR
inline constexpr ByteField kVersion{80, 4};                                        // VER
inline constexpr FlagField kUuidListSupported{{96, 4}, core::bit(9)};              // CTRATT
inline constexpr FlagField kNamespaceManagementSupported{{256, 2}, core::bit(3)};  // OACS
inline constexpr FlagField kSmartPerNamespace{{261, 1}, core::bit(0)};             // LPA
inline constexpr FlagField kCommandEffectsLogEnhanced{{261, 1}, core::bit(5)};     // LPA
inline constexpr ByteField kErrorLogPageEntries{262, 1};  // ELPE, 0's based

// UUID list (CNS 17h): entries of 32 bytes after a 32-byte header, each with
// its UUID in the upper half; a zero UUID ends the list.
inline constexpr std::size_t kUuidListHeader = 32;
inline constexpr std::size_t kUuidListEntrySize = 32;
inline constexpr std::size_t kUuidInEntry = 16;
inline constexpr std::size_t kUuidSize = 16;
inline constexpr std::size_t kUuidListEntries =
    (kIdentifySize - kUuidListHeader) / kUuidListEntrySize;

static_assert(kUuidInEntry + kUuidSize == kUuidListEntrySize);
static_assert(kSerialNumber.offset + kSerialNumber.length == kModelNumber.offset);
static_assert(kModelNumber.offset + kModelNumber.length == kFirmwareRevision.offset);
static_assert(kNamespaceManagementSupported.bytes.offset +
                  kNamespaceManagementSupported.bytes.length <=
              kIdentifySize);
static_assert(kErrorInformationLog.size % 4 == 0 && kSmartHealthLog.size % 4 == 0 &&
              kFirmwareSlotLog.size % 4 == 0 && kCommandsEffectsLog.size % 4 == 0 &&
              kDeviceSelfTestLog.size % 4 == 0 && kMarketingDescriptionLog.size % 4 == 0);

}  // namespace orlo::commands::nvme::layout
