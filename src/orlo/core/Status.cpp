#include "orlo/core/Status.h"

#include <atomic>

#include "orlo/core/xml/XmlObject.h"
#include "orlo/core/xml/XmlProperty.h"

namespace orlo::core {

namespace {
std::atomic<int32_t> gRuntimeStatusCounter{43805};
}

Status::Status(int32_t category, int32_t code, std::string message)
    : code_(code), message_(std::move(message)), category_(category) {}

Status::Status(int32_t code, std::string message) : Status(0, code, std::move(message)) {}

Status::Status(Status&& other) noexcept
    : code_(other.code_), message_(std::move(other.message_)), category_(other.category_) {
  other.message_.clear();
}

Status& Status::operator=(Status&& other) noexcept {
  code_ = other.code_;
  category_ = other.category_;
  message_ = std::move(other.message_);
  other.message_.clear();
  return *this;
}

Status Status::success() {
  return Status(0, 0, "Completed successfully.");
}
Status Status::outOfBounds() {
  return Status(0, 14, "Request is out of bounds.");
}
Status Status::nvmeCommandProblem() {
  return Status(0, 25, "NVMe command reported a problem.");
}
Status Status::notImplemented() {
  return Status(0, 93, "Not implemented.");
}
Status Status::retrieveDataFailed() {
  return Status(10, 33, "Failed to retrieve data from selected drive.");
}
Status Status::openFileFailed() {
  return Status(10, 124, "Failed to open the required file.");
}

Status Status::allocate(std::string message) {
  return Status(100, ++gRuntimeStatusCounter, std::move(message));
}

std::string Status::toString() const {
  return "Category: " + std::to_string(category_) + "\nCode: " + std::to_string(code_) +
         "\nMessage: " + message_;
}

std::unique_ptr<xml::XmlObject> Status::toXml() const {
  auto object = std::make_unique<xml::XmlObject>();
  object->attribute("category") = "status";
  const std::pair<const char*, std::string> rows[] = {
      {"Category", std::to_string(category_)},
      {"Code", std::to_string(code_)},
      {"Message", message_},
  };
  for (const auto& [name, value] : rows) {
    auto property = std::make_unique<xml::XmlProperty>();
    property->attribute("name") = name;
    property->attribute("value") = value;
    object->properties().push_back(std::move(property));
  }
  return object;
}

}  // namespace orlo::core
