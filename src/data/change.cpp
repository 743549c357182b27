#include "data/change.h"

#include <utility>

#include "data/data_set.h"
#include "data/record_choice.h"

namespace tessara {
namespace {

ChangeExtent WholeColumns(const DataSet& data, std::size_t first, std::size_t count) {
  return {.first_row = 0, .row_count = data.matrix.RowCount(), .first_column = first, .column_count = count};
}

ChangeExtent WholeRows(const DataSet& data, std::size_t first_row, std::size_t count) {
  return {.first_row = first_row, .row_count = count, .first_column = 1, .column_count = data.matrix.ColumnCount()};
}

}  // namespace

DataChange CellChange(std::size_t row, std::size_t column, const TaggedView& value, std::string name) {
  CellBlock values;
  values.Set(0, value);
  return BlockChange({.first_row = row, .row_count = 1, .first_column = column, .column_count = 1}, std::move(values),
                     std::move(name));
}

DataChange BlockChange(const ChangeExtent& block, CellBlock values, std::string name) {
  const bool records = block.first_row + block.row_count > kFirstRecordRow;
  return {records ? ChangeKind::kCells : ChangeKind::kDictionary, block, std::move(name), ChangedFlag::kSet,
          DataChange::Cells{std::move(values)}};
}

DataChange AddColumns(const DataSet& data, std::vector<Column> columns, std::string name) {
  const std::size_t first = data.matrix.ColumnCount() + 1;
  return {ChangeKind::kColumnsAdded, WholeColumns(data, first, columns.size()), std::move(name), ChangedFlag::kSet,
          DataChange::Columns{first, 0, std::move(columns)}};
}

DataChange RemoveColumns(const DataSet& data, std::size_t first, std::size_t count, std::string name) {
  return {ChangeKind::kColumnsRemoved, WholeColumns(data, first, count), std::move(name), ChangedFlag::kKept,
          DataChange::Columns{first, count, {}}};
}

DataChange ReplaceColumns(const DataSet& data, std::size_t first, std::vector<Column> columns, std::string name) {
  const std::size_t count = columns.size();
  return {ChangeKind::kColumnsReplaced, WholeColumns(data, first, count), std::move(name), ChangedFlag::kSet,
          DataChange::Columns{first, count, std::move(columns)}};
}

DataChange AddRows(const DataSet& data, std::size_t count, std::string name) {
  // The records come behind the last one, which in a new data set is not the matrix's last row.
  return {ChangeKind::kRowsAdded, WholeRows(data, kFirstRecordRow + data.RecordCount, count), std::move(name),
          ChangedFlag::kSet, DataChange::Rows{data.matrix.RowCount() + count, data.RecordCount + count, std::nullopt}};
}

DataChange RemoveRows(const DataSet& data, std::size_t first, std::size_t count, std::string name) {
  DataChange change{ChangeKind::kRowsRemoved, WholeRows(data, kHeaderRowCount + first, count), std::move(name),
                    ChangedFlag::kKept, DataChange::Rows{}};
  if (first < 1 || count > data.RecordCount || first > data.RecordCount - count + 1) return change;  // does not fit
  std::vector<Column> columns;
  columns.reserve(data.matrix.ColumnCount());
  for (std::size_t column = 1; column <= data.matrix.ColumnCount(); ++column) {
    columns.push_back(data.matrix.ColumnAt(column).WithoutRecords(first - 1, count, data.RecordCount));
  }
  change.payload = DataChange::Rows{data.matrix.RowCount() - count, data.RecordCount - count, std::move(columns)};
  return change;
}

DataChange ReplaceData(DataContents contents, std::string name) {
  const ChangeExtent all{.first_row = 0,
                         .row_count = contents.matrix.RowCount(),
                         .first_column = 1,
                         .column_count = contents.matrix.ColumnCount()};
  return {ChangeKind::kWholeData, all, std::move(name), ChangedFlag::kCleared, std::move(contents)};
}

DataContents ContentsMadeOf(const DataSet& data, DataMatrix matrix, std::size_t record_count, std::string notes) {
  const std::size_t variables = matrix.ColumnCount();
  return {.matrix = std::move(matrix),
          .RecordCount = record_count,
          .VariableCount = variables,
          .DataBanner = data.DataBanner,
          .ProjectNotes = std::move(notes),
          .DataFilePath = data.DataFilePath,
          .LoadedFile = data.LoadedFile,
          .NamedAtTheStart = data.NamedAtTheStart,
          .PathOfText = data.PathOfText,
          .MisfitFile = data.MisfitFile,
          .SourceFile = data.seen_file.path,
          .seen_file = data.seen_file,
          .DataFileTitle = data.DataFileTitle,
          .GridTitle = data.GridTitle,
          .DataFileSize = data.DataFileSize,
          .DataFileModified = data.DataFileModified};
}

DataChange ReplaceByMade(DataContents contents, std::string name) {
  DataChange change = ReplaceData(std::move(contents), std::move(name));
  change.flag = ChangedFlag::kKept;
  return change;
}

DataChange ChooseRecords(const DataSet& data, RecordOrder records, std::string name) {
  RecordChoice choice(std::move(records));
  const std::size_t variables = data.matrix.ColumnCount();
  DataMatrix matrix(kFirstRecordRow + choice.record_count(), variables);
  std::vector<Column> columns;
  columns.reserve(variables);
  for (std::size_t column = 1; column <= variables; ++column)
    columns.push_back(choice.Of(data.matrix.ColumnAt(column)));
  matrix.ExchangeColumns(1, variables, columns);
  return ReplaceByMade(ContentsMadeOf(data, std::move(matrix), choice.record_count(), data.ProjectNotes),
                       std::move(name));
}

}  // namespace tessara
