#include "devices/SendRecord.h"

#include <boost/date_time/posix_time/posix_time.hpp>

namespace orlo::devices {

core::CommandRecord beginRecord(const core::Command& command, const core::Payload& dataOut) {
  core::CommandRecord record;
  record.command = command.clone();
  record.inputPayload = dataOut;
  record.startTime = boost::posix_time::microsec_clock::universal_time();
  return record;
}

void finishRecord(core::CommandRecord& record) {
  record.endTime = boost::posix_time::microsec_clock::universal_time();
  record.duration = static_cast<uint64_t>((record.endTime - record.startTime).total_microseconds());
}

}  // namespace orlo::devices
