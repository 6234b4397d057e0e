#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "host/JsonDocument.h"
#include "orlo/core/xml/XmlObject.h"
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

}  // namespace
