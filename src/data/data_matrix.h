#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "data/cell_block.h"
#include "data/loaded_text.h"
#include "numerics/tagged_value.h"

// The one rectangular store: the variable dictionary and the cases, addressed as the data file numbers its lines. Row 0
// holds banner and notes, rows 1 to 15 the dictionary, record n stands in row n + 15; columns run from 1.
//
// Behind that face the store is columnar. A loaded column is a view into the bytes of its file and costs nothing but
// the index of field ends; a column whose records are changed comes to own compact cells. A column that nothing was
// ever written to costs nothing. The rest of the system never sees which kind a column is.

namespace tessara {

inline constexpr std::size_t kHeaderRowCount = 15;
inline constexpr std::size_t kFirstRecordRow = 16;
inline constexpr std::size_t kNotesRow = 0;
inline constexpr std::size_t kMissingSpecRow = 1;
inline constexpr std::size_t kVariableLabelRow = 2;
inline constexpr std::size_t kFirstValueLabelRow = 4;
inline constexpr std::size_t kValueLabelSlots = 8;
inline constexpr std::size_t kVariableNameRow = 15;

// What a cell is to a procedure that reads numbers. A blank cell is one that compares equal to the empty tag.
enum class CellClass : std::uint8_t { kBlank, kNumber, kText };

// A column's records as numbers, record 1 at index 0. The value of a blank or text cell is 0.
struct NumericColumn {
  std::vector<double> values;
  std::vector<CellClass> classes;
};

class DataMatrix {
 public:
  DataMatrix() = default;
  // All cells empty: rows 0 to row_count - 1, columns 1 to column_count.
  DataMatrix(std::size_t row_count, std::size_t column_count);
  // A file split into its lines and fields; what the file lacks is empty, what it has beyond the size is dropped.
  DataMatrix(std::size_t row_count, std::size_t column_count, LoadedText text);

  std::size_t RowCount() const { return row_count_; }
  std::size_t ColumnCount() const { return columns_.size(); }

  // A cell outside the matrix is empty. The view lives until the matrix changes.
  TaggedView Cell(std::size_t row, std::size_t column) const;

  // Writing outside the matrix fails and changes nothing.
  bool SetText(std::size_t row, std::size_t column, std::string_view text) { return Set(row, column, text); }
  bool SetNumber(std::size_t row, std::size_t column, double number) { return Set(row, column, number); }
  bool SetEmpty(std::size_t row, std::size_t column) { return Set(row, column, TaggedView()); }
  bool Set(std::size_t row, std::size_t column, const TaggedView& value);

  // Adds an empty column behind the last one; touches no other. Yields its number.
  std::size_t AddColumn();

  // The first record_count records of a column as numbers, computed once and kept until a record of the column changes.
  // The reference lives until the matrix changes or more records are asked for.
  const NumericColumn& Numbers(std::size_t column, std::size_t record_count) const;

  // The number of records up to and including the last one whose cell in this column is not blank, among the first
  // record_count; 0 when all are blank.
  std::size_t UsedRecords(std::size_t column, std::size_t record_count) const;

  // The number of leading columns whose records all stand as they were loaded, in the order of the file.
  std::size_t LoadedColumns() const;

  // Fields 1 to column_count of a record's row as the file holds them, separators between them; nothing when the file's
  // line has fewer. Good for the columns that LoadedColumns counts: saving copies their fields whole.
  std::optional<std::string_view> LoadedLine(std::size_t row, std::size_t column_count) const;

  // Calls visit(record index from 0, cell) for the first record_count records of a column, in order.
  template <typename Visit>
  void ForEachRecord(std::size_t column, std::size_t record_count, Visit visit) const;

 private:
  struct Column {
    std::unique_ptr<CellBlock> header;   // rows 0 to 15; absent while the loaded ones stand
    std::unique_ptr<CellBlock> records;  // rows from 16; absent while the loaded ones stand
    mutable std::unique_ptr<NumericColumn> numbers;
    std::size_t loaded_as = 0;  // field number in the loaded text; 0 for none
  };

  bool Holds(std::size_t row, std::size_t column) const {
    return row < row_count_ && column >= 1 && column <= columns_.size();
  }
  CellBlock& OwnedHeader(Column& column);
  CellBlock& OwnedRecords(Column& column);
  std::size_t LoadedRecords() const;

  std::size_t row_count_ = 0;
  std::vector<Column> columns_;
  std::shared_ptr<const LoadedText> loaded_;
};

template <typename Visit>
void DataMatrix::ForEachRecord(std::size_t column, std::size_t record_count, Visit visit) const {
  std::size_t done = 0;
  if (column >= 1 && column <= columns_.size()) {
    const Column& source = columns_[column - 1];
    if (source.records) {
      for (; done < record_count && done < source.records->size(); ++done) visit(done, source.records->Cell(done));
    } else if (source.loaded_as != 0) {
      done = std::min(record_count, LoadedRecords());
      loaded_->ForEachField(source.loaded_as, kFirstRecordRow, done, visit);
    }
  }
  for (; done < record_count; ++done) visit(done, TaggedView());
}

}  // namespace tessara
