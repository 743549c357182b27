#pragma once

#include "shell/command_row.h"

// What the commands of the Glossary view ask, and the operations that they call.

namespace tessara {

void AskAndOpenGlossary(Session& session);
void SaveShownNote(Session& session);
// False when it was cancelled or has failed.
bool AskAndSaveGlossaryAs(Session& session);
void SaveGlossaryUnderName(Session& session);
void AskAndImportGlossary(Session& session);
void AskAndExportGlossary(Session& session);
void PrintShownNote(Session& session);

void AddNewNote(Session& session);
void DeleteShownNote(Session& session);
// The line that the glossary's state names.
void SelectChosenNote(Session& session);

// The text of the search box.
void SearchNotes(Session& session);
void ResetNoteSearch(Session& session);

// Brings the Glossary view to the front with the note of that subject, whatever its case; what a search has left out
// is back in the list then. Pane 1 says when there is no such note.
void ShowGlossaryTerm(Session& session, std::string_view subject);

// Whether the program may close as far as the note on show goes: an edited one is saved.
bool NoteMayGo(Session& session);

// What pane 2 says in the Glossary view: what a search has found, else how many notes there are.
std::string GlossaryPane(const Glossary& glossary);

}  // namespace tessara
