#include "orlo/features/nvme_get_log/LogFactories.h"

#include <cctype>

namespace orlo::features::nvme_get_log {

std::map<std::string, boost::any>& logFactories() {
  static std::map<std::string, boost::any> factories;
  return factories;
}

std::string logKey(const std::string& logName) {
  std::string key = logName;
  for (char& c : key) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return key;
}

bool registerLogFactory(const std::string& logName, LogFactory factory) {
  logFactories()[logKey(logName)] = factory;
  return true;
}

std::unique_ptr<NVMeGetLog> makeLog(const std::string& logName,
                                    const std::shared_ptr<core::Device>& device,
                                    const core::AttributeCollection& attributes) {
  const auto found = logFactories().find(logKey(logName));
  if (found == logFactories().end()) return nullptr;
  return boost::any_cast<LogFactory>(found->second)(device, attributes);
}

}  // namespace orlo::features::nvme_get_log
