#include <gtest/gtest.h>

#include <cctype>
#include <cstdio>
#include <map>
#include <memory>
#include <sstream>
#include <string>

namespace {

std::string readelf(const std::string& arguments) {
  const std::string command = "readelf -W " + arguments + " " + ORLO_UPDATE_IR_PATH;
  std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
  std::string output;
  char buffer[4096];
  while (pipe != nullptr && fgets(buffer, sizeof(buffer), pipe.get()) != nullptr) output += buffer;
  return output;
}

struct Section {
  std::string index;
  unsigned long address = 0;
  unsigned long size = 0;
};

// From "  [23] boostdll  PROGBITS  0000000000004d38 003d38 000010 ..." lines.
Section findSection(const std::string& name) {
  std::istringstream lines(readelf("-S"));
  for (std::string line; std::getline(lines, line);) {
    const auto open = line.find('[');
    const auto close = line.find(']');
    if (open == std::string::npos || close == std::string::npos) continue;
    std::istringstream fields(line.substr(close + 1));
    std::string sectionName, type, address, offset, size;
    fields >> sectionName >> type >> address >> offset >> size;
    if (sectionName != name) continue;
    Section section{line.substr(open + 1, close - open - 1), std::stoul(address, nullptr, 16),
                    std::stoul(size, nullptr, 16)};
    section.index.erase(0, section.index.find_first_not_of(' '));
    return section;
  }
  return {};
}

struct Symbol {
  unsigned long value;
  std::string sectionIndex;
};

// The defined symbols of the dynamic table, from "Num: Value Size Type Bind Vis Ndx Name".
std::map<std::string, Symbol> definedDynamicSymbols() {
  std::map<std::string, Symbol> symbols;
  std::istringstream lines(readelf("--dyn-syms"));
  for (std::string line; std::getline(lines, line);) {
    std::istringstream fields(line);
    std::string number, value, size, type, bind, visibility, index, name;
    if (!(fields >> number >> value >> size >> type >> bind >> visibility >> index >> name)) {
      continue;
    }
    if (!std::isdigit(static_cast<unsigned char>(number[0])) || index == "UND") continue;
    symbols[name.substr(0, name.find('@'))] = {std::stoul(value, nullptr, 16), index};
  }
  return symbols;
}

TEST(PluginExports, OnlyTheTwoAliasesStandInTheBoostdllSectionInOrder) {
  const Section section = findSection("boostdll");
  ASSERT_FALSE(section.index.empty()) << "no section boostdll";
  EXPECT_EQ(section.size, 2 * sizeof(void*));

  const auto symbols = definedDynamicSymbols();
  ASSERT_EQ(symbols.size(), 2u);
  ASSERT_EQ(symbols.count("register_features"), 1u);
  ASSERT_EQ(symbols.count("initialize_logger"), 1u);
  EXPECT_EQ(symbols.at("register_features").sectionIndex, section.index);
  EXPECT_EQ(symbols.at("initialize_logger").sectionIndex, section.index);
  EXPECT_EQ(symbols.at("register_features").value, section.address);
  EXPECT_EQ(symbols.at("initialize_logger").value, section.address + sizeof(void*));
}

}  // namespace
