#pragma once

#include <boost/any.hpp>
#include <map>
#include <memory>
#include <string>

#include "orlo/core/AttributeCollection.h"
#include "orlo/core/Device.h"
#include "orlo/features/nvme_get_log/NVMeGetLog.h"

namespace orlo::features::nvme_get_log {

// Makes the log-page feature of one class for a device, with the caller's attributes.
using LogFactory = std::unique_ptr<NVMeGetLog> (*)(const std::shared_ptr<core::Device>&,
                                                   const core::AttributeCollection&);

// The process-wide table of log-page classes: the upper-cased log name to a LogFactory.
// Each class with a factory registers itself while the program starts.
std::map<std::string, boost::any>& logFactories();

// The key of a log name in logFactories: each character through toupper.
std::string logKey(const std::string& logName);

// Enters `factory` under the log name's key, replacing an earlier entry. Returns true, so
// that a translation unit can register from the initialiser of a constant.
bool registerLogFactory(const std::string& logName, LogFactory factory);

// The feature of the log named `logName`, in any case, or null for a name without a class.
std::unique_ptr<NVMeGetLog> makeLog(const std::string& logName,
                                    const std::shared_ptr<core::Device>& device,
                                    const core::AttributeCollection& attributes);

}  // namespace orlo::features::nvme_get_log
