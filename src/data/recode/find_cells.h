#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "data/recode/recode_panel.h"

// Finding cells of one variable.

namespace tessara {

// Looks for a text within texts, no matter whether letters of the code page are large or small.
class TextSearch {
 public:
  explicit TextSearch(std::string_view wanted);
  TextSearch(const TextSearch&) = delete;
  TextSearch& operator=(const TextSearch&) = delete;

  // An empty text is found nowhere.
  bool IsIn(std::string_view text);

 private:
  using LongSearch = std::boyer_moore_searcher<std::string::const_iterator>;

  std::string wanted_;                // in small letters
  std::optional<LongSearch> search_;  // of a long text, in a time that does not grow with its length
  std::string small_;
};

// The next match of Text12 in the picked variable, from FindRow on: it is marked in bold, and the grid's cursor goes to
// it where the grid shows it. Yields its matrix row. At the end of the column 0: Label21 shows, and the next search
// starts from the top.
std::size_t FindNextCell(RecodePanel& panel, DataSet& data);

// The number of records of the picked variable that match Text12.
std::size_t CountMatches(const RecodePanel& panel, const DataSet& data);

}  // namespace tessara
