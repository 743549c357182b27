#include <gtest/gtest.h>

#include "procedures/tests/table_cases.h"

// The sections behind the table.
// The figures come from scipy.stats (chi2_contingency without correction, chi2, norm), the exact test from
// fractions of whole numbers, the others from the formulas worked out in Python; their places on the page from the
// rules of the layout.

namespace tessara {
namespace {

// a is 0: neither the odds ratio nor the relative risk can be computed, and their lines are the labels. The exact test
// counts d down, past tables with a below 0, which add to its sum: 0.0031 where the possible ones alone give 0.0029.
TEST(CrosstabulationSections, AZeroCellHasNoOddsRatio) {
  EXPECT_EQ(SectionsOf({{0, 10}, {12, 8}}, kChiSquareAndRisk),
            "Chi-square                    Value         DF         p < \r\n"
            "-----------------------------------------------------------\r\n"
            "Pearson                      10.000          1      0.0016\r\n"
            "Likelihood Ratio             13.460          1      0.0002\r\n"
            "Yate's Correction            7.656          1      0.0057\r\n"
            "Fisher's Exact (2-tailed)                           0.0031\r\n"
            "\r\n"
            "\r\n"
            "Risk Measures                     SE      95%LL      95%UL\r\n"
            "-----------------------------------------------------------\r\n"
            "Odds Ratio      \r\n"
            "Relative Risk   \r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "Note: 25.00% of the cells have an expected frequency <5 \r\n"
            "\r\n"
            "\r\n"
            "\r\n");
}

// c is 0: the risk of the first column is certain, and its error is that of the second alone.
TEST(CrosstabulationSections, AZeroCellInTheSecondRowLeavesTheRelativeRisk) {
  EXPECT_EQ(SectionsOf({{10, 5}, {0, 8}}, kRisk),
            "\r\n"
            "Risk Measures                     SE      95%LL      95%UL\r\n"
            "-----------------------------------------------------------\r\n"
            "Odds Ratio      \r\n"
            "Relative Risk        2.600     0.351      1.307      5.171\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "\r\n");
}

TEST(CrosstabulationSections, PerfectAgreementHasNoErrorAndNoSignificance) {
  EXPECT_EQ(SectionsOf({{10, 0, 0}, {0, 7, 0}, {0, 0, 3}}, kAgreement),
            "\r\n"
            "\r\n"
            "Agreement Statistics\r\n"
            "-------------------------------------\r\n"
            "Proportion Agree            1.000\r\n"
            "Kappa Statistic             1.000\r\n"
            "Kappa Standard Error          NA\r\n"
            "Kappa Significance (p<)       NA\r\n"
            "\r\n"
            "\r\n");
}

TEST(CrosstabulationSections, AKappaBelowZeroHangsItsSignOut) {
  EXPECT_EQ(SectionsOf({{4, 6}, {6, 4}}, kAgreement),
            "\r\n"
            "\r\n"
            "Agreement Statistics\r\n"
            "-------------------------------------\r\n"
            "Proportion Agree            .400\r\n"
            "Kappa Statistic            -.200\r\n"
            "Kappa Standard Error        .224\r\n"
            "Kappa Significance (p<)     .3711\r\n"
            "\r\n"
            "\r\n");
}

// Kappa is -0.0001: it prints without a sign, and its margin is the shorter one all the same.
TEST(CrosstabulationSections, AKappaThatRoundsToZeroFromBelowHasTheShorterMargin) {
  EXPECT_EQ(SectionsOfMany({{4999, 5000}, {5001, 5000}}, kAgreement),
            "\r\n"
            "\r\n"
            "Agreement Statistics\r\n"
            "-------------------------------------\r\n"
            "Proportion Agree            .500\r\n"
            "Kappa Statistic            .000\r\n"
            "Kappa Standard Error        .007\r\n"
            "Kappa Significance (p<)     .9887\r\n"
            "\r\n"
            "\r\n");
}

// The z of kappa is 0.0045, so 100 z rounds to 0.
TEST(CrosstabulationSections, AKappaZThatRoundsToZeroHasASignificanceOfOne) {
  EXPECT_EQ(SectionsOfMany({{12500, 12500}, {12499, 12500}}, kAgreement),
            "\r\n"
            "\r\n"
            "Agreement Statistics\r\n"
            "-------------------------------------\r\n"
            "Proportion Agree            .500\r\n"
            "Kappa Statistic             .000\r\n"
            "Kappa Standard Error        .004\r\n"
            "Kappa Significance (p<)     1.0000\r\n"
            "\r\n"
            "\r\n");
}

// Chi-square and G are 0, and their p cannot be computed.
TEST(CrosstabulationSections, AnEmptyPearsonPPrintsAsOneTenThousandthAndAnEmptyLikelihoodPAsNothing) {
  EXPECT_EQ(SectionsOf({{5, 5}, {5, 5}}, kChiSquare),
            "Chi-square                    Value         DF         p < \r\n"
            "-----------------------------------------------------------\r\n"
            "Pearson                       0.000          1      0.0001\r\n"
            "Likelihood Ratio              0.000          1      \r\n"
            "Yate's Correction             0.200          1      0.6547\r\n"
            "Fisher's Exact (2-tailed)                           1.0000\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "Note: 00.00% of the cells have an expected frequency <5 \r\n"
            "\r\n"
            "\r\n"
            "\r\n");
}

// |ad - bc| is n / 2: the corrected chi-square is 0, and its p prints nothing behind the shared blanks.
TEST(CrosstabulationSections, AnEmptyYatesPPrintsNothing) {
  EXPECT_EQ(SectionsOf({{2, 1}, {3, 4}}, kChiSquare),
            "Chi-square                    Value         DF         p < \r\n"
            "-----------------------------------------------------------\r\n"
            "Pearson                       0.476          1      0.4902\r\n"
            "Likelihood Ratio              0.483          1      0.4870\r\n"
            "Yate's Correction             0.000          1      \r\n"
            "Fisher's Exact (2-tailed)                           1.0000\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "Note: 100.00% of the cells have an expected frequency <5 \r\n"
            "\r\n"
            "\r\n"
            "\r\n");
}

// 1480 cases in agreement have a chi-square of 1480, at which the series of its p overflows. At 1600 it has ended in 0.
TEST(CrosstabulationSections, APearsonPThatOverflowsPrintsAsOneTenThousandth) {
  const std::string rule = std::string(59, '-') + "\r\n";
  const std::string head = "Chi-square                    Value         DF         p < \r\n" + rule;
  EXPECT_EQ(SectionsOfMany({{740, 0}, {0, 740}}, kChiSquare)
                .rfind(head + "Pearson                    1480.000          1      0.0001\r\n", 0),
            0u);
  EXPECT_EQ(SectionsOfMany({{800, 0}, {0, 800}}, kChiSquare)
                .rfind(head + "Pearson                    1600.000          1      0.0000\r\n", 0),
            0u);
}

// The padding of a value with more than 9 characters is none. (That of G is 2 x 400000 x ln 2.)
TEST(CrosstabulationSections, AValueBeyondItsColumnTakesNoPadding) {
  const std::string lines =
      "Chi-square                    Value         DF         p < \r\n"
      "-----------------------------------------------------------\r\n"
      "Pearson                   400000.000          1      0.0000\r\n"
      "Likelihood Ratio          554517.744          1      0.0000\r\n"
      "Yate's Correction         399996.000          1      0.0000\r\n";
  EXPECT_EQ(SectionsOfMany({{200000, 0}, {0, 200000}}, kChiSquare).substr(0, lines.size()), lines);
}

TEST(CrosstabulationSections, TheRiskSectionStandsAlone) {
  EXPECT_EQ(SectionsOf({{20, 30}, {35, 14}}, kRisk),
            "\r\n"
            "Risk Measures                     SE      95%LL      95%UL\r\n"
            "-----------------------------------------------------------\r\n"
            "Odds Ratio           0.267     0.428      0.115      0.617\r\n"
            "Relative Risk        0.533     0.206      0.356      0.799\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "\r\n");
}

TEST(CrosstabulationSections, TheRiskBoxAloneAddsNothingToALargerTable) {
  EXPECT_EQ(SectionsOf({{10, 20, 30}, {25, 15, 5}}, kRisk), "\r\n\r\n");
}

TEST(CrosstabulationSections, TheAgreementBoxAloneAddsNothingToATableThatIsNotSquare) {
  EXPECT_EQ(SectionsOf({{10, 20, 30}, {25, 15, 5}}, kAgreement), "\r\n\r\n");
}

TEST(CrosstabulationSections, AssociationAlone) {
  EXPECT_EQ(SectionsOf({{10, 20, 30}, {25, 15, 5}}, kAssociation),
            "Measures of Association\r\n"
            "-------------------------------------\r\n"
            "Cramer's V                  .471\r\n"
            "Pearson C                   .426\r\n"
            "Lambda Symmetric            .304\r\n"
            "Lambda Dependent=Row        .333\r\n"
            "Lambda Dependent=Column     .286\r\n"
            "\r\n"
            "\r\n");
}

TEST(CrosstabulationSections, ChiSquareAloneEndsInTwoLineEndsAheadOfTheNote) {
  EXPECT_EQ(SectionsOf({{20, 30}, {35, 15}}, kChiSquare),
            "Chi-square                    Value         DF         p < \r\n"
            "-----------------------------------------------------------\r\n"
            "Pearson                       9.091          1      0.0026\r\n"
            "Likelihood Ratio              9.240          1      0.0024\r\n"
            "Yate's Correction             7.919          1      0.0049\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "Note: 00.00% of the cells have an expected frequency <5 \r\n"
            "\r\n"
            "\r\n"
            "\r\n");
}

}  // namespace
}  // namespace tessara
