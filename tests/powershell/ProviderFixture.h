#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>
#include <zip.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "support/ScratchDirectory.h"
#include "support/ZipArchive.h"

namespace fs = std::filesystem;
using orlo::testing::readFile;
using orlo::testing::writeZip;

struct ProviderRun {
  int status = -1;
  std::string out;
  std::string err;
};

struct ArchivedEntry {
  std::string data;
  std::string raw;  // as stored, still compressed
  zip_uint16_t method = 0;
  time_t modified = 0;
};

// The whole of a temporary file, which is then closed.
inline std::string readAll(std::FILE* file) {
  std::string text;
  std::rewind(file);
  for (int c; (c = std::fgetc(file)) != EOF;) text.push_back(static_cast<char>(c));
  std::fclose(file);
  return text;
}

inline void writeBytes(const fs::path& path, const std::string& data) {
  fs::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary) << data;
}

// Reads an entry through libzip (which checks its CRC unless `flags` asks for
// the stored bytes) into `data`, when given; returns the number of bytes read.
inline zip_uint64_t readEntry(zip_t* archive, zip_uint64_t index, zip_flags_t flags,
                              std::string* data) {
  static char buffer[1 << 16];
  zip_uint64_t length = 0;
  zip_file_t* file = zip_fopen_index(archive, index, flags);
  for (zip_int64_t got; file != nullptr && (got = zip_fread(file, buffer, sizeof buffer)) > 0;) {
    if (data != nullptr) data->append(buffer, got);
    length += got;
  }
  if (file != nullptr) zip_fclose(file);
  return length;
}

// Every entry of an archive, read back through libzip with its consistency check.
inline std::map<std::string, ArchivedEntry> readArchive(const fs::path& path) {
  std::map<std::string, ArchivedEntry> entries;
  int error = 0;
  zip_t* archive = zip_open(path.c_str(), ZIP_RDONLY | ZIP_CHECKCONS, &error);
  if (archive == nullptr) {
    ADD_FAILURE() << path << " does not open, libzip error " << error;
    return entries;
  }
  for (zip_int64_t index = 0; index < zip_get_num_entries(archive, 0); ++index) {
    zip_stat_t status;
    zip_stat_index(archive, index, 0, &status);
    ArchivedEntry& entry = entries[status.name];
    readEntry(archive, index, 0, &entry.data);
    readEntry(archive, index, ZIP_FL_COMPRESSED, &entry.raw);
    entry.method = status.comp_method;
    entry.modified = status.mtime;
  }
  zip_discard(archive);
  return entries;
}

inline std::set<std::string> namesIn(const std::map<std::string, ArchivedEntry>& entries) {
  std::set<std::string> names;
  for (const auto& entry : entries) names.insert(entry.first);
  return names;
}

inline pid_t startProvider(const std::vector<std::string>& words, const fs::path& folder, int out,
                           int err) {
  const pid_t child = fork();
  if (child == 0) {
    std::vector<char*> argv{const_cast<char*>(ORLO_POWERSHELL_PATH)};
    for (const auto& word : words) argv.push_back(const_cast<char*>(word.c_str()));
    argv.push_back(nullptr);
    if (chdir(folder.c_str()) != 0 || dup2(out, 1) < 0 || dup2(err, 2) < 0) _exit(126);
    execv(argv[0], argv.data());
    _exit(127);
  }
  return child;
}

// A fresh folder per test, in which the provider runs.
class ProviderTest : public ::testing::Test {
 protected:
  ProviderRun run(const std::vector<std::string>& words) {
    std::FILE* out = std::tmpfile();
    std::FILE* err = std::tmpfile();
    ProviderRun result;
    waitpid(startProvider(words, dir, fileno(out), fileno(err)), &result.status, 0);
    result.status = WIFEXITED(result.status) ? WEXITSTATUS(result.status) : -1;
    result.out = readAll(out);
    result.err = readAll(err);
    return result;
  }

  // Runs a command that must succeed quietly.
  void runQuietly(const std::vector<std::string>& words) {
    const ProviderRun result = run(words);
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "");
  }

  std::set<std::string> filesInDir() const {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(dir)) names.insert(entry.path().filename());
    return names;
  }

  orlo::testing::ScratchDirectory scratch;
  const fs::path dir = scratch.path();
};
