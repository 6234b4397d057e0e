#include <gtest/gtest.h>

#include <typeinfo>

#include "orlo/commands/ata/CheckPowerMode.h"
#include "orlo/commands/ata/IdentifyDevice.h"
#include "orlo/commands/ata/ReadDMA.h"
#include "support/ExpectedText.h"

using namespace orlo::commands::ata;
using orlo::testing::testData;
using orlo::testing::xmlText;

TEST(AtaCommand, DumpsAndXmlByteForByte) {
  EXPECT_EQ(ReadDMA().toString(), testData("device/ata_read_dma.txt"));
  EXPECT_EQ(Command("Plain").toString(), testData("device/ata_plain.txt"));
  // Only an extended command shows its older registers.
  ReadDMA extended;
  extended.extended = true;
  extended.previousTaskFile = {1, 2, 3, 4, 5, 6, 7, 0xE8};
  EXPECT_EQ(extended.toString(), testData("device/ata_read_dma_extended.txt"));
  EXPECT_EQ(xmlText(*CheckPowerMode().toXml()), testData("device/ata_check_power_mode.xml"));
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
  EXPECT_EQ(xmlText(*clone->toXml()), xmlText(*identify.toXml()));
}
