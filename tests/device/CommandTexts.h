#pragma once

#include <string>

#include "orlo/core/Command.h"
#include "orlo/core/xml/XmlObject.h"
#include "support/ScratchDirectory.h"

// A command's XML form written out, and the expected texts kept beside the tests.
inline std::string xmlOf(const orlo::core::Command& command) {
  std::string out;
  command.toXml()->write(out);
  return out;
}

inline std::string expectedText(const std::string& name) {
  return orlo::testing::readFile(ORLO_TEST_DATA_DIR "/device/" + name);
}
