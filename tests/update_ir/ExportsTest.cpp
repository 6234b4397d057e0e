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

unsigned long hex(const std::string& text) {
  return std::stoul(text, nullptr, 16);
}

TEST(PluginExports, OnlyTheTwoAliasesStandInTheBoostdllSectionInOrder) {
  // "25 boostdll PROGBITS address offset size ..."
  const auto sections = readelf("-S");
  const auto section = std::find_if(sections.begin(), sections.end(), [](const Words& w) {
    return w.size() > 5 && w[1] == "boostdll";
  });
  ASSERT_NE(section, sections.end());
  EXPECT_EQ(hex((*section)[5]), 2 * sizeof(void*));

  // "252: value size type bind visibility section name"; "UND" marks an import.
  std::vector<std::string> exported;
  for (const auto& w : readelf("--dyn-syms")) {
    if (w.size() == 8 && std::isdigit(static_cast<unsigned char>(w[0][0])) && w[6] != "UND") {
      exported.push_back(w[7] + " in " + w[6] + "+" +
                         std::to_string(hex(w[1]) - hex((*section)[3])));
    }
  }
  const std::string in = " in " + (*section)[0] + "+";
  EXPECT_THAT(exported, ::testing::UnorderedElementsAre(
                            "register_features" + in + "0",
                            "initialize_logger" + in + std::to_string(sizeof(void*))));
}

}  // namespace
