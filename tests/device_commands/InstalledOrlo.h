#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/ScratchDirectory.h"
#include "support/ShellRun.h"

namespace device_commands {

using Words = std::vector<std::string>;
using orlo::testing::Invocation;

const std::string nvmeImage = std::string(ORLO_IMAGES_DIR) + "/nvme-tamsel-t2";
const std::string sataImage = std::string(ORLO_IMAGES_DIR) + "/sata-corvid-s300";
// A Tamsel T2 whose SMART log carries a critical warning.
const std::string wornImage = std::string(ORLO_IMAGES_DIR) + "/nvme-tamsel-t2-worn";
// The PCI vendor of both images.
const std::string imageVendor = "0x1E5A";

// The installed orlo, run through the shell.
class InstalledOrlo : public ::testing::Test {
 protected:
  Invocation orlo(Words words, const std::string& prefix = "") const {
    words.insert(words.begin(), std::string(ORLO_STAGE_DIR) + "/bin/orlo");
    return orlo::testing::runThroughShell(words, outputs, prefix);
  }

  // The command's text, after checking that it ends with `exitCode` in all four formats, that
  // `python3 -m json.tool` takes its labelled JSON, and that its JSON, XML and CSV hold what
  // its text holds.
  std::string inFourFormats(const Words& words, int exitCode = 0) const {
    std::vector<std::string> files;
    for (const std::string format : {"text", "jsontree", "xml", "csv"}) {
      Words formatted = words;
      formatted.insert(formatted.end(), {"-output", format});
      const Invocation run = orlo(formatted);
      EXPECT_EQ(run.exitCode, exitCode) << format << ": " << run.out << run.err;
      files.push_back(rendered / format);
      orlo::testing::writeFile(files.back(), run.out);
    }
    const Invocation jsonTool =
        orlo::testing::runThroughShell({ORLO_PYTHON3, "-m", "json.tool", files[1]}, outputs);
    EXPECT_EQ(jsonTool.exitCode, 0) << jsonTool.err;
    const Invocation check = orlo::testing::runThroughShell(
        {ORLO_PYTHON3, ORLO_FORMAT_CHECK, files[0], files[1], files[2], files[3]}, outputs);
    EXPECT_EQ(check.exitCode, 0) << check.err;
    return orlo::testing::readFile(files[0]);
  }

  orlo::testing::ScratchDirectory outputs;
  orlo::testing::ScratchDirectory rendered;
  orlo::testing::ScratchDirectory scratch;
};

}  // namespace device_commands
