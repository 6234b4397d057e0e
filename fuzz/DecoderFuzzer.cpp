// Every Identify decoder and the log-page decoders over payloads of any size and any device
// attributes. A decoder never fails: it gives a tree, and an Identify decoder one without
// children for a payload too short for its structure.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "DeviceAttributes.h"
#include "orlo/core/Payload.h"
#include "orlo/core/xml/XmlObject.h"
#include "orlo/features/ata_smart/DeviceStatistics.h"
#include "orlo/features/ata_smart/SmartAttributesDecoder.h"
#include "orlo/features/identify/ATAIdentifyDecoder.h"
#include "orlo/features/identify/NVMe_CommandSetVector.h"
#include "orlo/features/identify/NVMe_ControllerData.h"
#include "orlo/features/identify/NVMe_ControllerList.h"
#include "orlo/features/identify/NVMe_NamespaceData.h"
#include "orlo/features/identify/NVMe_NamespaceGranularityList.h"
#include "orlo/features/identify/NVMe_NamespaceIdentification.h"
#include "orlo/features/identify/NVMe_NamespaceList.h"
#include "orlo/features/identify/NVMe_PrimaryControllerCapabilities.h"
#include "orlo/features/identify/NVMe_SecondaryControllerList.h"
#include "orlo/features/identify/NVMe_UUIDList.h"
#include "orlo/features/nvme_get_log/DeviceSelfTestLog.h"
#include "orlo/features/nvme_get_log/ErrorInformationLog.h"
#include "orlo/features/nvme_get_log/FirmwareSlotLog.h"
#include "orlo/features/nvme_get_log/NVMeGetLogMarketingDescription.h"
#include "orlo/features/nvme_get_log/NVMeGetLog_CommandsEffects.h"
#include "orlo/features/nvme_get_log/SmartHealthLog.h"
#include "support/FakeDevice.h"

namespace {

using orlo::core::AttributeCollection;
using orlo::core::Payload;
using Tree = std::unique_ptr<orlo::core::xml::XmlObject>;
namespace nvme = orlo::features::identify::nvme;
namespace getLog = orlo::features::nvme_get_log;

template <Tree (*decode)(const Payload&)>
Tree withoutAttributes(const Payload& payload, const AttributeCollection&) {
  return decode(payload);
}

// A log page decodes the bytes its drive sent; here they are put in its payload directly.
template <typename LogPage>
Tree logPage(const Payload& payload, const AttributeCollection& attributes) {
  auto device = std::make_shared<orlo::test::FakeDevice>();
  device->attributes = attributes;
  LogPage page(device, attributes);
  page.payload = payload;
  return page.getXml();
}

// SMART data in the first sector, thresholds in what follows.
Tree smartAttributes(const Payload& payload, const AttributeCollection&) {
  const uint64_t split = std::min<uint64_t>(payload.size(), 512);
  const Payload data(payload.data(), split);
  const Payload thresholds(payload.data() + split, payload.size() - split);
  return orlo::features::ata_smart::decodeSmartAttributes(
      data, thresholds, orlo::features::ata_smart::SmartVerdict::unknown);
}

struct Decoder {
  Tree (*decode)(const Payload&, const AttributeCollection&);
  // Below this size the tree has no children; 0 for a decoder that reports a short payload
  // in its tree.
  uint32_t structureSize;
};

const Decoder kDecoders[] = {
    {nvme::controllerData::toXmlObject, 4096},
    {orlo::features::identify::ata::decodeIdentifyDevice, 512},
    {nvme::namespaceData::toXmlObject, 4096},
    {withoutAttributes<nvme::namespaceList::toXmlObject>, 4096},
    {withoutAttributes<nvme::namespaceIdentification::toXmlObject>, 4096},
    {withoutAttributes<nvme::controllerList::toXmlObject>, 4096},
    {withoutAttributes<nvme::primaryControllerCapabilities::toXmlObject>, 4096},
    {withoutAttributes<nvme::secondaryControllerList::toXmlObject>, 4096},
    {withoutAttributes<nvme::namespaceGranularityList::toXmlObject>, 288},
    {withoutAttributes<nvme::UUIDList::toXmlObject>, 4096},
    {withoutAttributes<nvme::commandSetVector::toXmlObject>, 4096},
    {logPage<getLog::NVMeGetLog_CommandsEffects>, 0},
    {logPage<getLog::NVMeGetLogMarketingDescription>, 4},
    {smartAttributes, 0},
    {withoutAttributes<orlo::features::ata_smart::decodeDeviceStatistics>, 0},
    {withoutAttributes<getLog::smartHealth::decode>, 0},
    {withoutAttributes<getLog::errorInformation::decode>, 0},
    {withoutAttributes<getLog::firmwareSlot::decode>, 0},
    {withoutAttributes<getLog::deviceSelfTest::decode>, 0},
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
  const bool hasChildren =
      !tree->properties().empty() || !tree->lists().empty() || !tree->objects().empty();
  if (payload.size() < decoder.structureSize && hasChildren) std::abort();
  std::string xml;
  tree->write(xml);
  return 0;
}
