#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "data/cell_block.h"
#include "data/loaded_text.h"
#include "numerics/tagged_value.h"

// One variable: its part of the dictionary (rows 0 to 15) and its records (rows from 16).
//
// A column is a value that costs a few pointers to copy: copies share their cells until one of them is written to, and
// then go apart by the stretch of records that the write falls into. A loaded column is a view into the bytes of its
// file, and a stretch of it comes to own its cells when one of them is first changed. What nothing was ever written to
// costs nothing.

namespace tessara {

inline constexpr std::size_t kFirstRecordRow = 16;

// What a cell is to a procedure that reads numbers. A blank cell is one that compares equal to the empty tag.
enum class CellClass : std::uint8_t { kBlank, kNumber, kText };

// A column's records as numbers, record 1 at index 0. The value of a blank or text cell is 0.
struct NumericColumn {
  std::vector<double> values;
  std::vector<CellClass> classes;
};

// Indexes of records, from 0: those that a choice has taken, in their new order.
using RecordOrder = std::vector<std::uint32_t>;

class Column {
 public:
  // All cells empty.
  Column() = default;
  // A field of the first row_count lines of a file.
  Column(std::shared_ptr<const LoadedText> text, std::size_t field, std::size_t row_count);

  // A cell that was never written is empty. The view lives until the column changes.
  TaggedView Cell(std::size_t row) const;

  // Where the memory fails the column stays as it was.
  void Set(std::size_t row, const TaggedView& value);

  const NumericColumn& Numbers(std::size_t record_count) const;
  // Whether they have been read already.
  bool HasNumbers(std::size_t record_count) const { return numbers_ && numbers_->values.size() >= record_count; }
  // Gives back the memory of the numbers; they are read again when they are asked for.
  void ForgetNumbers() const { numbers_.reset(); }

  // The number of records up to and including the last one that is not blank, among the first record_count.
  std::size_t UsedRecords(std::size_t record_count) const;

  // Calls visit(record index from 0, cell) for the first record_count records, in order.
  template <typename Visit>
  void ForEachRecord(std::size_t record_count, Visit visit) const;

  // The same column without `count` records from the one at index `first` on; record_count is the number of records
  // that there are.
  Column WithoutRecords(std::size_t first, std::size_t count, std::size_t record_count) const;

  // The file that the column is, or was, a view into; nothing for one that was never loaded.
  const std::shared_ptr<const LoadedText>& loaded_text() const { return loaded_; }
  // Whether all records are those of this field of their file, in the order of LoadedOrder.
  bool StandsAsField(std::size_t field) const { return loaded_as_ == field && !records_; }
  // The records of the file that a choice has taken, in their order; nothing while they stand as in the file. Columns
  // that were chosen together share it.
  const std::shared_ptr<const RecordOrder>& LoadedOrder() const { return order_; }
  // The row of the file that a loaded row shows; kNoRow for none.
  static constexpr std::size_t kNoRow = static_cast<std::size_t>(-1);
  std::size_t LoadedRow(std::size_t row) const;

  // Numbers of this column are shown with five decimals, whatever they are.
  bool ShowsFiveDecimals() const { return shows_five_decimals_; }

  // Bytes of the cells that this column owns and the other one does not share; the bytes of the file are not among
  // them.
  std::size_t BytesBeside(const Column& other) const;

 private:
  friend class ColumnBuilder;
  friend class RecordChoice;

  static constexpr std::size_t kStretchBits = 10;  // a stretch has 2 to this power records
  static constexpr std::size_t kStretch = std::size_t{1} << kStretchBits;

  // The owned records. A stretch that is not there stands as it was loaded, or was never written.
  struct Records {
    std::vector<std::shared_ptr<CellBlock>> stretches;

    const CellBlock* Stretch(std::size_t place) const {
      return place < stretches.size() ? stretches[place].get() : nullptr;
    }
  };

  const CellBlock* OwnedStretch(std::size_t place) const { return records_ ? records_->Stretch(place) : nullptr; }
  std::size_t LoadedRecords() const {
    if (order_) return order_->size();
    return loaded_rows_ > kFirstRecordRow ? loaded_rows_ - kFirstRecordRow : 0;
  }
  TaggedView LoadedCell(std::size_t row) const;
  template <typename Visit>
  void ForEachInStretches(std::size_t record_count, Visit visit) const;
  template <typename Visit>
  void ForEachLoadedRecord(std::size_t first, std::size_t end, Visit& visit) const;
  CellBlock LoadedCells(std::size_t first_row, std::size_t end_row) const;
  CellBlock& OwnHeader();
  CellBlock& OwnStretch(std::size_t place);
  CellBlock* StretchHeldAlone(std::size_t place);
  void AppendRecords(CellBlock& target, std::size_t first, std::size_t end) const;

  std::shared_ptr<CellBlock> header_;  // absent while the loaded rows 0 to 15 stand
  std::shared_ptr<Records> records_;   // absent while the loaded records stand
  mutable std::shared_ptr<const NumericColumn> numbers_;
  std::shared_ptr<const LoadedText> loaded_;  // holds the texts that owned cells refer to, too
  std::shared_ptr<const RecordOrder> order_;  // absent while the loaded records stand as in their file
  std::size_t loaded_as_ = 0;                 // field number in the loaded text; 0 for none
  std::size_t loaded_rows_ = 0;
  bool shows_five_decimals_ = false;
};

inline std::size_t Column::LoadedRow(std::size_t row) const {
  if (!order_ || row < kFirstRecordRow) return row;
  const std::size_t record = row - kFirstRecordRow;
  return record < order_->size() ? kFirstRecordRow + (*order_)[record] : kNoRow;
}

inline TaggedView Column::LoadedCell(std::size_t row) const {
  row = LoadedRow(row);
  if (loaded_as_ == 0 || row >= loaded_rows_) return {};
  const auto field = loaded_->Field(row, loaded_as_);
  return field ? TaggedView(*field) : TaggedView();
}

inline TaggedView Column::Cell(std::size_t row) const {
  if (row < kFirstRecordRow) {
    if (header_) return header_->Cell(row);
  } else if (records_) {
    const std::size_t record = row - kFirstRecordRow;
    if (const CellBlock* owned = records_->Stretch(record >> kStretchBits)) return owned->Cell(record & (kStretch - 1));
  }
  return LoadedCell(row);
}

template <typename Visit>
void Column::ForEachLoadedRecord(std::size_t first, std::size_t end, Visit& visit) const {
  if (order_) {
    for (; first < end; ++first) visit(first, LoadedCell(kFirstRecordRow + first));
    return;
  }
  if (const std::size_t there = std::min(end, LoadedRecords()); loaded_as_ != 0 && first < there) {
    loaded_->ForEachField(loaded_as_, kFirstRecordRow + first, there - first,
                          [&, first](std::size_t index, const TaggedView& cell) { visit(first + index, cell); });
    first = there;
  }
  for (; first < end; ++first) visit(first, TaggedView());
}

template <typename Visit>
void Column::ForEachRecord(std::size_t record_count, Visit visit) const {
  if (records_) {
    ForEachInStretches(record_count, visit);
    return;
  }
  std::size_t done = 0;
  if (loaded_as_ != 0 && !order_) {
    done = std::min(record_count, LoadedRecords());
    loaded_->ForEachField(loaded_as_, kFirstRecordRow, done, visit);
  }
  ForEachLoadedRecord(done, record_count, visit);
}

template <typename Visit>
void Column::ForEachInStretches(std::size_t record_count, Visit visit) const {
  std::size_t done = 0;
  for (std::size_t place = 0; place < records_->stretches.size() && done < record_count; ++place) {
    const std::size_t end = std::min(record_count, (place + 1) << kStretchBits);
    if (const CellBlock* owned = records_->stretches[place].get()) {
      owned->ForEachCell(end - done,
                         [&, done](std::size_t index, const TaggedView& cell) { visit(done + index, cell); });
    } else {
      ForEachLoadedRecord(done, end, visit);
    }
    done = end;
  }
  ForEachLoadedRecord(done, record_count, visit);
}

}  // namespace tessara
