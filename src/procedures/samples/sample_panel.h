#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

// The boxes of both sampling panels, as they were typed.

namespace tessara {

struct SamplePanel {
  std::string Text8;   // Create Sample: the size of the sample
  std::string Text15;  // Run Iterations: the size of each sample
  std::string Text16;  // Run Iterations: how many samples
};

// The whole number of a box, half to even. Nothing where none is given: the text is not numeric, or below 1.
std::optional<std::size_t> SizeOfBox(std::string_view text);

}  // namespace tessara
