#pragma once

#include <zip.h>
#include <zlib.h>

#include <vector>

namespace orlo::tools::powershell {

// One block of a file, deflated to join the blocks before and after it.
struct DeflatedBlock {
  std::vector<unsigned char> data;  // the deflated bytes
  uLong crc = 0;                    // CRC-32 of the block's plain bytes
  zip_uint64_t plainSize = 0;
  int zipError = ZIP_ER_OK;
  int systemError = 0;
};

// Deflates blocks of files on one thread. Each block is deflated with the
// 32 KiB before it as its dictionary and, but for the file's last, ends on a
// byte boundary with the stream left open, so that blocks deflated apart join
// into one raw deflate stream. The deflate state and the buffers are kept from
// one block to the next: setting them up afresh, in memory not yet touched,
// cost more than the deflating itself.
class BlockDeflater {
 public:
  BlockDeflater() = default;
  ~BlockDeflater();
  BlockDeflater(const BlockDeflater&) = delete;
  BlockDeflater& operator=(const BlockDeflater&) = delete;

  // The block of the open file `descriptor` at offset, of length bytes.
  DeflatedBlock deflate(int descriptor, zip_uint64_t offset, zip_uint64_t length, bool last,
                        int zlibLevel);

  // The most bytes that a file of plainSize bytes deflates to in blocks of
  // blockSize: zlib's bound for each block, plus the empty stored block that
  // ends every block on a byte boundary. 0 when zlib cannot be set up.
  zip_uint64_t bound(zip_uint64_t plainSize, zip_uint64_t blockSize, int zlibLevel);

  // The deflater of the calling thread.
  static BlockDeflater& ofThisThread();

 private:
  int prepare(int zlibLevel);

  z_stream stream_{};
  bool ready_ = false;
  int level_ = 0;
  std::vector<unsigned char> plain_;  // grows only, so never zeroed twice
  std::vector<unsigned char> deflated_;
};

}  // namespace orlo::tools::powershell
