#include "orlo/features/nvme_get_log/LogTree.h"

#include <utility>

#include "orlo/core/Status.h"
#include "orlo/core/xml/XmlProperty.h"

namespace orlo::features::nvme_get_log {

std::unique_ptr<core::xml::XmlObject> namedObject(const std::string& name) {
  auto object = std::make_unique<core::xml::XmlObject>();
  object->attribute("name") = name;
  object->attribute("key") = name;
  return object;
}

core::xml::XmlProperty& addNameValue(core::xml::XmlObject& parent, std::string name,
                                     std::string value) {
  auto property = std::make_unique<core::xml::XmlProperty>();
  property->keyed() = core::xml::Keyed::text(core::xml::keyOf(name), value);
  property->attribute("name") = std::move(name);
  property->attribute("value") = std::move(value);
  core::xml::XmlProperty& added = *property;
  parent.properties().push_back(std::move(property));
  return added;
}

bool holdsLog(core::xml::XmlObject& root, const core::Payload& payload, uint32_t size) {
  if (payload.data() != nullptr && payload.size() >= size) return true;
  root.objects().push_back(core::Status::retrieveDataFailed().toXml());
  return false;
}

}  // namespace orlo::features::nvme_get_log
