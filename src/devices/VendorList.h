#pragma once

#include <cstdint>
#include <set>
#include <string>

#include "orlo/core/Status.h"

namespace orlo::devices {

// The PCI vendor identifiers that make a drive one of the toolkit maker's own
// (the Veldra and VeldraNVMe attributes). Empty unless a configuration file or a
// flag fills it, so that by default no drive is taken for one of the maker's.
class VendorList {
 public:
  // Adds the identifiers of a text: hexadecimal numbers with or without "0x",
  // separated by commas, blanks or line ends; "#" starts a comment to the end of
  // its line. On a word that is not a 16-bit number nothing is added.
  core::Status add(const std::string& text);
  // The same for the text of a file.
  core::Status addFile(const std::string& path);

  bool contains(uint16_t vendorId) const { return ids_.count(vendorId) > 0; }
  bool empty() const { return ids_.empty(); }

 private:
  std::set<uint16_t> ids_;
};

}  // namespace orlo::devices
