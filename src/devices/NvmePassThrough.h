#pragma once

#include <linux/nvme_ioctl.h>

#include <cstdint>

#include "orlo/commands/nvme/Command.h"

namespace orlo::devices {

// The kernel's pass-through request for an NVMe command: the entry's opcode,
// flags, namespace and dwords 2, 3 and 10 to 15, with `data` and `length` for the
// data pointer and transfer length. The kernel builds the PRPs and the command
// identifier itself, so the entry's own fields for them are not passed on.
nvme_passthru_cmd nvmePassThrough(const commands::nvme::Command& command, void* data,
                                  uint32_t length);

}  // namespace orlo::devices
