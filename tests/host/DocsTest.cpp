#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "host/BashCompletion.h"
#include "host/DriveList.h"
#include "host/HostCommands.h"
#include "host/ManualPage.h"
#include "host/PluginSet.h"
#include "host/ResultRenderer.h"
#include "plugins/plugin.cliframework/SharedParts.h"
#include "support/ScratchDirectory.h"
#include "support/ShellRun.h"

namespace {

using orlo::testing::Invocation;
using orlo::testing::readFile;
using orlo::testing::writeFile;
using Words = std::vector<std::string>;

TEST(ManualPage, RoffTakesTheHelpTextLiterally) {
  const struct {
    std::string text;
    std::string roff;
  } cases[] = {
      {"-source <path>", "\\-source <path>"},
      {"C:\\x or ..\\x", "C:\\ex or ..\\ex"},
      // A line that starts with a dot or an apostrophe would be a request, and vanish.
      {".zip ending", "\\&.zip ending"},
      {"names:\n'quoted' and\n.hidden", "names:\n\\&'quoted' and\n\\&.hidden"},
      {"a.b 'c'", "a.b 'c'"},
  };
  for (const auto& c : cases) EXPECT_EQ(orlo::host::roffText(c.text), c.roff) << c.text;
}

// The installed pages are what orlo-docs writes from the installed plug-ins: the build
// gave it every plug-in, and neither page is left from an older build.
TEST(InstalledPages, AreWrittenFromTheInstalledPlugins) {
  const std::string stage = ORLO_STAGE_DIR;
  orlo::host::PluginSet plugins;
  ASSERT_EQ(plugins.load(stage + "/lib/orlo/plugins", ""), std::nullopt);
  const auto specs = orlo::host::allCommandSpecs(plugins.registry());
  orlo::testing::ScratchDirectory outputs;
  const Invocation manual = orlo::testing::runThroughShell(
      {ORLO_GZIP, "-dc", stage + "/share/man/man1/orlo.1.gz"}, outputs);
  ASSERT_EQ(manual.exitCode, 0) << manual.err;
  EXPECT_EQ(manual.out, orlo::host::writeManualPage(specs, "share/orlo"));
  EXPECT_EQ(readFile(stage + "/share/bash-completion/completions/orlo"),
            orlo::host::writeBashCompletion(specs));
}

std::shared_ptr<plugin::cli::CommandSpec> command(uint32_t id, const char* name,
                                                  const std::string& verb,
                                                  const Words& options = {}) {
  auto spec = std::make_shared<plugin::cli::CommandSpec>(id, name, "", verb);
  for (const auto& option : options) {
    spec->addOption(plugin::cli::OptionCommandSpecPart(
        option, true, option == "-image" ? "directory" : "path", true, "", false, ""));
  }
  return spec;
}

// The completion as bash runs it, in a folder that holds a file "note.txt" and a folder
// "image", for commands like those of the plug-ins, with an orlo that lists two drives.
class Completion : public ::testing::Test {
 protected:
  void SetUp() override {
    auto show = command(1, "Identify", "show");
    show->addOption(plugin::cli::helpOption);
    show->targets.add(
        std::make_shared<plugin::cli::CommandSpecPart>(plugin::cli::ssdTargetRequiredValue));
    show->addProperty(plugin::cli::PropertyCommandSpecPart(
        "LogName", true, "CommandEffectsLog|MarketingDescription", true, "", false, ""));
    const plugin::cli::CommandSpecs specs = {
        show, command(2, "Update", "update", {"-source", "-destination"}),
        command(3, "Capture", "capture", {"-image"})};
    writeFile(folder / "orlo.bash", orlo::host::writeBashCompletion(specs));
    writeFile(folder / "note.txt", "");
    std::filesystem::create_directory(folder / "image");
    // The list as orlo renders it, which the completion reads the drives from.
    writeFile(folder / "drives.txt",
              orlo::host::render(
                  *orlo::host::driveList({{0, "/dev/nvme0", "NVME", "Tamsel T2", "TS0042", "1.0"},
                                          {1, "/dev/sda", "ATA", "Corvid S300", "CS 77", "FW1"}},
                                         "/sys"),
                  "text"));
    writeFile(folder / "orlo",
              "#!/bin/sh\n[ \"$*\" = \"show -ssd\" ] && exec cat " + folder / "drives.txt" + "\n");
    chmod((folder / "orlo").c_str(), 0755);
  }

  // What bash offers with the cursor at the end of `line`, one reply a line.
  std::string complete(const std::string& line) const {
    const Invocation bash = orlo::testing::runThroughShell(
        {"bash", "-c",
         "source \"$0\"; COMP_LINE=$1; COMP_POINT=${#1}; _orlo \"$2\"; "
         "printf '%s\\n' \"${COMPREPLY[@]}\"",
         folder / "orlo.bash", line, folder / "orlo"},
        outputs, "cd " + orlo::testing::shellQuoted(folder.path().string()) + " &&");
    EXPECT_EQ(bash.err, "") << line;
    return bash.out;
  }

  orlo::testing::ScratchDirectory folder;
  orlo::testing::ScratchDirectory outputs;
};

TEST_F(Completion, OffersWhatTheCommandLineTakesAtEachPlace) {
  const struct {
    std::string line;
    std::string replies;
  } cases[] = {
      {"orlo ", "show\nupdate\ncapture\nhelp\n"},
      {"orlo UP", "update\n"},
      {"orlo show ", "-help\n-h\n-ssd\nLogName=\n"},
      {"orlo show -",
       "-help\n-h\n-ssd\n-output\n-plugin-dir\n-log-file\n-maker-vendors\n"
       "-maker-vendors-file\n"},
      // The drives that orlo lists, by what -ssd takes, and folders for device images.
      {"orlo show -ssd ", "image\n0\n/dev/nvme0\nTS0042\n1\n/dev/sda\nCS 77\n"},
      {"orlo show -ssd C", "CS 77\n"},
      // bash splits the word at "=": only the value is replaced.
      {"orlo show -ssd 0 logname=m", "MarketingDescription\n"},
      {"orlo show -ssd 0 LogName=CommandEffectsLog ", "-help\n-h\n"},
      {"orlo -output ", "text\njson\njsontree\nxml\ncsv\n"},
      {"orlo -output json up", "update\n"},
      {"orlo update -source n", "note.txt\n"},
      {"orlo update -source note.txt -",
       "-destination\n-output\n-plugin-dir\n-log-file\n"
       "-maker-vendors\n-maker-vendors-file\n"},
      {"orlo capture -image ", "image\n"},
      {"orlo -maker-vendors ", "\n"},
      {"orlo help ", "show\nupdate\ncapture\nIdentify\nUpdate\nCapture\nVerb=\nName=\n"},
      {"orlo help Verb=c", "capture\n"},
      {"orlo -help Name=Id", "Identify\n"},
  };
  for (const auto& c : cases) EXPECT_EQ(complete(c.line), c.replies) << c.line;
}

}  // namespace
