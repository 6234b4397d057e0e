#include <filesystem>
#include <string>

#include "InstalledOrlo.h"

namespace device_commands {
namespace {

using Rendering = InstalledOrlo;

TEST_F(Rendering, EveryDecodedTreeInFourFormats) {
  // A copy of the image whose Marketing Description holds control bytes, quotation
  // marks, a backslash and markup.
  const std::string odd = scratch / "odd-marketing";
  std::filesystem::copy(nvmeImage, odd);
  orlo::testing::writeFile(odd + "/nvme-getlog-liddd-nsidffffffff-offset0.bin",
                           std::string("T2\x01\x1f \"Q\" \\ \x7f<&>") + std::string(495, '\0'));
  const std::string vendorFile = scratch / "vendors";
  orlo::testing::writeFile(vendorFile, "# the maker's own\n0x144d, 1e5a\n");

  const std::string cns = "ControllerNamespaceStructure=";
  const Words maker = {"-maker-vendors", imageVendor};
  const struct {
    Words words;
    std::string start;  // of the text
  } cases[] = {
      {{nvmeImage}, "Identify Namespace\n  Namespace Size [Bytes 07:00]: 0\n"},
      {{nvmeImage, "NamespaceId=1"},
       "Identify Namespace\n  Namespace Size [Bytes 07:00]: 937684566\n"},
      {{nvmeImage, cns + "0x1"},
       "Identify Controller\n  PCI Vendor ID (VID) [Byte 0-1]: 0x1E5A\n"
       "  PCI Subsystem Vendor ID (SSVID) [Byte 2-3]: 0x1E5A\n"
       "  Serial Number [Byte 4-23]: TT2A24310057\n"},
      {{nvmeImage, cns + "2"}, "Attached Namespace IDs\n  Namespace ID: 1\n"},
      {{nvmeImage, cns + "3", "NamespaceId=1"},
       "Namespace Identification Descriptors\n  Namespace Identification Descriptor 0:\n"},
      {{nvmeImage, cns + "16"}, "Allocated Namespace IDs\n  Namespace ID: 1\n"},
      {{nvmeImage, cns + "17", "NamespaceId=1"},
       "Identify Namespace\n  Namespace Size [Bytes 07:00]: 937684566\n"},
      {{nvmeImage, cns + "18", "NamespaceId=1"},
       "Attached Controllers\n  Number of Controller Entries: 1\n"},
      {{nvmeImage, cns + "19"}, "All Controllers\n  Number of Controller Entries: 1\n"},
      {{nvmeImage, cns + "20"},
       "Primary Controller Capabilities\n  Controller Identifier [Byte 0-1]: 1\n"},
      {{nvmeImage, cns + "21"}, "Secondary Controller List\n  Number of Identifiers [Byte 0]: 0\n"},
      // The granularity list and the command set vector have no root name.
      {{nvmeImage, cns + "22"},
       "Granularity Descriptor Mapping [Namespace Granularity Attributes]: 0\n"
       "Number of Descriptors: 1\n"},
      {{nvmeImage, cns + "23"},
       "Universally Unique Identifier (UUID) List\n  Reserved [Byte 0-31]: 0x0\n"},
      {{nvmeImage, cns + "26", "NamespaceId=0"},
       "I/O Command Set specific Allocated Namespace ID list\n  Namespace ID: 1\n"},
      {{nvmeImage, cns + "28"}, "Command Set Vector 0: 0x01\nNVM Command Set [Bit 0]: 1\n"},
      {{sataImage}, "ATA Identify Device\n  General Configuration [Word 0]: 0040\n"},
      {{nvmeImage, "LogName=CommandEffectsLog", maker[0], maker[1]},
       "Commands Effects Log (Log ID = 5)\n  Admin Command 0 (0x00)\n    Command Supported: 1\n"},
      {{nvmeImage, "LogName=marketingdescription", "-maker-vendors-file", vendorFile},
       "Marketing Description Log\n"
       "  Marketing String: Tamsel T2 3.84TB U.2 NVMe SSD, PCIe Gen4 x4, 1 DWPD\n"},
      {{odd, "LogName=MarketingDescription", maker[0], maker[1]},
       "Marketing Description Log\n  Marketing String: T2\\x01\\x1F \"Q\" \\ \\x7F<&>\n"},
      // The drive's own logs, of any maker.
      {{nvmeImage, "LogName=SmartHealthInfo", "NamespaceId=1"},
       "SMART / Health Information Log (Log ID = 2)\n  Namespace: 1\n"
       "  Critical Warning [Byte 00]: 0x00\n"},
      {{wornImage, "LogName=smarthealthinfo"},
       "SMART / Health Information Log (Log ID = 2)\n  Namespace: All (controller-wide)\n"
       "  Critical Warning [Byte 00]: 0x05\n    Available Spare Below Threshold [Bit 0]: 1\n"},
      {{nvmeImage, "LogName=ErrorInfo"},
       "Error Information Log (Log ID = 1)\n  Entries Not in Use: 62\n"
       "  Error Information Entry 1\n    Error Count [Bytes 07:00]: 2\n"},
      {{nvmeImage, "LogName=FirmwareSlotInfo"},
       "Firmware Slot Information Log (Log ID = 3)\n  Active Firmware Info [Byte 00]: 0x02\n"},
      {{wornImage, "LogName=DeviceSelfTestLog"},
       "Device Self-test Log (Log ID = 6)\n  Results Not in Use: 18\n"},
      // A SATA drive's own logs.
      {{sataImage, "LogName=SmartAttributes"},
       "SMART Attributes\n  SMART Overall Health: PASSED\n  Attribute 1 (0x01)\n"
       "    Name: Raw Read Error Rate\n"},
      {{sataImage + "-failing", "LogName=smartattributes"},
       "SMART Attributes\n  SMART Overall Health: FAILED (a threshold is exceeded)\n"},
      {{sataImage, "LogName=DeviceStatistics"},
       "Device Statistics (Log 04h)\n  Supported Pages: 0, 1, 5, 7\n"
       "  General Statistics (Page 1)\n    Lifetime Power-On Resets: 418\n"},
  };
  for (const auto& c : cases) {
    Words words = {"show", "-ssd"};
    words.insert(words.end(), c.words.begin(), c.words.end());
    EXPECT_EQ(inFourFormats(words).substr(0, c.start.size()), c.start) << c.words[1];
  }
  EXPECT_NE(orlo({"show", "-ssd", sataImage}).out.find("Serial Number [Word 10-19]: CVS3A0021847"),
            std::string::npos);
}

}  // namespace
}  // namespace device_commands
