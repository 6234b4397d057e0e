#include "orlo/features/nvme_get_log/CommandEffectsDecoder.h"

#include <array>
#include <string>
#include <vector>

#include "orlo/core/LittleEndian.h"
#include "orlo/core/Status.h"
#include "orlo/core/Strings.h"
#include "orlo/features/nvme_get_log/CommandEffectsRows.h"
#include "orlo/features/nvme_get_log/LogTree.h"

namespace orlo::features::nvme_get_log::commandEffects {

namespace {

uint32_t fieldOf(uint32_t entry, const EntryRow& row) {
  return static_cast<uint32_t>(core::extract(entry, row.bits));
}

// "Admin Command 6 (0x06)".
std::string commandName(const char* prefix, uint32_t opcode) {
  return prefix + std::to_string(opcode) + " (0x" + core::strings::toHex(opcode, 2) + ")";
}

}  // namespace

std::unique_ptr<core::xml::XmlObject> decode(const core::Payload& payload,
                                             const core::AttributeCollection& deviceAttributes) {
  auto root = namedObject("Commands Effects Log (Log ID = 5)");
  if (payload.data() == nullptr || payload.size() < kLogSize) {
    root->objects().push_back(core::Status::retrieveDataFailed().toXml());
    return root;
  }
  const uint8_t* log = payload.safeCast<std::array<uint8_t, kLogSize>>(0)->data();

  std::vector<const EntryRow*> shownRows;
  for (const EntryRow& row : entryRows) {
    if (row.gate == nullptr || core::readBool(deviceAttributes, row.gate())) {
      shownRows.push_back(&row);
    }
  }

  bool noneSupported = true;
  for (const CommandSetRow& set : commandSetRows) {
    for (uint32_t opcode = 0; opcode < set.entries; ++opcode) {
      const uint32_t entry = core::le::read32(log + set.offset + 4 * opcode);
      if ((entry & 1u) == 0) continue;
      noneSupported = false;
      auto child = std::make_unique<core::xml::XmlObject>();
      child->attribute("name") = commandName(set.prefix, opcode);
      child->keyed() = core::xml::Keyed::number(set.key, opcode);
      child->keyed().entry = true;
      child->keyed().valueKey = "opcode";
      for (const EntryRow* row : shownRows) {
        const uint32_t field = fieldOf(entry, *row);
        addNameValue(*child, row->label, std::to_string(field)).keyed() =
            core::xml::Keyed::number(core::xml::keyOf(row->label), field);
      }
      root->objects().push_back(std::move(child));
    }
  }
  if (noneSupported) {
    addNameValue(*root, "Commands Supported", "0").keyed() =
        core::xml::Keyed::number("commands_supported", 0);
  }
  return root;
}

}  // namespace orlo::features::nvme_get_log::commandEffects
