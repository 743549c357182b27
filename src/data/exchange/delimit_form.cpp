#include "data/exchange/delimit_form.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "data/exchange/delimited_lines.h"
#include "numerics/code_page.h"
#include "numerics/dates.h"
#include "numerics/number_text.h"
#include "platform/files.h"

namespace tessara {
namespace {

constexpr std::size_t kStartOfFile = std::size_t{1} << 16;  // bytes that are read for the preview
constexpr std::string_view kLineEnd = "\r\n";

// Joined by CR LF; empty when nothing stands in any of them.
std::string FirstLines(std::string_view text) {
  std::string joined;
  bool something = false;
  for (std::size_t line = 0; line < kPreviewLines && !text.empty(); ++line) {
    const std::string_view first = FirstTextLine(text);
    if (line > 0) joined += kLineEnd;
    joined += first;
    something = something || !first.empty();
    const std::size_t end = text.find('\n');
    text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
  }
  return something ? joined : std::string();
}

// The start of a text file in the code page. A character that the cut has split is left out.
std::string ConvertStart(std::string start) {
  constexpr unsigned char kLead = 0xC0;
  const auto byte_at = [&](std::size_t at) { return static_cast<unsigned char>(start[at]); };
  for (std::size_t back = 1; back <= std::min<std::size_t>(3, start.size()); ++back) {
    const std::size_t at = start.size() - back;
    if (byte_at(at) < 0x80) break;
    if (byte_at(at) < kLead) continue;
    std::string whole = start.substr(0, at);
    if (IsUtf8(whole) && !IsUtf8(start)) start = std::move(whole);
    break;
  }
  return FromTextFile(start);
}

void ShowBox(Messages& messages, const char* text) { messages.ShowMessage({"Error", text}); }

// What both sources of an import have in common: a first line that does not start with a number holds names.
void TakeFirstLines(DelimitForm& form, std::string_view text) {
  form.first_lines = FirstLines(text);
  form.Check1 = !IsNumeric(text.substr(0, 1));
}

}  // namespace

void OpenDelimitForm(DelimitForm& form) {
  DelimitForm opened;
  opened.known_before = std::move(form.known_before);
  opened.chosen = std::move(form.chosen);
  form = std::move(opened);
}

DataFileIdentity IdentityOf(const DataSet& data) {
  return {data.DataFilePath, data.PathOfText, data.DataFileTitle, data.DataFileSize, data.DataFileModified};
}

const DataFileIdentity* KnownBefore(const DelimitForm& form, const DataSet& data) {
  const bool stands = form.known_before && data.PathOfText && data.DataFilePath == form.chosen;
  return stands ? &*form.known_before : nullptr;
}

NextStep ImportNext(DelimitForm& form, Messages& messages) {
  if (!form.import_option) {
    ShowBox(messages, "You must select an import option to continue");
    return NextStep::kStay;
  }
  if (*form.import_option == ImportOption::kPaste) return NextStep::kPaste;
  form.delimiter = *form.import_option == ImportOption::kCommaFile ? DelimiterOption::kComma : DelimiterOption::kTab;
  return NextStep::kAskFile;
}

std::optional<char> ExportNext(const DelimitForm& form, Messages& messages) {
  if (!form.export_option) {
    ShowBox(messages, "You must select an export option to continue");
    return std::nullopt;
  }
  switch (*form.export_option) {
    case ExportOption::kCommaFile:
      return ',';
    case ExportOption::kTabFile:
      return '\t';
    case ExportOption::kSpreadsheet:
      break;
  }
  return std::nullopt;
}

void TakePaste(DelimitForm& form, std::string text) {
  form.PasteImport = true;
  form.file.clear();
  form.pasted = std::move(text);
  form.delimiter = DelimiterOption::kTab;
  TakeFirstLines(form, form.pasted);
}

bool TakeImportFile(DelimitForm& form, DataSet& data, const Path& path) {
  const auto facts = FactsOfFile(path);
  auto start = facts ? ReadStartOfFile(path, kStartOfFile) : std::nullopt;
  if (!start) return false;
  const std::string text = start->size() < facts->size ? ConvertStart(std::move(*start)) : FromTextFile(*start);
  TakeFirstLines(form, text);
  form.PasteImport = false;
  form.pasted.clear();
  form.file = path;
  if (!KnownBefore(form, data)) form.known_before = IdentityOf(data);
  form.chosen = path;
  data.DataFilePath = path;
  data.PathOfText = true;
  data.DataFileSize = facts->size;
  data.DataFileModified = ShortDateTime(facts->modified);
  data.DataFileTitle = FromUtf8(PathToUtf8(path.filename()));
  return true;
}

void ShowCannotOpen(Messages& messages) {
  messages.ShowMessage({"Unable to open file", "Please make sure the file isn't currently in use by another program."});
}

std::string ImportDelimiter(const DelimitForm& form) {
  if (!form.delimiter) return {};
  switch (*form.delimiter) {
    case DelimiterOption::kTab:
      return "\t";
    case DelimiterOption::kComma:
      return ",";
    case DelimiterOption::kSpace:
      return " ";
    case DelimiterOption::kOther:
      break;
  }
  return form.Text2;
}

std::string PreviewText(const DelimitForm& form) {
  std::string text = form.first_lines.substr(0, kPreviewLength);
  const std::string delimiter = ImportDelimiter(form);
  if (delimiter.empty()) return text;
  text = SquashBlanks(text);
  std::string shown;
  for (std::string_view rest = text;;) {
    const std::size_t at = rest.find(delimiter);
    shown += rest.substr(0, at);
    if (at == std::string_view::npos) return shown;
    shown += '\t';
    rest.remove_prefix(at + delimiter.size());
  }
}

void RefuseEnter(DelimitForm& form, Messages& messages) {
  ShowBox(messages, "An invalid character was entered.");
  form.Text2.clear();
}

}  // namespace tessara
