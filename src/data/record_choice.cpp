#include "data/record_choice.h"

#include "data/column_builder.h"

namespace tessara {
namespace {

constexpr std::uint32_t kNoRecord = ~std::uint32_t{0};

}  // namespace

Column RecordChoice::Of(const Column& column) {
  if (column.records_) return CopyOf(column);
  Column chosen = column;
  chosen.numbers_.reset();
  if (chosen.loaded_as_ != 0) chosen.order_ = OrderBehind(column.order_);
  return chosen;
}

RecordChoice::SharedOrder RecordChoice::OrderBehind(const SharedOrder& earlier) {
  if (!earlier) return records_;
  for (const auto& [known, order] : behind_) {
    if (known == earlier) return order;
  }
  auto order = std::make_shared<RecordOrder>();
  order->reserve(records_->size());
  for (const std::uint32_t record : *records_) {
    order->push_back(record < earlier->size() ? (*earlier)[record] : kNoRecord);
  }
  behind_.emplace_back(earlier, order);
  return order;
}

Column RecordChoice::CopyOf(const Column& column) const {
  Column base = column;
  base.records_.reset();
  base.loaded_as_ = 0;
  base.order_.reset();
  // The dictionary is the column's own from here on: it no longer looks into the file.
  base.header_ = std::make_shared<CellBlock>(column.header_ ? *column.header_ : column.LoadedCells(0, kFirstRecordRow));
  ColumnBuilder builder(std::move(base));
  std::size_t place = 0;
  for (const std::uint32_t record : *records_) {
    const TaggedView cell = column.Cell(kFirstRecordRow + record);
    if (!cell.is_empty()) builder.Put(place, cell);
    ++place;
  }
  return builder.Take();
}

}  // namespace tessara
