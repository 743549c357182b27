#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "data/data_matrix.h"
#include "numerics/checked.h"
#include "numerics/tagged_value.h"

// Missing values of a variable. Its dictionary cell holds six fields, each ended by "|": four single values, any text;
// then a lower and an upper bound, numbers, beyond which a value is missing. A cell shorter than 7 characters defines
// nothing.

namespace tessara {

inline constexpr std::size_t kMissingEntries = 6;
inline constexpr std::size_t kSingleMissingEntries = 4;
inline constexpr std::size_t kLowerBoundEntry = 4;
inline constexpr std::size_t kUpperBoundEntry = 5;

// The unpacked entries, from 0; an entry that the cell does not reach is the empty tag.
struct MissingValues {
  std::array<TaggedValue, kMissingEntries> entries;

  bool HasSingleValues() const;
  bool HasBounds() const;

  // Whether a value is missing: blank, equal to a single value as text, strictly below the lower or above the upper
  // bound. A text that meets a bound cannot be converted: the test itself fails, and whoever asks drops the case.
  Condition IsMissing(const TaggedView& value) const;
};

MissingValues UnpackMissingSpec(std::string_view missing_spec);

// The missing values of a variable; none of a column that the matrix does not have.
MissingValues LoadMissingSet(const DataMatrix& matrix, std::size_t column);

}  // namespace tessara
