#pragma once

#include <sys/types.h>
#include <zip.h>

#include <deque>
#include <filesystem>
#include <future>
#include <memory>

#include "BlockDeflater.h"
#include "DeflateWorkers.h"
#include "ProgressLine.h"

namespace orlo::tools::powershell {

// A file's contents as one raw deflate stream, deflated a block at a time on
// the worker threads (see BlockDeflater), starting as soon as the source exists
// so that the deflating overlaps libzip's copying of the entries before it. The
// stream is within a fraction of a percent of the size of one deflated in one
// go. libzip takes the data as already compressed, with the CRC and sizes this
// source reports, and stores it as it is. A file of one block is deflated on
// the thread that reads it: threads would cost more than they save.
//
// libzip decides before the data whether the entry needs Zip64, from the
// plain size and its own bound for deflate; the blocks' flush markers can
// take a file just under 4 GiB past that bound. So where our own bound passes
// 4 GiB, the plain size is kept from libzip until the end, which makes it
// write Zip64 fields.
class ParallelDeflateSource {
 public:
  // A source on the file, or nullptr with `error` set. zlibLevel is 1 to 9. An
  // empty file gets libzip's own file source. Deflating starts at once, before
  // the source is added to an archive. The file's bytes count on `progress` as
  // they are deflated.
  static zip_source_t* create(const std::filesystem::path& file, int zlibLevel,
                              DeflateWorkers& workers, ProgressLine& progress, zip_error_t* error);
  ~ParallelDeflateSource();
  ParallelDeflateSource(const ParallelDeflateSource&) = delete;
  ParallelDeflateSource& operator=(const ParallelDeflateSource&) = delete;

 private:
  struct OpenFile;

  ParallelDeflateSource(std::shared_ptr<const OpenFile> file, zip_uint64_t size, mode_t mode,
                        int zlibLevel, DeflateWorkers& workers, ProgressLine& progress);
  static zip_int64_t dispatch(void* self, void* data, zip_uint64_t length,
                              zip_source_cmd_t command);
  zip_int64_t fail(int zipError, int systemError);
  void submit();
  void deflateAhead();
  bool finished() const;
  zip_int64_t open();
  zip_int64_t read(void* data, zip_uint64_t length);
  zip_int64_t stat(void* data, zip_uint64_t length);
  zip_int64_t attributes(void* data, zip_uint64_t length);

  std::shared_ptr<const OpenFile> file_;  // shared with the blocks under way
  zip_uint64_t size_;
  mode_t mode_;
  int level_;
  DeflateWorkers& workers_;
  ProgressLine& progress_;
  bool sizeHidden_;  // until finished, so that libzip writes Zip64 fields
  zip_error_t error_;
  std::deque<std::future<DeflatedBlock>> pending_;  // submitted in file order
  zip_uint64_t submitted_ = 0;                      // plain bytes handed to the workers
  bool allSubmitted_ = false;
  bool opened_ = false;
  DeflatedBlock current_;  // the block being read out
  std::size_t currentOffset_ = 0;
  uLong crc_ = 0;  // of the blocks read out so far
  zip_uint64_t compressedSize_ = 0;
};

}  // namespace orlo::tools::powershell
