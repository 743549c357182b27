#pragma once

#include "shell/session.h"

// What the window asks for data that come in and go out, ahead of the operations that take a path.

namespace tessara {

// The open dialog of the import page, and the file that it yields. False when it was cancelled or cannot be opened.
bool AskImportFile(Session& session);
// The reminder, the save dialog and the export. False when nothing has been written.
bool AskAndExport(Session& session, char delimiter);
// The check, the save dialog and the new file. False when nothing has been written.
bool AskAndSplit(Session& session);

}  // namespace tessara
