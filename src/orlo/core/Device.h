#pragma once

#include <string>

#include "orlo/core/AttributeCollection.h"
#include "orlo/core/Command.h"
#include "orlo/core/CommandRecord.h"
#include "orlo/core/Payload.h"

namespace orlo::core {

// A drive as the host tool reaches it. The host derives from this class and hands
// the library a shared pointer; the library has no transport of its own. A send
// leaves the command as it was and reports in the record: `status` always, and
// `outputPayload` for a read.
class Device {
 public:
  virtual ~Device() = default;

  // True if commands of the protocol family ("NVME", "ATA") can go to this device.
  virtual bool supportsProtocol(std::string protocol) = 0;
  // Sends a command with a data buffer of the caller's.
  virtual CommandRecord send(Command& command, const Payload& dataOut) = 0;
  // Sends a command whose data buffer, if any, the device provides.
  virtual CommandRecord send(Command& command) = 0;

  // Facts about the drive, provided by the host. The library only reads them.
  AttributeCollection attributes;
};

}  // namespace orlo::core
