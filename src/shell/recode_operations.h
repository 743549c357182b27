#pragma once

#include "shell/command_row.h"

// The panel that recodes, computes, finds and replaces: what its commands do.

namespace tessara {

// Opens the panel in a mode. The search starts from the top.
WidgetAction OpenRecodeMode(Session& session, RecodeMode mode);
template <RecodeMode mode>
WidgetAction OpenRecodeMode(Session& session) {
  return OpenRecodeMode(session, mode);
}

// The panel's own buttons. Pane 1 tells what came of it.
void RunRecode(Session& session);
void UndoRecode(Session& session);
void ResetRecode(Session& session);

// Takes the bold marks from the grid.
void ResetGridSearch(Session& session);

}  // namespace tessara
