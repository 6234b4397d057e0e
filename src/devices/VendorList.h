#pragma once

#include <cstddef>
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
  // A list is a few lines; more than this is no list but a mistaken file.
  static constexpr std::size_t kFileLimit = 64 * 1024;

  // Our code noVendorListed: a list that names no identifier, which would leave
  // every drive another vendor's without saying so.
  static core::Status namesNoVendor();
  // Our code notVendorId: a word of a list that is no 16-bit hexadecimal number.
  static core::Status notVendorId(const std::string& word);

  // Adds the identifiers of a text: hexadecimal numbers with or without "0x",
  // separated by commas, blanks or line ends; "#" starts a comment to the end of
  // its line. On a word that is not a 16-bit number, or a text without any
  // number, nothing is added.
  core::Status add(const std::string& text);
  // The same for the text of a regular file of at most kFileLimit bytes.
  core::Status addFile(const std::string& path);

  bool contains(uint16_t vendorId) const { return ids_.count(vendorId) > 0; }
  bool empty() const { return ids_.empty(); }

 private:
  std::set<uint16_t> ids_;
};

}  // namespace orlo::devices
