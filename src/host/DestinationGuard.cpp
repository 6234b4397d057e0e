#include "host/DestinationGuard.h"

#include <sys/stat.h>

#include "devices/RegularFile.h"
#include "orlo/core/Strings.h"
#include "plugins/plugin.cliframework/SharedParts.h"
#include "plugins/update_ir/ZipExtension.h"

namespace orlo::host {

namespace {

using devices::kindOf;
using plugin::cli::endsWithZip;
using plugin::cli::zipExtension;

std::optional<std::string> judge(const std::string& destination) {
  const bool moved = !endsWithZip(destination);
  const std::string archive = destination + zipExtension;
  // stat, not open: opening a FIFO would wait for a writer.
  struct stat target {};
  if (stat(destination.c_str(), &target) != 0) return std::nullopt;
  if (!S_ISREG(target.st_mode)) {
    return "-destination " + destination + " is " + kindOf(target.st_mode) +
           ", and an archive is a regular file; the update would have " +
           (moved ? "moved it to " + archive + " and " : "") + "opened it as an archive.";
  }
  if (!moved) return std::nullopt;
  // The move replaces any entry of that name but a directory, over which it fails and
  // leaves both as they were.
  struct stat sibling {};
  if (lstat(archive.c_str(), &sibling) != 0 || S_ISDIR(sibling.st_mode)) return std::nullopt;
  return "-destination " + destination + " does not end in \".zip\", so updating it " +
         "would move it over " + archive + " and destroy that file; name " + archive +
         " to update it, or move one of them away.";
}

}  // namespace

const char* const destinationRules =
    "- A -destination that exists but is not a regular file (a directory, FIFO, socket or\n"
    "  device): an archive is a regular file, and the update would open it as one.\n"
    "- A -destination whose name does not end in \".zip\" while that name with \".zip\"\n"
    "  appended exists: the update moves the destination to that name for its run, which\n"
    "  would destroy the file there.";

bool isGuardedDestination(const std::string& name) {
  return orlo::core::strings::iequals(name, plugin::cli::destinationPart.name);
}

std::optional<std::string> findUnsafeDestination(const plugin::cli::ParsedCommand& command) {
  for (const auto* list : {&command.options, &command.targets}) {
    for (const auto& argument : list->elements) {
      if (!isGuardedDestination(argument->name)) continue;
      if (auto refusal = judge(argument->value)) return refusal;
    }
  }
  return std::nullopt;
}

}  // namespace orlo::host
