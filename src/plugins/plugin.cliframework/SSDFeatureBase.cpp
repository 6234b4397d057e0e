#include "plugins/plugin.cliframework/SSDFeatureBase.h"

#include <iostream>
#include <utility>

#include "orlo/core/AttributeCollection.h"
#include "orlo/core/Strings.h"

namespace plugin::cli {

using orlo::core::Attribute;
using orlo::core::AttributeCollection;

const std::shared_ptr<ResultBase> deviceNotFoundResult =
    makeStatusResult("Failed to find device.", StatusResult::deviceNotFoundType);

namespace {

void addProperties(CommandSpec& spec, const AttributeCollection& attributes, bool required) {
  for (const auto& entry : attributes) {
    const Attribute& attribute = entry.second;
    if (attribute.name.empty()) continue;
    spec.addProperty(PropertyCommandSpecPart(attribute.name, required, attribute.storedText(),
                                             attribute.displayName));
  }
}

}  // namespace

SSDFeatureBase::SSDFeatureBase(std::string name, std::unique_ptr<orlo::features::IFeature> feature)
    : FeatureBase(std::move(name)), feature(std::move(feature)) {}

CommandSpecs SSDFeatureBase::getCommandSpecs() const {
  return commandSpecs;
}

std::shared_ptr<ResultBase> SSDFeatureBase::execute(uint32_t id, const ParsedCommand& command) {
  if (auto result = checkSyntax(id, command)) return result;
  if (auto result = applyArguments(command)) return result;
  // The feature's own check is not called here: a feature that needs a device
  // or required attributes checks them in its run.
  return reportStatus(feature->run());
}

std::shared_ptr<ResultBase> SSDFeatureBase::checkSyntax(uint32_t id, const ParsedCommand& command) {
  if (auto result = FeatureBase::checkSyntax(id, command)) return result;
  const auto namespaceArgument = command.options.find(namespaceOption.name);
  if (!namespaceArgument) return nullptr;
  // A "-ssd" given as a target does not count.
  if (!command.options.contains(ssdOption.name)) {
    return makeStatusResult("Option '-namespace' must be used with '-ssd'.");
  }
  // The value is only tested here; the feature reads it as the attribute
  // "-namespace".
  const std::string& value = namespaceArgument->value;
  if (!orlo::core::strings::isInteger(value) && !orlo::core::strings::isHex(value)) {
    return makeStatusResult("Option '-namespace' must be hex or integer value.");
  }
  return nullptr;
}

void SSDFeatureBase::registerDevice(const std::shared_ptr<orlo::core::Device>& device) {
  feature->setDevice(device);
}

void SSDFeatureBase::addFeatureProperties(CommandSpec& spec) {
  addProperties(spec, feature->requiredAttributes(), true);
  addProperties(spec, feature->optionalAttributes(), false);
}

std::shared_ptr<ResultBase> SSDFeatureBase::applyArguments(const ParsedCommand& command) {
  AttributeCollection collected;
  for (const auto* list : {&command.options, &command.targets}) {
    for (const auto& argument : list->elements) {
      Attribute attribute(argument->name, "", "");
      attribute.setStringValue(argument->value);
      collected.add(attribute);
    }
  }
  const AttributeCollection declared = feature->allAttributes();
  for (const auto& property : command.properties.elements) {
    const auto found = declared.find(property->name);
    if (found == declared.end()) {
      return makeSyntaxStatusResult("Invalid property specified: " + property->name);
    }
    // Under the declared name and type. A value that does not convert leaves
    // the attribute empty, and the feature reads its default: the conversion's
    // status is not reported here.
    Attribute attribute = found->second;
    attribute.setValue(property->value);
    collected.add(attribute);
  }
  feature->attributes = collected;
  return nullptr;
}

std::shared_ptr<ResultBase> SSDFeatureBase::reportStatus(const orlo::core::Status& status) {
  if (!orlo::core::succeeded(status)) {
    return makeStatusResult(status.message(), StatusResult::featureFailedType);
  }
  const orlo::features::Json& document = feature->json();
  if (!document.children.empty()) {
    document.write(std::cout, 0);
    std::cout << std::endl << std::endl;
  }
  return makeStatusResult(status.message());
}

}  // namespace plugin::cli
