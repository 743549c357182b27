#pragma once

#include "shell/command_row.h"

// The rules that the rows of commands name.

namespace tessara {

bool InTextMode(const Session& session, const WidgetState& widgets);
bool InGridMode(const Session& session, const WidgetState& widgets);
// The summary table is the face of the Output view, and Explore, which has none, is not the procedure at hand.
bool TableIsEdited(const Session& session, const WidgetState& widgets);
// There is a table, or its empty face shows.
bool HasTable(const Session& session, const WidgetState& widgets);
bool CanUndoTable(const Session& session, const WidgetState& widgets);
bool CanRedoTable(const Session& session, const WidgetState& widgets);
bool ShowsLog(const Session& session, const WidgetState& widgets);
bool ShowsMostRecent(const Session& session, const WidgetState& widgets);
// The text of the face that shows counts, and so does the text behind the table.
bool HasOutputText(const Session& session, const WidgetState& widgets);
bool HasOutputToConvert(const Session& session, const WidgetState& widgets);
// In the grid of the Output view there is a current cell at all times.
bool HasOutputSelection(const Session& session, const WidgetState& widgets);
bool CanUndoText(const Session& session, const WidgetState& widgets);
bool CanRedoText(const Session& session, const WidgetState& widgets);
// Steps of changes of the data.
bool CanUndoData(const Session& session, const WidgetState& widgets);
bool CanRedoData(const Session& session, const WidgetState& widgets);
bool ClipboardHasText(const Session& session, const WidgetState& widgets);
// A match is marked in the grid, or the next search does not start from the top.
bool SearchIsGoing(const Session& session, const WidgetState& widgets);
bool HasCalculation(const Session& session, const WidgetState& widgets);
// In one of the two boxes of a note.
bool HasNoteSelection(const Session& session, const WidgetState& widgets);
bool HelpPaneIsVisible(const Session& session, const WidgetState& widgets);
bool PageCanGoBack(const Session& session, const WidgetState& widgets);
bool PageCanGoForward(const Session& session, const WidgetState& widgets);

template <Document document>
bool DocumentIsThere(const Session& session, const WidgetState&) {
  return session.documentation_found[static_cast<std::size_t>(document)];
}

}  // namespace tessara
