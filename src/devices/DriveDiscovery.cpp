#include "devices/DriveDiscovery.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <system_error>

#include "orlo/core/Strings.h"

namespace orlo::devices {

namespace {

namespace fs = std::filesystem;

std::string readText(const fs::path& file, std::size_t skip = 0) {
  std::ifstream stream(file, std::ios::binary);
  std::ostringstream text;
  text << stream.rdbuf();
  const std::string contents = text.str();
  return core::strings::sanitize(contents.size() > skip ? contents.substr(skip) : "");
}

// Names under `folder` that start with `prefix` and go on with a digit (nvme0) or
// a letter (sda), in the kernel's order: shorter names first, then by name.
std::vector<std::string> namesUnder(const fs::path& folder, const std::string& prefix) {
  std::vector<std::string> names;
  std::error_code error;
  for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
    const std::string name = it->path().filename().string();
    if (name.size() > prefix.size() && name.compare(0, prefix.size(), prefix) == 0) {
      names.push_back(name);
    }
  }
  std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
    return a.size() != b.size() ? a.size() < b.size() : a < b;
  });
  return names;
}

bool allDigits(const std::string& text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), ::isdigit);
}

fs::path nvmeFolder(const fs::path& sysRoot) {
  return sysRoot / "class" / "nvme";
}

fs::path diskFolder(const fs::path& sysRoot) {
  return sysRoot / "block";
}

}  // namespace

std::vector<DriveEntry> discoverDrives(const fs::path& sysRoot) {
  std::vector<DriveEntry> drives;
  for (const std::string& name : namesUnder(nvmeFolder(sysRoot), "nvme")) {
    if (!allDigits(name.substr(4))) continue;
    const fs::path controller = nvmeFolder(sysRoot) / name;
    drives.push_back({0, "/dev/" + name, "NVME", readText(controller / "model"),
                      readText(controller / "serial"), readText(controller / "firmware_rev")});
  }
  for (const std::string& name : namesUnder(diskFolder(sysRoot), "sd")) {
    const fs::path device = diskFolder(sysRoot) / name / "device";
    if (readText(device / "vendor") != "ATA") continue;
    // The unit serial number page: a four-byte header, then the serial number.
    drives.push_back({0, "/dev/" + name, "ATA", readText(device / "model"),
                      readText(device / "vpd_pg80", 4), readText(device / "rev")});
  }
  for (std::size_t i = 0; i < drives.size(); ++i) drives[i].index = static_cast<uint32_t>(i);
  return drives;
}

std::string drivePlaces(const fs::path& sysRoot) {
  return "NVMe controllers in " + nvmeFolder(sysRoot).string() + " and SATA disks in " +
         diskFolder(sysRoot).string();
}

}  // namespace orlo::devices
