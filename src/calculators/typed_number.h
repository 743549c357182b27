#pragma once

#include <string_view>

#include "numerics/checked.h"

// Numbers as they are typed into the boxes of a calculator.

namespace tessara {

// The number of a box, behind the entry test: commas are stripped wherever they stand. An empty box and a text that is
// not numeric count 0.
Number TypedNumber(std::string_view text);

// The title of the box with which a calculator that asks for numbers in all its boxes ends at once.
inline constexpr std::string_view kEntryError = "Entry Error!";

}  // namespace tessara
