#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/scripted_platform.h"
#include "procedures/run.h"
#include "procedures/tests/test_data.h"

// Runs of the panel that add to one summary table.

namespace tessara {

using TableTexts = std::vector<std::vector<std::string>>;

struct TableFixture {
  explicit TableFixture(const std::vector<TestColumn>& columns) : data(MakeTestData(columns)) {}

  RunOutcome Categorical(std::vector<std::size_t> rows, std::vector<std::size_t> columns = {}) {
    panel.table_data = TableData::kCategorical;
    return RunTable(std::move(rows), std::move(columns));
  }
  RunOutcome Continuous(std::vector<std::size_t> rows, std::vector<std::size_t> columns = {}) {
    panel.table_data = TableData::kContinuous;
    return RunTable(std::move(rows), std::move(columns));
  }
  RunOutcome RunTable(std::vector<std::size_t> rows, std::vector<std::size_t> columns) {
    panel.selected = Procedure::kSummaryTables;
    panel.SelectedVariables = std::move(rows);
    panel.IndependentVariables = std::move(columns);
    return tessara::Run(data, panel, output, charts, table, platform);
  }

  SummaryTableOptions& options() { return panel.options.summary_tables; }

  TableTexts Texts() const {
    TableTexts texts;
    for (std::size_t row = 1; row <= table.grid.RowCount(); ++row) {
      texts.emplace_back();
      for (std::size_t column = 1; column <= table.grid.ColumnCount(); ++column) {
        texts.back().push_back(table.grid.Text(row, column));
      }
    }
    return texts;
  }
  std::vector<std::string> Row(std::size_t row) const { return Texts().at(row - 1); }

  DataSet data;
  ProcedurePanel panel;
  OutputLog output;
  ChartStore charts;
  SummaryTable table;
  ScriptedPlatform platform;
};

}  // namespace tessara
