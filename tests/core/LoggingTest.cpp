#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <regex>
#include <stdexcept>
#include <string>

#include "orlo/core/LoggerSetup.h"
#include "orlo/core/Logging.h"
#include "orlo/core/ScopeTrace.h"
#include "support/ScratchDirectory.h"

namespace logging = orlo::core::logging;
using orlo::testing::readFile;

namespace {

std::string logPath(const std::string& name) {
  const std::string path = testing::TempDir() + "orlo_core_" + name + ".log";
  std::remove(path.c_str());
  return path;
}

int gComposed = 0;
int composed() {
  return ++gComposed;
}

void tracedThrow() {
  ORLO_SCOPE_TRACE();
  throw std::runtime_error("leaving");
}

}  // namespace

// Boost.Log would print records to the console before any sink is set up, so nothing
// may be logged then; a fresh process is the only place to see that.
TEST(Logging, ComposesNothingBeforeSetUpOrWhenDisabled) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const std::string path = logPath("never");
  EXPECT_EXIT(
      {
        ORLO_LOG(error, composed());
        logging::initializeLogger(false, path);
        ORLO_LOG(error, composed());
        const bool quiet = gComposed == 0 && !std::ifstream(path).good();
        std::exit(quiet && logging::logFileName() == "orlo.log" ? 0 : 1);
      },
      testing::ExitedWithCode(0), "^$");
}

TEST(Logging, RecordsHaveTheLineFormatAndTraceBothEnds) {
  const std::string path = logPath("format");
  logging::initializeLogger(true, path);
  ORLO_LOG(warning, "value " << 42);
  EXPECT_THROW(tracedThrow(), std::runtime_error);

  const std::string time = R"(\d\d:\d\d:\d\d:\d{6} )";
  const std::regex expected(time + R"(\[warning\] LoggingTest\.cpp\(\d+\) TestBody: value 42\n)" +
                            time + R"(\[debug\] LoggingTest\.cpp\(\d+\) tracedThrow: Entering\n)" +
                            time + R"(\[debug\] LoggingTest\.cpp tracedThrow: Exiting\n)");
  const std::string text = readFile(path);
  EXPECT_TRUE(std::regex_match(text, expected)) << text;
}

TEST(Logging, FilesAreAppendedToSwitchedAndLeftAloneWhenDisabled) {
  const std::string first = logPath("first");
  const std::string second = logPath("second");
  std::ofstream(first) << "kept\n";
  logging::initializeLogger(true, first);
  ORLO_LOG(info, "one");
  logging::initializeLogger(true, second);
  ORLO_LOG(info, "two");
  logging::initializeLogger(true, first);
  ORLO_LOG(info, "three");
  logging::initializeLogger(false, first);
  ORLO_LOG(error, composed());
  EXPECT_EQ(gComposed, 0);

  const std::string firstText = readFile(first);
  EXPECT_TRUE(
      std::regex_match(firstText, std::regex("kept\n.* TestBody: one\n.* TestBody: three\n")))
      << firstText;
  EXPECT_TRUE(std::regex_match(readFile(second), std::regex(".* TestBody: two\n")));
}
