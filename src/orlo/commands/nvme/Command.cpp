#include "orlo/commands/nvme/Command.h"

#include <cstddef>
#include <utility>

#include "orlo/commands/nvme/PayloadProperty.h"
#include "orlo/core/Attribute.h"
#include "orlo/core/BitField.h"
#include "orlo/core/LittleEndian.h"
#include "orlo/core/Strings.h"
#include "orlo/core/xml/XmlObject.h"
#include "orlo/core/xml/XmlProperty.h"

namespace orlo::commands::nvme {

namespace {

// One line of the entry's dump: bytes first to last, read little-endian, and of that
// number the bits high to low.
struct EntryLine {
  const char* label;
  std::size_t firstByte;
  std::size_t lastByte;
  core::BitField bits;
};

constexpr EntryLine whole(const char* label, std::size_t firstByte, std::size_t lastByte) {
  return {label, firstByte, lastByte, core::bits(uint8_t(8 * (lastByte - firstByte + 1) - 1), 0)};
}

constexpr EntryLine bits(const char* label, std::size_t byte, uint8_t highBit, uint8_t lowBit) {
  return {label, byte, byte, core::bits(highBit, lowBit)};
}

// The labels name the usual meaning of each dword, whatever the opcode.
constexpr EntryLine kEntryLines[] = {
    whole("  DWord 0:           0x", 0, 3),   whole("    OPC:             0x", 0, 0),
    bits("    FUSE:            0x", 1, 1, 0), bits("    Reserved:        0x", 1, 5, 2),
    bits("    PSDT:            0x", 1, 7, 6), whole("    CID:             0x", 2, 3),
    whole("  DWord 1 (NSID):    0x", 4, 7),   whole("  Reserved:          0x", 8, 15),
    whole("    DWord 2 (RSVD):  0x", 8, 11),  whole("    DWord 3 (RSVD):  0x", 12, 15),
    whole("  Metadata Pointer:  0x", 16, 23), whole("    DWord 4 (MPTR):  0x", 16, 19),
    whole("    DWord 5 (MPTR):  0x", 20, 23), whole("  PRP Entry 1:       0x", 24, 31),
    whole("    DWord 6 (PRP1):  0x", 24, 27), whole("    DWord 7 (PRP1):  0x", 28, 31),
    whole("  PRP Entry 2:       0x", 32, 39), whole("    DWord 8 (PRP2):  0x", 32, 35),
    whole("    DWord 9 (PRP2):  0x", 36, 39), whole("  DWord 10 (NDP):    0x", 40, 43),
    whole("  DWord 11 (NDM):    0x", 44, 47), whole("  DWord 12:          0x", 48, 51),
    whole("  DWord 13:          0x", 52, 55), whole("  DWord 14:          0x", 56, 59),
    whole("  DWord 15:          0x", 60, 63),
};

struct FlagLine {
  const char* label;
  bool Command::*flag;
};

constexpr FlagLine kFlagLines[] = {
    {"  Data In   (From Drive)    : ", &Command::dataIn},
    {"  Data Out    (To Drive)    : ", &Command::dataOut},
    {"  Data None                 : ", &Command::dataNone},
    {"  Data Bi   (In and Out)    : ", &Command::dataBi},
    {"  Admin                     : ", &Command::admin},
    {"  Asynchronous              : ", &Command::asynchronous},
};

uint64_t readLine(const SubmissionEntry& entry, const EntryLine& line) {
  const uint64_t number = entry.read(line.firstByte, line.lastByte - line.firstByte + 1);
  return core::extract(number, line.bits);
}

// The label, then the value in hexadecimal (8 digits at least) and in decimal.
std::string valueLine(const char* label, uint64_t value) {
  return std::string(label) + core::strings::toHex(value, 8) + " (" +
         core::strings::toString(value) + ")\n";
}

std::unique_ptr<core::xml::XmlElement> numberProperty(const char* name, const char* type,
                                                      uint64_t value, std::size_t width) {
  core::Attribute attribute(name, name, type);
  uint8_t bytes[8] = {};
  core::le::write(bytes, width, value);
  attribute.value = core::Payload(bytes, width);
  return attribute.toXml();
}

}  // namespace

Command::Command(std::string name) : core::QueueableCommand("NVME", std::move(name)) {}

std::unique_ptr<core::Command> Command::clone() const {
  auto copy = std::make_unique<Command>(name());
  copy->copyFrom(*this);
  return copy;
}

std::string Command::toString() const {
  std::string text = name() + "\n";
  text += core::strings::hexDump(submissionEntry.data(), SubmissionEntry::kSize, 8) + "\n\n";
  text += admin ? "Admin Command Set:\n" : "NVM Command Set:\n";
  for (const EntryLine& line : kEntryLines) {
    text += valueLine(line.label, readLine(submissionEntry, line));
  }
  text += "\nFlags:\n";
  for (const FlagLine& line : kFlagLines) {
    text += std::string(line.label) + core::strings::boolToString(this->*line.flag) + "\n";
  }
  return text;
}

std::unique_ptr<core::xml::XmlObject> Command::toXml() const {
  auto object = std::make_unique<core::xml::XmlObject>();
  object->attribute("category") = "command";
  object->attribute("name") = name();
  object->attribute("type") = protocol();
  auto entry = makePayloadProperty(submissionEntry.data(), SubmissionEntry::kSize);
  entry->attribute("name") = "nvmeCmd";
  object->properties().push_back(std::move(entry));
  object->properties().push_back(numberProperty("transferBlocks", "uint32", transferBlocks, 4));
  object->properties().push_back(numberProperty("transferBytes", "uint64", transferBytes, 8));
  object->properties().push_back(
      numberProperty("submissionQueueId", "uint16", submissionQueueId, 2));
  return object;
}

void Command::copyFrom(const Command& other) {
  submissionEntry = other.submissionEntry;
  dataIn = other.dataIn;
  dataOut = other.dataOut;
  dataNone = other.dataNone;
  dataBi = other.dataBi;
  admin = other.admin;
  asynchronous = other.asynchronous;
  transferBlocks = other.transferBlocks;
  transferBytes = other.transferBytes;
  submissionQueueId = other.submissionQueueId;
  copyQueueFields(other);
}

}  // namespace orlo::commands::nvme
