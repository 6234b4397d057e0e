#include "orlo/features/health/NVMeHealthFacts.h"

#include "orlo/features/identify/IdentifyValueForms.h"
#include "orlo/features/nvme_get_log/LogFactories.h"
#include "orlo/features/nvme_get_log/LogNames.h"
#include "orlo/features/nvme_get_log/SmartHealthRows.h"

namespace orlo::features::health {

namespace smartHealth = nvme_get_log::smartHealth;

core::Status readNvmeHealthFacts(const std::shared_ptr<core::Device>& device, HealthFacts& facts) {
  const auto log = nvme_get_log::makeLog(nvme_get_log::logNames::SmartHealthInfo, device, {});
  core::Status status = log->sendCommand();
  if (!core::succeeded(status)) return status;
  const core::Payload& payload = log->getPayload();
  if (payload.size() < smartHealth::kLogSize) return core::Status::retrieveDataFailed();

  const smartHealth::Source source{payload, 0, 0};
  const auto number = [&](const smartHealth::Row& row) {
    return smartHealth::numberOf(row, source);
  };
  facts.protocol = "NVMe";
  facts.reportsHealthy = number(smartHealth::kCriticalWarning) == 0;
  for (const smartHealth::Row& bit : smartHealth::kCriticalWarningBits) {
    const bool set = smartHealth::numberOf(bit, smartHealth::kCriticalWarning, source) != 0;
    facts.criticalWarnings.emplace_back(bit.description, set);
    if (set) facts.problems.push_back(bit.description);
  }
  const uint64_t kelvins = number(smartHealth::kCompositeTemperature);
  if (kelvins != 0) {
    facts.temperatureCelsius = static_cast<int>(identify::nvme::valueForms::celsius(kelvins));
  }
  facts.powerOnHours = number(smartHealth::kPowerOnHours);
  facts.percentageUsed = static_cast<unsigned>(number(smartHealth::kPercentageUsed));
  facts.mediaErrors = smartHealth::valueOf(smartHealth::kMediaErrors, source);
  facts.unsafeShutdowns = smartHealth::valueOf(smartHealth::kUnsafeShutdowns, source);
  facts.availableSparePercent = static_cast<unsigned>(number(smartHealth::kAvailableSpare));
  facts.availableSpareThresholdPercent =
      static_cast<unsigned>(number(smartHealth::kAvailableSpareThreshold));
  return status;
}

}  // namespace orlo::features::health
