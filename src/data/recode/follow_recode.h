#pragma once

#include "data/data_set.h"
#include "data/recode/recode_panel.h"

namespace tessara {

// Brings the panel up to the changes that the data have seen since it was last called: the variables that it works on,
// the position of the search and the bold marks move with their rows and columns, or go with them. The going on in one
// column ends with that column, and with the data set.
void FollowRecodeData(RecodePanel& panel, const DataSet& data);

}  // namespace tessara
