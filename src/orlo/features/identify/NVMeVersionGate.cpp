#include "orlo/features/identify/NVMeVersionGate.h"

#include "orlo/core/AttributeCollection.h"
#include "orlo/core/PropertyDescriptors.h"

namespace orlo::features::identify::nvme {

NVMeVersions versionsOf(const core::AttributeCollection& deviceAttributes) {
  namespace properties = core::properties;
  const struct {
    core::Attribute descriptor;
    NVMeVersion version;
  } announcements[] = {
      {properties::nvme1Point1OrGreater(), kNVMe1_1},
      {properties::nvme1Point2OrGreater(), kNVMe1_2},
      {properties::nvme1Point3OrGreater(), kNVMe1_3},
      {properties::nvme1Point4OrGreater(), kNVMe1_4},
      {properties::nvme2Point0OrGreater(), kNVMe2_0},
  };
  NVMeVersions versions = 0;
  for (const auto& announcement : announcements) {
    if (core::readBool(deviceAttributes, announcement.descriptor)) {
      versions |= announcement.version;
    }
  }
  return versions;
}

}  // namespace orlo::features::identify::nvme
