#include "host/ResultRenderer.h"

#include "host/JsonDocument.h"
#include "plugins/plugin.cliframework/Vocabulary.h"

namespace orlo::host {

std::string render(const plugin::cli::ResultBase& result, const std::string& format) {
  namespace formats = plugin::cli::formats;
  if (format == formats::json) return jsonDocument(result, {});
  if (format == formats::xml) return result.toXml(0);
  if (format == formats::csv) return result.toCsv();
  return result.toText(0);
}

}  // namespace orlo::host
