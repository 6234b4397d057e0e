#pragma once

#include "orlo/core/AttributeCollection.h"
#include "orlo/features/IFeature.h"

// A feature whose attributes and run outcome a test sets, and which counts its
// runs.
class FakeFeature : public orlo::features::IFeature {
 public:
  orlo::core::Status run() override {
    ++runs;
    return outcome;
  }
  orlo::core::AttributeCollection requiredAttributes() override { return required; }
  orlo::core::AttributeCollection optionalAttributes() override { return optional; }

  orlo::core::AttributeCollection required;
  orlo::core::AttributeCollection optional;
  orlo::core::Status outcome = orlo::core::Status::success();
  int runs = 0;
};
