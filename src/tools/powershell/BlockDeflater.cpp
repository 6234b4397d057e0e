#include "BlockDeflater.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace orlo::tools::powershell {

namespace {

// The most a deflate match reaches back.
constexpr zip_uint64_t kDictionarySize = 32 << 10;
// Raw deflate: libzip writes the stream without a zlib header.
constexpr int kRawWindowBits = -15;
constexpr int kMemoryLevel = 8;
// A sync flush's empty stored block: 3 header bits, up to 7 bits of padding,
// and the 4 bytes of its length and complement.
constexpr zip_uint64_t kFlushMarker = 6;

// Reads exactly length bytes at offset; false with errno set, or with errno 0
// when the file has become shorter.
bool readAt(int descriptor, unsigned char* into, zip_uint64_t length, zip_uint64_t offset) {
  zip_uint64_t done = 0;
  while (done < length) {
    const ssize_t got =
        pread(descriptor, into + done, length - done, static_cast<off_t>(offset + done));
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) {
      if (got == 0) errno = 0;
      return false;
    }
    done += static_cast<zip_uint64_t>(got);
  }
  return true;
}

void growTo(std::vector<unsigned char>& buffer, std::size_t size) {
  if (buffer.size() < size) buffer.resize(size);
}

}  // namespace

BlockDeflater::~BlockDeflater() {
  if (ready_) deflateEnd(&stream_);
}

BlockDeflater& BlockDeflater::ofThisThread() {
  thread_local BlockDeflater deflater;
  return deflater;
}

zip_uint64_t BlockDeflater::bound(zip_uint64_t plainSize, zip_uint64_t blockSize, int zlibLevel) {
  if (prepare(zlibLevel) != Z_OK) return 0;
  const zip_uint64_t fullBlocks = plainSize / blockSize;
  const zip_uint64_t rest = plainSize % blockSize;
  zip_uint64_t total = fullBlocks * (deflateBound(&stream_, blockSize) + kFlushMarker);
  if (rest > 0) total += deflateBound(&stream_, rest) + kFlushMarker;
  return total;
}

int BlockDeflater::prepare(int zlibLevel) {
  if (ready_ && level_ == zlibLevel) return deflateReset(&stream_);
  if (ready_) deflateEnd(&stream_);
  stream_ = z_stream{};
  const int result = deflateInit2(&stream_, zlibLevel, Z_DEFLATED, kRawWindowBits, kMemoryLevel,
                                  Z_DEFAULT_STRATEGY);
  ready_ = result == Z_OK;
  level_ = zlibLevel;
  return result;
}

DeflatedBlock BlockDeflater::deflate(int descriptor, zip_uint64_t offset, zip_uint64_t length,
                                     bool last, int zlibLevel) {
  DeflatedBlock block;
  block.plainSize = length;
  const zip_uint64_t dictionary = std::min(offset, kDictionarySize);
  growTo(plain_, dictionary + length);
  if (!readAt(descriptor, plain_.data(), dictionary + length, offset - dictionary)) {
    block.zipError = errno != 0 ? ZIP_ER_READ : ZIP_ER_CHANGED;
    block.systemError = errno;
    return block;
  }
  const unsigned char* data = plain_.data() + dictionary;
  block.crc = crc32(0, data, static_cast<uInt>(length));

  int result = prepare(zlibLevel);
  if (result == Z_OK && dictionary > 0) {
    result = deflateSetDictionary(&stream_, plain_.data(), static_cast<uInt>(dictionary));
  }
  // A sync flush ends a block on a byte boundary, with an empty stored block
  // that leaves the stream open for the next one.
  const int flush = last ? Z_FINISH : Z_SYNC_FLUSH;
  if (result == Z_OK) {
    stream_.next_in = const_cast<unsigned char*>(data);
    stream_.avail_in = static_cast<uInt>(length);
    growTo(deflated_, deflateBound(&stream_, static_cast<uLong>(length)) + 16);
  }
  while (result == Z_OK) {
    stream_.next_out = deflated_.data() + stream_.total_out;
    stream_.avail_out = static_cast<uInt>(deflated_.size() - stream_.total_out);
    result = ::deflate(&stream_, flush);
    if (last ? result == Z_STREAM_END : result == Z_OK && stream_.avail_out > 0) break;
    if (result == Z_OK || result == Z_BUF_ERROR) {
      deflated_.resize(deflated_.size() * 2);
      result = Z_OK;
    }
  }
  if (result != Z_OK && result != Z_STREAM_END) {
    block.zipError = ZIP_ER_ZLIB;
    block.systemError = result;
    return block;
  }
  block.data.assign(deflated_.begin(), deflated_.begin() + stream_.total_out);
  return block;
}

}  // namespace orlo::tools::powershell
