#include "orlo/features/identify/ControllerDataRows.h"

#include <iterator>
#include <memory>

#include "orlo/core/Strings.h"
#include "orlo/features/identify/IdentifyValueForms.h"

namespace orlo::features::identify::nvme::controllerData {

namespace {

const char* stripeSizeWord(uint64_t code) {
  static const char* const kWords[] = {
      " (Driver assisted striping not supported by FW)",
      " (8 KiB of user data)",
      " (16 KiB of user data)",
      " (32 KiB of user data)",
      " (64 KiB of user data)",
      " (128 KiB of user data)",
  };
  return code < std::size(kWords) ? kWords[code] : " (Unknown)";
}

std::string numberText(uint64_t value, Form form) {
  switch (form) {
    case Hex:
      return valueForms::hex(value);
    case Hex2:
      return valueForms::hex(value, 2);
    case Hex4:
      return valueForms::hex(value, 4);
    case Hex8:
      return valueForms::hex(value, 8);
    case ZeroBytes:
      return "0x" + core::strings::toHexString(core::Payload(static_cast<uint32_t>(value)));
    case StripeSize:
      return valueForms::decimal(value) + stripeSizeWord(value);
    default:
      return valueForms::decimal(value);
  }
}

std::string valueText(const core::Payload& payload, uint32_t offset, uint32_t length, Form form) {
  switch (form) {
    case Empty:
      return "";
    case Text:
      return valueForms::text(payload, offset, length);
    case FailureMode: {
      const std::string text = valueForms::text(payload, offset, length);
      return text.empty() ? "Healthy" : text;
    }
    case StoredBytes:
      return valueForms::longHex(payload, offset, length, false);
    case Hex128:
      return valueForms::hex128(payload, offset);
    default:
      return numberText(valueForms::littleEndian(payload, offset, length), form);
  }
}

}  // namespace

FieldRow reserved(const char* label, Gate gate) {
  return {label, "Reserved", 0, 0, Empty, gate};
}

void addFields(core::xml::XmlObject& parent, const core::Payload& payload, const FieldRows& rows,
               Versions versions) {
  for (const FieldRow& row : rows) {
    if (!row.gate.holds(versions)) {
      continue;
    }
    if (row.fullGate.holds(versions)) {
      addField(parent, payload, row.label, row.description, row.offset, row.length, row.form,
               row.group, versions);
    } else {
      addField(parent, payload, row.label, "Reserved", 0, 0, Empty, nullptr, versions);
    }
  }
}

void addField(core::xml::XmlObject& parent, const core::Payload& payload, const std::string& label,
              const std::string& description, uint32_t offset, uint32_t length, Form form,
              const BitRows* group, Versions versions) {
  auto field = std::make_unique<core::xml::XmlObject>(label, description,
                                                      valueText(payload, offset, length, form));
  if (group != nullptr) {
    for (const BitRow& row : *group) {
      if (row.gate.holds(versions)) {
        const uint64_t value = valueForms::bits(payload, offset, row.high, row.low);
        field->addProperty(row.label, row.description, numberText(value, row.form));
      }
    }
  }
  parent.addObject(label, std::move(field));
}

}  // namespace orlo::features::identify::nvme::controllerData
