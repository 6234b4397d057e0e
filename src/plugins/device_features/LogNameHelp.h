#pragma once

#include <string>

#include "orlo/features/nvme_get_log/LogNames.h"

namespace plugin::cli {

// How the commands that read a log page describe LogName: the names that the
// toolkit has a class for. LogFile writes NVMe pages only; LogPage also shows the
// ATA logs.
namespace logNames = orlo::features::nvme_get_log::logNames;
const std::string logNameValues = logNames::SmartHealthInfo + "|" + logNames::ErrorInfo + "|" +
                                  logNames::FirmwareSlotInfo + "|" + logNames::DeviceSelfTestLog +
                                  "|" + logNames::CommandEffectsLog + "|" +
                                  logNames::MarketingDescription;
const std::string logNameHelp =
    "Log page, in any case. Any NVMe drive's own: SmartHealthInfo (log 2, SMART / Health "
    "Information; for NamespaceId where the drive keeps it per namespace), ErrorInfo (log 1, "
    "Error Information), FirmwareSlotInfo (log 3, Firmware Slot Information) or "
    "DeviceSelfTestLog (log 6, Device Self-test). The maker's: CommandEffectsLog (log 5, "
    "Commands Supported and Effects) or MarketingDescription (log 221).";
const std::string logPageNameValues =
    logNameValues + "|" + orlo::features::nvme_get_log::logNames::SmartAttributes + "|" +
    orlo::features::nvme_get_log::logNames::DeviceStatistics;
const std::string logPageNameHelp =
    "Log page, in any case. NVMe drives: SmartHealthInfo (log 2, SMART / Health Information; "
    "for NamespaceId where the drive keeps it per namespace), ErrorInfo (log 1), "
    "FirmwareSlotInfo (log 3), DeviceSelfTestLog (log 6), CommandEffectsLog (log 5, Commands "
    "Supported and Effects) or MarketingDescription (log 221). ATA drives: SmartAttributes (the "
    "SMART attributes with their thresholds, and the SMART RETURN STATUS verdict) or "
    "DeviceStatistics (General Purpose Log 04h: power-on hours, sectors written and read, "
    "temperatures, percentage used).";
const std::string logNamespaceHelp =
    "NVMe namespace of SmartHealthInfo, decimal or 0x hex, where the drive keeps that log per "
    "namespace; else, and by default, the whole controller (0xFFFFFFFF). Other logs ignore it.";

}  // namespace plugin::cli
