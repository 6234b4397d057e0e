#include <algorithm>
#include <filesystem>
#include <string>

#include "InstalledOrlo.h"

namespace device_commands {
namespace {

using IdentifyCommand = InstalledOrlo;

std::string firstLines(const std::string& text, int count) {
  std::size_t end = 0;
  for (int i = 0; i < count && end != std::string::npos; ++i) end = text.find('\n', end + 1);
  return text.substr(0, end);
}

TEST_F(IdentifyCommand, ShowsEveryDecodedStructureInFourFormats) {
  const std::string cns = "ControllerNamespaceStructure=";
  const struct {
    Words words;
    std::string start;  // the first lines of the text
  } cases[] = {
      {{nvmeImage}, "Identify Namespace\n  Namespace Size [Bytes 07:00]: 0"},
      {{nvmeImage, "NamespaceId=1"},
       "Identify Namespace\n  Namespace Size [Bytes 07:00]: 937684566"},
      {{nvmeImage, cns + "0x1"},
       "Identify Controller\n  PCI Vendor ID (VID) [Byte 0-1]: 0x1E5A\n"
       "  PCI Subsystem Vendor ID (SSVID) [Byte 2-3]: 0x1E5A\n"
       "  Serial Number [Byte 4-23]: TT2A24310057"},
      {{nvmeImage, cns + "2"}, "Attached Namespace IDs\n  Namespace ID: 1"},
      {{nvmeImage, cns + "3", "NamespaceId=1"},
       "Namespace Identification Descriptors\n  Namespace Identification Descriptor 0:"},
      {{nvmeImage, cns + "16"}, "Allocated Namespace IDs\n  Namespace ID: 1"},
      {{nvmeImage, cns + "17", "NamespaceId=1"},
       "Identify Namespace\n  Namespace Size [Bytes 07:00]: 937684566"},
      {{nvmeImage, cns + "18", "NamespaceId=1"},
       "Attached Controllers\n  Number of Controller Entries: 1"},
      {{nvmeImage, cns + "19"}, "All Controllers\n  Number of Controller Entries: 1"},
      {{nvmeImage, cns + "20"},
       "Primary Controller Capabilities\n  Controller Identifier [Byte 0-1]: 1"},
      {{nvmeImage, cns + "21"}, "Secondary Controller List\n  Number of Identifiers [Byte 0]: 0"},
      // The granularity list and the command set vector have no root name.
      {{nvmeImage, cns + "22"},
       "Granularity Descriptor Mapping [Namespace Granularity Attributes]: 0\n"
       "Number of Descriptors: 1"},
      {{nvmeImage, cns + "23"},
       "Universally Unique Identifier (UUID) List\n  Reserved [Byte 0-31]: 0x0"},
      {{nvmeImage, cns + "26", "NamespaceId=0"},
       "I/O Command Set specific Allocated Namespace ID list\n  Namespace ID: 1"},
      {{nvmeImage, cns + "28"}, "Command Set Vector 0: 0x01\nNVM Command Set [Bit 0]: 1"},
      {{sataImage}, "ATA Identify Device\n  General Configuration [Word 0]: 0040"},
  };
  for (const auto& c : cases) {
    Words words = {"show", "-ssd"};
    words.insert(words.end(), c.words.begin(), c.words.end());
    const std::string text = inFourFormats(words);
    EXPECT_EQ(firstLines(text, std::count(c.start.begin(), c.start.end(), '\n') + 1), c.start)
        << words.back();
  }
  EXPECT_NE(orlo({"show", "-ssd", sataImage}).out.find("Serial Number [Word 10-19]: CVS3A0021847"),
            std::string::npos);
}

TEST_F(IdentifyCommand, RefusesWhatTheDriveOrTheToolkitCannotAnswer) {
  // A drive that answers CNS 4, which the toolkit does not decode.
  const std::string answersCns4 = scratch / "answers-cns4";
  std::filesystem::copy(nvmeImage, answersCns4);
  std::filesystem::copy(nvmeImage + "/nvme-identify-cns01-nsid00000000.bin",
                        answersCns4 + "/nvme-identify-cns04-nsid00000000.bin");
  const std::string noReply =
      "Result: NVMe command reported a problem: Invalid Field in Command (0x4002).\n";
  const struct {
    std::string image;
    Words properties;
    std::string message;
  } cases[] = {
      // The image holds no reply for these, as a drive that does not know them.
      {nvmeImage, {"ControllerNamespaceStructure=4"}, noReply},
      {nvmeImage, {"ControllerNamespaceStructure=2", "NamespaceId=1"}, noReply},
      {answersCns4,
       {"ControllerNamespaceStructure=4"},
       "Result: The toolkit has no decoder for Identify CNS 4.\n"},
      {nvmeImage,
       {"ControllerNamespaceStructure=300"},
       "Result: The value of ControllerNamespaceStructure is not a valid uint8 number.\n"},
      {nvmeImage,
       {"NamespaceId=x"},
       "Result: The value of NamespaceId is not a valid uint32 number.\n"},
  };
  for (const auto& c : cases) {
    Words words = {"show", "-ssd", c.image};
    words.insert(words.end(), c.properties.begin(), c.properties.end());
    const Invocation run = orlo(words);
    EXPECT_EQ(run.exitCode, 1) << c.message;
    EXPECT_EQ(run.out, c.message);
  }
}

}  // namespace
}  // namespace device_commands
