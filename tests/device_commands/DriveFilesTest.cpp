#include <filesystem>
#include <string>

#include "InstalledOrlo.h"

namespace device_commands {
namespace {

using DriveFiles = InstalledOrlo;

TEST_F(DriveFiles, ListCaptureAndDump) {
  // This machine's drives are its own: their list, or where none was found.
  const Invocation list = orlo({"show", "-ssd"});
  const std::string none =
      "Result: No drive found: orlo looked for NVMe controllers in /sys/class/nvme and SATA "
      "disks in /sys/block.\n";
  EXPECT_TRUE(list.exitCode == 0 ? list.out.substr(0, 7) == "Drives\n"
                                 : list.exitCode == 1 && list.out == none)
      << list.exitCode << ": " << list.out << list.err;

  // A captured image answers as the drive it was captured from.
  for (const std::string& image : {nvmeImage, sataImage}) {
    const std::string copy = scratch / std::filesystem::path(image).filename().string();
    const Invocation capture = orlo({"capture", "-ssd", image, "-image", copy});
    EXPECT_EQ(capture.out, "Result: Captured the drive into " + copy + ".\n") << capture.err;
    EXPECT_EQ(orlo({"show", "-ssd", copy, "ControllerNamespaceStructure=1"}).out,
              orlo({"show", "-ssd", image, "ControllerNamespaceStructure=1"}).out)
        << copy;
  }

  // A log page goes to its file as the drive sent it.
  for (const std::string reply : {"lid05", "liddd"}) {
    const std::string logName = reply == "lid05" ? "CommandEffectsLog" : "MarketingDescription";
    const std::string file = scratch / logName;
    const Invocation dump = orlo({"dump", "-ssd", nvmeImage, "LogName=" + logName, "File=" + file,
                                  "-maker-vendors", imageVendor});
    const std::string sent =
        orlo::testing::readFile(nvmeImage + "/nvme-getlog-" + reply + "-nsidffffffff-offset0.bin");
    EXPECT_EQ(dump.out, "Result: Wrote " + std::to_string(sent.size()) + " bytes of " + logName +
                            " to " + file + ".\n");
    EXPECT_EQ(orlo::testing::readFile(file), sent);
  }
}

}  // namespace
}  // namespace device_commands
