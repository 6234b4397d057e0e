#include "orlo/commands/ata/Command.h"

#include <utility>

#include "orlo/commands/nvme/PayloadProperty.h"
#include "orlo/core/Attribute.h"
#include "orlo/core/Strings.h"
#include "orlo/core/xml/XmlObject.h"
#include "orlo/core/xml/XmlProperty.h"

namespace orlo::commands::ata {

namespace {

struct RegisterLine {
  const char* label;
  uint8_t TaskFile::*field;
};

constexpr RegisterLine kRegisterLines[] = {
    {"  Feature / Error  : 0x", &TaskFile::feature},
    {"  Sector Count     : 0x", &TaskFile::sectorCount},
    {"  LBA Low          : 0x", &TaskFile::lbaLow},
    {"  LBA Mid          : 0x", &TaskFile::lbaMid},
    {"  LBA High         : 0x", &TaskFile::lbaHigh},
    {"  Device           : 0x", &TaskFile::device},
    {"  Command / Status : 0x", &TaskFile::command},
    {"  Unused           : 0x", &TaskFile::unused},
};

struct FlagLine {
  const char* label;
  bool Command::*flag;
};

constexpr FlagLine kFlagLines[] = {
    {"  Data In   (From Drive)    : ", &Command::dataIn},
    {"  Data Out    (To Drive)    : ", &Command::dataOut},
    {"  Data None                 : ", &Command::dataNone},
    {"  Device Diagnostic         : ", &Command::deviceDiagnostic},
    {"  DMA                       : ", &Command::dma},
    {"  Extended                  : ", &Command::extended},
    {"  Ignore Driver Limitations : ", &Command::ignoreDriverLimitations},
    {"  Clear Prior Sticky Abort  : ", &Command::clearPriorStickyAbort},
};

std::string dumpTaskFile(const TaskFile& taskFile) {
  std::string text;
  for (const RegisterLine& line : kRegisterLines) {
    const uint8_t value = taskFile.*line.field;
    text += std::string(line.label) + core::strings::toHex(value, 2) + " (" +
            core::strings::toString(value) + ")\n";
  }
  return text;
}

std::unique_ptr<core::xml::XmlElement> taskFileProperty(const char* name,
                                                        const TaskFile& taskFile) {
  auto property = nvme::makePayloadProperty(taskFile.bytes(), sizeof(TaskFile));
  property->attribute("name") = name;
  return property;
}

}  // namespace

Command::Command(std::string name) : core::Command("ATA", std::move(name)) {
  currentTaskFile.device = 0x40;
}

std::unique_ptr<core::Command> Command::clone() const {
  auto copy = std::make_unique<Command>(name());
  copy->copyFrom(*this);
  return copy;
}

std::string Command::toString() const {
  std::string text = name() + "\n";
  text += "Current Task File:\n" + dumpTaskFile(currentTaskFile) + "\n";
  if (extended) text += "Previous Task File:\n" + dumpTaskFile(previousTaskFile) + "\n";
  text += "Flags:\n";
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
  object->properties().push_back(taskFileProperty("currentTaskFile", currentTaskFile));
  object->properties().push_back(taskFileProperty("previousTaskFile", previousTaskFile));
  core::Attribute blocks("transferBlocks", "transferBlocks", "uint32");
  blocks.setUInt32(transferBlocks);
  object->properties().push_back(blocks.toXml());
  return object;
}

void Command::copyFrom(const Command& other) {
  currentTaskFile = other.currentTaskFile;
  previousTaskFile = other.previousTaskFile;
  dataIn = other.dataIn;
  dataOut = other.dataOut;
  dataNone = other.dataNone;
  deviceDiagnostic = other.deviceDiagnostic;
  dma = other.dma;
  extended = other.extended;
  ignoreDriverLimitations = other.ignoreDriverLimitations;
  clearPriorStickyAbort = other.clearPriorStickyAbort;
  transferBlocks = other.transferBlocks;
  transferBytes = other.transferBytes;
  copyCommandFields(other);
}

}  // namespace orlo::commands::ata
