#include "host/ResultRenderer.h"

#include "host/JsonDocument.h"
#include "plugins/plugin.cliframework/Vocabulary.h"
#include "plugins/plugin.cliframework/XmlTreeResult.h"

namespace orlo::host {

std::string render(const plugin::cli::ResultBase& result, const std::string& format,
                   const std::vector<std::string>& printed) {
  namespace formats = plugin::cli::formats;
  if (format == formats::json) {
    const auto* tree = dynamic_cast<const plugin::cli::XmlTreeResult*>(&result);
    return tree != nullptr ? keyedDocument(tree->tree(), printed) : jsonDocument(result, printed);
  }
  if (format == formats::jsonTree) return jsonDocument(result, printed);
  if (format == formats::xml) return result.toXml(0);
  if (format == formats::csv) return result.toCsv();
  return result.toText(0);
}

bool isJson(const std::string& format) {
  return format == plugin::cli::formats::json || format == plugin::cli::formats::jsonTree;
}

}  // namespace orlo::host
