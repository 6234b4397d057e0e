#pragma once

#include <string>

// The names under which log pages are known to the toolkit. MarketingDescription,
// CommandEffectsLog, SmartHealthInfo, ErrorInfo, FirmwareSlotInfo and DeviceSelfTestLog have a
// class behind them; the others name log pages that a command line may speak of.
namespace orlo::features::nvme_get_log::logNames {

const std::string AsymmetricNamespace = "AsymmetricNamespace";
const std::string ChangedNamespaceList = "ChangedNamespaceList";
const std::string CommandEffectsLog = "CommandEffectsLog";
const std::string CycleCountInfo = "CycleCountInfo";
const std::string DellEMCLog = "DellEMCLog";
const std::string DellEMCTarvenLog = "DellEMCTarvenLog";
const std::string DeviceSelfTestLog = "DeviceSelfTestLog";
const std::string DeviceStatistics = "DeviceStatistics";
const std::string EnduranceGroupInfo = "EnduranceGroupInfo";
const std::string ErrorInfo = "ErrorInfo";
const std::string EmStatistics = "EmStatistics";
const std::string FirmwareSecurity = "FirmwareSecurity";
const std::string FirmwareSlotInfo = "FirmwareSlotInfo";
const std::string GarbageControlCollectionLog = "GarbageControlCollectionLog";
const std::string HDDQ61Revision = "HDDQ61Revision";
const std::string LatencyOutlier = "LatencyOutlier";
const std::string LatencyReads = "LatencyReads";
const std::string LatencyWrites = "LatencyWrites";
const std::string MarketingDescription = "MarketingDescription";
const std::string MICommandEffects = "MICommandEffects";
const std::string MsftSpecific = "MsftSpecific";
const std::string OCPDeviceCapabilities = "OCPDeviceCapabilities";
const std::string OCPErrorRecovery = "OCPErrorRecovery";
const std::string OCPFirmwareActivationHistory = "OCPFirmwareActivationHistory";
const std::string OCPSMARTCloud = "OCPSMARTCloud";
const std::string OCPUnsupportedRequirements = "OCPUnsupportedRequirements";
const std::string PerformanceBooster = "PerformanceBooster";
const std::string PersistentEventLog = "PersistentEventLog";
const std::string PowerUsage = "PowerUsage";
const std::string QueueMetrics = "QueueMetrics";
const std::string SanitizeStatus = "SanitizeStatus";
const std::string SmartHealthInfo = "SmartHealthInfo";
const std::string SmartAttributes = "SmartAttributes";
const std::string SupportedFeatureIdentifiers = "SupportedFeatureIdentifiers";
const std::string SupportedLogPages = "SupportedLogPages";
const std::string TemperatureStatistics = "TemperatureStatistics";
const std::string WorkloadTrackerLog = "WorkloadTrackerLog";

}  // namespace orlo::features::nvme_get_log::logNames
