#include "reference/glossary_exchange.h"

#include <algorithm>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "numerics/code_page.h"
#include "numerics/text.h"
#include "platform/files.h"
#include "presentation/print_pages.h"
#include "reference/glossary_file.h"
#include "reference/glossary_record.h"
#include "reference/text_lines.h"

namespace tessara {
namespace {

constexpr std::size_t kRule = 66;
constexpr std::size_t kPageColumns = 80;  // of a printed line

std::string NameOf(const Path& path) { return FromUtf8(PathToUtf8(path.filename())); }

// The notes of a text; no more than one above what a glossary holds, so that nobody collects a text of any size.
std::vector<GlossaryNote> NotesOfText(std::string_view text) {
  std::vector<GlossaryNote> notes;
  while (!text.empty() && notes.size() < kMostRecords) {
    const std::string_view line = TakeLine(text);
    const std::size_t tab = line.find('\t');
    notes.push_back({line.substr(0, tab), tab == line.npos ? std::string_view() : line.substr(tab + 1)});
  }
  return notes;
}

// Says in a note how many notes were longer than their records.
void NoteCutNotes(const std::vector<GlossaryNote>& notes, Status& status) {
  const auto cut = std::ranges::count_if(notes, [](const GlossaryNote& note) {
    return Trimmed(note.subject).size() > kMostSubject || Trimmed(note.text).size() > kMostNote;
  });
  if (cut == 0) return;
  status.ShowNote(std::to_string(cut) + (cut == 1 ? " note was" : " notes were") + " cut to " +
                  std::to_string(kMostSubject) + " characters of subject and " + std::to_string(kMostNote) +
                  " of text");
}

// A field of a line: each line end becomes two blanks, a tab one, so that the line keeps its shape.
std::string LineField(std::string_view text, bool keeps_tabs) {
  std::string field;
  field.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\r' || text[i] == '\n') {
      if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
      field += "  ";
    } else {
      field += text[i] == '\t' && !keeps_tabs ? ' ' : text[i];
    }
  }
  return field;
}

// A line that is longer than a sheet is wide, broken at blanks where it has any.
void AppendWrapped(std::string& page, std::string_view line) {
  while (line.size() > kPageColumns) {
    const std::size_t blank = line.rfind(' ', kPageColumns);
    const bool breaks = blank != std::string_view::npos && blank > 0;
    page.append(line.substr(0, breaks ? blank : kPageColumns)).append("\r\n");
    line.remove_prefix(breaks ? blank + 1 : kPageColumns);
  }
  page.append(line);
}

// Writes the lines of these records, which stand in their order. False when the glossary cannot be read.
bool WriteLines(const Path& glossary_file, const std::vector<int>& numbers, SafeFileWriter& file) {
  RecordStream records(glossary_file);
  auto next = numbers.begin();
  while (next != numbers.end() && records.Next()) {
    if (records.number() != *next) continue;
    file.Write(LineField(SubjectOfRecord(records.record()), false) + "\t" +
               LineField(TextOfRecord(records.record()), true) + "\r\n");
    ++next;
  }
  return records.is_open() && !records.failed();
}

}  // namespace

int SearchGlossary(Glossary& glossary, std::string_view text, Platform& platform) {
  glossary.found.reset();
  if (glossary.LastRecord < kFirstNote) return 0;
  if (!LeaveNote(glossary, platform)) return 0;
  auto listing = ListGlossary(glossary.GlossaryFile, text);
  if (!listing) {
    platform.ShowMessage({"Error", NameOf(glossary.GlossaryFile) + " cannot be read."});
    return 0;
  }
  const int found = static_cast<int>(listing->List.size());
  glossary.found = found;
  if (found == 0) {
    platform.ShowMessage({"Tessara", "Sorry...  ' " + std::string(text) + " ' not found"});
    return 0;
  }
  std::string searched(text);
  glossary.List = std::move(listing->List);
  glossary.notes = listing->notes;
  glossary.search_is_on = !searched.empty();  // the empty text stands in every note
  glossary.searched = std::move(searched);
  ++glossary.revision;
  ++glossary.list_revision;
  return found;
}

void ResetSearch(Glossary& glossary) {
  glossary.found.reset();
  glossary.searched.clear();
  glossary.search_is_on = false;
  ++glossary.revision;
  RefreshGlossaryList(glossary);
}

ImportedGlossary ImportGlossary(Glossary& glossary, const Path& text_file, const Path& target, Platform& platform) {
  const auto refuse = [&platform](const std::string& why) {
    platform.ShowMessage({"Error!", why});
    return ImportedGlossary::kRefused;
  };
  const auto bytes = ReadWholeFile(text_file);
  if (!bytes) return refuse(NameOf(text_file) + " cannot be opened.");
  const std::string text = FromTextFile(bytes->text());
  const std::vector<GlossaryNote> notes = NotesOfText(text);
  if (notes.size() < 2) return refuse("No data found.");
  if (notes.size() >= kMostRecords) {
    return refuse("The text has too many lines: a glossary holds " + std::to_string(kMostRecords - 1) + " notes.");
  }
  if (WriteNotes(target, notes, OldFile::kKept, platform) != WriteResult::kWritten) {
    return ImportedGlossary::kNotWritten;
  }
  NoteCutNotes(notes, platform);
  if (!TakeGlossaryFile(glossary, target, platform)) return refuse(NameOf(target) + " cannot be read.");
  return ImportedGlossary::kImported;
}

bool ExportGlossary(Glossary& glossary, const Path& path, Platform& platform) {
  if (!LeaveNote(glossary, platform)) return false;
  const auto refuse = [&platform](const std::string& why) {
    platform.ShowMessage({"Error", why});
    return false;
  };
  std::error_code ignored;
  if (std::filesystem::equivalent(path, glossary.GlossaryFile, ignored)) {
    return refuse(NameOf(path) + " is the glossary itself. Please choose another name for the text.");
  }
  std::vector<int> numbers;
  numbers.reserve(glossary.List.size());
  for (const GlossarySubject& line : glossary.List) numbers.push_back(line.record);
  std::ranges::sort(numbers);
  SafeFileWriter file(path);
  if (!WriteLines(glossary.GlossaryFile, numbers, file)) {
    return refuse(NameOf(glossary.GlossaryFile) + " cannot be read.");
  }
  if (file.Commit() != WriteResult::kWritten) {
    return refuse(NameOf(path) + " could not be written. You may not have authorization to write there, or the disk " +
                  "may be full.");
  }
  NoteWhatWasNotKept(file, platform);
  return true;
}

std::string NotePage(const Glossary& glossary) {
  std::string page(kRule, '_');
  page.append("\r\n").append("Subject:  ").append(glossary.Text1).append("\r\n\r\n\r\n");
  std::string_view rest = glossary.Text2;
  while (!rest.empty()) {
    const bool has_end = rest.find('\n') != std::string_view::npos;
    AppendWrapped(page, TakeLine(rest));
    if (has_end) page.append("\r\n");
  }
  return page;
}

bool PrintNote(const Glossary& glossary, Platform& platform) {
  if (glossary.CurrentRecord == 0) {
    platform.ShowMessage({"Error", "Please select a record"});
    return false;
  }
  const auto choice = platform.AskPrint({.title = "Print", .offer_selection = false});
  if (!choice) return false;
  const std::vector<std::string> pages(static_cast<std::size_t>(std::max(choice->copies, 0)), NotePage(glossary));
  if (platform.Print(JobOfPages(pages))) return true;
  ShowPrinterError(platform);
  return false;
}

}  // namespace tessara
