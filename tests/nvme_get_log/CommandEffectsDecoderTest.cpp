#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "orlo/core/PropertyDescriptors.h"
#include "orlo/features/nvme_get_log/CommandEffectsDecoder.h"

namespace commandEffects = orlo::features::nvme_get_log::commandEffects;
namespace properties = orlo::core::properties;
using orlo::core::AttributeCollection;
using orlo::core::Payload;

namespace {

void putEntry(Payload& log, uint32_t offset, uint32_t entry) {
  for (uint32_t i = 0; i < 4; ++i) log[offset + i] = static_cast<uint8_t>(entry >> (8 * i));
}

AttributeCollection versions(bool nvme1Point4, bool enhancements) {
  AttributeCollection device;
  writeUInt8(device, properties::nvme1Point4OrGreater(), nvme1Point4);
  writeUInt8(device, properties::supportCommandEffectsLogEnhancements(), enhancements);
  return device;
}

std::string xmlOf(const Payload& log, const AttributeCollection& device) {
  std::string text;
  commandEffects::decode(log, device)->write(text);
  return text;
}

// Admin opcode 2 has every field distinct from its neighbours and bits 31:26 set; opcode 16
// has all bits but bit 0; I/O opcode 255 has only bit 0 and bit 25.
Payload craftedLog() {
  Payload log(4096);
  putEntry(log, 4 * 2, 0xFD5D0015);
  putEntry(log, 4 * 6, 0x00000001);
  putEntry(log, 4 * 16, 0xFFFFFFFE);
  putEntry(log, 1024 + 4 * 255, 0x02000001);
  return log;
}

const std::string kRoot =
    R"x(<Object key="Commands Effects Log (Log ID = 5)" name="Commands Effects Log (Log ID = 5)">)x";

}  // namespace

TEST(CommandEffectsDecoder, CraftedLogWithScopeRows) {
  const std::string expected = kRoot +
                               R"x(<Object name="Admin Command 2 (0x02)">)x"
                               R"x(<Property name="Command Supported" value="1"/>)x"
                               R"x(<Property name="Logical Block Content Change" value="0"/>)x"
                               R"x(<Property name="Namespace Capability Change" value="1"/>)x"
                               R"x(<Property name="Namespace Inventory Change" value="0"/>)x"
                               R"x(<Property name="Controller Capability Change" value="1"/>)x"
                               R"x(<Property name="Command Submission and Execution" value="5"/>)x"
                               R"x(<Property name="Namespace Scope" value="1"/>)x"
                               R"x(<Property name="Controller Scope" value="0"/>)x"
                               R"x(<Property name="NVM Set Scope" value="1"/>)x"
                               R"x(<Property name="Endurance Group Scope" value="0"/>)x"
                               R"x(<Property name="Domain Scope" value="1"/>)x"
                               R"x(<Property name="NVM Subsystem Scope" value="0"/></Object>)x"
                               R"x(<Object name="Admin Command 6 (0x06)">)x"
                               R"x(<Property name="Command Supported" value="1"/>)x"
                               R"x(<Property name="Logical Block Content Change" value="0"/>)x"
                               R"x(<Property name="Namespace Capability Change" value="0"/>)x"
                               R"x(<Property name="Namespace Inventory Change" value="0"/>)x"
                               R"x(<Property name="Controller Capability Change" value="0"/>)x"
                               R"x(<Property name="Command Submission and Execution" value="0"/>)x"
                               R"x(<Property name="Namespace Scope" value="0"/>)x"
                               R"x(<Property name="Controller Scope" value="0"/>)x"
                               R"x(<Property name="NVM Set Scope" value="0"/>)x"
                               R"x(<Property name="Endurance Group Scope" value="0"/>)x"
                               R"x(<Property name="Domain Scope" value="0"/>)x"
                               R"x(<Property name="NVM Subsystem Scope" value="0"/></Object>)x"
                               R"x(<Object name="I/O Command 255 (0xFF)">)x"
                               R"x(<Property name="Command Supported" value="1"/>)x"
                               R"x(<Property name="Logical Block Content Change" value="0"/>)x"
                               R"x(<Property name="Namespace Capability Change" value="0"/>)x"
                               R"x(<Property name="Namespace Inventory Change" value="0"/>)x"
                               R"x(<Property name="Controller Capability Change" value="0"/>)x"
                               R"x(<Property name="Command Submission and Execution" value="0"/>)x"
                               R"x(<Property name="Namespace Scope" value="0"/>)x"
                               R"x(<Property name="Controller Scope" value="0"/>)x"
                               R"x(<Property name="NVM Set Scope" value="0"/>)x"
                               R"x(<Property name="Endurance Group Scope" value="0"/>)x"
                               R"x(<Property name="Domain Scope" value="0"/>)x"
                               R"x(<Property name="NVM Subsystem Scope" value="1"/></Object>)x"
                               R"x(</Object>)x";
  EXPECT_EQ(xmlOf(craftedLog(), versions(false, true)), expected);
}

TEST(CommandEffectsDecoder, VersionAttributesGateTheirRows) {
  struct Case {
    bool nvme1Point4;
    bool enhancements;
    std::size_t rows;
    std::string lastRow;
  };
  for (const Case& c : {Case{false, false, 6, "Command Submission and Execution"},
                        Case{true, false, 7, "UUID Selection Supported"},
                        Case{true, true, 13, "NVM Subsystem Scope"}}) {
    const auto tree = commandEffects::decode(craftedLog(), versions(c.nvme1Point4, c.enhancements));
    ASSERT_EQ(tree->objects().size(), 3u);
    const auto& rows = static_cast<orlo::core::xml::XmlObject&>(*tree->objects()[0]).properties();
    ASSERT_EQ(rows.size(), c.rows);
    EXPECT_EQ(rows.back()->getAttribute("name"), c.lastRow);
  }
}

TEST(CommandEffectsDecoder, ShortEmptyAndSingleCommandLogs) {
  const std::string shortLog =
      kRoot + R"x(<Object category="status"><Property name="Category" value="10"/>)x"
              R"x(<Property name="Code" value="33"/>)x"
              R"x(<Property name="Message" value="Failed to retrieve data from selected drive."/>)x"
              R"x(</Object></Object>)x";
  EXPECT_EQ(xmlOf(Payload(), versions(true, true)), shortLog);
  EXPECT_EQ(xmlOf(Payload(4095), versions(true, true)), shortLog);
  EXPECT_EQ(xmlOf(Payload(4096), versions(true, true)),
            kRoot + R"x(<Property name="Commands Supported" value="0"/></Object>)x");

  Payload oneIoCommand(4096);
  putEntry(oneIoCommand, 1024, 0x00000001);
  const auto tree = commandEffects::decode(oneIoCommand, versions(false, false));
  EXPECT_TRUE(tree->properties().empty());
  ASSERT_EQ(tree->objects().size(), 1u);
  EXPECT_EQ(tree->objects()[0]->getAttribute("name"), "I/O Command 0 (0x00)");
}
