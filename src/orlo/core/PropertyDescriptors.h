#pragma once

#include "orlo/core/Attribute.h"

// Makers of the property descriptors: each returns a fresh Attribute with a name,
// a label and a type tag, an empty description and an empty value. Every reader
// and writer of a property spells its key through one of these.
namespace orlo::core::properties {

// Device and capability properties.
Attribute csmi();
Attribute errorLogPageEntries();
Attribute firmware();
Attribute isCommandPathNVMeMSFT();
Attribute modelNumber();
Attribute namespaceId();
Attribute namespaceManagementSupported();
Attribute nvme1Point1OrGreater();
Attribute nvme1Point2OrGreater();
Attribute nvme1Point3OrGreater();
Attribute nvme1Point4OrGreater();
Attribute nvme2Point0OrGreater();
Attribute ocpSupported();
Attribute oem();
Attribute product();
Attribute serialNumber();
Attribute smartPerNamespace();
Attribute veldra();
Attribute veldraNVMe();
Attribute supportCommandEffectsLogEnhancements();
Attribute uuidSupported();

// Log and command properties.
Attribute logName();
Attribute logDescription();
Attribute logId();
Attribute logSpecificField();
Attribute logSpecificId();
Attribute namespaceSpecific();
Attribute numDWORDs();
Attribute logPageOffset();
Attribute controllerNamespaceStructure();
Attribute file();
Attribute uuidIndex();

}  // namespace orlo::core::properties
