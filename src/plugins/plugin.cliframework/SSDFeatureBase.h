#pragma once

#include <cstdint>
#include <memory>

#include "orlo/core/Status.h"
#include "orlo/features/IFeature.h"
#include "plugins/plugin.cliframework/FeatureBase.h"

namespace plugin::cli {

// A plug-in bound to one feature. It runs the whole life of a command: syntax
// check, arguments into the feature's attributes, the feature's run, and the
// Status made into a result. Choosing the drive is the host's business: it
// hands the drive to registerDevice.
class SSDFeatureBase : public FeatureBase {
 public:
  SSDFeatureBase(std::string name, std::unique_ptr<orlo::features::IFeature> feature);
  ~SSDFeatureBase() override = default;

  CommandSpecs getCommandSpecs() const override;
  std::shared_ptr<ResultBase> execute(uint32_t id, const ParsedCommand& command) override;
  // FeatureBase's checks, then "-namespace": only with "-ssd" among the
  // options, and only a decimal or hexadecimal value.
  std::shared_ptr<ResultBase> checkSyntax(uint32_t id, const ParsedCommand& command) override;
  void registerDevice(const std::shared_ptr<orlo::core::Device>& device) override;
  // Declares the feature's attributes as properties of `spec`: the required
  // ones as required, then the optional ones.
  virtual void addFeatureProperties(CommandSpec& spec);
  // Options and targets become attributes under their own names, dash and all;
  // properties must be declared by the feature and take its type.
  virtual std::shared_ptr<ResultBase> applyArguments(const ParsedCommand& command);
  // A failed status gives type 2. On success the feature's JSON document, if it
  // has anything in it, is printed to the standard output whatever the format.
  virtual std::shared_ptr<ResultBase> reportStatus(const orlo::core::Status& status);

 protected:
  std::unique_ptr<orlo::features::IFeature> feature;
  CommandSpecs commandSpecs;
};

// "Failed to find device." of type 1, for the host to give back when it cannot
// resolve "-ssd".
extern const std::shared_ptr<ResultBase> deviceNotFoundResult;

}  // namespace plugin::cli
