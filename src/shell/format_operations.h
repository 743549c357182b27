#pragma once

#include "shell/session.h"

// The commands of the form that describes variables, and of the table of all variables.

namespace tessara {

enum class WidgetAction;

// Opens the form on the variable of the grid's cursor.
WidgetAction OpenVariableFormat(Session& session);

// The buttons of the form: they work on the session's format, whatever view is in front.
void SaveFormat(Session& session);
void CopyFormat(Session& session);
void PasteFormat(Session& session);
void RevertFormat(Session& session);

}  // namespace tessara
