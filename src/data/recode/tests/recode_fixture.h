#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "data/change_door.h"
#include "data/data_set.h"
#include "data/recode/find_cells.h"
#include "data/recode/follow_recode.h"
#include "data/recode/recode_panel.h"
#include "data/recode/recode_run.h"
#include "numerics/number_text.h"
#include "platform/scripted_platform.h"

// A small data set from columns of cells, and the panel on it.

namespace tessara {

struct RecodeColumnOf {
  std::string name;
  std::vector<TaggedValue> cells;  // records from the first
  std::string missing_spec = {};
};

class RecodeFixture : public testing::Test {
 protected:
  void Make(const std::vector<RecodeColumnOf>& columns) {
    std::size_t records = 0;
    for (const auto& column : columns) records = std::max(records, column.cells.size());
    DataContents contents;
    contents.matrix = DataMatrix(kFirstRecordRow + records, columns.size());
    contents.RecordCount = records;
    contents.VariableCount = columns.size();
    for (std::size_t i = 0; i < columns.size(); ++i) {
      contents.matrix.SetText(kVariableNameRow, i + 1, columns[i].name);
      if (!columns[i].missing_spec.empty()) contents.matrix.SetText(kMissingSpecRow, i + 1, columns[i].missing_spec);
      for (std::size_t record = 0; record < columns[i].cells.size(); ++record) {
        contents.matrix.Set(kFirstRecordRow + record, i + 1, columns[i].cells[record]);
      }
    }
    BeginData(data, std::move(contents));
    Follow();
  }

  void Open(RecodeMode mode) { OpenRecodePanel(panel, data, mode); }
  void Follow() { FollowRecodeData(panel, data); }

  void FillRecode(std::size_t column, const std::string& name, RecodeOption option, const std::string& old_value,
                  const std::string& new_value) {
    Open(RecodeMode::kRecode);
    PickRecodeVariable(panel, column);
    ChangeNewName(panel, name);
    panel.recode_option = option;
    panel.OldValue = old_value;
    panel.NewValue = new_value;
  }
  void FillCompute(std::size_t column, const std::string& name, ComputeOption option, const std::string& constant) {
    Open(RecodeMode::kCompute);
    PickRecodeVariable(panel, column);
    ChangeNewName(panel, name);
    panel.compute_option = option;
    panel.Text2 = constant;
    panel.Check1 = panel.Check3 = false;
  }
  void FillTwo(RecodeMode mode, std::size_t first, std::size_t second, const std::string& name) {
    Open(mode);
    PickRecodeVariable(panel, first);
    CopyVariable1(panel, data, platform);
    PickRecodeVariable(panel, second);
    CopyVariable2(panel, data, platform);
    ChangeNewName(panel, name);
  }
  void FillTrim(std::size_t column, const std::string& name, const std::string& lower, const std::string& upper) {
    Open(RecodeMode::kTrim);
    PickRecodeVariable(panel, column);
    ChangeNewName(panel, name);
    panel.Text5 = lower;
    panel.Text6 = upper;
  }
  void FillReplace(std::size_t column, const std::string& find, const std::string& replacement) {
    Open(RecodeMode::kReplace);
    PickRecodeVariable(panel, column);
    panel.Text12 = find;
    panel.Text13 = replacement;
  }

  RecodeOutcome Run() {
    const RecodeOutcome outcome = RunRecodePanel(panel, data, platform);
    Follow();
    return outcome;
  }
  void ExpectRefusal(const std::string& text) {
    const std::size_t columns = data.VariableCount;
    platform.messages.clear();
    EXPECT_TRUE(Run().refused);
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_EQ(platform.messages[0].title, "Procedure Aborted");
    EXPECT_EQ(platform.messages[0].text, text);
    EXPECT_EQ(data.VariableCount, columns);
    EXPECT_EQ(platform.wait_cursors, 0);
  }

  // The records of a column: a text in quotes, a number as it is, "-" for the empty tag.
  std::vector<std::string> Cells(std::size_t column) const {
    std::vector<std::string> cells;
    for (std::size_t record = 0; record < data.RecordCount; ++record) {
      const TaggedView cell = data.matrix.Cell(kFirstRecordRow + record, column);
      cells.push_back(cell.is_empty() ? "-" : cell.is_text() ? "'" + TextOf(cell) + "'" : TextOf(cell));
    }
    return cells;
  }
  using Texts = std::vector<std::string>;

  ScriptedPlatform platform;
  DataSet data;
  RecodePanel panel;
};

}  // namespace tessara
