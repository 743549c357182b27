#include "data/data_matrix.h"

#include <iterator>
#include <memory>
#include <utility>

namespace tessara {

DataMatrix::DataMatrix(std::size_t row_count, std::size_t column_count)
    : row_count_(row_count), columns_(column_count) {}

DataMatrix::DataMatrix(std::size_t row_count, std::size_t column_count, LoadedText text) : row_count_(row_count) {
  const auto shared = std::make_shared<const LoadedText>(std::move(text));
  columns_.reserve(column_count);
  for (std::size_t column = 1; column <= column_count; ++column) columns_.emplace_back(shared, column, row_count);
}

const Column& DataMatrix::ColumnAt(std::size_t column) const {
  static const Column kNone;
  return IsColumn(column) ? columns_[column - 1] : kNone;
}

bool DataMatrix::Set(std::size_t row, std::size_t column, const TaggedView& value) {
  if (!Holds(row, column)) return false;
  columns_[column - 1].Set(row, value);
  return true;
}

std::size_t DataMatrix::AddColumn() {
  columns_.emplace_back();
  return columns_.size();
}

void DataMatrix::ExchangeColumns(std::size_t first, std::size_t count, std::vector<Column>& columns) {
  const auto begin = columns_.begin() + static_cast<std::ptrdiff_t>(first - 1);
  const auto end = begin + static_cast<std::ptrdiff_t>(count);
  std::vector<Column> gone(std::make_move_iterator(begin), std::make_move_iterator(end));
  const auto place = columns_.erase(begin, end);
  columns_.insert(place, std::make_move_iterator(columns.begin()), std::make_move_iterator(columns.end()));
  columns = std::move(gone);
}

std::optional<std::string_view> DataMatrix::LoadedLine(std::size_t row, std::size_t column_count) const {
  if (row < kFirstRecordRow || row >= row_count_ || column_count < 1 || column_count > columns_.size()) {
    return std::nullopt;
  }
  const auto& text = columns_[0].loaded_text();
  return text ? text->LeadingFields(columns_[0].LoadedRow(row), column_count) : std::nullopt;
}

std::size_t DataMatrix::LoadedColumns() const {
  std::size_t count = 0;
  while (count < columns_.size() && columns_[count].StandsAsField(count + 1) &&
         columns_[count].loaded_text() == columns_[0].loaded_text() &&
         columns_[count].LoadedOrder() == columns_[0].LoadedOrder()) {
    ++count;
  }
  return count;
}

}  // namespace tessara
