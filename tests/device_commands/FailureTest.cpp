#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "InstalledOrlo.h"

namespace device_commands {
namespace {

using Failures = InstalledOrlo;

TEST_F(Failures, SayWhatWentWrongAndExitNonZero) {
  // A drive that answers CNS 4, which the toolkit does not decode.
  const std::string answersCns4 = scratch / "answers-cns4";
  std::filesystem::copy(nvmeImage, answersCns4);
  std::filesystem::copy(nvmeImage + "/nvme-identify-cns01-nsid00000000.bin",
                        answersCns4 + "/nvme-identify-cns04-nsid00000000.bin");
  // A node that its user may not open. Root runs without the capabilities that pass over
  // file modes, and stays root so that it still reaches the program wherever the checkout lies.
  const std::string node = scratch / "nvme0";
  orlo::testing::writeFile(node, "");
  std::filesystem::permissions(node, std::filesystem::perms::none);
  const std::string withoutOverride =
      geteuid() == 0 ? "setpriv --bounding-set=-dac_override,-dac_read_search" : "";
  // Replies that are no regular files: a folder, and a FIFO that nothing writes to.
  const std::string folderReply = scratch / "folder-reply";
  const std::string fifoReply = scratch / "fifo-reply";
  const std::string controller = "/nvme-identify-cns01-nsid00000000.bin";
  const std::string namespaces = "/nvme-identify-cns02-nsid00000000.bin";
  for (const std::string& image : {folderReply, fifoReply}) std::filesystem::copy(nvmeImage, image);
  std::filesystem::remove(folderReply + controller);
  std::filesystem::create_directory(folderReply + controller);
  std::filesystem::remove(fifoReply + namespaces);
  ASSERT_EQ(mkfifo((fifoReply + namespaces).c_str(), 0600), 0);
  // A drive that keeps no self-test log, and says so.
  const std::string noSelfTests = scratch / "no-self-tests";
  const std::string selfTests = noSelfTests + "/nvme-getlog-lid06-nsidffffffff-offset0";
  std::filesystem::copy(nvmeImage, noSelfTests);
  std::filesystem::remove(selfTests + ".bin");
  orlo::testing::writeFile(selfTests + ".status", "NvmeStatus=0x4109\nNvmeResult=0x00000000\n");
  // A SATA drive whose log directory gives Device Statistics no pages.
  const std::string noStatistics = scratch / "no-statistics";
  std::filesystem::copy(sataImage, noStatistics);
  orlo::testing::writeFile(noStatistics + "/ata-cmd2f-lba0-count1.bin", std::string(512, '\0'));

  const std::string noReply =
      "Result: NVMe command reported a problem: Invalid Field in Command (0x4002).\n";
  const std::string notTheMakers = "Result: Drive is not a Veldra SSD.\n";
  const std::string cns = "ControllerNamespaceStructure=";
  const struct {
    Words words;
    int exitCode;
    std::string out;
    std::string err = "";
    std::string prefix = "";  // shell words before orlo
  } cases[] = {
      // The image holds no reply for these, as a drive that does not know them.
      {{"show", "-ssd", nvmeImage, cns + "4"}, 1, noReply},
      {{"show", "-ssd", nvmeImage, cns + "2", "NamespaceId=1"}, 1, noReply},
      // The image keeps the drive's own refusal.
      {{"show", "-ssd", nvmeImage, "NamespaceId=0"},
       1,
       "Result: NVMe command reported a problem: Invalid Namespace or Format (0x400B).\n"},
      {{"show", "-ssd", answersCns4, cns + "4"},
       1,
       "Result: The toolkit has no decoder for Identify CNS 4.\n"},
      {{"show", "-ssd", nvmeImage, cns + "300"},
       1,
       "Result: The value of ControllerNamespaceStructure is not a valid uint8 number.\n"},
      {{"show", "-ssd", "99"},
       1,
       "Result: No drive matches -ssd \"99\": no drive has that index ('orlo show -ssd' lists "
       "the drives).\n"},
      {{"show", "-ssd", "NO-SUCH-SERIAL"},
       1,
       "Result: No drive matches -ssd \"NO-SUCH-SERIAL\": no drive has that serial number "
       "('orlo show -ssd' lists the drives).\n"},
      {{"show", "-ssd", node},
       1,
       "Result: Could not open " + node + ": Permission denied. Reading a drive needs root.\n",
       "",
       withoutOverride},
      {{"show", "-ssd", nvmeImage, "LogName=MarketingDescription"}, 1, notTheMakers},
      {{"dump", "-ssd", nvmeImage, "LogName=CommandEffectsLog", "File=" + scratch / "f"},
       1,
       notTheMakers},
      {{"show", "-ssd", nvmeImage, "LogName=TemperatureStatistics", "-maker-vendors", imageVendor},
       1,
       "Result: The toolkit reads no log page named \"TemperatureStatistics\". LogName takes one "
       "of COMMANDEFFECTSLOG, DEVICESELFTESTLOG, ERRORINFO, FIRMWARESLOTINFO, "
       "MARKETINGDESCRIPTION, SMARTHEALTHINFO, in any case.\n"},
      // A log of the other protocol's drives; a SATA drive without Device Statistics.
      {{"show", "-ssd", sataImage, "LogName=ErrorInfo"},
       1,
       "Result: The log page \"ErrorInfo\" is not one that an ATA drive keeps. For this drive "
       "LogName takes one of SmartAttributes, DeviceStatistics, in any case.\n"},
      {{"show", "-ssd", nvmeImage, "LogName=DeviceStatistics"},
       1,
       "Result: The log page \"DeviceStatistics\" is not one that an NVMe drive keeps. For this "
       "drive LogName takes one of COMMANDEFFECTSLOG, DEVICESELFTESTLOG, ERRORINFO, "
       "FIRMWARESLOTINFO, MARKETINGDESCRIPTION, SMARTHEALTHINFO, in any case.\n"},
      {{"show", "-ssd", noStatistics, "LogName=DeviceStatistics"},
       1,
       "Result: The drive does not keep the Device Statistics log (General Purpose Log 04h).\n"},
      // A page of the drive's own needs no maker; a refusal is the drive's.
      {{"show", "-ssd", noSelfTests, "LogName=DeviceSelfTestLog"},
       1,
       "Result: NVMe command reported a problem: Invalid Log Page (0x4109).\n"},
      {{"show", "-ssd", nvmeImage, "LogName=MarketingDescription", "-maker-vendors", "1e5a,xyz"},
       2,
       "",
       "orlo: Option -maker-vendors: Not a PCI vendor ID: \"xyz\".\n"},
      {{"show", "-ssd", folderReply, cns + "1"},
       1,
       "Result: Device image " + folderReply + " has no Identify reply: " + folderReply +
           controller + " is a directory, not a regular file.\n"},
      {{"show", "-ssd", fifoReply, cns + "2"},
       1,
       "Result: " + fifoReply + namespaces + " is a FIFO, not a regular file.\n",
       "",
       "timeout 60"},
      // Each command of the verb lacks one of the two properties.
      {{"show", "-ssd", nvmeImage, "LogName=CommandEffectsLog", cns + "1"},
       2,
       "",
       "orlo: No command of 'orlo show' takes the properties LogName and "
       "ControllerNamespaceStructure together: Identify takes NamespaceId, "
       "ControllerNamespaceStructure; LogPage takes LogName, NamespaceId; Drives takes none.\n"},
  };
  for (const auto& c : cases) {
    const Invocation run = orlo(c.words, c.prefix);
    EXPECT_EQ(run.exitCode, c.exitCode) << c.words[2];
    EXPECT_EQ(run.out, c.out);
    EXPECT_EQ(run.err, c.err);
  }
}

// An ATA drive takes neither property of the NVMe structures; the help says what it answers.
TEST_F(Failures, AnAtaDriveAnswersAsTheHelpSays) {
  const std::string help = orlo({"help", "show"}).out;
  for (const std::string property : {"ControllerNamespaceStructure=0", "NamespaceId=1"}) {
    const Invocation run = orlo({"show", "-ssd", sataImage, property});
    ASSERT_EQ(run.out.substr(0, 8), "Result: ") << run.out;
    EXPECT_NE(help.find(run.out.substr(8, run.out.size() - 9)), std::string::npos) << run.out;
  }
}

}  // namespace
}  // namespace device_commands
