#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "platform/scripted_platform.h"
#include "procedures/run.h"
#include "procedures/tests/test_data.h"

// Each box and field of the panel reaches the procedure that shows it: a run with it differs from one without.

namespace tessara {
namespace {

constexpr std::size_t kY = 1;
constexpr std::size_t kX = 2;
constexpr std::size_t kGroup = 3;
constexpr std::size_t kOther = 4;

// Two measurements and two codes of 0 and 1, none of which follows from another.
DataSet MakeCases() {
  TestColumn y{.name = "Y"}, x{.name = "X"}, group{.name = "G"}, other{.name = "H"};
  for (int i = 0; i < 40; ++i) {
    y.cells.emplace_back(std::to_string((i * 7 + 3) % 23));
    x.cells.emplace_back(std::to_string((i * 5 + 1) % 17));
    group.cells.emplace_back(std::to_string((i / 3) % 2));
    other.cells.emplace_back(std::to_string((i / 5) % 2));
  }
  return MakeTestData({y, x, group, other});
}

struct Lists {
  std::vector<std::size_t> analysis, independent;
};

Lists ListsOf(Procedure procedure, RegressionKind kind) {
  switch (procedure) {
    case Procedure::kFrequencies:
      return {{kGroup}, {}};
    case Procedure::kCrosstabulation:
    case Procedure::kDiagnostic:
      return {{kGroup}, {kOther}};
    case Procedure::kTTest:
    case Procedure::kAnova:
      return {{kY}, {kGroup}};
    case Procedure::kCorrelation:
      return {{kY, kX}, {kX}};
    case Procedure::kRegression:
      return kind == RegressionKind::kLogistic ? Lists{{kGroup}, {kX}} : Lists{{kY}, {kX}};
    default:
      return {{kY}, {}};
  }
}

// All that a run leaves: its reports and the names of the variables. Empty when the run is refused.
std::string OutcomeOf(const ProcedurePanel& panel) {
  DataSet data = MakeCases();
  OutputLog output;
  ChartStore charts;
  SummaryTable table;
  ScriptedPlatform platform;
  if (Run(data, panel, output, charts, table, platform).refused) return {};
  std::string outcome = output.MostRecentText;
  for (const ListedVariable& variable : data.VarList) outcome += variable.name + "\n";
  return outcome;
}

// The panel as it stands when the procedure of a row has been chosen and its fields are filled.
ProcedurePanel PanelOf(const ProcedureRow& row, RegressionKind kind) {
  ProcedurePanel panel;
  SelectProcedure(panel, row.procedure);
  if (row.procedure == Procedure::kRegression) SelectRegression(panel, kind);
  const Lists lists = ListsOf(row.procedure, kind);
  panel.SelectedVariables = lists.analysis;
  panel.IndependentVariables = lists.independent;
  const std::map<std::string_view, std::string> fields = {{"Text5", "0"}, {"Text6", "1"}, {"Text7", "30"}};
  for (const ProcedureRow::Field& field : row.fields) {
    if (const auto text = fields.find(field.control); text != fields.end()) field.option(panel.options) = text->second;
  }
  return panel;
}

void ExpectEveryBoxAndFieldToCount(const ProcedureRow& row, RegressionKind kind) {
  const ProcedurePanel panel = PanelOf(row, kind);
  const std::string before = OutcomeOf(panel);
  if (before.empty()) return;  // the procedure is still to come
  EXPECT_EQ(before.find("-- Error --"), std::string::npos) << row.caption << "\n" << before;
  for (const ProcedureRow::Box& box : row.boxes) {
    ProcedurePanel pressed = panel;
    bool& option = box.option(pressed.options);
    option = !option;
    EXPECT_NE(OutcomeOf(pressed), before) << row.caption << ": " << box.caption;
  }
  for (const ProcedureRow::Field& field : row.fields) {
    ProcedurePanel typed = panel;
    field.option(typed.options) = "7";
    EXPECT_NE(OutcomeOf(typed), before) << row.caption << ": " << field.caption;
  }
}

TEST(PanelBoxes, EachOneChangesTheRunOfItsProcedure) {
  for (const ProcedureRow& row : ProcedureRows()) {
    if (row.procedure != Procedure::kRegression) ExpectEveryBoxAndFieldToCount(row, {});
  }
  for (const RegressionKind kind : {RegressionKind::kLeastSquares, RegressionKind::kLogistic}) {
    ExpectEveryBoxAndFieldToCount(RegressionRow(kind), kind);
  }
}

}  // namespace
}  // namespace tessara
