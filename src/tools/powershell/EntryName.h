#pragma once

#include <string>

namespace orlo::tools::powershell {

// True when the bytes are well-formed UTF-8 (no overlong forms, no surrogates).
bool isValidUtf8(const std::string& text);

// True when an extractor would put the entry inside the folder it extracts to:
// the name is relative (no leading "/" or "\", no drive letter) and none of its
// components, split at "/" or "\", is "..".
bool isSafeEntryName(const std::string& name);

// The key under which entry names are compared without regard to case: the
// name's code points in lower case (bytes that are not UTF-8 stand for
// themselves).
std::u32string foldCase(const std::string& name);

}  // namespace orlo::tools::powershell
