#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orlo::core::xml {

class XmlElement;
using XmlElementList = std::vector<std::unique_ptr<XmlElement>>;

// An element's attributes as key and value, sorted by key in byte order. An element has
// a handful, so a sorted vector beats a tree of nodes allocated one by one.
using XmlAttributes = std::vector<std::pair<std::string, std::string>>;

// How an element stands in the keyed JSON form that scripts read: under which key in its
// parent's object, and as what. It is not an attribute, so the tree's XML and the
// labelled forms never show it.
//
// An element without a key stands for its keyed children, which take its place in the
// parent. An element with a key is an object of its keyed children, or a number or text;
// a number or text that has keyed children is an object whose member `valueKey` ("value"
// unless the decoder names another) holds it.
// Entries (NSIDs, log entries, attributes) are gathered with the other entries of their
// key into one array, however many there are.
struct Keyed {
  enum class Kind : uint8_t { kObject, kNumber, kText };
  std::string key;
  Kind kind = Kind::kObject;
  std::string value;  // a number's decimal digits, or the text
  bool entry = false;
  const char* valueKey = "value";

  static Keyed number(std::string key, uint64_t number);
  static Keyed text(std::string key, std::string text);
  static Keyed object(std::string key);
  // An object that is one of the entries of `key`.
  static Keyed entryObject(std::string key);
};

// The key of a label: the acronym that closes it in parentheses ("PCI Vendor ID (VID)"
// gives "vid"; "(hours)" is no acronym), else its words and numbers in lower case joined by "_"
// ("Power On Hours" gives "power_on_hours"). A label that starts with
// "Reserved", and "Retired" and "Obsolete", have none.
std::string keyOf(std::string_view label);

// A node of the toolkit's output tree. Its data are string attributes, kept in key
// order so that an element always prints them sorted. Attribute values may hold device
// data, so they are zeroed before the element's memory is given back.
class XmlElement {
 public:
  explicit XmlElement(std::string name);
  virtual ~XmlElement();
  XmlElement(const XmlElement&) = delete;
  XmlElement& operator=(const XmlElement&) = delete;

  // Appends the element as one line of XML, without prolog or white space.
  virtual void write(std::string& out) const = 0;
  // How many characters write appends if no value needs escaping: room to reserve.
  virtual size_t plainWrittenSize() const = 0;

  // Clones of the elements that match: an empty elementName or attributeKey matches
  // anything. Here only this element is looked at, and depth is ignored.
  virtual XmlElementList find(std::string elementName, std::string attributeKey,
                              std::string attributeValue, uint8_t depth) const;

  virtual std::unique_ptr<XmlElement> clone() const = 0;
  virtual bool isEmpty() const = 0;

  // The value under `key`, created empty if missing. All attributes are set this way. The
  // reference holds until the next key is added.
  std::string& attribute(std::string_view key);
  // A copy of the value under `key`, or an empty text; never creates the key.
  std::string getAttribute(std::string_view key) const;
  std::string name() const { return name_; }
  const XmlAttributes& attributes() const { return attributes_; }
  Keyed& keyed() { return keyed_; }
  const Keyed& keyed() const { return keyed_; }

 protected:
  // Writes "<", `name`, ` key="escaped value"` for every attribute in key order, and `end`.
  void writeStartTag(std::string& out, std::string_view name, std::string_view end) const;
  // How many characters writeStartTag appends if no value needs escaping.
  size_t plainStartTagSize(std::string_view name, std::string_view end) const;
  // Inserts each attribute of `other` whose key is not yet present, and takes its keyed
  // form.
  void copyAttributes(const XmlElement& other);

 private:
  std::string name_;
  XmlAttributes attributes_;
  Keyed keyed_;
};

// The value as it appears in an attribute. "&" is replaced after "<" and ">", so those
// two come out escaped twice ("<" gives "&amp;lt;"); readers of our files expect this.
std::string escape(std::string value);

}  // namespace orlo::core::xml
