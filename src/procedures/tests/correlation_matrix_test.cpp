#include "procedures/relate/correlation_matrix.h"

#include <gtest/gtest.h>

#include <random>

#include "procedures/relate/correlation.h"
#include "procedures/relate/pearson.h"
#include "procedures/tests/test_data.h"

namespace tessara {
namespace {

std::string Rule(std::size_t length) { return std::string(length, '-') + "\r\n"; }

constexpr const char* kEnd = "\r\n2-tailed significance tests\r\n'.' p-value not computed\r\n\r\n\r\n";

// A run on the first `count` columns.
TestRun MatrixRun(const std::vector<TestColumn>& columns, std::size_t count) {
  TestRun run(columns);
  for (std::size_t column = 1; column <= count; ++column) run.variables.push_back(column);
  return run;
}

// r and p by scipy's pearsonr over the common cases of each pair: 0.901912 with p 0.013960 (6 cases), -0.957441 with
// 0.002678 (6), -0.740796 with 0.152106 (5).
const std::vector<TestColumn> kColumns = {{"A", Texts({"1", "2", "3", "4", "5", "6", "", "8"})},
                                          {"B", Texts({"2", "1", "4", "3", "99", "5", "7", "6"}), "", "99||||||"},
                                          {"C", Texts({"8", "6", "7", "5", "3", "", "x", "1"})},
                                          {"G", Texts({"1", "1", "1", "1", "1", "1", "1", "1"})}};

const std::string kThree = Rule(44) +
                           "    Coeff |        Correlation Matrix       |\r\n"
                           "    Cases |--------------------------------|\r\n"
                           "      p < |        A |        B |        C |\r\n" +
                           Rule(44) +
                           "        A |    1.000 |    0.902 |   -0.957 |\r\n"
                           "          |        7 |        6 |        6 |\r\n"
                           "          |        . |   0.0140 |   0.0027 |\r\n" +
                           Rule(44) +
                           "        B |    0.902 |    1.000 |   -0.741 |\r\n"
                           "          |        6 |        7 |        5 |\r\n"
                           "          |   0.0140 |        . |   0.1521 |\r\n" +
                           Rule(44) +
                           "        C |   -0.957 |   -0.741 |    1.000 |\r\n"
                           "          |        6 |        5 |        6 |\r\n"
                           "          |   0.0027 |   0.1521 |        . |\r\n" +
                           Rule(44) + kEnd;

TEST(CorrelationMatrix, EachCellHasItsOwnN) {
  TestRun run = MatrixRun(kColumns, 3);
  EXPECT_EQ(run.Report(RunCorrelationMatrix), "Correlation: Pearson (R) Coefficients\r\n\r\n" + kThree);
  EXPECT_FALSE(run.aborted);
  EXPECT_EQ(run.charts.kind, ChartKind::kNone);
}

TEST(CorrelationMatrix, TheControlLabelStandsUnderTheTitle) {
  TestRun run = MatrixRun(kColumns, 3);
  run.Control(4, ControlRelation::kNotEqualTo, "2");
  EXPECT_EQ(run.Report(RunCorrelationMatrix),
            "Correlation: Pearson (R) Coefficients\r\nControl: G not equal to 2\r\n\r\n" + kThree);
}

TEST(CorrelationMatrix, CasesThatTheControlExcludesAreInNoCell) {
  std::vector<TestColumn> columns = {{"A", Texts({"1", "2", "3", "100"})}, {"B", Texts({"2", "1", "3", "-50"})}};
  columns.push_back({"G", Texts({"a", "a", "a", "b"})});
  TestRun run = MatrixRun(columns, 2);
  run.Control(3, ControlRelation::kEqualTo, "a");
  const std::string report = run.Report(RunCorrelationMatrix);
  EXPECT_NE(report.find("        A |    1.000 |    0.500 |\r\n          |        3 |        3 |\r\n"),
            std::string::npos);
}

// Names are cut after nine characters. r of these pairs is -0.5, its p with one degree of freedom 2/3.
TEST(CorrelationMatrix, TwoVariablesAndLongNames) {
  TestRun run = MatrixRun({{"TEMPERATURE", Texts({"1", "2", "3"})}, {"PRESSURE1", Texts({"2", "3", "1"})}}, 2);
  EXPECT_EQ(run.Report(RunCorrelationMatrix), "Correlation: Pearson (R) Coefficients\r\n\r\n" + Rule(33) +
                                                  "    Coeff |  Correlation Matrix  |\r\n"
                                                  "    Cases |---------------------|\r\n"
                                                  "      p < |TEMPERATU |PRESSURE1 |\r\n" +
                                                  Rule(33) +
                                                  "TEMPERATU |    1.000 |   -0.500 |\r\n"
                                                  "          |        3 |        3 |\r\n"
                                                  "          |        . |   0.6667 |\r\n" +
                                                  Rule(33) +
                                                  "PRESSURE1 |   -0.500 |    1.000 |\r\n"
                                                  "          |        3 |        3 |\r\n"
                                                  "          |   0.6667 |        . |\r\n" +
                                                  Rule(33) + kEnd);
}

// 11 k - 18 halved, to the even number: 2, 8 (7.5), 13, 18 (18.5), 24, 30 (29.5), 40 (40.5), 90. Behind the words 2
// fewer for 3, 7 and 18, as many for 5 and 9, else 1 fewer.
TEST(CorrelationMatrix, TheHeadLineFollowsTheNumberOfVariables) {
  const struct {
    std::size_t variables, ahead, behind;
  } kHeads[] = {{2, 2, 1}, {3, 8, 6}, {4, 13, 12}, {5, 18, 18}, {6, 24, 23}, {7, 30, 28}, {9, 40, 40}, {18, 90, 88}};
  for (const auto& head : kHeads) {
    TestRun run({{"A", Texts({"1", "2", "3"})}});
    run.variables.assign(head.variables, 1);
    const std::string report = run.Report(RunCorrelationMatrix);
    const std::string rule(head.variables * 11 + 11, '-');
    EXPECT_NE(report.find("\r\n" + rule + "\r\n    Coeff |" + std::string(head.ahead, ' ') + "Correlation Matrix" +
                          std::string(head.behind, ' ') + " |\r\n    Cases |" +
                          std::string(head.variables * 11 - 1, '-') + "|\r\n      p < |        A |"),
              std::string::npos)
        << head.variables;
  }
}

TEST(CorrelationMatrix, FewerThanTwoVariablesGiveTheSentenceAlone) {
  const std::string stars(77, '*');
  const std::string frame = stars + "\r\n\r\n" + std::string(30, ' ') +
                            "-- Error --\r\n\r\n\r\n"
                            "You must select at least two analysis variables.\r\n\r\n"
                            "\r\n\r\n" +
                            stars + "\r\n\r\n";
  TestRun one = MatrixRun(kColumns, 1);
  EXPECT_EQ(one.Report(RunCorrelationMatrix), frame);
  EXPECT_TRUE(one.aborted);
  EXPECT_EQ(MatrixRun(kColumns, 0).Report(RunCorrelationMatrix), frame);
}

// A and B have no common case, C only one case at all. Frames come row by row, each pair once; the report follows.
TEST(CorrelationMatrix, APairWithoutTwoCasesLeavesItsCellsBlank) {
  TestRun run = MatrixRun(
      {{"A", Texts({"1", "2", "", ""})}, {"B", Texts({"", "", "3", "4"})}, {"C", Texts({"", "", "", "9"})}}, 3);
  const auto frame = [](const std::string& names) {
    return FramedError("Correlation Comparison: " + names, "Two or more cases are required.") +
           std::string(kReportSeparator);
  };
  EXPECT_EQ(run.Report(RunCorrelationMatrix), frame("A by B") + frame("A by C") + frame("B by C") + frame("C by C") +
                                                  "Correlation: Pearson (R) Coefficients\r\n\r\n" + Rule(44) +
                                                  "    Coeff |        Correlation Matrix       |\r\n"
                                                  "    Cases |--------------------------------|\r\n"
                                                  "      p < |        A |        B |        C |\r\n" +
                                                  Rule(44) +
                                                  "        A |    1.000 |          |          |\r\n"
                                                  "          |        2 |          |          |\r\n"
                                                  "          |        . |          |          |\r\n" +
                                                  Rule(44) +
                                                  "        B |          |    1.000 |          |\r\n"
                                                  "          |          |        2 |          |\r\n"
                                                  "          |          |        . |          |\r\n" +
                                                  Rule(44) +
                                                  "        C |          |          |          |\r\n"
                                                  "          |          |          |          |\r\n"
                                                  "          |          |          |          |\r\n" +
                                                  Rule(44) + kEnd);
  EXPECT_TRUE(run.aborted);
}

TEST(CorrelationMatrix, NoRecordsAtAll) {
  TestRun run = MatrixRun({{"A", {}}, {"B", {}}}, 2);
  const std::string report = run.Report(RunCorrelationMatrix);
  EXPECT_NE(report.find("Correlation Comparison: B by B\r\n"), std::string::npos);
  EXPECT_NE(report.find("        A |          |          |\r\n"), std::string::npos);
}

// 0.3 three times: the sums round, the spread is 0 all the same. With a case that is dropped the answer is the same.
TEST(CorrelationMatrix, AVariableWithoutSpreadHasAnROfZeroOnItsDiagonal) {
  for (const char* last : {"7", ""}) {
    TestRun run =
        MatrixRun({{"A", Texts({"0.3", "0.3", "0.3", "9"}), "", "9||||||"}, {"B", Texts({"1", "2", "4", last})}}, 2);
    const std::string report = run.Report(RunCorrelationMatrix);
    EXPECT_NE(report.find("        A |    0.000 |    0.000 |\r\n          |        3 |        3 |\r\n"
                          "          |   1.0000 |   1.0000 |\r\n"),
              std::string::npos);
  }
  TestRun complete = MatrixRun({{"A", Texts({"0.3", "0.3", "0.3"})}, {"B", Texts({"1", "2", "4"})}}, 2);
  EXPECT_NE(complete.Report(RunCorrelationMatrix).find("        A |    0.000 |    0.000 |\r\n"), std::string::npos);
}

// A variable that is constant only among the common cases of a pair has no spread there.
TEST(CorrelationMatrix, SpreadIsThatOfThePair) {
  TestRun run = MatrixRun({{"A", Texts({"0.3", "0.3", "0.3", "5"})}, {"B", Texts({"1", "2", "4", ""})}}, 2);
  EXPECT_NE(run.Report(RunCorrelationMatrix).find("        A |    1.000 |    0.000 |\r\n"), std::string::npos);
}

// The matrix and the report of the pair print the same figures, with cases missing and without.
TEST(CorrelationMatrix, CellsAreThoseOfTheReportOfThePair) {
  std::mt19937_64 random(7);
  for (const bool with_gaps : {false, true}) {
    TestColumn a{"A"}, b{"B"};
    for (int i = 0; i < 200; ++i) {
      const double common = static_cast<double>(random() % 1000) / 7 + 1e5;
      a.cells.emplace_back(common + static_cast<double>(random() % 1000) / 3);
      b.cells.emplace_back(common - static_cast<double>(random() % 1000) / 9);
      if (with_gaps && random() % 5 == 0) a.cells.back() = "";
      if (with_gaps && random() % 7 == 0) b.cells.back() = "x";
    }
    TestRun run = MatrixRun({a, b}, 2);
    const CorrelationStore store = ComputeCorrelationMatrix(CasesOfAllRecords(run.data), run.variables);
    const auto& cell = store.At(1, 0);
    ASSERT_TRUE(cell.has_value());
    run.Independent(2);
    const std::string report = run.Report(RunCorrelation);
    EXPECT_NE(report.find("Number of cases: " + std::to_string(cell->n) + "\r\n"), std::string::npos);
    EXPECT_NE(report.find("Pearson Correlation: " + ShownR(cell->r) +
                          "\r\np < (2-tailed signif.): " + ShownP(cell->r, cell->p) + "\r\n"),
              std::string::npos);
  }
}

// More pairs than wait for their p together: those of 100 variables are 5050.
TEST(CorrelationMatrix, EveryPairOfManyVariablesIsThere) {
  std::vector<TestColumn> columns;
  for (int v = 0; v < 100; ++v) {
    TestColumn column{.name = "V" + std::to_string(v)};
    for (int record = 0; record < 6; ++record) {
      column.cells.emplace_back(static_cast<double>((record * (v + 3) + v) % 7));
    }
    columns.push_back(std::move(column));
  }
  TestRun run = MatrixRun(columns, 100);
  const CorrelationStore store = ComputeCorrelationMatrix(CasesOfAllRecords(run.data), run.variables);
  for (std::size_t i = 0; i < 100; ++i) {
    for (std::size_t j = i; j < 100; ++j) {
      ASSERT_TRUE(store.At(i, j).has_value()) << i << " " << j;
      ASSERT_TRUE(store.At(i, j)->p.has_value()) << i << " " << j;
    }
  }
}

TEST(CorrelationMatrix, AVariableMayBeSelectedTwice) {
  TestRun run = MatrixRun(kColumns, 1);
  run.variables = {1, 1};
  EXPECT_NE(run.Report(RunCorrelationMatrix).find("        A |    1.000 |    1.000 |\r\n"), std::string::npos);
}

// Beside the steps that fail, A by itself has the sums 3, 3, 9, 9 and 9, and r is 18 / 18. A by B is
// -2.88675134594813E+199, cut after nine characters; the square of that fails, and the p of a t of 0 is 1.
TEST(CorrelationMatrix, HugeValuesLeaveOutTheStepsThatFail) {
  for (const char* last : {"4", ""}) {
    TestRun run = MatrixRun({{"A", Texts({"1e200", "-1e200", "3", ""})}, {"B", Texts({"1", "2", "3", last})}}, 2);
    EXPECT_NE(run.Report(RunCorrelationMatrix)
                  .find("        A |    1.000 |-28867513 |\r\n          |        3 |        3 |\r\n"
                        "          |        . |   1.0000 |\r\n"),
              std::string::npos);
  }
}

}  // namespace
}  // namespace tessara
