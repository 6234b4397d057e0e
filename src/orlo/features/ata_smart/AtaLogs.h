#pragma once

#include <memory>
#include <string>

#include "orlo/core/Device.h"
#include "orlo/core/Payload.h"
#include "orlo/core/Status.h"
#include "orlo/core/xml/XmlObject.h"
#include "orlo/features/ata_smart/SmartAttributes.h"

namespace orlo::features::ata_smart {

// What SMART answers: the attribute values and thresholds, and the verdict.
struct SmartReadings {
  core::Payload data;
  core::Payload thresholds;  // empty when the drive refused them
  SmartVerdict verdict = SmartVerdict::unknown;
};

// SMART RETURN STATUS, READ DATA and READ THRESHOLDS. Only the data decides the
// result: a drive that refuses the others still shows its attributes.
core::Status readSmart(core::Device& device, SmartReadings& readings);

// The Device Statistics log, as many pages as the log directory gives it; the
// driveKeepsNoLog failure when the directory gives none.
core::Status readDeviceStatistics(core::Device& device, core::Payload& log);

// The log names that an ATA drive answers to, as LogName lists them.
std::string ataLogNames();
// Whether `name`, in any case, is one of them.
bool isAtaLogName(const std::string& name);

// Reads the ATA log named `name` from the drive and decodes it into `tree`; a name
// that is no ATA log's gives logOfOtherProtocol.
core::Status decodeAtaLog(const std::string& name, core::Device& device,
                          std::unique_ptr<core::xml::XmlObject>& tree);

}  // namespace orlo::features::ata_smart
