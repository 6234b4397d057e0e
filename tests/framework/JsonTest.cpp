#include <gtest/gtest.h>

#include <sstream>

#include "orlo/features/Json.h"

using orlo::features::Json;

namespace {

std::string written(const Json& json, uint32_t level) {
  std::ostringstream out;
  json.write(out, level);
  return out.str();
}

Json scalar(uint32_t kind) {
  Json json;
  json.name = "k";
  json.kind = kind;
  return json;
}

}  // namespace

TEST(Json, WritesEachKindByItsRule) {
  Json unsignedValue = scalar(Json::unsignedKind);
  unsignedValue.unsignedValue = 18446744073709551615u;
  Json floatValue = scalar(Json::floatKind);
  floatValue.floatValue = 0.5;
  Json scalarWithChildren = scalar(Json::stringKind);
  scalarWithChildren.stringValue = "lost";
  scalarWithChildren.child("a").kind = Json::unsignedKind;

  EXPECT_EQ(written(Json(), 0), "{\n}");
  EXPECT_EQ(written(unsignedValue, 0), "\"k\": 18446744073709551615");
  EXPECT_EQ(written(scalar(Json::signedKind), 0), "\"k\": -1");
  EXPECT_EQ(written(floatValue, 1), "  \"k\": 0.5");
  EXPECT_EQ(written(scalarWithChildren, 0), "\"k\": {\n  \"a\": 0\n}");
  EXPECT_EQ(written(scalar(Json::arrayKind), 1), "  \"k\": [\n  ]");
  EXPECT_EQ(written(scalar(7), 2), "    \"k\": ");
}

TEST(Json, NestsTwoBlanksALevelUnderChildrenFoundByExactName) {
  Json root;
  root.name = "Result";
  Json& list = root.child("List");
  list.kind = Json::arrayKind;
  for (const char* text : {"a", "b"}) list.children.push_back(std::make_shared<Json>(text));
  EXPECT_EQ(&root.child("List"), &list);
  root.child("list");
  EXPECT_EQ(written(root, 0),
            "\"Result\": {\n  \"List\": [\n    \"a\",\n    \"b\"\n  ],\n  \"list\": {\n  }\n}");
}

TEST(Json, EscapesBytewise) {
  EXPECT_EQ(Json::escape("a\"b\\c"), "a\\\"b\\\\c");
  EXPECT_EQ(Json::escape("line\nnext\ttab\r\b\f"), "line\\\nnext\\\ttab\\\r\\\b\\\f");
  EXPECT_EQ(Json::escape(std::string("\x01\x1f\x7f\xc3\xa9", 5)), "\\u0001\\u001f\x7f\xc3\xa9");
  Json text("x\ny");
  text.name = "k";
  EXPECT_EQ(written(text, 0), "\"k\": \"x\\\ny\"");
}
