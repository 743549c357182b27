#include "batch/batch_options.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <utility>

#include "batch/commands/commands.h"
#include "batch/words/script_line.h"
#include "platform/files.h"

namespace tessara {
namespace {

constexpr OptionRow kProgramOptions[] = {
    {"-s,--script", "FILE", "run the commands of FILE, one a line; \"-\" is standard input", OptionValue::kNeeded},
    {"-o,--output", "FILE", "write the Output Log to FILE, as with --bytes, instead of printing it",
     OptionValue::kNeeded},
    {"--bytes", "", "print exactly what the log holds: code page 1252, CR LF", OptionValue::kNone},
    {"--seed", "N", "seed for random sampling, a whole number from 0", OptionValue::kNeeded},
    {"--overwrite", "", "let -o and the commands replace files that they would not touch", OptionValue::kNone},
    {"--help", "COMMAND", "this page, or the page of COMMAND", OptionValue::kPossible},
    {"--version", "", "the version", OptionValue::kNone},
    {"--man", "", "the manual page, as a source of man", OptionValue::kNone},
    {"--completion", "", "a script that completes commands and options in bash", OptionValue::kNone},
};

// Whether a word that names no command is meant as a data file rather than as a mistyped command.
bool LooksLikeFile(const std::string& word) {
  constexpr std::string_view kEnding = ".dcs";
  return word.ends_with(kEnding) || word.find_first_of("/\\.") != std::string::npos ||
         (IsPossiblePath(word) && FactsOfFile(PathFromUtf8(word)));
}

// The options that may stand among the words of a command on the command line: its own and the program's. What both
// have, "--overwrite", is the program's there.
std::vector<OptionRow> RowsOf(const CommandRow& command) {
  std::vector<OptionRow> rows(std::begin(kProgramOptions), std::end(kProgramOptions));
  for (const OptionRow& row : command.options) {
    if (std::ranges::find(rows, row.names, &OptionRow::names) == rows.end()) rows.push_back(row);
  }
  return rows;
}

bool IsCommandName(std::string_view word) { return FindCommand(word) != nullptr; }

// Walks the command line. Each step that cannot understand its words leaves an error.
class CommandLineReader {
 public:
  explicit CommandLineReader(std::span<const std::string> arguments) : rest_(arguments.begin(), arguments.end()) {}

  BatchOptions Read() {
    TakeOptions();
    if (Going() && !IsCommandName(rest_.front())) {
      TakeDataFile();
      if (Going() && !options_ended_) TakeOptions();
    }
    if (Going()) TakeCommand();
    if (options_.error.empty()) Interpret();
    return std::move(options_);
  }

 private:
  bool Going() const { return options_.error.empty() && !rest_.empty(); }

  void TakeOptions() {
    if (rest_.empty()) return;
    CommandWords parsed = ParseWords(kProgramOptions, WordOrder::kLeading, rest_);
    if (!Collect(parsed)) return;
    rest_ = std::move(parsed.words);
    if (rest_.empty()) return;
    if (rest_.front() == "--") {
      options_ended_ = true;
      rest_.erase(rest_.begin());
    } else if (rest_.front().size() > 1 && rest_.front().starts_with('-')) {
      options_.error = "unknown option " + Quoted(rest_.front());  // neither a file nor a command, whatever it is
    }
  }

  void TakeDataFile() {
    if (!LooksLikeFile(rest_.front())) {
      options_.error = UnknownCommand(rest_.front()) + ", and there is no data file of that name";
      return;
    }
    options_.data_file = rest_.front();
    rest_.erase(rest_.begin());
  }

  void TakeCommand() {
    options_.command = FindCommand(rest_.front());
    if (!options_.command) {
      options_.error = UnknownCommand(rest_.front());
      return;
    }
    const std::span<const std::string> words(rest_);
    CommandWords parsed = ParseWords(RowsOf(*options_.command), WordOrder::kAnywhere, words.subspan(1));
    if (!parsed.error.empty()) parsed.error = rest_.front() + ": " + parsed.error;
    if (!Collect(parsed)) return;
    options_.words = std::move(parsed);
  }

  // Moves the program's options out of the parsed ones. False when there is an error.
  bool Collect(CommandWords& parsed) {
    options_.error = parsed.error;
    for (const OptionRow& row : kProgramOptions) {
      const std::string_view name = LongName(row);
      const auto found = std::ranges::find(parsed.options, name, &GivenOption::name);
      if (found == parsed.options.end()) continue;
      if (given_.Has(name)) options_.error = std::string(name) + " is given twice";
      given_.options.push_back(std::move(*found));
      parsed.options.erase(found);
    }
    return options_.error.empty();
  }

  void Interpret() {
    options_.script = given_.Value("--script");
    options_.output = given_.Value("--output");
    options_.bytes = given_.Has("--bytes");
    options_.overwrite = given_.Has("--overwrite");
    options_.version = given_.Has("--version");
    options_.man = given_.Has("--man");
    options_.completion = given_.Has("--completion");
    options_.help = given_.Has("--help");
    if (const auto seed = given_.Value("--seed")) ReadSeed(*seed);
    if (options_.help) FindHelpCommand(*given_.Value("--help"));
    const bool page = options_.version || options_.man || options_.completion || options_.help;
    const bool something = page || options_.script || options_.data_file || options_.command;
    if (!something && options_.error.empty()) {
      options_.error = "nothing to do: give a data file, a command or a script (see tessara-cli --help)";
    }
  }

  void ReadSeed(const std::string& text) {
    std::uint64_t seed = 0;
    const char* end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, seed);
    if (read.ec != std::errc() || read.ptr != end) {
      options_.error = "--seed takes a whole number from 0, not " + Quoted(text);
    } else {
      options_.seed = seed;
    }
  }

  void FindHelpCommand(const std::string& name) {
    options_.help_command = options_.command;
    if (name.empty()) return;
    options_.help_command = FindCommand(name);
    if (!options_.help_command) options_.error = UnknownCommand(name);
  }

  std::vector<std::string> rest_;
  bool options_ended_ = false;
  CommandWords given_;  // the program's options
  BatchOptions options_;
};

}  // namespace

std::span<const OptionRow> ProgramOptions() { return kProgramOptions; }

BatchOptions ReadCommandLine(std::span<const std::string> arguments) { return CommandLineReader(arguments).Read(); }

}  // namespace tessara
