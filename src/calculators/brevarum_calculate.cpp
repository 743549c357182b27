#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "calculators/accuracy.h"
#include "calculators/brevarum_panel.h"
#include "calculators/chi_square_table.h"
#include "calculators/intervals.h"
#include "calculators/mean_tests.h"
#include "calculators/proportion_tests.h"
#include "calculators/sample_size.h"
#include "calculators/standard_score.h"
#include "calculators/summary_text.h"

// The boxes of each panel, handed to the calculation that they belong to, and what becomes of its result.

namespace tessara {
namespace {

std::string Text(const BrevarumPanel& panel, std::string_view box) { return std::string(panel.Box(box)); }

Calculation CalculateMeans(BrevarumPanel& panel, Samples posted) {
  // The boxes of the one-sample test lose their commas for good.
  for (const std::string_view box : {"Text20", "Text21", "Text22", "Text23"}) {
    SetBox(panel, box, WithoutCommas(panel.Box(box)));
  }
  return MeanTests({.label1 = panel.Box("Text11"),
                    .label2 = panel.Box("Text12"),
                    .mean1 = panel.Box("tx1"),
                    .mean2 = panel.Box("tx2"),
                    .deviation1 = panel.Box("ts1"),
                    .deviation2 = panel.Box("ts2"),
                    .cases1 = panel.Box("tn1"),
                    .cases2 = panel.Box("tn2")},
                   {.population_mean = panel.Box("Text20"),
                    .mean = panel.Box("Text21"),
                    .deviation = panel.Box("Text22"),
                    .cases = panel.Box("Text23")},
                   posted);
}

Calculation CalculateVariance(const BrevarumPanel& panel) {
  return AnalysisOfVariance(
      {.labels = {panel.Box("Text13"), panel.Box("Text14"), panel.Box("Text15"), panel.Box("Text16")},
       .cases = {panel.Box("An1"), panel.Box("An2"), panel.Box("An3"), panel.Box("An4")},
       .means = {panel.Box("Ax1"), panel.Box("Ax2"), panel.Box("Ax3"), panel.Box("Ax4")},
       .deviations = {panel.Box("As1"), panel.Box("As2"), panel.Box("As3"), panel.Box("As4")}});
}

Calculation CalculateProportions(const BrevarumPanel& panel, Samples posted) {
  return ProportionTests(
      {.label1 = panel.Box("Text17"),
       .label2 = panel.Box("Text18"),
       .proportion1 = panel.Box("zp1"),
       .proportion2 = panel.Box("zp2"),
       .cases1 = panel.Box("zn1"),
       .cases2 = panel.Box("zn2")},
      {.population_proportion = panel.Box("PU1"), .proportion = panel.Box("SU1"), .cases = panel.Box("NU1")}, posted);
}

Calculation CalculateCounts(BrevarumPanel& panel) {
  ChiSquareBoxes boxes;
  for (std::size_t row = 0; row < kTypedRows; ++row) {
    boxes.row_labels[row] = Text(panel, "Text" + std::to_string(row + 6));
    for (std::size_t column = 0; column < kTypedColumns; ++column) {
      boxes.cells[row][column] = Text(panel, "C" + std::to_string(column + 1) + "R" + std::to_string(row + 1));
    }
  }
  for (std::size_t column = 0; column < kTypedColumns; ++column) {
    boxes.column_labels[column] = Text(panel, "Text" + std::to_string(column + 1));
  }
  ChiSquareCalculation result = CalculateChiSquareTable(boxes);
  Keep(panel.Label28, std::move(result.note));
  Keep(panel.chi_square_caption, std::move(result.frame_title));
  panel.frame_caption = panel.chi_square_caption;
  return std::move(result.calculation);
}

Calculation CalculateScore(BrevarumPanel& panel) {
  constexpr std::size_t kScoreLabel = 4;  // L5
  StandardScoreCalculation result =
      CalculateStandardScore({.score = Text(panel, "T1"), .mean = Text(panel, "T2"), .deviation = Text(panel, "T3")});
  Keep(panel.labels[kScoreLabel], std::move(result.z_text));
  Keep(panel.marker, result.marker_centre);
  return std::move(result.calculation);
}

Calculation CalculateAccuracyPanel(BrevarumPanel& panel) {
  constexpr std::size_t kFirstTotalsLabel = 5;  // L6
  AccuracyCalculation result = CalculateAccuracy({.without_disease_negative = Text(panel, "T1"),
                                                  .with_disease_negative = Text(panel, "T2"),
                                                  .without_disease_positive = Text(panel, "T3"),
                                                  .with_disease_positive = Text(panel, "T4")});
  if (result.totals) {
    const AccuracyTotals& totals = *result.totals;
    panel.accuracy_totals = {totals.test_negative, totals.test_positive, totals.without_disease, totals.with_disease,
                             totals.n};
    std::ranges::copy(panel.accuracy_totals, panel.labels.begin() + kFirstTotalsLabel);
  }
  return std::move(result.calculation);
}

// Which of the texts of a selector is chosen; the first when it is none of them.
std::size_t ChosenIndex(const BrevarumPanel& panel, std::string_view box) {
  const BrevarumBox* selector = FindBrevarumBox(CurrentRow(panel), box);
  if (!selector) return 0;
  const auto found = std::ranges::find(selector->choices, panel.Box(box));
  return found == selector->choices.end() ? 0 : static_cast<std::size_t>(found - selector->choices.begin());
}

Calculation CalculatePower(const BrevarumPanel& panel) {
  return CalculateSampleSize({.proportion1 = Text(panel, "T1"),
                              .proportion2 = Text(panel, "T2"),
                              .difference = Text(panel, "T3"),
                              .deviation = Text(panel, "T4"),
                              .alpha_z = kAlphaChoices[ChosenIndex(panel, "Alpha")].z,
                              .power_z = kPowerChoices[ChosenIndex(panel, "Beta")].z});
}

Calculation CalculateCurrent(BrevarumPanel& panel) {
  switch (panel.CurrentPanel) {
    case kTwoMeansPanel:
      return CalculateMeans(panel, Samples::kTwo);
    case kManyMeansPanel:
      return CalculateVariance(panel);
    case kTwoProportionsPanel:
      return CalculateProportions(panel, Samples::kTwo);
    case kCountsPanel:
      return CalculateCounts(panel);
    case kMeanIntervalPanel:
      return CalculateMeanInterval({.n = Text(panel, "T1"), .mean = Text(panel, "T2"), .deviation = Text(panel, "T3")});
    case kProportionIntervalPanel:
      return CalculateProportionInterval({.n = Text(panel, "T1"), .proportion = Text(panel, "T2")});
    case kScorePanel:
      return CalculateScore(panel);
    case kAccuracyPanel:
      return CalculateAccuracyPanel(panel);
    case kPowerPanel:
      return CalculatePower(panel);
    case kOneMeanPanel:
      return CalculateMeans(panel, Samples::kOne);
    case kOneProportionPanel:
    default:
      return CalculateProportions(panel, Samples::kOne);
  }
}

}  // namespace

Calculation Calculate(BrevarumPanel& panel, OutputLog& output, Platform& platform) {
  Calculation result = CalculateCurrent(panel);
  for (const MessageBox& message : result.messages) platform.ShowMessage(message);

  if (result.narrative) {
    panel.Text25 = *result.narrative;
    panel.Label43 = kResultsTitle;
  }
  Keep(panel.Label43, result.results_title);
  Keep(panel.T5, result.short_report);
  if (result.report) {
    const std::string report = *result.report + "\r\n";
    ShowBrevarumResult(panel, panel.CurrentPanel, report);
    ReplaceReport(output, report);
  }
  StoreSharedBoxes(panel);
  return result;
}

}  // namespace tessara
