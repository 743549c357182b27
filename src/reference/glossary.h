#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/path.h"

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
  Path GlossaryFile;                  // the full path
  std::string GlossaryName;           // the file name
  int LastRecord = kFirstNote;        // the count of record 1
  int CurrentRecord = 0;              // the record on show; 0 for none
  bool NoteDirty = false;             // the two boxes have been edited
  std::string Text1;                  // the subject box
  std::string Text2;                  // the text box
  std::string shown_record;           // the bytes of the record on show as they were read; empty for a new one
  std::vector<GlossarySubject> List;  // what List1 shows, sorted by subject
  bool search_is_on = false;          // the list holds the matches of a search
  int notes = 0;                      // notes of the whole file, whatever the list shows
  std::string SearchText;             // of the search box, remembered while another view is in front
  std::uint64_t revision =
      0;  // counts up at each change of list, boxes or file, so that a view knows when to show anew
};

}  // namespace tessara
