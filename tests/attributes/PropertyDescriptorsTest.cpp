#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "orlo/core/PropertyDescriptors.h"
#include "orlo/features/NamespaceProperty.h"
#include "orlo/features/nvme_get_log/UUIDIndexProperty.h"
#include "support/ExpectedText.h"

namespace orlo::core {
namespace {

// The data file holds one row per maker, in this order: name | display name | type.
TEST(PropertyDescriptors, EveryMakerSpellsItsRow) {
  namespace p = properties;
  // clang-format off
  const std::vector<Attribute (*)()> makers = {
      p::csmi, p::firmware, p::isCommandPathNVMeMSFT, p::modelNumber, p::namespaceId,
      p::namespaceManagementSupported, p::nvme1Point1OrGreater, p::nvme1Point2OrGreater,
      p::nvme1Point3OrGreater, p::nvme1Point4OrGreater, p::nvme2Point0OrGreater, p::ocpSupported,
      p::oem, p::product, p::serialNumber, p::veldra, p::veldraNVMe,
      p::supportCommandEffectsLogEnhancements, p::uuidSupported, p::logName, p::logDescription,
      p::logId, p::logSpecificField, p::logSpecificId, p::namespaceSpecific, p::numDWORDs,
      p::logPageOffset, p::controllerNamespaceStructure, p::file, p::uuidIndex,
      features::namespaceProperty, features::nvme_get_log::uuidIndexProperty};
  // clang-format on
  std::string rows;
  for (const auto maker : makers) {
    const Attribute descriptor = maker();
    rows += descriptor.name + " | " + descriptor.displayName + " | " + descriptor.type + "\n";
    EXPECT_TRUE(descriptor.description.empty() && descriptor.value.size() == 0) << descriptor.name;
  }
  EXPECT_EQ(rows, orlo::testing::testData("attributes/property_descriptors.txt"));
}

}  // namespace
}  // namespace orlo::core
