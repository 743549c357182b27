#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "data/data_set.h"
#include "numerics/checked.h"
#include "numerics/linear_solver.h"
#include "numerics/product_sums.h"
#include "procedures/cases/case_source.h"

// What the regressions share: the cases of a model, passes over them in blocks, and the normal equations. Coefficients
// are numbered from 0; coefficient 0 is the constant, whose column of ones is not stored.

namespace tessara {

// The cases of a model: those in which the dependent and every independent variable are valid numbers.
struct ModelCases {
  std::vector<std::vector<double>> variables;  // the dependent one, then the independent ones in selection order
  std::vector<std::uint8_t> accepted;          // of each record: its case is in the model
  std::string dependent_name;
  std::string dependent_label;
  std::vector<std::string> ModelNames;  // of the coefficients, "Constant" first
  std::size_t n = 0;                    // cases

  std::size_t k() const { return variables.size(); }  // coefficients: the independent variables and the constant
  const std::vector<double>& ModelY() const { return variables[0]; }
};
ModelCases GatherModelCases(const CaseSource& source, std::size_t dependent, std::span<const std::size_t> independent);

// How a variable spreads among the cases.
struct VariableSpread {
  Number mean;
  Number squares;    // deviations from the mean; exactly 0 when all values are equal
  Number deviation;  // with n - 1
};
VariableSpread MeasureSpread(const std::vector<double>& values);
// Of each variable of the model.
std::vector<VariableSpread> MeasureSpreads(const ModelCases& cases);

// A stretch of cases that stays in the fast memory while several sums pass over it.
struct ModelBlock {
  static constexpr std::size_t kMostCases = 256;

  std::size_t first = 0;  // case, from 0
  std::size_t count = 0;
  const double* y = nullptr;
  std::vector<const double*> x;  // of each coefficient, a column of the block
};

// Calls visit(block) for the cases in grid order.
template <typename Visit>
void ForEachBlock(const ModelCases& cases, Visit visit) {
  static const std::vector<double> ones(ModelBlock::kMostCases, 1.0);
  ModelBlock block;
  block.x.assign(cases.k(), ones.data());
  for (block.first = 0; block.first < cases.n; block.first += ModelBlock::kMostCases) {
    block.count = std::min(ModelBlock::kMostCases, cases.n - block.first);
    block.y = cases.ModelY().data() + block.first;
    for (std::size_t j = 1; j < cases.k(); ++j) block.x[j] = cases.variables[j].data() + block.first;
    visit(block);
  }
}

// out[c] = the sum of b(j) x(j) over the coefficients, for the cases of a block. A case whose sum leaves the range of a
// double keeps the prediction of the case before it, which is `before` for the first one.
void Predict(const ModelBlock& block, std::span<const double> coefficients, double before, double* out);

// X'X and X'y, summed case by case.
struct NormalEquations {
  Matrix NormalMatrix;
  std::vector<double> Gradient;
};
NormalEquations MakeNormalEquations(const ModelCases& cases);
// The same with z-scores in the place of the dependent and of every independent variable. A variable without spread
// has none and keeps its values.
NormalEquations MakeStandardizedEquations(const ModelCases& cases, const std::vector<VariableSpread>& spreads);

// SE of a coefficient: the root of mean_square times its diagonal element of the inverse; 0 unless that is above 0.
std::vector<double> CoefficientErrors(const Matrix& inverse, const Number& mean_square);

}  // namespace tessara
