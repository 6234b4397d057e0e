#include <gtest/gtest.h>

#include <string>
#include <typeinfo>

#include "DumpLines.h"
#include "orlo/commands/nvme/GetLogPage.h"
#include "orlo/commands/nvme/Identify.h"
#include "orlo/core/xml/XmlObject.h"

using namespace orlo::commands::nvme;

namespace {

const std::string kFreshIdentify =
    "Identify\n"
    "0000: 06 00 00 00 00 00 00 00  ........\n"
    "0008: 00 00 00 00 00 00 00 00  ........\n"
    "0010: 00 00 00 00 00 00 00 00  ........\n"
    "0018: 00 00 00 00 00 00 00 00  ........\n"
    "0020: 00 00 00 00 00 00 00 00  ........\n"
    "0028: 00 00 00 00 00 00 00 00  ........\n"
    "0030: 00 00 00 00 00 00 00 00  ........\n"
    "0038: 00 00 00 00 00 00 00 00  ........\n"
    "\n"
    "Admin Command Set:\n"
    "  DWord 0:           0x00000006 (6)\n"
    "    OPC:             0x00000006 (6)\n"
    "    FUSE:            0x00000000 (0)\n"
    "    Reserved:        0x00000000 (0)\n"
    "    PSDT:            0x00000000 (0)\n"
    "    CID:             0x00000000 (0)\n"
    "  DWord 1 (NSID):    0x00000000 (0)\n"
    "  Reserved:          0x00000000 (0)\n"
    "    DWord 2 (RSVD):  0x00000000 (0)\n"
    "    DWord 3 (RSVD):  0x00000000 (0)\n"
    "  Metadata Pointer:  0x00000000 (0)\n"
    "    DWord 4 (MPTR):  0x00000000 (0)\n"
    "    DWord 5 (MPTR):  0x00000000 (0)\n"
    "  PRP Entry 1:       0x00000000 (0)\n"
    "    DWord 6 (PRP1):  0x00000000 (0)\n"
    "    DWord 7 (PRP1):  0x00000000 (0)\n"
    "  PRP Entry 2:       0x00000000 (0)\n"
    "    DWord 8 (PRP2):  0x00000000 (0)\n"
    "    DWord 9 (PRP2):  0x00000000 (0)\n"
    "  DWord 10 (NDP):    0x00000000 (0)\n"
    "  DWord 11 (NDM):    0x00000000 (0)\n"
    "  DWord 12:          0x00000000 (0)\n"
    "  DWord 13:          0x00000000 (0)\n"
    "  DWord 14:          0x00000000 (0)\n"
    "  DWord 15:          0x00000000 (0)\n"
    "\n"
    "Flags:\n"
    "  Data In   (From Drive)    : True\n"
    "  Data Out    (To Drive)    : False\n"
    "  Data None                 : False\n"
    "  Data Bi   (In and Out)    : False\n"
    "  Admin                     : True\n"
    "  Asynchronous              : False\n";

std::string xmlOf(const orlo::core::Command& command) {
  std::string out;
  command.toXml()->write(out);
  return out;
}

}  // namespace

TEST(NvmeCommand, DumpsByteForByte) {
  Identify identify;
  EXPECT_EQ(identify.toString(), kFreshIdentify);

  identify.submissionEntry.bytes[1] = 0xFF;
  identify.submissionEntry.setDword(4, 2);
  identify.submissionEntry.setDword(5, 1);
  EXPECT_EQ(
      identify.toString(),
      withLines(
          kFreshIdentify,
          {{"0000: 06 00 00 00 00 00 00 00  ........", "0000: 06 FF 00 00 00 00 00 00  ........"},
           {"0010: 00 00 00 00 00 00 00 00  ........", "0010: 02 00 00 00 01 00 00 00  ........"},
           {"  DWord 0:           0x00000006 (6)", "  DWord 0:           0x0000FF06 (65286)"},
           {"    FUSE:            0x00000000 (0)", "    FUSE:            0x00000003 (3)"},
           {"    Reserved:        0x00000000 (0)", "    Reserved:        0x0000000F (15)"},
           {"    PSDT:            0x00000000 (0)", "    PSDT:            0x00000003 (3)"},
           {"  Metadata Pointer:  0x00000000 (0)", "  Metadata Pointer:  0x100000002 (4294967298)"},
           {"    DWord 4 (MPTR):  0x00000000 (0)", "    DWord 4 (MPTR):  0x00000002 (2)"},
           {"    DWord 5 (MPTR):  0x00000000 (0)", "    DWord 5 (MPTR):  0x00000001 (1)"}}));
}

TEST(NvmeCommand, XmlHoldsEntryAndTransferNumbers) {
  GetLogPage command;
  command.transferBytes = 0x1000;
  EXPECT_EQ(xmlOf(command),
            "<Object category=\"command\" name=\"GetLogPage\" type=\"NVME\">"
            "<Property category=\"payload\" displayName=\"payload\" name=\"nvmeCmd\" size=\"64\" "
            "type=\"bytepointer\" value=\"02" +
                std::string(126, '0') +
                "\"/>"
                "<Property category=\"attribute\" displayName=\"transferBlocks\" "
                "name=\"transferBlocks\" size=\"4\" type=\"uint32\" value=\"0\"/>"
                "<Property category=\"attribute\" displayName=\"transferBytes\" "
                "name=\"transferBytes\" size=\"8\" type=\"uint64\" value=\"4096\"/>"
                "<Property category=\"attribute\" displayName=\"submissionQueueId\" "
                "name=\"submissionQueueId\" size=\"2\" type=\"uint16\" value=\"0\"/>"
                "</Object>");
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
  EXPECT_EQ(clone->protocol(), "NVME");
  EXPECT_EQ(clone->toString(), identify.toString());
  EXPECT_EQ(xmlOf(*clone), xmlOf(identify));
  const auto& copy = static_cast<const Command&>(*clone);
  EXPECT_EQ(copy.queuePayload.data(), identify.queuePayload.data());
  const uint64_t words[] = {copy.queueWord0, copy.queueWord1, copy.queueWord2, copy.queueWord3,
                            copy.queueWord4, copy.queueWord5, copy.queueWord6};
  for (uint64_t i = 0; i < 7; ++i) EXPECT_EQ(words[i], i + 1) << "queueWord" << i;
}
