#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cctype>
#include <cstdio>
#include <iterator>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace {

// Nothing but the two Boost.DLL aliases is exported; the import in LoadedPlugin.h
// and every host run check that they resolve.
TEST(PluginExports, OnlyTheTwoAliasesAreExported) {
  const std::string command = std::string("readelf -W --dyn-syms ") + ORLO_UPDATE_IR_PATH;
  std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
  ASSERT_NE(pipe, nullptr);
  std::vector<std::string> exported;
  char buffer[4096];
  while (fgets(buffer, sizeof(buffer), pipe.get()) != nullptr) {
    // "252: value size type bind visibility section name"; "UND" marks an import.
    std::istringstream line(buffer);
    const std::vector<std::string> w{std::istream_iterator<std::string>(line), {}};
    if (w.size() == 8 && std::isdigit(static_cast<unsigned char>(w[0][0])) && w[6] != "UND") {
      exported.push_back(w[7]);
    }
  }
  EXPECT_THAT(exported, ::testing::UnorderedElementsAre("register_features", "initialize_logger"));
}

}  // namespace
