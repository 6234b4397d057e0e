#include <gtest/gtest.h>
#include <sys/stat.h>

#include <string>

#include "devices/DriveChoice.h"
#include "devices/DriveDiscovery.h"
#include "devices/RegularFile.h"
#include "devices/VendorList.h"
#include "support/ScratchDirectory.h"

namespace {

using orlo::core::Status;
using orlo::devices::VendorList;
using orlo::testing::writeFile;
namespace fs = std::filesystem;

// A sysfs tree with two NVMe controllers, listed out of order, a SATA disk, and
// a USB stick and a fabrics entry that are no drives of ours.
class FakeSysfs : public ::testing::Test {
 protected:
  void SetUp() override {
    const fs::path nvme = sys.path() / "class" / "nvme";
    for (const auto& [name, serial] : {std::pair{"nvme17", "S17"}, std::pair{"nvme9", "S9  "}}) {
      writeFile(nvme / name / "model", std::string("Corvid P41  \n"));
      writeFile(nvme / name / "serial", serial + std::string("\n"));
      writeFile(nvme / name / "firmware_rev", "1.0.2   \n");
    }
    writeFile(nvme / "nvme-fabrics" / "model", "x\n");
    const fs::path sdy = sys.path() / "block" / "sdy" / "device";
    writeFile(sdy / "vendor", "ATA     \n");
    writeFile(sdy / "model", "Corvid S300 512G\n");
    writeFile(sdy / "rev", "04A \n");
    writeFile(sdy / "vpd_pg80", std::string("\x00\x80\x00\x14", 4) + "        CVS3A0021847");
    writeFile(sys.path() / "block" / "sdx" / "device" / "vendor", "Generic \n");
  }

  orlo::testing::ScratchDirectory sys;
};

TEST_F(FakeSysfs, ListsNvmeControllersThenSataDisksInKernelOrder) {
  const auto drives = orlo::devices::discoverDrives(sys.path());
  ASSERT_EQ(drives.size(), 3u);
  EXPECT_EQ(drives[0].path, "/dev/nvme9");
  EXPECT_EQ(drives[0].serial, "S9");
  EXPECT_EQ(drives[0].model, "Corvid P41");
  EXPECT_EQ(drives[0].firmware, "1.0.2");
  EXPECT_EQ(drives[1].path, "/dev/nvme17");
  EXPECT_EQ(drives[2].path, "/dev/sdy");
  EXPECT_EQ(drives[2].protocol, "ATA");
  EXPECT_EQ(drives[2].serial, "CVS3A0021847");
  EXPECT_EQ(drives[2].firmware, "04A");
  for (uint32_t i = 0; i < drives.size(); ++i) EXPECT_EQ(drives[i].index, i);
  EXPECT_TRUE(orlo::devices::discoverDrives(sys.path() / "missing").empty());
}

TEST_F(FakeSysfs, SsdNamesADriveByIndexSerialPathOrImage) {
  orlo::devices::DriveOptions options;
  options.sysRoot = sys.path();
  struct Case {
    std::string ssd;
    std::string message;
  };
  // The fake drives have no nodes in /dev, so reaching one shows as a failed open.
  const Case cases[] = {
      {"1", "Could not open /dev/nvme17: No such file or directory."},
      {"CVS3A0021847", "Could not open /dev/sdy: No such file or directory."},
      {"/dev/nvme17n1", "Could not open /dev/nvme17n1: No such file or directory."},
      {"3", "No drive matches -ssd \"3\": no drive has that index"},
      {"S1", "No drive matches -ssd \"S1\": no drive has that serial number"},
      {"/tmp", "No drive matches -ssd \"/tmp\": not an NVMe node"},
  };
  for (const Case& c : cases) {
    std::shared_ptr<orlo::core::Device> device;
    const Status status = orlo::devices::openDrive(c.ssd, options, device);
    EXPECT_EQ(status.message().rfind(c.message, 0), 0u) << c.ssd << ": " << status.message();
    EXPECT_EQ(device, nullptr);
  }
  std::shared_ptr<orlo::core::Device> replay;
  EXPECT_EQ(orlo::devices::openDrive(std::string(ORLO_TEST_DATA_DIR) + "/images/sata-corvid-s300",
                                     options, replay),
            Status::success());
  EXPECT_TRUE(replay && replay->supportsProtocol("ATA"));
}

TEST(VendorList, ReadsHexadecimalIdentifiersAndRefusesOtherWords) {
  orlo::devices::VendorList vendors;
  EXPECT_TRUE(vendors.empty());
  EXPECT_EQ(vendors.add("0x1E5a, 1b36 # the emulator\n\n 0X8086"), Status::success());
  EXPECT_TRUE(vendors.contains(0x1E5A));
  EXPECT_TRUE(vendors.contains(0x1B36));
  EXPECT_TRUE(vendors.contains(0x8086));
  EXPECT_FALSE(vendors.contains(0x1E5B));

  for (const std::string bad : {"0x12345", "vendor", "0x", "1e5a;"}) {
    orlo::devices::VendorList list;
    EXPECT_EQ(list.add("abcd " + bad), Status(36, "")) << bad;
    EXPECT_FALSE(list.contains(0xABCD)) << "nothing is added from a bad text";
  }
  for (const std::string nothing : {",,,", "# none yet\n", " \n"}) {
    EXPECT_EQ(orlo::devices::VendorList().add(nothing), VendorList::namesNoVendor()) << nothing;
  }

  orlo::testing::ScratchDirectory folder;
  orlo::testing::writeFile(folder / "vendors", "1e5a # Veldra\n");
  orlo::testing::writeFile(folder / "long", std::string(VendorList::kFileLimit, ' ') + "1e5a");
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  const struct {
    std::string path;
    Status status;
    std::string message;
  } files[] = {
      {folder / "vendors", Status::success(), "Completed"},
      {"/nonexistent/vendors", Status::openFileFailed(), "/nonexistent/vendors"},
      {folder.path(), orlo::devices::notRegularFile("", ""), "is a directory"},
      {folder / "pipe", orlo::devices::notRegularFile("", ""), "is a FIFO"},
      {"/dev/zero", orlo::devices::notRegularFile("", ""), "is a character device"},
      {folder / "long", orlo::devices::fileTooLarge("", 0), "larger than 64 KiB"},
  };
  for (const auto& file : files) {
    VendorList fromFile;
    const Status status = fromFile.addFile(file.path);
    EXPECT_EQ(status, file.status) << file.path;
    EXPECT_NE(status.message().find(file.message), std::string::npos) << status.message();
    EXPECT_EQ(fromFile.contains(0x1E5A), file.status == Status::success());
  }
}

}  // namespace
