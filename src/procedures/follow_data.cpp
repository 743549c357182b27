#include "procedures/follow_data.h"

#include <utility>
#include <vector>

namespace tessara {
namespace {

// Where a column stands behind the change; 0 when it is gone, and for no column.
std::size_t PlaceBehind(std::size_t column, ColumnChange change, const ColumnStretch& columns) {
  if (column < columns.first || column == 0) return column;
  if (change == ColumnChange::kAdded) return column + columns.count;
  return column < columns.first + columns.count ? 0 : column - columns.count;
}

void MoveEntries(std::vector<std::size_t>& list, ColumnChange change, const ColumnStretch& columns) {
  for (std::size_t& column : list) column = PlaceBehind(column, change, columns);
  std::erase(list, std::size_t{0});
}

std::string ResetLostControl(ProcedurePanel& panel) {
  std::string name = std::move(panel.control_variable.name);
  ResetControl(panel);
  return name;
}

std::string FollowOtherData(ProcedurePanel& panel, const DataSet& data) {
  ClearPanelLists(panel);
  panel.PickedVariable = 0;
  const ControlVariable& control = panel.control_variable;
  if (control.column == 0) return {};
  if (ControlIsSet(panel, data) && data.VariableName(control.column) == control.name) return {};
  return ResetLostControl(panel);
}

std::string FollowMovedColumns(ProcedurePanel& panel, ColumnChange change, const ColumnStretch& columns) {
  MoveEntries(panel.SelectedVariables, change, columns);
  MoveEntries(panel.IndependentVariables, change, columns);
  panel.PickedVariable = PlaceBehind(panel.PickedVariable, change, columns);
  std::size_t& control = panel.control_variable.column;
  if (control == 0) return {};
  control = PlaceBehind(control, change, columns);
  return control == 0 ? ResetLostControl(panel) : std::string();
}

}  // namespace

std::string FollowData(ProcedurePanel& panel, const DataSet& data, ColumnChange change, const ColumnStretch& columns) {
  switch (change) {
    case ColumnChange::kOtherData:
      return FollowOtherData(panel, data);
    case ColumnChange::kAdded:
    case ColumnChange::kRemoved:
      return FollowMovedColumns(panel, change, columns);
    case ColumnChange::kNamed:
      if (ControlIsSet(panel, data)) panel.control_variable.name = data.VariableName(panel.control_variable.column);
      return {};
  }
  return {};
}

}  // namespace tessara
