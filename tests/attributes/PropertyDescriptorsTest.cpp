#include <gtest/gtest.h>

#include <string>

#include "orlo/core/PropertyDescriptors.h"
#include "orlo/features/NamespaceProperty.h"
#include "orlo/features/nvme_get_log/UUIDIndexProperty.h"

namespace orlo::core {
namespace {

TEST(PropertyDescriptors, EveryMakerSpellsItsRow) {
  struct Row {
    Attribute (*maker)();
    std::string name, displayName, type;
  };
  namespace p = properties;
  // clang-format off
  const Row rows[] = {
      {p::csmi, "CSMI", "CSMI", "boolean"},
      {p::firmware, "Firmware", "Firmware", "string"},
      {p::isCommandPathNVMeMSFT, "IsCommandPathNVMeMSFT", "Is Command Path NVMe MSFT", "boolean"},
      {p::modelNumber, "ModelNumber", "Model Number", "string"},
      {p::namespaceId, "NamespaceId", "NamespaceId", "uint32"},
      {p::namespaceManagementSupported, "NamespaceManagementSupported", "Namespace Management Supported", "boolean"},
      {p::nvme1Point1OrGreater, "NVMe1Point1OrGreater", "NVMe 1.1 or greater", "boolean"},
      {p::nvme1Point2OrGreater, "NVMe1Point2OrGreater", "NVMe 1.2 or greater", "boolean"},
      {p::nvme1Point3OrGreater, "NVMe1Point3OrGreater", "NVMe 1.3 or greater", "boolean"},
      {p::nvme1Point4OrGreater, "NVMe1Point4OrGreater", "NVMe 1.4 or greater", "boolean"},
      {p::nvme2Point0OrGreater, "NVMe2Point0OrGreater", "NVMe 2.0 or greater", "boolean"},
      {p::ocpSupported, "OCPSupported", "OCP Supported", "boolean"},
      {p::oem, "OEM", "OEM", "string"},
      {p::product, "Product", "Product", "string"},
      {p::serialNumber, "SerialNumber", "Serial Number", "string"},
      {p::veldra, "Veldra", "Veldra", "boolean"},
      {p::veldraNVMe, "VeldraNVMe", "Veldra NVMe", "boolean"},
      {p::supportCommandEffectsLogEnhancements, "SupportCommandEffectsLogEnhancements", "Support Command Effects Log Enhancements", "boolean"},
      {p::uuidSupported, "UUIDSupported", "UUID Supported", "boolean"},
      {p::logName, "LogName", "Log Name", "string"},
      {p::logDescription, "LogDescription", "Log Description", "string"},
      {p::logId, "LogId", "Log Id", "uint32"},
      {p::logSpecificField, "LogSpecificField", "Log Specific Field", "uint8"},
      {p::logSpecificId, "LogSpecificId", "Log Specific Identifier (LSI)", "uint16"},
      {p::namespaceSpecific, "NamespaceSpecific", "Namespace Specific", "boolean"},
      {p::numDWORDs, "NumDWORDs", "NumDWORDs", "uint32"},
      {p::logPageOffset, "LogPageOffset", "Log Page Offset", "uint64"},
      {p::controllerNamespaceStructure, "ControllerNamespaceStructure", "Controller Namespace Structure", "uint8"},
      {p::file, "File", "File", "string"},
      {p::uuidIndex, "UUIDIndex", "UUID Index for NVMe command", "uint8"},
      {features::namespaceProperty, "NamespaceId", "NamespaceId", "uint32"},
      {features::nvme_get_log::uuidIndexProperty, "UUIDIndex", "UUID Index for NVMe command", "uint8"},
  };
  // clang-format on
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    const Attribute descriptor = row.maker();
    EXPECT_EQ(descriptor.name, row.name);
    EXPECT_EQ(descriptor.displayName, row.displayName);
    EXPECT_EQ(descriptor.type, row.type);
    EXPECT_TRUE(descriptor.description.empty() && descriptor.value.size() == 0);
  }
}

}  // namespace
}  // namespace orlo::core
