#pragma once

#include <string_view>

#include "platform/platform.h"
#include "reference/glossary.h"

// What leads into a glossary and out of it: the search, tab-delimited text and paper.

namespace tessara {

// Fills the list with the notes that hold the text, letter for letter, where a blank counts at each end of subject and
// text. Yields how many there are; without one the list stays, and a box says so. An edited note is saved first.
int SearchGlossary(Glossary& glossary, std::string_view text, Platform& platform);

// The whole list again.
void ResetSearch(Glossary& glossary);

enum class ImportedGlossary {
  kImported,
  kRefused,     // the user has been told why
  kNotWritten,  // and nobody has been told so far
};

// Makes a new glossary of a tab-delimited text, a note a line from record 2 on, and goes on with it. A line without a
// tab is a subject. A file that has the target's name is kept beside it. An edited note must have been left.
ImportedGlossary ImportGlossary(Glossary& glossary, const Path& text_file, const Path& target, Platform& platform);

// Writes the notes of the list as tab-delimited text, in the order of their records. An edited note is saved first.
bool ExportGlossary(Glossary& glossary, const Path& path, Platform& platform);

// The note on show as it is printed: lines that a sheet has no room for go on on the next one.
std::string NotePage(const Glossary& glossary);
// Asks for the printer and prints it.
bool PrintNote(const Glossary& glossary, Platform& platform);

}  // namespace tessara
