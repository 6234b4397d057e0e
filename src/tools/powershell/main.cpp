// powershell: runs "Compress-Archive ..." for the incident-report plug-in,
// which calls it through system(). Exit status 0 when the archive was written
// as asked, 1 otherwise; nothing on standard output.
#include <cstdio>
#include <string>
#include <vector>

#include "CommandLine.h"
#include "CompressArchive.h"
#include "Interruption.h"

int main(int argc, char** argv) {
  using namespace orlo::tools::powershell;
  interruption::start();
  const std::vector<std::string> words(argv + 1, argv + argc);
  CompressArchiveRequest request;
  Error error = parseCommandLine(words, request);
  if (!error) error = compressArchive(request);
  if (!error) return 0;
  std::fprintf(stderr, "%s\n", error->c_str());
  return 1;
}
