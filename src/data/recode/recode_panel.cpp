#include "data/recode/recode_panel.h"

#include <algorithm>
#include <utility>

#include "data/change_door.h"
#include "data/edit/cell_entry.h"
#include "data/recode/recode_refusal.h"

namespace tessara {
namespace {

// The new-name box of a panel, which may be constant.
template <typename Panel>
auto NameBoxOf(Panel& panel) -> decltype(&panel.NewVar) {
  switch (panel.mode) {
    case RecodeMode::kRecode:
      return &panel.NewVar;
    case RecodeMode::kCompute:
      return &panel.Text1;
    case RecodeMode::kCombine:
    case RecodeMode::kCompareDates:
      return &panel.DateVar;
    case RecodeMode::kTrim:
      return &panel.Text4;
    case RecodeMode::kNone:
    case RecodeMode::kReplace:
    case RecodeMode::kFind:
      break;
  }
  return nullptr;
}

bool CopyVariable(const RecodePanel& panel, const DataSet& data, Messages& messages, std::size_t& column,
                  std::string& box) {
  if (panel.RecodeColumn == 0) {
    messages.ShowMessage(AbortedBox(kNoVariable));
    return false;
  }
  box = data.VariableName(panel.RecodeColumn);
  column = panel.RecodeColumn;
  return true;
}

}  // namespace

const std::vector<RecodeModeRow>& RecodeModeRows() {
  static const std::vector<RecodeModeRow> rows = {
      {RecodeMode::kRecode, "Recode", "Run Recode", "Creates new variable and value",
       "Use recode to create a new variable that is based on an old variable.  "
       "This feature is most useful for combining a series of values into meaningful categories. "
       "As an example, you may wish to change age in years into three or four categories for a crosstabulation or "
       "frequency procedure."
       " The result can be a string numerical variable.",
       "recode", true},
      {RecodeMode::kCompute, "Compute", "Run Compute", "Creates new variable",
       "Use compute to create a new variable that is based on an old variable.  "
       "This feature allows you to mathematically manipulate a variable's values. "
       "As an example, you may wish to add 100 to a proportion to convert it to a percentage or you can square (^2) or "
       "take the square root (^.5) of values to improve its properties for a simple regression analysis.",
       "compute", true},
      {RecodeMode::kCombine, "Combine Two Variables", "Compute", "Run mathematical comparison",
       "Use combine two variables to create a third variable that is a mathematical combination of two other "
       "variables.  "
       "This feature creates a new variable that contains the result of the computation.  "
       "You can repeat the operation to systematically combine several variables into one. ",
       "combine", true},
      {RecodeMode::kCompareDates, "Compare Dates", "Compute", "Calculate difference between two dates",
       "Use compare dates to calculate the difference between two dates.  "
       "This feature creates a new variable that contains the number of days between the two selected date variables.  "
       "If Var2 is later in time than Var1, the number of days is positive. If it is earlier in time, the number of "
       "days is negative. ",
       "dates", true},
      {RecodeMode::kTrim, "Trim Extreme Values", "Run Trim", "Create new variable",
       "Create a new variable that excludes extreme low and high values.  "
       "This feature is most useful for excluding unusual values that will bias statistical calculations. "
       "The lower cutpoint excludes all values less than the value entered in the box. "
       " The upper cutpoint excludes all values greater than the value entered in the box.",
       "trim", true},
      {RecodeMode::kReplace, "Find and Replace", "Replace", "Finds and replaces cell contents",
       "Use find and replace to change cell contents within one variable (column).  "
       "This feature is most useful for correcting data entry errors or changing string contents to values. "
       "As an example, you may wish to change Male and Female cell strings so that all Male strings are coded as the "
       "value 1 and all Female strings are coded as a value 2. ",
       "find", false},
      {RecodeMode::kFind, "Find Cell Contents", "Find", "Finds cell contents",
       "Use find to search cell contents within one variable (column).  "
       "This feature is most useful for finding specific observations or data.  "
       "Cells with a match are bolded.  Click find again to locate the next match.  "
       "Click reset to remove the bolding.",
       "find", false},
  };
  return rows;
}

const RecodeModeRow& RowOfMode(RecodeMode mode) {
  const auto& rows = RecodeModeRows();
  const auto found = std::ranges::find(rows, mode, &RecodeModeRow::mode);
  return found == rows.end() ? rows.front() : *found;
}

void OpenRecodePanel(RecodePanel& panel, DataSet& data, RecodeMode mode) {
  panel.mode = mode;
  panel.Label21 = false;
  if (mode == RecodeMode::kCompute || mode == RecodeMode::kTrim) panel.NewVariableMade = false;
  MarkChanged(data);
}

void ResetRecodePanel(RecodePanel& panel) {
  panel.NewVariableMade = false;
  switch (panel.mode) {
    case RecodeMode::kFind:
      return ResetSearch(panel);
    case RecodeMode::kRecode:
      panel.OldValue = panel.NewValue = panel.NewVar = {};
      panel.recode_option = RecodeOption::kNone;
      panel.Check2 = false;
      break;
    case RecodeMode::kCompute:
      panel.Text1 = panel.Text2 = {};
      panel.compute_option = ComputeOption::kNone;
      panel.Check1 = panel.Check3 = false;
      break;
    case RecodeMode::kCombine:
    case RecodeMode::kCompareDates:
      panel.Date1 = panel.Date2 = panel.DateVar = {};
      panel.CombineColumn1 = panel.CombineColumn2 = 0;
      panel.combine_option = CombineOption::kNone;
      break;
    case RecodeMode::kTrim:
      panel.Text4 = panel.Text5 = panel.Text6 = {};
      break;
    case RecodeMode::kReplace:
      panel.Text12 = panel.Text13 = {};
      break;
    case RecodeMode::kNone:
      break;
  }
  PickRecodeVariable(panel, 0);
}

void ResetSearch(RecodePanel& panel) {
  panel.marks.RemoveBold();
  panel.FindRow = 0;
  panel.Label21 = false;
}

std::string* NewNameBox(RecodePanel& panel) { return NameBoxOf(panel); }
const std::string* NewNameBox(const RecodePanel& panel) { return NameBoxOf(panel); }

void ChangeNewName(RecodePanel& panel, std::string text) {
  std::string* box = NewNameBox(panel);
  if (!box || *box == text) return;
  *box = std::move(text);
  if (box == &panel.NewVar || box == &panel.Text1) panel.NewVariableMade = false;
}

void PickRecodeVariable(RecodePanel& panel, std::size_t column) {
  panel.RecodeColumn = column;
  panel.FindRow = 0;
  panel.Label21 = false;
}

bool CopyVariable1(RecodePanel& panel, const DataSet& data, Messages& messages) {
  return CopyVariable(panel, data, messages, panel.CombineColumn1, panel.Date1);
}

bool CopyVariable2(RecodePanel& panel, const DataSet& data, Messages& messages) {
  return CopyVariable(panel, data, messages, panel.CombineColumn2, panel.Date2);
}

char RefuseComma(std::string& box, Messages& messages) {
  RefuseComma(messages);
  box.clear();
  return ' ';
}

bool IsConstantKey(char key) { return (key >= '0' && key <= '9') || key == '.'; }

void RefuseConstantKey(std::string& box, Messages& messages) {
  messages.ShowMessage({"Warning", "Only numerical entries are allowed."});
  if (!box.empty()) box.pop_back();
}

}  // namespace tessara
