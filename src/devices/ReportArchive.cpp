#include "devices/ReportArchive.h"

#include <sys/stat.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <fstream>

#include "devices/DeviceImage.h"
#include "devices/RegularFile.h"
#include "orlo/core/OwnStatuses.h"
#include "orlo/core/Strings.h"

namespace orlo::devices {

namespace {

const std::string kDrives = "drives/";
const std::string kImageAttributes = std::string("/image/") + DeviceImage::kAttributesFile;

// A regular file named like an archive, or one that starts as a zip archive does.
bool isArchive(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return false;
  const std::string zip = ".zip";
  if (path.size() >= zip.size() &&
      core::strings::iequals(path.substr(path.size() - zip.size()), zip)) {
    return true;
  }
  char start[4] = {};
  std::ifstream file(path, std::ios::binary);
  file.read(start, sizeof start);
  return file &&
         (std::memcmp(start, "PK\x03\x04", 4) == 0 || std::memcmp(start, "PK\x05\x06", 4) == 0);
}

std::string zipError(zip_t* archive) {
  return zip_error_strerror(zip_get_error(archive));
}

// The index and the serial number of a drive's folder, "drives/<index>-<serial>".
std::pair<std::string, std::string> driveOf(const std::string& folder) {
  const std::string name = folder.substr(kDrives.size());
  const std::size_t dash = name.find('-');
  if (dash == std::string::npos) return {name, ""};
  return {name.substr(0, dash), name.substr(dash + 1)};
}

}  // namespace

ReportArchive::ReportArchive(std::string path, zip_t* archive)
    : path_(std::move(path)), archive_(archive) {}

core::Status ReportArchive::open(const std::string& path, std::shared_ptr<ReportArchive>& archive) {
  int error = 0;
  zip_t* opened = zip_open(path.c_str(), ZIP_RDONLY | ZIP_CHECKCONS, &error);
  if (opened == nullptr) {
    zip_error_t why;
    zip_error_init_with_code(&why, error);
    const std::string text = zip_error_strerror(&why);
    zip_error_fini(&why);
    return core::badReport(path, "it cannot be read as a zip archive (" + text + ").");
  }
  archive.reset(new ReportArchive(path, opened));
  return core::Status::success();
}

core::Status ReportArchive::read(const std::string& name, std::size_t limit, std::string& bytes,
                                 bool& found) const {
  bytes.clear();
  const zip_int64_t index = zip_name_locate(archive_.get(), name.c_str(), 0);
  found = index >= 0;
  if (!found) return core::Status::success();
  const std::string where = path_ + ":" + name;
  zip_stat_t stat;
  if (zip_stat_index(archive_.get(), static_cast<zip_uint64_t>(index), 0, &stat) == 0 &&
      (stat.valid & ZIP_STAT_SIZE) != 0 && stat.size > limit) {
    return fileTooLarge(where, limit);
  }
  zip_file_t* file = zip_fopen_index(archive_.get(), static_cast<zip_uint64_t>(index), 0);
  if (file == nullptr) {
    return core::badReport(path_, name + " cannot be read (" + zipError(archive_.get()) + ").");
  }
  // One byte beyond the limit tells an entry that is larger than its header says.
  bytes.resize(limit + 1);
  std::size_t got = 0;
  zip_int64_t read = 0;
  while (got < bytes.size() &&
         (read = zip_fread(file, bytes.data() + got, bytes.size() - got)) > 0) {
    got += static_cast<std::size_t>(read);
  }
  const std::string failure = read < 0 ? zip_error_strerror(zip_file_get_error(file)) : "";
  zip_fclose(file);
  bytes.resize(got);
  if (read < 0) return core::badReport(path_, name + " cannot be read (" + failure + ").");
  if (got > limit) return fileTooLarge(where, limit);
  return core::Status::success();
}

std::vector<std::string> ReportArchive::driveFolders() const {
  std::vector<std::string> folders;
  const zip_int64_t count = zip_get_num_entries(archive_.get(), 0);
  for (zip_int64_t i = 0; i < count; ++i) {
    const char* entry = zip_get_name(archive_.get(), static_cast<zip_uint64_t>(i), 0);
    if (entry == nullptr) continue;
    const std::string name = entry;
    if (name.size() <= kDrives.size() + kImageAttributes.size() ||
        name.compare(0, kDrives.size(), kDrives) != 0 ||
        name.compare(name.size() - kImageAttributes.size(), std::string::npos, kImageAttributes) !=
            0) {
      continue;
    }
    const std::string folder = name.substr(0, name.size() - kImageAttributes.size());
    if (folder.find('/', kDrives.size()) == std::string::npos) folders.push_back(folder);
  }
  std::sort(folders.begin(), folders.end(), [](const std::string& a, const std::string& b) {
    return std::strtoull(driveOf(a).first.c_str(), nullptr, 10) <
           std::strtoull(driveOf(b).first.c_str(), nullptr, 10);
  });
  return folders;
}

bool namesReport(const std::string& ssd) {
  if (isArchive(ssd)) return true;
  const std::size_t colon = ssd.rfind(':');
  return colon != std::string::npos && isArchive(ssd.substr(0, colon));
}

core::Status chooseReportImage(const std::string& ssd, std::optional<DeviceImage>& image) {
  const std::size_t colon = ssd.rfind(':');
  const bool chosen = !isArchive(ssd);
  const std::string report = chosen ? ssd.substr(0, colon) : ssd;
  const std::string choice = chosen ? ssd.substr(colon + 1) : "";
  std::shared_ptr<ReportArchive> archive;
  const core::Status opened = ReportArchive::open(report, archive);
  if (!core::succeeded(opened)) return opened;
  const std::vector<std::string> folders = archive->driveFolders();
  if (folders.empty()) return core::badReport(report, "it holds no drive's device image.");
  std::string choices;
  for (const std::string& folder : folders) {
    const auto [index, serial] = driveOf(folder);
    choices += (choices.empty() ? "" : ", ") + index + (serial.empty() ? "" : " (" + serial + ")");
  }
  if (!chosen && folders.size() > 1) return core::driveNotChosen(report, choices);
  for (const std::string& folder : folders) {
    const auto [index, serial] = driveOf(folder);
    if (!chosen || choice == index || (!serial.empty() && choice == serial)) {
      image.emplace(archive, folder + "/image");
      return core::Status::success();
    }
  }
  return core::noDriveMatches(ssd, "the report holds the drives " + choices + ".");
}

}  // namespace orlo::devices
