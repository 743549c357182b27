#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "calculators/calculation.h"
#include "numerics/checked.h"
#include "numerics/student_t.h"

// The tests of typed means: Student's t of one and of two samples, and the one-way analysis of variance of up to four.
// Boxes are read with their commas left out, and a text that is not numeric counts as 0.

namespace tessara {

// Two samples, by pooled and by separate variances.
struct TwoMeansBoxes {
  std::string_view label1 = {}, label2 = {};
  std::string_view mean1, mean2;
  std::string_view deviation1, deviation2;
  std::string_view cases1, cases2;
};

struct TwoMeansTest {
  Number n1, n2, mean1, mean2, deviation1, deviation2;
  std::string label1, label2;  // as they head their columns

  Number t, df;             // of equal variances
  std::optional<double> p;  // nothing where it could not be computed
  Number unequal_t;         // of unequal variances
  Number unequal_df;        // two decimals; below 5 there is no p
  std::optional<double> unequal_p;
  bool unequal_err = false;  // "Err" stands in the place of df and p
  VarianceRatio ratio;       // homogeneity of the variances
  Number f_p;
};

// Nothing unless both samples have a number of cases other than 0.
std::optional<TwoMeansTest> ComputeTwoMeans(const TwoMeansBoxes& boxes);
std::string TwoMeansReport(const TwoMeansTest& test);
std::string TwoMeansShortReport(const TwoMeansTest& test);
std::string TwoMeansNarrative(const TwoMeansTest& test);

// One sample against a population mean.
struct OneMeanBoxes {
  std::string_view population_mean, mean, deviation, cases;
};

struct OneMeanTest {
  Number population_mean, mean, deviation, n;
  Number t;
  std::optional<double> p;
};

// Nothing unless n - 1, as a 16-bit number, is above 0; so also for an n beyond 32768.
std::optional<OneMeanTest> ComputeOneMean(const OneMeanBoxes& boxes);
std::string OneMeanReport(const OneMeanTest& test);
std::string OneMeanShortReport(const OneMeanTest& test);
std::string OneMeanNarrative(const OneMeanTest& test);

// Both t-tests run, whichever of them is asked for: the report is that of `posted`, the narrative tells both.
enum class Samples : std::uint8_t { kOne, kTwo };
Calculation MeanTests(const TwoMeansBoxes& two, const OneMeanBoxes& one, Samples posted);

// Analysis of variance. The columns are filled from the left: those behind the first without cases do not count.
inline constexpr std::size_t kMostMeans = 4;

struct ManyMeansBoxes {
  std::array<std::string_view, kMostMeans> labels, cases, means, deviations;
};

struct ManyMeansTest {
  std::array<std::string, kMostMeans> labels;
  std::size_t k = 0;  // columns that count
  std::array<Number, kMostMeans> n, means, deviations;
  Number between, within;                // sums of squares
  Number df1, df2, total_df;             // N - 1 in all
  Number between_square, within_square;  // mean squares
  Number f;                              // two decimals
  std::optional<double> p;               // three decimals
};

// Nothing with fewer than two columns.
std::optional<ManyMeansTest> ComputeManyMeans(const ManyMeansBoxes& boxes);
std::string ManyMeansReport(const ManyMeansTest& test);
std::string ManyMeansShortReport(const ManyMeansTest& test);
std::string ManyMeansNarrative(const ManyMeansTest& test);
Calculation AnalysisOfVariance(const ManyMeansBoxes& boxes);

}  // namespace tessara
