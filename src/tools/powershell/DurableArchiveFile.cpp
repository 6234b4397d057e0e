#include "DurableArchiveFile.h"

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "Interruption.h"
#include "TemporaryArchive.h"

namespace orlo::tools::powershell {

namespace {

constexpr std::size_t kOutputBuffer = 1 << 18;
constexpr std::size_t kInputBuffer = 1 << 18;
// Reading ahead starts this small after a jump: libzip checks an archive by
// reading each entry's header, a few dozen bytes far apart, and reading a full
// buffer for each would read a large archive many times over.
constexpr std::size_t kFirstReadAhead = 4 << 10;

// A buffer left as the allocator gives it: only the pages written to are ever
// touched, where zero-filling would touch every one. A small update uses a
// page or two of each buffer, and on a virtual machine each page touched for
// the first time costs as much as several system calls.
std::unique_ptr<char[]> untouched(std::size_t size) {
  return std::unique_ptr<char[]>(new char[size]);
}
// The kernel copies the kept start in pieces this large, so that the progress
// line moves while it does.
constexpr std::size_t kCopyPiece = 16 << 20;
// Direct I/O moves whole blocks of the file system, from memory aligned to them.
constexpr std::size_t kDirectBlock = 4 << 10;
constexpr std::size_t kDirectPiece = 1 << 20;

}  // namespace

DurableArchiveFile::DurableArchiveFile(std::filesystem::path file, ProgressLine& progress)
    : file_(std::move(file)), progress_(progress) {
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
    case ZIP_SOURCE_BEGIN_WRITE_CLONING:
      return file.beginWriteCloning(length);
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
          ZIP_SOURCE_BEGIN_WRITE, ZIP_SOURCE_BEGIN_WRITE_CLONING, ZIP_SOURCE_WRITE,
          ZIP_SOURCE_SEEK_WRITE, ZIP_SOURCE_TELL_WRITE, ZIP_SOURCE_COMMIT_WRITE,
          ZIP_SOURCE_ROLLBACK_WRITE, ZIP_SOURCE_REMOVE, ZIP_SOURCE_ACCEPT_EMPTY, -1);
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
  inputOwner_ = status.st_uid;
  inputGroup_ = status.st_gid;
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
      const zip_int64_t got = readAhead(offset, length - done);
      if (got < 0) return got;
      if (got == 0) break;
    }
    const zip_uint64_t from = offset - bufferStart_;
    const zip_uint64_t count = std::min(length - done, bufferLength_ - from);
    std::memcpy(out + done, inputBuffer_.get() + from, count);
    done += count;
  }
  inputOffset_ += done;
  return static_cast<zip_int64_t>(done);
}

zip_int64_t DurableArchiveFile::readAhead(zip_uint64_t offset, zip_uint64_t wanted) {
  if (!inputBuffer_) inputBuffer_ = untouched(kInputBuffer);
  // Reading on from where the last block ended doubles the next block.
  const bool onward = offset == bufferStart_ + bufferLength_;
  readAhead_ = std::min(kInputBuffer, onward ? 2 * readAhead_ : kFirstReadAhead);
  readAhead_ = std::max<std::size_t>(readAhead_, std::min<zip_uint64_t>(wanted, kInputBuffer));
  bufferStart_ = offset;
  bufferLength_ = 0;
  while (bufferLength_ < readAhead_) {
    const ssize_t got =
        pread(input_, inputBuffer_.get() + bufferLength_, readAhead_ - bufferLength_,
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
  int descriptor = -1;
  if (createTemporary(descriptor) < 0) return -1;
  return startOutput(descriptor);
}

zip_int64_t DurableArchiveFile::beginWriteCloning(zip_uint64_t length) {
  int descriptor = -1;
  if (createTemporary(descriptor) < 0) return -1;
  const int problem = cloneStart(descriptor, length);
  if (problem == 0 && lseek(descriptor, static_cast<off_t>(length), SEEK_SET) >= 0) {
    return startOutput(descriptor);
  }
  close(descriptor);
  unlink(temporary_.c_str());
  interruption::removeOnSignal("");
  return fail(ZIP_ER_WRITE, problem != 0 ? problem : errno);
}

zip_int64_t DurableArchiveFile::createTemporary(int& descriptor) {
  temporary_ = temporary_archive::templateFor(file_);
  descriptor = interruption::createRemovedOnSignal(temporary_);
  if (descriptor < 0) return fail(ZIP_ER_TMPOPEN, errno);

  // The new archive keeps the old one's owner, group and permissions; a first
  // archive gets those of any new file. Only root may give a file away; others
  // keep at least the group where they belong to it. The mode goes last, as a
  // change of owner clears the set-id bits.
  mode_t mode = inputMode_;
  if (input_ >= 0) {
    if (fchown(descriptor, inputOwner_, inputGroup_) != 0) {
      [[maybe_unused]] const int ignored = fchown(descriptor, static_cast<uid_t>(-1), inputGroup_);
    }
  } else {
    const mode_t mask = umask(0);
    umask(mask);
    mode = 0666 & ~mask;
  }
  if (fchmod(descriptor, mode) != 0) {
    const int problem = errno;
    close(descriptor);
    unlink(temporary_.c_str());
    interruption::removeOnSignal("");
    return fail(ZIP_ER_TMPOPEN, problem);
  }
  return 0;
}

// Copies the old archive's bytes from offset 0 up to `length`, rounded down to
// whole blocks, into the temporary file with direct I/O, and sets `copied`.
// Direct writes go to the disk without passing through the page cache: a
// large archive is not held in memory a second time, and the final flush has
// only the tail left to write. A file system that refuses direct I/O copies
// nothing here. Returns an errno, 0 when done.
int DurableArchiveFile::copyDirect(zip_uint64_t length, loff_t& copied) {
  const zip_uint64_t end = length - length % kDirectBlock;
  copied = 0;
  if (end == 0) return 0;
  const int direct = ::open(temporary_.c_str(), O_WRONLY | O_DIRECT | O_CLOEXEC);
  if (direct < 0) return 0;
  std::unique_ptr<char, void (*)(void*)> buffer(
      static_cast<char*>(std::aligned_alloc(kDirectBlock, kDirectPiece)), std::free);
  int problem = buffer ? 0 : ENOMEM;
  while (problem == 0 && static_cast<zip_uint64_t>(copied) < end) {
    const auto piece = static_cast<std::size_t>(std::min<zip_uint64_t>(kDirectPiece, end - copied));
    ssize_t done = pread(input_, buffer.get(), piece, copied);
    if (done == static_cast<ssize_t>(piece)) done = pwrite(direct, buffer.get(), piece, copied);
    if (done < 0 && errno == EINTR) continue;
    // Refused at the first block: no direct I/O here, the other ways copy it all.
    if (done < 0 && copied == 0 && errno == EINVAL) break;
    if (done < 0) problem = errno;
    if (done != static_cast<ssize_t>(piece)) break;  // short: the rest goes the other ways
    copied += done;
    progress_.advance(done);
  }
  close(direct);
  return problem;
}

// Puts the first `length` bytes of the old archive into the empty temporary
// file: a clone of the whole file cut to length where the file system shares
// extents, else a direct copy of its whole blocks, and the rest by the
// kernel's copy, else a plain one. Returns an errno, 0 when done.
int DurableArchiveFile::cloneStart(int descriptor, zip_uint64_t length) {
  if (!haveInput()) return errno;
  if (ioctl(descriptor, FICLONE, input_) == 0) {
    if (ftruncate(descriptor, static_cast<off_t>(length)) != 0) return errno;
    progress_.advance(static_cast<zip_int64_t>(length));
    return 0;
  }
  loff_t to = 0;
  if (const int problem = copyDirect(length, to)) return problem;
  const loff_t start = to;
  loff_t from = to;
  bool kernelCopies = true;
  while (static_cast<zip_uint64_t>(to) < length) {
    const std::size_t left = static_cast<std::size_t>(length - static_cast<zip_uint64_t>(to));
    ssize_t done = -1;
    if (kernelCopies) {
      done = copy_file_range(input_, &from, descriptor, &to, std::min(left, kCopyPiece), 0);
      if (done < 0 && to == start &&
          (errno == EXDEV || errno == ENOSYS || errno == EOPNOTSUPP || errno == EINVAL)) {
        kernelCopies = false;
        continue;
      }
    } else {
      if (!inputBuffer_) inputBuffer_ = untouched(kInputBuffer);
      done = pread(input_, inputBuffer_.get(), std::min(left, kInputBuffer), from);
      if (done > 0) done = pwrite(descriptor, inputBuffer_.get(), static_cast<size_t>(done), to);
      if (done > 0) {
        from += done;
        to += done;
      }
      bufferLength_ = 0;  // the read-ahead block no longer holds file data
    }
    if (done < 0 && errno == EINTR) continue;
    if (done < 0) return errno;
    if (done == 0) return EIO;  // the archive is shorter than libzip found it
    progress_.advance(done);
  }
  return 0;
}

zip_int64_t DurableArchiveFile::startOutput(int descriptor) {
  output_ = fdopen(descriptor, "wb");
  if (output_ == nullptr) {
    const int problem = errno;
    close(descriptor);
    unlink(temporary_.c_str());
    interruption::removeOnSignal("");
    return fail(ZIP_ER_TMPOPEN, problem);
  }
  // libzip writes in small pieces; a larger buffer saves most of the system
  // calls. glibc ignores the size unless it is handed the buffer itself. Were it
  // refused, the default buffer would do.
  outputBuffer_ = untouched(kOutputBuffer);
  std::setvbuf(output_, outputBuffer_.get(), _IOFBF, kOutputBuffer);
  return 0;
}

zip_int64_t DurableArchiveFile::write(const void* data, zip_uint64_t length) {
  if (std::fwrite(data, 1, length, output_) != length) return fail(ZIP_ER_WRITE, errno);
  progress_.advance(static_cast<zip_int64_t>(length));
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
  // From the rename on, the new archive is the archive: a signal no longer
  // undoes the run.
  if (problem == 0) interruption::commit();
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
  interruption::removeOnSignal("");
}

}  // namespace orlo::tools::powershell
