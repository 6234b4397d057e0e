#include "orlo/features/ata_smart/AtaLogs.h"

#include "orlo/commands/ata/Layout.h"
#include "orlo/commands/ata/ReadLogExt.h"
#include "orlo/commands/ata/Smart.h"
#include "orlo/core/OwnStatuses.h"
#include "orlo/features/ata_smart/DeviceStatistics.h"
#include "orlo/features/ata_smart/LogDirectory.h"
#include "orlo/features/ata_smart/SmartAttributesDecoder.h"
#include "orlo/features/nvme_get_log/LogFactories.h"
#include "orlo/features/nvme_get_log/LogNames.h"

namespace orlo::features::ata_smart {

namespace {

namespace layout = commands::ata::layout;
namespace logNames = nvme_get_log::logNames;

}  // namespace

core::Status readSmart(core::Device& device, SmartReadings& readings) {
  commands::ata::SmartReturnStatus returnStatus;
  readings.verdict = smartVerdict(device.send(returnStatus).protocolResult.get());
  commands::ata::SmartReadThresholds readThresholds;
  const core::CommandRecord thresholds = device.send(readThresholds);
  readings.thresholds =
      core::succeeded(thresholds.status) ? thresholds.outputPayload : core::Payload();
  commands::ata::SmartReadData readData;
  const core::CommandRecord data = device.send(readData);
  readings.data = data.outputPayload;
  return data.status;
}

core::Status readDeviceStatistics(core::Device& device, core::Payload& log) {
  commands::ata::ReadLogExt readDirectory(layout::kLogDirectory, 0, 1);
  const core::CommandRecord directory = device.send(readDirectory);
  const uint16_t pages = core::succeeded(directory.status)
                             ? logPages(directory.outputPayload, layout::kDeviceStatisticsLog)
                             : 0;
  if (pages == 0) return core::driveKeepsNoLog("Device Statistics log (General Purpose Log 04h)");
  commands::ata::ReadLogExt readLog(layout::kDeviceStatisticsLog, 0, pages);
  const core::CommandRecord read = device.send(readLog);
  log = read.outputPayload;
  return read.status;
}

std::string ataLogNames() {
  return logNames::SmartAttributes + ", " + logNames::DeviceStatistics;
}

bool isAtaLogName(const std::string& name) {
  const std::string key = nvme_get_log::logKey(name);
  return key == nvme_get_log::logKey(logNames::SmartAttributes) ||
         key == nvme_get_log::logKey(logNames::DeviceStatistics);
}

core::Status decodeAtaLog(const std::string& name, core::Device& device,
                          std::unique_ptr<core::xml::XmlObject>& tree) {
  const std::string key = nvme_get_log::logKey(name);
  core::Status status = core::Status::success();
  if (key == nvme_get_log::logKey(logNames::SmartAttributes)) {
    SmartReadings readings;
    status = readSmart(device, readings);
    if (core::succeeded(status)) {
      tree = decodeSmartAttributes(readings.data, readings.thresholds, readings.verdict);
    }
  } else if (key == nvme_get_log::logKey(logNames::DeviceStatistics)) {
    core::Payload log;
    status = readDeviceStatistics(device, log);
    if (core::succeeded(status)) tree = decodeDeviceStatistics(log);
  } else {
    status = core::logOfOtherProtocol(name, "ATA", ataLogNames());
  }
  return status;
}

}  // namespace orlo::features::ata_smart
