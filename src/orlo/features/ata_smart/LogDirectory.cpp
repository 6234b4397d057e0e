#include "orlo/features/ata_smart/LogDirectory.h"

#include "orlo/commands/ata/Layout.h"
#include "orlo/core/LittleEndian.h"

namespace orlo::features::ata_smart {

uint16_t logPages(const core::Payload& directory, uint8_t logAddress) {
  const uint32_t at = logAddress * commands::ata::layout::kDirectoryWordSize;
  if (directory.data() == nullptr || directory.size() < at + 2) return 0;
  return core::le::read16(directory.data() + at);
}

}  // namespace orlo::features::ata_smart
