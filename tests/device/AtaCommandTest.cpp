#include <gtest/gtest.h>

#include <typeinfo>

#include "CommandTexts.h"
#include "orlo/commands/ata/CheckPowerMode.h"
#include "orlo/commands/ata/IdentifyDevice.h"
#include "orlo/commands/ata/ReadDMA.h"

using namespace orlo::commands::ata;

TEST(AtaCommand, DumpsAndXmlByteForByte) {
  EXPECT_EQ(ReadDMA().toString(), expectedText("ata_read_dma.txt"));
  EXPECT_EQ(Command("Plain").toString(), expectedText("ata_plain.txt"));
  // Only an extended command shows its older registers.
  ReadDMA extended;
  extended.extended = true;
  extended.previousTaskFile = {1, 2, 3, 4, 5, 6, 7, 0xE8};
  EXPECT_EQ(extended.toString(), expectedText("ata_read_dma_extended.txt"));
  EXPECT_EQ(xmlOf(CheckPowerMode()), expectedText("ata_check_power_mode.xml"));
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
