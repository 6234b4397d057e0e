#pragma once

#include <cstdint>
#include <random>

#include "orlo/core/AttributeCollection.h"
#include "orlo/core/Payload.h"
#include "orlo/core/ProductNames.h"
#include "orlo/core/PropertyDescriptors.h"

// The same bytes in every run, so that runs compare.
inline orlo::core::Payload benchPayload(uint32_t size) {
  std::mt19937 generator(20240601);
  orlo::core::Payload payload(size);
  for (uint32_t i = 0; i < size; ++i) payload.data()[i] = static_cast<uint8_t>(generator());
  return payload;
}

// A drive that claims every NVMe version and carries vendor data, so that every gated
// row is decoded.
inline orlo::core::AttributeCollection benchDeviceAttributes() {
  namespace properties = orlo::core::properties;
  orlo::core::AttributeCollection attributes;
  for (auto flag : {properties::nvme1Point1OrGreater, properties::nvme1Point2OrGreater,
                    properties::nvme1Point3OrGreater, properties::nvme1Point4OrGreater,
                    properties::nvme2Point0OrGreater, properties::veldraNVMe,
                    properties::supportCommandEffectsLogEnhancements}) {
    orlo::core::writeUInt8(attributes, flag(), 1);
  }
  orlo::core::writeString(attributes, properties::product(),
                          orlo::core::products::ProductFamilyOneRR);
  orlo::core::writeString(attributes, properties::serialNumber(), "S0000001");
  orlo::core::writeString(attributes, properties::firmware(), "1.0");
  orlo::core::writeString(attributes, properties::modelNumber(), "Corvid P41");
  return attributes;
}
