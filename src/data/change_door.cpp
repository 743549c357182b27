#include "data/change_door.h"

#include <algorithm>
#include <utility>

#include "data/data_set.h"
#include "numerics/number_text.h"

namespace tessara {
namespace {

using Cells = DataChange::Cells;
using Columns = DataChange::Columns;
using Rows = DataChange::Rows;

// first and count of a stretch within `size` places numbered from `origin`.
bool IsWithin(std::size_t first, std::size_t count, std::size_t origin, std::size_t size) {
  return first >= origin && count <= size && first - origin <= size - count;
}

bool Fits(const DataSet& data, const DataChange& change) {
  const ChangeExtent& extent = change.extent;
  const DataMatrix& matrix = data.matrix;
  switch (change.kind) {
    case ChangeKind::kCells:
    case ChangeKind::kDictionary:
      return IsWithin(extent.first_row, extent.row_count, 0, matrix.RowCount()) &&
             IsWithin(extent.first_column, extent.column_count, 1, matrix.ColumnCount());
    case ChangeKind::kColumnsRemoved:
    case ChangeKind::kColumnsReplaced:
      return IsWithin(extent.first_column, extent.column_count, 1, matrix.ColumnCount());
    case ChangeKind::kRowsRemoved:
      return IsWithin(extent.first_row, extent.row_count, kFirstRecordRow, data.RecordCount);
    case ChangeKind::kColumnsAdded:
    case ChangeKind::kRowsAdded:
    case ChangeKind::kWholeData:
      return true;
  }
  return false;
}

ChangeKind InverseKind(ChangeKind kind) {
  switch (kind) {
    case ChangeKind::kColumnsAdded:
      return ChangeKind::kColumnsRemoved;
    case ChangeKind::kColumnsRemoved:
      return ChangeKind::kColumnsAdded;
    case ChangeKind::kRowsAdded:
      return ChangeKind::kRowsRemoved;
    case ChangeKind::kRowsRemoved:
      return ChangeKind::kRowsAdded;
    default:
      return kind;
  }
}

std::vector<ListedVariable> ListVariables(const DataMatrix& matrix) {
  std::vector<ListedVariable> list;
  list.reserve(matrix.ColumnCount() + 1);
  list.push_back({"None", 0});
  for (std::size_t column = 1; column <= matrix.ColumnCount(); ++column) {
    list.push_back({TextOf(matrix.Cell(kVariableNameRow, column)), column});
  }
  return list;
}

// Estimates what an applied change keeps from being given back: the cells and file texts that the data do not hold any
// more.
class HeldBytes {
 public:
  explicit HeldBytes(const DataMatrix& matrix) : matrix_(matrix) {}

  std::size_t Of(const DataChange& change) const {
    return sizeof change + change.name.capacity() +
           std::visit([this](const auto& payload) { return OfPayload(payload); }, change.payload);
  }

 private:
  std::size_t OfPayload(const Cells& cells) const { return cells.values.Bytes(); }
  std::size_t OfPayload(const Columns& payload) const {
    static const Column kNone;
    std::size_t bytes = OfTexts(
        payload.columns.size(), [&](std::size_t i) -> auto& { return payload.columns[i]; });
    for (std::size_t i = 0; i < payload.columns.size(); ++i) {
      const bool replaced = i < payload.count;
      bytes += payload.columns[i].BytesBeside(replaced ? matrix_.ColumnAt(payload.first + i) : kNone);
    }
    return bytes;
  }
  std::size_t OfPayload(const Rows& rows) const {
    if (!rows.columns) return 0;
    return OfAll(
        rows.columns->size(), [&](std::size_t i) -> auto& { return (*rows.columns)[i]; });
  }
  std::size_t OfPayload(const DataContents& contents) const {
    return OfAll(
        contents.matrix.ColumnCount(), [&](std::size_t i) -> auto& { return contents.matrix.ColumnAt(i + 1); });
  }

  template <typename ColumnOf>
  std::size_t OfAll(std::size_t count, ColumnOf column_of) const {
    std::size_t bytes = OfTexts(count, column_of);
    for (std::size_t i = 0; i < count; ++i) bytes += column_of(i).BytesBeside(matrix_.ColumnAt(i + 1));
    return bytes;
  }

  // The files that no column of the data looks into any more, and the orders of records; each counts once.
  template <typename ColumnOf>
  std::size_t OfTexts(std::size_t count, ColumnOf column_of) const {
    const auto text_of = [](const Column& column) { return column.loaded_text().get(); };
    const auto order_of = [](const Column& column) { return column.LoadedOrder().get(); };
    return OfShared(count, column_of, text_of, [](const LoadedText& text) { return text.Bytes(); }) +
           OfShared(count, column_of, order_of,
                    [](const RecordOrder& order) { return order.capacity() * sizeof order[0]; });
  }

  // What columns share, as part_of(column) points to it.
  template <typename ColumnOf, typename PartOf, typename BytesOf>
  std::size_t OfShared(std::size_t count, ColumnOf column_of, PartOf part_of, BytesOf bytes_of) const {
    std::size_t bytes = 0;
    decltype(part_of(column_of(0))) last = nullptr;
    for (std::size_t i = 0; i < count; ++i) {
      const auto part = part_of(column_of(i));
      if (!part || part == last) continue;
      last = part;
      bool counted = false;
      for (std::size_t earlier = 0; earlier < i && !counted; ++earlier) counted = part_of(column_of(earlier)) == part;
      if (!counted && !DataHold(part, part_of)) bytes += bytes_of(*part);
    }
    return bytes;
  }

  template <typename Part, typename PartOf>
  bool DataHold(const Part* part, PartOf part_of) const {
    for (std::size_t column = 1; column <= matrix_.ColumnCount(); ++column) {
      if (part_of(matrix_.ColumnAt(column)) == part) return true;
    }
    return false;
  }

  const DataMatrix& matrix_;
};

}  // namespace

// Puts a change into the data and takes what stood there into the change. In each routine all that may fail comes ahead
// of the first step that shows.
class ChangeExchange {
 public:
  ChangeExchange(DataSet& data, DataChange& change) : data_(data), matrix_(data.matrix.matrix_), change_(change) {}

  void Run() {
    std::visit([this](auto& payload) { Swap(payload); }, change_.payload);
    data_.notes.Add(change_.kind, change_.extent);
    change_.kind = InverseKind(change_.kind);
    KeepCursor();
  }

 private:
  void Swap(Cells& cells) {
    const ChangeExtent& extent = change_.extent;
    CellBlock old;
    std::size_t index = 0;
    for (std::size_t row = extent.first_row; row < extent.first_row + extent.row_count; ++row) {
      for (std::size_t i = 0; i < extent.column_count; ++i) {
        old.Set(index++, matrix_.Cell(row, extent.first_column + i));
      }
    }
    if (index == 1) {  // one cell is written in its place: nothing is copied for it
      matrix_.Set(extent.first_row, extent.first_column, cells.values.Cell(0));
    } else {
      DataMatrix next = matrix_;
      index = 0;
      for (std::size_t row = extent.first_row; row < extent.first_row + extent.row_count; ++row) {
        for (std::size_t i = 0; i < extent.column_count; ++i) {
          next.Set(row, extent.first_column + i, cells.values.Cell(index++));
        }
      }
      std::swap(matrix_, next);
    }
    cells.values = std::move(old);
  }

  void Swap(Columns& payload) {
    const std::size_t added = payload.columns.size();
    DataMatrix next = matrix_;
    std::vector<Column> columns = payload.columns;
    next.ExchangeColumns(payload.first, payload.count, columns);
    ForgetNumbers(columns);
    std::vector<ListedVariable> list = ListVariables(next);
    std::swap(matrix_, next);
    data_.VariableCount = matrix_.ColumnCount();
    data_.VarList.swap(list);
    payload.columns.swap(columns);
    payload.count = added;
  }

  void Swap(Rows& payload) {
    DataMatrix next = matrix_;
    next.SetRowCount(payload.row_count);
    std::optional<std::vector<Column>> columns;
    if (payload.columns) {
      columns = *payload.columns;
      next.ExchangeColumns(1, next.ColumnCount(), *columns);
      ForgetNumbers(*columns);
    }
    payload.row_count = matrix_.RowCount();
    std::swap(matrix_, next);
    payload.columns.swap(columns);
    std::swap(payload.record_count, data_.RecordCount);
  }

  void Swap(DataContents& contents) {
    std::vector<ListedVariable> list = ListVariables(contents.matrix);
    data_.VarList.swap(list);
    ExchangeContents(contents);
  }

  void ExchangeContents(DataContents& contents) noexcept {
    std::swap(matrix_, contents.matrix);
    std::swap(data_.RecordCount, contents.RecordCount);
    std::swap(data_.VariableCount, contents.VariableCount);
    data_.DataBanner.swap(contents.DataBanner);
    data_.ProjectNotes.swap(contents.ProjectNotes);
    data_.DataFilePath.swap(contents.DataFilePath);
    data_.LoadedFile.swap(contents.LoadedFile);
    std::swap(data_.NamedAtTheStart, contents.NamedAtTheStart);
    std::swap(data_.PathOfText, contents.PathOfText);
    data_.MisfitFile.swap(contents.MisfitFile);
    data_.SourceFile.swap(contents.SourceFile);
    std::swap(data_.seen_file, contents.seen_file);
    data_.DataFileTitle.swap(contents.DataFileTitle);
    data_.GridTitle.swap(contents.GridTitle);
    std::swap(data_.DataFileSize, contents.DataFileSize);
    data_.DataFileModified.swap(contents.DataFileModified);
    data_.CurrentRow = data_.CurrentColumn = 1;
    for (std::size_t column = 1; column <= contents.matrix.ColumnCount(); ++column) {
      contents.matrix.ColumnAt(column).ForgetNumbers();
    }
  }

  static void ForgetNumbers(const std::vector<Column>& columns) {
    for (const Column& column : columns) column.ForgetNumbers();
  }

  void KeepCursor() {
    data_.CurrentRow = std::min(data_.CurrentRow, data_.RecordCount);
    data_.CurrentColumn = std::min(data_.CurrentColumn, matrix_.ColumnCount());
  }

  DataSet& data_;
  DataMatrix& matrix_;
  DataChange& change_;
};

bool ApplyChange(DataSet& data, DataChange change) {
  if (!Fits(data, change)) return false;
  ChangeHistory::Steps step;
  step.push_back({.change = std::move(change)});
  ChangeExchange(data, step.front().change).Run();
  data.history.Taken(step, HeldBytes(data.matrix).Of(step.front().change), data.DataDirty);
  return true;
}

bool UndoChange(DataSet& data) {
  if (!data.history.CanUndo()) return false;
  DataChange& change = data.history.NextUndo();
  ChangeExchange(data, change).Run();
  data.history.Undone(HeldBytes(data.matrix).Of(change), data.DataDirty);
  return true;
}

bool RedoChange(DataSet& data) {
  if (!data.history.CanRedo()) return false;
  DataChange& change = data.history.NextRedo();
  ChangeExchange(data, change).Run();
  data.history.Redone(HeldBytes(data.matrix).Of(change), data.DataDirty);
  return true;
}

bool CanUndo(const DataSet& data) { return data.history.CanUndo(); }
bool CanRedo(const DataSet& data) { return data.history.CanRedo(); }
std::string_view UndoName(const DataSet& data) { return data.history.UndoName(); }
std::string_view RedoName(const DataSet& data) { return data.history.RedoName(); }

void MarkSaved(DataSet& data) noexcept {
  data.DataDirty = false;
  data.history.Saved();
}

void MarkChanged(DataSet& data) noexcept {
  data.DataDirty = true;
  data.history.ChangedOtherwise();
}

void StoreFirstRow(DataSet& data, std::string_view banner, std::string_view notes) {
  data.matrix.matrix_.SetText(0, 1, banner);
  data.matrix.matrix_.SetText(kNotesRow, 2, notes);
}

void BeginData(DataSet& data, DataContents contents) {
  ApplyChange(data, ReplaceData(std::move(contents), {}));
  data.history.Clear();
}

void DropData(DataSet& data) noexcept {
  MatrixEditor(data).Replace({});
  data.history.Clear();
}

bool MatrixEditor::Set(std::size_t row, std::size_t column, const TaggedView& value) {
  if (!data_.matrix.matrix_.Set(row, column, value)) return false;
  data_.notes.Add(row < kFirstRecordRow ? ChangeKind::kDictionary : ChangeKind::kCells, {row, 1, column, 1});
  return true;
}

std::size_t MatrixEditor::AddColumn() {
  const std::size_t column = data_.matrix.matrix_.AddColumn();
  data_.notes.Add(ChangeKind::kColumnsAdded, {0, data_.matrix.RowCount(), column, 1});
  return column;
}

void MatrixEditor::Replace(DataMatrix matrix) noexcept {
  std::swap(data_.matrix.matrix_, matrix);
  data_.notes.Add(ChangeKind::kWholeData, {});
}

}  // namespace tessara
