#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/change.h"
#include "data/change_history.h"
#include "data/change_notes.h"
#include "data/data_matrix.h"
#include "platform/platform.h"

// The one data set in memory, with all that belongs to it but its panel.

namespace tessara {

inline constexpr std::size_t kEditLimit = 200000;  // cells that may be edited by hand
inline constexpr std::size_t kNewRecordCount = 1000;
inline constexpr std::size_t kNewVariableCount = 20;
inline constexpr std::size_t kMostGridVariables = 300;
inline constexpr std::size_t kGridRecordsAboveLimit = 100;
inline constexpr std::string_view kUntitledGrid = "Data Grid";

// The cells that count for the edit limit; header rows do not. Saturates.
std::size_t CellsOf(std::size_t record_count, std::size_t variable_count);

struct ListedVariable {
  std::string name;        // as it stood when the lists were rebuilt
  std::size_t column = 0;  // 0 in the entry "None"
};

struct DataSet;

// The matrix of a data set: everybody reads it, the door for changes alone writes it (change_door.h).
class HeldMatrix {
 public:
  operator const DataMatrix&() const { return matrix_; }  // NOLINT: implicit by design

  std::size_t RowCount() const { return matrix_.RowCount(); }
  std::size_t ColumnCount() const { return matrix_.ColumnCount(); }
  TaggedView Cell(std::size_t row, std::size_t column) const { return matrix_.Cell(row, column); }
  const Column& ColumnAt(std::size_t column) const { return matrix_.ColumnAt(column); }
  const NumericColumn& Numbers(std::size_t column, std::size_t record_count) const {
    return matrix_.Numbers(column, record_count);
  }
  std::size_t UsedRecords(std::size_t column, std::size_t record_count) const {
    return matrix_.UsedRecords(column, record_count);
  }
  std::size_t LoadedColumns() const { return matrix_.LoadedColumns(); }
  std::optional<std::string_view> LoadedLine(std::size_t row, std::size_t column_count) const {
    return matrix_.LoadedLine(row, column_count);
  }
  template <typename Visit>
  void ForEachRecord(std::size_t column, std::size_t record_count, Visit visit) const {
    matrix_.ForEachRecord(column, record_count, visit);
  }

 private:
  friend class ChangeExchange;
  friend class MatrixEditor;
  friend void StoreFirstRow(DataSet& data, std::string_view banner, std::string_view notes);

  DataMatrix matrix_;
};

struct DataSet {
  HeldMatrix matrix;
  std::size_t RecordCount = 0;
  std::size_t VariableCount = 0;
  bool DataDirty = false;  // something has changed since the last load or save
  std::string DataBanner;
  std::string ProjectNotes;  // the notes box, with its line ends

  Path DataFilePath;          // at the start the folder of data files; empty after New
  std::string DataFileTitle;  // the name as it was opened: a Save As does not change it
  std::string GridTitle{kUntitledGrid};
  std::optional<std::uint64_t> DataFileSize;  // bytes
  std::string DataFileModified;
  Path LoadedFile;               // the file that the data were read from; empty when they came from none
  bool NamedAtTheStart = false;  // it was named on the command line and has not been saved since: no path of its own
  bool PathOfText = false;       // DataFilePath is that of a delimited text: no save goes there unasked
  Path MisfitFile;               // that file while it holds what the data do not, because it did not fit its first line
  Path SourceFile;               // a file that the data are a part of, or were computed from: a save keeps it
  SeenFile seen_file;            // that file, or the one saved to last; another program may write it in the meantime

  std::size_t CurrentRow = 1;  // grid cursor; row 0 is the heading
  std::size_t CurrentColumn = 1;

  std::vector<ListedVariable> VarList;  // index 0 is "None", so an index is a column number

  // Written by the door for changes alone: what has happened of late, and what can be undone (change_door.h).
  ChangeNotes notes;
  ChangeHistory history;

  // Counts up whenever cells, shape or dictionary change, so that a view knows when to look again.
  std::uint64_t Revision() const { return notes.revision(); }

  // "VariableName" and "VariableLabel" of a column.
  std::string VariableName(std::size_t column) const;
  std::string VariableLabel(std::size_t column) const;

  std::size_t CellCount() const { return CellsOf(RecordCount, VariableCount); }
  bool WithinEditLimit() const { return CellCount() <= kEditLimit; }

  // The stretch of the data that a grid shows.
  std::size_t GridRecords() const {
    return WithinEditLimit() ? RecordCount : std::min(RecordCount, kGridRecordsAboveLimit);
  }
  std::size_t GridVariables() const { return std::min(VariableCount, kMostGridVariables); }
};

// The empty data set: 1000 records, 20 variables V1 to V20.
DataContents EmptyContents();
// Begins with it.
void MakeEmptyDataSet(DataSet& data);

// Whether a matrix of this shape can be held in the machine's memory.
bool ShapeCanBeHeld(std::size_t record_count, std::size_t variable_count);

// Rebuilds the list that names every variable, "None" first.
void RebuildVariableLists(DataSet& data);

}  // namespace tessara
