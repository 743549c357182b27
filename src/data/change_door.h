#pragma once

#include <string_view>

#include "data/change.h"

// The one door for changes of the data. Whoever changes cells, the dictionary, rows, columns or the whole data set
// makes a change and hands it in here: the matrix, the counts, the list of variables, the changed flag, the revision
// that the views go by and the steps to undo keep together.
//
// Where the memory does not suffice, std::bad_alloc leaves all of them as they were.

namespace tessara {

struct DataSet;

// False, and nothing has changed, when the change does not fit the data.
bool ApplyChange(DataSet& data, DataChange change);

// False when there is no step.
bool UndoChange(DataSet& data);
bool RedoChange(DataSet& data);
bool CanUndo(const DataSet& data);
bool CanRedo(const DataSet& data);
// What the step did: "Recode AGEGRP"; empty when there is none.
std::string_view UndoName(const DataSet& data);
std::string_view RedoName(const DataSet& data);

// The data stand in their file as they are here.
void MarkSaved(DataSet& data) noexcept;
// Something that belongs to the data but is no cell has changed, such as the notes.
void MarkChanged(DataSet& data) noexcept;

// The two cells of the first row that a save writes: no step, nothing that a view shows.
void StoreFirstRow(DataSet& data, std::string_view banner, std::string_view notes);

// A data set to begin with: there is no way back to what stood there before.
void BeginData(DataSet& data, DataContents contents);

// The data go, and all steps with them.
void DropData(DataSet& data) noexcept;

// Writes cells without a step to undo, for what prepares a data set before anybody works with it. Views are told.
class MatrixEditor {
 public:
  explicit MatrixEditor(DataSet& data) : data_(data) {}

  bool SetText(std::size_t row, std::size_t column, std::string_view text) { return Set(row, column, text); }
  bool SetNumber(std::size_t row, std::size_t column, double number) { return Set(row, column, number); }
  bool SetEmpty(std::size_t row, std::size_t column) { return Set(row, column, TaggedView()); }
  bool Set(std::size_t row, std::size_t column, const TaggedView& value);
  // An empty column behind the last one; the counts stay. Yields its number.
  std::size_t AddColumn();
  // The counts stay.
  void Replace(DataMatrix matrix) noexcept;

 private:
  DataSet& data_;
};

}  // namespace tessara
