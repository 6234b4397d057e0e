#pragma once

#include <memory>
#include <string>

#include "orlo/core/xml/XmlElement.h"

namespace orlo::core::xml {

// A leaf of the tree, written as <Property .../>.
class XmlProperty : public XmlElement {
 public:
  XmlProperty();

  void write(std::string& out) const override;
  size_t plainWrittenSize() const override;
  std::unique_ptr<XmlElement> clone() const override;
  bool isEmpty() const override;
};

}  // namespace orlo::core::xml
