#include "reference/glossary.h"

#include <algorithm>
#include <system_error>
#include <utility>

#include "numerics/code_page.h"
#include "platform/file_turn.h"
#include "platform/files.h"
#include "reference/glossary_file.h"
#include "reference/glossary_record.h"

namespace tessara {
namespace {

constexpr const char* kError = "Error";

std::string NameOf(const Path& path) { return FromUtf8(PathToUtf8(path.filename())); }

void ShowError(Messages& messages, const std::string& text) { messages.ShowMessage({kError, text}); }

void ShowUnreadable(Messages& messages, const Path& path) { ShowError(messages, NameOf(path) + " cannot be read."); }

std::string WhyNotWritten(const Path& path, WriteResult result) {
  if (result == WriteResult::kPathNotFound) return "The folder of " + NameOf(path) + " is not there.";
  return NameOf(path) +
         " could not be written. You may not have authorization to change it, or the disk may be full. The "
         "notes can be saved under another name.";
}

OldFile OldFileOf(const Glossary& glossary) { return glossary.misfit ? OldFile::kKept : OldFile::kReplaced; }

// What is on show, made whole before it takes the place of what was.
struct ShownNote {
  int CurrentRecord = 0;
  std::string Text1 = {};
  std::string Text2 = {};
  std::string shown_record = {};
};

ShownNote NoteOf(int number, std::string record) {
  return {number, SubjectOfRecord(record), TextOfRecord(record), std::move(record)};
}

void Show(Glossary& glossary, ShownNote note) {
  glossary.CurrentRecord = note.CurrentRecord;
  glossary.Text1 = std::move(note.Text1);
  glossary.Text2 = std::move(note.Text2);
  glossary.shown_record = std::move(note.shown_record);
  glossary.NoteDirty = false;
  ++glossary.revision;
}

void TakeListing(Glossary& glossary, GlossaryListing listing, std::string searched) {
  glossary.List = std::move(listing.List);
  glossary.notes = listing.notes;
  glossary.LastRecord = listing.shape.LastRecord;
  glossary.search_is_on = !searched.empty();
  glossary.searched = std::move(searched);
  ++glossary.revision;
  ++glossary.list_revision;
}

// A file as the one at work, its first note on show.
void TakeFile(Glossary& glossary, const Path& path, GlossaryListing listing, std::string first_note) {
  const bool is_in_file = std::min(listing.shape.there, listing.shape.LastRecord) >= kFirstNote;
  Glossary next;
  next.opened = true;
  next.GlossaryFile = path;
  next.GlossaryName = NameOf(path);
  next.misfit = !MisfitOfGlossary(listing).empty();
  next.SearchText = glossary.SearchText;
  next.revision = glossary.revision;
  next.list_revision = glossary.list_revision;
  TakeListing(next, std::move(listing), {});
  Show(next, is_in_file ? NoteOf(kFirstNote, std::move(first_note)) : ShownNote{kFirstNote});
  glossary = std::move(next);
}

// What was found in a file that is now at work.
struct TakenFile {
  std::string misfit;
  bool counted = false;
};

std::optional<TakenFile> ReadAndTake(Glossary& glossary, const Path& path) {
  auto listing = ListGlossary(path);
  auto first_note = listing ? ReadRecord(path, kFirstNote) : std::nullopt;
  if (!first_note) return std::nullopt;
  TakenFile taken{MisfitOfGlossary(*listing), listing->shape.announced != 0};
  TakeFile(glossary, path, *std::move(listing), *std::move(first_note));
  return taken;
}

// Where the note on show is written.
struct NotePlace {
  int number = 0;
  bool moved = false;  // its own record holds something else by now
};

// Whether a record holds what was read from it, nothing yet for a new note, or already what is to be written: a write
// may have been done and yet have been reported as failed.
bool HoldsOurs(const Glossary& glossary, const std::string& record) {
  if (glossary.shown_record.empty() ? IsBlankRecord(record) : record == glossary.shown_record) return true;
  return record == MakeRecord(glossary.CurrentRecord, glossary.Text1, glossary.Text2, glossary.shown_record);
}

// Its own record while that is free or holds what was read from it, else one behind the last. Nothing when the file
// cannot be read.
std::optional<NotePlace> PlaceOfNote(const Glossary& glossary, const GlossaryShape& shape) {
  const int own = glossary.CurrentRecord;
  const bool is_free = own > std::min(shape.LastRecord, shape.there);
  if (is_free && glossary.shown_record.empty()) return NotePlace{own};
  const auto record = ReadRecord(glossary.GlossaryFile, own);
  if (!record) return std::nullopt;
  if (!is_free && HoldsOurs(glossary, *record)) return NotePlace{own};
  return NotePlace{shape.LastRecord + 1, true};
}

// The note on show as a change of its file, and how it is on show behind that.
struct NoteChange {
  RecordChange change;
  ShownNote saved;
  bool moved = false;
};

// Nothing when there can be none, and then the user has been told.
std::optional<NoteChange> ChangeOfNote(const Glossary& glossary, Platform& platform) {
  const auto shape = ShapeOfGlossary(glossary.GlossaryFile);
  const auto place = shape ? PlaceOfNote(glossary, *shape) : std::nullopt;
  if (!place) {
    ShowUnreadable(platform, glossary.GlossaryFile);
    return std::nullopt;
  }
  if (place->number > kMostRecords) {
    ShowError(platform, "The glossary is full: the note has no room in it.");
    return std::nullopt;
  }
  const int last = place->moved ? place->number : std::max({glossary.LastRecord, shape->LastRecord, place->number});
  std::string record = MakeRecord(place->number, glossary.Text1, glossary.Text2, glossary.shown_record);
  NoteChange result{{last, place->number, record}, NoteOf(place->number, record), place->moved};
  return result;
}

// The note stands in the file as it is on show.
void SettleSaved(Glossary& glossary, NoteChange note, Status& status) {
  glossary.misfit = false;
  glossary.LastRecord = note.change.LastRecord;
  glossary.found.reset();
  Show(glossary, std::move(note.saved));
  if (!note.moved) return;
  status.ShowNote("the file had changed since the note was read; the note is now its record " +
                  std::to_string(note.change.place));
}

// The line of the list that shows the same note; nothing when it has gone.
std::optional<int> RecordOf(const Glossary& glossary, const GlossarySubject& wanted) {
  const auto same = std::ranges::find(glossary.List, wanted);
  if (same != glossary.List.end()) return same->record;
  const auto like = std::ranges::find(glossary.List, wanted.subject, &GlossarySubject::subject);
  if (like != glossary.List.end()) return like->record;
  return std::nullopt;
}

// A count that the file lacks is written into it. Where that cannot be, work goes on without it.
void WriteMissingCount(const Glossary& glossary, Status& status) {
  WriteWithRecord(glossary.GlossaryFile, glossary.GlossaryFile, {.LastRecord = glossary.LastRecord}, OldFile::kReplaced,
                  status);
}

}  // namespace

bool TakeGlossaryFile(Glossary& glossary, const Path& path, Status& status) {
  const auto taken = ReadAndTake(glossary, path);
  if (taken && !taken->misfit.empty()) status.ShowNote(taken->misfit);
  return taken.has_value();
}

bool OpenGlossary(Glossary& glossary, const Path& path, Platform& platform) {
  const auto taken = FactsOfFile(path) ? ReadAndTake(glossary, path) : std::nullopt;
  if (!taken) {
    ShowError(platform, NameOf(path) + " cannot be opened.");
    return false;
  }
  if (!taken->misfit.empty()) {
    platform.ShowNote(taken->misfit);
  } else if (!taken->counted) {
    WriteMissingCount(glossary, platform);
  }
  return true;
}

void OpenDefaultGlossary(Glossary& glossary, const Path& path, Platform& platform) {
  glossary.opened = true;
  if (FactsOfFile(path) || !ListGlossary(path)) {
    OpenGlossary(glossary, path, platform);
    return;
  }
  GlossaryListing empty;
  empty.looks_right = true;
  TakeFile(glossary, path, std::move(empty), {});
  platform.ShowNote(NameOf(path) + " is not there; the first note that is saved makes it");
}

void EditNote(Glossary& glossary, std::string subject, std::string text) {
  if (glossary.CurrentRecord == 0) return;
  subject.resize(std::min(subject.size(), kMostSubject));
  text.resize(std::min(text.size(), kMostNote));
  if (subject == glossary.Text1 && text == glossary.Text2) return;
  glossary.Text1 = std::move(subject);
  glossary.Text2 = std::move(text);
  glossary.NoteDirty = true;
}

void RefreshGlossaryList(Glossary& glossary) {
  auto listing = ListGlossary(glossary.GlossaryFile, glossary.searched);
  if (!listing) return;  // what was read last stays in sight
  const int last = glossary.LastRecord;
  std::string searched = glossary.searched;
  if (listing->List.empty() && !searched.empty()) {
    searched.clear();
    listing = ListGlossary(glossary.GlossaryFile);
    if (!listing) return;
  }
  TakeListing(glossary, *std::move(listing), std::move(searched));
  // A new note has its number ahead of its record.
  if (glossary.CurrentRecord > glossary.LastRecord) glossary.LastRecord = std::max(last, glossary.CurrentRecord);
}

bool SaveNote(Glossary& glossary, Platform& platform) {
  if (glossary.CurrentRecord == 0) return true;
  if (!glossary.NoteDirty && !glossary.shown_record.empty()) {  // it stands in the file
    RefreshGlossaryList(glossary);
    return true;
  }
  if (glossary.notes > 0 && !FactsOfFile(glossary.GlossaryFile)) {  // a new file would hold this note alone
    ShowError(platform, NameOf(glossary.GlossaryFile) +
                            " is not there any more, and the notes it held with it. This note can be saved under "
                            "another name.");
    return false;
  }
  const FileTurn turn(glossary.GlossaryFile);  // nobody writes between our look at the file and our write
  auto note = ChangeOfNote(glossary, platform);
  if (!note) return false;
  const Path& file = glossary.GlossaryFile;
  const WriteResult result = WriteWithRecord(file, file, note->change, OldFileOf(glossary), platform);
  if (result != WriteResult::kWritten) {
    ShowError(platform, WhyNotWritten(file, result));
    return false;
  }
  SettleSaved(glossary, *std::move(note), platform);
  RefreshGlossaryList(glossary);
  return true;
}

bool LeaveNote(Glossary& glossary, Platform& platform) {
  if (!glossary.NoteDirty || SaveNote(glossary, platform)) return true;
  const Answer answer =
      platform.ShowMessage({"Warning!", "The changes to this note are not saved. Do you wish to go on without them?",
                            Buttons::kYesNo, Tone::kWarning});
  if (answer != Answer::kYes) return false;
  const int number = glossary.CurrentRecord;
  Show(glossary, glossary.shown_record.empty() ? ShownNote{number} : NoteOf(number, glossary.shown_record));
  return true;
}

bool AddNote(Glossary& glossary, Platform& platform) {
  if (glossary.GlossaryFile.empty()) {
    ShowError(platform, "There is no glossary to add a note to. Open a glossary file first.");
    return false;
  }
  if (!LeaveNote(glossary, platform)) return false;
  if (glossary.LastRecord >= kMostRecords) {
    ShowError(platform,
              "The glossary is full: it has " + std::to_string(kMostRecords) + " records, the most there can be.");
    return false;
  }
  glossary.found.reset();
  Show(glossary, ShownNote{++glossary.LastRecord});
  return true;
}

bool DeleteNote(Glossary& glossary, Platform& platform) {
  const int number = glossary.CurrentRecord;
  if (number == 0) {
    ShowError(platform, "Please select a record");
    return false;
  }
  const Path& file = glossary.GlossaryFile;
  const FileTurn turn(file);
  const auto shape = ShapeOfGlossary(file);
  const auto record = shape ? ReadRecord(file, number) : std::nullopt;
  if (!record) {
    ShowUnreadable(platform, file);
    return false;
  }
  glossary.found.reset();
  const bool is_in_file = !glossary.shown_record.empty();
  if (is_in_file && (number > shape->LastRecord || *record != glossary.shown_record)) {
    ShowError(platform, "The file has changed since this note was read. No record was deleted.");
    Show(glossary, {});
    RefreshGlossaryList(glossary);
    return false;
  }
  if (is_in_file) {
    const WriteResult result = WriteWithoutRecord(file, number, shape->LastRecord, OldFileOf(glossary), platform);
    if (result != WriteResult::kWritten) {
      ShowError(platform, WhyNotWritten(file, result));
      return false;
    }
    glossary.misfit = false;
  }
  const int last = is_in_file ? shape->LastRecord - 1 : glossary.LastRecord - 1;  // a new note is in no file yet
  Show(glossary, {});
  RefreshGlossaryList(glossary);
  glossary.LastRecord = last;
  return true;
}

bool SelectNote(Glossary& glossary, int line, Platform& platform) {
  if (line < 0 || line >= static_cast<int>(glossary.List.size())) return false;
  const GlossarySubject wanted = glossary.List[static_cast<std::size_t>(line)];
  if (!LeaveNote(glossary, platform)) return false;
  auto number = RecordOf(glossary, wanted);
  auto record = number ? ReadRecord(glossary.GlossaryFile, *number) : std::nullopt;
  if (record && SubjectOfRecord(*record) != wanted.subject) {
    platform.ShowNote("the file has changed since it was read");
    RefreshGlossaryList(glossary);
    number = RecordOf(glossary, wanted);
    record = number ? ReadRecord(glossary.GlossaryFile, *number) : std::nullopt;
  }
  if (!number) return false;  // the note has gone, and the list shows what is there now
  if (!record) {
    ShowUnreadable(platform, glossary.GlossaryFile);
    return false;
  }
  Show(glossary, NoteOf(*number, *std::move(record)));
  return true;
}

bool ShowRecord(Glossary& glossary, int number, Platform& platform) {
  if (number < kFirstNote || number > glossary.LastRecord) {
    ShowError(platform, "Please select a record");
    return false;
  }
  if (!LeaveNote(glossary, platform)) return false;
  auto record = ReadRecord(glossary.GlossaryFile, number);
  if (!record) {
    ShowUnreadable(platform, glossary.GlossaryFile);
    return false;
  }
  Show(glossary, NoteOf(number, *std::move(record)));
  return true;
}

bool SaveGlossaryAs(Glossary& glossary, const Path& path, Platform& platform) {
  std::error_code ignored;
  if (std::filesystem::equivalent(path, glossary.GlossaryFile, ignored)) return SaveNote(glossary, platform);
  std::optional<NoteChange> note;
  if (glossary.NoteDirty && !(note = ChangeOfNote(glossary, platform))) return false;
  Path file = path;
  std::string name = NameOf(path);
  const RecordChange change = note ? note->change : RecordChange();
  // Of a file that has gone there is the note on show alone, and only while it has been edited.
  const bool nothing_to_copy = !note && glossary.notes > 0 && !FactsOfFile(glossary.GlossaryFile);
  if (nothing_to_copy ||
      WriteWithRecord(glossary.GlossaryFile, path, change, OldFile::kReplaced, platform) != WriteResult::kWritten) {
    platform.ShowMessage({"Save Aborted!",
                          "The save operation failed. Please make sure the file is not open in another program.  This "
                          "error could also be caused by trying to save to a location on your computer that has "
                          "restricted access."});
    return false;
  }
  glossary.GlossaryFile = std::move(file);
  glossary.GlossaryName = std::move(name);
  glossary.misfit = false;
  ++glossary.revision;
  if (note) SettleSaved(glossary, *std::move(note), platform);
  RefreshGlossaryList(glossary);
  return true;
}

bool IsTemporaryGlossary(const Glossary& glossary) { return glossary.GlossaryFile.filename() == kTemporaryGlossary; }

}  // namespace tessara
