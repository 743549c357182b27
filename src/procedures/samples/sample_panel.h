#pragma once

#include <string>

// The boxes of both sampling panels, as they were typed.

namespace tessara {

struct SamplePanel {
  std::string Text8;   // Create Sample: the size of the sample
  std::string Text15;  // Run Iterations: the size of each sample
  std::string Text16;  // Run Iterations: how many samples
};

}  // namespace tessara
