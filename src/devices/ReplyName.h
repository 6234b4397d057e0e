#pragma once

#include <string>

#include "orlo/core/Command.h"

namespace orlo::devices {

// The file of a device image that holds the drive's reply to a command, named by
// what selects the reply:
//   nvme-identify-cns01-nsid00000000.bin      Identify: CNS and namespace
//   nvme-getlog-lid05-nsidffffffff-offset0.bin Get Log Page: log, namespace, offset
//   nvme-opc0a-nsid00000001.bin               any other NVMe command
//   ata-cmdec-lba0-count1.bin                 ATA: command, 28-bit LBA, sector count
// Identify structures that do not depend on a namespace are named with namespace
// 0, whatever the command carried, as the drive ignores that field for them.
// Empty for a command of neither family.
std::string replyName(const core::Command& command);

}  // namespace orlo::devices
