#include "devices/AtaSense.h"

#include "orlo/commands/ata/Completion.h"
#include "orlo/core/BitField.h"
#include "orlo/core/Strings.h"

namespace orlo::devices {

namespace {

// Byte 0 of sense data: the response code, and in fixed format the VALID bit above it.
constexpr core::BitField kResponseCode = core::bits(6, 0);
constexpr core::BitField kSenseValid = core::bit(7);
// The sense key, in the low bits of its byte.
constexpr core::BitField kSenseKey = core::bits(3, 0);

constexpr uint8_t kAtaStatusReturnDescriptor = 0x09;
constexpr uint8_t kScsiCheckCondition = 0x02;
// Bits 2:0 of the driver status name a driver problem; bit 3 only says that sense
// data came back.
constexpr core::BitField kDriverProblem = core::bits(2, 0);

commands::ata::TaskFile fromDescriptor(const uint8_t* d) {
  commands::ata::TaskFile registers;
  registers.feature = d[3];
  registers.sectorCount = d[5];
  registers.lbaLow = d[7];
  registers.lbaMid = d[9];
  registers.lbaHigh = d[11];
  registers.device = d[12];
  registers.command = d[13];
  return registers;
}

std::optional<commands::ata::TaskFile> fromDescriptorSense(const uint8_t* sense,
                                                           std::size_t length) {
  if (length < 8) return std::nullopt;
  std::size_t end = 8 + static_cast<std::size_t>(sense[7]);
  if (end > length) end = length;
  for (std::size_t at = 8; at + 2 <= end;) {
    const std::size_t size = 2 + static_cast<std::size_t>(sense[at + 1]);
    if (sense[at] == kAtaStatusReturnDescriptor && size >= 14 && at + 14 <= end) {
      return fromDescriptor(sense + at);
    }
    at += size;
  }
  return std::nullopt;
}

// Fixed format: the information field holds Error, Status, Device and Count, and the
// command-specific field LBA bits 7:0, 15:8 and 23:16 in its last three bytes. Its
// VALID bit tells that the fields were filled in.
std::optional<commands::ata::TaskFile> fromFixedSense(const uint8_t* sense, std::size_t length) {
  if (length < 12 || core::extract(sense[0], kSenseValid) == 0) return std::nullopt;
  commands::ata::TaskFile registers;
  registers.feature = sense[3];
  registers.command = sense[4];
  registers.device = sense[5];
  registers.sectorCount = sense[6];
  registers.lbaLow = sense[9];
  registers.lbaMid = sense[10];
  registers.lbaHigh = sense[11];
  return registers;
}

std::string hex(uint32_t value) {
  return "0x" + core::strings::toHex(value, 2);
}

}  // namespace

std::optional<commands::ata::TaskFile> ataRegistersFromSense(const uint8_t* sense,
                                                             std::size_t length) {
  if (sense == nullptr || length == 0) return std::nullopt;
  const auto responseCode = core::extract(sense[0], kResponseCode);
  if (responseCode == 0x72 || responseCode == 0x73) return fromDescriptorSense(sense, length);
  if (responseCode == 0x70 || responseCode == 0x71) return fromFixedSense(sense, length);
  return std::nullopt;
}

DriveReply ataOutcome(const SgIoCompletion& completion) {
  DriveReply outcome;
  const auto registers = ataRegistersFromSense(completion.sense, completion.senseLength);
  if (registers) {
    commands::ata::Completion result(*registers);
    outcome.status = result.status();
    outcome.protocolResult = result.clone();
    return outcome;
  }
  const bool driverProblem = core::extract(completion.driverStatus, kDriverProblem) != 0;
  if (completion.scsiStatus == 0 && completion.hostStatus == 0 && !driverProblem) return outcome;

  std::string text = "The drive did not take the ATA pass-through command (SCSI status " +
                     hex(completion.scsiStatus) + ", host " + hex(completion.hostStatus) +
                     ", driver " + hex(completion.driverStatus);
  if (completion.scsiStatus == kScsiCheckCondition && completion.senseLength >= 14) {
    const bool descriptor = core::extract(completion.sense[0], kResponseCode) >= 0x72;
    const uint8_t* s = completion.sense;
    const auto key = static_cast<uint8_t>(core::extract(descriptor ? s[1] : s[2], kSenseKey));
    const uint8_t asc = descriptor ? s[2] : s[12];
    const uint8_t ascq = descriptor ? s[3] : s[13];
    text += ", sense key " + hex(key) + ", ASC " + hex(asc) + ", ASCQ " + hex(ascq);
  }
  outcome.status = core::Status::retrieveDataFailed();
  outcome.status.setMessage(text + ").");
  return outcome;
}

}  // namespace orlo::devices
