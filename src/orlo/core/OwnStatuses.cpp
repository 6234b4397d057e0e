#include "orlo/core/OwnStatuses.h"

namespace orlo::core {

Status noDriveMatches(const std::string& ssd, const std::string& why) {
  return ownStatus(OwnCode::noDriveMatches, "No drive matches -ssd \"" + ssd + "\": " + why);
}

Status unknownLogName(const std::string& name, const std::string& known) {
  return ownStatus(OwnCode::unknownLogName, "The toolkit reads no log page named \"" + name +
                                                "\". LogName takes one of " + known +
                                                ", in any case.");
}

Status invalidPropertyValue(const std::string& name, const std::string& type) {
  return ownStatus(OwnCode::invalidPropertyValue,
                   "The value of " + name + " is not a valid " + type + " number.");
}

Status noIdentifyDecoder(uint32_t cns) {
  return ownStatus(OwnCode::noIdentifyDecoder,
                   "The toolkit has no decoder for Identify CNS " + std::to_string(cns) + ".");
}

Status bufferShorterThanTransfer() {
  return ownStatus(OwnCode::bufferShorterThanTransfer,
                   "The data buffer is shorter than the command's transfer.");
}

Status logOfOtherProtocol(const std::string& name, const std::string& protocol,
                          const std::string& known) {
  return ownStatus(OwnCode::logOfOtherProtocol,
                   "The log page \"" + name + "\" is not one that an " + protocol +
                       " drive keeps. For this drive LogName takes one of " + known +
                       ", in any case.");
}

Status driveKeepsNoLog(const std::string& log) {
  return ownStatus(OwnCode::driveKeepsNoLog, "The drive does not keep the " + log + ".");
}

Status fileNotWritten(const std::string& path, const std::string& step, const std::string& reason) {
  return ownStatus(OwnCode::fileNotWritten,
                   "Cannot write " + path + ": could not " + step + " (" + reason + ").");
}

Status destinationExists(const std::string& path) {
  return ownStatus(OwnCode::destinationExists,
                   "The destination " + path + " exists; -force replaces it.");
}

Status archiverFailed(const std::string& commandLine, const std::string& said) {
  return ownStatus(OwnCode::archiverFailed, "Writing the archive failed: " + commandLine + ": " +
                                                said +
                                                (!said.empty() && said.back() == '.' ? "" : "."));
}

Status stagingFailed(const std::string& path, const std::string& reason) {
  return ownStatus(OwnCode::stagingFailed,
                   "Cannot stage the incident report in " + path + ": " + reason + ".");
}

Status driveNotChosen(const std::string& report, const std::string& choices) {
  return ownStatus(OwnCode::driveNotChosen,
                   "The incident report " + report + " holds several drives; choose one as -ssd " +
                       report + ":INDEX or :SERIAL, one of " + choices + ".");
}

Status badReport(const std::string& report, const std::string& why) {
  return ownStatus(OwnCode::badReport, "Incident report " + report + ": " + why);
}

}  // namespace orlo::core
