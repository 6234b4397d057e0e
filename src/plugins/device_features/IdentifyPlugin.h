#pragma once

#include "plugins/device_features/TreePlugin.h"

namespace plugin::cli {

// The plug-in object of "Identify" (verb "show"), served by an IdentifyFeature.
class IdentifyPlugin : public TreePlugin {
 public:
  IdentifyPlugin();
  ~IdentifyPlugin() override = default;
};

}  // namespace plugin::cli
