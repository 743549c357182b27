#include "data/column.h"

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

Column::Column(std::shared_ptr<const LoadedText> text, std::size_t field, std::size_t row_count)
    : loaded_(std::move(text)), loaded_as_(field), loaded_rows_(std::min(loaded_->row_count(), row_count)) {}

CellBlock Column::LoadedCells(std::size_t first_row, std::size_t end_row) const {
  CellBlock cells;
  if (order_ && first_row >= kFirstRecordRow) {
    const std::size_t end = std::min(end_row, kFirstRecordRow + order_->size());
    if (first_row < end) cells.Reserve(end - first_row);
    for (std::size_t row = first_row; row < end; ++row) {
      const TaggedView cell = LoadedCell(row);
      if (cell.is_text()) cells.SetLoaded(row - first_row, cell.text());
    }
    return cells;
  }
  const std::size_t end = std::min(end_row, loaded_rows_);
  if (loaded_as_ == 0 || first_row >= end) return cells;
  cells.Reserve(end - first_row);
  loaded_->ForEachField(loaded_as_, first_row, end - first_row, [&](std::size_t index, const TaggedView& cell) {
    if (cell.is_text()) cells.SetLoaded(index, cell.text());
  });
  return cells;
}

CellBlock& Column::OwnHeader() {
  if (!header_) {
    header_ = std::make_shared<CellBlock>(LoadedCells(0, kFirstRecordRow));
  } else if (header_.use_count() > 1) {
    header_ = std::make_shared<CellBlock>(*header_);
  }
  return *header_;
}

CellBlock& Column::OwnStretch(std::size_t place) {
  auto records = !records_                  ? std::make_shared<Records>()
                 : records_.use_count() > 1 ? std::make_shared<Records>(*records_)
                                            : records_;
  if (place >= records->stretches.size()) records->stretches.resize(place + 1);
  std::shared_ptr<CellBlock>& stretch = records->stretches[place];
  if (!stretch) {
    const std::size_t first_row = kFirstRecordRow + (place << kStretchBits);
    stretch = std::make_shared<CellBlock>(LoadedCells(first_row, first_row + kStretch));
  } else if (stretch.use_count() > 1) {
    stretch = std::make_shared<CellBlock>(*stretch);
  }
  records_ = std::move(records);
  return *records_->stretches[place];
}

// A stretch that can be written to as it stands; nullptr when it has to be made or copied first.
CellBlock* Column::StretchHeldAlone(std::size_t place) {
  if (!records_ || records_.use_count() > 1 || place >= records_->stretches.size()) return nullptr;
  const std::shared_ptr<CellBlock>& stretch = records_->stretches[place];
  return stretch.use_count() == 1 ? stretch.get() : nullptr;
}

void Column::Set(std::size_t row, const TaggedView& value) {
  if (row < kFirstRecordRow) {
    OwnHeader().Set(row, value);
    return;
  }
  const std::size_t record = row - kFirstRecordRow;
  CellBlock* const alone = StretchHeldAlone(record >> kStretchBits);
  (alone ? *alone : OwnStretch(record >> kStretchBits)).Set(record & (kStretch - 1), value);
  numbers_.reset();
}

const NumericColumn& Column::Numbers(std::size_t record_count) const {
  if (!numbers_ || numbers_->values.size() < record_count) {
    auto numbers = std::make_shared<NumericColumn>();
    numbers->values.resize(record_count);
    numbers->classes.resize(record_count, CellClass::kBlank);
    ForEachRecord(record_count, NumberReader(*numbers));
    numbers_ = std::move(numbers);
  }
  return *numbers_;
}

std::size_t Column::UsedRecords(std::size_t record_count) const {
  const std::size_t owned = records_ ? records_->stretches.size() << kStretchBits : 0;
  std::size_t used = std::min(record_count, std::max(owned, LoadedRecords()));
  while (used > 0 && Cell(kFirstRecordRow + used - 1).is_blank()) --used;
  return used;
}

// Records first to end - 1, none of them beyond one stretch.
void Column::AppendRecords(CellBlock& target, std::size_t first, std::size_t end) const {
  if (const CellBlock* owned = OwnedStretch(first >> kStretchBits)) {
    target.Append(*owned, first & (kStretch - 1), end - first);
  } else {
    target.Append(LoadedCells(kFirstRecordRow + first, kFirstRecordRow + end), 0, end - first);
  }
}

Column Column::WithoutRecords(std::size_t first, std::size_t count, std::size_t record_count) const {
  Column result;
  result.header_ = std::make_shared<CellBlock>(header_ ? *header_ : LoadedCells(0, kFirstRecordRow));
  result.loaded_ = loaded_;
  result.shows_five_decimals_ = shows_five_decimals_;
  result.records_ = std::make_shared<Records>();
  auto& stretches = result.records_->stretches;
  const bool never_written = !records_ && loaded_as_ == 0;
  const std::size_t left = never_written ? 0 : record_count - count;
  for (std::size_t start = 0; start < left; start += kStretch) {
    const std::size_t end = std::min(left, start + kStretch);
    const std::size_t place = start >> kStretchBits;
    // A whole stretch ahead of the gap is shared; one that is cut short would hold on to what has gone.
    if (start + kStretch <= first && OwnedStretch(place)) {
      stretches.push_back(records_->stretches[place]);
      continue;
    }
    auto cells = std::make_shared<CellBlock>();
    cells->Reserve(end - start);
    for (std::size_t to = start; to < end;) {
      // Up to the gap, the end of the target's stretch or that of the source's, whichever comes first.
      const std::size_t from = to < first ? to : to + count;
      std::size_t run = std::min(end - to, kStretch - (from & (kStretch - 1)));
      if (to < first) run = std::min(run, first - to);
      AppendRecords(*cells, from, from + run);
      to += run;
    }
    stretches.push_back(std::move(cells));
  }
  return result;
}

std::size_t Column::BytesBeside(const Column& other) const {
  std::size_t bytes = sizeof *this;
  if (header_ && header_ != other.header_) bytes += header_->Bytes();
  if (!records_ || records_ == other.records_) return bytes;
  bytes += records_->stretches.size() * sizeof(records_->stretches[0]);
  for (std::size_t place = 0; place < records_->stretches.size(); ++place) {
    const CellBlock* owned = records_->stretches[place].get();
    if (owned && owned != other.OwnedStretch(place)) bytes += owned->Bytes();
  }
  return bytes;
}

}  // namespace tessara
