#pragma once

#include <string>

#include "orlo/core/Command.h"

namespace orlo::devices {

// The file of a device image that holds the drive's reply to a command, named by
// what selects the reply:
//   nvme-identify-cns01-nsid00000000.bin      Identify: CNS and namespace
//   nvme-getlog-lid05-nsidffffffff-offset0.bin Get Log Page: log, namespace, offset
//   nvme-opc0a-nsid00000001.bin               any other NVMe command
//   ata-cmdec-lba0-count1.bin                 ATA: command, LBA, sector count
//   ata-cmdb0-lba12734208-count1-featd0.bin   and Features, when it is not zero
// A 48-bit command (READ LOG EXT) is named by its 48-bit LBA and 16-bit count, so
// that the log address and page stand in the LBA: log 4 page 0 is lba4.
// Identify structures that do not depend on a namespace are named with namespace
// 0, whatever the command carried, as the drive ignores that field for them.
// Empty for a command of neither family.
std::string replyName(const core::Command& command);

}  // namespace orlo::devices
