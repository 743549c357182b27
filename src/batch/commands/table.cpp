#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

#include "batch/commands/commands.h"
#include "batch/commands/procedure_line.h"
#include "batch/commands/table_page.h"
#include "batch/words/nearest_word.h"
#include "batch/words/script_line.h"
#include "presentation/tab_delimited.h"
#include "shell/table_operations.h"

// The summary table: what its first word names is done with the words behind it.

namespace tessara {
namespace {

constexpr OptionRow kOptions[] = {
    {"--counts", "", "categorical: a row of counts for each category", OptionValue::kNone},
    {"--percent", "", "categorical: a row of percents, and the interval", OptionValue::kNone},
    {"--count", "", "continuous: the number of cases", OptionValue::kNone},
    {"--mean", "", "continuous: the mean", OptionValue::kNone},
    {"--sum", "", "continuous: the sum", OptionValue::kNone},
    {"--sd", "", "continuous: the standard deviation", OptionValue::kNone},
    {"--se", "", "continuous: the standard error", OptionValue::kNone},
    {"--ci", "", "continuous: the 95 percent interval", OptionValue::kNone},
    {"--decimals", "N", "0 to 4 decimals, 1 without it", OptionValue::kNeeded},
    {"--header", "TEXT", "page: the line above; #date# and pg# stand for date and page number", OptionValue::kNeeded},
    {"--footer", "TEXT", "page: the line below", OptionValue::kNeeded},
    {"--header-align", "WHERE", "page: left, center or right", OptionValue::kNeeded},
    {"--footer-align", "WHERE", "page: left, center or right", OptionValue::kNeeded},
    {"--header-rule", "", "page: a line under the header", OptionValue::kNone},
    {"--footer-rule", "", "page: a line over the footer", OptionValue::kNone},
};

// The output format as the panel offers it; nothing when the word is none of 0 to 4.
std::optional<std::string> OutputFormat(std::string_view decimals) {
  if (decimals.size() != 1 || decimals[0] < '0' || decimals[0] > '4') return std::nullopt;
  const auto count = static_cast<std::size_t>(decimals[0] - '0');
  return count == 0 ? "0" : "0." + std::string(count, '0');
}

CommandResult AddToTable(Batch& batch, const CommandWords& words, TableData kind) {
  const auto decimals = words.Value("--decimals");
  const auto format = OutputFormat(decimals.value_or("1"));
  if (!format) return NotUnderstood("--decimals takes 0, 1, 2, 3 or 4, not " + Quoted(*decimals));
  return RunProcedure(batch, words, Procedure::kSummaryTables, [&](ProcedureOptions& options) {
    batch.session.panel.table_data = kind;
    options.summary_tables = {.counts = words.Has("--counts"),
                              .percent = words.Has("--percent"),
                              .count = words.Has("--count"),
                              .mean = words.Has("--mean"),
                              .sum = words.Has("--sum"),
                              .standard_deviation = words.Has("--sd"),
                              .standard_error = words.Has("--se"),
                              .interval = words.Has("--ci"),
                              .output_format = *format};
  });
}

CommandResult AddCategorical(Batch& batch, const CommandWords& words) {
  return AddToTable(batch, words, TableData::kCategorical);
}

CommandResult AddContinuous(Batch& batch, const CommandWords& words) {
  return AddToTable(batch, words, TableData::kContinuous);
}

CommandResult PrintTable(Batch& batch, const CommandWords&) {
  ConvertTableToTabDelimited(batch.session.table.grid, batch.session.output);
  return Done();
}

CommandResult ClearTable(Batch& batch, const CommandWords&) {
  EmptyWholeTable(batch.session);
  batch.session.output.OutputGridMode = false;
  return Done();
}

// What the first word may be.
struct TableWord {
  std::string_view name;
  std::string_view options;  // between blanks
  std::size_t most_words;
  std::string_view needed_word;  // empty for one that takes no words
  CommandResult (*run)(Batch& batch, const CommandWords& words);
};

constexpr TableWord kTableWords[] = {
    {"categorical", " --counts --percent --decimals ", kAnyNumber, "VAR", AddCategorical},
    {"continuous", " --count --mean --sum --sd --se --ci --decimals ", kAnyNumber, "VAR", AddContinuous},
    {"print", "", 0, {}, PrintTable},
    {"page", " --header --footer --header-align --footer-align --header-rule --footer-rule ", 0, {}, RunTablePage},
    {"width", "", 1, "NUMBER", RunTableWidth},
    {"clear", "", 0, {}, ClearTable},
};

CommandResult Run(Batch& batch, const CommandWords& words) {
  const std::string& first = words.words.front();
  const auto word = std::ranges::find(kTableWords, first, &TableWord::name);
  if (word == std::end(kTableWords)) {
    std::string names;
    for (const TableWord& known : kTableWords) names += (names.empty() ? "" : ", ") + Quoted(known.name);
    return NotUnderstood("unknown word " + Quoted(first) + "; there are " + names);
  }
  for (const GivenOption& option : words.options) {
    if (word->options.find(" " + std::string(option.name) + " ") != word->options.npos) continue;
    return NotUnderstood(std::string(option.name) + " does not go with " + Quoted(first));
  }
  CommandWords rest = words;
  rest.words.erase(rest.words.begin());
  if (rest.words.empty() && !word->needed_word.empty()) {
    return NotUnderstood(std::string(word->needed_word) + " is missing");
  }
  if (rest.words.size() > word->most_words) {
    return NotUnderstood(Quoted(rest.words[word->most_words]) + " is a word too many");
  }
  return word->run(batch, rest);
}

}  // namespace

constinit const CommandRow kTableCommand{
    .name = "table",
    .synopsis =
        "categorical|continuous|print|page|width|clear [VAR... [by VAR...]] [--counts] [--percent] [--count] [--mean] "
        "[--sum] [--sd] [--se] [--ci] [--decimals N] [--header TEXT] [--footer TEXT] [--header-align WHERE] "
        "[--footer-align WHERE] [--header-rule] [--footer-rule]",
    .summary = "build a summary table",
    .details =
        "\"table categorical VAR... by VAR...\" adds counts and percents of the categories of each\n"
        "variable ahead of \"by\" to the table, for all cases and for each category of those behind\n"
        "it; \"table continuous\" adds means and deviations. The table grows from line to line.\n"
        "\"table print\" writes it to the log as tab-delimited text, its last column twice. Only\n"
        "error messages of a table go to the log. \"table page\" prints its pages, with a form feed\n"
        "between them, and keeps header and footer for later lines; the log gets nothing from it.\n"
        "\"table width NUMBER\" makes all columns of figures equally wide, 100 for a character.\n"
        "\"table clear\" empties the table. While a table is the latest result, print, word and\n"
        "excel write it in the place of the log.\n",
    .example = "table categorical SURVIVED by CLASS --counts --percent",
    .options = kOptions,
    .most_words = kAnyNumber,
    .needed_word = "\"categorical\", \"continuous\", \"print\", \"page\", \"width\" or \"clear\"",
    .run = Run,
};

}  // namespace tessara
