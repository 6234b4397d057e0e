#include "devices/VendorList.h"

#include <fstream>
#include <sstream>
#include <vector>

namespace orlo::devices {

namespace {

bool parseVendorId(std::string word, uint16_t& id) {
  if (word.size() > 2 && word[0] == '0' && (word[1] == 'x' || word[1] == 'X')) word.erase(0, 2);
  if (word.empty() || word.size() > 4) return false;
  if (word.find_first_not_of("0123456789abcdefABCDEF") != std::string::npos) return false;
  id = static_cast<uint16_t>(std::stoul(word, nullptr, 16));
  return true;
}

}  // namespace

core::Status VendorList::add(const std::string& text) {
  std::vector<uint16_t> found;
  std::istringstream lines(text);
  std::string line;
  while (std::getline(lines, line)) {
    line = line.substr(0, line.find('#'));
    for (char& c : line) {
      if (c == ',') c = ' ';
    }
    std::istringstream words(line);
    std::string word;
    while (words >> word) {
      uint16_t id = 0;
      if (!parseVendorId(word, id)) {
        return core::Status(36, "Not a PCI vendor ID: \"" + word + "\".");
      }
      found.push_back(id);
    }
  }
  ids_.insert(found.begin(), found.end());
  return core::Status::success();
}

core::Status VendorList::addFile(const std::string& path) {
  std::ifstream file(path);
  if (!file) {
    core::Status failed = core::Status::openFileFailed();
    failed.setMessage("Failed to open the vendor list " + path + ".");
    return failed;
  }
  std::ostringstream text;
  text << file.rdbuf();
  return add(text.str());
}

}  // namespace orlo::devices
