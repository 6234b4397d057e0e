#pragma once

#include "devices/VendorList.h"
#include "orlo/core/AttributeCollection.h"
#include "orlo/core/Device.h"
#include "orlo/core/Payload.h"
#include "orlo/core/Status.h"

namespace orlo::devices {

// The attributes that features read from a device, taken from what the drive
// reports about itself: serial number, model, firmware, Product (the model), the
// capability flags, CSMI false, and Veldra and VeldraNVMe when the drive's PCI
// vendor or subsystem vendor is on `makers`.

// From 4096 bytes of Identify Controller data; shorter data sets nothing.
void setNvmeAttributes(core::AttributeCollection& attributes, const core::Payload& controllerData,
                       const VendorList& makers);
// From 512 bytes of IDENTIFY DEVICE data; shorter data sets nothing. An ATA drive
// has no PCI vendor, so it is never taken for one of the maker's.
void setAtaAttributes(core::AttributeCollection& attributes, const core::Payload& identifyData);

// Asks the device for Identify Controller (NVMe) or IDENTIFY DEVICE (ATA) and sets
// its attributes from the answer; the status of that command, or 35 for a device
// of neither protocol.
core::Status identifyDrive(core::Device& device, const VendorList& makers);

}  // namespace orlo::devices
