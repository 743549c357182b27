#include "data/missing_test.h"

#include <algorithm>
#include <limits>

#include "numerics/number_text.h"

namespace tessara {
namespace {

constexpr double kNoBound = std::numeric_limits<double>::infinity();

}  // namespace

MissingTest::MissingTest(const DataMatrix& matrix, std::size_t column, const MissingValues& missing,
                         const NumericColumn& numbers)
    : matrix_(matrix),
      column_(column),
      missing_(missing),
      numbers_(numbers),
      lower_(-kNoBound),
      upper_(kNoBound),
      has_singles_(missing.HasSingleValues()),
      has_bounds_(missing.HasBounds()) {
  // A bound that is no number fails the test of every value: all cases are dropped.
  if (const TaggedView lower = missing.entries[kLowerBoundEntry]; !lower.is_blank()) {
    lower_ = ToNumber(lower).value_or(kNoBound);
  }
  if (const TaggedView upper = missing.entries[kUpperBoundEntry]; !upper.is_blank()) {
    upper_ = ToNumber(upper).value_or(-kNoBound);
  }
  for (std::size_t i = 0; i < kSingleMissingEntries; ++i) {
    if (const auto number = ParseNumber(missing.entries[i].view().text())) singles_.push_back(*number);
  }
}

bool MissingTest::DropsSingle(std::size_t record) const {
  const double value = numbers_.values[record];
  const bool may_be_single = std::find(singles_.begin(), singles_.end(), value) != singles_.end();
  return may_be_single && Ask(record);
}

bool MissingTest::Ask(std::size_t record) const {
  return static_cast<bool>(missing_.IsMissing(matrix_.Cell(kFirstRecordRow + record, column_)));
}

}  // namespace tessara
