#include <sstream>

#include "InstalledOrlo.h"

namespace device_commands {
namespace {

using LogFile = InstalledOrlo;

// Both plug-ins are loaded and each points the logger at the file; a record must
// still reach it once, not once for each plug-in.
TEST_F(LogFile, HoldsEachRecordOnceWithBothPluginsLoaded) {
  const std::string log = outputs / "orlo.log";
  ASSERT_EQ(orlo({"show", "-ssd", nvmeImage, "-log-file", log}).exitCode, 0);
  std::istringstream lines(orlo::testing::readFile(log));
  std::string line;
  std::string previous;
  int count = 0;
  for (; std::getline(lines, line); ++count) {
    EXPECT_NE(line, previous) << "line " << count << " repeats the one before";
    previous = line;
  }
  EXPECT_GT(count, 4);
}

}  // namespace
}  // namespace device_commands
