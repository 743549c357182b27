#include "batch/commands/commands.h"

#include <algorithm>
#include <vector>

#include "batch/words/nearest_word.h"
#include "batch/words/script_line.h"

namespace tessara {
namespace {

constexpr const CommandRow* kCommands[] = {
    &kOpenCommand,
    &kNewCommand,
    &kSaveCommand,
    &kImportCommand,
    &kExportCommand,
    &kSplitCommand,
    &kNotesCommand,
    &kPrintNotesCommand,
    &kStatisticsCommand,
    &kDictionaryCommand,
    &kCellCommand,
    &kAddRowsCommand,
    &kAddColumnCommand,
    &kDeleteRowsCommand,
    &kDeleteColumnsCommand,
    &kFormatCommand,
    &kCopyFormatCommand,
    &kRecodeCommand,
    &kComputeCommand,
    &kCombineCommand,
    &kCompareDatesCommand,
    &kTrimCommand,
    &kFindCommand,
    &kReplaceCommand,
    &kUndoCommand,
    &kSampleCommand,
    &kIterationsCommand,
    &kControlCommand,
    &kSubsetCommand,
    &kFrequenciesCommand,
    &kDescriptivesCommand,
    &kExploreCommand,
    &kCrosstabCommand,
    &kTTestCommand,
    &kAnovaCommand,
    &kCorrelationCommand,
    &kCorrelationMatrixCommand,
    &kRegressionCommand,
    &kLogisticCommand,
    &kDiagnosticCommand,
    &kListCommand,
    &kTableCommand,
    &kBrevarumCommand,
    &kCalculatorCommand,
    &kChartsCommand,
    &kRecentCommand,
    &kTabDelimitedCommand,
    &kPrintCommand,
    &kWordCommand,
    &kExcelCommand,
};

// Commands of the language that this version does not have.
constexpr std::string_view kLaterCommands[] = {
    "glossary",
};

}  // namespace

std::span<const CommandRow* const> Commands() { return kCommands; }

const CommandRow* FindCommand(std::string_view name) {
  const auto found = std::ranges::find(kCommands, name, [](const CommandRow* row) { return row->name; });
  return found == std::end(kCommands) ? nullptr : *found;
}

bool IsLaterCommand(std::string_view name) {
  return std::ranges::find(kLaterCommands, name) != std::end(kLaterCommands);
}

const CommandRow& NearestCommand(std::string_view word) {
  std::vector<std::string_view> names;
  for (const CommandRow* row : kCommands) names.push_back(row->name);
  return *FindCommand(NearestWord(word, names));
}

std::string UnknownCommand(std::string_view word) {
  if (IsLaterCommand(word)) return "the command " + Quoted(word) + " is not available in this version";
  return "unknown command " + Quoted(word) + "; the nearest is " + Quoted(NearestCommand(word).name);
}

}  // namespace tessara
