#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "host/JsonDocument.h"
#include "orlo/core/xml/XmlObject.h"
#include "orlo/core/xml/XmlProperty.h"
#include "plugins/plugin.cliframework/StatusResult.h"
#include "plugins/plugin.cliframework/XmlTreeResult.h"

namespace {

using orlo::core::xml::XmlObject;
using orlo::host::jsonDocument;

plugin::cli::XmlTreeResult tree(const std::string& name) {
  auto root = std::make_unique<XmlObject>();
  if (!name.empty()) root->attribute("name") = name;
  return plugin::cli::XmlTreeResult(std::move(root));
}

// The shapes that the installed orlo's commands seldom give: a tree with the lines of a
// plug-in that printed, an empty tree, and a message whose bytes the toolkit's writer
// leaves invalid.
TEST(JsonDocument, IsOneObjectWhateverTheResultAndThePrintedLines) {
  EXPECT_EQ(jsonDocument(tree("Log"), {"one", "tw\"o"}),
            "{\n  \"name\": \"Log\",\n  \"Output\": [\n    \"one\",\n    \"tw\\\"o\"\n  ]\n}\n");
  EXPECT_EQ(jsonDocument(tree(""), {"one"}), "{\n  \"Output\": [\n    \"one\"\n  ]\n}\n");
  EXPECT_EQ(jsonDocument(tree("Log"), {}), "{\n  \"name\": \"Log\"\n}\n");
  EXPECT_EQ(
      jsonDocument(plugin::cli::StatusResult("a\nb\t\r\"\\\xff\x01 \xc3\xa9", 2), {""}),
      "{\n  \"Result\": {\n    \"Description\": \"a\\nb\\t\\r\\\"\\\\\\u00ff\\u0001 \xc3\xa9\",\n"
      "    \"Type\": 2\n  },\n  \"Output\": [\n    \"\"\n  ]\n}\n");
  EXPECT_EQ(orlo::host::jsonFailure("no", orlo::host::ExitCode::refused, {}),
            "{\n  \"Error\": \"no\",\n  \"ExitCode\": 2\n}\n");
}

// The keyed form's rules on one tree: an element without a key gives way to its keyed
// children, a number with keyed children is an object holding it under its value key,
// entries of one key are one array where the first stands (also when alone), an element
// that is not keyed is left out, and text is escaped as JSON has it.
TEST(JsonDocument, KeyedFormGathersEntriesAndLiftsUnkeyedElements) {
  using orlo::core::xml::Keyed;
  XmlObject root;
  root.addProperty("Byte 0", "Serial Number", "S\"1").keyed() = Keyed::text("sn", "S\"1");
  auto group = std::make_unique<XmlObject>();
  group->keyed() = Keyed::number("oacs", 6);
  group->keyed().valueKey = "raw";
  group->addProperty("Bit 1", "Format", "1").keyed() = Keyed::number("fmt", 1);
  group->addProperty("Bit 0", "Reserved", "0");
  auto wrapper = std::make_unique<XmlObject>();
  for (const uint64_t id : {1, 2}) {
    wrapper->addProperty("NSID", "", std::to_string(id)).keyed() = Keyed::number("nsids", id);
    wrapper->properties().back()->keyed().entry = true;
    if (id == 1) wrapper->addProperty("Count", "", "2").keyed() = Keyed::number("count", 2);
  }
  auto single = std::make_unique<XmlObject>();
  single->keyed() = Keyed::entryObject("errors");
  root.objects().push_back(std::move(group));
  root.objects().push_back(std::move(wrapper));
  root.objects().push_back(std::move(single));
  EXPECT_EQ(orlo::host::keyedDocument(root, {"printed"}),
            "{\n  \"sn\": \"S\\\"1\",\n"
            "  \"oacs\": {\n    \"raw\": 6,\n    \"fmt\": 1\n  },\n"
            "  \"nsids\": [\n    1,\n    2\n  ],\n"
            "  \"count\": 2,\n"
            "  \"errors\": [\n    {}\n  ],\n"
            "  \"Output\": [\n    \"printed\"\n  ]\n}\n");
  EXPECT_EQ(orlo::host::keyedDocument(XmlObject(), {}), "{\n}\n");
}

}  // namespace
