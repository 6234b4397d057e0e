#include <gtest/gtest.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "orlo/core/LinuxSystem.h"

using orlo::core::DistributionInfo;
using orlo::core::LinuxSystem;
using orlo::core::Status;

namespace {

// An empty file system tree of the test's own, removed with it.
struct EmptyRoot {
  const std::filesystem::path path =
      std::filesystem::temp_directory_path() / ("orlo-root-" + std::to_string(::getpid()));
  EmptyRoot() { std::filesystem::remove_all(path); }
  ~EmptyRoot() { std::filesystem::remove_all(path); }
};

void write(const std::filesystem::path& path, const std::string& text) {
  std::filesystem::create_directories(path.parent_path());
  std::ofstream(path) << text;
}

}  // namespace

TEST(LinuxSystem, ReadsOsReleaseAndWritesTheBusRescanFile) {
  const EmptyRoot tree;
  const auto& root = tree.path;
  LinuxSystem system(root);
  DistributionInfo info{"old", "1"};
  EXPECT_EQ(system.getDistribution(info), "");
  EXPECT_EQ(info.name + info.version, "");

  write(root / "etc/os-release",
        "PRETTY_NAME=\"Corvid 3\"\nNAME=\"Corvid OS\"\nVERSION_ID='3.1'\n");
  EXPECT_EQ(system.getDistribution(info), "Corvid OS");
  EXPECT_EQ(info.version, "3.1");
  EXPECT_TRUE(system.matchesPlatform("corvid os"));
  EXPECT_FALSE(system.matchesPlatform("corvid"));

  EXPECT_EQ(system.rescan(), Status(39, "System rescan failed."));
  write(root / "sys/bus/pci/rescan", "");
  EXPECT_EQ(system.rescan(), Status::success());
  std::ifstream file(root / "sys/bus/pci/rescan");
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), "1");
}

TEST(LinuxSystem, AnswersOnThisMachine) {
  LinuxSystem system;
  EXPECT_EQ(system.getOperatingSystem(), "Linux");
  struct utsname names {};
  ASSERT_EQ(::uname(&names), 0);
  EXPECT_EQ(system.getVersion(), names.release);
  EXPECT_EQ(system.getVersion(), names.release);
  DistributionInfo info;
  EXPECT_TRUE(system.matchesPlatform(system.getDistribution(info)));
}
