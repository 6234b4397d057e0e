#include <unistd.h>

#include <filesystem>
#include <string>

#include "InstalledOrlo.h"

namespace device_commands {
namespace {

using DriveChoice = InstalledOrlo;

TEST_F(DriveChoice, ListsTheDrivesFound) {
  // This machine's drives are its own; the list is there and renders.
  const Invocation run = orlo({"show", "-ssd"});
  EXPECT_EQ(run.exitCode, 0) << run.err;
  EXPECT_EQ(run.out.substr(0, 7), "Drives\n");
}

TEST_F(DriveChoice, ExplainsADriveThatCannotBeHad) {
  // A node that its user may not open: root is made "nobody" for the run.
  const std::string node = scratch / "nvme0";
  orlo::testing::writeFile(node, "");
  std::filesystem::permissions(node, std::filesystem::perms::none);
  const std::string asNobody =
      geteuid() == 0 ? "setpriv --reuid=65534 --regid=65534 --clear-groups" : "";
  const struct {
    std::string ssd;
    std::string prefix;
    std::string message;
  } cases[] = {
      {"99", "",
       "Result: No drive matches -ssd \"99\": no drive has that index ('orlo show -ssd' lists the "
       "drives).\n"},
      {"NO-SUCH-SERIAL", "",
       "Result: No drive matches -ssd \"NO-SUCH-SERIAL\": no drive has that serial number ('orlo "
       "show -ssd' lists the drives).\n"},
      {scratch / "missing", "",
       "Result: No drive matches -ssd \"" + scratch / "missing" +
           "\": not an NVMe node (/dev/nvme*), a SATA disk (/dev/sd*) or a device image "
           "directory.\n"},
      {node, asNobody,
       "Result: Could not open " + node + ": Permission denied. Reading a drive needs root.\n"},
  };
  for (const auto& c : cases) {
    const Invocation run = orlo({"show", "-ssd", c.ssd}, c.prefix);
    EXPECT_EQ(run.exitCode, 1) << c.ssd;
    EXPECT_EQ(run.out, c.message);
  }
}

TEST_F(DriveChoice, CapturesADriveIntoAnImageThatAnswersAsTheDrive) {
  for (const std::string& image : {nvmeImage, sataImage}) {
    const std::string copy = scratch / std::filesystem::path(image).filename().string();
    const Invocation capture = orlo({"capture", "-ssd", image, "-image", copy});
    EXPECT_EQ(capture.exitCode, 0) << capture.out << capture.err;
    EXPECT_EQ(capture.out, "Result: Captured the drive into " + copy + ".\n");
    for (const std::string cns : {"0", "1", "23"}) {
      const Words properties = {"ControllerNamespaceStructure=" + cns, "NamespaceId=1"};
      Words original = {"show", "-ssd", image}, captured = {"show", "-ssd", copy};
      original.insert(original.end(), properties.begin(), properties.end());
      captured.insert(captured.end(), properties.begin(), properties.end());
      EXPECT_EQ(orlo(captured).out, orlo(original).out) << copy << " CNS " << cns;
    }
  }
}

}  // namespace
}  // namespace device_commands
