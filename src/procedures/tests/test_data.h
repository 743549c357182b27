#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "data/data_set.h"
#include "platform/scripted_platform.h"
#include "presentation/output_log.h"
#include "procedures/cases/procedure_run.h"
#include "procedures/panel.h"

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
  data.matrix = DataMatrix(kFirstRecordRow + records, columns.size());
  data.RecordCount = records;
  data.VariableCount = columns.size();
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const TestColumn& column = columns[i];
    data.matrix.SetText(kVariableNameRow, i + 1, column.name);
    if (!column.label.empty()) data.matrix.SetText(kVariableLabelRow, i + 1, column.label);
    if (!column.missing_spec.empty()) data.matrix.SetText(kMissingSpecRow, i + 1, column.missing_spec);
    for (std::size_t slot = 0; slot < column.value_labels.size(); ++slot) {
      data.matrix.SetText(kFirstValueLabelRow + slot, i + 1, column.value_labels[slot]);
    }
    for (std::size_t record = 0; record < column.cells.size(); ++record) {
      data.matrix.Set(kFirstRecordRow + record, i + 1, column.cells[record]);
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

// A data set with its panel, and what comes of running one procedure on column 1.
struct TestRun {
  explicit TestRun(const std::vector<TestColumn>& columns) : data(MakeTestData(columns)) {}

  void Control(std::size_t column, ControlRelation relation = ControlRelation::kNone, const std::string& value = {}) {
    panel.control_variable = {column, data.VariableName(column)};
    panel.control = {relation, value};
  }

  // The variable that the main one is compared with.
  void Independent(std::size_t column) {
    roles.independent = column;
    panel.IndependentVariables = {column};
  }

  // The report without its separator.
  std::string Report(void (*procedure)(ProcedureRun&, const Roles&)) {
    return ReportOf([&](ProcedureRun& run) { procedure(run, roles); });
  }
  std::string Report(void (*procedure)(ProcedureRun&)) { return ReportOf(procedure); }

  template <typename Procedure>
  std::string ReportOf(Procedure procedure) {
    ProcedureRun run{.data = data, .panel = panel, .output = output, .charts = charts, .platform = platform};
    procedure(run);
    aborted = run.aborted;
    footnote = run.ChartFootnote;
    std::string text = std::exchange(output.OutputLogText, {});
    text.resize(text.size() - std::min(text.size(), kReportSeparator.size()));
    return text;
  }

  DataSet data;
  Roles roles{.main = 1};
  ProcedurePanel panel;
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
