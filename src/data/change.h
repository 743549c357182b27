#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "data/cell_block.h"
#include "data/data_matrix.h"
#include "platform/path.h"

// A change of the data: what it is, how far it reaches and what it puts there. Applied (change_door.h), it turns into
// its own inverse: it then holds what stood there before. Columns are handed over whole, so that a change of a million
// cells, its inverse and the inverse of that share all that none of them touches.

namespace tessara {

struct DataSet;

enum class ChangeKind : std::uint8_t {
  kCells,       // some of them may be headings
  kDictionary,  // cells above the records alone
  kColumnsAdded,
  kColumnsRemoved,
  kColumnsReplaced,  // as many as before, in the same place
  kRowsAdded,
  kRowsRemoved,
  kWholeData,
};

// Rows and columns of the matrix. What was removed is told by the places that it had.
struct ChangeExtent {
  std::size_t first_row = 0;
  std::size_t row_count = 0;
  std::size_t first_column = 0;
  std::size_t column_count = 0;

  friend bool operator==(const ChangeExtent&, const ChangeExtent&) = default;
};

// What a change does to DataDirty.
enum class ChangedFlag : std::uint8_t { kSet, kKept, kCleared };

// A file as it stood when the data were read from it or saved to it.
struct SeenFile {
  Path path;
  std::uint64_t size = 0;
  std::int64_t modified_exactly = 0;
};

// All that a new or a loaded data set replaces.
struct DataContents {
  DataMatrix matrix;
  std::size_t RecordCount = 0;
  std::size_t VariableCount = 0;
  std::string DataBanner = {};
  std::string ProjectNotes = {};
  Path DataFilePath = {};
  Path LoadedFile = {};
  bool NamedAtTheStart = false;
  bool PathOfText = false;
  Path MisfitFile = {};
  Path SourceFile = {};
  SeenFile seen_file = {};
  std::string DataFileTitle = {};
  std::string GridTitle = {};
  std::optional<std::uint64_t> DataFileSize = {};
  std::string DataFileModified = {};
};

struct DataChange {
  // The cells of the extent, row by row.
  struct Cells {
    CellBlock values;
  };
  // `columns` in the place of `count` columns from `first` on.
  struct Columns {
    std::size_t first = 1;
    std::size_t count = 0;
    std::vector<Column> columns;
  };
  // Other counts, and other columns unless they stay as they are.
  struct Rows {
    std::size_t row_count = 0;
    std::size_t record_count = 0;
    std::optional<std::vector<Column>> columns;
  };
  using Payload = std::variant<Cells, Columns, Rows, DataContents>;

  ChangeKind kind;
  ChangeExtent extent;
  std::string name;  // for people: "Recode AGEGRP"
  ChangedFlag flag;
  Payload payload;
};

// One cell, of a record or of the dictionary.
DataChange CellChange(std::size_t row, std::size_t column, const TaggedView& value, std::string name);

// A block of cells; `values` holds them row by row.
DataChange BlockChange(const ChangeExtent& block, CellBlock values, std::string name);

// Columns behind the last one, with their names and the rest of their dictionary in them.
DataChange AddColumns(const DataSet& data, std::vector<Column> columns, std::string name);

// `count` columns from number `first` on go. Does not mark the data as changed.
DataChange RemoveColumns(const DataSet& data, std::size_t first, std::size_t count, std::string name);

// Columns in the place of as many others: what a recode or a replacement has made of them.
DataChange ReplaceColumns(const DataSet& data, std::size_t first, std::vector<Column> columns, std::string name);

// Empty records behind the last one.
DataChange AddRows(const DataSet& data, std::size_t count, std::string name);

// `count` records from number `first` on, counted from 1, go: one pass over each column. Does not mark the data as
// changed.
DataChange RemoveRows(const DataSet& data, std::size_t first, std::size_t count, std::string name);

// Another data set in the place of this one, as a load or New brings it: it counts as unchanged.
DataChange ReplaceData(DataContents contents, std::string name);

// What was made of the data in their own place: another matrix with as many records as `record_count`, and notes. They
// keep the path, the title and the changed flag, and the file that they came from is kept at the first save over it.
DataContents ContentsMadeOf(const DataSet& data, DataMatrix matrix, std::size_t record_count, std::string notes);
DataChange ReplaceByMade(DataContents contents, std::string name);

// The chosen records alone, in their order; indexes are counted from 0. Costs no pass over what stands as it was
// loaded.
DataChange ChooseRecords(const DataSet& data, RecordOrder records, std::string name);

}  // namespace tessara
