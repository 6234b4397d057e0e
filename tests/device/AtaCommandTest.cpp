#include <gtest/gtest.h>

#include <string>
#include <typeinfo>

#include "DumpLines.h"
#include "orlo/commands/ata/CheckPowerMode.h"
#include "orlo/commands/ata/IdentifyDevice.h"
#include "orlo/commands/ata/ReadDMA.h"
#include "orlo/core/xml/XmlObject.h"

using namespace orlo::commands::ata;

namespace {

const std::string kReadDma =
    "ReadDMA\n"
    "Current Task File:\n"
    "  Feature / Error  : 0x00 (0)\n"
    "  Sector Count     : 0x01 (1)\n"
    "  LBA Low          : 0x00 (0)\n"
    "  LBA Mid          : 0x00 (0)\n"
    "  LBA High         : 0x00 (0)\n"
    "  Device           : 0x40 (64)\n"
    "  Command / Status : 0xC8 (200)\n"
    "  Unused           : 0x00 (0)\n"
    "\n"
    "Flags:\n"
    "  Data In   (From Drive)    : True\n"
    "  Data Out    (To Drive)    : False\n"
    "  Data None                 : False\n"
    "  Device Diagnostic         : False\n"
    "  DMA                       : True\n"
    "  Extended                  : False\n"
    "  Ignore Driver Limitations : False\n"
    "  Clear Prior Sticky Abort  : True\n";

std::string xmlOf(const orlo::core::Command& command) {
  std::string out;
  command.toXml()->write(out);
  return out;
}

}  // namespace

TEST(AtaCommand, DumpsByteForByte) {
  EXPECT_EQ(ReadDMA().toString(), kReadDma);

  const std::string plain = withLines(
      kReadDma, {{"ReadDMA", "Plain"},
                 {"  Sector Count     : 0x01 (1)", "  Sector Count     : 0x00 (0)"},
                 {"  Command / Status : 0xC8 (200)", "  Command / Status : 0x00 (0)"},
                 {"  Data In   (From Drive)    : True", "  Data In   (From Drive)    : False"},
                 {"  DMA                       : True", "  DMA                       : False"}});
  Command command("Plain");
  EXPECT_EQ(command.toString(), plain);

  // An extended command shows its older registers too; here they equal the current ones.
  ReadDMA readDma;
  readDma.extended = true;
  readDma.previousTaskFile = readDma.currentTaskFile;
  const auto registers = kReadDma.find("  Feature");
  const std::string previous =
      "Previous Task File:\n" + kReadDma.substr(registers, kReadDma.find("\nFlags") - registers);
  EXPECT_EQ(readDma.toString(), withLines(kReadDma, {{"Flags:", previous + "\nFlags:"},
                                                     {"  Extended                  : False",
                                                      "  Extended                  : True"}}));
}

TEST(AtaCommand, XmlHoldsBothTaskFiles) {
  CheckPowerMode command;
  EXPECT_EQ(
      xmlOf(command),
      "<Object category=\"command\" name=\"CheckPowerMode\" type=\"ATA\">"
      "<Property category=\"payload\" displayName=\"payload\" name=\"currentTaskFile\" "
      "size=\"8\" type=\"bytepointer\" value=\"000000000040E500\"/>"
      "<Property category=\"payload\" displayName=\"payload\" name=\"previousTaskFile\" "
      "size=\"8\" type=\"bytepointer\" value=\"0000000000000000\"/>"
      "<Property category=\"attribute\" displayName=\"transferBlocks\" name=\"transferBlocks\" "
      "size=\"4\" type=\"uint32\" value=\"0\"/>"
      "</Object>");
}

TEST(AtaCommand, CloneIsAPlainCommandWithEveryField) {
  IdentifyDevice identify;
  identify.previousTaskFile = {1, 2, 3, 4, 5, 6, 7, 8};
  identify.dataOut = identify.dataNone = identify.deviceDiagnostic = identify.dma = true;
  identify.extended = identify.ignoreDriverLimitations = true;
  identify.clearPriorStickyAbort = false;
  identify.transferBytes = 512;

  auto clone = identify.clone();
  EXPECT_EQ(typeid(*clone), typeid(Command));
  EXPECT_EQ(clone->toString(), identify.toString());
  EXPECT_EQ(xmlOf(*clone), xmlOf(identify));
  EXPECT_EQ(static_cast<const Command&>(*clone).transferBytes, 512u);
}
