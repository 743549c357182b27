#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "data/data_set.h"
#include "numerics/tagged_value.h"
#include "procedures/options.h"
#include "procedures/tables/summary_table.h"

// Finds the rows and columns of a summary table by what they stand for, and adds those that are not there. Rows and
// cells carry tags, so the user may write, delete and move around them as he likes.

namespace tessara {

// A larger table could be neither read nor held.
inline constexpr std::size_t kMostGridCells = 4'000'000;
// A variable with more values than this has no categories worth a row each.
inline constexpr std::size_t kMostTableCategories = 10000;

// A variable is known by its name, and by its place among the variables of the same name.
std::string VariableKey(const DataSet& data, std::size_t column);
// A category is known by its stored value and its label: in another file the same value may stand for something else. A
// number and a text of the same look are two.
std::string CategoryKey(const TaggedView& value, std::string_view label);
// A column is known by its variable and the category; the column of all cases by nothing.
std::string ColumnKey(std::string_view variable_key, std::string_view category_key);

// What a row of a variable holds and how it is labelled when it is written for the first time.
struct WantedRow {
  std::string_view what;   // "percent": rows of a variable and a category differ in it
  std::string category;    // the key of the category, empty for a row of the variable as a whole
  std::string group;       // stands in column 1; of a category only in the first of rows that stand together
  std::string_view label;  // stands in column 2
};

struct WantedColumn {
  std::string key;
  std::string heading;
};

// Where they stand in the grid, in the order in which they were wanted.
struct TablePlaces {
  std::size_t heading = 0;
  std::vector<std::size_t> rows;
  std::vector<std::size_t> columns;
  // The variable's other rows that hold figures of categories, with what they hold.
  struct OtherRow {
    std::size_t row;
    std::string what;
  };
  std::vector<OtherRow> others;
};

class TableWriter {
 public:
  // Works on the block of that kind of data. The control label goes into the first cell when the table is opened.
  TableWriter(SummaryTable& table, TableData kind, std::string control_label);

  // Finds or adds rows and columns; nothing, and no change, when the table would have too many cells.
  std::optional<TablePlaces> Place(const std::string& variable_key, std::span<const WantedRow> rows,
                                   std::span<const WantedColumn> columns);

  // A figure, in a row and a column of these places.
  void Write(const TablePlaces& places, std::size_t row, std::size_t column, std::string text);

 private:
  // Where the rows of the block stand, 0 where there is none.
  struct Survey {
    std::size_t heading = 0;
    std::size_t first = 0;  // of the block, the heading among them
    std::size_t last = 0;   // of the block
    std::size_t last_of_variable = 0;
    std::vector<std::size_t> found;  // of the wanted rows
    std::vector<TablePlaces::OtherRow> others;
  };

  Survey FindRows(const std::string& variable_tag, std::span<const WantedRow> wanted) const;
  std::vector<std::size_t> FindColumns(const Survey& survey, std::span<const WantedColumn> wanted) const;
  std::size_t LastUsedColumn(const Survey& survey) const;
  void FreeLabelColumns();
  void AddHeading(const Survey& survey);
  void AddRows(const std::string& variable_tag, std::span<const WantedRow> wanted, Survey& survey);
  void AddColumns(const Survey& survey, std::span<const WantedColumn> wanted, std::vector<std::size_t>& columns);
  void WriteLabels(const std::string& variable_tag, const WantedRow& wanted, std::size_t row);
  void WriteLabel(std::size_t row, std::size_t column, std::string_view text, TableAlignment alignment);
  const SummaryTable::Column* ColumnOf(const std::string& tag) const;

  SummaryTable& table_;
  TableGrid& grid_;
  std::string block_tag_;
  std::string control_label_;
  bool opens_;  // the grid was empty
};

}  // namespace tessara
