#include "procedures/cases/saved_column.h"

#include "numerics/masks.h"

namespace tessara {

Column MakeSavedColumn(std::string_view name, std::span<const std::uint8_t> accepted, std::span<const double> values) {
  Column column;
  column.Set(kVariableNameRow, name);
  std::size_t place = 0;
  for (std::size_t record = 0; record < accepted.size(); ++record) {
    if (accepted[record] == 0) continue;
    const auto text = Masked(values[place++], "0.00000");
    if (text) column.Set(kFirstRecordRow + record, *text);
  }
  return column;
}

}  // namespace tessara
