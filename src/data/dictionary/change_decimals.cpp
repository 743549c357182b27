#include "data/dictionary/change_decimals.h"

#include <algorithm>
#include <new>
#include <string>

#include "data/missing_test.h"
#include "numerics/masks.h"
#include "numerics/number_text.h"
#include "platform/files.h"

namespace tessara {
namespace {

constexpr double kShareOfMemory = 0.25;  // that the new texts may take
constexpr double kDigitsAhead = 20;      // of the point, with the cell's own bytes

// The mask for so many decimals, which `cells` numbers are going to be written under.
std::string MaskOfDecimals(double decimals, std::size_t cells) {
  if (decimals < 0) return {};
  const double bytes = (decimals + kDigitsAhead) * (static_cast<double>(cells) + 1);
  if (bytes > static_cast<double>(MachineMemory()) * kShareOfMemory) throw std::bad_alloc();
  if (decimals == 0) return "0";
  return "0." + std::string(static_cast<std::size_t>(decimals), '0');
}

}  // namespace

std::size_t ChangeDecimals(const DataMatrix& matrix, std::size_t column, std::size_t record_count,
                           const MissingValues& missing, std::string_view decimals, Column& target) {
  const NumericColumn& numbers = matrix.Numbers(column, record_count);
  const auto last = numbers.classes.begin() + static_cast<std::ptrdiff_t>(record_count);
  const auto cells = static_cast<std::size_t>(std::count(numbers.classes.begin(), last, CellClass::kNumber));
  const std::string mask = MaskOfDecimals(RoundHalfEven(ToNumber(decimals).value_or(0)), cells);

  const MissingTest test(matrix, column, missing, numbers);
  std::size_t rewritten = 0;
  std::string text;
  for (std::size_t record = 0; record < record_count; ++record) {
    if (numbers.classes[record] != CellClass::kNumber || test.Drops(record)) continue;
    text.clear();
    AppendMasked(numbers.values[record], mask, text);
    const std::size_t row = kFirstRecordRow + record;
    if (target.Cell(row) == TaggedView(text)) continue;  // stretches without a change stay shared
    target.Set(row, text);
    ++rewritten;
  }
  return rewritten;
}

}  // namespace tessara
