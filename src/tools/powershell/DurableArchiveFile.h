#pragma once

#include <sys/types.h>
#include <zip.h>

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>

#include "ProgressLine.h"

namespace orlo::tools::powershell {

// The archive file as libzip reads and writes it. libzip reads the old archive
// through it and writes the new one into a temporary file beside it; on commit
// the temporary file is flushed to disk, renamed over the archive and the
// folder is flushed too, so that a crash at any instant leaves either the old
// archive or the new one. libzip's own file source renames without flushing.
// It refuses to remove the archive: an update never deletes it.
//
// When libzip keeps the start of the old archive as it is (all of it up to the
// first entry it changes, which for an update that only adds is every entry),
// that part is cloned into the temporary file rather than written again: on a
// file system that shares extents the kernel only links them, elsewhere it
// copies them itself. The new archive keeps the old one's owner, group and
// mode.
class DurableArchiveFile {
 public:
  // Every byte put into the new archive counts on `progress`.
  DurableArchiveFile(std::filesystem::path file, ProgressLine& progress);
  ~DurableArchiveFile();
  DurableArchiveFile(const DurableArchiveFile&) = delete;
  DurableArchiveFile& operator=(const DurableArchiveFile&) = delete;

  // A libzip source on the file; this object must outlive it.
  zip_source_t* makeSource(zip_error_t* error);

  // The size of the old archive once libzip has opened it; 0 before, or when
  // there is none.
  zip_uint64_t oldSize() const { return inputSize_; }

 private:
  static zip_int64_t dispatch(void* self, void* data, zip_uint64_t length,
                              zip_source_cmd_t command);
  zip_int64_t fail(int zipError, int systemError);
  zip_int64_t readAhead(zip_uint64_t offset, zip_uint64_t wanted);

  bool haveInput();
  zip_int64_t openForReading();
  zip_int64_t stat(void* data, zip_uint64_t length);
  zip_int64_t read(void* data, zip_uint64_t length);
  zip_int64_t seek(void* data, zip_uint64_t length);
  zip_int64_t beginWrite();
  zip_int64_t beginWriteCloning(zip_uint64_t length);
  zip_int64_t createTemporary(int& descriptor);
  int cloneStart(int descriptor, zip_uint64_t length);
  int copyDirect(zip_uint64_t length, loff_t& copied);
  zip_int64_t startOutput(int descriptor);
  zip_int64_t write(const void* data, zip_uint64_t length);
  zip_int64_t seekWrite(void* data, zip_uint64_t length);
  zip_int64_t tellWrite();
  zip_int64_t commitWrite();
  void rollbackWrite();

  std::filesystem::path file_;
  ProgressLine& progress_;
  zip_error_t error_;
  int input_ = -1;  // the old archive, opened on first use
  zip_uint64_t inputSize_ = 0;
  zip_uint64_t inputOffset_ = 0;
  // libzip reads the old archive 8 KiB at a time; reading ahead in large blocks
  // saves most of the system calls.
  std::unique_ptr<char[]> inputBuffer_;
  zip_uint64_t bufferStart_ = 0;   // where in the file inputBuffer_ begins
  zip_uint64_t bufferLength_ = 0;  // how much of inputBuffer_ holds file data
  std::size_t readAhead_ = 0;      // the length of the last block read
  mode_t inputMode_ = 0;
  uid_t inputOwner_ = 0;
  gid_t inputGroup_ = 0;
  std::FILE* output_ = nullptr;           // the temporary file while writing
  std::unique_ptr<char[]> outputBuffer_;  // output_'s; stdio sizes only a buffer it is given
  std::string temporary_;
};

}  // namespace orlo::tools::powershell
