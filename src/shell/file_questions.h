#pragma once

#include <optional>

#include "shell/session.h"

// What the window's commands ask before they call an operation that takes a path.

namespace tessara {

// Nothing means Cancel.
std::optional<Path> AskOpenPath(Session& session);
std::optional<Path> AskSavePath(Session& session);

// Open, Save and Save As of the Data Grid.
void AskAndOpenData(Session& session);
void SaveDataOrAsk(Session& session);
void AskAndSaveData(Session& session);

// Save of the Output view. False when it was cancelled or has failed.
bool AskAndSaveOutput(Session& session);

}  // namespace tessara
