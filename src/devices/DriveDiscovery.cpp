#include "devices/DriveDiscovery.h"

#include <algorithm>
#include <fstream>
#include <optional>
#include <sstream>
#include <system_error>

#include "devices/AtaPassThrough.h"
#include "devices/DriveAttributes.h"
#include "devices/SataDevice.h"
#include "orlo/commands/ata/IdentifyDevice.h"
#include "orlo/core/LittleEndian.h"
#include "orlo/core/PropertyDescriptors.h"
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

// The IDENTIFY DEVICE data that libata keeps of the disk whose SCSI device folder is
// `device`: the words of class/ata_device/devP.D/id, P the number of the "ataP" port
// above the SCSI device and D its SCSI target, the device on the port; behind a port
// multiplier devP.C.0, C the SCSI channel, the multiplier's port. Nothing when the
// kernel shows no such file or it holds too few words.
std::optional<core::Payload> ataIdentifyData(const fs::path& sysRoot, const fs::path& device) {
  std::error_code error;
  const fs::path real = fs::canonical(device, error);
  if (error) return std::nullopt;
  std::string port;
  for (const fs::path& part : real) {
    const std::string name = part.string();
    if (name.compare(0, 3, "ata") == 0 && allDigits(name.substr(3))) port = name.substr(3);
  }
  // The SCSI address of the device: host:channel:target:lun.
  std::vector<std::string> address = core::strings::split(real.filename().string(), ":");
  if (port.empty() || address.size() != 4) return std::nullopt;
  const std::string name =
      address[1] == "0" ? "dev" + port + "." + address[2] : "dev" + port + "." + address[1] + ".0";
  std::ifstream words(sysRoot / "class" / "ata_device" / name / "id");
  core::Payload data(ataTransferLength(commands::ata::IdentifyDevice()));
  uint32_t at = 0;
  for (unsigned word = 0; at < data.size() && words >> std::hex >> word; at += 2) {
    data[at + 1];  // throws when the word runs past the data
    core::le::write(data.data() + at, 2, word);
  }
  if (at < data.size()) return std::nullopt;
  return data;
}

core::Status openSataDisk(const std::string& node, std::shared_ptr<core::Device>& device) {
  std::shared_ptr<SataDevice> sata;
  const core::Status status = SataDevice::open(node, sata);
  device = sata;
  return status;
}

// Model, serial number and firmware of a SATA disk, from its own IDENTIFY DEVICE data.
void identifyAtaDisk(DriveEntry& drive, const fs::path& sysRoot, const fs::path& device,
                     const DriveOpener& openAta) {
  core::AttributeCollection attributes;
  if (const std::optional<core::Payload> data = ataIdentifyData(sysRoot, device)) {
    setAtaAttributes(attributes, *data);
  } else {
    std::shared_ptr<core::Device> disk;
    const DriveOpener& open = openAta ? openAta : DriveOpener(openSataDisk);
    if (!core::succeeded(open(drive.path, disk))) return;
    attributes = disk->attributes;
  }
  drive.model = core::readString(attributes, core::properties::modelNumber());
  drive.serial = core::readString(attributes, core::properties::serialNumber());
  drive.firmware = core::readString(attributes, core::properties::firmware());
}

}  // namespace

std::vector<DriveEntry> discoverDrives(const fs::path& sysRoot, const DriveOpener& openAta) {
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
    DriveEntry drive{0, "/dev/" + name, "ATA", "", readText(device / "vpd_pg80", 4), ""};
    identifyAtaDisk(drive, sysRoot, device, openAta);
    drives.push_back(drive);
  }
  for (std::size_t i = 0; i < drives.size(); ++i) drives[i].index = static_cast<uint32_t>(i);
  return drives;
}

std::string drivePlaces(const fs::path& sysRoot) {
  return "NVMe controllers in " + nvmeFolder(sysRoot).string() + " and SATA disks in " +
         diskFolder(sysRoot).string();
}

}  // namespace orlo::devices
