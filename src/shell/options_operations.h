#pragma once

#include "shell/command_row.h"

// What the options dialog does. Large icons and the toolbar's style stand in the settings at once, everything else when
// it is saved; nothing is stored before that.

namespace tessara {

// Fills the form from the settings, its first page in front.
WidgetAction OpenOptions(Session& session);

// The defaults of the page in front. Those of the appearance are in force at once.
void ResetOptionsPage(Session& session);

void SetLargeIcons(Session& session, bool large);
// A number that is no style's changes nothing.
void SetToolbarStyle(Session& session, int style);

// A path that was picked; its text is shown, and stands for it until it is edited.
void ChooseDataFolder(Session& session, const Path& folder);
// Asks for the file of the glossary. False when it was cancelled.
bool AskGlossaryFile(Session& session);

// What the texts of the form mean: trimmed, and the default below the program folder for an empty one and for "0".
Path FolderOfForm(const Session& session);
Path GlossaryOfForm(const Session& session);
// Whether there is such a folder or file just now. One that is missing may still be saved.
bool FolderIsThere(const Session& session);
bool GlossaryIsThere(const Session& session);

// Takes the form into the settings and stores them. A store that refuses shows its box once, and the settings stay in
// force; otherwise a box tells that some of them wait for the next start.
void SaveOptions(Session& session);

// Where a file dialog begins: in the folder of data files when that is new since a file was chosen, else as it is told.
Path FolderToBegin(const Session& session, const Path& otherwise);

}  // namespace tessara
