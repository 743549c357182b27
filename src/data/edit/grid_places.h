#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "data/data_set.h"
#include "data/edit/grid_block.h"

// Where a cursor goes in the stretch of the data that the grid shows.

namespace tessara {

enum class GridStep { kUp, kDown, kLeft, kRight };

// The end of the block of filled cells that the place stands in, in one direction; from a blank cell, or one ahead of a
// blank, the next filled cell; where there is none, the last cell of the grid.
GridPlace EdgeOfData(const DataSet& data, const GridPlace& from, GridStep step);

// A place as the name box tells it: "12 AGE", "0 AGE" for a heading, "12" for a record as a whole.
std::string NameOfPlace(const DataSet& data, const GridPlace& place);

// The place that a user names: "12 AGE", "12", "AGE", or "#3" for a variable by its number; what is not named stays as
// it is in `from`. A name is found whatever its case when none is the same to the letter.
struct NamedPlace {
  std::optional<GridPlace> place;
  std::string error;  // why there is none
};
NamedPlace FindPlace(const DataSet& data, std::string_view text, const GridPlace& from);

}  // namespace tessara
