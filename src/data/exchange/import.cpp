#include "data/exchange/import.h"

#include <algorithm>
#include <new>
#include <string>
#include <system_error>
#include <utility>

#include "data/change_door.h"
#include "data/exchange/delimited_lines.h"
#include "data/field_ends.h"
#include "data/progress.h"
#include "numerics/code_page.h"
#include "numerics/dates.h"
#include "platform/files.h"

namespace tessara {
namespace {

// The text of an import, and what it is known by from here on.
struct ImportedText {
  FileBytes bytes;
  DataFileIdentity identity;
};

// "Temp2.txt" holds the clipboard's bytes, which are the code page's already.
std::optional<ImportedText> ReadPaste(const DelimitForm& form, const DataSet& data, Platform& platform) {
  const Path folder = platform.DocumentsFolder() / "Tessara Data";
  std::error_code ignored;
  std::filesystem::create_directories(folder, ignored);
  const Path path = folder / "Temp2.txt";
  if (WriteWholeFile(path, form.pasted) != WriteResult::kWritten) return std::nullopt;
  const auto facts = FactsOfFile(path);
  auto bytes = facts ? ReadWholeFile(path) : std::nullopt;
  if (!bytes) return std::nullopt;
  return ImportedText{
      std::move(*bytes),
      {data.DataFilePath, data.PathOfText, FromUtf8(PathToUtf8(path)), facts->size, ShortDateTime(facts->modified)}};
}

std::optional<ImportedText> ReadFile(const DelimitForm& form, const DataSet& data) {
  auto bytes = ReadWholeFile(form.file);
  if (!bytes) return std::nullopt;
  ConvertTextFile(*bytes);
  return ImportedText{std::move(*bytes),
                      {data.DataFilePath, true, data.DataFileTitle, data.DataFileSize, data.DataFileModified}};
}

std::size_t CountVariables(std::string_view first_line, const std::string& delimiter) {
  std::string line(first_line);
  const bool is_delimiter = delimiter.size() == 1 && delimiter[0] == kFieldSeparator;
  if (!is_delimiter) std::replace(line.begin(), line.end(), kFieldSeparator, ' ');
  return CountDelimiters(SquashBlanks(line), delimiter) + 1;
}

LoadedText SplitLines(FileBytes bytes, const std::string& delimiter, const DataContents& contents, std::size_t lines,
                      std::size_t first_row, Progress& progress) {
  // One half of the way is the cleaning, the other the splitting.
  const double half = static_cast<double>(lines) / 2;
  const double size = static_cast<double>(bytes.size());
  CleanLines(bytes, delimiter,
             [&](std::size_t cleaned) { progress.ProgressStep(half * static_cast<double>(cleaned) / size); });
  std::size_t split = 0;
  LoadedText text(std::move(bytes), lines, contents.VariableCount, [&](std::size_t done) {
    progress.ProgressStep(static_cast<double>(done - split) / 2);
    split = done;
  });
  text.SetFirstRow(first_row);
  return text;
}

// Reads the text into contents whose counts are known.
void ReadMatrix(ImportedText& text, const std::string& delimiter, bool has_names, DataContents& contents,
                Progress& progress) {
  const std::size_t lines = contents.RecordCount + (has_names ? 1 : 0);
  const std::size_t first_row = has_names ? kVariableNameRow : kFirstRecordRow;
  // Without names there is one row more than records and dictionary need.
  const std::size_t rows = contents.RecordCount + kFirstRecordRow + (has_names ? 0 : 1);
  contents.DataBanner = std::string(FirstTextLine(text.bytes.text()));
  contents.matrix = DataMatrix(rows, contents.VariableCount,
                               SplitLines(std::move(text.bytes), delimiter, contents, lines, first_row, progress));
  for (std::size_t column = 1; !has_names && column <= contents.VariableCount; ++column) {
    contents.matrix.SetText(kVariableNameRow, column, "V" + std::to_string(column));
  }
}

void TakeIdentity(DataSet& data, DataFileIdentity identity) noexcept {
  data.DataFilePath = std::move(identity.DataFilePath);
  data.PathOfText = identity.PathOfText;
  data.DataFileTitle = std::move(identity.DataFileTitle);
  data.DataFileSize = identity.DataFileSize;
  data.DataFileModified = std::move(identity.DataFileModified);
}

// The way back leads to the data as they were known before the text was chosen.
void Replace(DataSet& data, DataContents contents, const DataFileIdentity* known_before) {
  DataChange change = ReplaceData(std::move(contents), "Import Data");
  change.flag = ChangedFlag::kKept;
  DataFileIdentity chosen = IdentityOf(data);
  TakeIdentity(data, known_before ? *known_before : chosen);
  try {
    ApplyChange(data, std::move(change));
  } catch (...) {
    TakeIdentity(data, std::move(chosen));
    throw;
  }
}

void ShowImportError(Messages& messages) {
  messages.ShowMessage(
      {"Error",
       "There was an error processing the import.  There are several potential causes for this error.  To avoid this "
       "error, paste the data into a spreadsheet, save as a tab delimited file, and use the tab delimited import "
       "option."});
}

}  // namespace

std::optional<ImportOutcome> RefuseImport(const DelimitForm& form, Messages& messages) {
  if (form.first_lines.empty()) {
    messages.ShowMessage({"Import Aborted!", "There are no data to import."});
    return ImportOutcome::kNothing;
  }
  if (ImportDelimiter(form).empty()) return ImportOutcome::kNoDelimiter;
  return std::nullopt;
}

ImportOutcome ImportText(DelimitForm& form, DataSet& data, Platform& platform, std::size_t selected_variables) {
  const WaitCursor wait(platform);
  auto text = form.PasteImport ? ReadPaste(form, data, platform) : ReadFile(form, data);
  if (!text) {
    data.GridTitle = kUntitledGrid;
    ShowImportError(platform);
    return ImportOutcome::kFailed;
  }
  const std::string delimiter = ImportDelimiter(form);
  const bool has_names = form.Check1;
  const std::size_t lines = CountTextLines(text->bytes.text());
  DataContents contents{.matrix = {},
                        .RecordCount = lines - (has_names && lines > 0 ? 1 : 0),
                        .VariableCount = CountVariables(FirstTextLine(text->bytes.text()), delimiter),
                        .DataFilePath = text->identity.DataFilePath,
                        .PathOfText = text->identity.PathOfText,
                        .DataFileTitle = text->identity.DataFileTitle,
                        .GridTitle = std::string(kUntitledGrid),
                        .DataFileSize = text->identity.DataFileSize,
                        .DataFileModified = text->identity.DataFileModified};
  if (contents.RecordCount == 0) {
    if (form.PasteImport) TakeIdentity(data, text->identity);
    platform.ShowMessage({"Error!", "No data found."});
    return ImportOutcome::kNoData;
  }
  if (!ShapeCanBeHeld(contents.RecordCount, contents.VariableCount)) throw std::bad_alloc();
  Progress progress(platform);
  progress.ProgressOpen(0, static_cast<double>(lines), "Importing data...", selected_variables);
  ReadMatrix(*text, delimiter, has_names, contents, progress);
  Replace(data, std::move(contents), KnownBefore(form, data));
  form.known_before.reset();
  form.PasteImport = false;
  form.pasted = {};
  return ImportOutcome::kImported;
}

}  // namespace tessara
