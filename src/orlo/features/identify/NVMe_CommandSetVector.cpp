#include "orlo/features/identify/NVMe_CommandSetVector.h"

#include <string>

#include "orlo/core/Payload.h"
#include "orlo/features/identify/IdentifyListWalk.h"
#include "orlo/features/identify/IdentifyTable.h"
#include "orlo/features/identify/IdentifyValueForms.h"

namespace orlo::features::identify::nvme::commandSetVector {

namespace {

using namespace table;

constexpr ListWalk kVectors{0, 8, 512};

// Each vector is announced by a property of its own, "Command Set Vector n", before these;
// they are bits of the vector's eight bytes, which their labels leave unsaid.
constexpr Bytes kVector = range(0, 7);
// clang-format off
constexpr Row kCommandSets[] = {
    field("Bit 0", "NVM Command Set",             decimal).readsBytes(kVector).repeated(),
    field("Bit 1", "Key Value Command Set",       decimal).readsBytes(kVector).repeated(),
    field("Bit 2", "Zoned Namespace Command Set", decimal).readsBytes(kVector).repeated(),
};
// clang-format on

}  // namespace

std::unique_ptr<core::xml::XmlObject> toXmlObject(const core::Payload& payload) {
  auto root = std::make_unique<core::xml::XmlObject>();
  if (payload.size() < kReplySize) {
    return root;
  }
  const Source source{payload, 0, 0};
  kVectors.walk(payload.size(), [&](uint32_t offset, uint32_t index) {
    if (valueForms::littleEndian(payload, offset, 8) == 0) {
      return false;
    }
    const std::string label = "Command Set Vector " + std::to_string(index);
    addProperties(*root, field(label.c_str(), "", byte(0), hex(2)).as("vectors").repeated(),
                  source.at(offset));
    addProperties(*root, kCommandSets, source.at(offset));
    return true;
  });
  return root;
}

}  // namespace orlo::features::identify::nvme::commandSetVector
