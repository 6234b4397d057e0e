#pragma once

#include <zip.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "orlo/core/Status.h"

namespace orlo::devices {

class DeviceImage;

// An incident report that `orlo report` wrote, read in place through libzip: each drive's
// device image is the folder drives/<index>-<serial>/image in it. Every read is bounded
// by the reader's limit, whatever the archive says of its entries' sizes.
class ReportArchive {
 public:
  // Opens the zip archive at `path`, checked for consistency; badReport when it is none.
  static core::Status open(const std::string& path, std::shared_ptr<ReportArchive>& archive);

  // The entry `name` in `bytes`, with `found` false when there is none. An entry of more
  // than `limit` bytes gives fileTooLarge; one that cannot be read (damaged, encrypted,
  // compressed in a way libzip does not know) gives badReport.
  core::Status read(const std::string& name, std::size_t limit, std::string& bytes,
                    bool& found) const;

  // The drives' folders, "drives/<index>-<serial>", of the images in the archive, in the
  // order of their indexes.
  std::vector<std::string> driveFolders() const;

  const std::string& path() const { return path_; }

 private:
  struct Closer {
    void operator()(zip_t* archive) const { zip_discard(archive); }
  };

  ReportArchive(std::string path, zip_t* archive);

  std::string path_;
  std::unique_ptr<zip_t, Closer> archive_;
};

// Whether `ssd` names an incident report: a regular file whose name ends in ".zip" (in
// any case) or that starts as a zip archive does, alone or followed by ":" and the choice
// of a drive in it.
bool namesReport(const std::string& ssd);

// The device image in the report that `ssd` names of the drive chosen after its ":", by
// the index or the serial number of the drive's folder; without a choice, the report's
// only drive. A report with several drives and no choice gives driveNotChosen, which
// lists them; a choice that matches no drive gives noDriveMatches.
core::Status chooseReportImage(const std::string& ssd, std::optional<DeviceImage>& image);

}  // namespace orlo::devices
