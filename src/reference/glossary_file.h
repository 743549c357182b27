#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_reader.h"
#include "platform/safe_file_writer.h"
#include "platform/status.h"
#include "reference/glossary.h"

// A glossary file as a row of records: read in pieces, and written anew beside itself so that the old one stays whole
// until the new one is safe. A file that does not exist has no records.

namespace tessara {

// The records of a file, one after the other.
class RecordStream {
 public:
  explicit RecordStream(const Path& path);

  bool is_open() const { return absent_ || file_.is_open(); }
  // Records there are, the last one counts also when it is cut; no more than can have a number.
  int there() const;
  bool ends_within_record() const { return file_.size() % kGlossaryRecord != 0; }

  // Goes to the next record. False at the end, and when reading fails.
  bool Next();
  int number() const { return number_; }
  std::string_view record() const { return record_; }  // as found: the last one may be cut
  bool failed() const { return failed_; }

 private:
  bool FillBuffer();

  bool absent_;
  FileReader file_;
  std::string buffer_;
  std::size_t at_ = 0;
  std::string_view record_;
  int number_ = 0;
  bool failed_ = false;
};

// The count of a file, and how it fits the records that are there.
struct GlossaryShape {
  int announced = 0;            // by record 1
  int there = 0;                // records, one that is cut too
  int LastRecord = kFirstNote;  // the count that holds
  bool ends_within_record = false;
};

// Nothing when the file cannot be read. More than there is and a negative count give way to what is there; a count
// of 0 becomes 2, or reaches to the last note.
std::optional<GlossaryShape> ShapeOfGlossary(const Path& path);

// What a pass over the notes of a file yields.
struct GlossaryListing {
  GlossaryShape shape;
  std::vector<GlossarySubject> List;  // sorted by subject, equal ones as their records stand
  int notes = 0;                      // all there are, whatever the list holds
  bool looks_right = false;           // records carry their numbers, as those of a glossary do
};

// The notes whose subject or text holds the text, with a blank at each end of both; all for an empty text. Records
// without subject and text are left out. Nothing when the file cannot be read.
std::optional<GlossaryListing> ListGlossary(const Path& path, std::string_view searched = {});

// In what a file differs from a whole glossary, in one sentence; empty when it is one.
std::string MisfitOfGlossary(const GlossaryListing& listing);

// Whether a file that is there has the form of a glossary; an empty file has.
bool LooksLikeGlossary(const Path& path);

// A record of its full length, blank behind the end of the file. Nothing when it cannot be read.
std::optional<std::string> ReadRecord(const Path& path, int number);

// What happens to the file whose place a new one takes.
enum class OldFile { kReplaced, kKept };

// The file with another count and another record, records that are missing ahead of them being blank. A count of 0
// leaves that of a file that is there; the place 0 stands for no record.
struct RecordChange {
  int LastRecord = 0;
  int place = 0;
  std::string record = {};
};
WriteResult WriteWithRecord(const Path& from, const Path& to, const RecordChange& change, OldFile old, Status& status);

// The file without a record: those behind it up to the last one in use move up, and the last one is blank.
WriteResult WriteWithoutRecord(const Path& path, int number, int LastRecord, OldFile old, Status& status);

// A new file of notes, each a subject and a text.
struct GlossaryNote {
  std::string_view subject;
  std::string_view text;
};
WriteResult WriteNotes(const Path& path, const std::vector<GlossaryNote>& notes, OldFile old, Status& status);

}  // namespace tessara
