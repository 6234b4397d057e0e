#include "devices/VendorList.h"

#include <sstream>
#include <vector>

#include "devices/RegularFile.h"
#include "orlo/core/OwnStatuses.h"

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
        return notVendorId(word);
      }
      found.push_back(id);
    }
  }
  if (found.empty()) return namesNoVendor();
  ids_.insert(found.begin(), found.end());
  return core::Status::success();
}

core::Status VendorList::notVendorId(const std::string& word) {
  return core::ownStatus(core::OwnCode::notVendorId, "Not a PCI vendor ID: \"" + word + "\".");
}

core::Status VendorList::namesNoVendor() {
  return core::ownStatus(core::OwnCode::noVendorListed, "The list names no PCI vendor ID.");
}

core::Status VendorList::addFile(const std::string& path) {
  std::string text;
  const core::Status read = readRegularFile(path, kFileLimit, text);
  return core::succeeded(read) ? add(text) : read;
}

}  // namespace orlo::devices
