#include "orlo/commands/ata/Completion.h"

#include <string>

#include "orlo/core/Strings.h"

namespace orlo::commands::ata {

namespace {

constexpr uint8_t kStatusError = 0x01;
constexpr uint8_t kStatusDeviceFault = 0x20;

struct ErrorBit {
  uint8_t mask;
  const char* name;
};

constexpr ErrorBit kErrorBits[] = {
    {0x80, "Interface CRC Error"},
    {0x40, "Uncorrectable Error"},
    {0x10, "ID Not Found"},
    {0x04, "Aborted Command"},
};

std::string reason(const TaskFile& registers) {
  std::string names;
  if (registers.command & kStatusDeviceFault) names = "Device Fault";
  for (const ErrorBit& bit : kErrorBits) {
    if ((registers.command & kStatusError) && (registers.feature & bit.mask)) {
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
  if ((registers.command & (kStatusError | kStatusDeviceFault)) == 0) {
    return core::Status::success();
  }
  core::Status problem = core::Status::retrieveDataFailed();
  problem.setMessage("ATA command reported a problem: " + reason(registers) + " (Status 0x" +
                     core::strings::toHex(registers.command, 2) + ", Error 0x" +
                     core::strings::toHex(registers.feature, 2) + ").");
  return problem;
}

}  // namespace orlo::commands::ata
