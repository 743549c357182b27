#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "batch/commands/commands.h"
#include "batch/visible_text.h"
#include "batch/words/script_line.h"
#include "calculators/brevarum_panel.h"
#include "numerics/number_text.h"

namespace tessara {
namespace {

constexpr OptionRow kOptions[] = {
    {"--short", "", "print the compact result instead of the report", OptionValue::kNone},
    {"--narrative", "", "print the result in words instead of the report", OptionValue::kNone},
};

template <typename Items, typename Name>
std::string Listed(const Items& items, Name name) {
  std::string list;
  for (const auto& item : items) {
    if (!list.empty()) list += ", ";
    list += name(item);
  }
  return list;
}

std::string PanelNames() {
  return Listed(BrevarumPanelRows(), [](const BrevarumPanelRow& row) { return std::string(row.command_name); });
}

std::string BoxNames(const BrevarumPanelRow& row) {
  return Listed(row.boxes, [](const BrevarumBox& box) { return std::string(box.name); });
}

// The text of a selector that stands for the value, which may be written as any number of that size.
std::optional<std::string_view> ChosenText(const BrevarumBox& box, std::string_view value) {
  const auto number = ParseNumber(value);
  if (!number) return std::nullopt;
  const auto found =
      std::ranges::find_if(box.choices, [&](std::string_view text) { return ParseNumber(text) == number; });
  return found == box.choices.end() ? std::nullopt : std::optional(*found);
}

// Puts BOX=VALUE into the panel. Yields what is wrong with it; nothing when all is well.
std::string FillBox(BrevarumPanel& panel, const BrevarumPanelRow& row, std::string_view word) {
  const std::size_t sign = word.find('=');
  if (sign == word.npos) return Quoted(word) + " is not BOX=VALUE";
  const std::string_view name = word.substr(0, sign);
  const BrevarumBox* box = FindBrevarumBox(row, name);
  if (!box) {
    return "the panel " + Quoted(row.command_name) + " has no box " + Quoted(name) + "; its boxes are " + BoxNames(row);
  }
  std::string value = HeldText(word.substr(sign + 1));
  if (box->kind == BrevarumBoxKind::kChoice) {
    const auto chosen = ChosenText(*box, value);
    if (!chosen) {
      return std::string(name) + " takes " + Listed(box->choices, [](std::string_view text) { return text; }) +
             ", not " + Quoted(word.substr(sign + 1));
    }
    value = *chosen;
  }
  SetBox(panel, name, value);
  return {};
}

// The calculation beside the log: only the most recent output learns of its report.
Calculation CalculateApart(Session& session) {
  OutputLog apart;
  Calculation result = Calculate(session.brevarum, apart, session.platform);
  if (result.report) ReplaceMostRecent(session.output, *result.report + "\r\n");
  return result;
}

CommandResult Run(Batch& batch, const CommandWords& words) {
  const BrevarumPanelRow* row = FindBrevarumPanel(words.words[0]);
  if (!row) return NotUnderstood("unknown panel " + Quoted(words.words[0]) + "; the panels are " + PanelNames());

  // Every line starts from an empty form.
  Session& session = batch.session;
  session.brevarum = BrevarumPanel();
  SelectSamples(session.brevarum, row->samples == kOneSample);
  SelectPanel(session.brevarum, row->option);
  for (std::size_t i = 1; i < words.words.size(); ++i) {
    const std::string wrong = FillBox(session.brevarum, *row, words.words[i]);
    if (!wrong.empty()) return NotUnderstood(wrong);
  }

  const bool print_short = words.Has("--short");
  const bool print_narrative = words.Has("--narrative");
  const bool apart = print_short || print_narrative;
  const Calculation result =
      apart ? CalculateApart(session) : Calculate(session.brevarum, session.output, session.platform);
  if (print_short && result.short_report) batch.stream.PrintText(*result.short_report + "\r\n");
  if (print_narrative && result.narrative) batch.stream.PrintText(*result.narrative + "\r\n");
  // What the form shows over the results in the place of one.
  if (!result.results_title) return Done();
  batch.stream.PrintMessage(TerminalText(*result.results_title));
  return {BatchStatus::kRefused, {}};
}

// The panels with their boxes, a line each.
std::string PanelLines() {
  constexpr std::size_t kNameColumn = 14;
  constexpr std::size_t kLineWidth = 64;
  std::string text = "\nPanels and their boxes:\n";
  for (const BrevarumPanelRow& row : BrevarumPanelRows()) {
    std::string name(row.command_name);
    name.resize(std::max(name.size(), kNameColumn), ' ');
    std::string line = "  " + name + " ";
    for (const BrevarumBox& box : row.boxes) {
      if (line.size() + 1 + box.name.size() > kLineWidth) {
        text += line + "\n";
        line.assign(kNameColumn + 3, ' ');
      }
      line += " " + std::string(box.name);
    }
    text += line + "\n";
  }
  return text;
}

}  // namespace

constinit const CommandRow kBrevarumCommand{
    .name = "brevarum",
    .synopsis = "PANEL BOX=VALUE... [--short] [--narrative]",
    .summary = "calculate from typed summary figures",
    .details =
        "Calculates from figures that stand in no data file: PANEL is the calculator, and each BOX\n"
        "the name of one of its boxes. Boxes that are not named keep their defaults. The report\n"
        "goes to the log and replaces the most recent output. With an option its text is printed\n"
        "at once, and the log gets nothing. One and two samples read each other's boxes too.\n",
    .example = "brevarum t-test tx1=101.5 ts1=14 tn1=30 tx2=95 ts2=15.5 tn2=32",
    .options = kOptions,
    .most_words = kAnyNumber,
    .needed_word = "PANEL",
    .run = Run,
    .more_details = PanelLines,
};

}  // namespace tessara
