#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "numerics/checked.h"

// What the tests of typed summary figures share: labels and the sentences of their narratives.

namespace tessara {

// A figure in general form, and under a mask; one that has failed stands as 0.
std::string Text(const Number& number);
std::string Text(Checked number, std::string_view mask);

std::string WithoutCommas(std::string_view text);

// A sample's label as it heads its column: without line ends, cut to 9 characters, right-aligned in 9.
std::string SampleLabel(std::string_view text);

// The result of a test in words: title, p-value, whether there is a significant difference at .05, and between what. A
// p text without a number ("Err", or none at all) cannot be compared with .05, so that there is no difference.
std::string DifferenceNarrative(std::string_view title, std::string_view p_text, std::string_view closing);

// The narratives that exist, the first above the second with a rule between them; nothing when there is none.
std::optional<std::string> JoinedNarratives(const std::optional<std::string>& first,
                                            const std::optional<std::string>& second);

}  // namespace tessara
