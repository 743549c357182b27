#pragma once

#include <cstddef>
#include <string>

#include "data/data_set.h"

// Results that a procedure saves as a new variable: z-scores, residuals, predicted values.

namespace tessara {

// Adds an empty column behind the full data, names it and marks the data set as changed in shape. Called while the
// counts are cut to the used range; the column stays when the full counts return. Yields its number. Names are not cut.
std::size_t AddSavedColumn(DataSet& data, const std::string& name);

}  // namespace tessara
