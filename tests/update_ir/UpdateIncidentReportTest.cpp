#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
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
    savedPath_ = std::getenv("PATH");
    putFirstOnPath(std::filesystem::path(ORLO_POWERSHELL_PATH).parent_path().string());
    orlo::testing::loadedPlugin().registerFeatures(registry_);
    writeZip(archive, {{"readme.txt", "old"}});
    writeFile(source, "new note");
  }
  void TearDown() override { setenv("PATH", savedPath_.c_str(), 1); }

  static void putFirstOnPath(const std::string& folder) {
    setenv("PATH", (folder + ":" + std::getenv("PATH")).c_str(), 1);
  }

  // A stand-in provider that fails, first on PATH.
  void useFailingProvider() {
    const std::string provider = scratch / "powershell";
    writeFile(provider, "#!/bin/sh\nexit 1\n");
    chmod(provider.c_str(), 0755);
    putFirstOnPath(scratch.path().string());
  }

  std::shared_ptr<plugin::cli::ResultBase> execute(const Options& options) {
    plugin::cli::ParsedCommand command;
    command.verb = "update";
    for (const auto& [name, value] : options) {
      auto argument = std::make_shared<plugin::cli::ParsedArgument>();
      argument->name = name;
      argument->value = value;
      command.options.add(argument);
    }
    const auto& spec = registry_.commands.at(0);
    return registry_.commandOwners.at(spec.get())->execute(spec->id, command);
  }

  Outcome run(const Options& options) {
    ::testing::internal::CaptureStdout();
    const auto result = execute(options);
    const std::string output = ::testing::internal::GetCapturedStdout();
    const auto* status = dynamic_cast<const plugin::cli::SimpleResult*>(result.get());
    EXPECT_NE(status, nullptr);
    return {output, result->value, status != nullptr ? status->type : -1};
  }

  orlo::testing::ScratchDirectory scratch;
  const std::string archive = scratch / "report.zip";
  const std::string source = scratch / "note.txt";
  const std::string succeeded = "Successfully updated destination file with " + source;

 private:
  plugin::cli::PluginRegistry registry_;
  std::string savedPath_;
};

TEST_F(UpdateIncidentReport, AddsTheSourceOrReplacesTheEntryOfItsName) {
  const orlo::testing::ZipEntries before[] = {{{"readme.txt", "old"}},
                                              {{"readme.txt", "old"}, {"note.txt", "old note"}}};
  for (const auto& entries : before) {
    writeZip(archive, entries);
    const Outcome result = run({{"-source", source}, {"-destination", archive}});
    EXPECT_EQ(result.type, 0);
    EXPECT_EQ(result.message, succeeded);
    EXPECT_EQ(result.output, succeeded + "\n");
    const orlo::testing::ZipEntries expected = {{"readme.txt", "old"}, {"note.txt", "new note"}};
    EXPECT_EQ(readZip(archive), expected);
  }
}

TEST_F(UpdateIncidentReport, ADestinationWithoutZipIsRenamedForTheRunAndBack) {
  const std::string report = scratch / "report";
  std::filesystem::rename(archive, report);
  writeFile(archive, "a stale file that the first rename replaces");

  const Outcome result = run({{"-source", source}, {"-destination", report}, {"-v", ""}});
  EXPECT_EQ(result.output, "Zip command: powershell Compress-Archive -Path " + source +
                               " -Update -DestinationPath " + report + ".zip\nAdding " + source +
                               " to " + report + "; Result: Success\n" + succeeded + "\n");
  EXPECT_FALSE(std::filesystem::exists(archive));
  EXPECT_EQ(readZip(report).count("note.txt"), 1u);
}

TEST_F(UpdateIncidentReport, AnUpperCaseZipNameIsUsedAsItIs) {
  const std::string upper = scratch / "report.ZIP";
  std::filesystem::rename(archive, upper);
  const Outcome result = run({{"-source", source}, {"-destination", upper}, {"-v", ""}});
  EXPECT_EQ(result.output.rfind("Zip command: powershell Compress-Archive -Path " + source +
                                    " -Update -DestinationPath " + upper + "\n",
                                0),
            0u)
      << result.output;
  EXPECT_EQ(readZip(upper).count("note.txt"), 1u);
}

TEST_F(UpdateIncidentReport, AMissingPathIsNamedAndNothingIsPrinted) {
  const std::string missing = scratch / "missing";
  const struct {
    Options options;
    std::string message;
  } cases[] = {
      {{{"-source", missing}, {"-destination", archive}}, "Failed to open source file: " + missing},
      {{{"-source", source}, {"-destination", missing}},
       "Failed to open destination file: " + missing},
      {{{"-source", missing}, {"-destination", missing}}, "Failed to open source file: " + missing},
      {{}, "Failed to open source file: "},
  };
  for (const auto& c : cases) {
    const Outcome result = run(c.options);
    EXPECT_EQ(result.message, c.message);
    EXPECT_EQ(result.type, 2);
    EXPECT_EQ(result.output, "");
  }
}

TEST_F(UpdateIncidentReport, AFailingProviderIsPrintedOnceAndReturned) {
  useFailingProvider();
  const std::string failed = "Failed to update destination file with " + source;
  Outcome result = run({{"-source", source}, {"-destination", archive}});
  EXPECT_EQ(result.output, failed + "\n");
  EXPECT_EQ(result.message, failed);
  EXPECT_EQ(result.type, 2);

  result = run({{"-source", source}, {"-destination", archive}, {"-v", ""}});
  EXPECT_EQ(result.output, "Zip command: powershell Compress-Archive -Path " + source +
                               " -Update -DestinationPath " + archive + "\nAdding " + source +
                               " to " + archive + "; Result: Failure\n" + failed + "\n");
  const orlo::testing::ZipEntries unchanged = {{"readme.txt", "old"}};
  EXPECT_EQ(readZip(archive), unchanged);
}

TEST_F(UpdateIncidentReport, VvPrintsWhatVPrints) {
  const Options paths = {{"-source", source}, {"-destination", archive}};
  auto with = [&](Options extra) {
    extra.insert(extra.begin(), paths.begin(), paths.end());
    return run(extra).output;
  };
  const std::string quiet = with({});
  const std::string verbose = with({{"-v", ""}});
  EXPECT_EQ(quiet, succeeded + "\n");
  EXPECT_EQ(verbose.rfind("Zip command: ", 0), 0u);
  EXPECT_NE(verbose.find("; Result: Success\n" + succeeded + "\n"), std::string::npos);
  EXPECT_EQ(with({{"-vv", ""}}), verbose);
  EXPECT_EQ(with({{"-v", ""}, {"-vv", ""}}), verbose);
}

TEST_F(UpdateIncidentReport, AFailedRenameLeavesAsAFileSystemError) {
  const std::string report = scratch / "report";
  std::filesystem::rename(archive, report);
  std::filesystem::create_directory(archive);
  writeFile(archive + "/keep", "");  // a non-empty folder cannot be replaced by a file
  EXPECT_THROW(execute({{"-source", source}, {"-destination", report}}),
               std::filesystem::filesystem_error);
  EXPECT_TRUE(std::filesystem::is_regular_file(report));
}

}  // namespace
