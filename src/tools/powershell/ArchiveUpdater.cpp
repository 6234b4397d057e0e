#include "ArchiveUpdater.h"

#include <memory>

#include "DosTime.h"
#include "EntryName.h"
#include "Messages.h"
#include "ParallelDeflateSource.h"

namespace orlo::tools::powershell {

namespace {

struct CompressionRow {
  CompressionLevel level;
  zip_int32_t method;
  zip_uint32_t zlibLevel;
};

constexpr CompressionRow kCompression[] = {
    {CompressionLevel::Optimal, ZIP_CM_DEFLATE, 6},
    {CompressionLevel::Fastest, ZIP_CM_DEFLATE, 1},
    {CompressionLevel::NoCompression, ZIP_CM_STORE, 0},
};

const CompressionRow& compressionFor(CompressionLevel level) {
  for (const auto& row : kCompression) {
    if (row.level == level) return row;
  }
  return kCompression[0];
}

}  // namespace

ArchiveUpdater::ArchiveUpdater(const ArchiveTarget& target, const CompressArchiveRequest& request,
                               ProgressLine& progress)
    : target_(target), request_(request), progress_(progress), file_(target.file, progress) {}

ArchiveUpdater::~ArchiveUpdater() {
  if (archive_ != nullptr) zip_discard(archive_);
  for (zip_source_t* source : sources_) {
    if (source != nullptr) zip_source_free(source);
  }
}

Error ArchiveUpdater::write(const std::vector<PlannedEntry>& entries) {
  // The new files' sources come first, so that their deflating runs while libzip
  // reads and checks the old archive.
  if (Error error = prepareSources(entries)) return error;
  if (Error error = open()) return error;
  if (Error error = indexExistingEntries()) return error;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    zip_source_t* data = sources_[i];
    sources_[i] = nullptr;  // libzip's from here on, or freed by add
    if (Error error = add(entries[i], data)) return error;
  }
  if (zip_close(archive_) != 0) return notWritten();
  archive_ = nullptr;
  return std::nullopt;
}

Error ArchiveUpdater::prepareSources(const std::vector<PlannedEntry>& entries) {
  const CompressionRow& compression = compressionFor(request_.level);
  sources_.assign(entries.size(), nullptr);
  for (std::size_t i = 0; i < entries.size(); ++i) {
    if (entries[i].isFolder()) continue;
    zip_error_t error;
    zip_error_init(&error);
    const std::filesystem::path& file = entries[i].source;
    sources_[i] = compression.method == ZIP_CM_DEFLATE
                      ? ParallelDeflateSource::create(file, static_cast<int>(compression.zlibLevel),
                                                      workers_, progress_, &error)
                      : zip_source_file_create(file.c_str(), 0, -1, &error);
    Error result;
    if (sources_[i] == nullptr) {
      result = messages::archiveNotWritten(target_.shownName, zip_error_strerror(&error));
    }
    zip_error_fini(&error);
    if (result) return result;
  }
  return std::nullopt;
}

Error ArchiveUpdater::open() {
  int flags = ZIP_CREATE | ZIP_EXCL;
  if (target_.exists) flags = request_.force ? ZIP_TRUNCATE : ZIP_CHECKCONS;
  zip_error_t error;
  zip_error_init(&error);
  zip_source_t* source = file_.makeSource(&error);
  if (source != nullptr) archive_ = zip_open_from_source(source, flags, &error);
  Error result;
  if (archive_ == nullptr) {
    zip_source_free(source);
    result = messages::archiveInvalid(target_.shownName, zip_error_strerror(&error));
  }
  zip_error_fini(&error);
  return result;
}

Error ArchiveUpdater::indexExistingEntries() {
  const zip_int64_t count = zip_get_num_entries(archive_, 0);
  // The old entries, their headers and the central directory, to be copied,
  // cloned or written again.
  if (count > 0) progress_.expect(static_cast<zip_int64_t>(file_.oldSize()));
  for (zip_uint64_t index = 0; index < static_cast<zip_uint64_t>(count); ++index) {
    const char* name = zip_get_name(archive_, index, 0);
    if (name == nullptr) {
      return messages::archiveInvalid(target_.shownName, zip_strerror(archive_));
    }
    if (!isSafeEntryName(name)) return messages::archiveEntryUnsafe(target_.shownName, name);
    byName_[foldCase(name)].push_back(index);
  }
  return std::nullopt;
}

Error ArchiveUpdater::add(const PlannedEntry& entry, zip_source_t* data) {
  // libzip owns the data once the entry is added; until then a failure frees it.
  std::unique_ptr<zip_source_t, void (*)(zip_source_t*)> owned(data, zip_source_free);
  // Every old entry with this name in any case goes; new entries that differ
  // from each other in case are all kept.
  const auto replaced = byName_.find(foldCase(entry.name));
  if (replaced != byName_.end()) {
    for (zip_uint64_t index : replaced->second) {
      zip_stat_t status;
      if (zip_stat_index(archive_, index, 0, &status) == 0 && (status.valid & ZIP_STAT_COMP_SIZE)) {
        progress_.expect(-static_cast<zip_int64_t>(status.comp_size));
      }
      if (zip_delete(archive_, index) != 0) return notWritten();
    }
    byName_.erase(replaced);
  }
  const CompressionRow& compression =
      compressionFor(entry.isFolder() ? CompressionLevel::NoCompression : request_.level);
  zip_int64_t index = -1;
  if (entry.isFolder()) {
    index = zip_dir_add(archive_, entry.name.c_str(), ZIP_FL_ENC_UTF_8);
  } else {
    index = zip_file_add(archive_, entry.name.c_str(), owned.get(), ZIP_FL_ENC_UTF_8);
    if (index >= 0) owned.release();
  }
  if (index < 0) return notWritten();
  progress_.expect(static_cast<zip_int64_t>(entry.size));
  const auto position = static_cast<zip_uint64_t>(index);
  if (zip_set_file_compression(archive_, position, compression.method, compression.zlibLevel) !=
          0 ||
      zip_file_set_mtime(archive_, position, clampToDosRange(entry.modified), 0) != 0) {
    return notWritten();
  }
  return std::nullopt;
}

Error ArchiveUpdater::notWritten() {
  return messages::archiveNotWritten(target_.shownName, zip_strerror(archive_));
}

}  // namespace orlo::tools::powershell
