#include "orlo/features/nvme_get_log/NVMeGetLogMarketingDescription.h"

#include <cstring>
#include <string>

#include "orlo/commands/nvme/Layout.h"
#include "orlo/core/ProductNames.h"
#include "orlo/core/PropertyDescriptors.h"
#include "orlo/features/nvme_get_log/LogFactories.h"
#include "orlo/features/nvme_get_log/LogNames.h"
#include "orlo/features/nvme_get_log/LogTree.h"

namespace orlo::features::nvme_get_log {

namespace properties = core::properties;
namespace products = core::products;

namespace {

constexpr uint8_t kLogId = commands::nvme::layout::kMarketingDescriptionLog.id;
constexpr uint32_t kLogSize = commands::nvme::layout::kMarketingDescriptionLog.size;
// A log shorter than this is shown without its text.
constexpr uint32_t kShortestLog = 4;

std::unique_ptr<NVMeGetLog> makeMarketingDescription(const std::shared_ptr<core::Device>& device,
                                                     const core::AttributeCollection& attributes) {
  return std::unique_ptr<NVMeGetLog>(new NVMeGetLogMarketingDescription(device, attributes));
}

[[maybe_unused]] const bool registered =
    registerLogFactory(logNames::MarketingDescription, makeMarketingDescription);

bool contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

// Whether the drive may also give the log without a UUID selection: OCP drives of the first
// family's two editions from the generic channel, and of the second family from the generic
// and Oracle channels.
bool acceptsZeroGUID(const core::AttributeCollection& device) {
  if (!core::readBool(device, properties::veldraNVMe()) ||
      !core::readBool(device, properties::ocpSupported())) {
    return false;
  }
  const std::string product = core::readString(device, properties::product());
  const std::string oem = core::readString(device, properties::oem());
  if (contains(product, products::ProductFamilyOneEE) ||
      contains(product, products::ProductFamilyOneVE)) {
    return oem == "Generic";
  }
  return contains(product, products::ProductFamilyTwo) && (oem == "Generic" || oem == "Oracle");
}

}  // namespace

const uint32_t NVMeGetLogMarketingDescription::defaultNumDWORDs = numDWORDsFor(kLogSize);

NVMeGetLogMarketingDescription::NVMeGetLogMarketingDescription(
    const std::shared_ptr<core::Device>& device, const core::AttributeCollection& attributes)
    : NVMeGetLog(device, kLogId, defaultNumDWORDs, logNames::MarketingDescription, attributes) {
  uuidManager->supportedUUIDs.push_back(uuid::VendorGUID);
  uuidManager->supportedUUIDs.push_back(uuid::VendorGUIDReversed);
  if (acceptsZeroGUID(device->attributes)) uuidManager->supportedUUIDs.push_back(uuid::ZeroGUID);
  core::writeString(this->attributes, properties::logDescription(), "Marketing Description Log");
}

NVMeGetLogMarketingDescription::~NVMeGetLogMarketingDescription() = default;

std::unique_ptr<core::xml::XmlObject> NVMeGetLogMarketingDescription::getXml() {
  auto root = namedObject("Marketing Description Log");
  if (payload.data() == nullptr || payload.size() < kShortestLog) return root;
  const char* text = reinterpret_cast<const char*>(payload.data());
  addNameValue(*root, "Marketing String", std::string(text, strnlen(text, payload.size())));
  return root;
}

}  // namespace orlo::features::nvme_get_log
