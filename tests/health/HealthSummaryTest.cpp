#include <gtest/gtest.h>

#include <string>

#include "orlo/features/health/HealthSummary.h"
#include "plugins/plugin.cliframework/XmlTreeResult.h"

namespace {

using orlo::features::health::HealthFacts;

std::string text(const HealthFacts& facts) {
  return plugin::cli::XmlTreeResult(orlo::features::health::summaryTree(facts)).toText(0);
}

TEST(HealthSummary, ShowsEveryFactInOneShapeAndSaysWhatTheDriveLeavesOut) {
  HealthFacts nvme;
  nvme.protocol = "NVMe";
  nvme.reportsHealthy = false;
  nvme.problems = {"Available Spare Below Threshold"};
  nvme.temperatureCelsius = -3;
  nvme.powerOnHours = 18446744073709551615u;
  nvme.percentageUsed = 255;
  nvme.mediaErrors = "340282366920938463463374607431768211455";
  nvme.unsafeShutdowns = "0";
  nvme.availableSparePercent = 4;
  nvme.availableSpareThresholdPercent = 10;
  nvme.criticalWarnings = {{"Available Spare Below Threshold", true}, {"Read Only", false}};
  EXPECT_EQ(text(nvme),
            "Health Summary\n  Protocol: NVMe\n  Verdict: Failing\n"
            "  Problem: Available Spare Below Threshold\n  Temperature: -3 \u00B0C\n"
            "  Power-On Hours: 18446744073709551615\n  Percentage Used: 255%\n"
            "  Media and Data Integrity Errors: 340282366920938463463374607431768211455\n"
            "  Unsafe Shutdowns: 0\n  Available Spare: 4%\n  Available Spare Threshold: 10%\n"
            "  Critical Warnings\n    Available Spare Below Threshold: Yes\n"
            "    Read Only: No\n");

  HealthFacts ata;
  ata.protocol = "ATA";
  ata.notes = {"Attribute 5 Reallocated Sector Count: failed in the past"};
  ata.availableSparePercent = 97;
  EXPECT_EQ(text(ata),
            "Health Summary\n  Protocol: ATA\n  Verdict: Healthy\n"
            "  Note: Attribute 5 Reallocated Sector Count: failed in the past\n"
            "  Temperature: Not reported\n  Power-On Hours: Not reported\n"
            "  Percentage Used: Not reported\n  Media and Data Integrity Errors: Not reported\n"
            "  Unsafe Shutdowns: Not reported\n  Available Spare: 97%\n"
            "  Available Spare Threshold: Not reported\n");
}

}  // namespace
