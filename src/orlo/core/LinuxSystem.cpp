#ifndef _WIN32

#include "orlo/core/LinuxSystem.h"

#include <fcntl.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <boost/algorithm/string/predicate.hpp>
#include <fstream>
#include <locale>
#include <utility>

#include "orlo/core/Logging.h"

namespace orlo::core {

namespace {

// The value of one os-release assignment, without the quotes around it.
std::string unquote(const std::string& value) {
  if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
      value.back() == value.front()) {
    return value.substr(1, value.size() - 2);
  }
  return value;
}

}  // namespace

LinuxSystem::LinuxSystem(std::filesystem::path root) : root_(std::move(root)) {}

Status LinuxSystem::rescan() const {
  // The file exists only where the kernel offers the rescan, so it is never created.
  const std::string path = (root_ / "sys/bus/pci/rescan").string();
  const int file = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
  bool written = false;
  if (file >= 0) {
    written = ::write(file, "1", 1) == 1;
    written = ::close(file) == 0 && written;
  }
  return written ? Status::success() : Status(39, "System rescan failed.");
}

std::string LinuxSystem::getOperatingSystem() const {
  return "Linux";
}

std::string LinuxSystem::getDistribution(DistributionInfo& info) const {
  info.name.clear();
  info.version.clear();
  // /etc/os-release is the first choice, /usr/lib/os-release its standard fallback.
  std::ifstream file(root_ / "etc/os-release");
  if (!file) file.open(root_ / "usr/lib/os-release");
  std::string line;
  while (std::getline(file, line)) {
    const auto equals = line.find('=');
    if (equals == std::string::npos) continue;
    const std::string key = line.substr(0, equals);
    if (key == "NAME") info.name = unquote(line.substr(equals + 1));
    if (key == "VERSION_ID") info.version = unquote(line.substr(equals + 1));
  }
  return info.name;
}

std::string LinuxSystem::getVersion() const {
  static std::string version;
  if (version.empty()) {
    struct utsname names {};
    if (::uname(&names) == 0) version = names.release;
  }
  ORLO_LOG(info, "Kernel Version = " << version);
  return version;
}

bool LinuxSystem::matchesPlatform(std::string name) const {
  DistributionInfo info;
  getDistribution(info);
  return boost::algorithm::iequals(name, info.name, std::locale());
}

}  // namespace orlo::core

#endif
