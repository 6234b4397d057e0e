#include "devices/DeviceImage.h"

#include <cstdlib>
#include <fstream>
#include <map>
#include <sstream>
#include <system_error>
#include <utility>

#include "devices/NvmeProtocolResult.h"
#include "devices/RegularFile.h"
#include "devices/ReportArchive.h"
#include "orlo/commands/ata/Completion.h"
#include "orlo/core/OwnStatuses.h"
#include "orlo/core/PropertyDescriptors.h"
#include "orlo/core/Strings.h"

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

// The fields of a refusal file, in the order in which they are written.
struct RefusalField {
  const char* name;
  uint32_t digits;  // hexadecimal digits of the largest value
};
constexpr RefusalField kNvmeRefusal[] = {{"NvmeStatus", 4}, {"NvmeResult", 8}};
constexpr RefusalField kAtaRefusal[] = {{"AtaStatus", 2}, {"AtaError", 2}};

constexpr std::size_t kRefusalLimit = 4096;
// An attributes file names a few dozen attributes.
constexpr std::size_t kAttributesLimit = 64 * 1024;

std::string refusalName(const std::string& replyName) {
  return std::filesystem::path(replyName).replace_extension(".status").string();
}

template <std::size_t N>
std::string refusalText(const RefusalField (&fields)[N], const uint32_t (&values)[N]) {
  std::string text;
  for (std::size_t i = 0; i < N; ++i) {
    text += std::string(fields[i].name) + "=0x" +
            core::strings::toHex(values[i], fields[i].digits) + "\n";
  }
  return text;
}

// The values of `fields` when `read` holds exactly those names, each with at most
// its digits.
template <std::size_t N>
bool refusalValues(const std::map<std::string, std::string>& read, const RefusalField (&fields)[N],
                   uint32_t (&values)[N]) {
  if (read.size() != N) return false;
  for (std::size_t i = 0; i < N; ++i) {
    const auto found = read.find(fields[i].name);
    if (found == read.end()) return false;
    const std::string& text = found->second;
    if (text.size() < 3 || text.size() - 2 > fields[i].digits || text.compare(0, 2, "0x") != 0 ||
        text.find_first_not_of("0123456789abcdefABCDEF", 2) != std::string::npos) {
      return false;
    }
    values[i] = static_cast<uint32_t>(std::strtoul(text.c_str() + 2, nullptr, 16));
  }
  return true;
}

core::Status imageProblem(const std::filesystem::path& file, const std::string& what) {
  core::Status problem = core::Status::openFileFailed();
  problem.setMessage("Device image " + file.string() + ": " + what);
  return problem;
}

core::Status writeBytes(const std::filesystem::path& path, const char* data, std::size_t size) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  if (size > 0) file.write(data, static_cast<std::streamsize>(size));
  file.close();
  if (!file) return imageProblem(path, "cannot be written.");
  return core::Status::success();
}

}  // namespace

DeviceImage::DeviceImage(std::filesystem::path directory) : directory_(std::move(directory)) {}

DeviceImage::DeviceImage(std::shared_ptr<const ReportArchive> archive, std::filesystem::path folder)
    : directory_(std::move(folder)), archive_(std::move(archive)) {}

std::string DeviceImage::name() const {
  return archive_ ? archive_->path() + ":" + directory_.string() : directory_.string();
}

std::filesystem::path DeviceImage::pathOf(const std::string& name) const {
  return archive_ ? std::filesystem::path(archive_->path() + ":" + (directory_ / name).string())
                  : directory_ / name;
}

core::Status DeviceImage::readFile(const std::string& name, std::size_t limit, std::string& bytes,
                                   bool& found) const {
  if (archive_) return archive_->read((directory_ / name).string(), limit, bytes, found);
  const std::filesystem::path path = directory_ / name;
  std::error_code error;
  found = std::filesystem::exists(std::filesystem::symlink_status(path, error));
  return found ? readRegularFile(path, limit, bytes) : core::Status::success();
}

bool DeviceImage::exists() const {
  std::error_code error;
  return std::filesystem::is_regular_file(directory_ / kAttributesFile, error);
}

core::Status DeviceImage::readAttributes(std::string& protocol,
                                         core::AttributeCollection& attributes) const {
  const std::filesystem::path path = pathOf(kAttributesFile);
  std::string text;
  bool found = false;
  const core::Status read = readFile(kAttributesFile, kAttributesLimit, text, found);
  if (!core::succeeded(read)) return read;
  if (!found) return imageProblem(path, "cannot be read.");
  std::istringstream file(text);
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
  return readFile(name, kReplyLimit, bytes, found);
}

core::Status DeviceImage::writeReply(const std::string& name, const core::Payload& data) const {
  std::error_code error;
  std::filesystem::remove(directory_ / refusalName(name), error);
  return writeBytes(directory_ / name, reinterpret_cast<const char*>(data.data()), data.size());
}

core::Status DeviceImage::readRefusal(const std::string& name,
                                      std::unique_ptr<core::ProtocolResult>& result) const {
  result.reset();
  const std::filesystem::path path = pathOf(refusalName(name));
  std::string text;
  bool found = false;
  const core::Status read = readFile(refusalName(name), kRefusalLimit, text, found);
  if (!core::succeeded(read) || !found) return read;
  std::map<std::string, std::string> fields;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    if (line.empty() || line[0] == '#') continue;
    const std::size_t equals = line.find('=');
    if (equals == std::string::npos ||
        !fields.emplace(line.substr(0, equals), line.substr(equals + 1)).second) {
      return badRefusal(path, "\"" + line + "\" is no field of its own.");
    }
  }
  uint32_t nvme[2] = {};
  uint32_t ata[2] = {};
  if (refusalValues(fields, kNvmeRefusal, nvme)) {
    result = std::make_unique<NvmeProtocolResult>(static_cast<uint16_t>(nvme[0]), nvme[1]);
  } else if (refusalValues(fields, kAtaRefusal, ata)) {
    commands::ata::TaskFile registers;
    registers.command = static_cast<uint8_t>(ata[0]);
    registers.feature = static_cast<uint8_t>(ata[1]);
    result = std::make_unique<commands::ata::Completion>(registers);
  } else {
    return badRefusal(path,
                      "expected NvmeStatus and NvmeResult, or AtaStatus and AtaError, "
                      "each 0x and hexadecimal digits.");
  }
  core::Status refused = core::Status::success();
  result->fillStatus(refused);
  if (core::succeeded(refused)) {
    result.reset();
    return badRefusal(path, "the completion it holds is no failure.");
  }
  return core::Status::success();
}

core::Status DeviceImage::writeRefusal(const std::string& name,
                                       const core::ProtocolResult& result) const {
  std::string text;
  if (const auto* nvme = dynamic_cast<const NvmeProtocolResult*>(&result)) {
    text = refusalText(kNvmeRefusal, {nvme->statusField, nvme->completionDword0});
  } else if (const auto* ata = dynamic_cast<const commands::ata::Completion*>(&result)) {
    text = refusalText(kAtaRefusal, {ata->registers.command, ata->registers.feature});
  } else {
    return core::Status::success();
  }
  std::error_code error;
  std::filesystem::remove(directory_ / name, error);
  return writeBytes(directory_ / refusalName(name), text.data(), text.size());
}

core::Status DeviceImage::badRefusal(const std::filesystem::path& path, const std::string& why) {
  return core::ownStatus(core::OwnCode::badImageRefusal,
                         "Device image " + path.string() + ": " + why);
}

}  // namespace orlo::devices
