#include "data/recode/recode_refusal.h"

#include "data/recode/recode_panel.h"

namespace tessara {
namespace {

using Refusal = std::optional<std::string_view>;

Refusal RefuseRecode(const RecodePanel& panel) {
  if (panel.RecodeColumn == 0) return kNoVariable;
  if (panel.recode_option == RecodeOption::kNone) return kNoOperator;
  if (panel.OldValue.empty() || panel.NewValue.empty() || panel.NewVar.empty()) return kEmptyBox;
  return std::nullopt;
}

Refusal RefuseCompute(const RecodePanel& panel) {
  if (panel.RecodeColumn == 0) return kNoVariable;
  if (panel.Check1 || panel.Check3) return panel.Text1.empty() ? Refusal(kEmptyBox) : std::nullopt;
  if (panel.compute_option == ComputeOption::kNone) return kNoOperator;
  if (panel.Text1.empty() || panel.Text2.empty()) return kEmptyBox;
  return std::nullopt;
}

Refusal RefuseTwoVariables(const RecodePanel& panel) {
  if (panel.Date1.empty() || panel.Date2.empty() || panel.DateVar.empty()) return kEmptyBox;
  const bool needs_operator = panel.mode == RecodeMode::kCombine;
  if (needs_operator && panel.combine_option == CombineOption::kNone) return kNoOperator;
  return std::nullopt;
}

Refusal RefuseTrim(const RecodePanel& panel) {
  if (panel.RecodeColumn == 0) return kNoVariable;
  if (panel.Text4.empty() || panel.Text5.empty() || panel.Text6.empty()) return kEmptyBox;
  return std::nullopt;
}

}  // namespace

Refusal RecodeRefusal(const RecodePanel& panel) {
  switch (panel.mode) {
    case RecodeMode::kRecode:
      return RefuseRecode(panel);
    case RecodeMode::kCompute:
      return RefuseCompute(panel);
    case RecodeMode::kCombine:
    case RecodeMode::kCompareDates:
      return RefuseTwoVariables(panel);
    case RecodeMode::kTrim:
      return RefuseTrim(panel);
    case RecodeMode::kFind:
      if (panel.RecodeColumn == 0) return kNoVariable;
      return panel.Text12.empty() ? Refusal(kEmptyFindBox) : std::nullopt;
    case RecodeMode::kReplace:
      return panel.RecodeColumn == 0 ? Refusal(kNoVariable) : std::nullopt;
    case RecodeMode::kNone:
      break;
  }
  return std::nullopt;
}

}  // namespace tessara
