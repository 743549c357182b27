#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "data/recode/recode_panel.h"

// Finding cells of one variable.

namespace tessara {

// Looks for a text within texts, no matter whether letters of the code page are large or small. The time grows with the
// length of both, never with their product (Knuth, Morris and Pratt, 1977).
class TextSearch {
 public:
  explicit TextSearch(std::string_view wanted);

  // An empty text is found nowhere.
  bool IsIn(std::string_view text) const;

 private:
  std::string wanted_;                // in small letters
  std::vector<std::size_t> borders_;  // of each length: the longest shorter start that is also its end
};

// The next match of Text12 in the picked variable, from FindRow on: it is marked in bold, and the grid's cursor goes to
// it where the grid shows it. Yields its matrix row. At the end of the column 0: Label21 shows, and the next search
// starts from the top.
std::size_t FindNextCell(RecodePanel& panel, DataSet& data);

// The number of records of the picked variable that match Text12.
std::size_t CountMatches(const RecodePanel& panel, const DataSet& data);

}  // namespace tessara
