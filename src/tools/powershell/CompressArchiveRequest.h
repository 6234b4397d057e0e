#pragma once

#include <string>
#include <vector>

namespace orlo::tools::powershell {

enum class CompressionLevel { Optimal, Fastest, NoCompression };

// The parameters of one Compress-Archive call, after binding.
struct CompressArchiveRequest {
  std::vector<std::string> paths;
  bool literalPaths = false;  // given through -LiteralPath: no wildcard expansion
  std::string destination;
  bool update = false;
  bool force = false;
  CompressionLevel level = CompressionLevel::Optimal;
};

}  // namespace orlo::tools::powershell
