#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/platform.h"

// The glossary: a file of notes, each a subject and a text, in records of fixed length. What the view shows of it
// stands in one struct; the operations read and write the file.

namespace tessara {

inline constexpr std::size_t kGlossaryRecord = 3080;  // bytes
inline constexpr std::size_t kMostSubject = 60;       // characters
inline constexpr std::size_t kMostNote = 3000;
inline constexpr int kFirstNote = 2;        // record 1 holds the count
inline constexpr int kMostRecords = 32767;  // a record's number is a 16-bit integer
inline constexpr const char* kTemporaryGlossary = "Temp.lx1";

// A line of the list.
struct GlossarySubject {
  std::string subject;
  int record = 0;

  friend bool operator==(const GlossarySubject&, const GlossarySubject&) = default;
};

struct Glossary {
  bool opened = false;                // the view has been loaded, and its file with it
  Path GlossaryFile;                  // the full path; empty while none could be opened
  std::string GlossaryName;           // the file name
  int LastRecord = kFirstNote;        // the count of record 1
  int CurrentRecord = 0;              // the record on show; 0 for none
  bool NoteDirty = false;             // the two boxes have been edited
  std::string Text1;                  // the subject box
  std::string Text2;                  // the text box
  std::string shown_record;           // the bytes of the record on show as they were read; empty for a new one
  std::vector<GlossarySubject> List;  // what List1 shows, sorted by subject
  bool search_is_on = false;          // the list holds the matches of a search
  std::string searched;               // what that search was for
  std::optional<int> found;           // matches of the latest search, for as long as it is worth telling
  bool misfit = false;                // the file is no whole glossary: its first rewrite keeps it beside the new one
  int notes = 0;                      // notes of the whole file, whatever the list shows
  std::string SearchText;             // of the search box, remembered while another view is in front
  int chosen_line = -1;               // the line of the list that is to be shown, counted from 0
  // They count up at each change of list, boxes or file, so that a view knows when to show anew, and of the list alone.
  std::uint64_t revision = 0;
  std::uint64_t list_revision = 0;
};

// Opens a file: its list, and its first note on show. False, and a box that says why, when it cannot be read; the
// glossary at work stays as it was then. A count of 0 becomes 2, or reaches to the last note there is, and is written
// back where the file can be written. A file that is cut or damaged opens as far as it goes, and a note tells of it.
bool OpenGlossary(Glossary& glossary, const Path& path, Platform& platform);

// The same for the view's first file. One that does not exist is an empty one, which the first saved note makes.
void OpenDefaultGlossary(Glossary& glossary, const Path& path, Platform& platform);

// What the two boxes hold after an edit, cut to their limits. Without a record on show there is nothing to edit.
void EditNote(Glossary& glossary, std::string subject, std::string text);

// Writes the note on show into its record, and the count. A record that another program has written since is left to
// it: the note becomes a new record then, and a note says so. False, and a box that says why, when it was not saved.
bool SaveNote(Glossary& glossary, Platform& platform);

// Saves a note that was edited, ahead of whatever takes it from sight. False when that failed and the user does not
// want to go on without it.
bool LeaveNote(Glossary& glossary, Platform& platform);

// Shows an empty note of the next number. Nothing is written until it is saved.
bool AddNote(Glossary& glossary, Platform& platform);

// Takes the note on show out of the file: those behind it move up by one record, and the last one is blank. A record
// that is not the one on show any more stays, and a box says so.
bool DeleteNote(Glossary& glossary, Platform& platform);

// Shows the note of a line of the list, counted from 0.
bool SelectNote(Glossary& glossary, int line, Platform& platform);

// Shows a record by its number, also one that the list leaves out. False, and a box, when there is none of that number.
bool ShowRecord(Glossary& glossary, int number, Platform& platform);

// Writes the file, with the note on show as it was edited, under another name and goes on with that. False, and a box,
// when that fails.
bool SaveGlossaryAs(Glossary& glossary, const Path& path, Platform& platform);

// Reads the list anew, with the search that is on.
void RefreshGlossaryList(Glossary& glossary);

// Takes a file as the one at work, with its list, and shows its first note; writes nothing. False when it cannot be
// read. A note tells of a file that is cut or damaged.
bool TakeGlossaryFile(Glossary& glossary, const Path& path, Status& status);

// Whether the file at work is the one that an import has left.
bool IsTemporaryGlossary(const Glossary& glossary);

}  // namespace tessara
