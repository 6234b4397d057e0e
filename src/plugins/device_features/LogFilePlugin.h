#pragma once

#include "plugins/plugin.cliframework/SSDFeatureBase.h"

namespace plugin::cli {

// The plug-in object of "LogPageFile" (verb "dump"), served by a LogFileFeature.
class LogFilePlugin : public SSDFeatureBase {
 public:
  LogFilePlugin();
  ~LogFilePlugin() override = default;
};

}  // namespace plugin::cli
