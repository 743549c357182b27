#pragma once

#include <string>

// What the comparisons of two variables can be asked for.

namespace tessara {

struct CrosstabulationOptions {
  bool association = false;
  bool chi_square_tests = true;
  bool agreement = false;
  bool risk = false;  // of a table of two rows and two columns
};

struct TTestOptions {
  std::string group_a;  // the two values of the independent variable, as they were typed
  std::string group_b;
};

struct AnovaOptions {
  bool summary = false;  // descriptive statistics of the groups
  bool post_hoc = false;
};

}  // namespace tessara
