#pragma once

#include <string>
#include <utility>
#include <vector>

// `text` with whole lines swapped for others: each pair names a line (without its
// line feed) and what stands in its place. A line that is not found is left as a
// marker in the result, so the comparison that follows fails and shows it.
inline std::string withLines(std::string text,
                             const std::vector<std::pair<std::string, std::string>>& swaps) {
  for (const auto& [line, replacement] : swaps) {
    const std::string whole = "\n" + line + "\n";
    const auto at = ("\n" + text).find(whole);
    if (at == std::string::npos) {
      text += "<missing line: " + line + ">";
      continue;
    }
    text.replace(at, line.size(), replacement);
  }
  return text;
}
