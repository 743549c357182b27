#pragma once

#include <cstddef>
#include <span>
#include <string_view>

// What a mistyped word may have meant.

namespace tessara {

// How many letters must be put in, left out or replaced to make one word of the other. Long words are looked at in
// their first letters only.
std::size_t EditDistance(std::string_view a, std::string_view b);

// The name with the fewest changed letters, the first of them; empty when there are no names.
std::string_view NearestWord(std::string_view word, std::span<const std::string_view> names);

}  // namespace tessara
