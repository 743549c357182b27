#include <cctype>
#include <optional>
#include <string>
#include <string_view>

#include "batch/commands/commands.h"
#include "batch/commands/open_save.h"
#include "batch/words/script_line.h"
#include "data/exchange/export.h"
#include "platform/files.h"

namespace tessara {
namespace {

constexpr OptionRow kImportOptions[] = {
    {"--delimiter", "tab|comma|space|TEXT", "what stands between the fields", OptionValue::kNeeded},
    {"--header", "yes|no|auto", "whether the first line holds the names", OptionValue::kNeeded},
};

constexpr OptionRow kExportOptions[] = {
    {"--delimiter", "comma|tab", "what stands between the fields", OptionValue::kNeeded},
    {"--overwrite", "", "also over a file that this run works on, or any data file", OptionValue::kNone},
};

bool IsCommaFile(const Path& path) {
  std::string ending = PathToUtf8(path.extension());
  for (char& c : ending) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return ending == ".csv";
}

// Without the option the delimiter follows the ending of the name.
void SetDelimiter(DelimitForm& form, const Path& path, const std::optional<std::string>& word) {
  if (!word) {
    form.delimiter = IsCommaFile(path) ? DelimiterOption::kComma : DelimiterOption::kTab;
  } else if (*word == "tab") {
    form.delimiter = DelimiterOption::kTab;
  } else if (*word == "comma") {
    form.delimiter = DelimiterOption::kComma;
  } else if (*word == "space") {
    form.delimiter = DelimiterOption::kSpace;
  } else {
    form.delimiter = DelimiterOption::kOther;
    form.Text2 = HeldText(*word);
  }
}

// What is wrong with the words of an import; empty when all is well.
std::string WrongImport(const CommandWords& words) {
  if (words.Value("--delimiter") == "") return "the delimiter is empty";
  const auto header = words.Value("--header");
  if (header && *header != "yes" && *header != "no" && *header != "auto") {
    return Quoted(*header) + " is none of yes, no and auto";
  }
  return {};
}

CommandResult RunImport(Batch& batch, const CommandWords& words) {
  const std::string refusal = Quoted(words.words[0]) + " cannot be opened";
  if (const std::string wrong = WrongImport(words); !wrong.empty()) return NotUnderstood(wrong);
  if (!IsPossiblePath(words.words[0])) return NotUnderstood(refusal);
  const Path path = PathFromUtf8(words.words[0]);
  batch.files.AddInput(path);  // from here on the log does not replace it, also when it is refused below
  if (batch.files.GuardsOutput(path)) {
    return NotUnderstood(Quoted(words.words[0]) + " is the file of --output; --overwrite writes over it");
  }
  DelimitForm& form = batch.session.delimit;
  OpenDelimitForm(form);
  if (!TakeImportFile(form, batch.session.data, path)) return NotUnderstood(refusal);
  SetDelimiter(form, path, words.Value("--delimiter"));
  if (const auto header = words.Value("--header"); header && *header != "auto") form.Check1 = *header == "yes";
  ImportData(batch.session);
  return Done();
}

CommandResult RunExport(Batch& batch, const CommandWords& words) {
  const std::string& name = words.words[0];
  if (!IsPossiblePath(name)) return NotUnderstood(Quoted(name) + " is not a path");
  const std::string delimiter = words.Value("--delimiter").value_or("comma");
  if (delimiter != "comma" && delimiter != "tab") return NotUnderstood(Quoted(delimiter) + " is neither comma nor tab");
  const Path path = PathFromUtf8(name);
  const std::string refusal = WhyNotExportedTo(batch, path, words.Has("--overwrite"));
  if (!refusal.empty()) return NotUnderstood(refusal);
  ShowExportReminder(batch.platform);
  ExportData(batch.session, path, delimiter == "tab" ? '\t' : ',');
  return Done();
}

}  // namespace

constinit const CommandRow kImportCommand{
    .name = "import",
    .synopsis = "PATH [--delimiter tab|comma|space|TEXT] [--header yes|no|auto]",
    .summary = "read delimited text",
    .details =
        "Reads the delimited text PATH in the place of the data, whether they were saved or not.\n"
        "The fields of a line stand between delimiters; without the option the delimiter is a comma\n"
        "for a name that ends in .csv, else a tab. The first line holds the names of the variables,\n"
        "unless it starts with a digit or the option --header says otherwise.\n"
        "Quotes have no meaning. Commas that are not the delimiter, \"$\" and \"%\" are taken out, and\n"
        "blanks around a line are; with the delimiter space, several blanks are one. Lines have as\n"
        "many fields as the first one: what is missing is empty, and surplus fields are dropped.\n"
        "The data have no file of their own then: save needs a PATH.\n",
    .example = "import results.csv",
    .options = kImportOptions,
    .most_words = 1,
    .needed_word = "PATH",
    .run = RunImport,
};

constinit const CommandRow kExportCommand{
    .name = "export",
    .synopsis = "PATH [--delimiter comma|tab] [--overwrite]",
    .summary = "write the data as delimited text",
    .details =
        "Writes the names of the variables and all records to PATH, a line each, with commas or tabs\n"
        "between the cells and without quotes. Labels, missing values and notes are not exported.\n"
        "The script, the files that the run works on, the file of the program's option --output and\n"
        "all data files are refused without --overwrite.\n",
    .example = "export cleaned.csv",
    .options = kExportOptions,
    .most_words = 1,
    .needed_word = "PATH",
    .run = RunExport,
};

}  // namespace tessara
