#pragma once

#include <algorithm>
#include <sstream>
#include <string>

#include "orlo/core/xml/XmlObject.h"
#include "support/ScratchDirectory.h"

namespace orlo::testing {

// The contents of a file under tests/data, named from there ("device/nvme_identify.txt").
inline std::string testData(const std::string& name) {
  return readFile(std::string(ORLO_TEST_DATA_DIR) + "/" + name);
}

// An expected tree kept under tests/data one element a line, indented for the reader;
// the writer puts it on one line.
inline std::string expectedXml(const std::string& name) {
  std::istringstream lines(testData(name));
  std::string joined;
  for (std::string line; std::getline(lines, line);) {
    joined += line.substr(std::min(line.find('<'), line.size()));
  }
  return joined;
}

// The XML text of an element, as the writer gives it.
inline std::string xmlText(const core::xml::XmlElement& element) {
  std::string out;
  element.write(out);
  return out;
}

}  // namespace orlo::testing
