#pragma once

#include "data/data_set.h"
#include "platform/platform.h"

// The data file: text, one line a matrix row, byte 1 between fields, CR LF behind every line. The first line is the
// banner (record count, blank, variable count, blank, "Tessara data") and the project notes, then the fifteen lines of
// the variable dictionary, then one line a record. There is no quoting and no escape.

namespace tessara {

enum class LoadOutcome {
  kLoaded,
  kEmptyFile,   // of length 0: the data stay, but the path has already changed
  kUnreadable,  // no such file, a folder, no right to read: everything stays
};

// How a file came to be loaded.
enum class FilePick {
  kPicked,       // chosen while the program runs: in the open dialog, among the recent files, by a drop, by a script
  kCommandLine,  // named at the start of the window: DataFilePath stays, and the title is the whole path
};

// There is no validation at all: missing fields and lines are empty, surplus ones are dropped, a banner without two
// numbers leaves the counts at their earlier values, and no message is shown; a note says what did not fit. When the
// memory does not suffice std::bad_alloc comes out. `selected_variables`, here and below, are the analysis variables
// chosen in the panel: the progress display asks.
LoadOutcome LoadDataFile(DataSet& data, Platform& platform, const Path& path, FilePick pick,
                         std::size_t selected_variables = 0);

enum class SaveOutcome {
  kSaved,
  kNoName,      // there is no file to save to yet: nothing has been done
  kFolderGone,  // the folder of the file is no longer there: nothing has been written
  kFailed,      // the message box has been shown; the old file is as it was
};

// Whether a save knows where to: not while the path is none, a folder (as at the start), that of an imported text or of
// a file named at the start, nor while the grid has no title of its own.
bool HasPathOfItsOwn(const DataSet& data);

// Saves to DataFilePath, if it is the data's own. The trailing
// blank records and variables are not written. DataDirty is cleared also by a save that fails. The first save over a
// file that did not fit its first line keeps it beside the new one.
SaveOutcome SaveDataFile(DataSet& data, Platform& platform, std::size_t selected_variables = 0);
// Saves to another path, which becomes DataFilePath and gives the grid its title: kSaved or kFailed.
SaveOutcome SaveDataFileTo(DataSet& data, Platform& platform, const Path& path, std::size_t selected_variables = 0);

// The box of a Save As, or of any other new data file, that could not be written.
void ShowSaveAsError(Messages& messages);

// Replaces the data by the empty data set. The panel is reset by the caller.
void NewDataFile(DataSet& data);

// Copies the sample files that the Help folder keeps over those of the Data folder, after a question.
void RepairSampleFiles(Platform& platform);

// The notes as they stand in the file: line ends replaced by the token "@#$%".
std::string NotesToField(std::string_view notes);
std::string NotesFromField(std::string_view field);

}  // namespace tessara
