#include "procedures/samples/grid_room.h"

#include "numerics/masks.h"

namespace tessara {

std::string GridRoomText(const DataSet& data) {
  const std::size_t cells = data.CellCount();
  if (cells >= kEditLimit) return "GRID WARNING: Spreadsheet cannot be edited.";
  return "There are " + Grouped(static_cast<double>(kEditLimit - cells)) + " data cells remaining.";
}

}  // namespace tessara
