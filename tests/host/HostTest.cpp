#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <string>
#include <vector>

#include "support/ScratchDirectory.h"
#include "support/ShellRun.h"
#include "support/ZipArchive.h"

namespace {

using orlo::testing::readFile;
using orlo::testing::writeFile;
using Words = std::vector<std::string>;

using orlo::testing::Invocation;

long countFiles(const std::filesystem::path& folder) {
  return std::distance(std::filesystem::directory_iterator(folder),
                       std::filesystem::directory_iterator());
}

// The installed orlo, run on an archive "report.zip" holding "readme.txt" and a
// source "note.txt", with a PATH that holds no provider.
class InstalledOrlo : public ::testing::Test {
 protected:
  void SetUp() override {
    orlo::testing::writeZip(archive, {{"readme.txt", "old"}});
    writeFile(source, "new note");
  }

  Invocation orlo(Words words) const {
    words.insert(words.begin(), std::string(ORLO_STAGE_DIR) + "/bin/orlo");
    return orlo::testing::runThroughShell(words, outputs);
  }

  orlo::testing::ScratchDirectory scratch;
  orlo::testing::ScratchDirectory outputs;
  const std::string archive = scratch / "report.zip";
  const std::string source = scratch / "note.txt";
};

TEST_F(InstalledOrlo, UpdatesTheArchiveAndRendersTheResultInEachFormat) {
  const std::string message = "Successfully updated destination file with " + source;
  const struct {
    Words format;
    std::string rendered;
  } cases[] = {
      {{}, "Result: " + message + "\n"},
      {{"-output", "text"}, "Result: " + message + "\n"},
      {{"-output", "JSON"},
       "\"Result\": {\n  \"Description\": \"" + message + "\",\n  \"Type\": 0\n}\n"},
      {{"-output", "xml"},
       "<?xml version=\"1.0\" standalone=\"yes\" ?>\n<Result>\n  <Description>" + message +
           "</Description>\n  <Type>0</Type>\n</Result>\n"},
      {{"-output", "csv"}, "Result\nDescription," + message + "\nType,0\n"},
  };
  for (const auto& c : cases) {
    orlo::testing::writeZip(archive, {{"readme.txt", "old"}});
    Words words = {"update", "-source", source, "-destination", archive};
    words.insert(words.begin(), c.format.begin(), c.format.end());
    const Invocation run = orlo(words);
    EXPECT_EQ(run.exitCode, 0) << run.err;
    EXPECT_EQ(run.out, message + "\n" + c.rendered);
    const orlo::testing::ZipEntries expected = {{"readme.txt", "old"}, {"note.txt", "new note"}};
    EXPECT_EQ(orlo::testing::readZip(archive), expected);
  }
}

TEST_F(InstalledOrlo, AMissingSourceIsReportedWithExitCodeOne) {
  const Invocation run = orlo({"update", "-source", scratch / "missing", "-destination", archive});
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_EQ(run.out, "Result: Failed to open source file: " + scratch / "missing" + "\n");
}

TEST_F(InstalledOrlo, RefusedCommandLinesExitWithTwoAndTouchNothing) {
  writeFile(scratch / "my note.txt", "blank in the name");
  const struct {
    Words words;
    std::string refusal;
  } cases[] = {
      {{"update", "-source", source, "-destination", archive, "-bogus"}, "Unknown option '-bogus'"},
      {{"update", "-destination", archive}, "Missing required option -source <path>"},
      {{"update", "-destination", archive, "-source"}, "Option -source needs a value"},
      {{"update", "-source", scratch / "my note.txt", "-destination", archive}, "holds a blank"},
      {{"update", "-source", source, "-destination", archive + ";touch " + scratch / "pwned"},
       "holds ';'"},
      {{"frobnicate"}, "Unknown command 'frobnicate'"},
  };
  const std::string before = readFile(archive);
  const long files = countFiles(scratch.path());
  for (const auto& c : cases) {
    const Invocation run = orlo(c.words);
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_NE(run.err.find(c.refusal), std::string::npos) << run.err;
    EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
    EXPECT_EQ(readFile(archive), before);
    EXPECT_EQ(countFiles(scratch.path()), files);
  }
}

TEST_F(InstalledOrlo, AnExceptionFromThePluginEndsInOneLine) {
  const std::string report = scratch / "report";
  std::filesystem::rename(archive, report);
  std::filesystem::create_directory(archive);
  writeFile(archive + "/keep", "");  // a non-empty folder cannot be replaced by a file
  const Invocation run = orlo({"update", "-source", source, "-destination", report});
  EXPECT_EQ(run.exitCode, 3);
  EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
  EXPECT_NE(run.err.find("rename"), std::string::npos) << run.err;
  EXPECT_NE(run.err.find("[" + report + "] [" + archive + "]"), std::string::npos) << run.err;
}

TEST_F(InstalledOrlo, HelpListsTheCommandItsOptionsAndTheirDescriptions) {
  const std::string expected[] = {"UpdateIncidentReport",
                                  "Update existing IR zip file with new source file",
                                  "-help, -h",
                                  "Display help for the command.",
                                  "-source <path>",
                                  "Path to the source file.",
                                  "-destination <path>",
                                  "Path to the destination file.",
                                  "Display verbose data"};
  for (const Words& words : {Words{"help"}, Words{"-help"}, Words{"update", "-help"}}) {
    const Invocation run = orlo(words);
    EXPECT_EQ(run.exitCode, 0);
    for (const auto& text : expected) EXPECT_NE(run.out.find(text), std::string::npos) << text;
  }
  EXPECT_EQ(orlo({"help", "-log-file", outputs / "orlo.log"}).exitCode, 0);
  EXPECT_TRUE(std::filesystem::exists(outputs / "orlo.log"));
}

}  // namespace
