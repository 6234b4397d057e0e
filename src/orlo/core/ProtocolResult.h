#pragma once

#include <memory>

#include "orlo/core/Status.h"

namespace orlo::core {

// What a device object learned at the protocol level about a sent command. The
// device object gives the concrete class; the library copies it with a record and
// asks it for the drive's own reason when a command fails.
class ProtocolResult {
 public:
  virtual ~ProtocolResult() = default;
  virtual std::unique_ptr<ProtocolResult> clone() const = 0;
  // Writes the drive's reason for the command's outcome into `status`.
  virtual void fillStatus(Status& status) const = 0;

 protected:
  ProtocolResult() = default;
  ProtocolResult(const ProtocolResult&) = default;
  ProtocolResult& operator=(const ProtocolResult&) = default;
};

}  // namespace orlo::core
