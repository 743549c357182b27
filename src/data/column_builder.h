#pragma once

#include <cstddef>
#include <utility>

#include "data/column.h"

// Makes a column from its first record to its last, as fast as cells can be written: each stretch of records is opened
// once and written through. Starts from another column, whose cells stay where nothing is put; stretches that nothing
// is put to stay shared with it.

namespace tessara {

class ColumnBuilder {
 public:
  explicit ColumnBuilder(Column base = {}) : column_(std::move(base)) { column_.numbers_.reset(); }

  // Row 0 to 15.
  void PutHeader(std::size_t row, const TaggedView& value) { column_.Set(row, value); }

  void ShowFiveDecimals() { column_.shows_five_decimals_ = true; }

  // A record, from index 0. In the order of the records, each at most once. The value must not stand in a cell of this
  // builder.
  void Put(std::size_t record, const TaggedView& value) {
    const std::size_t place = record >> Column::kStretchBits;
    if (!open_ || place != place_) Open(place);
    open_->Set(record & (Column::kStretch - 1), value);
  }

  // The cell as it stands so far.
  TaggedView Cell(std::size_t record) const { return column_.Cell(kFirstRecordRow + record); }

  // Whether a record has been put.
  bool has_written() const { return open_ != nullptr; }

  Column Take() {
    open_ = nullptr;
    return std::move(column_);
  }

 private:
  void Open(std::size_t place) {
    open_ = &column_.OwnStretch(place);
    open_->Reserve(Column::kStretch);
    place_ = place;
  }

  Column column_;
  CellBlock* open_ = nullptr;  // the stretch that is written to
  std::size_t place_ = 0;
};

}  // namespace tessara
