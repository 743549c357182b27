#include "data/recode/recode_rules.h"

#include <new>

#include "data/edit/cell_entry.h"
#include "numerics/dates.h"
#include "numerics/masks.h"
#include "numerics/text.h"
#include "platform/files.h"

namespace tessara {
namespace {

using Reading = SourceVariable::Reading;

constexpr std::string_view kFiveDecimals = "0.00000";

auto ReadVariable(const DataSet& data, std::size_t column, Reading reading) {
  return std::make_unique<const SourceVariable>(data, column, reading);
}

NewCell NumberOrNothing(Checked value) { return value.failed() ? NewCell() : NewCell(value.value()); }

// A number cell is no date, whatever its digits look like.
Checked DayOf(const TaggedView& cell) {
  NumberBuffer buffer;
  return ToDayNumber(TextOf(cell, buffer));
}

}  // namespace

RecodeByNumber::RecodeByNumber(const RecodePanel& panel, const DataSet& data, Reading reading)
    : source_(ReadVariable(data, panel.RecodeColumn, reading)),
      less_(panel.recode_option == RecodeOption::kLessThan),
      old_value_(ToNumber(panel.OldValue)),
      new_value_(std::string(Trimmed(CellTextOf(panel.NewValue)))) {}

NewCell RecodeByNumber::operator()(std::size_t record) const {
  if (source_->IsMissing(record)) return {};
  const Checked number = source_->Number(record);
  // A text cell, or an old value that is no number, fails the comparison: the record takes the new value.
  if (less_ ? number < old_value_ : number > old_value_) return TaggedView(new_value_);
  return {};
}

RecodeByText::RecodeByText(const RecodePanel& panel, const DataSet& data)
    : source_(ReadVariable(data, panel.RecodeColumn, Reading::kCells)),
      old_value_(Trimmed(panel.OldValue)),
      new_value_(std::string(Trimmed(CellTextOf(panel.NewValue)))) {}

NewCell RecodeByText::operator()(std::size_t record) const {
  NumberBuffer buffer;
  if (Trimmed(TextOf(source_->Cell(record), buffer)) != old_value_) return {};
  if (source_->IsMissing(record)) return {};
  return TaggedView(new_value_);
}

RecodeByDate::RecodeByDate(const RecodePanel& panel, const DataSet& data)
    : source_(ReadVariable(data, panel.RecodeColumn, Reading::kCells)),
      option_(panel.recode_option),
      old_date_(ToDayNumber(panel.OldValue)),
      new_value_(std::string(Trimmed(CellTextOf(panel.NewValue)))) {}

NewCell RecodeByDate::operator()(std::size_t record) {
  if (source_->IsMissing(record)) return {};
  cell_date_ = DayOf(source_->Cell(record));
  const double date = cell_date_.value();
  const double old_date = old_date_.value();
  const bool holds = option_ == RecodeOption::kLessThan  ? date < old_date
                     : option_ == RecodeOption::kEqualTo ? date == old_date
                                                         : date > old_date;
  return holds ? NewCell(new_value_) : NewCell();
}

ComputeByConstant::ComputeByConstant(const RecodePanel& panel, const DataSet& data, Reading reading)
    : source_(ReadVariable(data, panel.RecodeColumn, reading)),
      option_(panel.compute_option),
      constant_(ToNumber(panel.Text2)) {}

NewCell ComputeByConstant::operator()(std::size_t record) const {
  if (source_->IsMissing(record)) return {};
  const Checked x = source_->Number(record);
  switch (option_) {
    case ComputeOption::kPlus:
      return NumberOrNothing(constant_ + x);
    case ComputeOption::kMinus:
      return NumberOrNothing(x - constant_);
    case ComputeOption::kMultiplied:
      return NumberOrNothing(constant_ * x);
    case ComputeOption::kDivided:
      return NumberOrNothing(x / constant_);
    case ComputeOption::kPower:
      return NumberOrNothing(Power(x, constant_));
    case ComputeOption::kNone:
      break;
  }
  return {};
}

ComputeLog::ComputeLog(const RecodePanel& panel, const DataSet& data, Reading reading)
    : source_(ReadVariable(data, panel.RecodeColumn, reading)) {}

NewCell ComputeLog::operator()(std::size_t record) const { return NumberOrNothing(Log(source_->Number(record))); }

ComputeDuplicate::ComputeDuplicate(const RecodePanel& panel, const DataSet& data)
    : source_(ReadVariable(data, panel.RecodeColumn, Reading::kCells)) {}

NewCell ComputeDuplicate::operator()(std::size_t record) const { return source_->Cell(record); }

CombineVariables::CombineVariables(const RecodePanel& panel, const DataSet& data, Reading reading)
    : first_(ReadVariable(data, panel.CombineColumn1, reading)),
      second_(ReadVariable(data, panel.CombineColumn2, reading)),
      option_(panel.combine_option) {}

NewCell CombineVariables::WithDecimals(Checked value) {
  if (value.failed()) return {};
  text_.clear();
  AppendMasked(value.value(), kFiveDecimals, text_);
  return TaggedView(text_);
}

NewCell CombineVariables::operator()(std::size_t record) {
  const Condition counts = !first_->IsMissing(record) && !second_->IsMissing(record);
  if (!static_cast<bool>(counts)) return {};  // a test that fails goes ahead
  const Checked a = first_->Number(record);
  const Checked b = second_->Number(record);
  switch (option_) {
    case CombineOption::kPlus:
      return WithDecimals(a + b);
    case CombineOption::kMinus:
      return WithDecimals(a - b);
    case CombineOption::kMultiplied:
      return WithDecimals(a * b);
    case CombineOption::kDivided:
      if (a != Checked(0) && b != Checked(0)) return WithDecimals(a / b);
      return TaggedView(0.0);  // a number, and so a blank cell until it comes back from a file as text
    case CombineOption::kNone:
      break;
  }
  return {};
}

CompareDates::CompareDates(const RecodePanel& panel, const DataSet& data)
    : first_(ReadVariable(data, panel.CombineColumn1, Reading::kCells)),
      second_(ReadVariable(data, panel.CombineColumn2, Reading::kCells)) {}

NewCell CompareDates::operator()(std::size_t record) const {
  const Checked from = DayOf(first_->Cell(record));
  const Checked to = DayOf(second_->Cell(record));
  // One condition: where a date meets a bound of missing values it fails as a whole, and the days are counted.
  const bool are_dates = !from.failed() && !to.failed();
  const Condition counts = !first_->IsMissing(record) && !second_->IsMissing(record) && are_dates;
  return counts ? NumberOrNothing(to - from) : NewCell();
}

TrimValues::TrimValues(const RecodePanel& panel, const DataSet& data, Reading reading)
    : source_(ReadVariable(data, panel.RecodeColumn, reading)),
      lower_(ToNumber(panel.Text5)),
      upper_(ToNumber(panel.Text6)) {}

NewCell TrimValues::operator()(std::size_t record) const {
  if (source_->IsMissing(record)) return {};
  const Checked x = source_->Number(record);
  // A text falls through the test and is kept.
  return lower_ <= x && x <= upper_ ? NewCell(source_->Cell(record)) : NewCell();
}

ReplaceText::ReplaceText(const RecodePanel& panel, const DataSet& data)
    : source_(ReadVariable(data, panel.RecodeColumn, Reading::kCells)),
      find_(panel.Text12),
      replacement_(CellTextOf(panel.Text13)) {}

// Room for the new text, which is refused at once where the machine could not hold it.
void ReplaceText::ReserveFor(std::string_view text, std::size_t at) {
  text_.clear();
  double size = static_cast<double>(text.size());
  for (; at != text.npos; at = text.find(find_, at + find_.size())) {
    size += static_cast<double>(replacement_.size()) - static_cast<double>(find_.size());
  }
  constexpr double kAlwaysThere = 1 << 20;  // bytes; asking the machine for each cell takes longer than replacing in it
  if (size > kAlwaysThere && size > static_cast<double>(MachineMemory()) / 4) throw std::bad_alloc();
  text_.reserve(static_cast<std::size_t>(size));
}

NewCell ReplaceText::operator()(std::size_t record) {
  const TaggedView cell = source_->Cell(record);
  if (cell.is_blank()) return TaggedView(find_.empty() ? std::string_view(replacement_) : std::string_view());
  const std::string_view text = TextOf(cell, buffer_);
  std::size_t at = find_.empty() ? text.npos : text.find(find_);
  if (at == text.npos) return TaggedView(text);
  ReserveFor(text, at);
  std::size_t from = 0;
  for (; at != text.npos; at = text.find(find_, from)) {
    text_.append(text, from, at - from).append(replacement_);
    from = at + find_.size();
  }
  text_.append(text, from);
  return TaggedView(text_);
}

namespace {

RecodeRule MakeRuleOfRecode(const RecodePanel& panel, const DataSet& data, Reading reading) {
  if (panel.Check2) return RecodeByDate(panel, data);
  if (panel.recode_option == RecodeOption::kEqualTo) return RecodeByText(panel, data);
  return RecodeByNumber(panel, data, reading);
}

RecodeRule MakeRuleOfCompute(const RecodePanel& panel, const DataSet& data, Reading reading) {
  if (panel.Check3) return ComputeLog(panel, data, reading);
  if (panel.Check1) return ComputeDuplicate(panel, data);
  return ComputeByConstant(panel, data, reading);
}

}  // namespace

std::optional<RecodeRule> MakeRecodeRule(const RecodePanel& panel, const DataSet& data, Reading reading) {
  switch (panel.mode) {
    case RecodeMode::kRecode:
      return MakeRuleOfRecode(panel, data, reading);
    case RecodeMode::kCompute:
      return MakeRuleOfCompute(panel, data, reading);
    case RecodeMode::kCombine:
      return CombineVariables(panel, data, reading);
    case RecodeMode::kCompareDates:
      return CompareDates(panel, data);
    case RecodeMode::kTrim:
      return TrimValues(panel, data, reading);
    case RecodeMode::kReplace:
      return ReplaceText(panel, data);
    case RecodeMode::kFind:
    case RecodeMode::kNone:
      break;
  }
  return std::nullopt;
}

}  // namespace tessara
