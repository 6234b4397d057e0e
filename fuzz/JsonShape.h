#pragma once

#include <cstdlib>
#include <string>
#include <vector>

// Aborts unless every string in `text` closes and every bracket pairs up. The writer's
// form need not be valid JSON, but, with keys free of quotes and backslashes, whatever
// the values hold cannot break its shape.
inline void checkJsonShape(const std::string& text) {
  std::vector<char> open;
  bool inString = false;
  for (size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (inString) {
      if (c == '\\') {
        ++i;
      } else if (c == '"') {
        inString = false;
      }
    } else if (c == '"') {
      inString = true;
    } else if (c == '{' || c == '[') {
      open.push_back(c);
    } else if (c == '}' || c == ']') {
      if (open.empty() || open.back() != (c == '}' ? '{' : '[')) std::abort();
      open.pop_back();
    }
  }
  if (inString || !open.empty()) std::abort();
}
