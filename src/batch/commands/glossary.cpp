#include "reference/glossary.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "batch/commands/commands.h"
#include "batch/commands/open_save.h"
#include "batch/words/nearest_word.h"
#include "batch/words/script_line.h"
#include "numerics/code_page.h"
#include "platform/files.h"
#include "reference/glossary_exchange.h"
#include "reference/glossary_file.h"

// The notes of a glossary file. Each line opens the file anew, so that the state of a run has no part in it.

namespace tessara {
namespace {

constexpr OptionRow kOptions[] = {
    {"--overwrite", "", "also over a file that this run works on, a data file, or one that is no glossary",
     OptionValue::kNone},
};

// A line of the command, its words taken apart.
struct GlossaryLine {
  Batch& batch;
  const CommandWords& words;
  Path path;
  Glossary glossary = {};

  const std::string& Word(std::size_t place) const { return words.words[place]; }
  Platform& platform() const { return batch.platform; }
  bool overwrite() const { return words.Has("--overwrite") || batch.files.overwrite; }
};

std::string NameOf(const Path& path) { return Quoted(PathToUtf8(path)); }

bool CanBeRead(const Path& path) { return IsRegularFile(path) && ShapeOfGlossary(path); }

// What is called a glossary is one, however damaged; a file of another name has to look like one.
bool IsGlossary(const Path& path) {
  const std::string ending = PathToUtf8(path.extension());
  return ending == ".lx1" || ending == ".LX1" || LooksLikeGlossary(path);
}

// Nothing when the file is at work, and what is wrong when it cannot be. What only reads leaves the file as it is.
CommandResult OpenForReading(GlossaryLine& line) {
  if (!CanBeRead(line.path)) return NotUnderstood(NameOf(line.path) + " cannot be opened");
  if (!IsGlossary(line.path) && !line.overwrite()) return NotUnderstood(NameOf(line.path) + " is no glossary");
  if (!TakeGlossaryFile(line.glossary, line.path, line.platform())) {
    return NotUnderstood(NameOf(line.path) + " cannot be opened");
  }
  return Done();
}

// Why the glossary must not be written; empty when it may.
std::string WhyNotWritten(const GlossaryLine& line) {
  if (line.overwrite()) return {};
  if (line.batch.files.GuardsOutput(line.path)) {
    return NameOf(line.path) + " is the file of --output; --overwrite writes over it";
  }
  if (!FactsOfFile(line.path)) return {};
  if (!CanBeRead(line.path)) return NameOf(line.path) + " cannot be opened";
  if (!IsGlossary(line.path)) {
    return NameOf(line.path) + " is no glossary; --overwrite writes over it";
  }
  return {};
}

void PrintList(const GlossaryLine& line) {
  std::string text;
  for (const GlossarySubject& subject : line.glossary.List) {
    std::string shown = subject.subject;
    std::ranges::replace_if(
        shown, [](char c) { return c == '\t' || c == '\r' || c == '\n'; }, ' ');
    text += std::to_string(subject.record) + "\t" + shown + "\r\n";
  }
  line.batch.stream.PrintText(text);
}

// Shows the record that a word names.
CommandResult SelectRecord(GlossaryLine& line) {
  const std::string& word = line.Word(2);
  int number = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
  if (error != std::errc() || end != word.data() + word.size()) {
    return NotUnderstood(Quoted(word) + " is not the number of a record");
  }
  if (number < kFirstNote || number > line.glossary.LastRecord) {
    return NotUnderstood(NameOf(line.path) + " has no record " + word);
  }
  if (ShowRecord(line.glossary, number, line.platform())) return Done();
  return {BatchStatus::kRefused, {}};
}

CommandResult RunList(GlossaryLine& line) {
  CommandResult opened = OpenForReading(line);
  if (opened.status == BatchStatus::kAllWell) PrintList(line);
  return opened;
}

CommandResult RunSearch(GlossaryLine& line) {
  CommandResult opened = OpenForReading(line);
  if (opened.status != BatchStatus::kAllWell) return opened;
  if (SearchGlossary(line.glossary, HeldText(line.Word(2)), line.platform()) > 0) PrintList(line);
  return Done();
}

CommandResult RunShow(GlossaryLine& line) {
  CommandResult opened = OpenForReading(line);
  if (opened.status != BatchStatus::kAllWell) return opened;
  CommandResult selected = SelectRecord(line);
  if (selected.status != BatchStatus::kAllWell) return selected;
  line.batch.stream.PrintText(line.glossary.Text1 + "\r\n\r\n" + line.glossary.Text2 + "\r\n");
  return Done();
}

CommandResult RunAdd(GlossaryLine& line) {
  if (std::string refusal = WhyNotWritten(line); !refusal.empty()) return NotUnderstood(std::move(refusal));
  const std::string subject = HeldText(line.Word(2));
  const std::string text = WithBoxLineEnds(HeldText(line.Word(3)));
  if (FactsOfFile(line.path)) {
    if (!OpenGlossary(line.glossary, line.path, line.platform())) return Done();
  } else {
    line.glossary.GlossaryFile = line.path;
  }
  if (!AddNote(line.glossary, line.platform())) return Done();
  if (subject.size() > kMostSubject || text.size() > kMostNote) {
    line.platform().ShowNote("the note was cut to " + std::to_string(kMostSubject) + " characters of subject and " +
                             std::to_string(kMostNote) + " of text");
  }
  EditNote(line.glossary, subject, text);
  SaveNote(line.glossary, line.platform());
  return Done();
}

CommandResult RunDelete(GlossaryLine& line) {
  CommandResult opened = OpenForReading(line);
  if (opened.status != BatchStatus::kAllWell) return opened;
  if (std::string refusal = WhyNotWritten(line); !refusal.empty()) return NotUnderstood(std::move(refusal));
  CommandResult selected = SelectRecord(line);
  if (selected.status == BatchStatus::kAllWell) DeleteNote(line.glossary, line.platform());
  return selected;
}

// The other file of a line, a text.
std::optional<Path> TextPath(const GlossaryLine& line) {
  if (!IsPossiblePath(line.Word(2))) return std::nullopt;
  return PathFromUtf8(line.Word(2));
}

CommandResult RunImport(GlossaryLine& line) {
  const auto text = TextPath(line);
  if (!text || !IsRegularFile(*text)) return NotUnderstood(Quoted(line.Word(2)) + " cannot be opened");
  line.batch.files.AddInput(*text);
  if (IsSameFile(*text, line.path)) return NotUnderstood("the text and the glossary are the same file");
  if (std::string refusal = WhyNotWritten(line); !refusal.empty()) return NotUnderstood(std::move(refusal));
  if (ImportGlossary(line.glossary, *text, line.path, line.platform()) == ImportedGlossary::kNotWritten) {
    line.platform().ShowMessage({"Error!", FromUtf8(PathToUtf8(line.path.filename())) + " could not be written."});
  }
  return Done();
}

CommandResult RunExport(GlossaryLine& line) {
  CommandResult opened = OpenForReading(line);
  if (opened.status != BatchStatus::kAllWell) return opened;
  const auto text = TextPath(line);
  if (!text) return NotUnderstood(Quoted(line.Word(2)) + " is not a path");
  std::string refusal = WhyNotExportedTo(line.batch, *text, line.overwrite());
  if (!refusal.empty()) return NotUnderstood(std::move(refusal));
  const auto there = FactsOfFile(*text);
  if (!line.overwrite() && there && there->size > 0 && IsGlossary(*text)) {
    return NotUnderstood(NameOf(*text) + " is a glossary itself; --overwrite writes over it");
  }
  ExportGlossary(line.glossary, *text, line.platform());
  return Done();
}

// What is done with a glossary, and the words that it needs.
struct GlossaryVerb {
  std::string_view name;
  std::vector<std::string_view> needed;
  CommandResult (*run)(GlossaryLine& line);
};

const std::vector<GlossaryVerb>& Verbs() {
  static const std::vector<GlossaryVerb> verbs = {
      {"list", {}, RunList},
      {"search", {"TEXT"}, RunSearch},
      {"show", {"N"}, RunShow},
      {"add", {"SUBJECT", "TEXT"}, RunAdd},
      {"delete", {"N"}, RunDelete},
      {"import", {"TEXTFILE"}, RunImport},
      {"export", {"TEXTFILE"}, RunExport},
  };
  return verbs;
}

std::string UnknownVerb(std::string_view word) {
  std::vector<std::string_view> names;
  for (const GlossaryVerb& verb : Verbs()) names.push_back(verb.name);
  return Quoted(word) + " is nothing that can be done with a glossary; the nearest is " +
         Quoted(NearestWord(word, names));
}

CommandResult Run(Batch& batch, const CommandWords& words) {
  if (!IsPossiblePath(words.words[0])) return NotUnderstood(Quoted(words.words[0]) + " is not a path");
  if (words.words.size() < 2) return NotUnderstood("list, search, show, add, delete, import or export is missing");
  const auto verb = std::ranges::find(Verbs(), words.words[1], &GlossaryVerb::name);
  if (verb == Verbs().end()) return NotUnderstood(UnknownVerb(words.words[1]));
  const std::size_t given = words.words.size() - 2;
  if (given < verb->needed.size()) return NotUnderstood(std::string(verb->needed[given]) + " is missing");
  if (given > verb->needed.size()) {
    return NotUnderstood(Quoted(words.words[verb->needed.size() + 2]) + " is a word too many");
  }
  GlossaryLine line{batch, words, PathFromUtf8(words.words[0])};
  batch.files.AddInput(line.path);  // the log and other texts do not replace it
  return verb->run(line);
}

}  // namespace

constinit const CommandRow kGlossaryCommand{
    .name = "glossary",
    .synopsis = "PATH list|search TEXT|show N|add SUBJECT TEXT|delete N|import TEXTFILE|export TEXTFILE [--overwrite]",
    .summary = "read and write the notes of a glossary",
    .details =
        "Works on the glossary file PATH. list prints the number of each record and its subject,\n"
        "sorted by subject; search those whose subject or text holds TEXT, letter for letter, where\n"
        "a blank counts at both ends of each. show prints the subject of record N, an empty line and\n"
        "the text. add appends a note, and delete takes record N out, so that those behind it move\n"
        "up. import makes a glossary of a text with a note a line, subject and text with a tab\n"
        "between them; export writes such a text, a line end within a note as two blanks. add and\n"
        "import create PATH. A glossary whose place an import takes is kept beside it, its name\n"
        "followed by (as found). What is no glossary, and what export would replace of glossaries, of\n"
        "data or of the run's own files, is refused without --overwrite. The log gets nothing.\n",
    .example = "glossary terms.lx1 add Mean \"The sum of all values by their number.\"",
    .options = kOptions,
    .most_words = 4,
    .needed_word = "PATH",
    .run = Run,
};

}  // namespace tessara
