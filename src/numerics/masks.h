#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "numerics/checked.h"
#include "numerics/tagged_value.h"

// Number masks. A mask is made of zeros, places that always show, a point between them, a "%" that multiplies by 100,
// and other characters that are written as they stand: "0.000", " 0.000", "00.00%". A minus sign goes ahead of the
// whole text. Values are rounded half away from zero on their decimal form of 15 significant digits, so 2.675 under
// "0.00" is 2.68. A value that rounds to zero shows no minus sign. The empty mask is the general text.

namespace tessara {

// A number under a mask; nothing when the value has failed, so that a statement can Keep its target.
std::optional<std::string> Masked(Checked value, std::string_view mask);
// The number that the masked text shows.
Checked RoundedBy(Checked value, std::string_view mask);

// A finite number under a mask. The second form writes behind what `out` holds already, for loops over many values.
std::string MaskedNumber(double value, std::string_view mask);
void AppendMasked(double value, std::string_view mask, std::string& out);
// A number that need not be there under a mask; an empty text for none.
std::string MaskedOrEmpty(const std::optional<double>& value, std::string_view mask);

// A tagged value under a mask: the empty tag formats 0, empty text stays empty, numeric text is formatted as its
// number, and other text is the text itself.
std::string MaskedValue(const TaggedView& value, std::string_view mask);

// Digit grouping without decimals: 1,234,567.
std::string Grouped(double value);

// A fraction as a percentage with two decimals: 0.12345 gives 12.35%.
std::string Percentage(double fraction);

}  // namespace tessara
