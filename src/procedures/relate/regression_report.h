#pragma once

#include <span>
#include <string>
#include <string_view>

#include "procedures/relate/regression_model.h"

// The stretches that the reports of the regressions have in common.

namespace tessara {

inline constexpr int kRegressionRuleLength = 82;

// "Y = Constant + X1 + X2 + e" with its line end, broken where it grows long.
std::string ModelEquation(const ModelCases& cases);

// "Y = .500 + 1.250(X1) + -.125(X2)" without a line end, the coefficients under a mask, broken where it grows long.
std::string EstimatedEquation(const ModelCases& cases, std::span<const double> coefficients, std::string_view mask);

// The summary statistics of the variables of the model, the dependent one first, with the two line ends ahead of it.
std::string SummaryTable(const ModelCases& cases);

}  // namespace tessara
