#include "procedures/cases/case_control.h"

#include "data/cell_key.h"
#include "numerics/number_text.h"
#include "numerics/report_text.h"

namespace tessara {
namespace {

std::string_view OperatorText(ControlRelation relation) {
  switch (relation) {
    case ControlRelation::kGreaterThan:
      return " > ";
    case ControlRelation::kLessThan:
      return " < ";
    case ControlRelation::kEqualTo:
      return " = ";
    case ControlRelation::kNotEqualTo:
      return " not equal to ";
    case ControlRelation::kAllMissing:
      return " (missing data only)";
    case ControlRelation::kNoMissing:
      return " (valid data only)";
    default:
      return "";
  }
}

bool HasValueField(ControlRelation relation) {
  return relation == ControlRelation::kGreaterThan || relation == ControlRelation::kLessThan ||
         relation == ControlRelation::kEqualTo || relation == ControlRelation::kNotEqualTo;
}

}  // namespace

CaseControl::CaseControl(const DataSet& data, std::size_t column, const ControlChoice& choice)
    : data_(data), choice_(choice) {
  if (column == 0 || column > data.matrix.ColumnCount()) return;
  column_ = column;
  missing_ = LoadMissingSet(data.matrix, column);
  words_ = data.VariableName(column);
  words_ += OperatorText(choice.relation);
  if (HasValueField(choice.relation)) words_ += choice.value;
}

bool CaseControl::CasePasses(const TaggedView& control_cell, NotEqualReading reading) const {
  Condition missing = missing_.IsMissing(control_cell);
  if (choice_.relation == ControlRelation::kAllMissing) missing = !missing;
  if (missing) return false;  // also when the test has failed
  if (!HasValueField(choice_.relation) || choice_.value.empty()) return true;

  NumberBuffer buffer;
  switch (choice_.relation) {
    case ControlRelation::kGreaterThan:  // a cell that is no number fails the test and passes
      return static_cast<bool>(ToNumber(control_cell) > ToNumber(choice_.value));
    case ControlRelation::kLessThan:
      return static_cast<bool>(ToNumber(control_cell) < ToNumber(choice_.value));
    case ControlRelation::kEqualTo:
      return TextOf(control_cell, buffer) == choice_.value;
    default:
      if (reading == NotEqualReading::kAsNumber) {
        return static_cast<bool>(ToNumber(control_cell) != ToNumber(choice_.value));
      }
      return TextOf(control_cell, buffer) != choice_.value;
  }
}

std::vector<std::uint8_t> CaseControl::PassingCases(std::size_t record_count, NotEqualReading reading) const {
  if (!active()) return {};
  std::vector<std::uint8_t> passing(record_count);
  CellMemo<std::uint8_t> memo;
  const auto decide = [&](const TaggedView& cell) { return static_cast<std::uint8_t>(CasePasses(cell, reading)); };
  data_.matrix.ForEachRecord(column_, record_count, [&](std::size_t record, const TaggedView& cell) {
    passing[record] = memo.Get(cell, decide);
  });
  return passing;
}

std::string CaseControl::ControlCaption() const {
  if (!active()) return {};
  return ChartFootnote().append(kLineEnd).append(kLineEnd);
}

std::string CaseControl::ChartFootnote() const { return active() ? "Controlling for " + words_ : std::string(); }

std::string CaseControl::ControlLabel() const { return active() ? "Control: " + words_ : std::string(); }

}  // namespace tessara
