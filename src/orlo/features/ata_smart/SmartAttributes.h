#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "orlo/core/Payload.h"
#include "orlo/core/ProtocolResult.h"

namespace orlo::features::ata_smart {

// One attribute of SMART READ DATA, with its threshold from SMART READ THRESHOLDS
// when that lists the same id.
struct SmartAttribute {
  uint8_t id = 0;
  uint16_t flags = 0;
  uint8_t current = 0;
  uint8_t worst = 0;
  std::optional<uint8_t> threshold;
  std::array<uint8_t, 6> raw{};

  bool prefailure() const;
  // The raw value in the form in which the attribute is usually read.
  uint64_t rawValue() const;
  // Its value has come down to a non-zero threshold. Of a pre-failure attribute this
  // foretells the drive's failure; of an advisory one, its age.
  bool failingNow() const;
  // Not failing now, but its worst value came down to a non-zero threshold.
  bool failedInThePast() const;
};

// The used entries of SMART READ DATA in their order, each with its threshold; none
// when the data is shorter than a sector. Thresholds shorter than a sector give none.
std::vector<SmartAttribute> readSmartAttributes(const core::Payload& data,
                                                const core::Payload& thresholds);

// The drive's verdict from SMART RETURN STATUS.
enum class SmartVerdict {
  passed,   // the SMART signature came back
  failed,   // a threshold is exceeded
  unknown,  // no registers came back, or others than the two answers
};

// The verdict from the registers with which SMART RETURN STATUS completed.
SmartVerdict smartVerdict(const core::ProtocolResult* completion);

}  // namespace orlo::features::ata_smart
