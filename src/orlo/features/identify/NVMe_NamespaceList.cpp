#include "orlo/features/identify/NVMe_NamespaceList.h"

#include "orlo/core/Payload.h"
#include "orlo/features/identify/IdentifyListWalk.h"
#include "orlo/features/identify/IdentifyTable.h"
#include "orlo/features/identify/IdentifyValueForms.h"

namespace orlo::features::identify::nvme::namespaceList {

namespace {

using namespace table;

constexpr ListWalk kIdentifiers{0, 4, 1024};

constexpr Row kIdentifier[] = {
    field("Namespace ID", "", range(0, 3), decimal).as("nsids").repeated(),
};

}  // namespace

std::unique_ptr<core::xml::XmlObject> toXmlObject(const core::Payload& payload) {
  auto root = std::make_unique<core::xml::XmlObject>();
  nameRoot(*root, "I/O Command Set specific Allocated Namespace ID list");
  if (payload.size() < kReplySize) {
    return root;
  }
  kIdentifiers.walk(payload.size(), [&](uint32_t offset, uint32_t) {
    if (valueForms::littleEndian(payload, offset, 4) == 0) {
      return false;
    }
    addProperties(*root, kIdentifier, Source{payload, offset, 0});
    return true;
  });
  return root;
}

}  // namespace orlo::features::identify::nvme::namespaceList
