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
    &kGlossaryCommand,
    &kChartsCommand,
    &kRecentCommand,
    &kTabDelimitedCommand,
    &kPrintCommand,
    &kWordCommand,
    &kExcelCommand,
};

}  // namespace

std::span<const CommandRow* const> Commands() { return kCommands; }

const CommandRow* FindCommand(std::string_view name) {
  const auto found = std::ranges::find(kCommands, name, [](const CommandRow* row) { return row->name; });
  return found == std::end(kCommands) ? nullptr : *found;
}

const CommandRow& NearestCommand(std::string_view word) {
  std::vector<std::string_view> names;
  for (const CommandRow* row : kCommands) names.push_back(row->name);
  return *FindCommand(NearestWord(word, names));
}

std::string UnknownCommand(std::string_view word) {
  return "unknown command " + Quoted(word) + "; the nearest is " + Quoted(NearestCommand(word).name);
}

}  // namespace tessara
