#include "numerics/linear_solver.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace tessara {
namespace {

Matrix MakeMatrix(const std::vector<std::vector<double>>& rows) {
  Matrix matrix(rows.size(), rows.front().size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    for (std::size_t j = 0; j < rows[i].size(); ++j) matrix(i, j) = rows[i][j];
  }
  return matrix;
}

TEST(MatrixVectorProduct, OfTwoRowsAndThreeColumns) {
  std::vector<double> out(2);
  MatrixVectorProduct(MakeMatrix({{1, 2, 3}, {4, 5, 6}}), std::vector<double>{1, 0, -2}, out);
  EXPECT_EQ(out, (std::vector<double>{-5, -8}));
}

TEST(DotProduct, FailsBeyondTheRangeOfADouble) {
  const std::vector<double> a{1e200, 2};
  EXPECT_EQ(DotProduct(a, std::vector<double>{1e100, 3}).value(), 1e300 + 6);
  EXPECT_TRUE(DotProduct(a, std::vector<double>{1e200, 3}).failed());
}

// p A p is 1E+310 + 1: the step keeps its first value, 0, in every round.
TEST(ConjugateGradientSolve, AStepThatOverflowsIsNotTaken) {
  EXPECT_EQ(SolveFromZero(MakeMatrix({{1e10, 0}, {0, 1}}), {1e150, 1}), (std::vector<double>{0, 0}));
}

TEST(ConjugateGradientSolve, SolvesASmallSystem) {
  const std::vector<double> x = SolveFromZero(MakeMatrix({{2, 1, 0}, {1, 3, 1}, {0, 1, 4}}), {4, 10, 14});
  ASSERT_EQ(x.size(), 3u);
  EXPECT_NEAR(x[0], 1, 1e-14);
  EXPECT_NEAR(x[1], 2, 1e-14);
  EXPECT_NEAR(x[2], 3, 1e-14);
}

// One round for a multiple of the identity: alpha is 1/2, and the residual vanishes.
TEST(ConjugateGradientSolve, LeavesResidualDirectionAndRhoOfTheLastRound) {
  const Matrix a = MakeMatrix({{2, 0}, {0, 2}});
  std::vector<double> r{6, 8}, p(2), x(2);
  Number rho = 100;
  ConjugateGradientSolve(a, r, p, x, rho);
  EXPECT_EQ(x, (std::vector<double>{3, 4}));
  EXPECT_EQ(r, (std::vector<double>{0, 0}));
  EXPECT_EQ(p, (std::vector<double>{6, 8}));
  EXPECT_EQ(rho.value(), 100);
}

TEST(ConjugateGradientSolve, AResidualShorterThanTheThresholdIsNotTouched) {
  EXPECT_EQ(SolveFromZero(MakeMatrix({{1}}), {0.00009}), (std::vector<double>{0}));
  EXPECT_EQ(SolveFromZero(MakeMatrix({{1}}), {0.0001}), (std::vector<double>{0.0001}));
}

TEST(ConjugateGradientSolve, OfASingularMatrixIsTheShortestSolution) {
  const std::vector<double> x = SolveFromZero(MakeMatrix({{1, 1}, {1, 1}}), {2, 2});
  EXPECT_EQ(x, (std::vector<double>{1, 1}));
}

// alpha = rho / 0 fails in every round and stays 0: after 100 rounds nothing has moved.
TEST(ConjugateGradientSolve, ADirectionWithoutLengthKeepsTheStepOfTheRoundBefore) {
  EXPECT_EQ(SolveFromZero(MakeMatrix({{0, 0}, {0, 0}}), {1, 1}), (std::vector<double>{0, 0}));
}

// p . t = 1 - 4 = -3 for the first direction (1, 2): alpha is -5/3, and the second round arrives.
TEST(ConjugateGradientSolve, ADirectionOfNegativeCurvatureTakesItsStep) {
  const Matrix a = MakeMatrix({{1, 0}, {0, -1}});
  const std::vector<double> x = SolveFromZero(a, {1, 2});
  EXPECT_NEAR(x[0], 1, 1e-12);
  EXPECT_NEAR(x[1], -2, 1e-12);
}

TEST(ConjugateGradientSolve, HugeNumbersStayFinite) {
  for (const double x : SolveFromZero(MakeMatrix({{1e308, 1e308}, {1e308, 1e308}}), {1e308, -1e308})) {
    EXPECT_TRUE(std::isfinite(x));
  }
}

TEST(LargestOffDiagonal, TheFirstInRowOrderAmongEqualOnes) {
  const MatrixPlace place = LargestOffDiagonal(MakeMatrix({{9, 1, -3}, {1, 9, 3}, {-3, 3, 9}}));
  EXPECT_EQ(place.p, 0u);
  EXPECT_EQ(place.q, 2u);
  const MatrixPlace last = LargestOffDiagonal(MakeMatrix({{9, 1, -3}, {1, 9, -4}, {-3, -4, 9}}));
  EXPECT_EQ(last.p, 1u);
  EXPECT_EQ(last.q, 2u);
}

TEST(JacobiRotation, OfEqualDiagonalElementsIsAnEighthOfATurn) {
  const Rotation rotation = JacobiRotation(0, 1, MakeMatrix({{2, 1}, {1, 2}}));
  EXPECT_NEAR(rotation.sine.value(), std::sqrt(0.5), 1e-15);
  EXPECT_NEAR(rotation.cosine.value(), std::sqrt(0.5), 1e-15);
}

// b = -4 and d = (1 - 7) / 2 = -3: w = -1 * -4 / 5 = 0.8, s = 0.8 / sqrt(3.2), c = sqrt(0.8).
TEST(JacobiRotation, TakesTheSignOfTheDiagonal) {
  const Rotation rotation = JacobiRotation(0, 1, MakeMatrix({{1, 4}, {4, 7}}));
  EXPECT_NEAR(rotation.sine.value(), 0.8 / std::sqrt(3.2), 1e-15);
  EXPECT_NEAR(rotation.cosine.value(), std::sqrt(0.8), 1e-15);
}

// The square of 1E+200 leaves the range: nothing is turned. Equal diagonal elements need no root.
TEST(JacobiRotation, ARootThatOverflowsTurnsNothing) {
  const Rotation rotation = JacobiRotation(0, 1, MakeMatrix({{3, 1e200}, {1e200, 1}}));
  EXPECT_EQ(rotation.sine.value(), 0);
  EXPECT_EQ(rotation.cosine.value(), 1);
  EXPECT_NEAR(JacobiRotation(0, 1, MakeMatrix({{3, 1e200}, {1e200, 3}})).cosine.value(), std::sqrt(0.5), 1e-15);
}

TEST(JacobiInverse, OfASmallMatrix) {
  const Matrix inverse = JacobiInverse(MakeMatrix({{2, 1}, {1, 2}}));
  EXPECT_NEAR(inverse(0, 0), 2.0 / 3, 1e-15);
  EXPECT_NEAR(inverse(0, 1), -1.0 / 3, 1e-15);
  EXPECT_EQ(inverse(0, 1), inverse(1, 0));
  EXPECT_NEAR(inverse(1, 1), 2.0 / 3, 1e-15);
}

TEST(JacobiInverse, OfOneElement) { EXPECT_EQ(JacobiInverse(MakeMatrix({{4}}))(0, 0), 0.25); }

TEST(JacobiInverse, AnEigenvalueOfZeroIsLeftOut) {
  const Matrix inverse = JacobiInverse(MakeMatrix({{4, 0, 0}, {0, 0, 0}, {0, 0, 2}}));
  EXPECT_EQ(inverse(0, 0), 0.25);
  EXPECT_EQ(inverse(1, 1), 0);
  EXPECT_EQ(inverse(2, 2), 0.5);
  EXPECT_EQ(JacobiInverse(Matrix(3, 3))(1, 1), 0);
}

TEST(JacobiInverse, ElementsBelowTheThresholdCountAsNone) {
  EXPECT_EQ(JacobiInverse(MakeMatrix({{2, 0.00009}, {0.00009, 4}}))(0, 1), 0);
  EXPECT_NEAR(JacobiInverse(MakeMatrix({{2, 0.00011}, {0.00011, 4}}))(0, 1), -0.00011 / 8, 1e-12);
}

TEST(JacobiInverse, HugeNumbersStayFinite) {
  const Matrix inverse = JacobiInverse(MakeMatrix({{1e308, 1e308}, {1e308, -1e308}}));
  for (const double element : inverse.elements()) EXPECT_TRUE(std::isfinite(element));
}

// X'X and X'y of rows that hold y and then the independent variables.
struct Equations {
  Matrix matrix;
  std::vector<double> gradient;
};
Equations NormalEquationsOf(const std::vector<std::vector<double>>& rows) {
  const std::size_t k = rows.front().size();
  Equations equations{Matrix(k, k), std::vector<double>(k)};
  for (std::vector<double> row : rows) {
    const double y = row[0];
    row[0] = 1;
    for (std::size_t i = 0; i < k; ++i) {
      for (std::size_t j = 0; j < k; ++j) equations.matrix(i, j) += row[i] * row[j];
      equations.gradient[i] += row[i] * y;
    }
  }
  return equations;
}

// Norris, a calibration of ozone monitors: y and x. Data and certified values are those of the National Institute of
// Standards and Technology (Statistical Reference Datasets), and agree with a solution in fractions.
const std::vector<std::vector<double>> kNorris = {
    {0.1, 0.2},     {338.8, 337.4}, {118.1, 118.2}, {888.0, 884.6}, {9.2, 10.1},    {228.1, 226.5},
    {668.5, 666.3}, {998.5, 996.3}, {449.1, 448.6}, {778.9, 777.0}, {559.2, 558.2}, {0.3, 0.4},
    {0.1, 0.6},     {778.1, 775.5}, {668.8, 666.9}, {339.3, 338.0}, {448.9, 447.5}, {10.8, 11.6},
    {557.7, 556.0}, {228.3, 228.1}, {998.0, 995.8}, {888.8, 887.6}, {119.6, 120.2}, {0.3, 0.3},
    {0.6, 0.3},     {557.6, 556.8}, {339.3, 339.1}, {888.0, 887.2}, {998.5, 999.0}, {778.9, 779.0},
    {10.2, 11.1},   {117.6, 118.3}, {228.9, 229.2}, {668.4, 669.1}, {449.2, 448.9}, {0.2, 0.5}};

std::vector<std::vector<double>> NorrisTimes(double scale) {
  std::vector<std::vector<double>> rows = kNorris;
  for (std::vector<double>& row : rows) row[1] *= scale;
  return rows;
}

void ExpectRelative(double value, double certified, double distance) {
  EXPECT_LE(std::fabs(value - certified), distance * std::fabs(certified)) << value << " for " << certified;
}

// The certified coefficients to twelve digits. The diagonal of the inverse is (SE / s) squared.
TEST(LinearSolver, NorrisIsAsGoodAsCertified) {
  const Equations norris = NormalEquationsOf(kNorris);
  const std::vector<double> b = SolveFromZero(norris.matrix, norris.gradient);
  ExpectRelative(b[0], -0.262323073774029, 1e-12);
  ExpectRelative(b[1], 1.00211681802045, 1e-12);
  const Matrix inverse = JacobiInverse(norris.matrix);
  const double s = 0.884796396144373;
  ExpectRelative(s * std::sqrt(inverse(0, 0)), 0.232818234301152, 1e-12);
  ExpectRelative(s * std::sqrt(inverse(1, 1)), 0.429796848199937E-03, 1e-12);
}

// Badly scaled: the thresholds are absolute. With x in billionths the sum of x is below 0.0001, so no rotation takes
// place and the errors are those of two unrelated columns, s / sqrt(36) and s / sqrt(x . x). Three powers of ten
// further the residual along x is too short to be followed: the constant alone is fitted, as the mean of y. Figures of
// a second program for the same steps in Python.
TEST(LinearSolver, NorrisWithATinyXLosesItsErrorsAndThenItsSlope) {
  const Equations small = NormalEquationsOf(NorrisTimes(1e-9));
  const std::vector<double> b = SolveFromZero(small.matrix, small.gradient);
  ExpectRelative(b[1], 1002116818.02045, 1e-12);
  const Matrix inverse = JacobiInverse(small.matrix);
  const double s = 0.884796396144373;
  ExpectRelative(s * std::sqrt(inverse(0, 0)), 0.147466066024062, 1e-12);
  ExpectRelative(s * std::sqrt(inverse(1, 1)), 272231.470974918, 1e-12);

  const Equations tiny = NormalEquationsOf(NorrisTimes(1e-12));
  const std::vector<double> lost = SolveFromZero(tiny.matrix, tiny.gradient);
  ExpectRelative(lost[0], 419.80277777777778, 1e-15);
  ExpectRelative(lost[1], 2.9394322e-07, 1e-14);
}

// Longley, employment and six economic series of the United States, 1947 to 1962; data and certified values of the same
// source.
const std::vector<std::vector<double>> kLongley = {
    {60323, 83.0, 234289, 2356, 1590, 107608, 1947},  {61122, 88.5, 259426, 2325, 1456, 108632, 1948},
    {60171, 88.2, 258054, 3682, 1616, 109773, 1949},  {61187, 89.5, 284599, 3351, 1650, 110929, 1950},
    {63221, 96.2, 328975, 2099, 3099, 112075, 1951},  {63639, 98.1, 346999, 1932, 3594, 113270, 1952},
    {64989, 99.0, 365385, 1870, 3547, 115094, 1953},  {63761, 100.0, 363112, 3578, 3350, 116219, 1954},
    {66019, 101.2, 397469, 2904, 3048, 117388, 1955}, {67857, 104.6, 419180, 2822, 2857, 118734, 1956},
    {68169, 108.4, 442769, 2936, 2798, 120445, 1957}, {66513, 110.8, 444546, 4681, 2637, 121950, 1958},
    {68655, 112.6, 482704, 3813, 2552, 123366, 1959}, {69564, 114.2, 502601, 3931, 2514, 125368, 1960},
    {69331, 115.7, 518173, 4806, 2572, 127852, 1961}, {70551, 116.9, 554894, 4007, 2827, 130081, 1962}};

const double kLongleyCoefficients[] = {-3482258.63459582, 15.0618722713733,  -0.358191792925910E-01,
                                       -2.02022980381683, -1.03322686717359, -0.511041056535807E-01,
                                       1829.15146461355};
const double kLongleyErrors[] = {890420.383607373,  84.9149257747669,  0.334910077722432E-01, 0.488399681651699,
                                 0.214274163161675, 0.226073200069370, 455.478499142212};

double MeanOf(const std::vector<std::vector<double>>& rows, std::size_t column) {
  double sum = 0;
  for (const auto& row : rows) sum += row[column];
  return sum / static_cast<double>(rows.size());
}

double DeviationOf(const std::vector<std::vector<double>>& rows, std::size_t column) {
  const double mean = MeanOf(rows, column);
  double squares = 0;
  for (const auto& row : rows) squares += (row[column] - mean) * (row[column] - mean);
  return std::sqrt(squares / static_cast<double>(rows.size() - 1));
}

// Well scaled, as z-scores: nine digits, in spite of a condition of 12220.
TEST(LinearSolver, LongleyInZScoresIsGoodToNineDigits) {
  std::vector<std::vector<double>> scores = kLongley;
  for (std::size_t j = 0; j < 7; ++j) {
    const double mean = MeanOf(kLongley, j);
    const double deviation = DeviationOf(kLongley, j);
    for (auto& row : scores) row[j] = (row[j] - mean) / deviation;
  }
  const Equations equations = NormalEquationsOf(scores);
  const std::vector<double> beta = SolveFromZero(equations.matrix, equations.gradient);
  EXPECT_NEAR(beta[0], 0, 1e-8);
  for (std::size_t j = 1; j < 7; ++j) {
    const double exact = kLongleyCoefficients[j] * DeviationOf(kLongley, j) / DeviationOf(kLongley, 0);
    EXPECT_NEAR(beta[j], exact, 2e-9) << j;
  }
}

// Badly scaled, as it stands: the last coefficients lose half of their digits. The doubles are those of a second
// program for the same steps in Python; the distances to the certified values are stated behind it.
TEST(LinearSolver, LongleyAsItStandsLosesDigits) {
  const Equations equations = NormalEquationsOf(kLongley);
  const std::vector<double> b = SolveFromZero(equations.matrix, equations.gradient);
  const double expected[] = {-0x1.a91494fbbe51bp+21, 0x1.e1faea4a5fd9bp+3,  -0x1.256e440a5655ap-5,
                             -0x1.0296e3fd9c4ecp+1,  -0x1.08818e6068757p+0, -0x1.a2a50e258ff0bp-5,
                             0x1.c949b17c6531dp+10};
  for (std::size_t j = 0; j < 7; ++j) {
    EXPECT_EQ(b[j], expected[j]) << j;
    ExpectRelative(b[j], kLongleyCoefficients[j], 5e-7);
  }
  EXPECT_GT(std::fabs(b[1] - kLongleyCoefficients[1]), 4e-7 * kLongleyCoefficients[1]);

  const double diagonal[] = {0x1.045965453c882p+23, 0x1.3dcaf2eebd0edp-4,  0x1.9eb05376e7e87p-27, 0x1.587d70f0df814p-19,
                             0x1.093b52efb0e90p-21, 0x1.273efa64c08d2p-21, 0x1.1dbbdf2e004cfp+1};
  const Matrix inverse = JacobiInverse(equations.matrix);
  for (std::size_t j = 0; j < 7; ++j) {
    EXPECT_EQ(inverse(j, j), diagonal[j]) << j;
    ExpectRelative(304.854073561965 * std::sqrt(inverse(j, j)), kLongleyErrors[j], 1e-8);
  }
}

// Worse still: the first ten powers of 1 to 12. The 100 rounds pass without an answer, and what stands is the result;
// an exact solution in fractions begins 264.25, -769.52. Figures of the second program.
TEST(LinearSolver, TenPowersEndByTheLimitOfRounds) {
  std::vector<std::vector<double>> rows;
  for (int x = 1; x <= 12; ++x) {
    double power = 1;
    for (int i = 0; i < 5; ++i) power *= x;
    std::vector<double> row{1 + x + power / 1000 + x % 3};
    power = 1;
    for (int p = 1; p <= 10; ++p) row.push_back(power *= x);
    rows.push_back(row);
  }
  const Equations equations = NormalEquationsOf(rows);
  const std::vector<double> b = SolveFromZero(equations.matrix, equations.gradient);
  ExpectRelative(b[0], 1.4187850647113498, 1e-6);
  ExpectRelative(b[1], 1.29167832300853, 1e-6);
  ExpectRelative(b[5], 0.3593795473528469, 1e-6);
  ExpectRelative(b[10], -1.1700723598100452e-06, 1e-6);
}

}  // namespace
}  // namespace tessara
