#pragma once

#include <array>
#include <cstdint>

#include "orlo/commands/ata/Command.h"

namespace orlo::devices {

// The SCSI command ATA PASS-THROUGH (16) that carries an ATA command through a
// SCSI/ATA translation layer (libata for SATA disks). The protocol follows the
// command's flags: DMA, PIO data-in or non-data; a non-data command asks for its
// completion registers back (CK_COND), as they are its only answer.
std::array<uint8_t, 16> ataPassThrough16(const commands::ata::Command& command);

// Bytes that the command moves: transferBytes when set, else 512 a block.
uint32_t ataTransferLength(const commands::ata::Command& command);

}  // namespace orlo::devices
