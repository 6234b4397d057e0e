#include "CompressArchive.h"

#include "ArchiveLock.h"
#include "ArchiveUpdater.h"
#include "Destination.h"
#include "EntryCollector.h"
#include "Interruption.h"
#include "Messages.h"
#include "SourceResolver.h"

namespace orlo::tools::powershell {

Error compressArchive(const CompressArchiveRequest& request) {
  std::vector<ResolvedSource> sources;
  if (Error error = resolveSources(request, sources)) return error;
  ArchiveTarget target;
  ArchiveLock lock;
  if (Error error = lock.acquire(request, target)) return error;
  interruption::name(target.shownName);

  EntryCollector collector(target);
  for (const ResolvedSource& source : sources) {
    if (Error error = collector.add(source)) return error;
  }
  const std::vector<PlannedEntry> entries = collector.entries();
  if (entries.empty()) return messages::nothingToAdd(target.shownName);
  ProgressLine progress(target.shownName);
  return ArchiveUpdater(target, request, progress).write(entries);
}

}  // namespace orlo::tools::powershell
