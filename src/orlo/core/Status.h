#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace orlo::core {

namespace xml {
class XmlObject;
}

// The one result type of the toolkit: a number within a category, with a message
// for the user. Two statuses are equal when code and category are equal; the
// message never takes part in a comparison.
class Status {
 public:
  Status(int32_t category, int32_t code, std::string message);
  Status(int32_t code, std::string message);
  Status(const Status&) = default;
  Status(Status&& other) noexcept;
  Status& operator=(const Status&) = default;
  Status& operator=(Status&& other) noexcept;

  static Status success();
  static Status outOfBounds();
  static Status nvmeCommandProblem();
  static Status notImplemented();
  static Status retrieveDataFailed();
  static Status openFileFailed();

  // A status in category 100 whose code is the next number of a process-wide
  // counter that starts at 43805.
  static Status allocate(std::string message);

  int32_t code() const { return code_; }
  int32_t category() const { return category_; }
  std::string message() const { return message_; }

  void setCode(int32_t code) { code_ = code; }
  void setCategory(int32_t category) { category_ = category; }
  void setMessage(std::string message) { message_ = std::move(message); }

  bool operator==(const Status& other) const {
    return code_ == other.code_ && category_ == other.category_;
  }
  bool operator!=(const Status& other) const { return !(*this == other); }

  // Three lines: "Category: N", "Code: N", "Message: text", no final line feed.
  std::string toString() const;

  // An "Object" with category="status" and the properties Category, Code, Message.
  std::unique_ptr<xml::XmlObject> toXml() const;

 private:
  int32_t code_;
  std::string message_;
  int32_t category_;
};

// Success as the toolkit tests for it: compared by code and category only.
inline bool succeeded(const Status& status) {
  return status == Status(0, "Completed successfully.");
}

}  // namespace orlo::core
