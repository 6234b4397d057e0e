#include "orlo/core/PropertyDescriptors.h"

#include "orlo/core/AttributeType.h"

namespace orlo::core::properties {

using namespace attributeType;

// clang-format off
Attribute csmi() { return Attribute("CSMI", "CSMI", boolean()); }
Attribute errorLogPageEntries() { return Attribute("ErrorLogPageEntries", "Error Log Page Entries (0's based)", uint8()); }
Attribute firmware() { return Attribute("Firmware", "Firmware", string()); }
Attribute isCommandPathNVMeMSFT() { return Attribute("IsCommandPathNVMeMSFT", "Is Command Path NVMe MSFT", boolean()); }
Attribute modelNumber() { return Attribute("ModelNumber", "Model Number", string()); }
Attribute namespaceId() { return Attribute("NamespaceId", "NamespaceId", uint32()); }
Attribute namespaceManagementSupported() { return Attribute("NamespaceManagementSupported", "Namespace Management Supported", boolean()); }
Attribute nvme1Point1OrGreater() { return Attribute("NVMe1Point1OrGreater", "NVMe 1.1 or greater", boolean()); }
Attribute nvme1Point2OrGreater() { return Attribute("NVMe1Point2OrGreater", "NVMe 1.2 or greater", boolean()); }
Attribute nvme1Point3OrGreater() { return Attribute("NVMe1Point3OrGreater", "NVMe 1.3 or greater", boolean()); }
Attribute nvme1Point4OrGreater() { return Attribute("NVMe1Point4OrGreater", "NVMe 1.4 or greater", boolean()); }
Attribute nvme2Point0OrGreater() { return Attribute("NVMe2Point0OrGreater", "NVMe 2.0 or greater", boolean()); }
Attribute ocpSupported() { return Attribute("OCPSupported", "OCP Supported", boolean()); }
Attribute oem() { return Attribute("OEM", "OEM", string()); }
Attribute product() { return Attribute("Product", "Product", string()); }
Attribute serialNumber() { return Attribute("SerialNumber", "Serial Number", string()); }
Attribute smartPerNamespace() { return Attribute("SmartPerNamespace", "SMART / Health Information per Namespace", boolean()); }
Attribute veldra() { return Attribute("Veldra", "Veldra", boolean()); }
Attribute veldraNVMe() { return Attribute("VeldraNVMe", "Veldra NVMe", boolean()); }
Attribute supportCommandEffectsLogEnhancements() { return Attribute("SupportCommandEffectsLogEnhancements", "Support Command Effects Log Enhancements", boolean()); }
Attribute uuidSupported() { return Attribute("UUIDSupported", "UUID Supported", boolean()); }

Attribute logName() { return Attribute("LogName", "Log Name", string()); }
Attribute logDescription() { return Attribute("LogDescription", "Log Description", string()); }
Attribute logId() { return Attribute("LogId", "Log Id", uint32()); }
Attribute logSpecificField() { return Attribute("LogSpecificField", "Log Specific Field", uint8()); }
Attribute logSpecificId() { return Attribute("LogSpecificId", "Log Specific Identifier (LSI)", uint16()); }
Attribute namespaceSpecific() { return Attribute("NamespaceSpecific", "Namespace Specific", boolean()); }
Attribute numDWORDs() { return Attribute("NumDWORDs", "NumDWORDs", uint32()); }
Attribute logPageOffset() { return Attribute("LogPageOffset", "Log Page Offset", uint64()); }
Attribute controllerNamespaceStructure() { return Attribute("ControllerNamespaceStructure", "Controller Namespace Structure", uint8()); }
Attribute file() { return Attribute("File", "File", string()); }
Attribute uuidIndex() { return Attribute("UUIDIndex", "UUID Index for NVMe command", uint8()); }
// clang-format on

}  // namespace orlo::core::properties
