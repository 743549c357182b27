#pragma once

#include <string>

#include "shell/session.h"

// What the commands of the table in the Output view do. Its cursor and selection stand in the session; front ends end
// an entry ahead of each command.

namespace tessara {

// The faces of the Output view.
void ShowMostRecent(Session& session);
void ShowLog(Session& session);
void ShowTable(Session& session);

void SelectWholeTable(Session& session);
void CopyTable(Session& session);
void CutTable(Session& session);
// Selects what it has pasted.
void PasteTable(Session& session);
// The Delete key.
void ClearTable(Session& session);
// The whole table; a step that can be taken back.
void EmptyWholeTable(Session& session);
void DeleteRowsOfTable(Session& session);
void DeleteColumnsOfTable(Session& session);

void AlignTable(Session& session, TableAlignment alignment);
template <TableAlignment alignment>
void AlignTable(Session& session) {
  AlignTable(session, alignment);
}

// One step back or forth; pane 1 names it.
void UndoTable(Session& session);
void RedoTable(Session& session);
std::string UndoTableCaption(const Session& session);
std::string RedoTableCaption(const Session& session);

}  // namespace tessara
