#include "data/data_matrix.h"

#include <algorithm>
#include <utility>

#include "numerics/number_text.h"

namespace tessara {
namespace {

// Reads a column's cells as numbers into a column of the same length.
class NumberReader {
 public:
  explicit NumberReader(NumericColumn& target) : target_(target) {}

  void operator()(std::size_t index, const TaggedView& cell) {
    if (cell.is_blank()) {
      target_.classes[index] = CellClass::kBlank;
    } else if (cell.is_number()) {
      target_.classes[index] = CellClass::kNumber;
      target_.values[index] = cell.number();
    } else if (const auto number = ParseNumber(cell.text())) {
      target_.classes[index] = CellClass::kNumber;
      target_.values[index] = *number;
    } else {
      target_.classes[index] = CellClass::kText;
    }
  }

 private:
  NumericColumn& target_;
};

}  // namespace

DataMatrix::DataMatrix(std::size_t row_count, std::size_t column_count)
    : row_count_(row_count), columns_(column_count) {}

DataMatrix::DataMatrix(std::size_t row_count, std::size_t column_count, LoadedText text)
    : row_count_(row_count), columns_(column_count), loaded_(std::make_shared<const LoadedText>(std::move(text))) {
  for (std::size_t column = 0; column < column_count; ++column) columns_[column].loaded_as = column + 1;
}

std::size_t DataMatrix::LoadedRecords() const {
  if (!loaded_) return 0;
  const std::size_t rows = std::min(loaded_->row_count(), row_count_);
  return rows > kFirstRecordRow ? rows - kFirstRecordRow : 0;
}

TaggedView DataMatrix::Cell(std::size_t row, std::size_t column) const {
  if (!Holds(row, column)) return {};
  const Column& source = columns_[column - 1];
  const bool is_record = row >= kFirstRecordRow;
  if (const CellBlock* owned = is_record ? source.records.get() : source.header.get()) {
    return owned->Cell(is_record ? row - kFirstRecordRow : row);
  }
  if (source.loaded_as == 0) return {};
  const auto field = loaded_->Field(row, source.loaded_as);
  return field ? TaggedView(*field) : TaggedView();
}

bool DataMatrix::Set(std::size_t row, std::size_t column, const TaggedView& value) {
  if (!Holds(row, column)) return false;
  Column& target = columns_[column - 1];
  if (row < kFirstRecordRow) {
    OwnedHeader(target).Set(row, value);
  } else {
    target.numbers.reset();
    OwnedRecords(target).Set(row - kFirstRecordRow, value);
  }
  return true;
}

CellBlock& DataMatrix::OwnedHeader(Column& column) {
  if (!column.header) {
    auto header = std::make_unique<CellBlock>();
    for (std::size_t row = 0; column.loaded_as != 0 && row < std::min(kFirstRecordRow, row_count_); ++row) {
      if (const auto field = loaded_->Field(row, column.loaded_as)) header->SetLoaded(row, *field);
    }
    column.header = std::move(header);
  }
  return *column.header;
}

CellBlock& DataMatrix::OwnedRecords(Column& column) {
  if (!column.records) {
    auto records = std::make_unique<CellBlock>();
    if (column.loaded_as != 0) {
      const std::size_t count = LoadedRecords();
      records->Reserve(count);
      loaded_->ForEachField(column.loaded_as, kFirstRecordRow, count, [&](std::size_t index, const TaggedView& cell) {
        if (cell.is_text()) records->SetLoaded(index, cell.text());
      });
    }
    column.records = std::move(records);
  }
  return *column.records;
}

std::size_t DataMatrix::AddColumn() {
  columns_.emplace_back();
  return columns_.size();
}

const NumericColumn& DataMatrix::Numbers(std::size_t column, std::size_t record_count) const {
  static const NumericColumn kNone;
  if (column < 1 || column > columns_.size()) return kNone;
  const Column& source = columns_[column - 1];
  if (!source.numbers || source.numbers->values.size() < record_count) {
    auto numbers = std::make_unique<NumericColumn>();
    numbers->values.resize(record_count);
    numbers->classes.resize(record_count, CellClass::kBlank);
    ForEachRecord(column, record_count, NumberReader(*numbers));
    source.numbers = std::move(numbers);
  }
  return *source.numbers;
}

std::size_t DataMatrix::UsedRecords(std::size_t column, std::size_t record_count) const {
  if (column < 1 || column > columns_.size()) return 0;
  const Column& source = columns_[column - 1];
  std::size_t used = std::min(record_count, source.records ? source.records->size() : LoadedRecords());
  if (!source.records && source.loaded_as == 0) return 0;
  while (used > 0 && Cell(kHeaderRowCount + used, column).is_blank()) --used;
  return used;
}

std::optional<std::string_view> DataMatrix::LoadedLine(std::size_t row, std::size_t column_count) const {
  if (!loaded_ || row < kFirstRecordRow || row >= row_count_ || column_count > columns_.size()) return std::nullopt;
  return loaded_->LeadingFields(row, column_count);
}

std::size_t DataMatrix::LoadedColumns() const {
  std::size_t count = 0;
  while (count < columns_.size() && !columns_[count].records && columns_[count].loaded_as == count + 1) ++count;
  return count;
}

}  // namespace tessara
