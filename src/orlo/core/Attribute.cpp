#include "orlo/core/Attribute.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <limits>
#include <stdexcept>

#include "orlo/core/AttributeType.h"
#include "orlo/core/LittleEndian.h"
#include "orlo/core/Memory.h"
#include "orlo/core/Strings.h"
#include "orlo/core/xml/XmlProperty.h"

namespace orlo::core {

namespace {

Status invalidValue() {
  return Status(40, "Invalid value type provided for the attribute.");
}

// The integer tags that setValue fills from toInteger: how many low bytes are
// stored and the largest number accepted. The signed tags and "uint64" take any
// number, so a wrapped "sint16" of 70000 is stored as 4464.
struct IntegerTag {
  std::string tag;
  std::size_t width;
  int64_t largest;
};

const IntegerTag* findIntegerTag(const std::string& type) {
  constexpr int64_t kAny = std::numeric_limits<int64_t>::max();
  static const IntegerTag kIntegerTags[] = {
      {attributeType::sint16(), 2, kAny},         {attributeType::sint32(), 4, kAny},
      {attributeType::sint64(), 8, kAny},         {attributeType::uint16(), 2, 65535},
      {attributeType::uint32(), 4, 4294967295LL}, {attributeType::uint64(), 8, kAny},
      {attributeType::uint8(), 1, 255},           {attributeType::ulong(), 4, 4294967295LL},
  };
  for (const IntegerTag& row : kIntegerTags) {
    if (row.tag == type) return &row;
  }
  return nullptr;
}

bool isNumberTag(const std::string& type) {
  return findIntegerTag(type) != nullptr || type == attributeType::uint128();
}

// Tags whose values are built by their owners from bytes, never from a user's text.
bool isRawTag(const std::string& type) {
  return type == attributeType::listUInt64() || type == attributeType::vectorOfStrings() ||
         type == attributeType::bytePointer() || type == attributeType::vectorOfPayloads();
}

// Widths of the signed readings of asString; an empty value reads as -1.
std::size_t signedWidth(const std::string& type) {
  if (type == "sint8") return 1;
  if (type == attributeType::sint16()) return 2;
  if (type == attributeType::sint32()) return 4;
  if (type == attributeType::sint64()) return 8;
  return 0;
}

bool isUnsignedReading(const std::string& type) {
  return type == attributeType::uint8() || type == attributeType::uint16() ||
         type == attributeType::uint32() || type == attributeType::uint64() ||
         type == attributeType::ulong();
}

int64_t signExtend(uint64_t number, std::size_t width) {
  const unsigned unused = static_cast<unsigned>(64 - 8 * width);
  return static_cast<int64_t>(number << unused) >> unused;
}

}  // namespace

Attribute::Attribute(std::string name, std::string displayName, std::string type)
    : name(std::move(name)), displayName(std::move(displayName)), type(std::move(type)) {}

Attribute::Attribute(const Attribute& descriptor, const std::string& text) : Attribute(descriptor) {
  setStringValue(text);
}

Attribute::Attribute(const Attribute& descriptor, uint32_t number) : Attribute(descriptor) {
  setUInt32(number);
}

void Attribute::setStringValue(const std::string& text) {
  // The new buffer is zero-filled, so the byte behind the text is its terminator.
  Payload stored(static_cast<uint32_t>(text.size() + 1));
  memory::memCopy(stored.data(), stored.size(), text.data(), text.size());
  value = stored;
}

void Attribute::setUInt8(uint8_t number) {
  storeLittleEndian(number, 1);
}

void Attribute::setUInt16(uint16_t number) {
  storeLittleEndian(number, 2);
}

void Attribute::setUInt32(uint32_t number) {
  storeLittleEndian(number, 4);
}

void Attribute::setUInt128(boost::multiprecision::uint128_t number) {
  uint8_t bytes[16];
  le::write(bytes, 8, static_cast<uint64_t>(number));
  le::write(bytes + 8, 8, static_cast<uint64_t>(number >> 64));
  value = Payload(bytes, sizeof bytes);
}

void Attribute::storeLittleEndian(uint64_t number, std::size_t width) {
  uint8_t bytes[8];
  le::write(bytes, width, number);
  value = Payload(bytes, static_cast<uint32_t>(width));
}

Status Attribute::setValue(const std::string& text) {
  // The checks come before any conversion: a text that fails them never reaches
  // the 128-bit parser or strtod, so it empties the value instead of throwing.
  const bool isNumeric = strings::isInteger(text) || strings::isHex(text);
  const bool isTruth = strings::isBoolean(text);

  Status result = Status::success();
  if (!isNumeric && isNumberTag(type)) {
    result = invalidValue();
  } else if (!isTruth && type == attributeType::boolean()) {
    result = invalidValue();
  } else if (isRawTag(type)) {
    result = invalidValue();
  } else if (type == attributeType::string()) {
    setStringValue(text);
  } else if (type == attributeType::boolean()) {
    setUInt8(text == "0" || strings::iequals(text, "false") ? 0 : 1);
  } else if (findIntegerTag(type) != nullptr) {
    result = storeNumber(text);
  } else if (type == attributeType::uint128()) {
    boost::multiprecision::uint128_t number;
    number.assign(text);
    setUInt128(number);
  } else if (type == "double") {
    storeDouble(text);
  } else {
    result = invalidValue();
  }

  if (result == invalidValue()) value = Payload();
  return result;
}

Status Attribute::storeNumber(const std::string& text) {
  const IntegerTag& row = *findIntegerTag(type);
  const int64_t number = strings::toInteger(text);
  if (number > row.largest) return invalidValue();
  storeLittleEndian(static_cast<uint64_t>(number), row.width);
  return Status::success();
}

void Attribute::storeDouble(const std::string& text) {
  const char* begin = text.c_str();
  char* end = nullptr;
  errno = 0;
  const double number = std::strtod(begin, &end);
  if (end == begin) throw std::invalid_argument("invalid stod argument");
  if (errno == ERANGE) throw std::out_of_range("stod argument out of range");
  value = Payload(&number, sizeof number);
}

bool Attribute::asBool() const {
  return value.size() != 0 && value[0] == 1;
}

uint64_t Attribute::storedNumber(std::size_t width) const {
  uint8_t bytes[8] = {};
  width = std::min(width, sizeof bytes);
  const std::size_t count = std::min<std::size_t>(width, value.size());
  memory::memCopy(bytes, width, value.data(), count);
  return le::read(bytes, width);
}

std::string Attribute::storedText() const {
  if (value.size() == 0 || value.data() == nullptr) return std::string();
  return std::string(reinterpret_cast<const char*>(value.data()), value.size() - 1);
}

std::vector<std::string> Attribute::asStringList() const {
  const std::string text = storedText();
  if (text.empty()) return {};
  return strings::split(text, "~");
}

std::string Attribute::asString() const {
  if (type == attributeType::boolean()) return asBool() ? "True" : "False";

  if (type == attributeType::bytePointer() || type == attributeType::listUInt64()) {
    return strings::toHexString(value);
  }

  if (const std::size_t width = signedWidth(type); width != 0) {
    if (value.size() == 0) return "-1";
    return strings::toString(signExtend(storedNumber(width), width));
  }

  // All unsigned tags read up to 8 bytes, so a "uint8" over a longer value prints
  // the longer number.
  if (isUnsignedReading(type)) return strings::toString(storedNumber(8));

  if (type == attributeType::uint128()) {
    if (value.size() == 0) return "0";
    // The stored bytes cover the low end of an all-ones number: a short value
    // keeps ones in its high bytes.
    uint8_t bytes[16];
    std::fill(std::begin(bytes), std::end(bytes), 0xFF);
    memory::memCopy(bytes, sizeof bytes, value.data(),
                    std::min<std::size_t>(sizeof bytes, value.size()));
    const le::Pair128 halves = le::read128(bytes);
    return (boost::multiprecision::uint128_t(halves.high) << 64 | halves.low).str();
  }

  if (type == attributeType::string()) return storedText();

  if (type == attributeType::vectorOfStrings()) {
    std::string joined;
    const std::vector<std::string> pieces = asStringList();
    for (std::size_t i = 0; i < pieces.size(); ++i) {
      if (i != 0) joined += "~";
      joined += pieces[i];
    }
    return joined;
  }

  if (type == "hexValue") {
    if (value.data() == nullptr) return std::string();
    std::size_t first = 0;
    while (first < value.size() && value.data()[first] == 0) ++first;
    if (first == value.size()) return "0x0";
    return "0x" + strings::toHexString(value.data() + first, value.size() - first);
  }

  return std::string();
}

std::unique_ptr<xml::XmlProperty> Attribute::toXml() const {
  auto property = std::make_unique<xml::XmlProperty>();
  property->attribute("category") = "attribute";
  property->attribute("type") = type;
  if (!description.empty()) property->attribute("description") = description;
  property->attribute("displayName") = displayName;
  property->attribute("name") = name;
  property->attribute("value") = asString();
  property->attribute("size") = strings::toString(static_cast<uint64_t>(value.size()));
  return property;
}

}  // namespace orlo::core
