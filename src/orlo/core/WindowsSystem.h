#pragma once

#ifdef _WIN32

#include <string>

#include "orlo/core/System.h"

namespace orlo::core {

// System on Windows: the device tree is enumerated again from its root node, a
// WinPE key in the registry tells a pre-installation environment, and the kernel's
// version is the product version of kernel32.dll. Windows has no distributions.
class WindowsSystem final : public System {
 public:
  Status rescan() const override;
  std::string getOperatingSystem() const override;
  std::string getDistribution(DistributionInfo& info) const override;
  std::string getVersion() const override;
  bool matchesPlatform(std::string name) const override;
};

}  // namespace orlo::core

#endif
