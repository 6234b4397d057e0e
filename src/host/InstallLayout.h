#pragma once

#include <filesystem>

namespace orlo::host {

// Where an installed orlo keeps its parts, below the prefix of which the program
// is PREFIX/bin/orlo.
class InstallLayout {
 public:
  // The layout around the running program.
  static InstallLayout ofRunningProgram();

  explicit InstallLayout(std::filesystem::path prefix);

  // PREFIX/lib/orlo/plugins: every library there is loaded as a plug-in.
  std::filesystem::path pluginDirectory() const;
  // PREFIX/libexec/orlo: the programs that plug-ins run, such as `powershell`.
  std::filesystem::path providerDirectory() const;

 private:
  std::filesystem::path prefix_;
};

}  // namespace orlo::host
