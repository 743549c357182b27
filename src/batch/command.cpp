#include "batch/command.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <utility>
#include <vector>

#include "batch/script_line.h"
#include "presentation/output_log.h"

namespace tessara {
namespace {

constexpr std::size_t kAnyNumber = static_cast<std::size_t>(-1);

constexpr OptionRow kControlOptions[] = {
    {"--gt", "X", "cases greater than the number X", OptionValue::kNeeded},
    {"--lt", "X", "cases less than the number X", OptionValue::kNeeded},
    {"--eq", "X", "cases equal to X, a number or a text", OptionValue::kNeeded},
    {"--ne", "X", "cases not equal to X", OptionValue::kNeeded},
    {"--all-missing", "", "only cases whose control value is missing", OptionValue::kNone},
    {"--no-missing", "", "only cases whose control value is valid", OptionValue::kNone},
};

constexpr OptionRow kFrequenciesOptions[] = {
    {"--dispersion", "", "add the index of dispersion", OptionValue::kNone},
};

constexpr OptionRow kDescriptivesOptions[] = {
    {"--chart", "", "add a horizontal bar chart", OptionValue::kNone},
    {"--save-z", "", "save the z-scores as another variable", OptionValue::kNone},
};

constexpr OptionRow kCrosstabOptions[] = {
    {"--no-chi-square", "", "leave the chi-square tests out", OptionValue::kNone},
    {"--risk", "", "add odds ratio and relative risk of a 2 by 2 table", OptionValue::kNone},
    {"--association", "", "add the measures of association", OptionValue::kNone},
    {"--agreement", "", "add Kappa, when there are as many rows as columns", OptionValue::kNone},
};

constexpr OptionRow kTTestOptions[] = {
    {"--groups", "A B", "the values of the two groups", OptionValue::kTwo},
};

constexpr OptionRow kAnovaOptions[] = {
    {"--summary", "", "add the statistics of each group", OptionValue::kNone},
    {"--post-hoc", "", "add the Bonferroni comparisons", OptionValue::kNone},
};

constexpr OptionRow kListOptions[] = {
    {"--max", "N", "list no more than N cases", OptionValue::kNeeded},
};

constexpr OptionRow kRegressionOptions[] = {
    {"--summary", "", "add summary statistics of the cases in the model", OptionValue::kNone},
    {"--save-residuals", "", "save the residuals as another variable", OptionValue::kNone},
};

constexpr OptionRow kLogisticOptions[] = {
    {"--summary", "", "add summary statistics of the cases in the model", OptionValue::kNone},
    {"--save-predicted", "", "save predicted values and residuals as other variables", OptionValue::kNone},
};

constexpr OptionRow kBrevarumOptions[] = {
    {"--short", "", "print the compact result instead of the report", OptionValue::kNone},
    {"--narrative", "", "print the result in words instead of the report", OptionValue::kNone},
};

constexpr CommandRow kCommands[] = {
    {"open",
     "PATH",
     "open a data file",
     "Opens the data file PATH in the place of the data, whether they were saved or not. An\n"
     "empty file leaves the data as they are.\n",
     "open survey.dcs",
     {},
     1,
     "PATH",
     data_commands::Open},
    {"new",
     "",
     "start with empty data",
     "Replaces the data by the empty data set, 1000 records of the variables V1 to V20. The\n"
     "control variable and the project notes go; the log stays.\n",
     "new",
     {},
     0,
     "",
     data_commands::New},
    {"save",
     "[PATH]",
     "save the data",
     "Saves the data to PATH, or to the file that they were opened from or saved to last. New\n"
     "data need a PATH.\n",
     "save cleaned.dcs",
     {},
     1,
     "",
     data_commands::Save},
    {"notes",
     "[TEXT]",
     "set the project notes",
     "Sets the project notes, which the next save writes into the data file. Quote a TEXT of\n"
     "several words. Without TEXT the notes are emptied.\n",
     "notes \"Second wave, cleaned\"",
     {},
     1,
     "",
     data_commands::Notes},
    {"statistics",
     "",
     "report the data statistics",
     "Adds seven lines to the log: observations, variables, cells used and remaining, usage,\n"
     "file size and file time.\n",
     "statistics",
     {},
     0,
     "",
     data_commands::Statistics},
    {"control", "VAR [RELATION] | none", "limit the cases of the commands that follow",
     "The commands that follow use only the cases whose value of VAR meets the relation; a\n"
     "missing value of VAR never does, but for --all-missing. At most one relation may be\n"
     "given. The control stays until the next control command; \"control none\" and new end it,\n"
     "and after open it means the variable of the same column.\n"
     "A variable named \"none\" is reached by its number.\n",
     "control AGE --gt 40", kControlOptions, 1, "VAR", procedure_commands::Control},
    {"frequencies", "VAR... [by VAR...] [--dispersion]", "counts and percentages",
     "Reports count, percent and cumulative percent of each value, one report a variable.\n"
     "With variables behind \"by\" each of those ahead of it is crosstabulated with them.\n",
     "frequencies SEX SMOKE --dispersion", kFrequenciesOptions, kAnyNumber, "VAR", procedure_commands::Frequencies},
    {"descriptives", "VAR... [by VAR...] [--chart] [--save-z]", "summary statistics",
     "Reports mean, median, spread and a one-sample t-test against 0, one report a variable.\n"
     "A comparison by the variables behind \"by\" is not in this version: a message says so.\n",
     "descriptives AGE WEIGHT --chart", kDescriptivesOptions, kAnyNumber, "VAR", procedure_commands::Descriptives},
    {"crosstab", "VAR... by VAR... [OPTIONS]", "compare one categorical variable to another",
     "Counts a table with the variable ahead of \"by\" in its rows and the one behind it in its\n"
     "columns, and tests whether they are related. Chi-square tests are on.\n",
     "crosstab SMOKE by SEX --risk", kCrosstabOptions, kAnyNumber, "VAR", procedure_commands::Crosstab},
    {"t-test", "VAR... by VAR --groups A B", "compare two independent means",
     "Compares the mean of the variable ahead of \"by\" in the cases that have the value A and\n"
     "in those that have the value B of the variable behind it.\n",
     "t-test WEIGHT by SEX --groups 1 2", kTTestOptions, kAnyNumber, "VAR", procedure_commands::TTest},
    {"anova", "VAR... by VAR... [--summary] [--post-hoc]", "compare two or more independent means",
     "One-way analysis of variance of the variable ahead of \"by\" over the groups that the\n"
     "values of the one behind it make.\n",
     "anova PRESSURE by REGION --summary --post-hoc", kAnovaOptions, kAnyNumber, "VAR", procedure_commands::Anova},
    {"correlation",
     "VAR... by VAR...",
     "compare two continuous variables",
     "Pearson's correlation with its test and a scattergram, for each variable ahead of \"by\"\n"
     "with each behind it.\n",
     "correlation WEIGHT by HEIGHT",
     {},
     kAnyNumber,
     "VAR",
     procedure_commands::Correlation},
    {"correlation-matrix",
     "VAR...",
     "correlate each pair of variables",
     "Pearson's correlations of all pairs of the variables as a square matrix. Each pair uses\n"
     "the cases that are valid in both.\n",
     "correlation-matrix AGE WEIGHT HEIGHT",
     {},
     kAnyNumber,
     "VAR",
     procedure_commands::CorrelationMatrix},
    {"regression", "VAR by VAR... [--summary] [--save-residuals]", "least squares regression",
     "Regression of the variable ahead of \"by\" on those behind it, by ordinary least squares.\n",
     "regression WEIGHT by HEIGHT AGE --save-residuals", kRegressionOptions, kAnyNumber, "VAR",
     procedure_commands::Regression},
    {"logistic", "VAR by VAR... [--summary] [--save-predicted]", "logistic regression",
     "Logistic regression of a variable coded 1 and 0 on those behind \"by\".\n",
     "logistic SMOKE by AGE --save-predicted", kLogisticOptions, kAnyNumber, "VAR", procedure_commands::Logistic},
    {"diagnostic",
     "VAR... by VAR...",
     "diagnostic accuracy",
     "Compares an ordered test result with a reference standard of two values, the second of\n"
     "them disease: sensitivity, specificity and the like for each cut point, and the area\n"
     "under the ROC curve.\n",
     "diagnostic TEST by DISEASE",
     {},
     kAnyNumber,
     "VAR",
     procedure_commands::Diagnostic},
    {"list", "VAR... [--max N]", "list the values of up to seven variables",
     "Lists the values of the variables side by side, one line a case.\n", "list SEX AGE --max 20", kListOptions,
     kAnyNumber, "VAR", procedure_commands::List},
    {"brevarum", "PANEL BOX=VALUE... [--short] [--narrative]", "calculate from typed summary figures",
     "Calculates from figures that stand in no data file: PANEL is the calculator, and each BOX\n"
     "the name of one of its boxes. Boxes that are not named keep their defaults. The report\n"
     "goes to the log and replaces the most recent output. With an option its text is printed\n"
     "at once, and the log gets nothing. One and two samples read each other's boxes too.\n",
     "brevarum t-test tx1=101.5 ts1=14 tn1=30 tx2=95 ts2=15.5 tn2=32", kBrevarumOptions, kAnyNumber, "PANEL",
     brevarum_commands::Brevarum, brevarum_commands::PanelLines},
    {"charts",
     "",
     "print the chart tables of the latest run",
     "Prints the charts that the latest procedure left, tab-delimited: for each a line with\n"
     "\"chart\", title, titles of both axes and footnote, then its rows. The log gets nothing\n"
     "from it.\n",
     "charts",
     {},
     0,
     "",
     output_commands::Charts},
    {"recent",
     "",
     "print the most recent output",
     "Prints the reports of the latest run at once. The log gets nothing from it.\n",
     "recent",
     {},
     0,
     "",
     output_commands::Recent},
    {"tab-delimited",
     "",
     "print the log as tab-delimited text",
     "Prints the log so far with tabs in the place of its columns and without any hyphen,\n"
     "rules and minus signs included. The log itself stays as it is.\n",
     "tab-delimited",
     {},
     0,
     "",
     output_commands::TabDelimitedText},
    {"print",
     "PATH",
     "write the printed pages of the log",
     "Writes the log as pages, as the printer gets them: a PDF file when PATH ends in .pdf,\n"
     "else plain text with a form feed between pages.\n",
     "print report.txt",
     {},
     1,
     "PATH",
     output_commands::Print},
};

// Commands of the language that this version does not have.
constexpr std::string_view kLaterCommands[] = {
    "import",   "export",        "split",       "print-notes",    "dictionary",  "cell",
    "add-rows", "add-column",    "delete-rows", "format",         "copy-format", "recode",
    "compute",  "combine",       "trim",        "delete-columns", "find",        "replace",
    "undo",     "compare-dates", "sample",      "iterations",     "subset",      "table",
    "explore",  "calculator",    "glossary",    "word",           "excel",
};

// How many letters must be put in, left out or replaced to make one word of the other.
std::size_t EditDistance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::size_t diagonal = std::exchange(row[0], i);
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t replaced = diagonal + (a[i - 1] == b[j - 1] ? 0 : 1);
      diagonal = std::exchange(row[j], std::min({row[j] + 1, row[j - 1] + 1, replaced}));
    }
  }
  return row.back();
}

}  // namespace

Batch::Batch(LogStream& the_stream, std::optional<std::uint64_t> seed)
    : stream(the_stream), platform(the_stream, seed), session(platform, settings_store) {
  StartBatchSession(session);
  if (!session.output.ShowLogMode) ToggleOutputMode(session.output);  // print means the log, not the latest run
}

std::span<const CommandRow> Commands() { return kCommands; }

const CommandRow* FindCommand(std::string_view name) {
  const auto found = std::ranges::find(kCommands, name, &CommandRow::name);
  return found == std::end(kCommands) ? nullptr : found;
}

bool IsLaterCommand(std::string_view name) {
  return std::ranges::find(kLaterCommands, name) != std::end(kLaterCommands);
}

const CommandRow& NearestCommand(std::string_view word) {
  constexpr std::size_t kLettersLookedAt = 64;
  const std::string_view start = word.substr(0, kLettersLookedAt);
  return *std::ranges::min_element(kCommands, {}, [&](const CommandRow& row) { return EditDistance(start, row.name); });
}

std::string UnknownCommand(std::string_view word) {
  if (IsLaterCommand(word)) return "the command " + Quoted(word) + " is not available in this version";
  return "unknown command " + Quoted(word) + "; the nearest is " + Quoted(NearestCommand(word).name);
}

CommandResult RunCommand(Batch& batch, std::span<const std::string> line) {
  const CommandRow* command = FindCommand(line.front());
  if (!command) return NotUnderstood(UnknownCommand(line.front()));
  const auto parser = batch.parsers.try_emplace(command, command->options, WordOrder::kAnywhere).first;
  return RunCommand(batch, *command, parser->second.Parse(line.subspan(1)));
}

CommandResult RunCommand(Batch& batch, const CommandRow& command, const CommandWords& words) {
  const std::string name(command.name);
  if (!words.error.empty()) return NotUnderstood(name + ": " + words.error);
  if (words.words.empty() && !command.first_word.empty()) {
    return NotUnderstood(name + ": " + std::string(command.first_word) + " is missing");
  }
  if (words.words.size() > command.most_words) {
    return NotUnderstood(name + ": " + Quoted(words.words[command.most_words]) + " is a word too many");
  }
  batch.platform.answers = {};
  batch.platform.refused = false;
  CommandResult result = command.run(batch, words);
  if (result.status == BatchStatus::kNotUnderstood) result.error = name + ": " + result.error;
  if (result.status == BatchStatus::kAllWell && batch.platform.refused) result.status = BatchStatus::kRefused;
  batch.stream.PrintNews();
  return result;
}

}  // namespace tessara
