#include <filesystem>
#include <string>

#include "InstalledOrlo.h"

namespace device_commands {
namespace {

using orlo::testing::readFile;
using orlo::testing::writeFile;
using LogPageCommands = InstalledOrlo;

const std::string marketingReply = "nvme-getlog-liddd-nsidffffffff-offset0.bin";
const std::string effectsReply = "nvme-getlog-lid05-nsidffffffff-offset0.bin";

TEST_F(LogPageCommands, ShowBothLogPagesInFourFormatsEvenWithControlBytesInTheData) {
  // A copy of the image whose Marketing Description holds control bytes, quotation
  // marks, a backslash and markup.
  const std::string odd = scratch / "odd-marketing";
  std::filesystem::copy(nvmeImage, odd);
  writeFile(odd + "/" + marketingReply,
            std::string("T2\x01\x1f \"Q\" \\ \x7f<&>") + std::string(495, '\0'));
  const struct {
    std::string image;
    std::string logName;
    std::string start;
  } cases[] = {
      {nvmeImage, "CommandEffectsLog",
       "Commands Effects Log (Log ID = 5)\n  Admin Command 0 (0x00)\n    Command Supported: 1\n"},
      {nvmeImage, "marketingdescription",
       "Marketing Description Log\n"
       "  Marketing String: Tamsel T2 3.84TB U.2 NVMe SSD, PCIe Gen4 x4, 1 DWPD\n"},
      {odd, "MarketingDescription",
       "Marketing Description Log\n  Marketing String: T2\\x01\\x1F \"Q\" \\ \\x7F<&>\n"},
  };
  for (const auto& c : cases) {
    const std::string text = inFourFormats(
        {"show", "-ssd", c.image, "LogName=" + c.logName, "-maker-vendors", imageVendor});
    EXPECT_EQ(text.substr(0, c.start.size()), c.start);
  }
}

TEST_F(LogPageCommands, DumpWritesTheLogPageAsTheDriveSentIt) {
  const struct {
    std::string logName;
    std::string reply;
  } cases[] = {{"CommandEffectsLog", effectsReply}, {"MarketingDescription", marketingReply}};
  for (const auto& c : cases) {
    const std::string file = scratch / c.logName;
    const Invocation run = orlo({"dump", "-ssd", nvmeImage, "LogName=" + c.logName, "File=" + file,
                                 "-maker-vendors", imageVendor});
    const std::string expected = readFile(nvmeImage + "/" + c.reply);
    EXPECT_EQ(run.exitCode, 0) << run.out << run.err;
    EXPECT_EQ(run.out, "Result: Wrote " + std::to_string(expected.size()) + " bytes of " +
                           c.logName + " to " + file + ".\n");
    EXPECT_EQ(readFile(file), expected);
  }
}

TEST_F(LogPageCommands, ReadOnlyTheMakersDrivesAndKnownLogPages) {
  const std::string vendorFile = scratch / "vendors";
  writeFile(vendorFile, "# the maker's own\n0x144d, 1e5a\n");
  const Words show = {"show", "-ssd", nvmeImage, "LogName=MarketingDescription"};
  const auto with = [&](Words words, const Words& more) {
    words.insert(words.end(), more.begin(), more.end());
    return words;
  };
  const struct {
    Words words;
    int exitCode;
    std::string out;
    std::string err;
  } cases[] = {
      {show, 1, "Result: Drive is not a Veldra SSD.\n", ""},
      {with(show, {"-maker-vendors", "0x144D"}), 1, "Result: Drive is not a Veldra SSD.\n", ""},
      {{"dump", "-ssd", nvmeImage, "LogName=MarketingDescription", "File=" + scratch / "m"},
       1,
       "Result: Drive is not a Veldra SSD.\n",
       ""},
      {with(show, {"-maker-vendors-file", vendorFile}), 0,
       "Marketing Description Log\n"
       "  Marketing String: Tamsel T2 3.84TB U.2 NVMe SSD, PCIe Gen4 x4, 1 DWPD\n",
       ""},
      {with(show, {"-maker-vendors", "1e5a,xyz"}), 2, "",
       "orlo: Option -maker-vendors: Not a PCI vendor ID: \"xyz\".\n"},
      {{"show", "-ssd", nvmeImage, "LogName=SmartHealthInfo", "-maker-vendors", imageVendor},
       1,
       "Result: The toolkit reads no log page named \"SmartHealthInfo\". LogName takes one of "
       "COMMANDEFFECTSLOG, MARKETINGDESCRIPTION, in any case.\n",
       ""},
  };
  for (const auto& c : cases) {
    const Invocation run = orlo(c.words);
    EXPECT_EQ(run.exitCode, c.exitCode) << c.words[3];
    EXPECT_EQ(run.out, c.out);
    EXPECT_EQ(run.err, c.err);
  }
}

}  // namespace
}  // namespace device_commands
