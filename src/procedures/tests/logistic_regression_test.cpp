#include "procedures/relate/logistic_regression.h"

#include <gtest/gtest.h>

#include <cmath>

#include "data/data_file.h"
#include "numerics/number_text.h"
#include "platform/tests/temporary_folder.h"
#include "procedures/relate/regression.h"
#include "procedures/tests/test_data.h"

namespace tessara {
namespace {

const std::string kRule = std::string(82, '-') + "\r\n";

// A logistic run of the first column on others.
struct LogisticRun : TestRun {
  LogisticRun(const std::vector<TestColumn>& columns, std::vector<std::size_t> independent) : TestRun(columns) {
    variables = std::move(independent);
  }

  std::string Report() {
    return ReportOf([this](ProcedureRun& run) { RunLogistic(run, {roles.main, variables}, options.logistic); });
  }
};

ModelCases MakeCases(std::vector<std::vector<double>> variables) {
  ModelCases cases;
  cases.n = variables[0].size();
  cases.variables = std::move(variables);
  cases.ModelNames.resize(cases.k(), "X");
  return cases;
}

LogisticModel Fit(std::vector<std::vector<double>> variables) {
  const ModelCases cases = MakeCases(std::move(variables));
  return ComputeLogistic(cases, ReadOutcomes(cases));
}

bool Contains(const std::string& report, const std::string& part) { return report.find(part) != std::string::npos; }

const TestColumn kPassed = {"PASSED", Texts({"0", "0", "0", "1", "0", "1", "1", "0", "1", "1"})};
const TestColumn kHours = {"HOURS", Texts({"1", "2", "3", "4", "5", "6", "7", "8", "9", "10"})};

// Figures of statsmodels. The count of 6 is that of a second program for the same steps in Python.
TEST(Logistic, WholeReportOfOneVariable) {
  LogisticRun run({kPassed, kHours}, {2});
  EXPECT_EQ(run.Report(),
            "------------------------------ Logistic Regression -------------------------------\r\n"
            "Dependent Y: PASSED\r\n"
            "\r\n"
            "Cases with Y=0:     5     50.00%\r\n"
            "Cases with Y=1:     5     50.00%\r\n"
            "Total Cases:       10\r\n"
            "\r\n"
            "Explanatory Model\r\n"
            "\r\n"
            "PASSED = Constant + HOURS + e\r\n"
            "\r\n"
            "\r\n"
            "Model Fit Statistics\r\n"
            "\r\n"
            "Initial -2 Log Likelihood       13.863\r\n"
            "Model -2 Log Likelihood          9.883    Iteration (6)\r\n"
            "Cox & Snell Rsq                  0.328\r\n"
            "McFadden Rsq                     0.287\r\n"
            "Model Chi-Square                 3.980    df 1    p< 0.0460\r\n"
            "\r\n"
            "Coefficients\r\n"
            "\r\n"
            "    Variable        b Coeff.          SE         Wald         p <         OR \r\n" +
                kRule +
                "    Constant         -2.9903      2.0095       2.2144      0.1367\r\n"
                "       HOURS          0.5437      0.3362       2.6158      0.1058     1.7224\r\n" +
                kRule +
                "\r\n"
                "Estimated Model\r\n"
                "PASSED = -2.9903 + .5437(HOURS)\r\n"
                "\r\n"
                "\r\n"
                "Classification Table (.50 cutpoint)\r\n"
                "\r\n"
                "\r\n"
                "                    Predicted Y \r\n"
                "Observed Y          0          1       % Correct\r\n"
                "             +-----------+-----------+\r\n"
                "         0   |         4 |         1 |     80.00 \r\n"
                "             +-----------+-----------+\r\n"
                "         1   |         1 |         4 |     80.00 \r\n"
                "             +-----------+-----------+\r\n"
                "                                Total      80.00 \r\n"
                "\r\n");
  EXPECT_FALSE(run.aborted);
  EXPECT_EQ(run.data.VariableCount, 2u);
}

// Twelve cases of fifteen: the control drops one, the missing value of X1 another, a word in Y a third.
const std::vector<TestColumn> kTrial = {
    {"Y", Texts({"0", "0", "x", "0", "1", "0", "1", "1", "1", "0", "1", "0", "1", "0", "1"}), "Outcome"},
    {"X1", Texts({"1", "2", "4", "3", "4", "5", "6", "99", "7", "8", "9", "3", "10", "2", "9"}), "", "99||||||"},
    {"X2", Texts({"0", "1", "0", "0", "1", "1", "0", "1", "1", "0", "0", "1", "1", "1", "0"})},
    {"C", Texts({"5", "5", "5", "5", "5", "5", "5", "5", "5", "5", "5", "1", "5", "5", "5"})}};

TEST(Logistic, WholeReportOfTwoVariablesWithSummaryAndControl) {
  LogisticRun run(kTrial, {2, 3});
  run.Control(4, ControlRelation::kGreaterThan, "3");
  run.options.logistic.summary = true;
  EXPECT_EQ(run.Report(),
            "------------------------------ Logistic Regression -------------------------------\r\n"
            "Controlling for C > 3\r\n"
            "Dependent Y: Y\r\n"
            "\r\n"
            "Cases with Y=0:     6     50.00%\r\n"
            "Cases with Y=1:     6     50.00%\r\n"
            "Total Cases:       12\r\n"
            "\r\n"
            "Explanatory Model\r\n"
            "\r\n"
            "Y = Constant + X1 + X2 + e\r\n"
            "\r\n"
            "\r\n"
            "Summary Statistics\r\n"
            "\r\n"
            "  Variable            Min           Max        Median          Mean     Std. Dev. \r\n" +
                kRule +
                "         Y          0.000         1.000         0.500         0.500         0.522\r\n"
                "        X1          1.000        10.000         5.500         5.500         3.119\r\n"
                "        X2          0.000         1.000         0.500         0.500         0.522\r\n"
                "\r\n"
                "\r\n"
                "Model Fit Statistics\r\n"
                "\r\n"
                "Initial -2 Log Likelihood       16.636\r\n"
                "Model -2 Log Likelihood          9.815    Iteration (7)\r\n"
                "Cox & Snell Rsq                  0.434\r\n"
                "McFadden Rsq                     0.410\r\n"
                "Model Chi-Square                 6.821    df 2    p< 0.0330\r\n"
                "\r\n"
                "Coefficients\r\n"
                "\r\n"
                "    Variable        b Coeff.          SE         Wald         p <         OR \r\n" +
                kRule +
                "    Constant         -4.8722      3.1958       2.3243      0.1274\r\n"
                "          X1          0.7535      0.4215       3.1963      0.0738     2.1244\r\n"
                "          X2          1.3423      1.9602       0.4689      0.4935     3.8278\r\n" +
                kRule +
                "\r\n"
                "Estimated Model\r\n"
                "Y = -4.8722 + .7535(X1) + 1.3423(X2)\r\n"
                "\r\n"
                "\r\n"
                "Classification Table (.50 cutpoint)\r\n"
                "\r\n"
                "\r\n"
                "                    Predicted Y \r\n"
                "Observed Y          0          1       % Correct\r\n"
                "             +-----------+-----------+\r\n"
                "         0   |         4 |         2 |     66.67 \r\n"
                "             +-----------+-----------+\r\n"
                "         1   |         2 |         4 |     66.67 \r\n"
                "             +-----------+-----------+\r\n"
                "                                Total      66.67 \r\n"
                "\r\n");
}

// Values of statsmodels in the columns; the excluded cases' cells are empty.
TEST(Logistic, PredictedValuesAndResidualsSurviveASave) {
  LogisticRun run(kTrial, {2, 3});
  run.Control(4, ControlRelation::kGreaterThan, "3");
  run.options.logistic.save_predicted = true;
  run.Report();
  ASSERT_EQ(run.data.VariableCount, 6u);
  EXPECT_EQ(run.data.VarList[5].name, "Pi-Y");
  EXPECT_EQ(run.data.VarList[6].name, "R-Y");

  const TemporaryFolder folder;
  const Path path = folder / "saved.dcs";
  ASSERT_EQ(SaveDataFileTo(run.data, run.platform, path), SaveOutcome::kSaved);
  DataSet data;
  ASSERT_EQ(LoadDataFile(data, run.platform, path, FilePick::kPicked), LoadOutcome::kLoaded);
  ASSERT_EQ(data.VariableCount, 6u);
  ASSERT_EQ(data.RecordCount, 15u);
  EXPECT_EQ(data.VariableName(5), "Pi-Y");
  EXPECT_EQ(data.VariableName(6), "R-Y");
  EXPECT_EQ(data.VariableLabel(1), "Outcome");
  EXPECT_EQ(data.VariableLabel(5), "");
  EXPECT_EQ(data.VariableLabel(6), "");
  const char* predicted[] = {"0.01601", "0.11682", "",        "0.06839", "0.37383", "0.55914", "0.41311", "",
                             "0.85128", "0.76059", "0.87095", "",        "0.98211", "0.11682", "0.87095"};
  const char* residuals[] = {"-0.01601", "-0.11682", "",        "-0.06839", "0.62617", "-0.55914", "0.58689", "",
                             "0.14872",  "-0.76059", "0.12905", "",         "0.01789", "-0.11682", "0.12905"};
  for (std::size_t i = 0; i < 15; ++i) {
    EXPECT_EQ(TextOf(data.matrix.Cell(kFirstRecordRow + i, 5)), predicted[i]) << i;
    EXPECT_EQ(TextOf(data.matrix.Cell(kFirstRecordRow + i, 6)), residuals[i]) << i;
  }
}

std::string TooFew(const std::string& k, const std::string& ones, const std::string& zeros) {
  return FramedError("Logistic Regression Comparison for Y = Y",
                     "Logistic regression assumes that the dependent variable will be coded 1 for \r\n"
                     "the response of interest and the base comparison group will be coded as 0. \r\n"
                     "There must also be at least k + 1 observations in both the 1 and the 0 group.\r\n"
                     "\r\n"
                     "See below: \r\n"
                     "\r\n"
                     "k + 1: " +
                         k + "  (Minimum Obs required in each group)\r\nY = 1: " + ones + "  Obs\r\nY = 0: " + zeros +
                         "  Obs\r\n"
                         "\r\n"
                         "Run frequencies on the dependent variable to check its properties.");
}

TEST(Logistic, NoZeroCaseIsRefused) {
  LogisticRun run({{"Y", Texts({"1", "1", "2", "1", "2"})}, {"X", Texts({"1", "2", "3", "4", "5"})}}, {2});
  run.options.logistic.save_predicted = true;
  EXPECT_EQ(run.Report(), TooFew("    2", "    3", "    0"));
  EXPECT_TRUE(run.aborted);
  EXPECT_EQ(run.data.VariableCount, 2u);
}

TEST(Logistic, EachGroupNeedsAsManyCasesAsThereAreCoefficients) {
  const TestColumn x{"X", Texts({"1", "2", "3", "4"})};
  LogisticRun short_of_ones({{"Y", Texts({"0", "1", "0", "0"})}, x}, {2});
  EXPECT_EQ(short_of_ones.Report(), TooFew("    2", "    1", "    3"));
  LogisticRun enough({{"Y", Texts({"0", "1", "0", "1"})}, x}, {2});
  enough.Report();
  EXPECT_FALSE(enough.aborted);
}

TEST(Logistic, TheChecksOfTheCasesComeFirst) {
  LogisticRun one({{"Y", Texts({"1"})}, {"X", Texts({"1"})}}, {2});
  EXPECT_EQ(one.Report(), FramedError("Regression Comparison for Y = Y", "Two or more cases are required."));
  LogisticRun two({{"Y", Texts({"1", "0"})}, {"X", Texts({"1", "2"})}}, {2});
  EXPECT_EQ(two.Report(), FramedError("Regression Comparison for Y = Y",
                                      "Regression requires that the number of observations be greater than the number "
                                      "of variables used in the model."));
}

// The first step is 0, and the second round finds it: both probabilities are .5, which counts as predicted 1. The chi
// of 0 has no p, for the model nor for the coefficients, whose p stays at 0.
TEST(Logistic, AProbabilityOfAHalfCountsAsPredictedOne) {
  LogisticRun run({{"Y", Texts({"0", "1", "0", "1"})}, {"X", Texts({"-1", "-1", "1", "1"})}}, {2});
  const std::string report = run.Report();
  EXPECT_TRUE(Contains(report, "Model -2 Log Likelihood          5.545    Iteration (2)\r\n")) << report;
  EXPECT_TRUE(Contains(report,
                       "Model Chi-Square                 0.000    df 1    p< \r\n"
                       "\r\n"
                       "Coefficients\r\n"))
      << report;
  EXPECT_TRUE(Contains(report,
                       "    Constant          0.0000      1.0000       0.0000      0.0000\r\n"
                       "           X          0.0000      1.0000       0.0000      0.0000     1.0000\r\n"))
      << report;
  EXPECT_TRUE(Contains(report,
                       "         0   |         0 |         2 |      0.00 \r\n"
                       "             +-----------+-----------+\r\n"
                       "         1   |         0 |         2 |    100.00 \r\n"))
      << report;
}

// Models that run away: statements that leave the range of a double assign nothing, and an eta that fails is that of
// the case before. The figures are those of a second program for the same steps in Python.
TEST(Logistic, AModelThatRunsAwayIsReported) {
  LogisticRun capped({{"Y", Texts({"0", "1", "0", "1", "0", "1"})},
                      {"X", Texts({"242", "420", "913", "880", "778", "217"})},
                      {"Z", Texts({"2", "1", "0", "0", "1", "1"})}},
                     {2, 3});
  const std::string report = capped.Report();
  EXPECT_TRUE(Contains(report, "Model -2 Log Likelihood       1200.000    Iteration (201)\r\n")) << report;
  EXPECT_TRUE(Contains(report, "McFadden Rsq                  -143.270\r\n")) << report;

  LogisticRun beyond({{"Y", Texts({"0", "1", "0", "1", "0", "1"})},
                      {"X", Texts({"89", "13", "13", "-4", "36", "34"})},
                      {"Z", Texts({"1", "0", "1", "1", "0", "0"})}},
                     {2, 3});
  EXPECT_TRUE(Contains(beyond.Report(),
                       "         0   |         1 |         2 |     33.33 \r\n"
                       "             +-----------+-----------+\r\n"
                       "         1   |         1 |         2 |     66.67 \r\n"));
}

// One step of Newton's method after another by hand, with b0 alone in question: the logit of 4 / 7 from 0 is reached to
// 0.00001 by the step of round 3, which round 4 takes and finds small.
TEST(Logistic, TheCountIsTheRoundThatFoundTheStepSmall) {
  const std::vector<double> y{0, 1, 0, 1, 1, 0, 1};
  double b = 0, step = 1;
  int round = 1;
  for (;; ++round) {
    if (round > 1) {
      b += step;
      if (std::fabs(step) < 0.00001) break;
    }
    const double p = 1 / (1 + std::exp(-b));
    step = (4 - 7 * p) / (7 * p * (1 - p));
  }
  ASSERT_EQ(round, 4);
  const LogisticModel model = Fit({y, {0, 0, 0, 0, 0, 0, 0}});
  EXPECT_EQ(model.IterationCount, 4);
  EXPECT_NEAR(model.Coef[0], std::log(4.0 / 3), 1e-6);
}

// A column of zeros has no error. Figures of statsmodels on the others.
TEST(Logistic, ACoefficientWithoutAnErrorKeepsTheTestOfTheOneBefore) {
  LogisticRun run({{"Y", Texts({"0", "1", "0", "1", "1", "0", "1"})},
                   {"NONE", Texts({"0", "0", "0", "0", "0", "0", "0"})},
                   {"X", Texts({"1", "2", "3", "4", "5", "6", "7"})}},
                  {2, 3});
  const std::string report = run.Report();
  EXPECT_TRUE(Contains(report,
                       "    Constant         -0.9160      1.7738       0.2667      0.6056\r\n"
                       "        NONE          0.0000      0.0000       0.2667      0.6056     1.0000\r\n"
                       "           X          0.3076      0.4136       0.5529      0.4572     1.3601\r\n"))
      << report;
}

// The case of 2 is one of the 11: it is fitted like a 0, shares in the percentages' total, and stands in no cell.
// Figures of statsmodels for y = 1 against the rest.
TEST(Logistic, AnotherValueCountsForNeitherOutcomeAndStaysInTheModel) {
  LogisticRun run({{"Y", Texts({"0", "0", "0", "1", "0", "1", "1", "0", "1", "1", "2"})},
                   {"X", Texts({"1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "6"})}},
                  {2});
  run.options.logistic.save_predicted = true;
  const std::string report = run.Report();
  EXPECT_TRUE(Contains(report,
                       "Cases with Y=0:     5     45.45%\r\n"
                       "Cases with Y=1:     5     45.45%\r\n"
                       "Total Cases:       11\r\n"))
      << report;
  EXPECT_TRUE(Contains(report,
                       "Initial -2 Log Likelihood       15.769\r\n"
                       "Model -2 Log Likelihood         11.384    Iteration (6)\r\n"))
      << report;
  EXPECT_TRUE(Contains(report,
                       "    Constant         -3.1920      2.0733       2.3702      0.1237\r\n"
                       "           X          0.5261      0.3307       2.5301      0.1117     1.6923\r\n"))
      << report;
  EXPECT_TRUE(Contains(report,
                       "         0   |         4 |         1 |     80.00 \r\n"
                       "             +-----------+-----------+\r\n"
                       "         1   |         2 |         3 |     60.00 \r\n"
                       "             +-----------+-----------+\r\n"
                       "                                Total      63.64 \r\n"))
      << report;
  EXPECT_EQ(TextOf(run.data.matrix.Cell(kFirstRecordRow + 10, 3)), "0.49111");
  EXPECT_EQ(TextOf(run.data.matrix.Cell(kFirstRecordRow + 10, 4)), "-0.49111");
}

// The coefficients run away until the gradient is shorter than the solver's threshold. Coefficients, errors and count
// of a second program for the same steps in Python.
TEST(Logistic, PerfectlySeparatedOutcomesRunToTheEnd) {
  LogisticRun run({{"Y", Texts({"0", "0", "0", "1", "1", "1"})}, {"X", Texts({"1", "2", "3", "4", "5", "6"})}}, {2});
  run.options.logistic.save_predicted = true;
  const std::string report = run.Report();
  EXPECT_FALSE(run.aborted);
  EXPECT_TRUE(Contains(report, "Model -2 Log Likelihood          0.001    Iteration (13)\r\n")) << report;
  EXPECT_TRUE(Contains(report,
                       "    Constant        -58.2232    318.4620       0.0334      0.8549\r\n"
                       "           X         16.6752     91.8812       0.0329      0.8560"))
      << report;
  EXPECT_TRUE(Contains(report, "                                Total     100.00 \r\n")) << report;
  EXPECT_EQ(TextOf(run.data.matrix.Cell(kFirstRecordRow, 3)), "0.00000");
  EXPECT_EQ(TextOf(run.data.matrix.Cell(kFirstRecordRow + 5, 3)), "1.00000");
  EXPECT_EQ(TextOf(run.data.matrix.Cell(kFirstRecordRow + 5, 4)), "0.00000");
}

TEST(Logistic, ACopiedVariableSharesTheCoefficient) {
  const LogisticModel one = Fit({{0, 1, 0, 1, 0, 1, 1, 0}, {1, 5, 2, 4, 3, 2, 5, 4}});
  const LogisticModel two = Fit({{0, 1, 0, 1, 0, 1, 1, 0}, {1, 5, 2, 4, 3, 2, 5, 4}, {1, 5, 2, 4, 3, 2, 5, 4}});
  EXPECT_NEAR(two.Coef[1], one.Coef[1] / 2, 1e-4);
  EXPECT_EQ(two.Coef[1], two.Coef[2]);
  EXPECT_NEAR(two.ModelDeviance.value(), one.ModelDeviance.value(), 1e-8);
}

bool Finite(const LogisticModel& model) {
  for (const auto* figures :
       {&model.Coef, &model.CoefSE, &model.wald, &model.p, &model.odds_ratio, &model.probabilities}) {
    for (const double figure : *figures) {
      if (!std::isfinite(figure)) return false;
    }
  }
  return true;  // the rest are Numbers, which are finite
}

// X of thousands gives an eta far beyond 200 in the first rounds, X of 1E+200 and more products that leave the range.
TEST(Logistic, AHugeEtaIsCutAndEverythingStaysFinite) {
  EXPECT_TRUE(Finite(Fit({{0, 0, 0, 1, 1, 1}, {-3000, -2000, 1000, 1000, 2000, 300000}})));
  EXPECT_TRUE(Finite(Fit({{0, 0, 1, 0, 1, 1}, {-3e8, -2e12, 1, 1, 2e12, 3e15}})));
  EXPECT_TRUE(Finite(Fit({{0, 0, 1, 0, 1, 1}, {-3e200, -2e160, 1, 1, 1.5e308, 3e155}})));
  EXPECT_TRUE(Finite(Fit({{0, 0, 1, 0, 1, 1}, {1e308, 1e308, 1e308, -1e308, 1e308, -1e308}, {1, 2, 3, 4, 5, 6}})));
}

// Badly scaled, Newton's steps overshoot until the 200 rounds are over, and the last step is not taken. The sixth case,
// a 0, has an eta of 1E+129 that is cut to 200 and costs ln(1 + exp(200)), 200; the fourth costs ln 2. The first case's
// eta of -1E+125 stays, and nothing fails. Figures of a second program for the same steps in Python.
TEST(Logistic, TheRoundsEndAt200AndEtaIsCutFromAboveOnly) {
  LogisticRun run({{"Y", Texts({"0", "1", "1", "0", "1", "0"})},
                   {"A", Texts({"5", "5", "7", "6", "5", "1"})},
                   {"B", Texts({"1", "50000", "4", "2", "80000", "10000"})}},
                  {2, 3});
  run.options.logistic.save_predicted = true;
  const std::string report = run.Report();
  EXPECT_TRUE(Contains(report,
                       "Initial -2 Log Likelihood        8.318\r\n"
                       "Model -2 Log Likelihood        401.386    Iteration (201)\r\n"))
      << report;
  const std::size_t predicted = 4;
  EXPECT_EQ(TextOf(run.data.matrix.Cell(kFirstRecordRow, predicted)), "0.00000");
  EXPECT_EQ(TextOf(run.data.matrix.Cell(kFirstRecordRow + 1, predicted)), "1.00000");
  EXPECT_EQ(TextOf(run.data.matrix.Cell(kFirstRecordRow + 5, predicted)), "1.00000");
}

// A tiny X has a coefficient beyond 710, and exp() fails. The constant has no odds ratio, so there is nothing to keep
// in the first place; in a later one the ratio of the variable before stays.
TEST(Logistic, AnOddsRatioBeyondTheRangeKeepsThatOfTheVariableBefore) {
  const std::vector<double> outcome = {0, 0, 0, 1, 0, 1, 1, 0, 1, 1};
  const std::vector<double> tiny = {-0.0025, -0.002, -0.0015, -0.001, -0.0005, 0, 0.0005, 0.001, 0.0015, 0.002};
  const std::vector<double> plain = {1, 2, 1, 2, 1, 1, 2, 2, 1, 2};

  const LogisticModel first = Fit({outcome, tiny, plain});
  ASSERT_GT(first.Coef[1], 710);
  EXPECT_NE(first.Coef[0], 0);
  EXPECT_EQ(first.odds_ratio[1], 0);
  EXPECT_EQ(first.odds_ratio[2], std::exp(first.Coef[2]));

  const LogisticModel second = Fit({outcome, plain, tiny});
  ASSERT_GT(second.Coef[2], 710);
  EXPECT_EQ(second.odds_ratio[1], std::exp(second.Coef[1]));
  EXPECT_EQ(second.odds_ratio[2], second.odds_ratio[1]);
}

// More cases than a block holds, against the same sums without blocks.
TEST(Logistic, TheFirstStepOfManyCases) {
  std::vector<std::vector<double>> variables(3);
  unsigned state = 7;
  const auto next = [&state] {
    state = state * 1103515245u + 12345u;
    return static_cast<double>(state >> 8) / 16777216.0;
  };
  for (std::size_t i = 0; i < 1000; ++i) {
    variables[1].push_back(next() - 0.5);
    variables[2].push_back(next() - 0.5);
    variables[0].push_back(next() < 1 / (1 + std::exp(-0.3 - variables[1][i] + 2 * variables[2][i])) ? 1 : 0);
  }
  // Newton's method with Cramer's rule in the place of the solver.
  double b[3] = {0, 0, 0};
  for (int round = 0; round < 20; ++round) {
    double g[3] = {}, h[3][3] = {};
    for (std::size_t i = 0; i < 1000; ++i) {
      const double x[3] = {1, variables[1][i], variables[2][i]};
      const double p = 1 / (1 + std::exp(-(b[0] * x[0] + b[1] * x[1] + b[2] * x[2])));
      for (int j = 0; j < 3; ++j) {
        g[j] += (variables[0][i] - p) * x[j];
        for (int l = 0; l < 3; ++l) h[j][l] += p * (1 - p) * x[j] * x[l];
      }
    }
    const auto determinant = [](const double m[3][3]) {
      return m[0][0] * (m[1][1] * m[2][2] - m[1][2] * m[2][1]) - m[0][1] * (m[1][0] * m[2][2] - m[1][2] * m[2][0]) +
             m[0][2] * (m[1][0] * m[2][1] - m[1][1] * m[2][0]);
    };
    const double whole = determinant(h);
    for (int j = 0; j < 3; ++j) {
      double replaced[3][3];
      for (int r = 0; r < 3; ++r) {
        for (int c = 0; c < 3; ++c) replaced[r][c] = c == j ? g[r] : h[r][c];
      }
      b[j] += determinant(replaced) / whole;
    }
  }
  const LogisticModel model = Fit(variables);
  for (std::size_t j = 0; j < 3; ++j) EXPECT_NEAR(model.Coef[j], b[j], 1e-5);
  EXPECT_EQ(model.probabilities.size(), 1000u);
}

}  // namespace
}  // namespace tessara
