#pragma once

#include <optional>
#include <string>
#include <vector>

namespace orlo::host {

// Holds what the process, and the programs it starts, write to the standard output
// (descriptor 1) for a while, so that it can go into a document instead of ahead of
// it. Descriptor 1 points at an anonymous file in between; a capture still running
// when the object goes puts it back.
class OutputCapture {
 public:
  OutputCapture() = default;
  OutputCapture(const OutputCapture&) = delete;
  OutputCapture& operator=(const OutputCapture&) = delete;
  ~OutputCapture();

  // Writes out what is pending for the standard output and starts holding what
  // follows. Gives the reason when it cannot; the standard output is then as it was.
  std::optional<std::string> start();

  // Writes out what is pending, puts the standard output back and gives what was
  // written meanwhile, a line each, without the line feeds; a last line without one
  // counts too.
  std::vector<std::string> finish();

 private:
  void restore();

  int held_ = -1;   // the anonymous file
  int saved_ = -1;  // the standard output as it was
};

}  // namespace orlo::host
