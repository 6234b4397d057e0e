#include "devices/ReplyName.h"

#include <cstdio>
#include <set>

#include "orlo/commands/ata/Command.h"
#include "orlo/commands/nvme/Command.h"

namespace orlo::devices {

namespace {

constexpr uint8_t kGetLogPage = 0x02;
constexpr uint8_t kIdentify = 0x06;

// The Identify structures whose contents depend on the namespace field: a
// namespace, a list starting after one, its descriptors, its controllers.
const std::set<uint8_t> kNamespaceStructures = {0x00, 0x02, 0x03, 0x05, 0x06, 0x07, 0x08,
                                                0x10, 0x11, 0x12, 0x1A, 0x1B, 0x1F};

std::string nvmeName(const commands::nvme::Command& command) {
  const commands::nvme::SubmissionEntry& entry = command.submissionEntry;
  const unsigned opcode = entry.bytes[0];
  const unsigned long nsid = entry.dword(1);
  char name[64];
  if (opcode == kIdentify) {
    const uint8_t cns = entry.dword(10) & 0xFF;
    std::snprintf(name, sizeof name, "nvme-identify-cns%02x-nsid%08lx.bin", cns,
                  kNamespaceStructures.count(cns) ? nsid : 0ul);
  } else if (opcode == kGetLogPage) {
    const unsigned long long offset =
        (static_cast<unsigned long long>(entry.dword(13)) << 32) | entry.dword(12);
    std::snprintf(name, sizeof name, "nvme-getlog-lid%02x-nsid%08lx-offset%llu.bin",
                  static_cast<unsigned>(entry.dword(10) & 0xFF), nsid, offset);
  } else {
    std::snprintf(name, sizeof name, "nvme-opc%02x-nsid%08lx.bin", opcode, nsid);
  }
  return name;
}

std::string ataName(const commands::ata::Command& command) {
  const commands::ata::TaskFile& registers = command.currentTaskFile;
  const unsigned long lba = (static_cast<unsigned long>(registers.device & 0x0F) << 24) |
                            (static_cast<unsigned long>(registers.lbaHigh) << 16) |
                            (static_cast<unsigned long>(registers.lbaMid) << 8) | registers.lbaLow;
  char name[64];
  std::snprintf(name, sizeof name, "ata-cmd%02x-lba%lu-count%u.bin",
                static_cast<unsigned>(registers.command), lba,
                static_cast<unsigned>(registers.sectorCount));
  return name;
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
