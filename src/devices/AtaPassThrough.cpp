#include "devices/AtaPassThrough.h"

#include "orlo/commands/ata/Layout.h"
#include "orlo/core/BitField.h"

namespace orlo::devices {

namespace {

constexpr uint8_t kOperationCode = 0x85;
constexpr uint8_t kProtocolNonData = 3;
constexpr uint8_t kProtocolPioDataIn = 4;
constexpr uint8_t kProtocolPioDataOut = 5;
constexpr uint8_t kProtocolDma = 6;
// Byte 1 of the command block: the protocol above the EXTEND bit.
constexpr core::BitField kProtocolBits = core::bits(4, 1);
constexpr core::BitField kExtendBit = core::bit(0);

// Byte 2 of the CDB.
constexpr uint8_t kCheckCondition = 0x20;
constexpr uint8_t kDirectionFromDevice = 0x08;
constexpr uint8_t kLengthInBlocks = 0x04;
constexpr uint8_t kLengthInSectorCount = 0x02;

uint8_t protocolOf(const commands::ata::Command& command) {
  if (command.dataNone || (!command.dataIn && !command.dataOut)) return kProtocolNonData;
  if (command.dma) return kProtocolDma;
  return command.dataIn ? kProtocolPioDataIn : kProtocolPioDataOut;
}

}  // namespace

std::array<uint8_t, 16> ataPassThrough16(const commands::ata::Command& command) {
  const commands::ata::TaskFile& current = command.currentTaskFile;
  const commands::ata::TaskFile& previous = command.previousTaskFile;
  const uint8_t protocol = protocolOf(command);
  std::array<uint8_t, 16> cdb{};
  cdb[0] = kOperationCode;
  cdb[1] = static_cast<uint8_t>(
      core::insert(core::insert(0, kProtocolBits, protocol), kExtendBit, command.extended ? 1 : 0));
  cdb[2] =
      protocol == kProtocolNonData
          ? kCheckCondition
          : (kLengthInBlocks | kLengthInSectorCount | (command.dataIn ? kDirectionFromDevice : 0));
  if (command.extended) {
    cdb[3] = previous.feature;
    cdb[5] = previous.sectorCount;
    cdb[7] = previous.lbaLow;
    cdb[9] = previous.lbaMid;
    cdb[11] = previous.lbaHigh;
  }
  cdb[4] = current.feature;
  cdb[6] = current.sectorCount;
  cdb[8] = current.lbaLow;
  cdb[10] = current.lbaMid;
  cdb[12] = current.lbaHigh;
  cdb[13] = current.device;
  cdb[14] = current.command;
  return cdb;
}

uint32_t ataTransferLength(const commands::ata::Command& command) {
  if (command.transferBytes != 0) return static_cast<uint32_t>(command.transferBytes);
  return command.transferBlocks * commands::ata::layout::kSectorSize;
}

}  // namespace orlo::devices
