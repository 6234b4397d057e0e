#pragma once

#include "orlo/core/AttributeCollection.h"
#include "orlo/core/Status.h"
#include "orlo/features/IFeature.h"

namespace plugin::cli {

// The work of "UpdateIncidentReport": the verbosity from "-v" or "-vv", then the
// archive update of "-source" into "-destination". It needs no drive and declares
// no properties.
class UpdateIRFeature : public orlo::features::IFeature {
 public:
  ~UpdateIRFeature() override = default;

  orlo::core::Status run() override;
  orlo::core::AttributeCollection requiredAttributes() override { return noAttributes(); }
  orlo::core::AttributeCollection optionalAttributes() override { return noAttributes(); }

 private:
  static orlo::core::AttributeCollection noAttributes() { return {}; }
};

}  // namespace plugin::cli
