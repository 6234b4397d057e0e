#include "host/LibraryFile.h"

#include <elf.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstring>
#include <vector>

namespace orlo::host {

namespace {

bool readAt(int file, void* into, std::size_t size, uint64_t offset) {
  return pread(file, into, size, static_cast<off_t>(offset)) == static_cast<ssize_t>(size);
}

std::string cutShort(uint64_t claimed, uint64_t size) {
  return "it is cut short: its headers reach byte " + std::to_string(claimed) +
         ", the file holds " + std::to_string(size) + ".";
}

std::optional<std::string> checkSegments(int file) {
  struct stat status {};
  Elf64_Ehdr header{};
  if (fstat(file, &status) != 0 || !readAt(file, &header, sizeof header, 0)) return std::nullopt;
  if (std::memcmp(header.e_ident, ELFMAG, SELFMAG) != 0 || header.e_ident[EI_CLASS] != ELFCLASS64 ||
      header.e_phentsize != sizeof(Elf64_Phdr)) {
    return std::nullopt;
  }
  const auto size = static_cast<uint64_t>(status.st_size);
  const uint64_t tableEnd = header.e_phoff + uint64_t{header.e_phnum} * sizeof(Elf64_Phdr);
  if (tableEnd < header.e_phoff || tableEnd > size) return cutShort(tableEnd, size);
  std::vector<Elf64_Phdr> segments(header.e_phnum);
  if (!readAt(file, segments.data(), tableEnd - header.e_phoff, header.e_phoff)) {
    return std::string("its program headers cannot be read.");
  }
  for (const auto& segment : segments) {
    const uint64_t end = segment.p_offset + segment.p_filesz;
    if (segment.p_type == PT_LOAD && (end < segment.p_offset || end > size)) {
      return cutShort(end, size);
    }
  }
  return std::nullopt;
}

}  // namespace

std::optional<std::string> findCutShortLibrary(const std::filesystem::path& path) {
  const int file = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  if (file < 0) return std::nullopt;  // dlopen says why
  auto problem = checkSegments(file);
  close(file);
  return problem;
}

}  // namespace orlo::host
