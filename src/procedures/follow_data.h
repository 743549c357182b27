#pragma once

#include <optional>
#include <string>

#include "data/data_set.h"
#include "procedures/panel.h"

// The panel follows its variables when the data change.

namespace tessara {

// Brings the panel up to the changes that the data have seen since it was last called: entries of the lists and the
// control move with their columns, or go with them. Behind a change of the whole data set they stay only while their
// column carries the same name. Called when an operation has changed the data, before anything else is chosen. Yields
// the name of a control variable that had to be reset.
std::optional<std::string> FollowData(ProcedurePanel& panel, const DataSet& data);

}  // namespace tessara
