#include <gtest/gtest.h>

#include <typeinfo>

#include "orlo/commands/nvme/GetLogPage.h"
#include "orlo/commands/nvme/Identify.h"
#include "support/ExpectedText.h"

using namespace orlo::commands::nvme;
using orlo::testing::testData;
using orlo::testing::xmlText;

TEST(NvmeCommand, DumpsAndXmlByteForByte) {
  Identify identify;
  EXPECT_EQ(identify.toString(), testData("device/nvme_identify.txt"));
  // Byte 1 of 0xFF splits into FUSE 3, Reserved 15 and PSDT 3; the metadata
  // pointer needs nine hexadecimal digits.
  identify.submissionEntry.bytes[1] = 0xFF;
  identify.submissionEntry.setDword(4, 2);
  identify.submissionEntry.setDword(5, 1);
  EXPECT_EQ(identify.toString(), testData("device/nvme_identify_fuse_psdt_mptr.txt"));

  GetLogPage getLogPage;
  getLogPage.transferBytes = 0x1000;
  EXPECT_EQ(xmlText(*getLogPage.toXml()), testData("device/nvme_get_log_page.xml"));
}

TEST(NvmeCommand, SetCnsWritesOnlyTheLowByteOfDWord10) {
  Identify identify;
  identify.submissionEntry.setDword(10, 0xAABBCCDD);
  identify.submissionEntry.setDword(11, 0x11223344);
  identify.setCns(23);
  EXPECT_EQ(identify.submissionEntry.dword(10), 0xAABBCC17u);
  EXPECT_EQ(identify.submissionEntry.dword(11), 0x11223344u);
}

TEST(NvmeCommand, CloneIsAPlainCommandWithEveryField) {
  Identify identify;
  for (std::size_t i = 0; i < SubmissionEntry::kSize; ++i) identify.submissionEntry.bytes[i] = i;
  identify.dataOut = identify.dataNone = identify.dataBi = identify.asynchronous = true;
  identify.transferBlocks = 3;
  identify.transferBytes = 0x123456789;
  identify.submissionQueueId = 5;
  identify.queueWord0 = 1;
  identify.queueWord1 = 2;
  identify.queueWord2 = 3;
  identify.queuePayload = orlo::core::Payload(8);
  identify.queueWord3 = 4;
  identify.queueWord4 = 5;
  identify.queueWord5 = 6;
  identify.queueWord6 = 7;

  auto clone = identify.clone();
  EXPECT_EQ(typeid(*clone), typeid(Command));
  // The dump and the XML show the entry, the flags and the transfer numbers.
  EXPECT_EQ(clone->toString(), identify.toString());
  EXPECT_EQ(xmlText(*clone->toXml()), xmlText(*identify.toXml()));
  const auto& copy = static_cast<const Command&>(*clone);
  EXPECT_EQ(copy.queuePayload.data(), identify.queuePayload.data());
  const uint64_t words[] = {copy.queueWord0, copy.queueWord1, copy.queueWord2, copy.queueWord3,
                            copy.queueWord4, copy.queueWord5, copy.queueWord6};
  for (uint64_t i = 0; i < 7; ++i) EXPECT_EQ(words[i], i + 1) << "queueWord" << i;
}
