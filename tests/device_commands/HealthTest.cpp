#include <filesystem>
#include <string>

#include "InstalledOrlo.h"

namespace device_commands {
namespace {

using Health = InstalledOrlo;

TEST_F(Health, EachImageInFourFormatsWithTheDrivesVerdictAsExitCode) {
  const struct {
    std::string image;
    int exitCode;
    std::string start;  // of the text
  } cases[] = {
      {nvmeImage, 0,
       "Health Summary\n  Protocol: NVMe\n  Verdict: Healthy\n  Temperature: 37 \u00B0C\n"
       "  Power-On Hours: 9411\n  Percentage Used: 3%\n"},
      {wornImage, 4,
       "Health Summary\n  Protocol: NVMe\n  Verdict: Failing\n"
       "  Problem: Available Spare Below Threshold\n"
       "  Problem: NVM Subsystem Reliability Degraded\n  Temperature: 48 \u00B0C\n"},
      {sataImage, 0,
       "Health Summary\n  Protocol: ATA\n  Verdict: Healthy\n  Temperature: 34 \u00B0C\n"
       "  Power-On Hours: 5231\n  Percentage Used: 3%\n"},
      {sataImage + "-failing", 4,
       "Health Summary\n  Protocol: ATA\n  Verdict: Failing\n"
       "  Problem: SMART overall-health self-assessment: FAILED\n"
       "  Problem: Attribute 5 Reallocated Sector Count: failing now\n"
       "  Note: Attribute 1 Raw Read Error Rate: failed in the past\n"},
  };
  for (const auto& c : cases) {
    const std::string text = inFourFormats({"health", "-ssd", c.image}, c.exitCode);
    EXPECT_EQ(text.substr(0, c.start.size()), c.start) << c.image;
  }
}

TEST_F(Health, ADriveThatKeepsNoHealthLogFailsWithItsOwnStatus) {
  const std::string image = scratch / "no-health";
  std::filesystem::copy(nvmeImage, image);
  std::filesystem::remove(image + "/nvme-getlog-lid02-nsidffffffff-offset0.bin");
  const Invocation run = orlo({"health", "-ssd", image});
  EXPECT_EQ(run.exitCode, 1) << run.out << run.err;
  EXPECT_NE(run.out.find("Invalid Field in Command"), std::string::npos) << run.out;
}

}  // namespace
}  // namespace device_commands
