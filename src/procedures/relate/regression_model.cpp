#include "procedures/relate/regression_model.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "numerics/case_values.h"
#include "numerics/sums.h"
#include "procedures/cases/accepted_cases.h"

namespace tessara {
namespace {

// Adds the products of a block to the upper half of X'X and to X'y, which stands as a column behind it.
void AddNormalProducts(const ModelBlock& block, Matrix& sums, SumSteps steps) {
  std::vector<const double*> columns = block.x;
  columns.push_back(block.y);
  const std::span<const double* const> right = columns;
  for (std::size_t i = 0; i < block.x.size(); ++i) {
    AddProducts(block.x[i], right.subspan(i), block.count, sums.Row(i) + i, steps);
  }
}

// The sums over all blocks. visit_blocks(add) calls add(block) for each.
template <typename VisitBlocks>
NormalEquations SumBlocks(std::size_t k, VisitBlocks visit_blocks) {
  const auto sum = [&](SumSteps steps) {
    Matrix sums(k, k + 1);
    visit_blocks([&](const ModelBlock& block) { AddNormalProducts(block, sums, steps); });
    return sums;
  };
  Matrix sums = sum(SumSteps::kPlain);
  if (!AllFinite(sums.elements())) sums = sum(SumSteps::kWithCare);

  NormalEquations equations{Matrix(k, k), std::vector<double>(k)};
  for (std::size_t i = 0; i < k; ++i) {
    equations.Gradient[i] = sums(i, k);
    for (std::size_t j = i; j < k; ++j) equations.NormalMatrix(i, j) = equations.NormalMatrix(j, i) = sums(i, j);
  }
  return equations;
}

// The z-scores of a stretch of values; a value whose z-score fails stays as it is.
void Standardize(const double* values, std::size_t count, const VariableSpread& spread, double* out) {
  const double mean = spread.mean.value();
  const double deviation = spread.deviation.value();
  for (std::size_t c = 0; c < count; ++c) {
    const double z = (values[c] - mean) / deviation;
    out[c] = std::fabs(z) <= std::numeric_limits<double>::max() ? z : values[c];
  }
}

}  // namespace

ModelCases GatherModelCases(const CaseSource& source, std::size_t dependent, std::span<const std::size_t> independent) {
  std::vector<std::size_t> columns{dependent};
  columns.insert(columns.end(), independent.begin(), independent.end());
  NumberCases gathered = GatherNumberCases(source, columns);

  ModelCases cases;
  cases.variables = std::move(gathered.variables);
  cases.accepted = std::move(gathered.accepted);
  cases.n = gathered.n;
  cases.dependent_name = source.data.VariableName(dependent);
  cases.dependent_label = source.data.VariableLabel(dependent);
  cases.ModelNames = {"Constant"};
  for (const std::size_t column : independent) cases.ModelNames.push_back(source.data.VariableName(column));
  return cases;
}

VariableSpread MeasureSpread(const std::vector<double>& values) {
  const Number n = static_cast<double>(values.size());
  VariableSpread spread;
  spread.mean = SumInOrder(values.size(), [&](std::size_t i) { return values[i]; }) / n;
  spread.squares = SumOfSquares(values, spread.mean.value());
  spread.deviation = Sqrt(spread.squares / (n - 1));
  return spread;
}

std::vector<VariableSpread> MeasureSpreads(const ModelCases& cases) {
  std::vector<VariableSpread> spreads;
  for (const std::vector<double>& values : cases.variables) spreads.push_back(MeasureSpread(values));
  return spreads;
}

void Predict(const ModelBlock& block, std::span<const double> coefficients, double before, double* out) {
  std::fill_n(out, block.count, 0.0);
  for (std::size_t j = 0; j < coefficients.size(); ++j) {
    const double b = coefficients[j];
    const double* const x = block.x[j];
    for (std::size_t c = 0; c < block.count; ++c) out[c] += b * x[c];
  }
  for (std::size_t c = 0; c < block.count; ++c) {
    if (!std::isfinite(out[c])) out[c] = c > 0 ? out[c - 1] : before;
  }
}

NormalEquations MakeNormalEquations(const ModelCases& cases) {
  return SumBlocks(cases.k(), [&](auto add) { ForEachBlock(cases, add); });
}

NormalEquations MakeStandardizedEquations(const ModelCases& cases, const std::vector<VariableSpread>& spreads) {
  const std::size_t k = cases.k();
  std::vector<std::vector<double>> scores(k, std::vector<double>(ModelBlock::kMostCases));
  return SumBlocks(k, [&](auto add) {
    ForEachBlock(cases, [&](ModelBlock block) {
      Standardize(block.y, block.count, spreads[0], scores[0].data());
      block.y = scores[0].data();
      for (std::size_t j = 1; j < k; ++j) {
        Standardize(block.x[j], block.count, spreads[j], scores[j].data());
        block.x[j] = scores[j].data();
      }
      add(block);
    });
  });
}

std::vector<double> CoefficientErrors(const Matrix& inverse, const Number& mean_square) {
  std::vector<double> errors;
  for (std::size_t j = 0; j < inverse.rows(); ++j) {
    Number error;
    if (inverse(j, j) > 0) error = Sqrt(mean_square * inverse(j, j));
    errors.push_back(error.value());
  }
  return errors;
}

}  // namespace tessara
