#include "DurableArchiveFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace orlo::tools::powershell {

namespace {

constexpr std::size_t kOutputBuffer = 1 << 18;
constexpr std::size_t kInputBuffer = 1 << 18;

}  // namespace

DurableArchiveFile::DurableArchiveFile(std::filesystem::path file) : file_(std::move(file)) {
  zip_error_init(&error_);
}

DurableArchiveFile::~DurableArchiveFile() {
  rollbackWrite();
  if (input_ >= 0) close(input_);
  zip_error_fini(&error_);
}

zip_source_t* DurableArchiveFile::makeSource(zip_error_t* error) {
  return zip_source_function_create(&DurableArchiveFile::dispatch, this, error);
}

zip_int64_t DurableArchiveFile::dispatch(void* self, void* data, zip_uint64_t length,
                                         zip_source_cmd_t command) {
  auto& file = *static_cast<DurableArchiveFile*>(self);
  switch (command) {
    case ZIP_SOURCE_OPEN:
      return file.openForReading();
    case ZIP_SOURCE_READ:
      return file.read(data, length);
    case ZIP_SOURCE_CLOSE:
    case ZIP_SOURCE_FREE:
      return 0;
    case ZIP_SOURCE_STAT:
      return file.stat(data, length);
    case ZIP_SOURCE_ERROR:
      return zip_error_to_data(&file.error_, data, length);
    case ZIP_SOURCE_SEEK:
      return file.seek(data, length);
    case ZIP_SOURCE_TELL:
      return static_cast<zip_int64_t>(file.inputOffset_);
    case ZIP_SOURCE_BEGIN_WRITE:
      return file.beginWrite();
    case ZIP_SOURCE_WRITE:
      return file.write(data, length);
    case ZIP_SOURCE_SEEK_WRITE:
      return file.seekWrite(data, length);
    case ZIP_SOURCE_TELL_WRITE:
      return file.tellWrite();
    case ZIP_SOURCE_COMMIT_WRITE:
      return file.commitWrite();
    case ZIP_SOURCE_ROLLBACK_WRITE:
      file.rollbackWrite();
      return 0;
    case ZIP_SOURCE_REMOVE:
      return file.fail(ZIP_ER_OPNOTSUPP, 0);  // an update never deletes the archive
    case ZIP_SOURCE_ACCEPT_EMPTY:
      return 0;  // an empty file is not an archive
    case ZIP_SOURCE_SUPPORTS:
      // libzip writes only to a source that also offers removal.
      return zip_source_make_command_bitmap(
          ZIP_SOURCE_OPEN, ZIP_SOURCE_READ, ZIP_SOURCE_CLOSE, ZIP_SOURCE_STAT, ZIP_SOURCE_ERROR,
          ZIP_SOURCE_FREE, ZIP_SOURCE_SEEK, ZIP_SOURCE_TELL, ZIP_SOURCE_SUPPORTS,
          ZIP_SOURCE_BEGIN_WRITE, ZIP_SOURCE_WRITE, ZIP_SOURCE_SEEK_WRITE, ZIP_SOURCE_TELL_WRITE,
          ZIP_SOURCE_COMMIT_WRITE, ZIP_SOURCE_ROLLBACK_WRITE, ZIP_SOURCE_REMOVE,
          ZIP_SOURCE_ACCEPT_EMPTY, -1);
    default:
      return file.fail(ZIP_ER_OPNOTSUPP, 0);
  }
}

zip_int64_t DurableArchiveFile::fail(int zipError, int systemError) {
  zip_error_set(&error_, zipError, systemError);
  return -1;
}

bool DurableArchiveFile::haveInput() {
  if (input_ >= 0) return true;
  input_ = open(file_.c_str(), O_RDONLY | O_CLOEXEC);
  struct stat status {};
  if (input_ < 0) return false;
  if (fstat(input_, &status) != 0) {
    const int problem = errno;
    close(input_);
    input_ = -1;
    errno = problem;
    return false;
  }
  inputSize_ = static_cast<zip_uint64_t>(status.st_size);
  inputMode_ = status.st_mode & 07777;
  return true;
}

zip_int64_t DurableArchiveFile::openForReading() {
  if (!haveInput()) return fail(ZIP_ER_OPEN, errno);
  inputOffset_ = 0;
  return 0;
}

zip_int64_t DurableArchiveFile::stat(void* data, zip_uint64_t length) {
  auto* status = ZIP_SOURCE_GET_ARGS(zip_stat_t, data, length, &error_);
  if (status == nullptr) return -1;
  // libzip takes a read error with ENOENT as "no archive yet".
  if (!haveInput()) return fail(ZIP_ER_READ, errno);
  zip_stat_init(status);
  status->size = inputSize_;
  status->valid |= ZIP_STAT_SIZE;
  return sizeof(zip_stat_t);
}

zip_int64_t DurableArchiveFile::read(void* data, zip_uint64_t length) {
  auto* out = static_cast<char*>(data);
  zip_uint64_t done = 0;
  while (done < length) {
    const zip_uint64_t offset = inputOffset_ + done;
    if (offset < bufferStart_ || offset >= bufferStart_ + bufferLength_) {
      const zip_int64_t got = readAhead(offset);
      if (got < 0) return got;
      if (got == 0) break;
    }
    const zip_uint64_t from = offset - bufferStart_;
    const zip_uint64_t count = std::min(length - done, bufferLength_ - from);
    std::memcpy(out + done, inputBuffer_.data() + from, count);
    done += count;
  }
  inputOffset_ += done;
  return static_cast<zip_int64_t>(done);
}

zip_int64_t DurableArchiveFile::readAhead(zip_uint64_t offset) {
  inputBuffer_.resize(kInputBuffer);
  bufferStart_ = offset;
  bufferLength_ = 0;
  while (bufferLength_ < inputBuffer_.size()) {
    const ssize_t got =
        pread(input_, inputBuffer_.data() + bufferLength_, inputBuffer_.size() - bufferLength_,
              static_cast<off_t>(offset + bufferLength_));
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return fail(ZIP_ER_READ, errno);
    if (got == 0) break;
    bufferLength_ += static_cast<zip_uint64_t>(got);
  }
  return static_cast<zip_int64_t>(bufferLength_);
}

zip_int64_t DurableArchiveFile::seek(void* data, zip_uint64_t length) {
  const zip_int64_t offset =
      zip_source_seek_compute_offset(inputOffset_, inputSize_, data, length, &error_);
  if (offset < 0) return -1;
  inputOffset_ = static_cast<zip_uint64_t>(offset);
  return 0;
}

zip_int64_t DurableArchiveFile::beginWrite() {
  temporary_ = file_.string() + ".XXXXXX";
  const int descriptor = mkostemp(temporary_.data(), O_CLOEXEC);
  if (descriptor < 0) return fail(ZIP_ER_TMPOPEN, errno);

  // The new archive keeps the old one's permissions; a first archive gets
  // those of any new file.
  mode_t mode = inputMode_;
  if (input_ < 0) {
    const mode_t mask = umask(0);
    umask(mask);
    mode = 0666 & ~mask;
  }
  output_ = fchmod(descriptor, mode) == 0 ? fdopen(descriptor, "wb") : nullptr;
  if (output_ == nullptr) {
    const int problem = errno;
    close(descriptor);
    unlink(temporary_.c_str());
    return fail(ZIP_ER_TMPOPEN, problem);
  }
  // libzip writes in small pieces; a larger buffer saves most of the system
  // calls. glibc ignores the size unless it is handed the buffer itself. Were it
  // refused, the default buffer would do.
  outputBuffer_.resize(kOutputBuffer);
  std::setvbuf(output_, outputBuffer_.data(), _IOFBF, outputBuffer_.size());
  return 0;
}

zip_int64_t DurableArchiveFile::write(const void* data, zip_uint64_t length) {
  if (std::fwrite(data, 1, length, output_) != length) return fail(ZIP_ER_WRITE, errno);
  return static_cast<zip_int64_t>(length);
}

zip_int64_t DurableArchiveFile::seekWrite(void* data, zip_uint64_t length) {
  auto* args = ZIP_SOURCE_GET_ARGS(zip_source_args_seek_t, data, length, &error_);
  if (args == nullptr) return -1;
  if (fseeko(output_, args->offset, args->whence) != 0) return fail(ZIP_ER_SEEK, errno);
  return 0;
}

zip_int64_t DurableArchiveFile::tellWrite() {
  const off_t offset = ftello(output_);
  if (offset < 0) return fail(ZIP_ER_TELL, errno);
  return offset;
}

zip_int64_t DurableArchiveFile::commitWrite() {
  int problem = 0;
  if (std::fflush(output_) != 0 || fsync(fileno(output_)) != 0) problem = errno;
  if (std::fclose(output_) != 0 && problem == 0) problem = errno;
  output_ = nullptr;
  if (problem == 0 && rename(temporary_.c_str(), file_.c_str()) != 0) problem = errno;
  if (problem != 0) {
    unlink(temporary_.c_str());
    return fail(ZIP_ER_WRITE, problem);
  }
  // The rename is durable only once the folder is flushed too.
  const std::filesystem::path folder = file_.has_parent_path() ? file_.parent_path() : ".";
  const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0 || fsync(descriptor) != 0) problem = errno;
  if (descriptor >= 0) close(descriptor);
  return problem == 0 ? 0 : fail(ZIP_ER_WRITE, problem);
}

void DurableArchiveFile::rollbackWrite() {
  if (output_ == nullptr) return;
  std::fclose(output_);
  output_ = nullptr;
  unlink(temporary_.c_str());
}

}  // namespace orlo::tools::powershell
