#include "procedures/panel.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <set>
#include <utility>

#include "numerics/number_text.h"

namespace tessara {
namespace {

// The options as they stand behind every change of the procedure.
void ClearOptions(ProcedurePanel& panel) {
  ProcedureOptions options;
  options.list = std::move(panel.options.list);
  options.summary_tables.output_format = std::move(panel.options.summary_tables.output_format);
  panel.options = std::move(options);
}

void AskForVariable(Platform& platform) {
  platform.ShowMessage({"Procedure Aborted", "You must select a variable from the list"});
}

void RemovePlaces(std::vector<std::size_t>& list, const std::vector<std::size_t>& places) {
  // From behind, so that the places ahead keep their numbers.
  const std::set<std::size_t, std::greater<>> descending(places.begin(), places.end());
  for (const std::size_t place : descending) {
    if (place < list.size()) list.erase(list.begin() + static_cast<std::ptrdiff_t>(place));
  }
}

// What an arrow takes from its target: the marked entries, or the last one.
std::vector<std::size_t> PlacesToRemove(const std::vector<std::size_t>& list, const std::vector<std::size_t>& marked) {
  return marked.empty() ? std::vector<std::size_t>{list.size() - 1} : marked;
}

}  // namespace

void SelectProcedure(ProcedurePanel& panel, Procedure procedure) {
  panel.selected = procedure;
  ClearOptions(panel);
}

void SelectRegression(ProcedurePanel& panel, RegressionKind kind) {
  panel.selected = Procedure::kRegression;
  panel.regression = kind;
  ClearOptions(panel);
}

void PickVariable(ProcedurePanel& panel, std::size_t column) { panel.PickedVariable = column; }

void AddAnalysisVariable(ProcedurePanel& panel, Platform& platform, const std::vector<std::size_t>& chosen) {
  if (chosen.empty()) return AskForVariable(platform);
  for (const std::size_t column : chosen) {
    if (column == 0) continue;
    if (panel.selected == Procedure::kListVariables && panel.SelectedVariables.size() == kMostListedVariables) {
      platform.ShowMessage({"Maximum Reached", "The list variables procedure is limited to seven variables."});
      return;
    }
    panel.SelectedVariables.push_back(column);
  }
}

void AddIndependentVariable(ProcedurePanel& panel, Platform& platform, const std::vector<std::size_t>& chosen) {
  if (chosen.empty()) return AskForVariable(platform);
  std::ranges::copy_if(chosen, std::back_inserter(panel.IndependentVariables),
                       [](std::size_t column) { return column != 0; });
}

void SetControlVariable(ProcedurePanel& panel, const DataSet& data, Platform& platform,
                        const std::vector<std::size_t>& chosen) {
  if (chosen.empty()) return AskForVariable(platform);
  panel.control_variable = {chosen.front(), data.VariableName(chosen.front())};
}

void PressAnalysisArrow(ProcedurePanel& panel, Platform& platform, const std::vector<std::size_t>& chosen,
                        const std::vector<std::size_t>& marked) {
  if (!chosen.empty() || panel.SelectedVariables.empty()) return AddAnalysisVariable(panel, platform, chosen);
  RemoveAnalysisVariables(panel, PlacesToRemove(panel.SelectedVariables, marked));
}

void PressIndependentArrow(ProcedurePanel& panel, Platform& platform, const std::vector<std::size_t>& chosen,
                           const std::vector<std::size_t>& marked) {
  if (!chosen.empty() || panel.IndependentVariables.empty()) return AddIndependentVariable(panel, platform, chosen);
  RemoveIndependentVariables(panel, PlacesToRemove(panel.IndependentVariables, marked));
}

void PressControlArrow(ProcedurePanel& panel, const DataSet& data, Platform& platform,
                       const std::vector<std::size_t>& chosen) {
  if (!chosen.empty() || !ControlIsSet(panel, data)) return SetControlVariable(panel, data, platform, chosen);
  panel.control_variable = {};
}

void RemoveAnalysisVariables(ProcedurePanel& panel, const std::vector<std::size_t>& places) {
  RemovePlaces(panel.SelectedVariables, places);
}

void RemoveIndependentVariables(ProcedurePanel& panel, const std::vector<std::size_t>& places) {
  RemovePlaces(panel.IndependentVariables, places);
}

bool ControlIsSet(const ProcedurePanel& panel, const DataSet& data) {
  const std::size_t column = panel.control_variable.column;
  return column > 0 && column <= data.VariableCount;
}

void ResetControl(ProcedurePanel& panel) {
  panel.control_variable = {};
  panel.control = {};
}

bool IsControlNumber(std::string_view text) { return text.empty() || IsNumeric(text); }

bool AcceptControlNumber(Platform& platform, std::string_view text) {
  if (IsControlNumber(text)) return true;
  platform.ShowMessage({"Warning", "Only numerical entries are allowed."});
  return false;
}

bool ControlValueIsRefused(const ProcedurePanel& panel, const DataSet& data) {
  const ControlRelation relation = panel.control.relation;
  const bool takes_number = relation == ControlRelation::kGreaterThan || relation == ControlRelation::kLessThan;
  return ControlIsSet(panel, data) && takes_number && !IsControlNumber(panel.control.value);
}

bool RunUsesIndependents(const ProcedurePanel& panel) {
  switch (panel.selected) {
    case Procedure::kFrequencies:
      return true;
    case Procedure::kCorrelation:
      return !panel.options.correlation.create_matrix;
    default:
      const ProcedureRow* row = ShownRow(panel);
      return row && !row->second_heading.empty();
  }
}

void ClearPanelLists(ProcedurePanel& panel) {
  panel.SelectedVariables.clear();
  panel.IndependentVariables.clear();
}

void ResetPanel(ProcedurePanel& panel) {
  ClearPanelLists(panel);
  ResetControl(panel);
  panel.PickedVariable = 0;
  panel.options.t_test = {};
}

}  // namespace tessara
