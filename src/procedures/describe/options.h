#pragma once

#include <cstddef>
#include <string>

// What the reports on single variables can be asked for.

namespace tessara {

struct FrequenciesOptions {
  bool dispersion = false;  // the index of dispersion
};

struct DescriptivesOptions {
  bool bar_chart = false;      // drawn in text, behind the report
  bool save_z_scores = false;  // as a new variable
};

inline constexpr std::size_t kMostListedVariables = 7;

struct ListOptions {
  std::string max_observations;  // a number as it was typed; empty for all
};

}  // namespace tessara
