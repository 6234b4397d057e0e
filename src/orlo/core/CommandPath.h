#pragma once

#include <memory>

namespace orlo::core {

// The way by which a device object sent a command (driver, pass-through, ...). The
// device object gives the concrete class; the library only copies and releases it.
class CommandPath {
 public:
  virtual ~CommandPath() = default;
  virtual std::unique_ptr<CommandPath> clone() const = 0;

 protected:
  CommandPath() = default;
  CommandPath(const CommandPath&) = default;
  CommandPath& operator=(const CommandPath&) = default;
};

}  // namespace orlo::core
