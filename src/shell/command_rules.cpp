#include "shell/command_rules.h"

#include "data/change_door.h"

namespace tessara {

bool InTextMode(const Session& session, const WidgetState&) { return !session.output.OutputGridMode; }

bool InGridMode(const Session& session, const WidgetState&) { return session.output.OutputGridMode; }

bool TableIsEdited(const Session& session, const WidgetState&) {
  return session.output.OutputGridMode && session.panel.selected != Procedure::kExplore;
}

bool HasTable(const Session& session, const WidgetState&) {
  // A table that was emptied can be brought back from its face.
  return session.output.OutputGridMode || !session.table.grid.empty() || !session.table.face.done.empty();
}

bool CanUndoTable(const Session& session, const WidgetState&) { return !session.table.face.done.empty(); }
bool CanRedoTable(const Session& session, const WidgetState&) { return !session.table.face.undone.empty(); }

bool ShowsLog(const Session& session, const WidgetState&) {
  return !session.output.OutputGridMode && session.output.ShowLogMode;
}

bool ShowsMostRecent(const Session& session, const WidgetState&) {
  return !session.output.OutputGridMode && !session.output.ShowLogMode;
}

bool HasOutputText(const Session& session, const WidgetState&) {
  const bool has_table = session.output.OutputGridMode && !session.table.grid.empty();
  return has_table || !session.output.BoxText().empty();
}

bool HasOutputToConvert(const Session& session, const WidgetState& widgets) {
  return session.output.OutputGridMode || HasOutputText(session, widgets);
}

bool HasOutputSelection(const Session& session, const WidgetState& widgets) {
  return session.output.OutputGridMode || widgets.output_has_selection;
}

bool CanUndoText(const Session&, const WidgetState& widgets) { return widgets.can_undo; }
bool CanRedoText(const Session&, const WidgetState& widgets) { return widgets.can_redo; }

bool CanUndoData(const Session& session, const WidgetState&) { return CanUndo(session.data); }
bool CanRedoData(const Session& session, const WidgetState&) { return CanRedo(session.data); }

bool ClipboardHasText(const Session&, const WidgetState& widgets) { return widgets.clipboard_has_text; }

bool SearchIsGoing(const Session& session, const WidgetState&) {
  return session.recode.marks.has_bold() || session.recode.FindRow != 0;
}

bool HasCalculation(const Session& session, const WidgetState&) { return CanCopyResult(session.brevarum); }

bool HasNoteSelection(const Session&, const WidgetState& widgets) { return widgets.note_has_selection; }

bool HelpPaneIsVisible(const Session& session, const WidgetState&) { return session.help_pane_visible; }

bool PageCanGoBack(const Session&, const WidgetState& widgets) { return widgets.page_can_go_back; }
bool PageCanGoForward(const Session&, const WidgetState& widgets) { return widgets.page_can_go_forward; }

}  // namespace tessara
