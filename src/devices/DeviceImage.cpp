#include "devices/DeviceImage.h"

#include <fstream>
#include <system_error>
#include <utility>

#include "devices/RegularFile.h"
#include "orlo/core/PropertyDescriptors.h"

namespace orlo::devices {

namespace {

namespace properties = core::properties;

// The device properties an image may state, in the order in which they are written.
core::Attribute (*const kDeviceProperties[])() = {
    properties::serialNumber,
    properties::modelNumber,
    properties::firmware,
    properties::product,
    properties::oem,
    properties::namespaceId,
    properties::nvme1Point1OrGreater,
    properties::nvme1Point2OrGreater,
    properties::nvme1Point3OrGreater,
    properties::nvme1Point4OrGreater,
    properties::nvme2Point0OrGreater,
    properties::namespaceManagementSupported,
    properties::uuidSupported,
    properties::supportCommandEffectsLogEnhancements,
    properties::ocpSupported,
    properties::isCommandPathNVMeMSFT,
    properties::csmi,
    properties::veldra,
    properties::veldraNVMe,
};

core::Status imageProblem(const std::filesystem::path& file, const std::string& what) {
  core::Status problem = core::Status::openFileFailed();
  problem.setMessage("Device image " + file.string() + ": " + what);
  return problem;
}

}  // namespace

DeviceImage::DeviceImage(std::filesystem::path directory) : directory_(std::move(directory)) {}

bool DeviceImage::exists() const {
  std::error_code error;
  return std::filesystem::is_regular_file(directory_ / kAttributesFile, error);
}

core::Status DeviceImage::readAttributes(std::string& protocol,
                                         core::AttributeCollection& attributes) const {
  const std::filesystem::path path = directory_ / kAttributesFile;
  std::ifstream file(path);
  if (!file) return imageProblem(path, "cannot be read.");
  protocol.clear();
  std::string line;
  for (int number = 1; std::getline(file, line); ++number) {
    if (line.empty() || line[0] == '#') continue;
    const std::string where = "line " + std::to_string(number) + ": ";
    const std::size_t equals = line.find('=');
    if (equals == std::string::npos) return imageProblem(path, where + "expected Name=value.");
    const std::string name = line.substr(0, equals);
    const std::string value = line.substr(equals + 1);
    if (name == "Protocol") {
      if (value != "NVME" && value != "ATA") {
        return imageProblem(path, where + "the protocol is NVME or ATA.");
      }
      protocol = value;
      continue;
    }
    bool known = false;
    for (const auto descriptor : kDeviceProperties) {
      core::Attribute attribute = descriptor();
      if (attribute.name != name) continue;
      known = true;
      if (!core::succeeded(attribute.setValue(value))) {
        return imageProblem(path, where + "\"" + value + "\" is no " + attribute.type + ".");
      }
      attributes.add(attribute);
    }
    if (!known) return imageProblem(path, where + "no device attribute is named " + name + ".");
  }
  if (protocol.empty()) return imageProblem(path, "it names no Protocol.");
  return core::Status::success();
}

core::Status DeviceImage::writeAttributes(const std::string& protocol,
                                          const core::AttributeCollection& attributes) const {
  std::error_code error;
  std::filesystem::create_directories(directory_, error);
  const std::filesystem::path path = directory_ / kAttributesFile;
  std::ofstream file(path, std::ios::trunc);
  file << "Protocol=" << protocol << "\n";
  for (const auto descriptor : kDeviceProperties) {
    const core::Attribute attribute = descriptor();
    if (core::hasAttribute(attributes, attribute)) {
      file << attribute.name << "=" << core::readOrDefault(attributes, attribute).asString()
           << "\n";
    }
  }
  file.close();
  if (!file) return imageProblem(path, "cannot be written.");
  return core::Status::success();
}

core::Status DeviceImage::readReply(const std::string& name, std::string& bytes,
                                    bool& found) const {
  const std::filesystem::path path = directory_ / name;
  std::error_code error;
  found = std::filesystem::exists(std::filesystem::symlink_status(path, error));
  return found ? readRegularFile(path, kReplyLimit, bytes) : core::Status::success();
}

core::Status DeviceImage::writeReply(const std::string& name, const core::Payload& data) const {
  const std::filesystem::path path = directory_ / name;
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  if (data.size() > 0) file.write(reinterpret_cast<const char*>(data.data()), data.size());
  file.close();
  if (!file) return imageProblem(path, "cannot be written.");
  return core::Status::success();
}

}  // namespace orlo::devices
