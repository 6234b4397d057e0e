#include "devices/NvmeStatusText.h"

#include "orlo/core/BitField.h"
#include "orlo/core/Strings.h"

namespace orlo::devices {

namespace {

// The status field without its phase tag: the status code and, above it, its type.
constexpr core::BitField kStatusCode = core::bits(7, 0);
constexpr core::BitField kStatusCodeType = core::bits(10, 8);

struct StatusName {
  uint8_t type;
  uint8_t code;
  const char* name;
};

// Generic command statuses and the command specific ones that Identify and Get
// Log Page can end with.
constexpr StatusName kStatusNames[] = {
    {0, 0x00, "Successful Completion"},
    {0, 0x01, "Invalid Command Opcode"},
    {0, 0x02, "Invalid Field in Command"},
    {0, 0x03, "Command ID Conflict"},
    {0, 0x04, "Data Transfer Error"},
    {0, 0x05, "Commands Aborted due to Power Loss Notification"},
    {0, 0x06, "Internal Error"},
    {0, 0x07, "Command Abort Requested"},
    {0, 0x08, "Command Aborted due to SQ Deletion"},
    {0, 0x09, "Command Aborted due to Failed Fused Command"},
    {0, 0x0A, "Command Aborted due to Missing Fused Command"},
    {0, 0x0B, "Invalid Namespace or Format"},
    {0, 0x0C, "Command Sequence Error"},
    {0, 0x0D, "Invalid SGL Segment Descriptor"},
    {0, 0x0F, "Invalid Number of SGL Descriptors"},
    {0, 0x15, "Invalid Use of Controller Memory Buffer"},
    {0, 0x18, "Operation Denied"},
    {0, 0x1D, "Command Prohibited by Command and Feature Lockdown"},
    {0, 0x20, "Namespace is Write Protected"},
    {0, 0x21, "Command Interrupted"},
    {0, 0x22, "Transient Transport Error"},
    {0, 0x80, "LBA Out of Range"},
    {0, 0x81, "Capacity Exceeded"},
    {0, 0x82, "Namespace Not Ready"},
    {1, 0x02, "Invalid Controller Identifier"},
    {1, 0x09, "Invalid Log Page"},
    {1, 0x0A, "Invalid Format"},
    {1, 0x1F, "Controller List Invalid"},
    {2, 0x81, "Unrecovered Read Error"},
    {2, 0x86, "Access Denied"},
};

constexpr const char* kTypeNames[] = {
    "Generic Command Status", "Command Specific Status", "Media and Data Integrity Error",
    "Path Related Status",    "Status Code Type 4",      "Status Code Type 5",
    "Status Code Type 6",     "Vendor Specific Status",
};

}  // namespace

std::string nvmeStatusText(uint16_t statusField) {
  const auto code = static_cast<uint8_t>(core::extract(statusField, kStatusCode));
  const auto type = static_cast<uint8_t>(core::extract(statusField, kStatusCodeType));
  const std::string field = " (0x" + core::strings::toHex(statusField, 4) + ")";
  for (const StatusName& row : kStatusNames) {
    if (row.type == type && row.code == code) return row.name + field;
  }
  return std::string(kTypeNames[type]) + " 0x" + core::strings::toHex(code, 2) + field;
}

}  // namespace orlo::devices
