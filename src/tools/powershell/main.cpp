// powershell: runs "Compress-Archive ..." for the incident-report plug-in,
// which calls it through system(). Exit status 0 when the archive was written
// as asked, 1 otherwise; nothing on standard output.
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "CommandLine.h"
#include "CompressArchive.h"
#include "Interruption.h"

int main(int argc, char** argv) {
  using namespace orlo::tools::powershell;
  // Entry times go to and from local time once per entry. Without TZ, the C
  // library looks at /etc/localtime again on every conversion, twice per entry
  // of the archive; naming that same file reads it once.
  setenv("TZ", ":/etc/localtime", 0);
  interruption::start();
  const std::vector<std::string> words(argv + 1, argv + argc);
  CompressArchiveRequest request;
  Error error = parseCommandLine(words, request);
  if (!error) error = compressArchive(request);
  if (!error) return 0;
  std::fprintf(stderr, "%s\n", error->c_str());
  return 1;
}
