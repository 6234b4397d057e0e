#include "devices/ReplyName.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

#include "orlo/commands/ata/Command.h"
#include "orlo/commands/nvme/Command.h"
#include "orlo/core/BitField.h"
#include "orlo/core/LittleEndian.h"

namespace orlo::devices {

namespace {

namespace layout = commands::nvme::layout;

// A 28-bit command keeps LBA bits 27:24 in the low bits of its device register.
constexpr core::BitField kDeviceLbaBits = core::bits(3, 0);

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
    const unsigned long long offset = core::insert(
        entry.get(layout::kLogOffsetLower), core::bits(63, 32), entry.get(layout::kLogOffsetUpper));
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
  // The LBA bytes from low to high: a 48-bit command's previous registers hold bytes 3 to 5,
  // a 28-bit command's device register the low four bits of byte 3.
  const uint8_t lbaBytes[6] = {
      registers.lbaLow,
      registers.lbaMid,
      registers.lbaHigh,
      command.extended ? previous.lbaLow
                       : static_cast<uint8_t>(core::extract(registers.device, kDeviceLbaBits)),
      previous.lbaMid,
      previous.lbaHigh};
  const unsigned long long lba = core::le::read(lbaBytes, command.extended ? 6 : 4);
  const uint8_t countBytes[2] = {registers.sectorCount, previous.sectorCount};
  const auto count = static_cast<unsigned>(core::le::read(countBytes, command.extended ? 2 : 1));
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
