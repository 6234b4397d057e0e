// The JSON writer over trees of every kind, including kinds it does not know, with any
// string values. Keys are written as they stand, so they are kept free of quotes and
// backslashes here.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

#include "JsonShape.h"
#include "orlo/features/Json.h"

namespace {

using orlo::features::Json;

std::string keyFrom(FuzzedDataProvider& input) {
  std::string key = input.ConsumeRandomLengthString(16);
  key.erase(std::remove_if(key.begin(), key.end(), [](char c) { return c == '"' || c == '\\'; }),
            key.end());
  return key;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  FuzzedDataProvider input(data, size);
  Json root;
  root.name = keyFrom(input);
  std::vector<Json*> path{&root};

  while (input.remaining_bytes() > 0) {
    switch (input.ConsumeIntegralInRange(0, 2)) {
      case 0: {
        Json& node = path.back()->child(keyFrom(input));
        node.kind = input.ConsumeIntegralInRange<uint32_t>(0, 7);
        node.unsignedValue = input.ConsumeIntegral<uint64_t>();
        node.signedValue = input.ConsumeIntegral<int64_t>();
        node.floatValue = input.ConsumeFloatingPoint<double>();
        node.stringValue = input.ConsumeRandomLengthString(64);
        path.push_back(&node);
        break;
      }
      case 1:
        if (path.size() > 1) path.pop_back();
        break;
      case 2:
        path.back()->children.push_back(
            std::make_shared<Json>(input.ConsumeRandomLengthString(64)));
        break;
    }
  }

  std::ostringstream out;
  root.write(out, input.ConsumeIntegralInRange<uint32_t>(0, 3));
  checkJsonShape(out.str());
  return 0;
}
