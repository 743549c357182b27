#pragma once

#include <string>

#include "shell/session.h"

// What the commands of the Data Grid do: its cursor stands in the data, its selection and the entry that is open in the
// session. Front ends end an entry ahead of each command.

namespace tessara {

void CopyCells(Session& session);
void CutCells(Session& session);
// Selects what it has pasted.
void PasteCells(Session& session);
// The Delete key.
void ClearCells(Session& session);
void AddGridRows(Session& session);
void AddGridColumn(Session& session);
void DeleteGridRows(Session& session);
void DeleteGridColumns(Session& session);

// One step of the changes of the data back or forth, whatever made it. The cursor goes to the cells that changed, and
// pane 1 names the step.
void UndoDataChange(Session& session);
void RedoDataChange(Session& session);
// "Undo Paste"; a caption of a menu, in which an "&" of the step's name is doubled.
std::string UndoCaption(const Session& session);
std::string RedoCaption(const Session& session);

}  // namespace tessara
