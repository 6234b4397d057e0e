#include "orlo/features/ata_smart/SmartAttributesDecoder.h"

#include <string>

#include "orlo/core/Strings.h"
#include "orlo/features/ata_smart/SmartAttributeTable.h"
#include "orlo/features/nvme_get_log/LogTree.h"

namespace orlo::features::ata_smart {

namespace {

using core::xml::Keyed;
using core::xml::keyOf;
using nvme_get_log::addNameValue;

const char* verdictText(SmartVerdict verdict) {
  switch (verdict) {
    case SmartVerdict::passed:
      return "PASSED";
    case SmartVerdict::failed:
      return "FAILED (a threshold is exceeded)";
    case SmartVerdict::unknown:
      break;
  }
  return "Not reported";
}

const char* rawLabel(const KnownAttribute* known) {
  switch (known != nullptr ? known->form : RawForm::Count48) {
    case RawForm::Count32:
      return "Raw Value (bits 31:0)";
    case RawForm::Celsius:
      return "Raw Value (Celsius, byte 0)";
    case RawForm::Count48:
      break;
  }
  return "Raw Value";
}

const char* stateOf(const SmartAttribute& attribute) {
  if (attribute.failingNow()) return "Failing now";
  if (attribute.failedInThePast()) return "Failed in the past";
  return "OK";
}

// The raw bytes as one number, highest byte first, as the drive's tools print them.
std::string rawBytes(const SmartAttribute& attribute) {
  std::string text = "0x";
  for (auto at = attribute.raw.size(); at-- > 0;)
    text += core::strings::toHex(attribute.raw[at], 2);
  return text;
}

}  // namespace

std::unique_ptr<core::xml::XmlObject> decodeSmartAttributes(const core::Payload& data,
                                                            const core::Payload& thresholds,
                                                            SmartVerdict verdict) {
  auto root = nvme_get_log::namedObject("SMART Attributes");
  addNameValue(*root, "SMART Overall Health", verdictText(verdict));
  for (const SmartAttribute& attribute : readSmartAttributes(data, thresholds)) {
    auto child = std::make_unique<core::xml::XmlObject>();
    child->attribute("name") = "Attribute " + std::to_string(attribute.id) + " (0x" +
                               core::strings::toHex(attribute.id, 2) + ")";
    // Keyed as the drive's tools key an attribute: its entry holds the id.
    child->keyed() = Keyed::number("attributes", attribute.id);
    child->keyed().entry = true;
    child->keyed().valueKey = "id";
    const KnownAttribute* known = knownAttribute(attribute.id);
    addNameValue(*child, "Name", known != nullptr ? known->name : "Unknown");
    addNameValue(*child, "Flags", "0x" + core::strings::toHex(attribute.flags, 4)).keyed() =
        Keyed::number("flags", attribute.flags);
    for (const FlagBit& bit : kFlagBits) {
      const bool set = (attribute.flags & bit.mask) != 0;
      addNameValue(*child, bit.name, set ? "1" : "0").keyed() = Keyed::number(keyOf(bit.name), set);
    }
    addNameValue(*child, "Current", std::to_string(attribute.current)).keyed() =
        Keyed::number("value", attribute.current);
    addNameValue(*child, "Worst", std::to_string(attribute.worst)).keyed() =
        Keyed::number("worst", attribute.worst);
    auto& threshold =
        addNameValue(*child, "Threshold",
                     attribute.threshold ? std::to_string(*attribute.threshold) : "Not reported");
    threshold.keyed() =
        attribute.threshold ? Keyed::number("thresh", *attribute.threshold) : Keyed{};
    addNameValue(*child, rawLabel(known), std::to_string(attribute.rawValue())).keyed() =
        Keyed::number("raw", attribute.rawValue());
    addNameValue(*child, "Raw Bytes", rawBytes(attribute));
    addNameValue(*child, "State", stateOf(attribute));
    root->objects().push_back(std::move(child));
  }
  return root;
}

}  // namespace orlo::features::ata_smart
