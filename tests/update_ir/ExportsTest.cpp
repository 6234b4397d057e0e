#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <iterator>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace {

using Words = std::vector<std::string>;

// The lines of `readelf -W <what>` on the plug-in, each as its words, brackets dropped.
std::vector<Words> readelf(const std::string& what) {
  const std::string command = "readelf -W " + what + " " + ORLO_UPDATE_IR_PATH;
  std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
  std::vector<Words> lines;
  char buffer[4096];
  while (pipe != nullptr && fgets(buffer, sizeof(buffer), pipe.get()) != nullptr) {
    std::string line = buffer;
    std::replace_if(
        line.begin(), line.end(), [](char c) { return c == '[' || c == ']'; }, ' ');
    std::istringstream stream(line);
    lines.emplace_back(std::istream_iterator<std::string>(stream),
                       std::istream_iterator<std::string>());
  }
  return lines;
}

// Nothing but the two Boost.DLL aliases is exported; the import in LoadedPlugin.h
// and every host run check that they resolve.
TEST(PluginExports, OnlyTheTwoAliasesAreExported) {
  // "252: value size type bind visibility section name"; "UND" marks an import.
  std::vector<std::string> exported;
  for (const auto& w : readelf("--dyn-syms")) {
    if (w.size() == 8 && std::isdigit(static_cast<unsigned char>(w[0][0])) && w[6] != "UND") {
      exported.push_back(w[7]);
    }
  }
  EXPECT_THAT(exported, ::testing::UnorderedElementsAre("register_features", "initialize_logger"));
}

}  // namespace
