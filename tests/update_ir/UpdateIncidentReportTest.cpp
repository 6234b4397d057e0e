#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "plugins/plugin.cliframework/SimpleResult.h"
#include "support/ScratchDirectory.h"
#include "support/ZipArchive.h"
#include "update_ir/LoadedPlugin.h"

namespace {

using orlo::testing::readZip;
using orlo::testing::writeFile;
using orlo::testing::writeZip;
using Options = std::vector<std::pair<std::string, std::string>>;

struct Outcome {
  std::string output;  // what the plug-in printed
  std::string message;
  int32_t type;
};

// The command run through the loaded plug-in's execute, with the built provider
// first on PATH, on an archive "report.zip" holding "readme.txt" and a source
// "note.txt".
class UpdateIncidentReport : public ::testing::Test {
 protected:
  void SetUp() override {
    putFirstOnPath(std::filesystem::path(ORLO_POWERSHELL_PATH).parent_path().string());
    orlo::testing::loadedPlugin().registerFeatures(registry_);
    writeZip(archive, {{"readme.txt", "old"}});
    writeFile(source, "new note");
  }
  void TearDown() override { setenv("PATH", savedPath_.c_str(), 1); }

  static void putFirstOnPath(const std::string& folder) {
    setenv("PATH", (folder + ":" + std::getenv("PATH")).c_str(), 1);
  }

  Outcome run(const Options& options) {
    plugin::cli::ParsedCommand command;
    for (const auto& [name, value] : options) {
      command.options.add(std::make_shared<plugin::cli::ParsedArgument>(
          plugin::cli::ParsedArgument{0, name, value}));
    }
    const auto& spec = registry_.commands.at(0);
    ::testing::internal::CaptureStdout();
    const auto result = registry_.commandOwners.at(spec.get())->execute(spec->id, command);
    const std::string output = ::testing::internal::GetCapturedStdout();
    const auto& status = dynamic_cast<const plugin::cli::SimpleResult&>(*result);
    return {output, status.value, status.type};
  }

  // The two lines of "-v", for `destination` turned into `archiveName`.
  std::string verboseLines(const std::string& destination, const std::string& archiveName,
                           const std::string& result) const {
    return "Zip command: powershell Compress-Archive -Path " + source +
           " -Update -DestinationPath " + archiveName + "\nAdding " + source + " to " +
           destination + "; Result: " + result + "\n";
  }

  orlo::testing::ScratchDirectory scratch;
  const std::string archive = scratch / "report.zip";
  const std::string source = scratch / "note.txt";
  const std::string succeeded = "Successfully updated destination file with " + source;

 private:
  plugin::cli::PluginRegistry registry_;
  const std::string savedPath_ = std::getenv("PATH");
};

TEST_F(UpdateIncidentReport, AddsOrReplacesTheEntryAndVOrVvPrintsTheCommandAndOutcome) {
  const std::pair<orlo::testing::ZipEntries, Options> cases[] = {
      {{{"readme.txt", "old"}, {"note.txt", "x"}}, {{"-v", ""}}},
      {{{"readme.txt", "old"}}, {{"-vv", ""}}},
      {{{"readme.txt", "old"}}, {{"-v", ""}, {"-vv", ""}}},
  };
  for (const auto& [before, flags] : cases) {
    writeZip(archive, before);
    Options options = {{"-source", source}, {"-destination", archive}};
    options.insert(options.end(), flags.begin(), flags.end());
    const Outcome outcome = run(options);
    EXPECT_EQ(outcome.message + " / " + std::to_string(outcome.type), succeeded + " / 0");
    EXPECT_EQ(outcome.output, verboseLines(archive, archive, "Success") + succeeded + "\n");
    const orlo::testing::ZipEntries expected = {{"readme.txt", "old"}, {"note.txt", "new note"}};
    EXPECT_EQ(readZip(archive), expected);
  }
}

TEST_F(UpdateIncidentReport, OnlyANameWithoutZipIsRenamedForTheRunAndBack) {
  const std::pair<std::string, std::string> names[] = {{"report", "report.zip"},
                                                       {"report.ZIP", "report.ZIP"}};
  for (const auto& [name, archiveName] : names) {
    const std::string destination = scratch / name;
    std::filesystem::rename(archive, destination);
    writeFile(archive, "a stale file under the temporary name");
    const Outcome outcome = run({{"-source", source}, {"-destination", destination}, {"-v", ""}});
    EXPECT_EQ(outcome.output,
              verboseLines(destination, scratch / archiveName, "Success") + succeeded + "\n");
    EXPECT_EQ(readZip(destination).count("note.txt"), 1u);
    // The stale file is replaced and then gone only where the temporary name was used.
    EXPECT_EQ(std::filesystem::exists(archive), archiveName != "report.zip");
    std::filesystem::rename(destination, archive);
  }
}

TEST_F(UpdateIncidentReport, AMissingPathIsNamedAndNothingIsPrinted) {
  const std::string missing = scratch / "missing";
  const std::pair<Options, std::string> cases[] = {
      {{{"-source", source}, {"-destination", missing}},
       "Failed to open destination file: " + missing},
      {{{"-source", missing}, {"-destination", missing}}, "Failed to open source file: " + missing},
      {{}, "Failed to open source file: "},
  };
  for (const auto& [options, message] : cases) {
    const Outcome outcome = run(options);
    EXPECT_EQ(outcome.message, message);
    EXPECT_EQ(outcome.type, 2);
    EXPECT_EQ(outcome.output, "");
  }
}

TEST_F(UpdateIncidentReport, AFailingProviderIsPrintedOnceAndReturned) {
  writeFile(scratch / "powershell", "#!/bin/sh\nexit 1\n");
  chmod((scratch / "powershell").c_str(), 0755);
  putFirstOnPath(scratch.path().string());
  const std::string failed = "Failed to update destination file with " + source;

  Outcome outcome = run({{"-source", source}, {"-destination", archive}});
  EXPECT_EQ(outcome.output, failed + "\n");
  EXPECT_EQ(outcome.message, failed);
  EXPECT_EQ(outcome.type, 2);
  outcome = run({{"-source", source}, {"-destination", archive}, {"-v", ""}});
  EXPECT_EQ(outcome.output, verboseLines(archive, archive, "Failure") + failed + "\n");
}

}  // namespace
