#pragma once

#include <string>
#include <string_view>

#include "data/field_ends.h"
#include "numerics/text.h"

namespace tessara {

// What is typed into a box as a cell may hold it: no field separator and no line end, which would break the data file.
inline std::string TypedText(std::string_view text) {
  std::string kept(text);
  std::erase_if(kept, [](char c) { return c == '\r' || c == '\n' || c == kFieldSeparator; });
  return kept;
}

inline std::string TrimmedText(std::string_view text) { return std::string(Trimmed(TypedText(text))); }

}  // namespace tessara
