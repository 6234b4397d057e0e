#include "SourceResolver.h"

#include <glob.h>
#include <sys/stat.h>

#include <cstring>
#include <set>

#include "Messages.h"

namespace orlo::tools::powershell {

namespace {

namespace fs = std::filesystem;

fs::path normalised(const std::string& item) {
  fs::path path = fs::absolute(item).lexically_normal();
  // "D/" names D itself.
  if (!path.has_filename() && path != path.root_path()) path = path.parent_path();
  return path;
}

bool hasWildcard(const std::string& item) {
  return item.find_first_of("*?[") != std::string::npos;
}

Error expandWildcard(const std::string& item, std::vector<std::string>& matches) {
  glob_t found{};
  // Backslashes are ordinary characters here: PowerShell escapes with a backtick.
  const int result = glob(item.c_str(), GLOB_ERR | GLOB_NOESCAPE, nullptr, &found);
  if (result == 0) matches.assign(found.gl_pathv, found.gl_pathv + found.gl_pathc);
  globfree(&found);
  if (result == GLOB_ABORTED) return messages::pathUnreadable(item, std::strerror(errno));
  return std::nullopt;
}

}  // namespace

Error resolveSources(const CompressArchiveRequest& request, std::vector<ResolvedSource>& sources) {
  const std::string parameter = request.literalPaths ? "LiteralPath" : "Path";
  std::set<fs::path> seen;
  for (const std::string& item : request.paths) {
    const bool wildcard = !request.literalPaths && hasWildcard(item);
    std::vector<std::string> matches;
    if (!wildcard) {
      matches.push_back(item);
    } else if (Error error = expandWildcard(item, matches)) {
      return error;
    }
    for (const std::string& match : matches) {
      struct stat status {};
      if (!wildcard && stat(match.c_str(), &status) != 0) return messages::pathNotFound(item);
      ResolvedSource source{normalised(match), wildcard};
      if (!seen.insert(source.path).second) return messages::duplicatePath(parameter, match);
      sources.push_back(std::move(source));
    }
  }
  return std::nullopt;
}

}  // namespace orlo::tools::powershell
