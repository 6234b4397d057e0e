#pragma once

#include <string>

#include "orlo/core/Device.h"
#include "orlo/core/Status.h"

namespace orlo::devices {

// Records a drive into a device image that a ReplayDevice can play back: its
// attributes, but not Veldra and VeldraNVMe, which the vendor list of whoever
// replays the image decides, and the replies to the commands that the toolkit
// sends. For NVMe these are every Identify structure that the toolkit decodes,
// for the namespaces it may ask about (none, all, the node's own, the active and
// the allocated ones), the drive's own log pages (SMART / Health Information, also
// per namespace where the drive keeps it, Error Information, Firmware Slot
// Information, Device Self-test) and the maker's pages 5 and 221, the vendor's page
// with the UUID index of the vendor's GUID as the toolkit sends it; for ATA,
// IDENTIFY DEVICE, CHECK POWER MODE, SMART data, thresholds and RETURN STATUS, and
// Device Statistics where the log directory lists it. A command that the drive refuses is kept as
// the completion it refused with, so that the replay fails alike. No user data is read.
core::Status captureImage(core::Device& device, const std::string& directory);

}  // namespace orlo::devices
