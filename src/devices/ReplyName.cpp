#include "devices/ReplyName.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

#include "orlo/commands/ata/Command.h"
#include "orlo/commands/nvme/Command.h"

namespace orlo::devices {

namespace {

namespace layout = commands::nvme::layout;

bool dependsOnNamespace(uint8_t cns) {
  return std::find(std::begin(layout::kPerNamespaceCns), std::end(layout::kPerNamespaceCns), cns) !=
         std::end(layout::kPerNamespaceCns);
}

std::string nvmeName(const commands::nvme::Command& command) {
  const commands::nvme::SubmissionEntry& entry = command.submissionEntry;
  const unsigned opcode = entry.bytes[0];
  const unsigned long nsid = entry.get(layout::kNamespaceId);
  char name[64];
  if (opcode == layout::kIdentifyOpcode) {
    const auto cns = static_cast<uint8_t>(entry.get(layout::kCns));
    std::snprintf(name, sizeof name, "nvme-identify-cns%02x-nsid%08lx.bin", cns,
                  dependsOnNamespace(cns) ? nsid : 0ul);
  } else if (opcode == layout::kGetLogPageOpcode) {
    const unsigned long long offset =
        (static_cast<unsigned long long>(entry.get(layout::kLogOffsetUpper)) << 32) |
        entry.get(layout::kLogOffsetLower);
    std::snprintf(name, sizeof name, "nvme-getlog-lid%02x-nsid%08lx-offset%llu.bin",
                  entry.get(layout::kLogId), nsid, offset);
  } else {
    std::snprintf(name, sizeof name, "nvme-opc%02x-nsid%08lx.bin", opcode, nsid);
  }
  return name;
}

std::string ataName(const commands::ata::Command& command) {
  const commands::ata::TaskFile& registers = command.currentTaskFile;
  const commands::ata::TaskFile& previous = command.previousTaskFile;
  unsigned long long lba = (static_cast<unsigned long long>(registers.lbaHigh) << 16) |
                           (static_cast<unsigned long long>(registers.lbaMid) << 8) |
                           registers.lbaLow;
  unsigned count = registers.sectorCount;
  if (command.extended) {
    lba |= (static_cast<unsigned long long>(previous.lbaHigh) << 40) |
           (static_cast<unsigned long long>(previous.lbaMid) << 32) |
           (static_cast<unsigned long long>(previous.lbaLow) << 24);
    count |= static_cast<unsigned>(previous.sectorCount) << 8;
  } else {
    lba |= static_cast<unsigned long long>(registers.device & 0x0F) << 24;
  }
  char name[64];
  const int length = std::snprintf(name, sizeof name, "ata-cmd%02x-lba%llu-count%u",
                                   static_cast<unsigned>(registers.command), lba, count);
  if (registers.feature != 0) {
    std::snprintf(name + length, sizeof name - length, "-feat%02x",
                  static_cast<unsigned>(registers.feature));
  }
  return std::string(name) + ".bin";
}

}  // namespace

std::string replyName(const core::Command& command) {
  if (const auto* nvme = dynamic_cast<const commands::nvme::Command*>(&command)) {
    return nvmeName(*nvme);
  }
  if (const auto* ata = dynamic_cast<const commands::ata::Command*>(&command)) {
    return ataName(*ata);
  }
  return "";
}

}  // namespace orlo::devices
