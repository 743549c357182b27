#include "calculators/empty_results.h"

#include "calculators/accuracy.h"
#include "calculators/brevarum_panel.h"
#include "calculators/chi_square_table.h"
#include "calculators/intervals.h"
#include "calculators/mean_tests.h"
#include "calculators/proportion_tests.h"
#include "calculators/sample_size.h"
#include "calculators/summary_text.h"
#include "numerics/report_text.h"

namespace tessara {
namespace {

std::string Zero(int width, int decimals) { return FormatCol(0.0, width, decimals); }

// Its p of the variances has three decimals, and no p of 0 is lifted to 0.0001.
std::string EmptyTwoMeans() {
  std::string report = "Two-Sample Difference of Means (2-tailed)\r\n\r\n";
  report += "            Homogeneity of Variance\r\n";
  report += "    F= 0.00    DF= (0, 0)     p < 0.000\r\n\r\n";
  report += "             T-statistic      DF          p < \r\n";
  report += "Equal   " + Zero(15, 4) + " " + Zero(8, 0) + Zero(16, 4) + "\r\n";
  report += "Unequal " + Zero(15, 4) + " " + Zero(11, 2) + Zero(13, 4);
  return report;
}

std::string EmptyManyMeans() {
  ManyMeansTest test;
  test.p = 0;
  return ManyMeansShortReport(test);
}

std::string EmptyTwoProportions() {
  TwoProportionsTest test;
  test.label1 = SampleLabel("Sample(1)");
  test.label2 = SampleLabel("Sample(2)");
  return TwoProportionsShortReport(test);
}

// The failed tests of a table without cases are zeros here too, in the place of their marks.
std::string EmptyCounts() {
  const ChiSquareBoxes boxes;
  const TypedTable table;
  ChiSquareStatistics statistics;
  statistics.table.chi_square_p = 0;
  statistics.table.likelihood_p = 0;
  return ChiSquareShortReport(boxes, table, statistics);
}

std::string EmptyAccuracy() {
  TypedAccuracy accuracy;
  accuracy.positive_likelihood_ratio = Number(0.0);
  accuracy.negative_likelihood_ratio = Number(0.0);
  return AccuracyShortReport(accuracy);
}

}  // namespace

std::string EmptyResult(int panel) {
  switch (panel) {
    case kTwoMeansPanel:
      return EmptyTwoMeans();
    case kManyMeansPanel:
      return EmptyManyMeans();
    case kTwoProportionsPanel:
      return EmptyTwoProportions();
    case kCountsPanel:
      return EmptyCounts();
    case kMeanIntervalPanel:
      return MeanIntervalShortReport(MeanInterval{});
    case kProportionIntervalPanel:
      return ProportionIntervalShortReport(ProportionInterval{});
    case kAccuracyPanel:
      return EmptyAccuracy();
    case kPowerPanel:
      return SampleSizeShortReport(SampleSizes{});
    case kOneMeanPanel:
      return OneMeanShortReport(OneMeanTest{});
    case kOneProportionPanel:
      return OneProportionShortReport(OneProportionTest{});
    case kScorePanel:  // has no compact result
    default:
      return "";
  }
}

}  // namespace tessara
