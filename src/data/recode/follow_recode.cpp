#include "data/recode/follow_recode.h"

#include <utility>

#include "data/change_door.h"

namespace tessara {
namespace {

void FollowColumns(RecodePanel& panel, const ChangeNote& note) {
  if (panel.RecodeColumn != 0) {
    panel.RecodeColumn = ColumnBehind(panel.RecodeColumn, note);
    if (panel.RecodeColumn == 0) PickRecodeVariable(panel, 0);
  }
  for (const auto& [column, box] :
       {std::pair(&panel.CombineColumn1, &panel.Date1), std::pair(&panel.CombineColumn2, &panel.Date2)}) {
    *column = ColumnBehind(*column, note);
    if (*column == 0) box->clear();
  }
  panel.made_column = ColumnBehind(panel.made_column, note);
}

void FollowFindRow(RecodePanel& panel, const ChangeNote& note) {
  if (panel.FindRow == 0) return;
  const std::size_t behind = RowBehind(panel.FindRow, note);
  panel.FindRow = behind != 0 ? behind : note.extent.first_row;
}

// What was replaced belonged to the data that have gone.
void ForgetData(RecodePanel& panel) {
  panel.UndoColumn.reset();
  panel.NewVariableMade = false;
  panel.made_mode = RecodeMode::kNone;
  panel.made_name.clear();
  panel.FindRow = 0;
  panel.Label21 = false;
}

void FollowNote(RecodePanel& panel, const ChangeNote& note) {
  FollowColumns(panel, note);
  panel.marks.Follow(note);
  if (note.kind == ChangeKind::kWholeData) {
    ForgetData(panel);
  } else {
    FollowFindRow(panel, note);
  }
}

}  // namespace

void FollowRecodeData(RecodePanel& panel, const DataSet& data) {
  const auto notes = data.notes.Since(panel.followed_revision);
  panel.followed_revision = data.Revision();
  if (!notes) return FollowNote(panel, {ChangeKind::kWholeData, {}});  // too much has happened
  for (const ChangeNote& note : *notes) FollowNote(panel, note);
  // Behind a deleted column the next run goes on in the one that is the last now; a run that was taken back is made
  // anew.
  const bool taken_back = panel.made_column == 0 && CanRedo(data);
  if (taken_back) panel.NewVariableMade = false;
}

}  // namespace tessara
