#pragma once

#include <memory>

#include "orlo/core/xml/XmlObject.h"
#include "orlo/features/IFeature.h"

namespace plugin::cli {

// A feature whose answer is a decoded tree: a successful run leaves it in `tree`,
// for the plug-in to hand back as the command's result.
class TreeFeature : public orlo::features::IFeature {
 public:
  std::unique_ptr<orlo::core::xml::XmlObject> tree;
};

}  // namespace plugin::cli
