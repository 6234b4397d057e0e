#pragma once

#include <zip.h>

#include <map>
#include <string>
#include <vector>

#include "CompressArchiveRequest.h"
#include "DeflateWorkers.h"
#include "Destination.h"
#include "DurableArchiveFile.h"
#include "Error.h"
#include "PlannedEntry.h"
#include "ProgressLine.h"

namespace orlo::tools::powershell {

// Writes planned entries into the archive: an entry whose name equals an
// existing one's without regard to case replaces it, the others are added,
// and the entries not named are copied as they are, never recompressed. The
// old archive is refused when libzip finds it inconsistent or when an entry
// name leaves the extraction folder; any failure leaves it as it was.
class ArchiveUpdater {
 public:
  // How far the write has come shows on `progress`.
  ArchiveUpdater(const ArchiveTarget& target, const CompressArchiveRequest& request,
                 ProgressLine& progress);
  ~ArchiveUpdater();
  ArchiveUpdater(const ArchiveUpdater&) = delete;
  ArchiveUpdater& operator=(const ArchiveUpdater&) = delete;

  Error write(const std::vector<PlannedEntry>& entries);

 private:
  Error prepareSources(const std::vector<PlannedEntry>& entries);
  Error open();
  Error indexExistingEntries();
  Error add(const PlannedEntry& entry, zip_source_t* data);
  Error notWritten();

  const ArchiveTarget& target_;
  const CompressArchiveRequest& request_;
  ProgressLine& progress_;
  DurableArchiveFile file_;
  DeflateWorkers workers_;
  // The new files' data by entry, until libzip takes it; null for a folder.
  std::vector<zip_source_t*> sources_;
  zip_t* archive_ = nullptr;
  // Entry indices by name without regard to case.
  std::map<std::u32string, std::vector<zip_uint64_t>> byName_;
};

}  // namespace orlo::tools::powershell
