#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "data/data_set.h"

// Results that a procedure saves as a new variable: z-scores, residuals, predicted values.

namespace tessara {

// Adds an empty column behind the full data, names it and marks the data set as changed in shape. Yields its
// number. Names are not cut.
std::size_t AddSavedColumn(DataSet& data, const std::string& name);

// Writes the values of the accepted cases, in grid order, into a saved column under "0.00000". The cells of the other
// records, and of a value that has failed, stay empty. `accepted` has a flag for each record.
void SaveCaseValues(DataSet& data, std::size_t column, std::span<const std::uint8_t> accepted,
                    std::span<const double> values);

}  // namespace tessara
