#pragma once

#include <cstdint>

namespace orlo::core {
class AttributeCollection;
}

namespace orlo::features::identify::nvme {

// The NVMe versions a device announces through its attributes, one bit each. The
// attributes are independent booleans, so a set need not be cumulative.
enum NVMeVersion : uint8_t {
  kNVMe1_1 = 1 << 0,
  kNVMe1_2 = 1 << 1,
  kNVMe1_3 = 1 << 2,
  kNVMe1_4 = 1 << 3,
  kNVMe2_0 = 1 << 4,
};
using NVMeVersions = uint8_t;

// The versions whose attribute ("NVMe1Point1OrGreater" to "NVMe2Point0OrGreater") is true.
NVMeVersions versionsOf(const core::AttributeCollection& deviceAttributes);

// When a row of an Identify structure is shown: every version in `required` must be
// announced, and none in `excluded`.
struct Gate {
  NVMeVersions required = 0;
  NVMeVersions excluded = 0;

  constexpr bool admits(NVMeVersions announced) const {
    return (announced & required) == required && (announced & excluded) == 0;
  }
  constexpr Gate operator&(const Gate& other) const {
    return Gate{static_cast<NVMeVersions>(required | other.required),
                static_cast<NVMeVersions>(excluded | other.excluded)};
  }
};

constexpr Gate since(NVMeVersions versions) {
  return Gate{versions, 0};
}
constexpr Gate until(NVMeVersions versions) {
  return Gate{0, versions};
}

}  // namespace orlo::features::identify::nvme
