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
using orlo::core::Payload;

// Under the sanitizers, a read outside the buffer ends the program; here the trees are also
// written out, so that every value is formatted.
TEST(IdentifyDecoders, StayInsideRandomPayloadsOfEverySize) {
  orlo::core::AttributeCollection device;
  orlo::core::writeUInt8(device, orlo::core::properties::nvme1Point2OrGreater(), 1);
  orlo::core::writeUInt8(device, orlo::core::properties::nvme1Point4OrGreater(), 1);
  const std::function<std::unique_ptr<orlo::core::xml::XmlObject>(const Payload&)> decoders[] = {
      [&](const Payload& payload) { return nvme::namespaceData::toXmlObject(payload, device); },
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
  for (uint32_t size = 0; size <= 4096; size += size < 4064 ? 31 : 1) {
    Payload payload(size);
    for (uint32_t i = 0; i < size; ++i) payload[i] = static_cast<uint8_t>(random());
    for (const auto& decode : decoders) {
      std::string xml;
      decode(payload)->write(xml);
      EXPECT_EQ(xml.rfind("</Object>"), xml.size() - 9) << size;
    }
  }
}

}  // namespace
