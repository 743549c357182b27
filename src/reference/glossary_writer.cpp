#include <algorithm>

#include "data/load_fit.h"
#include "numerics/code_page.h"
#include "platform/files.h"
#include "reference/glossary_file.h"
#include "reference/glossary_record.h"

// How a glossary file is written: whole, beside the old one, record by record.

namespace tessara {
namespace {

// Writes records one behind the other. One that is cut is filled up as soon as another follows.
class RecordWriter {
 public:
  explicit RecordWriter(SafeFileWriter& file) : file_(file) {}

  int written() const { return written_; }

  void Put(std::string_view record) {
    file_.Write(std::string(missing_, ' '));
    file_.Write(record);
    missing_ = kGlossaryRecord - std::min(record.size(), kGlossaryRecord);
    ++written_;
  }

  // The last record of a file that was cut becomes whole as well.
  void FillUp() {
    file_.Write(std::string(missing_, ' '));
    missing_ = 0;
  }

 private:
  SafeFileWriter& file_;
  int written_ = 0;
  std::size_t missing_ = 0;
};

// The parts that every way of writing has in common. `fill` writes the records and yields false when it cannot.
template <typename Fill>
WriteResult WriteGlossary(const Path& path, OldFile old, Status& status, Fill fill) {
  SafeFileWriter file(path);
  if (file.result() != WriteResult::kWritten) return file.result();
  const bool keep = old == OldFile::kKept && FactsOfFile(path).has_value();
  const auto kept = keep ? KeepAsFound(path) : std::nullopt;
  if (keep && !kept) return WriteResult::kRefused;
  RecordWriter records(file);
  if (!fill(records)) return WriteResult::kRefused;
  const WriteResult result = file.Commit();
  if (result != WriteResult::kWritten) return result;
  NoteWhatWasNotKept(file, status);
  if (kept) {
    status.ShowNote("what the file held before is kept as " + FromUtf8(PathToUtf8(kept->path().filename())));
  }
  return result;
}

}  // namespace

WriteResult WriteWithRecord(const Path& from, const Path& to, const RecordChange& change, OldFile old, Status& status) {
  return WriteGlossary(to, old, status, [&](RecordWriter& file) {
    RecordStream records(from);
    if (!records.is_open()) return false;
    while (records.Next()) {
      if (records.number() == 1 && change.LastRecord != 0) {
        file.Put(RenumberedRecord(records.record(), change.LastRecord));
      } else if (records.number() == change.place) {
        file.Put(change.record);
      } else {
        file.Put(records.record());
      }
    }
    if (records.failed()) return false;
    if (file.written() == 0) file.Put(MakeRecord(std::max(change.LastRecord, kFirstNote), "", ""));
    const int end = change.place == 0 ? 0 : std::max(change.LastRecord, change.place);
    while (file.written() < end) {
      const int number = file.written() + 1;
      file.Put(number == change.place ? change.record : MakeRecord(number, "", ""));
    }
    if (change.place != 0) file.FillUp();  // a copy without a change stays one
    return true;
  });
}

WriteResult WriteWithoutRecord(const Path& path, int number, int LastRecord, OldFile old, Status& status) {
  return WriteGlossary(path, old, status, [&](RecordWriter& file) {
    RecordStream records(path);
    if (!records.is_open()) return false;
    while (records.Next()) {
      const std::string_view record = records.record();
      if (records.number() == 1) {
        file.Put(RenumberedRecord(record, LastRecord - 1));
      } else if (records.number() > number && records.number() <= LastRecord) {
        file.Put(RenumberedRecord(record, records.number() - 1));
      } else if (records.number() != number) {
        file.Put(record);
      }
      if (records.number() == LastRecord) file.Put(MakeRecord(LastRecord, "", "", FilledRecord(record)));
    }
    file.FillUp();
    return !records.failed();
  });
}

WriteResult WriteNotes(const Path& path, const std::vector<GlossaryNote>& notes, OldFile old, Status& status) {
  return WriteGlossary(path, old, status, [&](RecordWriter& file) {
    file.Put(MakeRecord(static_cast<int>(notes.size()) + 1, "", ""));
    for (const GlossaryNote& note : notes) file.Put(MakeRecord(file.written() + 1, note.subject, note.text));
    return true;
  });
}

}  // namespace tessara
