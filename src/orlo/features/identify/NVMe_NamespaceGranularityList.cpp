#include "orlo/features/identify/NVMe_NamespaceGranularityList.h"

#include "orlo/core/Payload.h"
#include "orlo/features/identify/IdentifyListWalk.h"
#include "orlo/features/identify/IdentifyTable.h"

namespace orlo::features::identify::nvme::namespaceGranularityList {

namespace {

using namespace table;

// The header and the first sixteen descriptors.
constexpr uint32_t kMinimumSize = 288;

// clang-format off
constexpr Row kHeader[] = {
    field("Namespace Granularity Attributes", "Granularity Descriptor Mapping", range(0, 3), bit(0), decimal),
    field("Number of Descriptors",            "",                               byte(4),     decimal),
};

constexpr Row kDescriptor[] = {
    field("Namespace Size Granularity",     "", range(0, 7),  hex(16)).repeated(),
    field("Namespace Capacity Granularity", "", range(8, 15), hex(16)).repeated(),
};
// clang-format on

}  // namespace

std::unique_ptr<core::xml::XmlObject> toXmlObject(const core::Payload& payload) {
  auto root = std::make_unique<core::xml::XmlObject>();
  if (payload.size() < kMinimumSize) {
    return root;
  }
  const Source source{payload, 0, 0};
  addProperties(*root, kHeader, source);
  const ListWalk descriptors{32, 16, payload.data()[4]};
  descriptors.walk(payload.size(), [&](uint32_t offset, uint32_t) {
    addProperties(*root, kDescriptor, source.at(offset));
    return true;
  });
  return root;
}

}  // namespace orlo::features::identify::nvme::namespaceGranularityList
