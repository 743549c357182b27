#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "data/data_matrix.h"
#include "data/missing_values.h"
#include "numerics/checked.h"

// The missing-value test of MissingValues for whole columns of numbers: the same answers, without reading a cell's text
// unless its number is that of a single missing value.

namespace tessara {

class MissingTest {
 public:
  // `numbers` is the numeric view of the column.
  MissingTest(const DataMatrix& matrix, std::size_t column, const MissingValues& missing, const NumericColumn& numbers);

  // Whether the case of a record, from index 0, is dropped: its value is missing, or the test has failed.
  bool Drops(std::size_t record) const {
    switch (numbers_.classes[record]) {
      case CellClass::kBlank:
        return true;
      case CellClass::kNumber:
        if (numbers_.values[record] < lower_ || numbers_.values[record] > upper_) return true;
        return has_singles_ && DropsSingle(record);
      default:
        return (has_singles_ || has_bounds_) && Ask(record);
    }
  }

 private:
  bool DropsSingle(std::size_t record) const;
  bool Ask(std::size_t record) const;

  const DataMatrix& matrix_;
  const std::size_t column_;
  const MissingValues& missing_;
  const NumericColumn& numbers_;
  double lower_;  // a number below or above these is missing, or meets a bound that is no number
  double upper_;
  bool has_singles_;
  bool has_bounds_;
  std::vector<double> singles_;  // the single values that are numbers
};

}  // namespace tessara
