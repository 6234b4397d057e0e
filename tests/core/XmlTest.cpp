#include <gtest/gtest.h>
#include <malloc.h>

#include <cstdlib>
#include <cstring>
#include <new>
#include <string>

#include "orlo/core/xml/XmlObject.h"
#include "orlo/core/xml/XmlProperty.h"
#include "support/ExpectedText.h"

using namespace orlo::core::xml;
using orlo::testing::xmlText;

namespace {

std::unique_ptr<XmlProperty> property(const std::string& name, const std::string& value) {
  auto made = std::make_unique<XmlProperty>();
  made->attribute("name") = name;
  made->attribute("value") = value;
  return made;
}

// Memory given back while gSecret is set is searched for it, to see that attribute
// values are wiped before an element frees them.
const char* gSecret = nullptr;
bool gSecretFreed = false;

void checkFreed(void* block) {
  if (gSecret == nullptr || block == nullptr) return;
  const size_t size = malloc_usable_size(block);
  if (memmem(block, size, gSecret, std::strlen(gSecret)) != nullptr) gSecretFreed = true;
}

}  // namespace

void* operator new(size_t size) {
  if (void* block = std::malloc(size == 0 ? 1 : size)) return block;
  throw std::bad_alloc();
}
void operator delete(void* block) noexcept {
  checkFreed(block);
  std::free(block);
}
void operator delete(void* block, size_t) noexcept {
  operator delete(block);
}

// "<" and ">" are escaped before "&", so they come out escaped twice.
TEST(Xml, WritesSortedEscapedAttributesThenPropertiesListsAndObjects) {
  XmlObject root("root", "", "1");
  root.attribute("Zulu") = "z";
  auto child = std::make_unique<XmlObject>();
  child->addProperty("inner", "d", "a<b>&\"'&lt;");
  root.addObject("child", std::move(child));
  root.lists().push_back(property("list", "3"));
  root.addProperty("p", "", " 12\n ").attribute("key") = "p";

  EXPECT_EQ(xmlText(root),
            R"(<Object Zulu="z" description="" name="root" value="1">)"
            R"(<Property description="" key="p" name="p" value="12"/>)"
            R"(<Property name="list" value="3"/>)"
            R"(<Object name="child"><Property description="d" name="inner" )"
            R"(value="a&amp;lt;b&amp;gt;&amp;&quot;&apos;&amp;lt;"/></Object></Object>)");
  EXPECT_EQ(xmlText(*root.clone()), xmlText(root));
  EXPECT_EQ(root.getAttribute("missing"), "");
}

TEST(Xml, FindVisitsObjectsListsThenPropertiesWithinDepth) {
  XmlObject root;
  root.attribute("name") = "x";
  root.addProperty("x", "", "property");
  root.lists().push_back(property("x", "list"));
  auto child = std::make_unique<XmlObject>();
  child->addProperty("x", "", "deep");
  root.addObject("x", std::move(child));

  const auto values = [&root](uint8_t depth, const std::string& element) {
    std::string seen;
    for (const auto& match : root.find(element, "name", "x", depth)) {
      seen += match->name() + ":" + match->getAttribute("value") + " ";
    }
    return seen;
  };
  EXPECT_EQ(values(0, ""), "");
  EXPECT_EQ(values(1, ""), "Object: Property:list Property:property ");
  EXPECT_EQ(values(2, ""), "Object: Object: Property:deep Property:list Property:property ");
  EXPECT_EQ(values(2, "Property"), "Property:deep Property:list Property:property ");
}

TEST(Xml, EmptinessCountsLists) {
  XmlObject object;
  EXPECT_TRUE(object.isEmpty() && XmlProperty().isEmpty());
  object.lists().push_back(std::make_unique<XmlProperty>());
  EXPECT_FALSE(object.isEmpty());
}

// A clone keeps the keyed form, which the XML never shows.
TEST(Xml, KeysComeFromTheClosingAcronymOrTheWordsAndSurviveCloning) {
  using orlo::core::xml::keyOf;
  EXPECT_EQ(keyOf("PCI Vendor ID (VID)"), "vid");
  EXPECT_EQ(keyOf("Power-on Hours (hours)"), "power_on_hours_hours");
  EXPECT_EQ(keyOf("Support Command Effects Log Enhancements (TP 4071b)"),
            "support_command_effects_log_enhancements_tp_4071b");
  EXPECT_EQ(keyOf(" SMBus/I2C Port  "), "smbus_i2c_port");
  EXPECT_EQ(keyOf("Temperature (\u00B0C)"), "temperature_c");
  EXPECT_EQ(keyOf("Retired") + keyOf("Reserved for CFA") + keyOf("Obsolete"), "");
  XmlObject object;
  object.addProperty("Byte 0", "Serial Number", "S1").keyed() =
      orlo::core::xml::Keyed::text("sn", "S1");
  const auto copy = object.clone();
  std::string written;
  copy->write(written);
  EXPECT_EQ(
      written,
      "<Object><Property description=\"Serial Number\" name=\"Byte 0\" value=\"S1\"/></Object>");
  EXPECT_EQ(dynamic_cast<XmlObject&>(*copy).properties().front()->keyed().value, "S1");
}

TEST(Xml, AttributeValuesAreWipedOnDestruction) {
  const std::string secret = "serial-number-0123456789-ABCDEFGHIJ";
  auto object = std::make_unique<XmlObject>();
  object->addProperty("serial", "", secret);
  object->attribute("value") = secret;
  object->keyed() = orlo::core::xml::Keyed::text("sn", secret);
  gSecret = secret.c_str();
  object.reset();
  gSecret = nullptr;
  EXPECT_FALSE(gSecretFreed);
}
