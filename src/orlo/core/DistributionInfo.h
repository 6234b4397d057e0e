#pragma once

#include <string>

namespace orlo::core {

// The name and version of an operating system's distribution, empty where the
// platform has no such thing.
struct DistributionInfo {
  std::string name;
  std::string version;
};

}  // namespace orlo::core
