#include "data/data_file.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "data/change_door.h"
#include "data/line_writer.h"
#include "data/load_fit.h"
#include "data/progress.h"
#include "data/used_range.h"
#include "numerics/code_page.h"
#include "numerics/number_text.h"
#include "platform/files.h"
#include "platform/folder_names.h"

namespace tessara {
namespace {

constexpr std::string_view kNotesLineEnd = "@#$%";
constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kDataFolder = "Data";
constexpr std::string_view kHelpFolder = "Help";
constexpr std::string_view kDataFileEnding = ".dcs";

std::string Replaced(std::string_view text, std::string_view find, std::string_view replacement) {
  std::string result;
  for (;;) {
    const std::size_t at = text.find(find);
    result.append(text.substr(0, at));
    if (at == std::string_view::npos) return result;
    result.append(replacement);
    text.remove_prefix(at + find.size());
  }
}

std::string_view FirstLine(std::string_view text) {
  const std::size_t end = text.find('\n');
  std::string_view line = text.substr(0, end);
  if (end != std::string_view::npos && line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

// A count of the banner: a number of 0 or more, rounded half to even. Each stands or fails alone. A number beyond all
// counting is a count still, one that no memory holds.
std::optional<std::size_t> ParseCount(std::string_view text) {
  constexpr double kMost = 9007199254740992.0;  // beyond it a double cannot count
  const auto number = ParseNumber(text);
  if (!number || *number < 0) return std::nullopt;
  return static_cast<std::size_t>(std::min(RoundHalfEven(*number), kMost));
}

// Record count: the text up to the first blank. Variable count: between the first and the second one.
Banner ParseBanner(std::string_view banner, std::size_t& record_count, std::size_t& variable_count) {
  const std::size_t first_blank = banner.find(' ');
  if (first_blank == std::string_view::npos) return Banner::kNoBanner;
  std::size_t records = record_count;
  std::size_t variables = variable_count;
  const auto announced_records = ParseCount(banner.substr(0, first_blank));
  std::optional<std::size_t> announced_variables;
  Keep(records, announced_records);
  const std::size_t second_blank = banner.find(' ', first_blank + 1);
  if (second_blank != std::string_view::npos) {
    announced_variables = ParseCount(banner.substr(first_blank + 1, second_blank - first_blank - 1));
    Keep(variables, announced_variables);
  }
  if (!ShapeCanBeHeld(records, variables)) return Banner::kTooLarge;  // both counts stay as they were
  record_count = records;
  variable_count = variables;
  return announced_records && announced_variables ? Banner::kRead : Banner::kNoBanner;
}

LoadedText SplitLines(FileBytes bytes, std::size_t rows, std::size_t columns, Progress& progress) {
  std::size_t split = 0;
  return LoadedText(std::move(bytes), rows, columns, [&](std::size_t lines) {
    progress.ProgressStep(static_cast<double>(lines - split));
    split = lines;
  });
}

// From the banner on. Yields how the file fits its banner; a count that the banner lacks stays as the data have it.
LoadFit ReadContents(const DataSet& data, Platform& platform, FileBytes bytes, std::size_t selected_variables,
                     DataContents& contents) {
  const WaitCursor wait(platform);
  contents.DataBanner = std::string(FirstLine(bytes.text()));
  contents.RecordCount = data.RecordCount;
  contents.VariableCount = data.VariableCount;
  const Banner banner = ParseBanner(contents.DataBanner, contents.RecordCount, contents.VariableCount);

  Progress progress(platform);
  const std::size_t rows = contents.RecordCount + kFirstRecordRow;
  const bool within_limit = CellsOf(contents.RecordCount, contents.VariableCount) <= kEditLimit;
  const double shown = within_limit ? static_cast<double>(rows - 1) : static_cast<double>(kGridRecordsAboveLimit);
  progress.ProgressOpen(0, static_cast<double>(rows - 1) + shown, "Loading data file...", selected_variables);
  progress.ProgressStep(shown);
  LoadedText text = SplitLines(std::move(bytes), rows, contents.VariableCount, progress);
  const LoadFit fit = FitOf(text, banner, contents.RecordCount, contents.VariableCount);
  contents.matrix = DataMatrix(rows, contents.VariableCount, std::move(text));
  contents.ProjectNotes = NotesFromField(TextOf(contents.matrix.Cell(kNotesRow, 2)));
  contents.GridTitle = contents.DataFileTitle;
  return fit;
}

bool IsSameFile(const Path& one, const Path& other) {
  std::error_code none;
  return !one.empty() && std::filesystem::equivalent(one, other, none);
}

SeenFile Seen(const Path& path, const FileFacts& facts) { return {path, facts.size, facts.modified_exactly}; }

// Whether another program has written the file since the data were read from it or saved to it.
bool ChangedSinceSeen(const SeenFile& seen, const Path& path) {
  if (!IsSameFile(seen.path, path)) return false;
  const auto facts = FactsOfFile(path);
  return facts && (facts->size != seen.size || facts->modified_exactly != seen.modified_exactly);
}

void NoteChangedFile(Status& status, const Path& kept) {
  status.ShowNote("the file had changed since it was read; what stood there is kept as " +
                  FromUtf8(PathToUtf8(kept.filename())));
}

void NoteKeptSource(Status& status, const Path& kept) {
  status.ShowNote("the data that the file held before are kept as " + FromUtf8(PathToUtf8(kept.filename())));
}

// One variable has one field in a line, and the notes are the second one of the first line.
void NoteLostNotes(Status& status, std::size_t variables) {
  status.ShowNote("the project notes are not in the file: it has " +
                  std::string(variables == 0 ? "no variable" : "one variable"));
}

void SettleWritten(DataSet& data, Platform& platform, const SafeFileWriter& file, const Path& path,
                   std::size_t variables) {
  if (IsSameFile(data.MisfitFile, path)) data.MisfitFile.clear();
  if (IsSameFile(data.SourceFile, path)) data.SourceFile.clear();
  const auto facts = FactsOfFile(path);
  data.seen_file = facts ? Seen(path, *facts) : SeenFile();
  NoteWhatWasNotKept(file, platform);
  if (variables < 2 && !data.ProjectNotes.empty()) NoteLostNotes(platform, variables);
}

WriteResult WriteDataFile(DataSet& data, Platform& platform, const Path& path, std::size_t selected_variables) {
  SafeFileWriter file(path);
  if (file.result() != WriteResult::kWritten) return file.result();
  // What did not fit, what a sample has left out and what another program has written is not in the data: the file is
  // kept before the save replaces it.
  const bool over_source = IsSameFile(data.SourceFile, path);
  const bool over_misfit = IsSameFile(data.MisfitFile, path);
  const bool over_changed = ChangedSinceSeen(data.seen_file, path);
  const bool keep = over_source || over_misfit || over_changed;
  const auto kept = keep ? KeepAsFound(path) : std::nullopt;
  if (keep && !kept) return WriteResult::kRefused;
  const UsedRange used = TrimToUsedRange(data);
  const std::string banner = std::to_string(used.records) + " " + std::to_string(used.variables) + " Tessara data";
  StoreFirstRow(data, banner, NotesToField(data.ProjectNotes));

  Progress progress(platform);
  const std::size_t rows = used.records + kFirstRecordRow;
  progress.ProgressOpen(0, static_cast<double>(rows), "Saving data file...", selected_variables);
  const WaitCursor wait(platform);
  LineWriter lines(data, used.variables, file);
  for (std::size_t row = 0; row < rows; ++row) {
    progress.ProgressStep();
    lines.Write(row);
  }
  const WriteResult result = file.Commit();
  if (result != WriteResult::kWritten) return result;
  if (over_changed) {
    NoteChangedFile(platform, kept->path());
  } else if (over_source) {
    NoteKeptSource(platform, kept->path());
  }
  SettleWritten(data, platform, file, path, used.variables);
  return result;
}

WriteResult WriteAndSettle(DataSet& data, Platform& platform, const Path& path, std::size_t selected_variables) {
  const WriteResult result = WriteDataFile(data, platform, path, selected_variables);
  if (result == WriteResult::kWritten) MarkSaved(data);
  data.DataDirty = false;  // also when it has failed
  return result;
}

void ShowSaveError(Messages& messages, std::string_view advice) {
  messages.ShowMessage({"Error",
                        "There was an error creating the new file.  You may not have authorization to create a "
                        "new file on this system. " +
                            std::string(advice)});
}

// Whether the name ends in ".dcs", in any case of letters.
bool IsDataFileName(const Path& name) {
  std::string ending = PathToUtf8(name.extension());
  for (char& c : ending) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return ending == kDataFileEnding;
}

// Copies the data files of a folder over those of another one. False when one fails, or there is none.
bool CopyDataFiles(const Path& from, const Path& to) {
  const auto names = NamesInFolder(from);
  if (!names) return false;
  int copied = 0;
  bool failed = false;
  for (const Path& name : *names) {
    std::error_code ignored;
    if (!IsDataFileName(name) || std::filesystem::is_directory(from / name, ignored)) continue;
    if (CopyFileOver(from / name, to / name)) {
      ++copied;
    } else {
      failed = true;
    }
  }
  return !failed && copied > 0;
}

}  // namespace

bool HasPathOfItsOwn(const DataSet& data) {
  std::error_code ignored;
  return !data.DataFilePath.empty() && data.GridTitle != kUntitledGrid && !data.NamedAtTheStart && !data.PathOfText &&
         !std::filesystem::is_directory(data.DataFilePath, ignored);
}

void ShowSaveAsError(Messages& messages) {
  ShowSaveError(messages,
                "Try using 'Save As' to save the file to 'My Documents\\Tessara Data' or some other location where "
                "write access is allowed.");
}

std::string NotesToField(std::string_view notes) {
  // A bare line feed or a separator that got into the notes would break the line that holds them.
  std::string field = Replaced(Replaced(notes, kLineEnd, kNotesLineEnd), "\n", kNotesLineEnd);
  std::replace(field.begin(), field.end(), kFieldSeparator, ' ');
  return field;
}
std::string NotesFromField(std::string_view field) { return Replaced(field, kNotesLineEnd, kLineEnd); }

LoadOutcome LoadDataFile(DataSet& data, Platform& platform, const Path& path, FilePick pick,
                         std::size_t selected_variables) {
  const auto facts = FactsOfFile(path);
  auto bytes = facts ? ReadWholeFile(path) : std::nullopt;
  if (!bytes) return LoadOutcome::kUnreadable;
  const bool picked = pick == FilePick::kPicked;
  if (picked && facts->size == 0) {
    data.DataFilePath = path;
    data.PathOfText = false;
    data.DataFileSize = facts->size;
    data.DataFileModified = ShortDateTime(facts->modified);
    return LoadOutcome::kEmptyFile;
  }
  // The data that stand in memory go when the new ones are whole.
  DataContents contents{.matrix = {},
                        .DataFilePath = picked ? path : data.DataFilePath,
                        .LoadedFile = path,
                        .NamedAtTheStart = !picked,
                        .PathOfText = !picked && data.PathOfText,
                        .DataFileTitle = FromUtf8(PathToUtf8(picked ? path.filename() : path)),
                        .DataFileSize = facts->size,
                        .DataFileModified = ShortDateTime(facts->modified)};
  const LoadFit fit = ReadContents(data, platform, std::move(*bytes), selected_variables, contents);
  const std::string note = FitNote(fit);
  if (!fit.Fits()) contents.MisfitFile = path;
  contents.seen_file = Seen(path, *facts);
  ApplyChange(data, ReplaceData(std::move(contents), "Open"));
  if (!note.empty()) platform.ShowNote(note);
  return LoadOutcome::kLoaded;
}

SaveOutcome SaveDataFile(DataSet& data, Platform& platform, std::size_t selected_variables) {
  if (!HasPathOfItsOwn(data)) return SaveOutcome::kNoName;
  switch (WriteAndSettle(data, platform, data.DataFilePath, selected_variables)) {
    case WriteResult::kWritten:
      return SaveOutcome::kSaved;
    case WriteResult::kPathNotFound:
      return SaveOutcome::kFolderGone;
    case WriteResult::kRefused:
      break;
  }
  ShowSaveError(platform,
                "Try saving the file to 'My Documents\\Tessara Data' or some other location where write access is "
                "allowed.");
  return SaveOutcome::kFailed;
}

SaveOutcome SaveDataFileTo(DataSet& data, Platform& platform, const Path& path, std::size_t selected_variables) {
  if (WriteAndSettle(data, platform, path, selected_variables) != WriteResult::kWritten) {
    ShowSaveAsError(platform);
    return SaveOutcome::kFailed;
  }
  data.DataFilePath = path;
  data.NamedAtTheStart = false;
  data.PathOfText = false;
  data.GridTitle = FromUtf8(PathToUtf8(path.filename()));
  return SaveOutcome::kSaved;
}

void NewDataFile(DataSet& data) {
  DataContents contents = EmptyContents();
  contents.DataFileTitle = data.DataFileTitle;  // stays
  ApplyChange(data, ReplaceData(std::move(contents), "New"));
}

void RepairSampleFiles(Platform& platform) {
  const Answer answer =
      platform.ShowMessage({"Repair Practice Data Files",
                            "Click OK to replace practice files in the Tessara program folder with the original files.",
                            Buttons::kOkCancel, Tone::kQuestion});
  if (answer != Answer::kOk) return;
  const WaitCursor wait(platform);
  const Path program = platform.ProgramFolder();
  platform.EnterFolder(program);
  if (CopyDataFiles(program / kHelpFolder, program / kDataFolder)) return;
  platform.ShowMessage({"Repair Failed",
                        "An error occurred when copying the files. Please manually copy the data files from the Help "
                        "folder in the Tessara Suite program folder."});
}

}  // namespace tessara
