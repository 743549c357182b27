#include "procedures/follow_data.h"

#include <map>
#include <utility>
#include <vector>

#include "data/column_place.h"

namespace tessara {
namespace {

using Names = std::map<std::size_t, std::string>;

std::string ResetLostControl(ProcedurePanel& panel) {
  std::string name = std::move(panel.control_variable.name);
  ResetControl(panel);
  return name;
}

std::optional<std::string> FollowMovedColumns(ProcedurePanel& panel, const ChangeNote& note) {
  for (std::vector<std::size_t>* list : {&panel.SelectedVariables, &panel.IndependentVariables}) {
    for (std::size_t& column : *list) column = PlaceBehind(column, note);
    std::erase(*list, std::size_t{0});
  }
  Names names;
  for (auto& [column, name] : panel.followed.names) names.emplace(PlaceBehind(column, note), std::move(name));
  panel.followed.names = std::move(names);
  panel.PickedVariable = PlaceBehind(panel.PickedVariable, note);

  std::size_t& control = panel.control_variable.column;
  if (control == 0) return std::nullopt;
  control = PlaceBehind(control, note);
  if (control != 0) return std::nullopt;
  return ResetLostControl(panel);
}

// Whether the data still have a variable in its place.
bool StillHas(const DataSet& data, std::size_t column, const std::string& name) {
  return column <= data.VariableCount && data.VariableName(column) == name;
}

std::optional<std::string> FollowOtherData(ProcedurePanel& panel, const DataSet& data) {
  const Names& names = panel.followed.names;
  // An entry whose name is not known yet was chosen since.
  const auto is_gone = [&](std::size_t column) {
    const auto known = names.find(column);
    return !StillHas(data, column, known == names.end() ? data.VariableName(column) : known->second);
  };
  std::erase_if(panel.SelectedVariables, is_gone);
  std::erase_if(panel.IndependentVariables, is_gone);
  panel.PickedVariable = 0;
  const ControlVariable& control = panel.control_variable;
  if (control.column == 0 || StillHas(data, control.column, control.name)) return std::nullopt;
  return ResetLostControl(panel);
}

void RememberNames(ProcedurePanel& panel, const DataSet& data) {
  Names& names = panel.followed.names;
  names.clear();
  const auto remember = [&](std::size_t column) { names.emplace(column, data.VariableName(column)); };
  for (const std::size_t column : panel.SelectedVariables) remember(column);
  for (const std::size_t column : panel.IndependentVariables) remember(column);
  if (panel.control_variable.column == 0) return;
  remember(panel.control_variable.column);
  panel.control_variable.name = names[panel.control_variable.column];
}

}  // namespace

std::optional<std::string> FollowData(ProcedurePanel& panel, const DataSet& data) {
  const auto notes = data.notes.Since(std::exchange(panel.followed.revision, data.Revision()));
  const std::vector<ChangeNote> unknown = {{ChangeKind::kWholeData, {}}};
  std::optional<std::string> lost;
  for (const ChangeNote& note : notes.value_or(unknown)) {
    if (MovesColumns(note)) {
      if (auto name = FollowMovedColumns(panel, note)) lost = std::move(name);
    } else if (note.kind == ChangeKind::kWholeData) {
      if (auto name = FollowOtherData(panel, data)) lost = std::move(name);
    }
  }
  RememberNames(panel, data);
  return lost;
}

}  // namespace tessara
