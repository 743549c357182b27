#pragma once

#include <string>

#include "data/data_set.h"

namespace tessara {

// What the status bar says of the grid once other data stand in it: how many cells may still be filled by hand.
std::string GridRoomText(const DataSet& data);

}  // namespace tessara
