#include "host/ResultRenderer.h"

#include "plugins/plugin.cliframework/Vocabulary.h"

namespace orlo::host {

std::string render(const plugin::cli::ResultBase& result, const std::string& format) {
  namespace formats = plugin::cli::formats;
  if (format == formats::json) return result.toJson(0) + "\n";  // the writer ends no line
  if (format == formats::xml) return result.toXml(0);
  if (format == formats::csv) return result.toCsv();
  return result.toText(0);
}

}  // namespace orlo::host
