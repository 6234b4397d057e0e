#pragma once

#include <filesystem>
#include <string>

#include "orlo/core/System.h"

namespace orlo::core {

// System on Linux: the distribution comes from os-release, the kernel's version from
// uname, and a rescan is a write to the PCI bus's rescan file in sysfs.
class LinuxSystem final : public System {
 public:
  // `root` is the top of the file system tree in which os-release and sysfs are found.
  explicit LinuxSystem(std::filesystem::path root = "/");

  Status rescan() const override;
  std::string getOperatingSystem() const override;
  std::string getDistribution(DistributionInfo& info) const override;
  std::string getVersion() const override;
  bool matchesPlatform(std::string name) const override;

 private:
  std::filesystem::path root_;
};

}  // namespace orlo::core
