#pragma once

#include <cstddef>
#include <optional>

#include "data/data_set.h"
#include "data/missing_test.h"
#include "data/missing_values.h"
#include "numerics/number_text.h"

// A variable as a run reads it, record by record from index 0: the cell, its number, and whether it is missing.

namespace tessara {

class SourceVariable {
 public:
  enum class Reading {
    kColumn,  // the numbers of the whole column are read at once and kept with it
    kCells,   // each cell is read as it is asked for
  };

  // The data must not change while it lives. A column that the data do not have is all empty.
  SourceVariable(const DataSet& data, std::size_t column, Reading reading);
  SourceVariable(const SourceVariable&) = delete;
  SourceVariable& operator=(const SourceVariable&) = delete;

  TaggedView Cell(std::size_t record) const { return column_.Cell(kFirstRecordRow + record); }

  Checked Number(std::size_t record) const {
    if (!numbers_) return ToNumber(Cell(record));
    switch (numbers_->classes[record]) {
      case CellClass::kNumber:
        return {numbers_->values[record]};
      case CellClass::kBlank:
        return ToNumber(Cell(record));  // the empty tag is 0, empty text is no number
      default:
        return Checked::Failed();
    }
  }

  // Fails where a text, or a bound that is none, stands in the way of a comparison.
  Condition IsMissing(std::size_t record) const {
    if (!numbers_) return has_definition_ ? missing_.IsMissing(Cell(record)) : Condition(Cell(record).is_blank());
    if (numbers_->classes[record] == CellClass::kBlank) return true;
    if (!has_definition_) return false;
    if (bounds_are_numbers_ && numbers_->classes[record] == CellClass::kNumber) return test_->Drops(record);
    return missing_.IsMissing(Cell(record));
  }

 private:
  const Column& column_;
  const MissingValues missing_;
  const bool has_definition_;
  const bool bounds_are_numbers_;
  const NumericColumn* numbers_ = nullptr;
  std::optional<MissingTest> test_;
};

}  // namespace tessara
