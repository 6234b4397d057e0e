#pragma once

#include <cstdint>
#include <string>

#include "orlo/core/Status.h"

// The failures that orlo raises beyond the toolkit's catalogue. Each has its own code in a
// category of its own, so that none compares equal to another or to a catalogue status;
// the messages are what users read.
namespace orlo::core {

constexpr int32_t kOwnCategory = 20;

// The codes of the category, one for each failure, whichever part of orlo raises it.
enum class OwnCode : int32_t {
  noDriveMatches = 1,
  unknownLogName = 2,
  invalidPropertyValue = 3,
  noIdentifyDecoder = 4,
  notRegularFile = 5,
  fileTooLarge = 6,
  badImageRefusal = 7,
  notVendorId = 8,
  noVendorListed = 9,
  bufferShorterThanTransfer = 10,
  logOfOtherProtocol = 11,
  driveKeepsNoLog = 12,
  fileNotWritten = 13,
  destinationExists = 14,
  archiverFailed = 15,
  stagingFailed = 16,
  driveNotChosen = 17,
  badReport = 18,
};

// A status of ours: the maker of each failure gives its code and message.
inline Status ownStatus(OwnCode code, const std::string& message) {
  return Status(kOwnCategory, static_cast<int32_t>(code), message);
}

// Code 1: "-ssd" names no drive; `why` says what was looked at.
Status noDriveMatches(const std::string& ssd, const std::string& why);

// Code 2: LogName names no log page of the toolkit; `known` lists those it has.
Status unknownLogName(const std::string& name, const std::string& known);

// Code 3: a property's text did not convert to its `type`.
Status invalidPropertyValue(const std::string& name, const std::string& type);

// Code 4: the drive answered an Identify structure that no decoder reads.
Status noIdentifyDecoder(uint32_t cns);

// Code 10: a command's data buffer holds fewer bytes than the command transfers.
Status bufferShorterThanTransfer();

// Code 11: LogName names a log page of the other protocol's drives than `protocol`'s;
// `known` lists those that this drive's protocol has.
Status logOfOtherProtocol(const std::string& name, const std::string& protocol,
                          const std::string& known);

// Code 12: the drive does not keep the log `log` (its own directory says so).
Status driveKeepsNoLog(const std::string& log);

// Code 13: a file could not be put in place; `step` says what failed ("flush the
// temporary file") and `reason` why, as the system gave it.
Status fileNotWritten(const std::string& path, const std::string& step, const std::string& reason);

// Code 14: the archive to write exists, and no -force allows replacing it.
Status destinationExists(const std::string& path);

// Code 15: the archive provider, started with `commandLine`, did not write the archive;
// `said` is its message, or how it ended.
Status archiverFailed(const std::string& commandLine, const std::string& said);

// Code 16: the staging folder of an incident report could not be made or written.
Status stagingFailed(const std::string& path, const std::string& reason);

// Code 17: "-ssd" names an incident report that holds several drives without choosing
// one; `choices` lists what may follow the report's name.
Status driveNotChosen(const std::string& report, const std::string& choices);

// Code 18: an incident report that cannot be played back; `why` says what is wrong with
// it (not an archive, no drive's image in it, an entry too large or damaged).
Status badReport(const std::string& report, const std::string& why);

}  // namespace orlo::core
