#include "orlo/features/identify/NVMe_ControllerList.h"

#include "orlo/core/Payload.h"
#include "orlo/features/identify/IdentifyListWalk.h"
#include "orlo/features/identify/IdentifyTable.h"
#include "orlo/features/identify/IdentifyValueForms.h"

namespace orlo::features::identify::nvme::controllerList {

namespace {

using namespace table;

// No limit of its own: the identifiers end at a zero word or at the end of the buffer.
constexpr ListWalk kIdentifiers{2, 2};

constexpr Row kCount[] = {
    field("Number of Controller Entries", "", range(0, 1), decimal),
};
constexpr Row kIdentifier[] = {
    field("Controller ID", "", range(0, 1), decimal).as("cntlids").repeated(),
};

}  // namespace

std::unique_ptr<core::xml::XmlObject> toXmlObject(const core::Payload& payload) {
  auto root = std::make_unique<core::xml::XmlObject>();
  if (payload.size() < kReplySize) {
    return root;
  }
  addProperties(*root, kCount, Source{payload, 0, 0});
  if (valueForms::littleEndian(payload, 0, 2) == 0) {
    return root;
  }
  // The first identifier is shown even when it is zero.
  kIdentifiers.walk(payload.size(), [&](uint32_t offset, uint32_t index) {
    if (index > 0 && valueForms::littleEndian(payload, offset, 2) == 0) {
      return false;
    }
    addProperties(*root, kIdentifier, Source{payload, offset, 0});
    return true;
  });
  return root;
}

}  // namespace orlo::features::identify::nvme::controllerList
