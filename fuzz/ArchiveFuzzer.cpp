// The provider's -Update of a destination archive made of the input's bytes, damaged or
// hostile as they may be. A refusal comes with a message and leaves the file byte for byte
// as it was; an update gives a consistent archive holding the new file once, with no entry
// named outside its folder. Either way nothing else appears beside the archive.
#include <strings.h>
#include <unistd.h>
#include <zip.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "CompressArchive.h"
#include "CompressArchiveRequest.h"

namespace {

namespace fs = std::filesystem;

const std::string kSourceText = "incident notes\n";

std::string contentsOf(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

// A folder of this process's own, removed at exit: notes.txt, the source, and out/, which
// holds the archive alone.
const fs::path& workspace() {
  static const fs::path root = [] {
    std::string pattern = (fs::temp_directory_path() / "orlo-archive-fuzz-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) std::abort();
    std::ofstream(fs::path(pattern) / "notes.txt", std::ios::binary) << kSourceText;
    std::atexit([] { fs::remove_all(workspace()); });
    return fs::path(pattern);
  }();
  return root;
}

bool isOutsideName(const std::string& name) {
  if (name.empty() || name[0] == '/' || name[0] == '\\') return true;
  if (name.size() > 1 && name[1] == ':') return true;
  size_t start = 0;
  while (start <= name.size()) {
    const size_t end = std::min(name.find_first_of("/\\", start), name.size());
    if (name.compare(start, end - start, "..") == 0 && end - start == 2) return true;
    start = end + 1;
  }
  return false;
}

void checkUpdated(const fs::path& archive) {
  int error = 0;
  zip_t* zip = zip_open(archive.c_str(), ZIP_CHECKCONS | ZIP_RDONLY, &error);
  if (zip == nullptr) std::abort();
  int copies = 0;
  for (zip_int64_t i = 0; i < zip_get_num_entries(zip, 0); ++i) {
    const std::string name = zip_get_name(zip, i, 0);
    if (isOutsideName(name)) std::abort();
    if (strcasecmp(name.c_str(), "notes.txt") != 0) continue;
    ++copies;
    std::string read(kSourceText.size() + 1, '\0');
    zip_file_t* file = zip_fopen_index(zip, i, 0);
    if (file == nullptr) std::abort();
    read.resize(static_cast<size_t>(zip_fread(file, read.data(), read.size())));
    zip_fclose(file);
    if (read != kSourceText) std::abort();
  }
  zip_discard(zip);
  if (copies != 1) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const fs::path out = workspace() / "out";
  const fs::path archive = out / "report.zip";
  fs::remove_all(out);
  fs::create_directory(out);
  const std::string original(reinterpret_cast<const char*>(data), size);
  std::ofstream(archive, std::ios::binary) << original;

  orlo::tools::powershell::CompressArchiveRequest request;
  request.paths = {(workspace() / "notes.txt").string()};
  request.literalPaths = true;
  request.destination = archive.string();
  request.update = true;
  const auto error = orlo::tools::powershell::compressArchive(request);

  if (error) {
    if (error->empty() || contentsOf(archive) != original) std::abort();
  } else {
    checkUpdated(archive);
  }
  const auto beside = std::distance(fs::directory_iterator(out), fs::directory_iterator());
  const auto inWorkspace =
      std::distance(fs::directory_iterator(workspace()), fs::directory_iterator());
  if (beside != 1 || inWorkspace != 2) std::abort();
  return 0;
}
