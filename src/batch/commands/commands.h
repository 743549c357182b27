#pragma once

#include <span>
#include <string>
#include <string_view>

#include "batch/commands/command.h"

// The commands of the batch program, found by name.

namespace tessara {

// All commands, in the order of the help.
std::span<const CommandRow* const> Commands();
// nullptr when no command has the name.
const CommandRow* FindCommand(std::string_view name);
// The command whose name is nearest to the word.
const CommandRow& NearestCommand(std::string_view word);

// Why a word that is no command cannot be run.
std::string UnknownCommand(std::string_view word);

// The rows, each beside its run.
extern const CommandRow kOpenCommand;
extern const CommandRow kNewCommand;
extern const CommandRow kSaveCommand;
extern const CommandRow kImportCommand;
extern const CommandRow kExportCommand;
extern const CommandRow kSplitCommand;
extern const CommandRow kNotesCommand;
extern const CommandRow kPrintNotesCommand;
extern const CommandRow kStatisticsCommand;
extern const CommandRow kDictionaryCommand;
extern const CommandRow kCellCommand;
extern const CommandRow kAddRowsCommand;
extern const CommandRow kAddColumnCommand;
extern const CommandRow kDeleteRowsCommand;
extern const CommandRow kDeleteColumnsCommand;
extern const CommandRow kRecodeCommand;
extern const CommandRow kComputeCommand;
extern const CommandRow kCombineCommand;
extern const CommandRow kCompareDatesCommand;
extern const CommandRow kTrimCommand;
extern const CommandRow kFindCommand;
extern const CommandRow kReplaceCommand;
extern const CommandRow kUndoCommand;
extern const CommandRow kSampleCommand;
extern const CommandRow kIterationsCommand;
extern const CommandRow kSubsetCommand;
extern const CommandRow kFormatCommand;
extern const CommandRow kCopyFormatCommand;
extern const CommandRow kControlCommand;
extern const CommandRow kFrequenciesCommand;
extern const CommandRow kDescriptivesCommand;
extern const CommandRow kExploreCommand;
extern const CommandRow kCrosstabCommand;
extern const CommandRow kTTestCommand;
extern const CommandRow kAnovaCommand;
extern const CommandRow kCorrelationCommand;
extern const CommandRow kCorrelationMatrixCommand;
extern const CommandRow kRegressionCommand;
extern const CommandRow kLogisticCommand;
extern const CommandRow kDiagnosticCommand;
extern const CommandRow kListCommand;
extern const CommandRow kTableCommand;
extern const CommandRow kBrevarumCommand;
extern const CommandRow kCalculatorCommand;
extern const CommandRow kGlossaryCommand;
extern const CommandRow kChartsCommand;
extern const CommandRow kRecentCommand;
extern const CommandRow kTabDelimitedCommand;
extern const CommandRow kPrintCommand;
extern const CommandRow kWordCommand;
extern const CommandRow kExcelCommand;

}  // namespace tessara
