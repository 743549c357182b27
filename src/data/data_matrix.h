#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "data/column.h"
#include "data/loaded_text.h"
#include "numerics/tagged_value.h"

// The one rectangular store: the variable dictionary and the cases, addressed as the data file numbers its lines. Row 0
// holds banner and notes, rows 1 to 15 the dictionary, record n stands in row n + 15; columns run from 1.
//
// A matrix costs its handles to copy: copies share their columns until one of them is written to.

namespace tessara {

inline constexpr std::size_t kHeaderRowCount = 15;
inline constexpr std::size_t kNotesRow = 0;
inline constexpr std::size_t kMissingSpecRow = 1;
inline constexpr std::size_t kVariableLabelRow = 2;
inline constexpr std::size_t kFirstValueLabelRow = 4;
inline constexpr std::size_t kValueLabelSlots = 8;
inline constexpr std::size_t kVariableNameRow = 15;

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
  TaggedView Cell(std::size_t row, std::size_t column) const {
    return Holds(row, column) ? columns_[column - 1].Cell(row) : TaggedView();
  }

  // A whole column, to be kept or to be changed apart from the matrix. An empty one outside the matrix.
  const Column& ColumnAt(std::size_t column) const;

  // Writing outside the matrix fails and changes nothing.
  bool SetText(std::size_t row, std::size_t column, std::string_view text) { return Set(row, column, text); }
  bool SetNumber(std::size_t row, std::size_t column, double number) { return Set(row, column, number); }
  bool SetEmpty(std::size_t row, std::size_t column) { return Set(row, column, TaggedView()); }
  bool Set(std::size_t row, std::size_t column, const TaggedView& value);

  // Adds an empty column behind the last one; touches no other. Yields its number.
  std::size_t AddColumn();

  // Puts `columns` in the place of `count` columns from number `first` on, and leaves in `columns` those that have
  // gone.
  void ExchangeColumns(std::size_t first, std::size_t count, std::vector<Column>& columns);

  // More rows are empty; fewer are for rows that nothing was written to.
  void SetRowCount(std::size_t row_count) { row_count_ = row_count; }

  // The first record_count records of a column as numbers, computed once and kept until a record of the column changes.
  // The reference lives until the matrix changes or more records are asked for.
  const NumericColumn& Numbers(std::size_t column, std::size_t record_count) const {
    return ColumnAt(column).Numbers(IsColumn(column) ? record_count : 0);
  }

  // The number of records up to and including the last one whose cell in this column is not blank, among the first
  // record_count; 0 when all are blank.
  std::size_t UsedRecords(std::size_t column, std::size_t record_count) const {
    return ColumnAt(column).UsedRecords(record_count);
  }

  // The number of leading columns whose records all stand as they were loaded, in one order of records and in the
  // file's order of fields.
  std::size_t LoadedColumns() const;

  // Fields 1 to column_count of a record's row as the file holds them, separators between them; nothing when the file's
  // line has fewer. Good for the columns that LoadedColumns counts: saving copies their fields whole.
  std::optional<std::string_view> LoadedLine(std::size_t row, std::size_t column_count) const;

  // Calls visit(record index from 0, cell) for the first record_count records of a column, in order.
  template <typename Visit>
  void ForEachRecord(std::size_t column, std::size_t record_count, Visit visit) const {
    ColumnAt(column).ForEachRecord(record_count, visit);
  }

 private:
  bool IsColumn(std::size_t column) const { return column >= 1 && column <= columns_.size(); }
  bool Holds(std::size_t row, std::size_t column) const { return row < row_count_ && IsColumn(column); }

  std::size_t row_count_ = 0;
  std::vector<Column> columns_;
};

}  // namespace tessara
