#pragma once

#include "plugins/plugin.cliframework/SSDFeatureBase.h"

namespace plugin::cli {

// The plug-in object: one command, "UpdateIncidentReport" (verb "update"), served by
// an UpdateIRFeature. There is one instance per loaded library, made by the first
// call of register_features.
class UpdateIRPlugin : public SSDFeatureBase {
 public:
  UpdateIRPlugin();
  ~UpdateIRPlugin() override = default;
};

}  // namespace plugin::cli
