#include <gtest/gtest.h>
#include <sys/stat.h>

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

  // Under a time limit, since a path that blocks when opened (a FIFO) could hang a run.
  Invocation orlo(Words words, const std::string& prefix = "") const {
    words.insert(words.begin(), std::string(ORLO_STAGE_DIR) + "/bin/orlo");
    return orlo::testing::runThroughShell(words, outputs, "timeout 60 " + prefix);
  }

  // `json` read by Python's strict reader, which takes one document and nothing after
  // it, and written again on one line with its keys sorted; "invalid: " and the
  // reader's complaint when it does not read.
  std::string parsedJson(const std::string& json) const {
    writeFile(parsed / "document.json", json);
    const Invocation python = orlo::testing::runThroughShell(
        {ORLO_PYTHON3, "-c",
         "import json, sys\n"
         "try:\n"
         "  print(json.dumps(json.load(open(sys.argv[1], encoding='utf-8')), sort_keys=True))\n"
         "except ValueError as error:\n"
         "  print('invalid:', error)",
         parsed / "document.json"},
        parsed);
    return python.out;
  }

  orlo::testing::ScratchDirectory scratch;
  orlo::testing::ScratchDirectory outputs;
  orlo::testing::ScratchDirectory parsed;
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

TEST_F(InstalledOrlo, RefusedCommandLinesExitWithTwoAndTouchNothing) {
  writeFile(scratch / "my note.txt", "blank in the name");
  // A comma would split the path list: "notes,v2.txt" would add "notes" and "v2.txt".
  for (const char* name : {"notes", "v2.txt", "notes,v2.txt"}) writeFile(scratch / name, name);
  // Not archives: the update would move each to NAME.zip for its run.
  std::filesystem::create_directory(scratch / "folder");
  ASSERT_EQ(mkfifo((scratch / "pipe").c_str(), 0600), 0);
  // An incident report kept without its extension beside the real one: the update would
  // move it over "report.zip".
  writeFile(scratch / "report", "not an archive");
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
      {{"update", "-source", scratch / "notes,v2.txt", "-destination", archive}, "holds a comma"},
      {{"update", "-source", source, "-destination", scratch / "my,report.zip"}, "holds a comma"},
      {{"update", "-source", source, "-destination", scratch / "report"},
       "would move it over " + archive + " and destroy that file"},
      {{"update", "-source", source, "-destination", scratch / "folder"}, "is a directory"},
      {{"update", "-source", source, "-destination", scratch / "pipe"}, "is a FIFO"},
      {{"update", "-source", source, "-destination", "/dev/null"}, "is a character device"},
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
  EXPECT_EQ(readFile(scratch / "report"), "not an archive");
  EXPECT_TRUE(std::filesystem::is_directory(scratch / "folder"));
  EXPECT_TRUE(std::filesystem::is_fifo(scratch / "pipe"));
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
  EXPECT_FALSE(std::filesystem::exists("/dev/null.zip"));
}

// Host flags that name what cannot serve, help that names nothing and an output that cannot
// be written: one line on the standard error, and the exit code says which.
TEST_F(InstalledOrlo, UnusableFlagsHelpAndOutputAreReportedInOneLine) {
  // The plug-ins, one of them cut short: its program headers reach past its end.
  const std::string plugins = scratch / "plugins";
  std::filesystem::copy(std::string(ORLO_STAGE_DIR) + "/lib/orlo/plugins", plugins);
  std::filesystem::resize_file(plugins + "/libupdate_ir.so", 4096);
  writeFile(scratch / "vendors", std::string(64 * 1024, '#') + "\n1e5a\n");
  writeFile(scratch / "comments", "# the maker's vendors, none yet\n");
  const std::string toFullDisk = "sh -c '\"$@\" >/dev/full' sh";
  ASSERT_EQ(mkfifo((scratch / "unread").c_str(), 0600), 0);
  const struct {
    Words words;
    int exitCode;
    std::string error;
    std::string prefix = "";
  } cases[] = {
      {{"help", "-plugin-dir", plugins}, 3, plugins + "/libupdate_ir.so"},
      {{"help", "-maker-vendors-file", "/dev/zero"}, 2, "/dev/zero is a character device"},
      {{"help", "-maker-vendors-file", scratch.path()}, 2, "is a directory"},
      {{"help", "-maker-vendors-file", scratch / "vendors"}, 2, "larger than 64 KiB"},
      {{"help", "-maker-vendors-file", scratch / "comments"}, 2, "names no PCI vendor ID"},
      {{"help", "-maker-vendors", ",,,"}, 2, "names no PCI vendor ID"},
      {{"help", "-log-file", scratch.path()}, 2, "Is a directory"},
      {{"help", "-log-file", scratch / "missing/orlo.log"}, 2, "No such file or directory"},
      {{"help", "-log-file", scratch / "unread"}, 2, "no program reads it"},
      {{"help", "bogus"}, 2, "'bogus'"},
      {{"help", "update", "Name=Drives"}, 2, "'update' and 'Name=Drives'"},
      {{"help"}, 1, "No space left on device", toFullDisk},
      {{"update", "-source", source, "-destination", archive}, 1, "No space left", toFullDisk},
  };
  for (const auto& c : cases) {
    const Invocation run = orlo(c.words, c.prefix);
    EXPECT_EQ(run.exitCode, c.exitCode) << c.words.back() << ": " << run.err;
    EXPECT_TRUE(run.out.empty()) << c.words.back();
    EXPECT_NE(run.err.find(c.error), std::string::npos) << run.err;
    EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
  }
  EXPECT_FALSE(std::filesystem::exists(scratch / "missing"));
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

  // The same line on the standard error, and as a document on the standard output.
  const Invocation json =
      orlo({"update", "-source", source, "-destination", report, "-output", "json"});
  EXPECT_EQ(json.exitCode, 3);
  EXPECT_EQ(json.err, run.err);
  EXPECT_EQ(parsedJson(json.out),
            "{\"Error\": \"" + run.err.substr(6, run.err.size() - 7) + "\", \"ExitCode\": 3}\n");
}

// Whatever the command and however it ends, -output json gives one JSON document on the
// standard output, with what the plug-in printed in it.
TEST_F(InstalledOrlo, JsonOutputIsOneDocumentWhateverTheOutcome) {
  const std::string updated = "Successfully updated destination file with " + source;
  const struct {
    Words words;
    int exitCode;
    std::string document;  // as parsedJson gives it, or the start of it
  } cases[] = {
      {{"update", "-source", source, "-destination", archive},
       0,
       "{\"Output\": [\"" + updated + "\"], \"Result\": {\"Description\": \"" + updated +
           "\", \"Type\": 0}}\n"},
      {{"update", "-source", source, "-destination", archive, "-v"},
       0,
       "{\"Output\": [\"Zip command: powershell Compress-Archive -Path " + source +
           " -Update -DestinationPath " + archive + "\", \"Adding " + source + " to " + archive +
           "; Result: Success\", \"" + updated + "\"], \"Result\": {\"Description\": \"" + updated +
           "\", \"Type\": 0}}\n"},
      {{"update", "-source", scratch / "missing", "-destination", archive},
       1,
       "{\"Result\": {\"Description\": \"Failed to open source file: " + scratch / "missing" +
           "\", \"Type\": 2}}\n"},
      // A message with a line feed and a byte that is not UTF-8.
      {{"capture", "-ssd", "no\nsuch\xff", "-image", scratch / "image"},
       1,
       "{\"Result\": {\"Description\": \"No drive matches -ssd \\\"no\\nsuch\\u00ff\\\": "},
      {{"update", "-source", scratch / "a,b", "-destination", archive},
       2,
       "{\"Error\": \"The path of -source holds a comma"},
      {{"frobnicate"}, 2, "{\"Error\": \"Unknown command 'frobnicate'"},
      {{"help"}, 0, "{\"Help\": \"Usage: orlo "},
  };
  for (const auto& c : cases) {
    Words words = c.words;
    words.insert(words.end(), {"-output", "JSON"});
    const Invocation run = orlo(words);
    EXPECT_EQ(run.exitCode, c.exitCode) << run.err;
    const std::string document = parsedJson(run.out);
    EXPECT_EQ(document.substr(0, c.document.size()), c.document) << run.out;
    if (c.exitCode == 2) {
      EXPECT_NE(document.find("\"ExitCode\": 2}"), std::string::npos) << document;
      EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
    }
  }
  // A flag of the host refused before -output was read.
  const Invocation flag = orlo({"help", "-log-file", "-output", "json"});
  EXPECT_EQ(flag.exitCode, 2);
  EXPECT_EQ(parsedJson(flag.out),
            "{\"Error\": \"Option -log-file needs a value.\", \"ExitCode\": 2}\n");
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
                                  "Display verbose data",
                                  "a comma or any",
                                  "is not a regular file",
                                  "appended exists: the update moves the destination"};
  for (const Words& words : {Words{"help"}, Words{"-help"}, Words{"update", "-help"}}) {
    const Invocation run = orlo(words);
    EXPECT_EQ(run.exitCode, 0);
    for (const auto& text : expected) EXPECT_NE(run.out.find(text), std::string::npos) << text;
  }
}

}  // namespace
