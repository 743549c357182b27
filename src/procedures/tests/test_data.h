#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <type_traits>
#include <vector>

#include "data/change_door.h"
#include "data/data_set.h"
#include "platform/scripted_platform.h"
#include "presentation/output_log.h"
#include "procedures/cases/procedure_run.h"
#include "procedures/options.h"

// A small data set from columns of cells, and one run on it.

namespace tessara {

struct TestColumn {
  std::string name;
  std::vector<TaggedValue> cells = {};  // records from the first
  std::string label = {};
  std::string missing_spec = {};
  std::vector<std::string> value_labels = {};
};

inline DataSet MakeTestData(const std::vector<TestColumn>& columns) {
  std::size_t records = 0;
  for (const TestColumn& column : columns) records = std::max(records, column.cells.size());
  DataSet data;
  MatrixEditor(data).Replace(DataMatrix(kFirstRecordRow + records, columns.size()));
  data.RecordCount = records;
  data.VariableCount = columns.size();
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const TestColumn& column = columns[i];
    MatrixEditor(data).SetText(kVariableNameRow, i + 1, column.name);
    if (!column.label.empty()) MatrixEditor(data).SetText(kVariableLabelRow, i + 1, column.label);
    if (!column.missing_spec.empty()) MatrixEditor(data).SetText(kMissingSpecRow, i + 1, column.missing_spec);
    for (std::size_t slot = 0; slot < column.value_labels.size(); ++slot) {
      MatrixEditor(data).SetText(kFirstValueLabelRow + slot, i + 1, column.value_labels[slot]);
    }
    for (std::size_t record = 0; record < column.cells.size(); ++record) {
      MatrixEditor(data).Set(kFirstRecordRow + record, i + 1, column.cells[record]);
    }
  }
  RebuildVariableLists(data);
  return data;
}

inline std::vector<TaggedValue> Texts(const std::vector<const char*>& texts) { return {texts.begin(), texts.end()}; }

// All records of the data set as cases, filtered by the variable of a column.
inline CaseSource CasesOfAllRecords(const DataSet& data, std::size_t control_column = 0,
                                    const ControlChoice& choice = {}) {
  return {data, {data.RecordCount, data.VariableCount}, CaseControl(data, control_column, choice)};
}

// The options of one procedure.
template <typename Options>
const Options& PartOf(const ProcedureOptions& all) {
  if constexpr (std::is_same_v<Options, FrequenciesOptions>) return all.frequencies;
  if constexpr (std::is_same_v<Options, DescriptivesOptions>) return all.descriptives;
  if constexpr (std::is_same_v<Options, CrosstabulationOptions>) return all.crosstabulation;
  if constexpr (std::is_same_v<Options, TTestOptions>) return all.t_test;
  if constexpr (std::is_same_v<Options, AnovaOptions>) return all.anova;
  if constexpr (std::is_same_v<Options, LeastSquaresOptions>) return all.least_squares;
  if constexpr (std::is_same_v<Options, LogisticOptions>) return all.logistic;
  if constexpr (std::is_same_v<Options, ListOptions>) return all.list;
}

// A data set with all that a run of one procedure takes, and what comes of it. Column 1 is the main variable, and no
// section is asked for.
struct TestRun {
  explicit TestRun(const std::vector<TestColumn>& columns) : data(MakeTestData(columns)) {
    options.crosstabulation.chi_square_tests = false;
  }

  void Control(std::size_t column, ControlRelation relation = ControlRelation::kNone, const std::string& value = {}) {
    control_variable = {column, data.VariableName(column)};
    control = {relation, value};
  }

  // The variable that the main one is compared with.
  void Independent(std::size_t column) { roles.independent = column; }

  // The report without its separator.
  std::string Report(void (*procedure)(ProcedureRun&, const Roles&)) {
    return ReportOf([&](ProcedureRun& run) { procedure(run, roles); });
  }
  template <typename Options>
  std::string Report(void (*procedure)(ProcedureRun&, const Roles&, const Options&)) {
    return ReportOf([&](ProcedureRun& run) { procedure(run, roles, PartOf<Options>(options)); });
  }

  std::string Report(void (*procedure)(ProcedureRun&, std::span<const std::size_t>)) {
    return ReportOf([&](ProcedureRun& run) { procedure(run, variables); });
  }
  template <typename Options>
  std::string Report(void (*procedure)(ProcedureRun&, std::span<const std::size_t>, const Options&)) {
    return ReportOf([&](ProcedureRun& run) { procedure(run, variables, PartOf<Options>(options)); });
  }

  template <typename Procedure>
  std::string ReportOf(Procedure procedure) {
    ProcedureRun run{.data = data,
                     .charts = charts,
                     .platform = platform,
                     .control_variable = control_variable,
                     .control = control,
                     .wants_charts = wants_charts};
    procedure(run);
    FinishRun(run, data, output);
    aborted = run.aborted;
    footnote = run.ChartFootnote;
    std::string text = std::exchange(output.OutputLogText, {});
    text.resize(text.size() - std::min(text.size(), kReportSeparator.size()));
    return text;
  }

  DataSet data;
  Roles roles{.main = 1};
  std::vector<std::size_t> variables;  // of a procedure that takes many at once
  ControlVariable control_variable;
  ControlChoice control;
  ProcedureOptions options;
  bool wants_charts = true;
  OutputLog output;
  ChartStore charts;
  ScriptedPlatform platform;
  bool aborted = false;
  std::string footnote;
};

// A procedure's title and message in the error frame.
inline std::string FramedError(const std::string& head, const std::string& sentence) {
  const std::string stars(77, '*');
  return stars + "\r\n\r\n" + std::string(30, ' ') + "-- Error --\r\n\r\n\r\n" + head + "\r\n\r\n" + sentence +
         "\r\n\r\n\r\n\r\n" + stars + "\r\n\r\n";
}

}  // namespace tessara
