#pragma once

#include "plugins/device_features/TreePlugin.h"

namespace plugin::cli {

// The plug-in object of "LogPage" (verb "show"), served by a LogPageFeature.
class LogPagePlugin : public TreePlugin {
 public:
  LogPagePlugin();
  ~LogPagePlugin() override = default;
};

}  // namespace plugin::cli
