// Every Identify decoder over payloads of any size and any device attributes. A decoder
// never fails: it gives a tree, and an empty one for a payload too short for its
// structure.
#include <fuzzer/FuzzedDataProvider.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "DeviceAttributes.h"
#include "orlo/core/Payload.h"
#include "orlo/core/xml/XmlObject.h"
#include "orlo/features/identify/ATAIdentifyDecoder.h"
#include "orlo/features/identify/NVMe_ControllerData.h"

namespace {

using orlo::core::AttributeCollection;
using orlo::core::Payload;
using Tree = std::unique_ptr<orlo::core::xml::XmlObject>;
namespace identify = orlo::features::identify;

struct Decoder {
  Tree (*decode)(const Payload&, const AttributeCollection&);
  uint32_t structureSize;
};

const Decoder kDecoders[] = {
    {identify::nvme::controllerData::toXmlObject, 4096},
    {identify::ata::decodeIdentifyDevice, 512},
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  FuzzedDataProvider input(data, size);
  const Decoder& decoder =
      kDecoders[input.ConsumeIntegralInRange<size_t>(0, std::size(kDecoders) - 1)];
  const AttributeCollection attributes = deviceAttributesFrom(input);
  const std::vector<uint8_t> bytes = input.ConsumeRemainingBytes<uint8_t>();
  const Payload payload(bytes.data(), bytes.size());

  const Tree tree = decoder.decode(payload, attributes);
  if (!tree) std::abort();
  if (payload.size() < decoder.structureSize && !tree->isEmpty()) std::abort();
  std::string xml;
  tree->write(xml);
  return 0;
}
