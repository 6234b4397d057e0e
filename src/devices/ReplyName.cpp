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

std::string format(const char* pattern, unsigned long a, unsigned long b = 0,
                   unsigned long long c = 0) {
  char name[80];
  std::snprintf(name, sizeof name, pattern, a, b, c);
  return name;
}

std::string nvmeName(const commands::nvme::Command& command) {
  const commands::nvme::SubmissionEntry& entry = command.submissionEntry;
  const uint8_t opcode = entry.bytes[0];
  const uint32_t nsid = entry.dword(1);
  if (opcode == kIdentify) {
    const uint8_t cns = entry.dword(10) & 0xFF;
    return format("nvme-identify-cns%02lx-nsid%08lx.bin", cns,
                  kNamespaceStructures.count(cns) ? nsid : 0);
  }
  if (opcode == kGetLogPage) {
    const uint64_t offset = (static_cast<uint64_t>(entry.dword(13)) << 32) | entry.dword(12);
    return format("nvme-getlog-lid%02lx-nsid%08lx-offset%llu.bin", entry.dword(10) & 0xFF, nsid,
                  offset);
  }
  return format("nvme-opc%02lx-nsid%08lx.bin", opcode, nsid);
}

std::string ataName(const commands::ata::Command& command) {
  const commands::ata::TaskFile& registers = command.currentTaskFile;
  const unsigned long lba = (static_cast<unsigned long>(registers.device & 0x0F) << 24) |
                            (static_cast<unsigned long>(registers.lbaHigh) << 16) |
                            (static_cast<unsigned long>(registers.lbaMid) << 8) | registers.lbaLow;
  return format("ata-cmd%02lx-lba%lu-count%llu.bin", registers.command, lba, registers.sectorCount);
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
