#include "calculators/intervals.h"

#include <gtest/gtest.h>

#include <string>

namespace tessara {
namespace {

// The expected figures were computed in numpy, with the critical values of scipy.stats.t to three decimals where the
// table has a row.

const std::string kDashes = std::string(54, '-');

bool Contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

void ExpectMessageAlone(const Calculation& calculation, const std::string& title, const std::string& text) {
  ASSERT_EQ(calculation.messages.size(), 1u);
  EXPECT_EQ(calculation.messages[0].title, title);
  EXPECT_EQ(calculation.messages[0].text, text);
  EXPECT_EQ(calculation.report, std::nullopt);
  EXPECT_EQ(calculation.short_report, std::nullopt);
  EXPECT_EQ(calculation.narrative, std::nullopt);
  EXPECT_EQ(calculation.results_title, std::nullopt);
}

// 25 scores with a mean of 72.4: 24 degrees of freedom.
class OfAMean : public testing::Test {
 protected:
  const Calculation calculation = CalculateMeanInterval({"25", "72.4", "8.5"});
};

TEST_F(OfAMean, LongReport) {
  EXPECT_EQ(calculation.report,
            "Margin of Error for Means\r\n"
            "\r\n"
            "n = 25   Mean = 72.4   Standard Deviation = 8.5\r\n"
            "\r\n"
            "                                         Margin Limits\r\n"
            "Confidence      Error +/-            Lower            Upper\r\n"
            "------------------------------------------------------------\r\n"
            "    90%            2.9087          69.4913          75.3087\r\n"
            "    95%            3.5088          68.8912          75.9088\r\n"
            "    99%            4.7549          67.6451          77.1549\r\n"
            "\r\n"
            "\r\n");
}

TEST_F(OfAMean, ShortReport) {
  EXPECT_EQ(calculation.short_report,
            " n = 25   Mean = 72.4   StdDev = 8.5\r\n"
            "\r\n"
            " 90% Confidence Interval\r\n"
            " +/- 2.9087  LL 69.4913  UL 75.3087\r\n"
            "\r\n"
            " 95% Confidence Interval\r\n"
            " +/- 3.5088  LL 68.8912  UL 75.9088\r\n"
            "\r\n"
            " 99% Confidence Interval\r\n"
            " +/- 4.7549  LL 67.6451  UL 77.1549\r\n"
            "\r\n");
}

TEST_F(OfAMean, Narrative) {
  EXPECT_EQ(calculation.narrative,
            "Interpretation of the 95% confidence interval:\r\n"
            "\r\n"
            "Based on 25 observations, a mean of 72.4, a standard deviation equal to 8.5, and 5% chance of error (95% "
            "confidence), the population mean is between 68.8912 and 75.9088.\r\n"
            "\r\n"
            "The margin of error for the 95% confidence interval is plus or minus (+/-) 3.5088 .\r\n"
            "\r\n" +
                kDashes);
  EXPECT_TRUE(calculation.messages.empty());
  EXPECT_EQ(calculation.results_title, std::nullopt);
}

TEST(MeanInterval, CommasAreStripped) {
  EXPECT_EQ(CalculateMeanInterval({"1,000", "2,500.5", "1,2"}).report,
            CalculateMeanInterval({"1000", "2500.5", "12"}).report);
}

TEST(MeanInterval, EveryBoxMustBeNumeric) {
  const std::string text = "Only numerical data can be entered.";
  ExpectMessageAlone(CalculateMeanInterval({}), "Entry Error!", text);
  ExpectMessageAlone(CalculateMeanInterval({"", "5", "2"}), "Entry Error!", text);
  ExpectMessageAlone(CalculateMeanInterval({"10", "abc", "2"}), "Entry Error!", text);
  ExpectMessageAlone(CalculateMeanInterval({"10", "5", "-"}), "Entry Error!", text);
  ExpectMessageAlone(CalculateMeanInterval({"10", "5", ",2"}), "Entry Error!", text);  // tested as it was typed
  ExpectMessageAlone(CalculateMeanInterval({"1e999", "5", "2"}), "Entry Error!", text);
}

TEST(MeanInterval, OneObservationIsTooFew) {
  ExpectMessageAlone(CalculateMeanInterval({"1", "5", "2"}), "Error!", "You need more than one observation.");
  ExpectMessageAlone(CalculateMeanInterval({" 1.0 ", "5", "2"}), "Error!", "You need more than one observation.");
}

// The error divides by the root of n: it stays 0, and with it the margins.
TEST(MeanInterval, WithoutObservationsTheMarginsAreZero) {
  for (const char* n : {"0", "-5"}) {
    const Calculation calculation = CalculateMeanInterval({n, "50", "10"});
    EXPECT_TRUE(Contains(*calculation.report, "    95%            0.0000          50.0000          50.0000\r\n"));
  }
}

// 1.697 * 10 / sqrt(30.5) = 3.0728: a df of 29.5 has the row of 30 to 39.
TEST(MeanInterval, AFractionAboveTheExactRowsTakesTheBand) {
  const Calculation calculation = CalculateMeanInterval({"30.5", "50", "10"});
  EXPECT_TRUE(Contains(*calculation.report, "    90%            3.0728          46.9272          53.0728\r\n"));
}

TEST(MeanInterval, HugeFiguresKeepTheirPage) {
  const Calculation calculation = CalculateMeanInterval({"2", "1e308", "1e308"});
  // 63.657 errors are beyond the range of a double: the margin stays 0 and both limits are the mean.
  EXPECT_EQ(ComputeMeanInterval(2, 1e308, 1e308).margins.of_99.error.value(), 0);
  EXPECT_EQ(ComputeMeanInterval(2, 1e308, 1e308).margins.of_99.upper.value(), 1e308);
  EXPECT_TRUE(Contains(*calculation.report, "n = 2   Mean = 1E+308   Standard Deviation = 1E+308\r\n"));
  EXPECT_FALSE(Contains(*calculation.report, "inf") || Contains(*calculation.report, "nan"));
}

struct TableRow {
  double df;
  CriticalValues t;
};

// Bands by their ends, and what no row takes.
TEST(CriticalT, RowsBandsAndTheLastRow) {
  const TableRow rows[] = {
      {1, {6.314, 12.706, 63.657}}, {2, {2.920, 4.303, 9.925}},     {15, {1.753, 2.131, 2.947}},
      {29, {1.699, 2.045, 2.756}},  {29.5, {1.697, 2.042, 2.750}},  {30, {1.697, 2.042, 2.750}},
      {39, {1.697, 2.042, 2.750}},  {39.5, {1.697, 2.042, 2.750}},  {40, {1.684, 2.021, 2.704}},
      {59, {1.684, 2.021, 2.704}},  {60, {1.671, 2.000, 2.660}},    {89, {1.671, 2.000, 2.660}},
      {90, {1.658, 1.980, 2.617}},  {120, {1.658, 1.980, 2.617}},   {120.5, {1.658, 1.980, 2.617}},
      {121, {1.645, 1.960, 2.576}}, {1e300, {1.645, 1.960, 2.576}}, {28.5, {1.645, 1.960, 2.576}},
      {0.5, {1.645, 1.960, 2.576}}, {-1, {1.645, 1.960, 2.576}},
  };
  for (const TableRow& row : rows) {
    const CriticalValues t = CriticalTOf(row.df);
    EXPECT_EQ(t.at_90, row.t.at_90) << row.df;
    EXPECT_EQ(t.at_95, row.t.at_95) << row.df;
    EXPECT_EQ(t.at_99, row.t.at_99) << row.df;
  }
}

// 60 of 150.
class OfAProportion : public testing::Test {
 protected:
  const Calculation calculation = CalculateProportionInterval({"150", ".4"});
};

TEST_F(OfAProportion, LongReport) {
  EXPECT_EQ(calculation.report,
            "Margin of Error for Proportions\r\n"
            "\r\n"
            "n = 150   Proportion = 0.4   Standard Error = 0.040\r\n"
            "\r\n"
            "                                          Margin Limits\r\n"
            "Confidence      Error +/-            Lower            Upper\r\n"
            "------------------------------------------------------------\r\n"
            "    90%            0.0660           0.3340           0.4660\r\n"
            "    95%            0.0784           0.3216           0.4784\r\n"
            "    99%            0.1032           0.2968           0.5032\r\n"
            "\r\n");
}

TEST_F(OfAProportion, ShortReport) {
  EXPECT_EQ(calculation.short_report,
            " n = 150   Proportion = 0.4   SEp = 0.040\r\n"
            "\r\n"
            " 90% Confidence Interval\r\n"
            " +/- 0.0660  LL 0.3340  UL 0.4660\r\n"
            "\r\n"
            " 95% Confidence Interval\r\n"
            " +/- 0.0784  LL 0.3216  UL 0.4784\r\n"
            "\r\n"
            " 99% Confidence Interval\r\n"
            " +/- 0.1032  LL 0.2968  UL 0.5032\r\n"
            "\r\n");
}

TEST_F(OfAProportion, Narrative) {
  EXPECT_EQ(calculation.narrative,
            "Interpretation of the 95% confidence interval:\r\n"
            "\r\n"
            "Based on 150 observations, a proportion of 0.4, a standard error equal to .04, and 5% chance of error "
            "(95% confidence), the population proportion is between .322 and .478 (32.2% to 47.8%).\r\n"
            "\r\n"
            "The margin of error for the 95% confidence interval is plus or minus (+/-) 0.078  or plus or minus "
            "7.840% .\r\n"
            "\r\n" +
                kDashes);
  EXPECT_TRUE(calculation.messages.empty());
}

TEST(ProportionInterval, ALowerLimitBelowZeroIsZero) {
  const Calculation calculation = CalculateProportionInterval({"10", "0.01"});
  EXPECT_EQ(calculation.report,
            "Margin of Error for Proportions\r\n"
            "\r\n"
            "n = 10   Proportion = 0.01   Standard Error = 0.031\r\n"
            "\r\n"
            "                                          Margin Limits\r\n"
            "Confidence      Error +/-            Lower            Upper\r\n"
            "------------------------------------------------------------\r\n"
            "    90%            0.0519           0.0000           0.0619\r\n"
            "    95%            0.0617           0.0000           0.0717\r\n"
            "    99%            0.0812           0.0000           0.0912\r\n"
            "\r\n");
  EXPECT_TRUE(Contains(*calculation.short_report, " +/- 0.0617  LL 0.0000  UL 0.0717\r\n"));
  EXPECT_TRUE(Contains(*calculation.narrative, "is between .000 and .072 (.0% to 7.2%).\r\n"));
}

TEST(ProportionInterval, AnUpperLimitAboveOneIsOne) {
  const Calculation calculation = CalculateProportionInterval({"10", "0.99"});
  EXPECT_EQ(calculation.short_report,
            " n = 10   Proportion = 0.99   SEp = 0.031\r\n"
            "\r\n"
            " 90% Confidence Interval\r\n"
            " +/- 0.0519  LL 0.9381  UL 1.0000\r\n"
            "\r\n"
            " 95% Confidence Interval\r\n"
            " +/- 0.0617  LL 0.9283  UL 1.0000\r\n"
            "\r\n"
            " 99% Confidence Interval\r\n"
            " +/- 0.0812  LL 0.9088  UL 1.0000\r\n"
            "\r\n");
  EXPECT_TRUE(Contains(*calculation.narrative, "is between .928 and 1.000 (92.8% to 100.0%).\r\n"));
}

TEST(ProportionInterval, EveryBoxMustBeNumeric) {
  const std::string text = "Only numerical data can be entered.";
  ExpectMessageAlone(CalculateProportionInterval({}), "Entry Error!", text);
  ExpectMessageAlone(CalculateProportionInterval({"10", "50%"}), "Entry Error!", text);
  ExpectMessageAlone(CalculateProportionInterval({"ten", ".5"}), "Entry Error!", text);
}

TEST(ProportionInterval, AProportionIsNotAboveOne) {
  ExpectMessageAlone(CalculateProportionInterval({"10", "1.2"}), "Entry Error",
                     "You must enter a proportion (i.e., a number less than 1)");
}

// 1 itself is accepted, and has no error.
TEST(ProportionInterval, AProportionOfOneHasNoError) {
  EXPECT_TRUE(Contains(*CalculateProportionInterval({"20", "1"}).report,
                       "    95%            0.0000           1.0000           1.0000\r\n"));
}

// sqrt(.25 / 1) = .5: the limits of every level are cut to 0 and 1.
TEST(ProportionInterval, OneObservationRuns) {
  const Calculation calculation = CalculateProportionInterval({"1", "0.5"});
  EXPECT_TRUE(Contains(*calculation.report, "    90%            0.8250           0.0000           1.0000\r\n"));
  EXPECT_TRUE(calculation.messages.empty());
}

// The error fails: it divides by 0, or is the root of a number below 0.
TEST(ProportionInterval, AFailedErrorIsZero) {
  EXPECT_TRUE(Contains(*CalculateProportionInterval({"0", "0.5"}).report,
                       "    95%            0.0000           0.5000           0.5000\r\n"));
  EXPECT_TRUE(Contains(*CalculateProportionInterval({"10", "-0.5"}).report,
                       "    95%            0.0000           0.0000          -0.5000\r\n"));
}

TEST(ProportionInterval, CommasAreStripped) {
  EXPECT_EQ(CalculateProportionInterval({"1,500", ".4"}).report, CalculateProportionInterval({"1500", ".4"}).report);
}

}  // namespace
}  // namespace tessara
