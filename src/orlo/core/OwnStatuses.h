#pragma once

#include <cstdint>
#include <string>

#include "orlo/core/Status.h"

// The failures that orlo raises beyond the toolkit's catalogue. Each has its own code in a
// category of its own, so that none compares equal to another or to a catalogue status;
// the messages are what users read.
namespace orlo::core {

constexpr int32_t kOwnCategory = 20;

// Code 1: "-ssd" names no drive; `why` says what was looked at.
Status noDriveMatches(const std::string& ssd, const std::string& why);

// Code 2: LogName names no log page of the toolkit; `known` lists those it has.
Status unknownLogName(const std::string& name, const std::string& known);

// Code 3: a property's text did not convert to its `type`.
Status invalidPropertyValue(const std::string& name, const std::string& type);

// Code 4: the drive answered an Identify structure that no decoder reads.
Status noIdentifyDecoder(uint32_t cns);

}  // namespace orlo::core
