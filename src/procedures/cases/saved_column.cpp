#include "procedures/cases/saved_column.h"

#include "numerics/masks.h"

namespace tessara {

std::size_t AddSavedColumn(DataSet& data, const std::string& name) {
  const std::size_t column = data.matrix.AddColumn();
  data.matrix.SetText(kVariableNameRow, column, name);
  data.VariableCount = column;
  ++data.Revision;
  return column;
}

void SaveCaseValues(DataSet& data, std::size_t column, std::span<const std::uint8_t> accepted,
                    std::span<const double> values) {
  std::size_t place = 0;
  for (std::size_t record = 0; record < accepted.size(); ++record) {
    if (accepted[record] == 0) continue;
    const auto text = Masked(values[place++], "0.00000");
    if (text) data.matrix.SetText(kFirstRecordRow + record, column, *text);
  }
}

}  // namespace tessara
