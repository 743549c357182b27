#include "procedures/compare/diagnostic.h"

#include <gtest/gtest.h>

#include "procedures/tests/test_data.h"

// The figures come from the formulas worked out in Python, with scipy.stats.norm for the tails; the area from Mann and
// Whitney's U over the product of both groups' sizes, which equals that of the trapezoids.

namespace tessara {
namespace {

struct TestCategory {
  TaggedValue value;
  int negative = 0;  // cases of the first reference category, coded 0
  int positive = 0;  // of the second, coded 1
};

std::vector<TestColumn> CasesOf(const std::vector<TestCategory>& categories) {
  TestColumn test{.name = "T"};
  TestColumn reference{.name = "D"};
  for (const TestCategory& category : categories) {
    const auto negative = static_cast<std::size_t>(category.negative);
    const auto positive = static_cast<std::size_t>(category.positive);
    test.cells.insert(test.cells.end(), negative + positive, category.value);
    reference.cells.insert(reference.cells.end(), negative, "0");
    reference.cells.insert(reference.cells.end(), positive, "1");
  }
  return {test, reference};
}

std::string ReportOf(const std::vector<TestColumn>& columns) {
  TestRun run(columns);
  run.Independent(2);
  return run.Report(RunDiagnostic);
}

// The lines of the cuts alone.
std::string CutLines(const std::vector<TestCategory>& categories) {
  const std::string rule = std::string(84, '-') + "\r\n";
  const std::string report = ReportOf(CasesOf(categories));
  const std::size_t start = report.find(rule) + rule.size();
  return report.substr(start, report.find("\r\n\r\n", start) + 2 - start);
}

// 100 cases in four categories. The head is 43 characters long and the lines below it 40.
TEST(Diagnostic, OneHundredCasesInFourCategories) {
  EXPECT_EQ(ReportOf(CasesOf({{"1", 24, 2}, {"2", 17, 9}, {"3", 5, 18}, {"4", 4, 21}})),
            "Diagnostic Accuracy: T (Test)  by  D (Reference)\r\n"
            "\r\n"
            "Reference Variable Label: \r\n"
            "Test Variable Label: \r\n"
            "\r\n"
            "              [D-]      [D+]  \r\n"
            "\r\n"
            "    Count |        0 |        1 |    Total \r\n"
            "-------------------------------------------\r\n"
            "        1 |       24|        2|       26\r\n"
            "-------------------------------------------\r\n"
            "        2 |       17|        9|       26\r\n"
            "-------------------------------------------\r\n"
            "        3 |        5|       18|       23\r\n"
            "-------------------------------------------\r\n"
            "        4 |        4|       21|       25\r\n"
            "-------------------------------------------\r\n"
            "    Total |       50|       50|      100\r\n"
            "\r\n"
            "Cut Point (T+ >)         Sn      Sp     PPV     NPV     LR+     LR-   Kappa     K p<\r\n"
            "------------------------------------------------------------------------------------\r\n"
            "1                     0.960   0.480   0.649   0.923   1.846   0.083   0.440   0.0000\r\n"
            "2                     0.780   0.820   0.813   0.788   4.333   0.268   0.600   0.0001\r\n"
            "3                     0.420   0.920   0.840   0.613   5.250   0.630   0.340   0.0007\r\n"
            "\r\n"
            "\r\n"
            "Definitions\r\n"
            "\r\n"
            "-----------------------------------------------------------------------------------\r\n"
            "Sn   Sensitivity: The proportion of diseased cases with a positive test.\r\n"
            "Sp   Specificity: The proportion of non-diseased cases with a negative test.\r\n"
            "PPV  Positive Predictive Value: The proportion of cases with a positive test\r\n"
            "     who have the disease A/(A+C).\r\n"
            "NPV  Negative Predictive Value: The proportion of cases with a negative test\r\n"
            "     who do not have the disease D/(D+B).\r\n"
            "LR+  Positive Likelihood Ratio: A positive ratio greater than 1 indicates the\r\n"
            "     diagnostic test increases the odds of identifying disease Sn/(1-Sp).\r\n"
            "LR-  Negative Likelihood Ratio: A negative ratio less than 1 indicates the\r\n"
            "     diagnostic test increases the odds of correctly identifying disease absence\r\n"
            "     (1-Sn)/Sp.\r\n"
            "K    Kappa: The level of agreement beyond chance for a 2x2 table at the cutpoint.\r\n"
            "\r\n"
            "\r\n"
            "Area Under ROC Curve: 0.843\r\n"
            "\r\n");
}

TEST(Diagnostic, TwoCategoriesHaveOneCut) {
  EXPECT_EQ(ReportOf(CasesOf({{"1", 20, 5}, {"2", 10, 25}})),
            "Diagnostic Accuracy: T (Test)  by  D (Reference)\r\n"
            "\r\n"
            "Reference Variable Label: \r\n"
            "Test Variable Label: \r\n"
            "\r\n"
            "              [D-]      [D+]  \r\n"
            "\r\n"
            "    Count |        0 |        1 |    Total \r\n"
            "-------------------------------------------\r\n"
            "        1 |       20|        5|       25\r\n"
            "-------------------------------------------\r\n"
            "        2 |       10|       25|       35\r\n"
            "-------------------------------------------\r\n"
            "    Total |       30|       30|       60\r\n"
            "\r\n"
            "Cut Point (T+ >)         Sn      Sp     PPV     NPV     LR+     LR-   Kappa     K p<\r\n"
            "------------------------------------------------------------------------------------\r\n"
            "1                     0.833   0.667   0.714   0.800   2.500   0.250   0.500   0.0001\r\n"
            "\r\n"
            "\r\n"
            "Definitions\r\n"
            "\r\n"
            "-----------------------------------------------------------------------------------\r\n"
            "Sn   Sensitivity: The proportion of diseased cases with a positive test.\r\n"
            "Sp   Specificity: The proportion of non-diseased cases with a negative test.\r\n"
            "PPV  Positive Predictive Value: The proportion of cases with a positive test\r\n"
            "     who have the disease A/(A+C).\r\n"
            "NPV  Negative Predictive Value: The proportion of cases with a negative test\r\n"
            "     who do not have the disease D/(D+B).\r\n"
            "LR+  Positive Likelihood Ratio: A positive ratio greater than 1 indicates the\r\n"
            "     diagnostic test increases the odds of identifying disease Sn/(1-Sp).\r\n"
            "LR-  Negative Likelihood Ratio: A negative ratio less than 1 indicates the\r\n"
            "     diagnostic test increases the odds of correctly identifying disease absence\r\n"
            "     (1-Sn)/Sp.\r\n"
            "K    Kappa: The level of agreement beyond chance for a 2x2 table at the cutpoint.\r\n"
            "\r\n"
            "\r\n"
            "Area Under ROC Curve: 0.750\r\n"
            "\r\n");
}

// No cut can be made: a coin's area of 0.5 is left.
TEST(Diagnostic, OneCategoryHasNoCut) {
  EXPECT_EQ(ReportOf(CasesOf({{"1", 3, 4}})),
            "Diagnostic Accuracy: T (Test)  by  D (Reference)\r\n"
            "\r\n"
            "Reference Variable Label: \r\n"
            "Test Variable Label: \r\n"
            "\r\n"
            "              [D-]      [D+]  \r\n"
            "\r\n"
            "    Count |        0 |        1 |    Total \r\n"
            "-------------------------------------------\r\n"
            "        1 |        3|        4|        7\r\n"
            "-------------------------------------------\r\n"
            "    Total |        3|        4|        7\r\n"
            "\r\n"
            "Cut Point (T+ >)         Sn      Sp     PPV     NPV     LR+     LR-   Kappa     K p<\r\n"
            "------------------------------------------------------------------------------------\r\n"
            "\r\n"
            "\r\n"
            "Definitions\r\n"
            "\r\n"
            "-----------------------------------------------------------------------------------\r\n"
            "Sn   Sensitivity: The proportion of diseased cases with a positive test.\r\n"
            "Sp   Specificity: The proportion of non-diseased cases with a negative test.\r\n"
            "PPV  Positive Predictive Value: The proportion of cases with a positive test\r\n"
            "     who have the disease A/(A+C).\r\n"
            "NPV  Negative Predictive Value: The proportion of cases with a negative test\r\n"
            "     who do not have the disease D/(D+B).\r\n"
            "LR+  Positive Likelihood Ratio: A positive ratio greater than 1 indicates the\r\n"
            "     diagnostic test increases the odds of identifying disease Sn/(1-Sp).\r\n"
            "LR-  Negative Likelihood Ratio: A negative ratio less than 1 indicates the\r\n"
            "     diagnostic test increases the odds of correctly identifying disease absence\r\n"
            "     (1-Sn)/Sp.\r\n"
            "K    Kappa: The level of agreement beyond chance for a 2x2 table at the cutpoint.\r\n"
            "\r\n"
            "\r\n"
            "Area Under ROC Curve: 0.500\r\n"
            "\r\n");
}

// The labels are cut to 9 characters in the counts; ahead of a cut the label stands whole and pushes the line.
TEST(Diagnostic, LabelsAndControlCaption) {
  std::vector<TestColumn> columns = CasesOf({{"1", 6, 1}, {"2", 3, 4}, {"3", 1, 5}});
  columns[0].label = "Result";
  columns[0].value_labels = {"1=Nothing to be seen at all", "2=Doubtful"};
  columns[1].label = "Disease";
  columns[1].value_labels = {"0=Not found", "1=Found in the lab"};
  columns.push_back({"SEX", std::vector<TaggedValue>(20, "1")});
  TestRun run(columns);
  run.Independent(2);
  run.Control(3, ControlRelation::kGreaterThan, "0");
  EXPECT_EQ(run.Report(RunDiagnostic),
            "Controlling for SEX > 0\r\n"
            "\r\n"
            "Diagnostic Accuracy: T (Test)  by  D (Reference)\r\n"
            "\r\n"
            "Reference Variable Label: Disease\r\n"
            "Test Variable Label: Result\r\n"
            "\r\n"
            "              [D-]      [D+]  \r\n"
            "\r\n"
            "    Count |Not found |Found in  |    Total \r\n"
            "-------------------------------------------\r\n"
            "Nothing t |        6|        1|        7\r\n"
            "-------------------------------------------\r\n"
            " Doubtful |        3|        4|        7\r\n"
            "-------------------------------------------\r\n"
            "        3 |        1|        5|        6\r\n"
            "-------------------------------------------\r\n"
            "    Total |       10|       10|       20\r\n"
            "\r\n"
            "Cut Point (T+ >)         Sn      Sp     PPV     NPV     LR+     LR-   Kappa     K p<\r\n"
            "------------------------------------------------------------------------------------\r\n"
            "Nothing to be seen at all0.900   0.600   0.692   0.857   2.250   0.167   0.500   0.0253\r\n"
            "Doubtful              0.500   0.900   0.833   0.643   5.000   0.556   0.400   0.0736\r\n"
            "\r\n"
            "\r\n"
            "Definitions\r\n"
            "\r\n"
            "-----------------------------------------------------------------------------------\r\n"
            "Sn   Sensitivity: The proportion of diseased cases with a positive test.\r\n"
            "Sp   Specificity: The proportion of non-diseased cases with a negative test.\r\n"
            "PPV  Positive Predictive Value: The proportion of cases with a positive test\r\n"
            "     who have the disease A/(A+C).\r\n"
            "NPV  Negative Predictive Value: The proportion of cases with a negative test\r\n"
            "     who do not have the disease D/(D+B).\r\n"
            "LR+  Positive Likelihood Ratio: A positive ratio greater than 1 indicates the\r\n"
            "     diagnostic test increases the odds of identifying disease Sn/(1-Sp).\r\n"
            "LR-  Negative Likelihood Ratio: A negative ratio less than 1 indicates the\r\n"
            "     diagnostic test increases the odds of correctly identifying disease absence\r\n"
            "     (1-Sn)/Sp.\r\n"
            "K    Kappa: The level of agreement beyond chance for a 2x2 table at the cutpoint.\r\n"
            "\r\n"
            "\r\n"
            "Area Under ROC Curve: 0.805\r\n"
            "\r\n");
  EXPECT_EQ(run.footnote, "Controlling for SEX > 0");
}

// At the cut of 2 no case without the disease is positive: Sp is 1 and LR+ has no value.
TEST(Diagnostic, ASpecificityOfOneHasNoPositiveLikelihoodRatio) {
  EXPECT_EQ(CutLines({{"1", 5, 2}, {"2", 5, 3}, {"3", 0, 5}}),
            "1                     0.800   0.500   0.615   0.714   1.600   0.400   0.300   0.1797\r\n"
            "2                     0.500   1.000   1.000   0.667      NA   0.500   0.500   0.0253\r\n");
}

// At the cut of 1 every case with the disease is positive: Sn is 1 and LR- has no value.
TEST(Diagnostic, ASensitivityOfOneHasNoNegativeLikelihoodRatio) {
  EXPECT_EQ(CutLines({{"1", 5, 0}, {"2", 5, 10}}),
            "1                     1.000   0.500   0.667   1.000   2.000      NA   0.500   0.0253\r\n");
}

// Nobody above the cut is ill: Sn and PPV are 0, and LR+ has no value. Kappa below 0 hangs its sign out.
TEST(Diagnostic, ASensitivityOfZero) {
  EXPECT_EQ(CutLines({{"1", 5, 10}, {"2", 5, 0}}),
            "1                     0.000   0.500   0.000   0.333      NA   2.000  -0.500   0.0253\r\n");
}

// Everybody below the cut is ill: Sp and NPV are 0, and LR- has no value.
TEST(Diagnostic, ASpecificityOfZero) {
  EXPECT_EQ(CutLines({{"1", 0, 4}, {"2", 10, 6}}),
            "1                     0.600   0.000   0.375   0.000   0.600      NA  -0.400   0.0736\r\n");
}

TEST(Diagnostic, APerfectCutHasNoSignificance) {
  EXPECT_EQ(CutLines({{"1", 10, 0}, {"2", 0, 8}}),
            "1                     1.000   1.000   1.000   1.000      NA      NA   1.000      NA\r\n");
}

// z is 0, 4 and 2 at these cuts.
TEST(Diagnostic, SignificanceOfKappa) {
  EXPECT_EQ(CutLines({{"1", 10, 10}, {"2", 25, 5}, {"3", 10, 20}, {"4", 5, 15}}),
            "1                     0.800   0.200   0.500   0.500   1.000   1.000   0.000   1.0000\r\n"
            "2                     0.700   0.700   0.700   0.700   2.333   0.429   0.400   0.0001\r\n"
            "3                     0.300   0.900   0.750   0.563   3.000   0.778   0.200   0.0455\r\n");
}

// The order of the cuts is that of the stored values; a number and a text of the same look are two categories.
TEST(Diagnostic, TestCategoriesAscendByStoredValue) {
  EXPECT_EQ(CutLines({{"9", 1, 4}, {"10", 6, 5}, {9.0, 8, 1}}),
            "9                     0.900   0.533   0.563   0.889   1.929   0.188   0.394   0.0372\r\n"
            "10                    0.400   0.933   0.800   0.700   6.000   0.643   0.364   0.1070\r\n");
}

// The z of kappa is far above 4.59.
TEST(Diagnostic, ALargeLikelihoodRatioPushesTheLine) {
  EXPECT_EQ(CutLines({{"1", 199, 10}, {"2", 1, 90}}),
            "1                     0.900   0.995   0.989   0.952   180.000   0.101   0.916   0.0001\r\n");
}

// A category with as many cases of both kinds counts once; the area is worked out from the pairs of a healthy and an
// ill case: 75 of 100 in order, and 25 ties that count half.
TEST(Diagnostic, EqualCountsInBothColumnsAreCountedOnce) {
  const DiagnosticAccuracy accuracy = ComputeDiagnosticAccuracy({3, 2, {5, 0, 5, 5, 0, 5}});
  ASSERT_EQ(accuracy.cuts.size(), 2u);
  EXPECT_DOUBLE_EQ(accuracy.cuts[0].specificity.value(), 0.5);
  EXPECT_DOUBLE_EQ(accuracy.cuts[1].sensitivity.value(), 0.5);
  EXPECT_DOUBLE_EQ(accuracy.area.value(), 0.875);
}

TEST(Diagnostic, AnEmptyTableFailsNowhere) {
  const DiagnosticAccuracy accuracy = ComputeDiagnosticAccuracy({2, 2, {}});
  ASSERT_EQ(accuracy.cuts.size(), 1u);
  EXPECT_EQ(accuracy.cuts[0].sensitivity.value(), 0);
}

TEST(Diagnostic, AVariableThatIsNotSelected) {
  const std::string sentence = "You must select a reference standard variable and a test variable.";
  TestRun run({{"T", Texts({"1"})}, {"D", Texts({"1"})}});
  EXPECT_EQ(run.Report(RunDiagnostic), FramedError("Diagnostic Accuracy: T by ", sentence));
  EXPECT_TRUE(run.aborted);
  run.Independent(2);
  run.roles.main = 0;
  EXPECT_EQ(run.Report(RunDiagnostic), FramedError("Diagnostic Accuracy:  by D", sentence));
}

TEST(Diagnostic, NoObservations) {
  EXPECT_EQ(ReportOf({{"T", Texts({"1", ""})}, {"D", Texts({"", "1"})}}),
            FramedError("Diagnostic Accuracy Comparison: T by D", "There are no observations."));
}

constexpr const char* kNotTwo =
    "The reference standard variable (D) has more than two categories.\r\n"
    "If you are using a variable with more than two categories, you must\r\n"
    "recode the variable into two categories (values). The first category\r\n"
    "must be coded to represent known non-disease (usually coded as 0) and the\r\n"
    "second category must be coded to represent known disease (coded as 1).";

TEST(Diagnostic, AReferenceOfThreeCategories) {
  EXPECT_EQ(ReportOf({{"T", Texts({"1", "2", "3"})}, {"D", Texts({"0", "1", "2"})}}),
            FramedError("Diagnostic Accuracy: T by D", kNotTwo));
}

TEST(Diagnostic, AReferenceOfOneCategoryHasTheSameText) {
  EXPECT_EQ(ReportOf({{"T", Texts({"1", "2", "3"})}, {"D", Texts({"1", "1", ""})}}),
            FramedError("Diagnostic Accuracy: T by D", kNotTwo));
}

TEST(Diagnostic, ChartsOfBothVariables) {
  TestRun run(CasesOf({{"1", 2, 1}, {"2", 1, 3}}));
  run.Independent(2);
  run.Report(RunDiagnostic);
  EXPECT_EQ(run.charts.kind, ChartKind::kDiagnostic);
  EXPECT_EQ(ChartsText(run.charts),
            "chart\tRow Variable\tT\tFrequency\t\r\n"
            "1\t3\r\n"
            "2\t4\r\n"
            "chart\tFrequency\tD\tFrequency\t\r\n"
            "0\t3\r\n"
            "1\t4\r\n");
}

TEST(Diagnostic, NoChartsUnlessTheyAreWanted) {
  TestRun run(CasesOf({{"1", 2, 1}, {"2", 1, 3}}));
  run.Independent(2);
  run.wants_charts = false;
  run.Report(RunDiagnostic);
  EXPECT_TRUE(run.charts.charts.empty());
}

}  // namespace
}  // namespace tessara
