#include "calculators/accuracy.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tessara {
namespace {

// The measures were computed by hand and checked in numpy: sensitivity 45/50, specificity 90/100, 45/55, 90/95, and the
// ratios .9/.1 and .1/.9 for the table below.

const std::string kDashes = std::string(54, '-');

const std::string kPositiveMessage =
    "Sensitivity must be greater than 0 and specificity must be less than 1 to compute a positive likelihood ratio.";
const std::string kNegativeMessage =
    "Sensitivity must be less than 1 and specificity must be greater than 0 to compute a negative likelihood ratio.";

bool Contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

std::vector<std::string> MessagesOf(const AccuracyCalculation& result) {
  std::vector<std::string> texts;
  for (const MessageBox& box : result.calculation.messages) {
    EXPECT_EQ(box.title, "Entry Error!");
    texts.push_back(box.text);
  }
  return texts;
}

class UsefulDiagnosticTest : public testing::Test {
 protected:
  const AccuracyCalculation result = CalculateAccuracy({"90", "5", "10", "45"});
};

TEST_F(UsefulDiagnosticTest, LongReport) {
  EXPECT_EQ(result.calculation.report,
            "Diagnostic Accuracy\r\n"
            "\r\n"
            "                  Known Status\r\n"
            "Test Result |     D-   |     D+   |    Total\r\n"
            "            +----------+----------+\r\n"
            "         T- |       90 |        5 |       95\r\n"
            "            +----------+----------+\r\n"
            "         T+ |       10 |       45 |       55\r\n"
            "            +----------+----------+----------\r\n"
            "      Total |      100 |       50 |      150\r\n"
            "\r\n"
            "\r\n"
            "Sensitivity                   0.900\r\n"
            "Specificity                   0.900\r\n"
            "Positive Predictive Value     0.818\r\n"
            "Negative Predictive Value     0.947\r\n"
            "Positive Likelihood Ratio   9.000\r\n"
            "Negative Likelihood Ratio     0.111\r\n");
}

TEST_F(UsefulDiagnosticTest, ShortReport) {
  EXPECT_EQ(result.calculation.short_report,
            "Sensitivity                   0.900\r\n"
            "Specificity                   0.900\r\n"
            "Positive Predictive Value     0.818\r\n"
            "Negative Predictive Value     0.947\r\n"
            "Positive Likelihood Ratio   9.000\r\n"
            "Negative Likelihood Ratio     0.111\r\n");
}

TEST_F(UsefulDiagnosticTest, Narrative) {
  EXPECT_EQ(result.calculation.narrative,
            "Sensitivity:   90.00% of diseased cases had a positive test.\r\n"
            "\r\n"
            "Specificity:   90.00% of non-diseased cases had a negative test.\r\n"
            "\r\n"
            "Pos. Pred. Value:   81.82% of cases with a positive test have the disease.\r\n"
            "\r\n"
            "Neg. Pred. Value:   94.74% of cases with a negative test do not have the disease.\r\n"
            "\r\n"
            "Pos. LR:   A ratio of 9.000 indicates a positive test increases the odds of disease.\r\n"
            "\r\n"
            "Neg. LR:   A ratio of 0.111 indicates a negative test increases the odds of disease absence.\r\n"
            "\r\n" +
                kDashes);
}

TEST_F(UsefulDiagnosticTest, TheTotalsStandBesideTheBoxesWithALeadingBlank) {
  ASSERT_TRUE(result.totals);
  EXPECT_EQ(result.totals->test_negative, " 95");
  EXPECT_EQ(result.totals->test_positive, " 55");
  EXPECT_EQ(result.totals->without_disease, " 100");
  EXPECT_EQ(result.totals->with_disease, " 50");
  EXPECT_EQ(result.totals->n, " 150");
  EXPECT_TRUE(result.calculation.messages.empty());
  EXPECT_EQ(result.calculation.results_title, std::nullopt);
}

// Sensitivity 10/40 and specificity 15/60: a ratio of .25 / .75 and one of .75 / .25.
TEST(TypedAccuracy, ATestThatMisleads) {
  const std::string narrative = *CalculateAccuracy({"15", "30", "45", "10"}).calculation.narrative;
  EXPECT_TRUE(Contains(
      narrative, "Pos. LR:   A ratio of 0.333 indicates a positive test does not increase the odds of disease.\r\n"));
  EXPECT_TRUE(Contains(
      narrative,
      "Neg. LR:   A ratio of 3.000 indicates a negative test does not increase the odds of disease absence.\r\n"));
}

// All four a half: both ratios are 1, neither above nor below it.
TEST(TypedAccuracy, ATestThatTellsNothing) {
  const std::string narrative = *CalculateAccuracy({"10", "10", "10", "10"}).calculation.narrative;
  EXPECT_TRUE(Contains(narrative, "A ratio of 1.000 indicates a positive test does not increase"));
  EXPECT_TRUE(Contains(narrative, "A ratio of 1.000 indicates a negative test does not increase"));
}

TEST(TypedAccuracy, APerfectTestHasANegativeRatioOfZero) {
  const AccuracyCalculation result = CalculateAccuracy({"40", "0", "0", "30"});
  EXPECT_EQ(MessagesOf(result), std::vector<std::string>{kPositiveMessage});
  EXPECT_EQ(result.calculation.short_report,
            "Sensitivity                   1.000\r\n"
            "Specificity                   1.000\r\n"
            "Positive Predictive Value     1.000\r\n"
            "Negative Predictive Value     1.000\r\n"
            "Positive Likelihood Ratio   unk\r\n"
            "Negative Likelihood Ratio     0.000\r\n");
  EXPECT_TRUE(Contains(*result.calculation.narrative,
                       "Pos. LR:   A ratio of unk indicates a positive test increases the odds of disease.\r\n\r\n"
                       "Neg. LR:   A ratio of 0.000 indicates a negative test increases the odds of disease absence."));
}

// Nobody is missed, but 5 are alarmed: a sensitivity of 1 is not enough for a negative ratio.
TEST(TypedAccuracy, ASensitivityOfOneAloneHasNoNegativeRatio) {
  const AccuracyCalculation result = CalculateAccuracy({"35", "0", "5", "30"});
  EXPECT_EQ(MessagesOf(result), std::vector<std::string>{kNegativeMessage});
  EXPECT_TRUE(Contains(*result.calculation.report,
                       "Positive Likelihood Ratio   8.000\r\nNegative Likelihood Ratio     unk\r\n"));
  EXPECT_TRUE(Contains(*result.calculation.narrative,
                       "Neg. LR:   A ratio of unk indicates a negative test increases the odds of disease absence."));
}

// Every measure divides by 0 and is 0; both ratios have their message, and the report stands.
TEST(TypedAccuracy, ZerosInAllCellsStillGetTheirReport) {
  const AccuracyCalculation result = CalculateAccuracy({"0", "0", "0", "0"});
  EXPECT_EQ(MessagesOf(result), (std::vector<std::string>{kPositiveMessage, kNegativeMessage}));
  EXPECT_EQ(result.calculation.short_report,
            "Sensitivity                   0.000\r\n"
            "Specificity                   0.000\r\n"
            "Positive Predictive Value     0.000\r\n"
            "Negative Predictive Value     0.000\r\n"
            "Positive Likelihood Ratio   unk\r\n"
            "Negative Likelihood Ratio     unk\r\n");
  EXPECT_TRUE(Contains(*result.calculation.narrative, "Sensitivity:   .00% of diseased"));
  EXPECT_EQ(result.totals->n, " 0");
}

// Only diseased cases, all found: T1 is 0, so the rule of the perfect test does not hold, and the specificity is 0.
TEST(TypedAccuracy, WithoutHealthyCasesTheTestIsNotPerfect) {
  const AccuracyCalculation result = CalculateAccuracy({"0", "0", "0", "30"});
  EXPECT_EQ(MessagesOf(result), std::vector<std::string>{kNegativeMessage});
  EXPECT_TRUE(Contains(*result.calculation.report, "Positive Likelihood Ratio   1.000\r\n"));
}

// Only healthy cases, all of them cleared: nobody is missed, but nobody was there to be found. The sensitivity is 0, so
// there is no positive ratio, and the negative one is 1 / 1.
TEST(TypedAccuracy, WithoutDiseasedCasesTheTestIsNotPerfect) {
  const AccuracyCalculation result = CalculateAccuracy({"30", "0", "0", "0"});
  EXPECT_EQ(MessagesOf(result), std::vector<std::string>{kPositiveMessage});
  EXPECT_TRUE(Contains(*result.calculation.report,
                       "Positive Likelihood Ratio   unk\r\nNegative Likelihood Ratio     1.000\r\n"));
  EXPECT_TRUE(Contains(*result.calculation.narrative, "A ratio of 1.000 indicates a negative test does not increase"));
}

TEST(TypedAccuracy, EveryCellMustBeNumeric) {
  const AccuracyBoxes refused[] = {
      {}, {"", "1", "2", "3"}, {"1", "x", "2", "3"}, {"1", "2", "-", "3"}, {"1", "2", "3", ","}};
  for (const AccuracyBoxes& boxes : refused) {
    const AccuracyCalculation result = CalculateAccuracy(boxes);
    EXPECT_EQ(MessagesOf(result), std::vector<std::string>{"Numerical data are required in all table cells."});
    EXPECT_EQ(result.calculation.report, std::nullopt);
    EXPECT_EQ(result.calculation.short_report, std::nullopt);
    EXPECT_EQ(result.calculation.narrative, std::nullopt);
    EXPECT_FALSE(result.totals);
  }
}

TEST(TypedAccuracy, CommasAreStrippedAndWideCountsPushTheirLine) {
  const AccuracyCalculation result = CalculateAccuracy({"9,000,000", "5", "10", "4,5"});
  EXPECT_EQ(result.calculation.report, CalculateAccuracy({"9000000", "5", "10", "45"}).calculation.report);
  EXPECT_TRUE(Contains(*result.calculation.report, "         T- |     9000000 |        5 |     9000005\r\n"));
}

TEST(TypedAccuracy, NegativeAndHugeCountsGetTheirReport) {
  EXPECT_TRUE(Contains(*CalculateAccuracy({"-5", "5", "10", "-4"}).calculation.report,
                       "         T+ |       10 |       -4 |        6\r\n"));
  const std::string report = *CalculateAccuracy({"1e308", "1e308", "1e308", "1e308"}).calculation.report;
  EXPECT_TRUE(Contains(report, "Sensitivity                   0.000\r\n"));  // the totals leave the range and are 0
  EXPECT_FALSE(Contains(report, "inf") || Contains(report, "nan"));
}

}  // namespace
}  // namespace tessara
