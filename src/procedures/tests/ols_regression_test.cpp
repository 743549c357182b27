#include "procedures/relate/ols_regression.h"

#include <gtest/gtest.h>

#include <cmath>

#include "numerics/number_text.h"
#include "procedures/relate/regression.h"
#include "procedures/tests/test_data.h"

namespace tessara {
namespace {

const std::string kRule = std::string(82, '-') + "\r\n";

// A run of the first column on others.
struct RegressionRun : TestRun {
  RegressionRun(const std::vector<TestColumn>& columns, std::vector<std::size_t> independent) : TestRun(columns) {
    variables = std::move(independent);
  }

  std::string Report() {
    return ReportOf([this](ProcedureRun& run) {
      RunLeastSquares(run, {roles.main, variables}, options.least_squares);
    });
  }
};

// What stands between two marks of a report.
std::string Between(const std::string& report, const std::string& from, const std::string& to) {
  const std::size_t start = report.find(from);
  if (start == std::string::npos) return "no " + from + " in " + report;
  return report.substr(start, report.find(to, start) - start);
}

// By hand: b = 13.5 / 17.5, SSR = 13.5 b, the rest 3.0857; statsmodels agrees. The p of F, 0.02131, is printed from
// its text of three decimals.
TEST(LeastSquares, WholeReportOfOneVariable) {
  RegressionRun run({{"Y", Texts({"2", "4", "5", "4", "5", "7"})}, {"X", Texts({"1", "2", "3", "4", "5", "6"})}}, {2});
  EXPECT_EQ(run.Report(),
            "----------------------------- Simple OLS Regression ------------------------------\r\n"
            "\r\n"
            "\r\n"
            "Explanatory Model\r\n"
            "\r\n"
            "Y = Constant + X + e\r\n"
            "\r\n"
            "\r\n"
            "Model Fit Statistics\r\n"
            "\r\n"
            "    Cases(n)           R        R Square         Adj Rsq         SE Est. \r\n" +
                kRule +
                "           6       0.878           0.771           0.714           0.878\r\n"
                "\r\n"
                "ANOVA Statistics\r\n"
                "\r\n"
                "                     Sum of Sqs        df           Mean Sq          F       p <  \r\n" +
                kRule +
                "  Regression             10.414         1            10.414     13.500    0.0210\r\n"
                "    Residual              3.086         4             0.771\r\n"
                "       Total             13.500         5\r\n"
                "\r\n"
                "Coefficients\r\n"
                "\r\n"
                "Variable            b Coeff.     std. error        BetaWgt          t        p < \r\n" +
                kRule +
                "    Constant         1.80000        0.81766                     2.201     0.0925\r\n"
                "           X         0.77143        0.20996        0.87831      3.674     0.0213\r\n"
                "\r\n"
                "\r\n"
                "Estimated Model\r\n"
                "\r\n"
                "Y = 1.800 + .771(X)\r\n"
                "\r\n"
                "\r\n");
  EXPECT_FALSE(run.aborted);
  EXPECT_EQ(run.data.VariableCount, 2u);  // nothing is saved unasked
}

// Eight cases of thirteen: the control drops two, the missing values of SCORE and HOURS one each, a word in NOISE one.
// Figures of statsmodels.
const std::vector<TestColumn> kStudy = {
    {"SCORE", Texts({"12.5", "99", "14.1", "11", "30", "18.3", "20.2", "1", "16.4", "5", "22.9", "25", "6"}),
     "Test score", "99||||||"},
    {"HOURS", Texts({"1", "2", "2", "2", "-1", "4", "5", "3", "4", "1", "6", "8", "5"}), "", "-1||||||"},
    {"NOISE", Texts({"3.5", "2", "2", "5.5", "2", "1", "4", "x", "2.5", "2", "6", "3", "7"})},
    {"GROUP", Texts({"1", "1", "1", "1", "1", "1", "1", "1", "1", "2", "1", "1", "2"})}};

TEST(LeastSquares, WholeReportOfTwoVariablesWithSummaryAndControl) {
  RegressionRun run(kStudy, {2, 3});
  run.Control(4, ControlRelation::kEqualTo, "1");
  run.options.least_squares.summary = true;
  EXPECT_EQ(run.Report(),
            "---------------------------- Multiple OLS Regression -----------------------------\r\n"
            "Controlling for GROUP = 1\r\n"
            "\r\n"
            "Explanatory Model\r\n"
            "\r\n"
            "SCORE = Constant + HOURS + NOISE + e\r\n"
            "\r\n"
            "\r\n"
            "Summary Statistics\r\n"
            "\r\n"
            "  Variable            Min           Max        Median          Mean     Std. Dev. \r\n" +
                kRule +
                "     SCORE         11.000        25.000        17.350        17.550         4.976\r\n"
                "     HOURS          1.000         8.000         4.000         4.000         2.330\r\n"
                "     NOISE          1.000         6.000         3.250         3.438         1.700\r\n"
                "\r\n"
                "\r\n"
                "Model Fit Statistics\r\n"
                "\r\n"
                "    Cases(n)           R        R Square         Adj Rsq         SE Est. \r\n" +
                kRule +
                "           8       0.966           0.933           0.906           1.523\r\n"
                "\r\n"
                "ANOVA Statistics\r\n"
                "\r\n"
                "                     Sum of Sqs        df           Mean Sq          F       p <  \r\n" +
                kRule +
                "  Regression            161.738         2            80.869     34.850    0.0010\r\n"
                "    Residual             11.602         5             2.320\r\n"
                "       Total            173.340         7\r\n"
                "\r\n"
                "Coefficients\r\n"
                "\r\n"
                "Variable            b Coeff.     std. error        BetaWgt          t        p < \r\n" +
                kRule +
                "    Constant         9.75527        1.55983                     6.254     0.0015\r\n"
                "       HOURS         2.06980        0.24813        0.96910      8.342     0.0004\r\n"
                "       NOISE        -0.14093        0.34016       -0.04813     -0.414     0.6958\r\n"
                "\r\n"
                "\r\n"
                "Estimated Model\r\n"
                "\r\n"
                "SCORE = 9.755 + 2.070(HOURS) + -.141(NOISE)\r\n"
                "\r\n"
                "\r\n");
  EXPECT_EQ(run.footnote, "Controlling for GROUP = 1");
}

TEST(LeastSquares, ResidualsBecomeANewVariable) {
  std::vector<TestColumn> columns = kStudy;
  columns.push_back({"EMPTY"});
  columns[0].value_labels = {"1=low"};
  RegressionRun run(columns, {2, 3});
  run.Control(4, ControlRelation::kEqualTo, "1");
  run.options.least_squares.save_residuals = true;
  run.Report();
  const DataSet& data = run.data;
  ASSERT_EQ(data.VariableCount, 6u);  // behind the full count, which the blank variable is part of
  EXPECT_EQ(data.RecordCount, 13u);
  EXPECT_EQ(data.VariableName(6), "R-SCORE");
  EXPECT_EQ(data.VarList.back().name, "R-SCORE");
  EXPECT_EQ(data.VariableLabel(6), "Test score");
  EXPECT_TRUE(data.matrix.Cell(kMissingSpecRow, 6).is_empty());  // the label alone is copied
  EXPECT_TRUE(data.matrix.Cell(kFirstValueLabelRow, 6).is_empty());
  const char* expected[] = {"1.16820", "",         "0.48700", "-2.11973", "",         "0.40648", "0.65948",
                            "",        "-1.28212", "",        "1.57155",  "-0.89085", ""};
  for (std::size_t i = 0; i < std::size(expected); ++i) {
    EXPECT_EQ(TextOf(data.matrix.Cell(kFirstRecordRow + i, 6)), expected[i]) << i;
  }
}

TEST(LeastSquares, AnEmptyLabelOfTheResidualsStaysEmpty) {
  RegressionRun run({{"Y", Texts({"1", "2", "4"})}, {"X", Texts({"1", "2", "3"})}}, {2});
  run.options.least_squares.save_residuals = true;
  run.Report();
  EXPECT_EQ(run.data.VariableLabel(3), "");
}

std::string Refusal(const std::string& sentence) { return FramedError("Regression Comparison for Y = Y", sentence); }

const char* const kTooFewForModel =
    "Regression requires that the number of observations be greater than the number of variables used in the model.";

TEST(LeastSquares, OneCaseIsTooFew) {
  RegressionRun run({{"Y", Texts({"1", "x"})}, {"X", Texts({"1", "2"})}}, {2});
  EXPECT_EQ(run.Report(), Refusal("Two or more cases are required."));
  EXPECT_TRUE(run.aborted);
}

TEST(LeastSquares, NoCaseIsTooFew) {
  RegressionRun run({{"Y"}, {"X"}}, {2});
  EXPECT_EQ(run.Report(), Refusal("Two or more cases are required."));
}

TEST(LeastSquares, AsManyCasesAsCoefficientsAreRefused) {
  RegressionRun run({{"Y", Texts({"1", "3", "2"})}, {"A", Texts({"1", "2", "3"})}, {"B", Texts({"2", "1", "5"})}},
                    {2, 3});
  run.options.least_squares.save_residuals = true;
  EXPECT_EQ(run.Report(), Refusal(kTooFewForModel));
  EXPECT_TRUE(run.aborted);
  EXPECT_EQ(run.data.VariableCount, 3u);  // nothing is saved
}

TEST(LeastSquares, WithoutVariablesTheTextNamesThePair) {
  RegressionRun run({{"Y", Texts({"1", "3"})}, {"X", Texts({"1", "2"})}}, {2});
  run.roles.main = 0;
  EXPECT_EQ(run.Report(),
            FramedError("Multiple Regression:  by X", "You must select a dependent and independent variable."));
}

// n - 1 - m is 1. Figures of statsmodels; F is 137.313 with a p of 0.0602.
TEST(LeastSquares, OneCaseMoreThanCoefficientsRuns) {
  RegressionRun run(
      {{"Y", Texts({"1", "3", "2", "5"})}, {"A", Texts({"1", "2", "3", "4"})}, {"B", Texts({"2", "1", "5", "3"})}},
      {2, 3});
  const std::string report = run.Report();
  EXPECT_EQ(Between(report, "           4 ", "Coefficients"),
            "           4       0.998           0.996           0.989           0.178\r\n"
            "\r\n"
            "ANOVA Statistics\r\n"
            "\r\n"
            "                     Sum of Sqs        df           Mean Sq          F       p <  \r\n" +
                kRule +
                "  Regression              8.718         2             4.359    137.313    0.0600\r\n"
                "    Residual              0.032         1             0.032\r\n"
                "       Total              8.750         3\r\n"
                "\r\n");
  EXPECT_EQ(Between(report, "    Constant   ", "\r\n\r\n"),
            "    Constant         0.65079        0.22947                     2.836     0.2158\r\n"
            "           A         1.55556        0.09391        1.17589     16.565     0.0384\r\n"
            "           B        -0.65079        0.07099       -0.65079     -9.168     0.0692");
}

// The shortest solution halves the slope of 0.77143; the mean square loses one degree of freedom: 3.0857 / 3. Adj Rsq
// is (0.7714 - 2 / 5) * 5 / 3. The errors are not looked at: they hang on what rounding makes of an eigenvalue of 0.
TEST(LeastSquares, ACopiedVariableGivesAResultAndNoError) {
  for (const std::vector<std::size_t>& independent : {std::vector<std::size_t>{2, 3}, {2, 2}}) {
    RegressionRun run({{"Y", Texts({"2", "4", "5", "4", "5", "7"})},
                       {"X", Texts({"1", "2", "3", "4", "5", "6"})},
                       {"X", Texts({"1", "2", "3", "4", "5", "6"})}},
                      independent);
    const std::string report = run.Report();
    EXPECT_FALSE(run.aborted);
    EXPECT_NE(report.find("Y = Constant + X + X + e\r\n"), std::string::npos);
    EXPECT_NE(report.find("           6       0.878           0.771           0.619           1.014\r\n"),
              std::string::npos)
        << report;
    EXPECT_NE(report.find("           X         0.38571"), std::string::npos);
    EXPECT_NE(report.find("Y = 1.800 + .386(X) + .386(X)\r\n"), std::string::npos);
    EXPECT_NE(report.find("        0.43916"), std::string::npos);  // half of 0.87831
  }
}

// SST is exactly 0, R Square fails and counts as 0, and so do SSR and F, of which p is 1; Adj Rsq is
// (0 - 1 / 4) * 4 / 3.
TEST(LeastSquares, AConstantDependentVariable) {
  RegressionRun run({{"Y", Texts({"0.1", "0.1", "0.1", "0.1", "0.1"})}, {"X", Texts({"1", "2", "4", "5", "7"})}}, {2});
  const std::string report = run.Report();
  EXPECT_FALSE(run.aborted);
  EXPECT_EQ(Between(report, "           5 ", "Coefficients"),
            "           5       0.000           0.000          -0.333           0.000\r\n"
            "\r\n"
            "ANOVA Statistics\r\n"
            "\r\n"
            "                     Sum of Sqs        df           Mean Sq          F       p <  \r\n" +
                kRule +
                "  Regression              0.000         1             0.000      0.000    1.0000\r\n"
                "    Residual              0.000         3             0.000\r\n"
                "       Total              0.000         4\r\n"
                "\r\n");
  EXPECT_NE(report.find("Y = .100 + .000(X)\r\n"), std::string::npos);
}

// The shortest of all solutions of b0 + 5 b1 = 3.6 is 3.6 / 26 and 18 / 26. Without spread X keeps its 5s in the second
// solve, where y has z-scores, which add up to 0: nothing is left to explain. The errors hang on what rounding makes of
// an eigenvalue of 0.
TEST(LeastSquares, AConstantIndependentVariable) {
  RegressionRun run({{"Y", Texts({"1", "2", "4", "5", "6"})}, {"X", Texts({"5", "5", "5", "5", "5"})}}, {2});
  const std::string report = run.Report();
  EXPECT_FALSE(run.aborted);
  EXPECT_NE(report.find("           5       0.000           0.000          -0.333           2.394\r\n"),
            std::string::npos)
      << report;
  EXPECT_NE(report.find("    Constant         0.13846"), std::string::npos) << report;
  EXPECT_NE(report.find("           X         0.69231"), std::string::npos) << report;
  EXPECT_NE(report.find("        0.00000"), std::string::npos);
  EXPECT_NE(report.find("Y = .138 + .692(X)\r\n"), std::string::npos);
}

// Without errors the rows end behind BetaWgt, and the p of F that has no text is "NA".
TEST(LeastSquares, WithoutAnErrorThereIsNoTest) {
  ModelCases cases;
  cases.dependent_name = "Y";
  cases.ModelNames = {"Constant", "X"};
  cases.variables.resize(2);
  LeastSquaresModel model;
  model.Coef = {1, 2};
  model.CoefSE = {0, 0};
  model.CoefBeta = {0, 0.5};
  model.t = model.p = {0, 0};
  DataSet data = MakeTestData({{"Y"}, {"X"}});
  const std::string report = LeastSquaresReport(cases, model, CaseControl(data, 0, {}), false);
  EXPECT_NE(report.find("  Regression              0.000         0             0.000      0.000        NA\r\n"),
            std::string::npos)
      << report;
  EXPECT_NE(report.find("    Constant         1.00000        0.00000               \r\n"
                        "           X         2.00000        0.00000        0.50000\r\n"),
            std::string::npos)
      << report;
}

// 1E+200 squared leaves the range, alone: what is left of X'X and of the sums of squares keeps the report finite.
TEST(LeastSquares, HugeValuesStayFinite) {
  RegressionRun run(
      {{"Y", Texts({"1e200", "2", "-1e308", "4", "1e308"})}, {"X", Texts({"1", "-1e308", "3e180", "1e308", "9"})}},
      {2});
  run.options.least_squares = {.save_residuals = true, .summary = true};
  const std::string report = run.Report();
  EXPECT_FALSE(run.aborted);
  EXPECT_EQ(report.find("inf"), std::string::npos) << report;
  EXPECT_EQ(report.find("nan"), std::string::npos) << report;
}

// More cases than a block holds, bit by bit against sums that run over all cases at once.
TEST(LeastSquares, SumsRunOnFromBlockToBlock) {
  ModelCases cases;
  cases.n = 3 * ModelBlock::kMostCases + 11;
  cases.variables.resize(4);
  unsigned state = 1;
  for (std::vector<double>& values : cases.variables) {
    for (std::size_t i = 0; i < cases.n; ++i) {
      state = state * 1103515245u + 12345u;
      values.push_back(static_cast<double>(state >> 8) / 1000.0 - 3000);
    }
  }
  const NormalEquations equations = MakeNormalEquations(cases);
  const std::vector<VariableSpread> spreads = MeasureSpreads(cases);
  const NormalEquations standardized = MakeStandardizedEquations(cases, spreads);
  const auto x = [&](std::size_t j, std::size_t i) { return j == 0 ? 1 : cases.variables[j][i]; };
  const auto z = [&](std::size_t j, std::size_t i) {
    return (cases.variables[j][i] - spreads[j].mean.value()) / spreads[j].deviation.value();
  };
  for (std::size_t a = 0; a < 4; ++a) {
    double xy = 0, zy = 0;
    for (std::size_t i = 0; i < cases.n; ++i) xy += x(a, i) * cases.variables[0][i];
    for (std::size_t i = 0; i < cases.n; ++i) zy += (a == 0 ? 1 : z(a, i)) * z(0, i);
    EXPECT_EQ(equations.Gradient[a], xy);
    EXPECT_EQ(standardized.Gradient[a], zy);
    for (std::size_t b = 0; b < 4; ++b) {
      double xx = 0, zz = 0;
      for (std::size_t i = 0; i < cases.n; ++i) xx += x(a, i) * x(b, i);
      for (std::size_t i = 0; i < cases.n; ++i) zz += (a == 0 ? 1 : z(a, i)) * (b == 0 ? 1 : z(b, i));
      EXPECT_EQ(equations.NormalMatrix(a, b), xx);
      EXPECT_EQ(standardized.NormalMatrix(a, b), zz);
    }
  }
}

}  // namespace
}  // namespace tessara
