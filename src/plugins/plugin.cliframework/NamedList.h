#pragma once

#include <memory>
#include <string>
#include <vector>

#include "orlo/core/Strings.h"

namespace plugin::cli {

// An ordered list of shared named elements (parts of a command, or the
// arguments of a parsed one). Names are matched without regard to case.
template <typename Element>
class NamedList {
 public:
  virtual ~NamedList() = default;

  // A later element of the same name takes the place of the earlier one, so
  // the list never holds two elements of one name and keeps its order.
  void add(std::shared_ptr<Element> element) {
    for (auto& held : elements) {
      if (matches(*held, element->name)) {
        held = std::move(element);
        return;
      }
    }
    elements.push_back(std::move(element));
  }

  bool contains(const std::string& name) const { return find(name) != nullptr; }

  std::shared_ptr<Element> find(const std::string& name) const {
    for (const auto& held : elements) {
      if (matches(*held, name)) return held;
    }
    return nullptr;
  }

  std::vector<std::shared_ptr<Element>> elements;

 private:
  static bool matches(const Element& element, const std::string& name) {
    return orlo::core::strings::iequals(element.name, name);
  }
};

}  // namespace plugin::cli
