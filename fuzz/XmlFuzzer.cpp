// The XML object model built from the input: objects, properties and attributes with any
// values, written, cloned and searched. The escaper must leave no raw markup in a value,
// and a clone must write the same text as its original.
#include <fuzzer/FuzzedDataProvider.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "orlo/core/xml/XmlElement.h"
#include "orlo/core/xml/XmlObject.h"
#include "orlo/core/xml/XmlProperty.h"

namespace {

using orlo::core::xml::XmlObject;

const char* const kKeys[] = {"name", "description", "value", "key", "size", "type", "category"};

// Every "&" must open one of the five entities, and no quote or bracket is left bare.
void checkEscaped(const std::string& escaped) {
  static const std::string kEntities[] = {"&amp;", "&lt;", "&gt;", "&quot;", "&apos;"};
  for (size_t i = 0; i < escaped.size(); ++i) {
    const char c = escaped[i];
    if (c == '<' || c == '>' || c == '"' || c == '\'') std::abort();
    if (c != '&') continue;
    bool known = false;
    for (const std::string& entity : kEntities)
      known |= escaped.compare(i, entity.size(), entity) == 0;
    if (!known) std::abort();
  }
}

// The written text holds nothing but tags: every "<" opens an object or a property or
// closes an object, and the objects nest.
void checkWritten(const std::string& xml) {
  int depth = 0;
  for (size_t i = xml.find('<'); i != std::string::npos; i = xml.find('<', i + 1)) {
    const auto at = [&](const char* tag) {
      return xml.compare(i, std::string(tag).size(), tag) == 0;
    };
    if (at("<Object ") || at("<Object>")) {
      ++depth;
    } else if (at("</Object>")) {
      if (--depth < 0) std::abort();
    } else if (!at("<Property ") && !at("<Property/>")) {
      std::abort();
    }
  }
  if (depth != 0) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  FuzzedDataProvider input(data, size);
  auto root = std::make_unique<XmlObject>();
  std::vector<XmlObject*> path{root.get()};

  while (input.remaining_bytes() > 0) {
    XmlObject& current = *path.back();
    switch (input.ConsumeIntegralInRange(0, 4)) {
      case 0:
        current.addProperty(input.ConsumeRandomLengthString(32),
                            input.ConsumeRandomLengthString(32),
                            input.ConsumeRandomLengthString(64));
        break;
      case 1: {
        auto child = std::make_unique<XmlObject>(input.ConsumeRandomLengthString(32),
                                                 input.ConsumeRandomLengthString(32),
                                                 input.ConsumeRandomLengthString(64));
        path.push_back(&current.addObject(input.ConsumeRandomLengthString(32), std::move(child)));
        break;
      }
      case 2:
        current.attribute(input.PickValueInArray(kKeys)) = input.ConsumeRandomLengthString(64);
        break;
      case 3:
        if (path.size() > 1) path.pop_back();
        break;
      case 4:
        checkEscaped(orlo::core::xml::escape(input.ConsumeRandomLengthString(64)));
        break;
    }
  }

  std::string written;
  root->write(written);
  checkWritten(written);
  std::string copied;
  root->clone()->write(copied);
  if (copied != written) std::abort();
  for (const auto& found : root->find("", "value", "", 8)) {
    if (found->getAttribute("value") != "") std::abort();
  }
  return 0;
}
