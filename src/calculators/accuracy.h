#pragma once

#include <optional>
#include <string>

#include "calculators/calculation.h"
#include "numerics/checked.h"

// Accuracy of a diagnostic test, from the counts of its four outcomes. T is the test, D the disease.

namespace tessara {

// The texts in T1 to T4, row by row.
struct AccuracyBoxes {
  std::string without_disease_negative = {};  // T- D-
  std::string with_disease_negative = {};     // T- D+
  std::string without_disease_positive = {};  // T+ D-
  std::string with_disease_positive = {};     // T+ D+
};

struct OutcomeCounts {
  double without_disease_negative = 0;
  double with_disease_negative = 0;
  double without_disease_positive = 0;
  double with_disease_positive = 0;
};

struct TypedAccuracy {
  OutcomeCounts cells;
  Number test_negative;    // row T-
  Number test_positive;    // row T+
  Number without_disease;  // column D-
  Number with_disease;     // column D+
  Number n;
  // A measure whose formula fails is 0.
  Number sensitivity;
  Number specificity;
  Number positive_predictive_value;
  Number negative_predictive_value;
  // Nothing where the ratio cannot be computed; the page says "unk" then.
  std::optional<Number> positive_likelihood_ratio;
  std::optional<Number> negative_likelihood_ratio;
};

// The totals beside the boxes, each a number with a leading blank.
struct AccuracyTotals {
  std::string test_negative;
  std::string test_positive;
  std::string without_disease;
  std::string with_disease;
  std::string n;
};

struct AccuracyCalculation {
  Calculation calculation;
  std::optional<AccuracyTotals> totals;  // absent: the labels stay as they were
};

TypedAccuracy ComputeTypedAccuracy(const OutcomeCounts& cells);

// The six measures, a line each; the long report ends with the same lines.
std::string AccuracyShortReport(const TypedAccuracy& accuracy);

// The whole calculation. A box that is not numeric is answered by a message alone; a likelihood ratio that cannot be
// computed has a message beside the report.
AccuracyCalculation CalculateAccuracy(const AccuracyBoxes& boxes);

}  // namespace tessara
