#include <gtest/gtest.h>
#include <sys/utsname.h>

#include <filesystem>
#include <fstream>

#include "orlo/core/LinuxSystem.h"

using orlo::core::DistributionInfo;
using orlo::core::LinuxSystem;
using orlo::core::Status;

namespace {

// A file system tree of its own for each test, removed afterwards.
class LinuxSystemTree : public ::testing::Test {
 protected:
  void SetUp() override {
    root_ = std::filesystem::temp_directory_path() /
            ("orlo-system-" +
             std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
    std::filesystem::remove_all(root_);
    std::filesystem::create_directories(root_ / "etc");
  }
  void TearDown() override { std::filesystem::remove_all(root_); }

  void write(const std::string& path, const std::string& text) {
    std::filesystem::create_directories((root_ / path).parent_path());
    std::ofstream(root_ / path) << text;
  }

  std::filesystem::path root_;
};

}  // namespace

TEST_F(LinuxSystemTree, DistributionComesFromOsRelease) {
  LinuxSystem system(root_);
  DistributionInfo info{"old", "1"};
  EXPECT_EQ(system.getDistribution(info), "");
  EXPECT_EQ(info.name, "");
  EXPECT_EQ(info.version, "");

  write("etc/os-release",
        "PRETTY_NAME=\"Corvid 3\"\nNAME=\"Corvid OS\"\nVERSION_ID='3.1'\nID=corvid\n");
  EXPECT_EQ(system.getDistribution(info), "Corvid OS");
  EXPECT_EQ(info.version, "3.1");
  EXPECT_TRUE(system.matchesPlatform("corvid os"));
  EXPECT_FALSE(system.matchesPlatform("corvid"));
}

TEST_F(LinuxSystemTree, RescanWritesTheBusRescanFile) {
  LinuxSystem system(root_);
  EXPECT_EQ(system.rescan(), Status(39, "System rescan failed."));
  write("sys/bus/pci/rescan", "");
  EXPECT_EQ(system.rescan(), Status::success());
  std::ifstream file(root_ / "sys/bus/pci/rescan");
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
  EXPECT_EQ(system.getDistribution(info), info.name);
  EXPECT_TRUE(system.matchesPlatform(info.name));
}
