#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "orlo/core/LinuxSystem.h"
#include "support/ScratchDirectory.h"

using orlo::core::DistributionInfo;
using orlo::core::LinuxSystem;
using orlo::core::Status;
using orlo::testing::readFile;
using orlo::testing::writeFile;

TEST(LinuxSystem, ReadsOsReleaseAndWritesTheBusRescanFile) {
  const orlo::testing::ScratchDirectory tree;
  const auto& root = tree.path();
  LinuxSystem system(root);
  DistributionInfo info{"old", "1"};
  EXPECT_EQ(system.getDistribution(info), "");
  EXPECT_EQ(info.name + info.version, "");

  writeFile(root / "etc/os-release",
            "PRETTY_NAME=\"Corvid 3\"\nNAME=\"Corvid OS\"\nVERSION_ID='3.1'\n");
  EXPECT_EQ(system.getDistribution(info), "Corvid OS");
  EXPECT_EQ(info.version, "3.1");
  EXPECT_TRUE(system.matchesPlatform("corvid os"));
  EXPECT_FALSE(system.matchesPlatform("corvid"));

  EXPECT_EQ(system.rescan(), Status(39, "System rescan failed."));
  writeFile(root / "sys/bus/pci/rescan", "");
  EXPECT_EQ(system.rescan(), Status::success());
  EXPECT_EQ(readFile(root / "sys/bus/pci/rescan"), "1");
}
