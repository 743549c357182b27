#pragma once

#include <optional>
#include <string>

#include "data/data_set.h"
#include "platform/platform.h"

// The inputs of the form "Data File Format", by which delimited text comes in and goes out, and the steps of its import
// page.

namespace tessara {

// In the order of the options on their pages.
enum class ImportOption { kPaste, kTabFile, kCommaFile, kOtherFile };  // Option5
enum class ExportOption { kSpreadsheet, kCommaFile, kTabFile };        // Option6
enum class DelimiterOption { kTab, kComma, kSpace, kOther };           // Option1, Option2, Option4, Option3

inline constexpr std::size_t kPreviewLength = 1000;  // characters
inline constexpr std::size_t kPreviewLines = 5;

// What the data set knows of the file that it came from.
struct DataFileIdentity {
  Path DataFilePath;
  bool PathOfText = false;
  std::string DataFileTitle;
  std::optional<std::uint64_t> DataFileSize;
  std::string DataFileModified;
};

struct DelimitForm {
  std::optional<ImportOption> import_option;
  std::optional<ExportOption> export_option;
  std::optional<DelimiterOption> delimiter;
  std::string Text2;  // the other delimiter
  bool Check1 = false;
  bool PasteImport = false;
  Path file;                // that is imported, unless it is a paste
  std::string pasted;       // the text of the clipboard
  std::string first_lines;  // the first five lines joined by CR LF, or their beginning where they are very long
  // What the data were known by before a text file was chosen; set while that file is not imported.
  std::optional<DataFileIdentity> known_before;
  Path chosen;  // that file
};

// The form as it opens: no page has an option selected.
void OpenDelimitForm(DelimitForm& form);

enum class NextStep { kStay, kPaste, kAskFile };

// The button "Next" of the import page: what the chosen option asks for. kStay: none is chosen, a box has said so.
NextStep ImportNext(DelimitForm& form, Messages& messages);
// The same of the export page: the delimiter; nothing when no option is chosen, or one that is not for text.
std::optional<char> ExportNext(const DelimitForm& form, Messages& messages);

// Takes the text of the clipboard.
void TakePaste(DelimitForm& form, std::string text);
// Takes a file: its path, size, time and title become those of the data set, whose cells stay, and its first lines are
// read. False, and all stays, when it cannot be opened.
bool TakeImportFile(DelimitForm& form, DataSet& data, const Path& path);
// The box for a file that cannot be opened.
void ShowCannotOpen(Messages& messages);

// What the data were known by before the file that has been chosen, and not imported, took its place; nullptr when
// there is no such file.
const DataFileIdentity* KnownBefore(const DelimitForm& form, const DataSet& data);
DataFileIdentity IdentityOf(const DataSet& data);

// Nothing is selected, or the other delimiter is empty: the empty text.
std::string ImportDelimiter(const DelimitForm& form);
// What the box Text1 shows: the first characters of the first lines, blanks squashed, each delimiter as a tab.
std::string PreviewText(const DelimitForm& form);

// The Enter key in Text2.
void RefuseEnter(DelimitForm& form, Messages& messages);

}  // namespace tessara
