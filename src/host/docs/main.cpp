// orlo-docs: writes the manual page orlo(1) and orlo's bash completion from the
// command specifications of the plug-ins in a folder and of the host, the same that
// `orlo help` shows, so that neither can say other than the help. The build runs it;
// it is not installed.

#include <fstream>
#include <iostream>
#include <string>

#include "host/BashCompletion.h"
#include "host/HostCommands.h"
#include "host/ManualPage.h"
#include "host/PluginSet.h"

namespace {

bool writeFile(const std::string& path, const std::string& text) {
  std::ofstream out(path, std::ios::binary);
  out << text;
  out.close();
  if (out) return true;
  std::cerr << "orlo-docs: cannot write " << path << "\n";
  return false;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 5) {
    std::cerr << "usage: orlo-docs PLUGIN_DIR DATA_FOLDER MANUAL_PAGE COMPLETION\n"
                 "  DATA_FOLDER: where the samples and images lie below the prefix\n";
    return 2;
  }
  orlo::host::PluginSet plugins;
  if (auto failure = plugins.load(argv[1], "")) {
    std::cerr << "orlo-docs: " << *failure << "\n";
    return 1;
  }
  // A folder without plug-ins would give pages that lack every plug-in's command.
  if (plugins.registry().commands.empty()) {
    std::cerr << "orlo-docs: no plug-in command found in " << argv[1] << "\n";
    return 1;
  }
  const auto specs = orlo::host::allCommandSpecs(plugins.registry());
  const bool written = writeFile(argv[3], orlo::host::writeManualPage(specs, argv[2])) &&
                       writeFile(argv[4], orlo::host::writeBashCompletion(specs));
  return written ? 0 : 1;
}
