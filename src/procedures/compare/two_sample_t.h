#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "data/data_set.h"
#include "numerics/checked.h"
#include "numerics/student_t.h"
#include "procedures/cases/procedure_run.h"
#include "procedures/compare/options.h"

// The t-test: compares the means of a continuous variable in two groups of cases, the groups being two values of a
// categorical variable that the user types in.

namespace tessara {

// The values of the two samples, each in grid order.
using TTestCases = std::array<std::vector<double>, 2>;

// What the test needs of a sample.
struct TTestSample {
  Number n;
  Number mean;
  Number squares;  // squared deviations from the mean
};

struct TTestResult {
  // A difference of the means against its error. Figures are rounded as they are shown, and what is computed from one
  // later takes the rounded one.
  struct Line {
    Number t;  // three decimals
    Number p;  // two-tailed, four decimals, never below 0.0001
  };

  std::array<Number, 2> deviations;  // with n - 1
  Line equal;
  Number equal_df;
  Line unequal;
  Number unequal_df;  // two decimals
  VarianceRatio ratio;
  std::optional<double> f_p;
};

// The accepted numbers of the main variable in the records whose cell of the independent one reads like the first of
// the typed values, or like the second; equal values leave the second sample empty. The missing values of the
// independent variable are not tested.
TTestCases GatherTTest(const CaseSource& source, const Roles& roles, const std::array<std::string, 2>& values);
TTestSample ComputeTTestSample(const std::vector<double>& values);
// Student's test, Welch's test with the degrees of freedom of B. L. Welch (Biometrika 34, 1947), and the ratio of the
// variances.
TTestResult ComputeTTest(const TTestSample& one, const TTestSample& two);

// Runs the procedure for the main variable in two groups of the independent one and appends its report. Leaves a
// histogram of each sample.
void RunTTest(ProcedureRun& run, const Roles& roles, const TTestOptions& options);

}  // namespace tessara
