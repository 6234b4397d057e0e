#include "orlo/features/identify/NVMe_NamespaceIdentification.h"

#include <string>

#include "orlo/core/Logging.h"
#include "orlo/core/Payload.h"
#include "orlo/core/ScopeTrace.h"
#include "orlo/features/identify/IdentifyTable.h"

namespace orlo::features::identify::nvme::namespaceIdentification {

namespace {

using namespace table;

constexpr const char* kTypeWords[] = {
    "Reserved",
    "IEEE Extended Unique Identifier",
    "Namespace Globally Unique Identifier",
    "Namespace UUID",
};
constexpr Words kType = replacing(kTypeWords, "Reserved");

// The identifier itself follows, as long as byte 1 says.
// clang-format off
constexpr Row kDescriptorHeader[] = {
    field("Byte 0",   "Namespace Identifier Type",   decimal).named(kType),
    field("Byte 1",   "Namespace Identifier Length", decimal),
    field("Byte 2-3", "Reserved",                    decimal),
};
// clang-format on
constexpr uint32_t kHeaderSize = 4;
static_assert(tiles(kDescriptorHeader, kHeaderSize));

}  // namespace

std::unique_ptr<core::xml::XmlObject> toXmlObject(const core::Payload& payload) {
  ORLO_SCOPE_TRACE();
  auto root = std::make_unique<core::xml::XmlObject>();
  nameRoot(*root, "Namespace Identification Descriptors");
  if (payload.size() < kReplySize) {
    return root;
  }
  uint32_t offset = 0;
  for (uint32_t count = 0; offset + 1 < payload.size(); ++count) {
    const uint32_t length = payload.data()[offset + 1];
    if (length == 0) {
      ORLO_LOG(info, "namespace identifier length set to 0, break. Total count : " << count);
      break;
    }
    // A descriptor that would run past the buffer ends the walk as the end of the reply does.
    if (offset + kHeaderSize + length > payload.size()) {
      break;
    }
    const std::string name = "Namespace Identification Descriptor " + std::to_string(count);
    auto descriptor = std::make_unique<core::xml::XmlObject>(name, "", "");
    descriptor->keyed() = core::xml::Keyed::entryObject("descriptors");
    const Source source{payload, offset, 0};
    addProperties(*descriptor, kDescriptorHeader, source);
    const std::string label = "Byte 4-" + std::to_string(length + 3);
    addProperties(
        *descriptor,
        field(label.c_str(), "Namespace Identifier", Bytes{kHeaderSize, length}, longHexReversed),
        source);
    root->addObject(name, std::move(descriptor));
    offset += kHeaderSize + length;
    if (offset >= kReplySize) {
      break;
    }
  }
  return root;
}

}  // namespace orlo::features::identify::nvme::namespaceIdentification
