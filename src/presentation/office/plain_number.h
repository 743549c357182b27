#pragma once

#include <optional>
#include <string>
#include <string_view>

// Which texts are numbers in a sheet, and how they look there.

namespace tessara {

struct PlainNumber {
  double value = 0;
  // The format of the cell that shows the number as it was written, "0.0000" for 2.5000; empty where the usual one
  // does.
  std::string mask;
  // The file keeps 16 digits; false for a number that they do not hold.
  bool survives = true;
};

// The number that a text stands for; nothing for a text that a sheet keeps better as it is: one that fails the numeric
// test, one whose commas do not part thousands ("1,2"), and a whole number of more than 15 digits, which a sheet would
// round.
std::optional<PlainNumber> FindPlainNumber(std::string_view text);

}  // namespace tessara
