#include "orlo/features/identify/NVMe_PrimaryControllerCapabilities.h"

#include "orlo/core/Payload.h"
#include "orlo/features/identify/IdentifyTable.h"

namespace orlo::features::identify::nvme::primaryControllerCapabilities {

namespace {

using namespace table;

// clang-format off
constexpr Row kResourceTypes[] = {
    field("Bit 7:2", "Reserved",               hex()),
    field("Bit 1",   "VI Resources Supported", decimal),
    field("Bit 0",   "VQ Resources Supported", decimal),
};

constexpr Row kCapabilities[] = {
    field("Byte 0-1",   "Controller Identifier",                      bareHex()),
    field("Byte 2-3",   "Port Identifier",                            bareHex()),
    group("Byte 4",     "Controller Resource Types",                  bareHex(), kResourceTypes),
    reserved("Byte 5-31"),
    field("Byte 32-35", "VQ Resources Flexible Total",                bareHex()),
    field("Byte 36-39", "VQ Resources Flexible Assigned",             bareHex()),
    field("Byte 40-41", "VQ Resources Flexible Allocated to Primary", bareHex()),
    field("Byte 42-43", "VQ Resources Private Total",                 bareHex()),
    field("Byte 44-45", "VQ Resources Flexible Secondary Maximum",    bareHex()),
    field("Byte 46-47", "VQ Flexible Resource Preferred Granularity", bareHex()),
    reserved("Byte 48-63"),
    field("Byte 64-67", "VI Resources Flexible Total",                bareHex()),
    field("Byte 68-71", "VI Resources Flexible Assigned",             bareHex()),
    field("Byte 72-73", "VI Resources Flexible Allocated to Primary", bareHex()),
    field("Byte 74-75", "VI Resources Private Total",                 bareHex()),
    field("Byte 76-77", "VI Resources Flexible Secondary Maximum",    bareHex()),
    field("Byte 78-79", "VI Flexible Resource Preferred Granularity", bareHex()),
    reserved("Byte 80-4095"),
};
// clang-format on

static_assert(tiles(kCapabilities, kReplySize));

}  // namespace

std::unique_ptr<core::xml::XmlObject> toXmlObject(const core::Payload& payload) {
  auto root = std::make_unique<core::xml::XmlObject>();
  if (payload.size() < kReplySize) {
    return root;
  }
  nameRoot(*root, "Primary Controller Capabilities");
  addFields(*root, kCapabilities, Source{payload, 0, 0});
  return root;
}

}  // namespace orlo::features::identify::nvme::primaryControllerCapabilities
