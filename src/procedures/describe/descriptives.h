#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "data/data_set.h"
#include "numerics/checked.h"
#include "procedures/cases/procedure_run.h"
#include "procedures/describe/options.h"

// Descriptives: summary statistics of one numeric variable, with a one-sample t-test against zero and a 95 percent
// interval, a text bar chart and z-scores as a new variable on request.

namespace tessara {

// The accepted values, in grid order. A cell that is not numeric leaves a 0 at its place when an accepted value
// follows: it counts in n and in every statistic but the sum.
struct DescriptiveCases {
  std::vector<double> values;
  double sum = 0;            // of the accepted values alone
  std::size_t excluded = 0;  // missing, or excluded by the control
};

struct DescriptiveStatistics {
  std::size_t count = 0;
  Number sum, mean, median, minimum, maximum, range;
  Number population_variance, population_deviation;
  Number sample_variance, sample_deviation;
  Number standard_error;            // the deviation over the root of n - 1, not of n
  Number coefficient_of_variation;  // percent
  Number skewness, kurtosis;        // the kurtosis is held but not printed
  Number t;
  std::optional<double> p;
  Number interval;  // half width of the 95 percent interval
  std::size_t excluded = 0;
};

DescriptiveCases GatherDescriptives(const CaseSource& source, std::size_t column);
// The values are put into another order on the way to the median.
DescriptiveStatistics ComputeDescriptives(DescriptiveCases& cases);

inline constexpr std::string_view kDescriptiveTitle = "Descriptive Analysis: ";  // of an error report

// The cases of a variable. Less than two of them are an error, which the pass reports itself, and it yields nothing.
std::optional<DescriptiveCases> RunDescriptivePass(ProcedureRun& run, const CaseSource& source, std::size_t column);
// The same for one group of them, whose cases have been counted.
void ReportTooFewObservations(ProcedureRun& run, std::size_t column);

// Runs the procedure for the main variable and appends its report; adds the z-scores when they are asked for.
void RunDescriptives(ProcedureRun& run, const Roles& roles, const DescriptivesOptions& options);

}  // namespace tessara
