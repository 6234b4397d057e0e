#include "orlo/core/OwnStatuses.h"

namespace orlo::core {

namespace {

enum OwnCode : int32_t {
  kNoDriveMatches = 1,
  kUnknownLogName = 2,
  kInvalidPropertyValue = 3,
  kNoIdentifyDecoder = 4,
};

}  // namespace

Status noDriveMatches(const std::string& ssd, const std::string& why) {
  return Status(kOwnCategory, kNoDriveMatches, "No drive matches -ssd \"" + ssd + "\": " + why);
}

Status unknownLogName(const std::string& name, const std::string& known) {
  return Status(kOwnCategory, kUnknownLogName,
                "The toolkit reads no log page named \"" + name + "\". LogName takes one of " +
                    known + ", in any case.");
}

Status invalidPropertyValue(const std::string& name, const std::string& type) {
  return Status(kOwnCategory, kInvalidPropertyValue,
                "The value of " + name + " is not a valid " + type + " number.");
}

Status noIdentifyDecoder(uint32_t cns) {
  return Status(kOwnCategory, kNoIdentifyDecoder,
                "The toolkit has no decoder for Identify CNS " + std::to_string(cns) + ".");
}

}  // namespace orlo::core
