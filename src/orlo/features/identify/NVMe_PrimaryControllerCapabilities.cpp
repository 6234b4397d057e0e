#include "orlo/features/identify/NVMe_PrimaryControllerCapabilities.h"

#include "orlo/core/Payload.h"
#include "orlo/features/identify/IdentifyTable.h"

namespace orlo::features::identify::nvme::primaryControllerCapabilities {

namespace {

using namespace table;

// clang-format off
constexpr Row kResourceTypes[] = {
    field("Bit 7:2", "Reserved",               bits(7, 2), hex()),
    field("Bit 1",   "VI Resources Supported", bit(1),     decimal),
    field("Bit 0",   "VQ Resources Supported", bit(0),     decimal),
};

constexpr Row kCapabilities[] = {
    field("Byte 0-1",   "Controller Identifier",                      range(0, 1),   bareHex()),
    field("Byte 2-3",   "Port Identifier",                            range(2, 3),   bareHex()),
    group("Byte 4",     "Controller Resource Types",                  byte(4),       bareHex(), kResourceTypes),
    reserved("Byte 5-31"),
    field("Byte 32-35", "VQ Resources Flexible Total",                range(32, 35), bareHex()),
    field("Byte 36-39", "VQ Resources Flexible Assigned",             range(36, 39), bareHex()),
    field("Byte 40-41", "VQ Resources Flexible Allocated to Primary", range(40, 41), bareHex()),
    field("Byte 42-43", "VQ Resources Private Total",                 range(42, 43), bareHex()),
    field("Byte 44-45", "VQ Resources Flexible Secondary Maximum",    range(44, 45), bareHex()),
    field("Byte 46-47", "VQ Flexible Resource Preferred Granularity", range(46, 47), bareHex()),
    reserved("Byte 48-63"),
    field("Byte 64-67", "VI Resources Flexible Total",                range(64, 67), bareHex()),
    field("Byte 68-71", "VI Resources Flexible Assigned",             range(68, 71), bareHex()),
    field("Byte 72-73", "VI Resources Flexible Allocated to Primary", range(72, 73), bareHex()),
    field("Byte 74-75", "VI Resources Private Total",                 range(74, 75), bareHex()),
    field("Byte 76-77", "VI Resources Flexible Secondary Maximum",    range(76, 77), bareHex()),
    field("Byte 78-79", "VI Flexible Resource Preferred Granularity", range(78, 79), bareHex()),
    reserved("Byte 80-4095"),
};
// clang-format on

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
