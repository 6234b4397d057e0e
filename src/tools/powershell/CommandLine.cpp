#include "CommandLine.h"

#include <strings.h>

#include <array>
#include <map>
#include <optional>

#include "Messages.h"

namespace orlo::tools::powershell {

namespace {

enum class Parameter { Path, LiteralPath, DestinationPath, Update, Force, CompressionLevel };

struct ParameterRow {
  Parameter parameter;
  const char* name;
  const char* type;  // the type named when the value is missing; none for a switch
};

constexpr std::array<ParameterRow, 6> kParameters{{
    {Parameter::Path, "Path", "System.String[]"},
    {Parameter::LiteralPath, "LiteralPath", "System.String[]"},
    {Parameter::DestinationPath, "DestinationPath", "System.String"},
    {Parameter::Update, "Update", nullptr},
    {Parameter::Force, "Force", nullptr},
    {Parameter::CompressionLevel, "CompressionLevel", "System.String"},
}};

// The parameters that take free words, in the order they take them.
constexpr std::array<Parameter, 2> kPositional{Parameter::Path, Parameter::DestinationPath};

struct CompressionRow {
  const char* name;
  CompressionLevel level;
};

constexpr std::array<CompressionRow, 3> kCompressionLevels{{
    {"Optimal", CompressionLevel::Optimal},
    {"Fastest", CompressionLevel::Fastest},
    {"NoCompression", CompressionLevel::NoCompression},
}};

bool sameText(const std::string& a, const char* b) {
  return strcasecmp(a.c_str(), b) == 0;
}

// A lone "-" is an ordinary word, as it is for PowerShell.
bool isParameterWord(const std::string& word) {
  return word.size() > 1 && word[0] == '-';
}

Error findParameter(const std::string& name, const ParameterRow*& found) {
  std::vector<std::string> matches;
  for (const auto& row : kParameters) {
    if (sameText(name, row.name)) {
      found = &row;
      return std::nullopt;
    }
    if (strncasecmp(name.c_str(), row.name, name.size()) == 0) {
      found = &row;
      matches.emplace_back(row.name);
    }
  }
  if (matches.empty()) return messages::parameterNotFound(name);
  if (matches.size() > 1) return messages::parameterAmbiguous(name, matches);
  return std::nullopt;
}

Error splitList(const std::string& value, std::vector<std::string>& items) {
  std::string::size_type start = 0;
  for (;;) {
    const auto comma = value.find(',', start);
    items.push_back(value.substr(start, comma - start));
    if (items.back().empty()) return messages::missingListArgument();
    if (comma == std::string::npos) return std::nullopt;
    start = comma + 1;
  }
}

class Binder {
 public:
  explicit Binder(const std::vector<std::string>& words) : words_(words) {}

  Error bind() {
    // Named parameters are bound first; free words then fill what is left.
    std::vector<std::string> free;
    for (index_ = 1; index_ < words_.size(); ++index_) {
      if (!isParameterWord(words_[index_])) {
        free.push_back(words_[index_]);
      } else if (Error error = bindNamed()) {
        return error;
      }
    }
    for (const std::string& word : free) {
      if (Error error = bindPositional(word)) return error;
    }
    return std::nullopt;
  }

  Error fill(CompressArchiveRequest& request) const {
    const bool literal = isBound(Parameter::LiteralPath);
    if ((literal && isBound(Parameter::Path)) ||
        (isBound(Parameter::Update) && isBound(Parameter::Force))) {
      return messages::parameterSetUnresolved();
    }
    std::vector<std::string> missing;
    if (!literal && !isBound(Parameter::Path)) missing.emplace_back("Path");
    if (!isBound(Parameter::DestinationPath)) missing.emplace_back("DestinationPath");
    if (!missing.empty()) return messages::missingMandatory(missing);

    request.literalPaths = literal;
    if (Error error = splitList(*values_.at(literal ? Parameter::LiteralPath : Parameter::Path),
                                request.paths)) {
      return error;
    }
    request.destination = *values_.at(Parameter::DestinationPath);
    if (request.destination.empty()) return messages::emptyArgument("DestinationPath");
    if (request.destination.find(',') != std::string::npos) {
      return messages::notAString("DestinationPath");
    }
    request.update = isSwitchOn(Parameter::Update);
    request.force = isSwitchOn(Parameter::Force);
    if (isBound(Parameter::CompressionLevel)) {
      const std::string& level = *values_.at(Parameter::CompressionLevel);
      const CompressionRow* row = nullptr;
      for (const auto& candidate : kCompressionLevels) {
        if (sameText(level, candidate.name)) row = &candidate;
      }
      if (row == nullptr) return messages::compressionLevelInvalid(level);
      request.level = row->level;
    }
    return std::nullopt;
  }

 private:
  bool isBound(Parameter parameter) const { return values_.count(parameter) != 0; }

  bool isSwitchOn(Parameter parameter) const {
    return isBound(parameter) && values_.at(parameter).has_value();
  }

  Error bindNamed() {
    const std::string& word = words_[index_];
    const auto colon = word.find(':');
    const std::string name = word.substr(1, colon == std::string::npos ? colon : colon - 1);
    std::optional<std::string> inlineValue;
    if (colon != std::string::npos) inlineValue = word.substr(colon + 1);

    const ParameterRow* row = nullptr;
    if (Error error = findParameter(name, row)) return error;
    if (isBound(row->parameter)) return messages::parameterBoundTwice(row->name);

    if (row->type == nullptr) {
      // A switch is on unless given ":$false"; its empty value marks it off.
      std::optional<std::string> on = std::string("True");
      if (inlineValue && sameText(*inlineValue, "$false")) {
        on.reset();
      } else if (inlineValue && !sameText(*inlineValue, "$true")) {
        return messages::switchValueInvalid(row->name, *inlineValue);
      }
      values_[row->parameter] = on;
      return std::nullopt;
    }
    if (!inlineValue) {
      if (index_ + 1 >= words_.size() || isParameterWord(words_[index_ + 1])) {
        return messages::missingArgument(row->name, row->type);
      }
      inlineValue = words_[++index_];
    }
    values_[row->parameter] = inlineValue;
    return std::nullopt;
  }

  Error bindPositional(const std::string& word) {
    for (Parameter parameter : kPositional) {
      const bool taken =
          isBound(parameter) || (parameter == Parameter::Path && isBound(Parameter::LiteralPath));
      if (!taken) {
        values_[parameter] = word;
        return std::nullopt;
      }
    }
    return messages::positionalNotFound(word);
  }

  const std::vector<std::string>& words_;
  std::size_t index_ = 0;
  // Every bound parameter; a switch that is off holds no value.
  std::map<Parameter, std::optional<std::string>> values_;
};

}  // namespace

Error parseCommandLine(const std::vector<std::string>& words, CompressArchiveRequest& request) {
  if (words.empty()) return messages::noCommand();
  if (isParameterWord(words[0])) return messages::optionNotSupported(words[0]);
  if (!sameText(words[0], "Compress-Archive")) return messages::termNotRecognized(words[0]);
  Binder binder(words);
  if (Error error = binder.bind()) return error;
  return binder.fill(request);
}

}  // namespace orlo::tools::powershell
