#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "data/data_set.h"

// Results that a procedure saves as a new variable: z-scores, residuals, predicted values.

namespace tessara {

// A column of texts for the values of the accepted cases, in grid order, under "0.00000". The cells of the other
// records, and of a value that has failed, stay empty. `accepted` has a flag for each record. Names are not cut.
Column MakeSavedColumn(std::string_view name, std::span<const std::uint8_t> accepted, std::span<const double> values);

}  // namespace tessara
