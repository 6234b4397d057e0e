#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "orlo/core/Status.h"
#include "orlo/core/xml/XmlObject.h"
#include "orlo/core/xml/XmlProperty.h"
#include "plugins/plugin.cliframework/XmlTreeResult.h"

namespace {

using orlo::core::xml::XmlObject;
using plugin::cli::XmlTreeResult;

// A root with a property, an object whose value holds a control byte, a comma,
// quotation marks, "<" and a byte that is not UTF-8, with an empty property below it,
// and a status object.
XmlTreeResult sampleResult() {
  auto root = std::make_unique<XmlObject>();
  root->attribute("name") = "Identify Controller";
  root->attribute("key") = "Identify Controller";
  root->addProperty("Bit 3", "Feature", "1");
  auto serial = std::make_unique<XmlObject>("", "Serial Number", "SN\x01,\"<7\"\xff");
  serial->addProperty("Bit 0", "", "");
  root->addObject("Byte 4-23", std::move(serial));
  root->objects().push_back(orlo::core::Status(10, 33, "Failed").toXml());
  return XmlTreeResult(std::move(root));
}

TEST(XmlTreeResult, RendersEveryElementWithTheSameFieldsInEachFormat) {
  const XmlTreeResult result = sampleResult();
  EXPECT_EQ(result.name, "Identify Controller");
  EXPECT_EQ(result.toText(0),
            "Identify Controller\n"
            "  Feature [Bit 3]: 1\n"
            "  Serial Number [Byte 4-23]: SN\\x01,\"<7\"\\xFF\n"
            "    Bit 0:\n"
            "  (category: status)\n"
            "    Category: 10\n"
            "    Code: 33\n"
            "    Message: Failed\n");
  EXPECT_EQ(result.toCsv(),
            "Level,Name,Description,Value,Other\n"
            "0,Identify Controller,,,\n"
            "1,Bit 3,Feature,1,\n"
            "1,Byte 4-23,Serial Number,\"SN\\x01,\"\"<7\"\"\\xFF\",\n"
            "2,Bit 0,,,\n"
            "1,,,,category=status\n"
            "2,Category,,10,\n"
            "2,Code,,33,\n"
            "2,Message,,Failed,\n");
  const std::string status =
      "    {\n"
      "      \"category\": \"status\",\n"
      "      \"children\": [\n"
      "        {\n          \"name\": \"Category\",\n          \"value\": \"10\"\n        },\n"
      "        {\n          \"name\": \"Code\",\n          \"value\": \"33\"\n        },\n"
      "        {\n          \"name\": \"Message\",\n          \"value\": \"Failed\"\n        }\n"
      "      ]\n"
      "    }\n";
  EXPECT_EQ(result.toJson(0),
            "{\n"
            "  \"name\": \"Identify Controller\",\n"
            "  \"children\": [\n"
            "    {\n      \"description\": \"Feature\",\n      \"name\": \"Bit 3\",\n"
            "      \"value\": \"1\"\n    },\n"
            "    {\n      \"description\": \"Serial Number\",\n      \"name\": \"Byte 4-23\",\n"
            "      \"value\": \"SN\\u0001,\\\"<7\\\"\\u00ff\",\n"
            "      \"children\": [\n"
            "        {\n          \"description\": \"\",\n          \"name\": \"Bit 0\",\n"
            "          \"value\": \"\"\n        }\n"
            "      ]\n"
            "    },\n" +
                status +
                "  ]\n"
                "}");
  EXPECT_EQ(result.toXml(0),
            "<?xml version=\"1.0\" standalone=\"yes\" ?>\n"
            "<Object key=\"Identify Controller\" name=\"Identify Controller\">\n"
            "  <Property description=\"Feature\" name=\"Bit 3\" value=\"1\"/>\n"
            "  <Object description=\"Serial Number\" name=\"Byte 4-23\" "
            "value=\"SN\\x01,&quot;&amp;lt;7&quot;\\xFF\">\n"
            "    <Property description=\"\" name=\"Bit 0\" value=\"\"/>\n"
            "  </Object>\n"
            "  <Object category=\"status\">\n"
            "    <Property name=\"Category\" value=\"10\"/>\n"
            "    <Property name=\"Code\" value=\"33\"/>\n"
            "    <Property name=\"Message\" value=\"Failed\"/>\n"
            "  </Object>\n"
            "</Object>\n");
}

TEST(XmlTreeResult, IndentsByLevelShowsAKeyThatDiffersFromTheNameAndSkipsAnUnnamedRoot) {
  auto root = std::make_unique<XmlObject>();
  root->attribute("name") = "Log";
  root->attribute("key") = "Other";
  const XmlTreeResult result(std::move(root));
  EXPECT_EQ(result.toText(1), "  Log (key: Other)\n");
  EXPECT_EQ(result.toCsv(), "Level,Name,Description,Value,Other\n0,Log,,,key=Other\n");
  EXPECT_EQ(result.toJson(1), "  {\n    \"key\": \"Other\",\n    \"name\": \"Log\"\n  }");
  EXPECT_EQ(result.toXml(1), "  <Object key=\"Other\" name=\"Log\"></Object>\n");
  EXPECT_EQ(XmlTreeResult(std::make_unique<XmlObject>()).toJson(0), "{}");

  auto unnamed = std::make_unique<XmlObject>();
  unnamed->addProperty("Vector 0", "", "0x01");
  const XmlTreeResult list(std::move(unnamed));
  EXPECT_EQ(list.toText(0), "Vector 0: 0x01\n");
  EXPECT_EQ(list.toCsv(), "Level,Name,Description,Value,Other\n0,Vector 0,,0x01,\n");
}

}  // namespace
