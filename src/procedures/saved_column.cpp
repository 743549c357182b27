#include "procedures/saved_column.h"

namespace tessara {

std::size_t AddSavedColumn(DataSet& data, const std::string& name) {
  const std::size_t column = data.matrix.AddColumn();
  data.matrix.SetText(kVariableNameRow, column, name);
  data.WorkingVariableCount = column;
  ++data.Revision;
  return column;
}

}  // namespace tessara
