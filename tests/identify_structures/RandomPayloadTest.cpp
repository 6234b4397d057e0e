#include <gtest/gtest.h>

#include <functional>
#include <random>

#include "orlo/core/AttributeCollection.h"
#include "orlo/core/Payload.h"
#include "orlo/core/PropertyDescriptors.h"
#include "orlo/features/identify/NVMe_CommandSetVector.h"
#include "orlo/features/identify/NVMe_ControllerList.h"
#include "orlo/features/identify/NVMe_NamespaceData.h"
#include "orlo/features/identify/NVMe_NamespaceGranularityList.h"
#include "orlo/features/identify/NVMe_NamespaceIdentification.h"
#include "orlo/features/identify/NVMe_NamespaceList.h"
#include "orlo/features/identify/NVMe_PrimaryControllerCapabilities.h"
#include "orlo/features/identify/NVMe_SecondaryControllerList.h"
#include "orlo/features/identify/NVMe_UUIDList.h"

namespace {

namespace nvme = orlo::features::identify::nvme;
namespace properties = orlo::core::properties;
using Decoder =
    std::function<std::unique_ptr<orlo::core::xml::XmlObject>(const orlo::core::Payload&)>;

// Under the sanitizers, any read outside a buffer ends the program.
TEST(IdentifyDecoders, StayInsideRandomPayloadsOfEverySize) {
  orlo::core::AttributeCollection device;
  for (const auto& version :
       {properties::nvme1Point2OrGreater(), properties::nvme1Point3OrGreater(),
        properties::nvme1Point4OrGreater()}) {
    orlo::core::writeUInt8(device, version, 1);
  }
  const Decoder decoders[] = {
      [&](const orlo::core::Payload& p) { return nvme::namespaceData::toXmlObject(p, device); },
      nvme::namespaceList::toXmlObject,
      nvme::namespaceIdentification::toXmlObject,
      nvme::controllerList::toXmlObject,
      nvme::primaryControllerCapabilities::toXmlObject,
      nvme::secondaryControllerList::toXmlObject,
      nvme::namespaceGranularityList::toXmlObject,
      nvme::UUIDList::toXmlObject,
      nvme::commandSetVector::toXmlObject,
  };
  std::mt19937 random(20240611);
  std::uniform_int_distribution<int> byte(0, 255);
  for (uint32_t size = 0; size <= 4096; size += size < 4064 ? 31 : 1) {
    orlo::core::Payload payload(size);
    for (uint32_t i = 0; i < size; ++i) {
      payload[i] = static_cast<uint8_t>(byte(random));
    }
    for (const auto& decode : decoders) {
      EXPECT_NE(decode(payload), nullptr) << size;
    }
  }
}

}  // namespace
