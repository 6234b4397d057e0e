#include "ParallelDeflateSource.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace orlo::tools::powershell {

namespace {

// The unit of work for a thread.
constexpr zip_uint64_t kBlockSize = 128 << 10;
// The largest size that a zip entry's 32-bit fields hold.
constexpr zip_uint64_t kZip32Limit = 0xFFFFFFFF;

}  // namespace

struct ParallelDeflateSource::OpenFile {
  explicit OpenFile(int descriptor) : descriptor(descriptor) {}
  ~OpenFile() { close(descriptor); }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  int descriptor;
};

zip_source_t* ParallelDeflateSource::create(const std::filesystem::path& file, int zlibLevel,
                                            DeflateWorkers& workers, ProgressLine& progress,
                                            zip_error_t* error) {
  const int descriptor = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
  struct stat status {};
  if (descriptor < 0 || fstat(descriptor, &status) != 0) {
    zip_error_set(error, ZIP_ER_OPEN, errno);
    if (descriptor >= 0) close(descriptor);
    return nullptr;
  }
  if (status.st_size == 0) {
    // Nothing to deflate: libzip stores an empty file.
    close(descriptor);
    return zip_source_file_create(file.c_str(), 0, -1, error);
  }
  auto* self = new ParallelDeflateSource(std::make_shared<const OpenFile>(descriptor),
                                         static_cast<zip_uint64_t>(status.st_size), status.st_mode,
                                         zlibLevel, workers, progress);
  zip_source_t* source = zip_source_function_create(&ParallelDeflateSource::dispatch, self, error);
  if (source == nullptr) {
    delete self;
    return nullptr;
  }
  self->deflateAhead();
  return source;
}

ParallelDeflateSource::ParallelDeflateSource(std::shared_ptr<const OpenFile> file,
                                             zip_uint64_t size, mode_t mode, int zlibLevel,
                                             DeflateWorkers& workers, ProgressLine& progress)
    : file_(std::move(file)),
      size_(size),
      mode_(mode),
      level_(zlibLevel),
      workers_(workers),
      progress_(progress),
      sizeHidden_(BlockDeflater::ofThisThread().bound(size, kBlockSize, zlibLevel) > kZip32Limit) {
  zip_error_init(&error_);
}

ParallelDeflateSource::~ParallelDeflateSource() {
  // Blocks still under way finish on their own; they hold the file open.
  workers_.release(pending_.size());
  zip_error_fini(&error_);
}

zip_int64_t ParallelDeflateSource::dispatch(void* self, void* data, zip_uint64_t length,
                                            zip_source_cmd_t command) {
  auto* source = static_cast<ParallelDeflateSource*>(self);
  switch (command) {
    case ZIP_SOURCE_OPEN:
      return source->open();
    case ZIP_SOURCE_READ:
      return source->read(data, length);
    case ZIP_SOURCE_CLOSE:
      return 0;
    case ZIP_SOURCE_STAT:
      return source->stat(data, length);
    case ZIP_SOURCE_GET_FILE_ATTRIBUTES:
      return source->attributes(data, length);
    case ZIP_SOURCE_ERROR:
      return zip_error_to_data(&source->error_, data, length);
    case ZIP_SOURCE_FREE:
      delete source;
      return 0;
    case ZIP_SOURCE_SUPPORTS:
      return zip_source_make_command_bitmap(
          ZIP_SOURCE_OPEN, ZIP_SOURCE_READ, ZIP_SOURCE_CLOSE, ZIP_SOURCE_STAT, ZIP_SOURCE_ERROR,
          ZIP_SOURCE_FREE, ZIP_SOURCE_SUPPORTS, ZIP_SOURCE_GET_FILE_ATTRIBUTES, -1);
    default:
      return source->fail(ZIP_ER_OPNOTSUPP, 0);
  }
}

zip_int64_t ParallelDeflateSource::fail(int zipError, int systemError) {
  zip_error_set(&error_, zipError, systemError);
  return -1;
}

void ParallelDeflateSource::submit() {
  const zip_uint64_t offset = submitted_;
  const zip_uint64_t length = std::min(kBlockSize, size_ - offset);
  submitted_ += length;
  allSubmitted_ = submitted_ == size_;
  auto task = std::make_shared<std::packaged_task<DeflatedBlock()>>(
      [file = file_, offset, length, last = allSubmitted_, level = level_] {
        return BlockDeflater::ofThisThread().deflate(file->descriptor, offset, length, last, level);
      });
  pending_.push_back(task->get_future());
  if (size_ <= kBlockSize) {
    (*task)();
  } else {
    workers_.post([task] { (*task)(); });
  }
}

void ParallelDeflateSource::deflateAhead() {
  while (!allSubmitted_ && workers_.reserve()) submit();
}

bool ParallelDeflateSource::finished() const {
  return allSubmitted_ && pending_.empty() && currentOffset_ == current_.data.size();
}

zip_int64_t ParallelDeflateSource::open() {
  // libzip reads a new entry's data once; a second reading would find the
  // blocks gone.
  if (opened_) return fail(ZIP_ER_INTERNAL, 0);
  opened_ = true;
  return 0;
}

zip_int64_t ParallelDeflateSource::read(void* data, zip_uint64_t length) {
  auto* out = static_cast<unsigned char*>(data);
  zip_uint64_t done = 0;
  while (done < length) {
    if (currentOffset_ == current_.data.size()) {
      if (pending_.empty()) {
        if (allSubmitted_) break;
        workers_.reserveAnyway();
        submit();
      }
      current_ = pending_.front().get();
      pending_.pop_front();
      workers_.release(1);
      currentOffset_ = 0;
      if (current_.zipError != ZIP_ER_OK) return fail(current_.zipError, current_.systemError);
      crc_ = crc32_combine(crc_, current_.crc, static_cast<z_off_t>(current_.plainSize));
      compressedSize_ += current_.data.size();
      // The deflated bytes count again as libzip writes them.
      progress_.advance(static_cast<zip_int64_t>(current_.plainSize) -
                        static_cast<zip_int64_t>(current_.data.size()));
      deflateAhead();
    }
    const std::size_t count =
        std::min<std::size_t>(length - done, current_.data.size() - currentOffset_);
    std::memcpy(out + done, current_.data.data() + currentOffset_, count);
    currentOffset_ += count;
    done += count;
  }
  return static_cast<zip_int64_t>(done);
}

zip_int64_t ParallelDeflateSource::stat(void* data, zip_uint64_t length) {
  auto* status = ZIP_SOURCE_GET_ARGS(zip_stat_t, data, length, &error_);
  if (status == nullptr) return -1;
  zip_stat_init(status);
  status->comp_method = ZIP_CM_DEFLATE;
  status->valid |= ZIP_STAT_COMP_METHOD;
  if (!sizeHidden_ || finished()) {
    status->size = size_;
    status->valid |= ZIP_STAT_SIZE;
  }
  if (finished()) {
    status->crc = static_cast<zip_uint32_t>(crc_);
    status->comp_size = compressedSize_;
    status->valid |= ZIP_STAT_CRC | ZIP_STAT_COMP_SIZE;
  }
  return sizeof(zip_stat_t);
}

zip_int64_t ParallelDeflateSource::attributes(void* data, zip_uint64_t length) {
  auto* attributes = ZIP_SOURCE_GET_ARGS(zip_file_attributes_t, data, length, &error_);
  if (attributes == nullptr) return -1;
  // As libzip records a file it reads itself: a Unix file with its mode, and
  // the deflate speed in the flag bits as zip tools show it.
  attributes->valid |= ZIP_FILE_ATTRIBUTES_HOST_SYSTEM |
                       ZIP_FILE_ATTRIBUTES_EXTERNAL_FILE_ATTRIBUTES |
                       ZIP_FILE_ATTRIBUTES_GENERAL_PURPOSE_BIT_FLAGS;
  attributes->host_system = ZIP_OPSYS_UNIX;
  attributes->external_file_attributes = static_cast<zip_uint32_t>(mode_) << 16;
  constexpr zip_uint16_t kMaximum = 0x0002;
  constexpr zip_uint16_t kFast = 0x0004;
  attributes->general_purpose_bit_flags = level_ >= 9 ? kMaximum : level_ <= 2 ? kFast : 0;
  attributes->general_purpose_bit_mask = kMaximum | kFast;
  return 0;
}

}  // namespace orlo::tools::powershell
