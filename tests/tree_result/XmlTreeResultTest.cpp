#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "orlo/core/xml/XmlObject.h"
#include "plugins/plugin.cliframework/XmlTreeResult.h"

namespace {

using orlo::core::xml::XmlObject;
using plugin::cli::XmlTreeResult;

// The device commands' tests check the four formats against each other on decoded
// trees; here are the cases that drives seldom give: a key that differs from the
// name, bytes that are neither printable nor UTF-8, an empty value, a nested level.
TEST(XmlTreeResult, ShowsOddFieldsAndBytesAtTheirLevel) {
  auto root = std::make_unique<XmlObject>();
  root->attribute("name") = "Log";
  root->attribute("key") = "Other";
  auto serial = std::make_unique<XmlObject>("", "Serial Number", "S,N\x01\"<\xff\xc3\xa9");
  serial->addProperty("Bit 0", "", "");
  root->addObject("Byte 4", std::move(serial));
  const XmlTreeResult result(std::move(root));

  EXPECT_EQ(result.name, "Log");
  EXPECT_EQ(result.toText(1),
            "  Log (key: Other)\n"
            "    Serial Number [Byte 4]: S,N\\x01\"<\\xFF\xc3\xa9\n"
            "      Bit 0:\n");
  EXPECT_EQ(result.toCsv(),
            "Level,Name,Description,Value,Other\n"
            "0,Log,,,key=Other\n"
            "1,Byte 4,Serial Number,\"S,N\\x01\"\"<\\xFF\xc3\xa9\",\n"
            "2,Bit 0,,,\n");
  EXPECT_NE(result.toJson(0).find("\"value\": \"S,N\\u0001\\\"<\\u00ff\xc3\xa9\""),
            std::string::npos);
  EXPECT_EQ(result.toXml(1),
            "  <Object key=\"Other\" name=\"Log\">\n"
            "    <Object description=\"Serial Number\" name=\"Byte 4\" "
            "value=\"S,N\\x01&quot;&amp;lt;\\xFF\xc3\xa9\">\n"
            "      <Property description=\"\" name=\"Bit 0\" value=\"\"/>\n"
            "    </Object>\n"
            "  </Object>\n");
  EXPECT_EQ(XmlTreeResult(std::make_unique<XmlObject>()).toJson(0), "{}");
}

}  // namespace
