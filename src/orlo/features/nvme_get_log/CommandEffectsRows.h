#pragma once

#include <cstdint>

#include "orlo/commands/nvme/Layout.h"
#include "orlo/core/Attribute.h"
#include "orlo/core/BitField.h"
#include "orlo/core/PropertyDescriptors.h"

// The Commands Supported and Effects log written down as rows: where its two tables of
// entries stand, and the fields of one 32-bit entry. CommandEffectsDecoder reads them.
namespace orlo::features::nvme_get_log::commandEffects {

// The bytes of the log that the decoder needs; a shorter log is not decoded.
constexpr uint32_t kLogSize = commands::nvme::layout::kCommandsEffectsLog.size;

// A device attribute that must read true for a row to be shown; null when it always is.
using Gate = core::Attribute (*)();

// One table: entry i, 4 bytes at `offset` + 4 * i, belongs to opcode i. A child shown for
// it is named `prefix` and the opcode; in the keyed form it is an entry of `key`.
struct CommandSetRow {
  const char* prefix;
  uint32_t offset;
  uint32_t entries;
  const char* key;
};

inline constexpr CommandSetRow commandSetRows[] = {
    {"Admin Command ", 0, 256, "admin_commands"}, {"I/O Command ", 1024, 256, "io_commands"},
    // Bytes 2048 to 4095 are reserved and not read.
};

// One field of an entry: bits `high` down to `low`, shown in decimal.
struct EntryRow {
  const char* label;
  core::BitField bits;
  Gate gate;
};

// Bit 0 also decides whether an entry is shown at all.
inline constexpr EntryRow entryRows[] = {
    {"Command Supported", core::bit(0), nullptr},
    {"Logical Block Content Change", core::bit(1), nullptr},
    {"Namespace Capability Change", core::bit(2), nullptr},
    {"Namespace Inventory Change", core::bit(3), nullptr},
    {"Controller Capability Change", core::bit(4), nullptr},
    {"Command Submission and Execution", core::bits(18, 16), nullptr},
    {"UUID Selection Supported", core::bit(19), core::properties::nvme1Point4OrGreater},
    {"Namespace Scope", core::bit(20), core::properties::supportCommandEffectsLogEnhancements},
    {"Controller Scope", core::bit(21), core::properties::supportCommandEffectsLogEnhancements},
    {"NVM Set Scope", core::bit(22), core::properties::supportCommandEffectsLogEnhancements},
    {"Endurance Group Scope", core::bit(23),
     core::properties::supportCommandEffectsLogEnhancements},
    {"Domain Scope", core::bit(24), core::properties::supportCommandEffectsLogEnhancements},
    {"NVM Subsystem Scope", core::bit(25), core::properties::supportCommandEffectsLogEnhancements},
};

}  // namespace orlo::features::nvme_get_log::commandEffects
