#pragma once

#include <zip.h>

#include <map>
#include <stdexcept>
#include <string>

namespace orlo::testing {

using ZipEntries = std::map<std::string, std::string>;  // entry name to content

// Writes a new archive at `path` holding `entries`.
inline void writeZip(const std::string& path, const ZipEntries& entries) {
  int error = 0;
  zip_t* archive = zip_open(path.c_str(), ZIP_CREATE | ZIP_TRUNCATE, &error);
  if (archive == nullptr) throw std::runtime_error("cannot create " + path);
  for (const auto& [name, content] : entries) {
    zip_source_t* source = zip_source_buffer(archive, content.data(), content.size(), 0);
    zip_file_add(archive, name.c_str(), source, ZIP_FL_OVERWRITE);
  }
  if (zip_close(archive) != 0) throw std::runtime_error("cannot write " + path);
}

// Every entry of the archive at `path`, read back after a consistency check.
inline ZipEntries readZip(const std::string& path) {
  int error = 0;
  zip_t* archive = zip_open(path.c_str(), ZIP_RDONLY | ZIP_CHECKCONS, &error);
  if (archive == nullptr) throw std::runtime_error("cannot open " + path);
  ZipEntries entries;
  for (zip_int64_t i = 0; i < zip_get_num_entries(archive, 0); ++i) {
    zip_stat_t stat;
    zip_stat_index(archive, i, 0, &stat);
    std::string content(stat.size, '\0');
    zip_file_t* file = zip_fopen_index(archive, i, 0);
    zip_fread(file, content.data(), stat.size);
    zip_fclose(file);
    entries[stat.name] = content;
  }
  zip_discard(archive);
  return entries;
}

}  // namespace orlo::testing
