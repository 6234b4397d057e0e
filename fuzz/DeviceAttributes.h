#pragma once

#include <fuzzer/FuzzedDataProvider.h>

#include <cstdint>
#include <string>

#include "orlo/core/AttributeCollection.h"
#include "orlo/core/ProductNames.h"
#include "orlo/core/PropertyDescriptors.h"

// The device attributes that decoders read, taken from the fuzzer's input: every flag
// in any combination (absent, 0, 1 or another byte, since only 1 reads as true), the
// product and OEM names drawn mostly from the names that switch vendor rows on, and
// the identity texts as any bytes.
inline orlo::core::AttributeCollection deviceAttributesFrom(FuzzedDataProvider& input) {
  namespace properties = orlo::core::properties;
  namespace products = orlo::core::products;
  using orlo::core::Attribute;
  orlo::core::AttributeCollection attributes;

  Attribute (*const flags[])() = {
      properties::nvme1Point1OrGreater,
      properties::nvme1Point2OrGreater,
      properties::nvme1Point3OrGreater,
      properties::nvme1Point4OrGreater,
      properties::nvme2Point0OrGreater,
      properties::veldra,
      properties::veldraNVMe,
      properties::csmi,
      properties::ocpSupported,
      properties::uuidSupported,
      properties::namespaceManagementSupported,
      properties::supportCommandEffectsLogEnhancements,
  };
  for (auto flag : flags) {
    const uint8_t choice = input.ConsumeIntegralInRange<uint8_t>(0, 3);
    if (choice != 0) orlo::core::writeUInt8(attributes, flag(), choice == 3 ? 2 : choice - 1);
  }

  const std::string product = input.PickValueInArray(
      {std::string(), products::ProductFamilyOneEE, products::ProductFamilyOneVE,
       products::ProductFamilyOneRefresh, products::ProductFamilyOneRR, products::ProductFamilyTwo,
       products::ProductFamilyThree, products::ProductFamilyFour, products::ProductFamilyFourDP,
       "x" + products::ProductFamilyOneRR + "x", std::string("tamsel t4 dp")});
  orlo::core::writeString(attributes, properties::product(), product);
  const uint8_t oem = input.ConsumeIntegralInRange<uint8_t>(0, 2);
  orlo::core::writeString(attributes, properties::oem(),
                          oem == 1   ? "Oracle"
                          : oem == 2 ? "Generic"
                                     : input.ConsumeRandomLengthString(16));
  for (auto identity : {properties::serialNumber, properties::firmware, properties::modelNumber}) {
    orlo::core::writeString(attributes, identity(), input.ConsumeRandomLengthString(48));
  }
  return attributes;
}
