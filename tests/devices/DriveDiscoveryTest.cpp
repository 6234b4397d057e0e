#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdio>
#include <iterator>
#include <string>

#include "devices/DriveChoice.h"
#include "devices/DriveDiscovery.h"
#include "devices/RegularFile.h"
#include "devices/ReplayDevice.h"
#include "devices/VendorList.h"
#include "support/ScratchDirectory.h"

namespace {

using orlo::core::Status;
using orlo::devices::VendorList;
using orlo::testing::writeFile;
namespace fs = std::filesystem;

const std::string kSataImage = std::string(ORLO_TEST_DATA_DIR) + "/images/sata-corvid-s300";

// A sysfs tree with two NVMe controllers, listed out of order, two SATA disks, one
// behind a port multiplier, and a USB stick and a fabrics entry that are no drives of
// ours.
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
    // libata's words of the image's drive, as the kernel prints them.
    const std::string bytes = orlo::testing::readFile(kSataImage + "/ata-cmdec-lba0-count1.bin");
    std::string words;
    for (std::size_t at = 0; at < bytes.size(); at += 2) {
      char word[8];
      std::snprintf(word, sizeof word, "%04x%c",
                    static_cast<uint8_t>(bytes[at]) | static_cast<uint8_t>(bytes[at + 1]) << 8,
                    at % 16 == 14 ? '\n' : ' ');
      words += word;
    }
    addSataDisk("sdy", "ata3/host2/target2:0:0/2:0:0:0", "dev3.0", words);
    addSataDisk("sdv", "ata5/host4/target4:1:0/4:1:0:0", "dev5.1.0", words);
    writeFile(sys.path() / "block" / "sdx" / "device" / "vendor", "Generic \n");
  }

  // A disk whose SCSI device lies at `scsi` under a controller, with the SCSI
  // inquiry's strings that libata makes up and `words` in class/ata_device/`port`.
  void addSataDisk(const std::string& name, const std::string& scsi, const std::string& port,
                   const std::string& words) {
    const fs::path device = sys.path() / "devices" / "pci0000:00" / "0000:00:1f.2" / scsi;
    writeFile(device / "vendor", "ATA     \n");
    writeFile(device / "model", "Corvid S300 512G\n");
    writeFile(device / "rev", "04A \n");
    writeFile(device / "vpd_pg80", std::string("\x00\x80\x00\x14", 4) + "        SN-" + name);
    fs::create_directories(sys.path() / "block" / name);
    fs::create_directory_symlink(device, sys.path() / "block" / name / "device");
    if (!words.empty()) writeFile(sys.path() / "class" / "ata_device" / port / "id", words);
  }

  orlo::testing::ScratchDirectory sys;
};

TEST_F(FakeSysfs, ListsNvmeControllersThenSataDisksInKernelOrder) {
  // Two more disks without libata's words: the replayed drive answers for sdz, and
  // nothing for sdw.
  addSataDisk("sdw", "ata6/host5/target5:0:0/5:0:0:0", "dev6.0", "");
  addSataDisk("sdz", "ata7/host6/target6:0:0/6:0:0:0", "dev7.0", "");
  const orlo::devices::DriveOpener replay = [](const std::string& node,
                                               std::shared_ptr<orlo::core::Device>& device) {
    if (node != "/dev/sdz") return Status::openFileFailed();
    std::shared_ptr<orlo::devices::ReplayDevice> drive;
    const Status status = orlo::devices::ReplayDevice::open(kSataImage, VendorList(), drive);
    device = drive;
    return status;
  };
  const struct {
    std::string path;
    std::string protocol;
    std::string model;
    std::string serial;
    std::string firmware;
  } expected[] = {
      {"/dev/nvme9", "NVME", "Corvid P41", "S9", "1.0.2"},
      {"/dev/nvme17", "NVME", "Corvid P41", "S17", "1.0.2"},
      {"/dev/sdv", "ATA", "Corvid S300 512GB", "CVS3A0021847", "CV1.04A"},
      {"/dev/sdw", "ATA", "", "SN-sdw", ""},
      {"/dev/sdy", "ATA", "Corvid S300 512GB", "CVS3A0021847", "CV1.04A"},
      {"/dev/sdz", "ATA", "Corvid S300 512GB", "CVS3A0021847", "CV1.04A"},
  };
  const auto drives = orlo::devices::discoverDrives(sys.path(), replay);
  ASSERT_EQ(drives.size(), std::size(expected));
  for (uint32_t i = 0; i < drives.size(); ++i) {
    EXPECT_EQ(drives[i].index, i);
    EXPECT_EQ(drives[i].path, expected[i].path);
    EXPECT_EQ(drives[i].protocol, expected[i].protocol);
    EXPECT_EQ(drives[i].model, expected[i].model) << drives[i].path;
    EXPECT_EQ(drives[i].serial, expected[i].serial) << drives[i].path;
    EXPECT_EQ(drives[i].firmware, expected[i].firmware) << drives[i].path;
  }
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
      {"CVS3A0021847", "Could not open /dev/sdv: No such file or directory."},
      {"/dev/nvme17n1", "Could not open /dev/nvme17n1: No such file or directory."},
      {"/tmp", "No drive matches -ssd \"/tmp\": not an NVMe node"},
  };
  for (const Case& c : cases) {
    std::shared_ptr<orlo::core::Device> device;
    const Status status = orlo::devices::openDrive(c.ssd, options, device);
    EXPECT_EQ(status.message().rfind(c.message, 0), 0u) << c.ssd << ": " << status.message();
    EXPECT_EQ(device, nullptr);
  }
  std::shared_ptr<orlo::core::Device> replay;
  EXPECT_EQ(orlo::devices::openDrive(kSataImage, options, replay), Status::success());
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
    EXPECT_EQ(list.add("abcd " + bad), orlo::devices::VendorList::notVendorId("")) << bad;
    EXPECT_FALSE(list.contains(0xABCD)) << "nothing is added from a bad text";
  }
  EXPECT_EQ(orlo::devices::VendorList().add(" \n"), VendorList::namesNoVendor());

  // A directory, a device and a file past the limit are refused by the installed orlo's
  // test of -maker-vendors-file.
  orlo::testing::ScratchDirectory folder;
  orlo::testing::writeFile(folder / "vendors", "1e5a # Veldra\n");
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  const struct {
    std::string path;
    Status status;
    std::string message;
  } files[] = {
      {folder / "vendors", Status::success(), "Completed"},
      {"/nonexistent/vendors", Status::openFileFailed(), "/nonexistent/vendors"},
      {folder / "pipe", orlo::devices::notRegularFile("", ""), "is a FIFO"},
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
