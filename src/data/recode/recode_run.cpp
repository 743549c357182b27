#include "data/recode/recode_run.h"

#include <algorithm>
#include <new>
#include <utility>

#include "data/change_door.h"
#include "data/column_builder.h"
#include "data/edit/cell_entry.h"
#include "data/progress.h"
#include "data/recode/find_cells.h"
#include "data/recode/follow_recode.h"
#include "data/recode/recode_refusal.h"
#include "data/recode/recode_rules.h"
#include "numerics/text.h"
#include "platform/files.h"

namespace tessara {
namespace {

using Reading = SourceVariable::Reading;

constexpr std::size_t kRecordsToAStep = 1024;
constexpr std::size_t kMostBytesOfAPreview = std::size_t{1} << 22;
constexpr std::size_t kMostOfAName = 40;   // in the name of a step
constexpr std::size_t kMostOfAText = 200;  // in a preview

bool ShowsAnotherText(const TaggedView& old_cell, const TaggedView& new_cell) {
  NumberBuffer old_buffer;
  NumberBuffer new_buffer;
  return TextOf(old_cell, old_buffer) != TextOf(new_cell, new_buffer);
}

// "Recode AGEGRP"
std::string StepName(const RecodePanel& panel, std::string_view variable) {
  return std::string(RowOfMode(panel.mode).title) + " " + std::string(variable.substr(0, kMostOfAName));
}

// The duplicate and the logarithm add a column at every run, as what takes two variables does.
bool AlwaysAddsColumn(const RecodePanel& panel) {
  switch (panel.mode) {
    case RecodeMode::kRecode:
    case RecodeMode::kTrim:
      return false;
    case RecodeMode::kCompute:
      return panel.Check1 || panel.Check3;
    default:
      return true;
  }
}

// Recode goes on under one name. Compute and Trim do until they are opened anew.
bool NameGoesOn(const RecodePanel& panel, const std::string& name) {
  return panel.mode != RecodeMode::kRecode || (panel.made_mode == RecodeMode::kRecode && name == panel.made_name);
}

// A run of another panel with another name ends the going on of Recode, also one that is refused; none under the old
// name takes it up again.
void NoteNewName(RecodePanel& panel) {
  const std::string* name = NewNameBox(panel);
  if (!name) return;
  if (panel.mode != RecodeMode::kRecode) {
    if (*name != panel.made_name) panel.made_mode = RecodeMode::kNone;
    return;
  }
  if (!NameGoesOn(panel, *name)) panel.NewVariableMade = false;
  panel.made_mode = RecodeMode::kRecode;
  panel.made_name = *name;
}

// The last column need not be the one that the going on began with, nor carry its name.
void TellOtherColumn(const RecodePanel& panel, const DataSet& data, Status& status) {
  const std::string name = data.VariableName(data.VariableCount);
  if (panel.made_column == data.VariableCount || name == Trimmed(*NewNameBox(panel))) return;
  status.ShowNote("the run went on in the last variable, " + name.substr(0, kMostOfAName));
}

// Writes what the rule makes of the records into a column. Yields the number of cells that show another text.
class RuleRun {
 public:
  RuleRun(ColumnBuilder& target, std::size_t record_count, Platform& platform, const RecodePanel& panel)
      : target_(target), record_count_(record_count), progress_(platform) {
    const std::size_t steps = record_count / kRecordsToAStep;
    progress_.ProgressOpen(0, static_cast<double>(steps), std::string(RowOfMode(panel.mode).title) + "...", 0);
  }

  template <typename Rule>
  std::size_t operator()(Rule& rule) {
    std::size_t changed = 0;
    for (std::size_t record = 0; record < record_count_; ++record) {
      if (record % kRecordsToAStep == kRecordsToAStep - 1) progress_.ProgressStep();
      const NewCell cell = rule(record);
      if (!cell) continue;
      const TaggedView old_cell = target_.Cell(record);
      if (*cell == old_cell) continue;
      if (ShowsAnotherText(old_cell, *cell)) ++changed;
      Count(*cell);
      target_.Put(record, *cell);
    }
    return changed;
  }

 private:
  // Texts that the machine has no room for are refused while there is still some left.
  void Count(const TaggedView& cell) {
    bytes_ += cell.text().size();
    if (bytes_ > memory_ / 2) throw std::bad_alloc();
  }

  const std::uint64_t memory_ = MachineMemory();
  std::uint64_t bytes_ = 0;
  ColumnBuilder& target_;
  std::size_t record_count_;
  Progress progress_;
};

std::size_t RunRule(const RecodePanel& panel, const DataSet& data, Platform& platform, ColumnBuilder& target) {
  std::optional<RecodeRule> rule = MakeRecodeRule(panel, data, Reading::kColumn);
  if (!rule) return 0;
  return std::visit(RuleRun(target, data.RecordCount, platform, panel), *rule);
}

// The exact duplicate takes every row from 0: banner, missing values and labels come with it. It shares its cells with
// the original.
std::size_t Duplicate(const DataSet& data, std::size_t column, ColumnBuilder& target) {
  target = ColumnBuilder(data.matrix.ColumnAt(column));
  std::size_t changed = 0;
  data.matrix.ForEachRecord(column, data.RecordCount, [&](std::size_t, const TaggedView& cell) {
    if (cell.is_number() || !cell.is_blank()) ++changed;
  });
  return changed;
}

void EndOfRun(RecodePanel& panel, DataSet& data) noexcept {
  data.CurrentRow = std::min<std::size_t>(1, data.RecordCount);
  data.CurrentColumn = 1;
  if (panel.mode != RecodeMode::kCompareDates) return;
  for (std::string* box : {&panel.Date1, &panel.Date2, &panel.DateVar}) box->clear();
  PickRecodeVariable(panel, 0);
}

void MarkQuotients(RecodePanel& panel, std::size_t column) noexcept {
  try {
    panel.marks.MarkQuotients(column);
  } catch (const std::bad_alloc&) {  // the variable stands; its zeros show as they are
  }
}

std::size_t AddVariable(RecodePanel& panel, DataSet& data, Platform& platform) {
  const std::string name(Trimmed(CellTextOf(*NewNameBox(panel))));
  ColumnBuilder target;
  const bool duplicates = panel.mode == RecodeMode::kCompute && panel.Check1 && !panel.Check3;
  const std::size_t changed =
      duplicates ? Duplicate(data, panel.RecodeColumn, target) : RunRule(panel, data, platform, target);
  target.PutHeader(kVariableNameRow, name);
  std::vector<Column> columns;
  columns.push_back(target.Take());
  ApplyChange(data, AddColumns(data, std::move(columns), StepName(panel, name)));
  panel.followed_revision = data.Revision();  // a column at the end moves nothing
  const bool may_go_on = panel.mode != RecodeMode::kCombine && panel.mode != RecodeMode::kCompareDates;
  if (may_go_on) {
    panel.NewVariableMade = true;
    panel.made_column = data.VariableCount;
  }
  if (panel.mode == RecodeMode::kCombine && panel.combine_option == CombineOption::kDivided) {
    MarkQuotients(panel, data.VariableCount);
  }
  return changed;
}

// Writes into a column that is there. One that stays as it is makes no step.
std::size_t ChangeVariable(const RecodePanel& panel, DataSet& data, Platform& platform, std::size_t column) {
  ColumnBuilder target(data.matrix.ColumnAt(column));
  const std::size_t changed = RunRule(panel, data, platform, target);
  if (!target.has_written()) return 0;
  std::vector<Column> columns;
  columns.push_back(target.Take());
  ApplyChange(data, ReplaceColumns(data, column, std::move(columns), StepName(panel, data.VariableName(column))));
  return changed;
}

std::size_t MakeVariable(RecodePanel& panel, DataSet& data, Platform& platform) {
  const bool goes_on = RunGoesOn(panel, data);
  const std::size_t changed =
      goes_on ? ChangeVariable(panel, data, platform, data.VariableCount) : AddVariable(panel, data, platform);
  if (goes_on) TellOtherColumn(panel, data, platform);
  EndOfRun(panel, data);
  return changed;
}

std::size_t Replace(RecodePanel& panel, DataSet& data, Platform& platform) {
  Column saved = data.matrix.ColumnAt(panel.RecodeColumn);
  saved.ForgetNumbers();
  const std::size_t changed = ChangeVariable(panel, data, platform, panel.RecodeColumn);
  panel.UndoColumn = std::move(saved);
  panel.undo_records = data.RecordCount;
  return changed;
}

std::string ShortText(const TaggedView& cell) {
  return cell.is_text() ? std::string(cell.text().substr(0, kMostOfAText)) : TextOf(cell);
}

// Collects the cells that a rule changes until there are enough of them.
struct PreviewWalk {
  const RecodePanel& panel;
  const DataSet& data;
  std::size_t target;  // column; 0 for one that is still to be made
  std::size_t most_cells;
  std::size_t most_records;

  template <typename Rule>
  RecodePreview operator()(Rule& rule) const {
    RecodePreview preview;
    const bool two = panel.mode == RecodeMode::kCombine || panel.mode == RecodeMode::kCompareDates;
    const std::size_t source = two ? panel.CombineColumn1 : panel.RecodeColumn;
    const std::size_t end = std::min(most_records, data.RecordCount);
    std::size_t bytes = 0;
    for (std::size_t record = 0; record < end && preview.cells.size() < most_cells; ++record) {
      bytes += data.matrix.Cell(kFirstRecordRow + record, source).text().size();
      if (bytes > kMostBytesOfAPreview && record > 0) break;
      preview.looked_at = record + 1;
      const NewCell cell = rule(record);
      const std::size_t row = kFirstRecordRow + record;
      if (!cell || !ShowsAnotherText(data.matrix.Cell(row, target), *cell)) continue;
      preview.cells.push_back({record + 1, ShortText(data.matrix.Cell(row, source)),
                               two ? ShortText(data.matrix.Cell(row, panel.CombineColumn2)) : std::string(),
                               ShortText(*cell)});
    }
    return preview;
  }
};

}  // namespace

RecodeOutcome RunRecodePanel(RecodePanel& panel, DataSet& data, Platform& platform) {
  const WaitCursor wait(platform);
  FollowRecodeData(panel, data);
  NoteNewName(panel);
  if (const auto refusal = RecodeRefusal(panel)) {
    platform.ShowMessage(AbortedBox(*refusal));
    return {.refused = true};
  }
  switch (panel.mode) {
    case RecodeMode::kNone:
      return {};
    case RecodeMode::kFind:
      return {.found_row = FindNextCell(panel, data)};
    case RecodeMode::kReplace:
      return {.changed_cells = Replace(panel, data, platform)};
    default:
      return {.changed_cells = MakeVariable(panel, data, platform)};
  }
}

bool RunGoesOn(const RecodePanel& panel, const DataSet& data) {
  const std::string* name = NewNameBox(panel);
  return panel.NewVariableMade && name && NameGoesOn(panel, *name) && !AlwaysAddsColumn(panel) &&
         data.VariableCount > 0;
}

std::size_t UndoReplace(const RecodePanel& panel, DataSet& data) {
  const std::size_t column = panel.RecodeColumn;
  if (!panel.UndoColumn || column == 0) return 0;
  ColumnBuilder target(data.matrix.ColumnAt(column));
  std::size_t changed = 0;
  panel.UndoColumn->ForEachRecord(std::min(panel.undo_records, data.RecordCount),
                                  [&](std::size_t record, const TaggedView& cell) {
                                    const TaggedView old_cell = target.Cell(record);
                                    if (cell == old_cell) return;
                                    if (ShowsAnotherText(old_cell, cell)) ++changed;
                                    target.Put(record, cell);
                                  });
  if (!target.has_written()) return 0;
  std::vector<Column> columns;
  columns.push_back(target.Take());
  ApplyChange(data, ReplaceColumns(data, column, std::move(columns), "Undo Replace"));
  return changed;
}

RecodePreview PreviewRecode(const RecodePanel& panel, const DataSet& data, std::size_t most_cells,
                            std::size_t most_records) {
  if (RecodeRefusal(panel)) return {};
  std::optional<RecodeRule> rule = MakeRecodeRule(panel, data, Reading::kCells);
  if (!rule) return {};
  const std::size_t target = panel.mode == RecodeMode::kReplace ? panel.RecodeColumn
                             : RunGoesOn(panel, data)           ? data.VariableCount
                                                                : 0;
  return std::visit(PreviewWalk{panel, data, target, most_cells, most_records}, *rule);
}

}  // namespace tessara
