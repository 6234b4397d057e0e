#include "orlo/commands/ata/Completion.h"

#include <string>

#include "orlo/core/BitField.h"
#include "orlo/core/Strings.h"

namespace orlo::commands::ata {

namespace {

// Bits of the status register (the command register's place in a reply) and of the
// error register (the feature register's place).
constexpr core::BitField kStatusError = core::bit(0);
constexpr core::BitField kStatusDeviceFault = core::bit(5);

struct ErrorBit {
  core::BitField bit;
  const char* name;
};

constexpr ErrorBit kErrorBits[] = {
    {core::bit(7), "Interface CRC Error"},
    {core::bit(6), "Uncorrectable Error"},
    {core::bit(4), "ID Not Found"},
    {core::bit(2), "Aborted Command"},
};

bool failed(const TaskFile& registers) {
  return core::extract(registers.command, kStatusError) != 0 ||
         core::extract(registers.command, kStatusDeviceFault) != 0;
}

std::string reason(const TaskFile& registers) {
  std::string names;
  if (core::extract(registers.command, kStatusDeviceFault) != 0) names = "Device Fault";
  for (const ErrorBit& bit : kErrorBits) {
    if (core::extract(registers.command, kStatusError) != 0 &&
        core::extract(registers.feature, bit.bit) != 0) {
      names += (names.empty() ? "" : ", ") + std::string(bit.name);
    }
  }
  return names.empty() ? "Error" : names;
}

}  // namespace

Completion::Completion(const TaskFile& registers) : registers(registers) {}

std::unique_ptr<core::ProtocolResult> Completion::clone() const {
  return std::make_unique<Completion>(*this);
}

void Completion::fillStatus(core::Status& status) const {
  status = this->status();
}

core::Status Completion::status() const {
  if (!failed(registers)) {
    return core::Status::success();
  }
  core::Status problem = core::Status::retrieveDataFailed();
  problem.setMessage("ATA command reported a problem: " + reason(registers) + " (Status 0x" +
                     core::strings::toHex(registers.command, 2) + ", Error 0x" +
                     core::strings::toHex(registers.feature, 2) + ").");
  return problem;
}

}  // namespace orlo::commands::ata
