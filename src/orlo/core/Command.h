#pragma once

#include <memory>
#include <string>

namespace orlo::core {

namespace xml {
class XmlObject;
}

// Root of every command that a feature hands to a Device: a protocol family
// ("NVME", "ATA") and the command's name. The concrete families give the copy,
// the text dump and the XML form.
class Command {
 public:
  Command(std::string protocol, std::string name);
  virtual ~Command();

  virtual std::unique_ptr<Command> clone() const = 0;
  virtual std::string toString() const = 0;
  virtual std::unique_ptr<xml::XmlObject> toXml() const = 0;
  // Copies the protocol and the name.
  virtual void copyCommandFields(const Command& other);

  std::string protocol() const { return protocol_; }
  std::string name() const { return name_; }

 protected:
  Command(const Command&) = default;
  Command& operator=(const Command&) = default;

 private:
  std::string protocol_;
  std::string name_;
};

}  // namespace orlo::core
