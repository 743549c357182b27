#include "numerics/counted_table.h"

#include <gtest/gtest.h>

#include <cmath>

// The expectations come from scipy.stats (chi2_contingency without correction, chi2, norm, hypergeom) and from the
// formulas worked out in Python, unless a test says otherwise.

namespace tessara {
namespace {

void ExpectNear(const Number& result, double expected) {
  EXPECT_NEAR(result.value(), expected, 1e-12 * std::fabs(expected));
}

void ExpectP(const std::optional<double>& p, double expected) {
  ASSERT_TRUE(p.has_value());
  EXPECT_NEAR(*p, expected, 1e-6);  // the series of the chi-square area stops at 1e-07
}

TEST(CountedTable, HasItsTotals) {
  const CountedTable table(2, 3, {1, 2, 3, 4, 5, 6});
  EXPECT_EQ(table.row_totals, (std::vector<double>{6, 15}));
  EXPECT_EQ(table.column_totals, (std::vector<double>{5, 7, 9}));
  EXPECT_EQ(table.n, 21);
  EXPECT_EQ(table.Cell(1, 0), 4);
}

TEST(CountedTable, CellsThatAreNotGivenCountZero) {
  const CountedTable table(2, 2, {7});
  EXPECT_EQ(table.cells, (std::vector<double>{7, 0, 0, 0}));
  EXPECT_EQ(table.n, 7);
}

TEST(TableStatistics, TwoByTwoBelowOneHundredCases) {
  const TableStatistics s = ComputeTableStatistics({2, 2, {20, 30, 35, 14}});
  EXPECT_EQ(s.low_cells, 0u);
  EXPECT_EQ(s.df, 1);
  ExpectNear(s.chi_square, 9.9);
  ExpectNear(s.likelihood_ratio, 10.086805783989178);
  ExpectP(s.chi_square_p, 0.0016527877186364465);
  ExpectP(s.likelihood_p, 0.001493347452611266);
  ExpectNear(s.yates_chi_square, 8.668056122448979);
  ExpectP(s.yates_p, 0.0032383644532847306);
  ExpectP(s.fisher_p, 0.0030237866627552275);
  ExpectNear(s.odds_ratio.ratio, 4.0 / 15);
  ExpectNear(s.odds_ratio.standard_error, 0.42817441928883765);
  ExpectNear(s.relative_risk.ratio, 8.0 / 15);
  ExpectNear(s.relative_risk.upper, 0.79859240292038);
  ExpectNear(s.cramers_v, 0.31622776601683794);
  ExpectNear(s.pearson_c, 0.30151134457776363);
  ExpectNear(s.lambda_symmetric, 25.0 / 93);  // (65 + 65 - 50 - 55) / (198 - 50 - 55)
  ExpectNear(s.lambda_row, 15.0 / 49);
  ExpectNear(s.lambda_column, 10.0 / 44);
  ExpectNear(s.proportion_agree, 34.0 / 99);
  ExpectNear(s.kappa, -0.3146067415730336);
  ExpectNear(s.kappa_error, 0.10061664375297703);
  EXPECT_NEAR(s.kappa_significance.value(), 0.00176728, 1e-7);
  EXPECT_FALSE(s.kappa_is_perfect);
}

// 1E+200 cases times 1E+200 is beyond the range: the second cell is compared with the 2 expected in the first. By hand
// G is twice 1E+200 ln(5E+199), beside which the other cells vanish; Pearson's part of that cell fails and is left out:
// (1 - 2)^2 / 2 + 1 / 4E-200 + (1 - 2)^2 / 2.
TEST(TableStatistics, AnExpectationBeyondTheRangeIsThatOfTheCellBefore) {
  const TableStatistics s = ComputeTableStatistics({2, 2, {1, 1e200, 1, 1}});
  ExpectNear(s.likelihood_ratio, 2e200 * (std::log(5.0) + 199 * std::log(10.0)));
  ExpectNear(s.chi_square, 2.5e199);
  EXPECT_EQ(s.low_cells, 4u);
}

TEST(TableStatistics, OneHundredCasesHaveNoExactTest) {
  const TableStatistics s = ComputeTableStatistics({2, 2, {20, 30, 35, 15}});
  EXPECT_FALSE(s.fisher_p.has_value());
  ExpectNear(s.chi_square, 100.0 / 11);
  ExpectNear(s.yates_chi_square, 7.91919191919192);
}

TEST(TableStatistics, ThreeByThreeHasAgreementAndNoTwoByTwoMeasures) {
  const TableStatistics s = ComputeTableStatistics({3, 3, {12, 5, 2, 4, 15, 6, 3, 7, 20}});
  EXPECT_EQ(s.low_cells, 1u);  // 19 x 19 / 74 = 4.88
  EXPECT_EQ(s.df, 4);
  ExpectNear(s.chi_square, 31.52870636630563);
  ExpectNear(s.likelihood_ratio, 29.631402655580665);
  ExpectNear(s.cramers_v, 0.4615536802716834);
  ExpectNear(s.lambda_symmetric, 0.4);
  ExpectNear(s.lambda_row, 17.0 / 44);
  ExpectNear(s.lambda_column, 19.0 / 46);
  ExpectNear(s.proportion_agree, 47.0 / 74);
  ExpectNear(s.kappa, 0.445);
  ExpectNear(s.kappa_error, 0.08391687578813956);
  EXPECT_EQ(s.kappa_significance.value(), 0.0001);  // z is 5.30
  EXPECT_FALSE(s.yates_p.has_value());
  EXPECT_FALSE(s.fisher_p.has_value());
  EXPECT_EQ(s.odds_ratio.filled.value(), 0);
}

TEST(TableStatistics, TwoByThreeHasNoAgreement) {
  const TableStatistics s = ComputeTableStatistics({2, 3, {10, 20, 30, 25, 15, 5}});
  EXPECT_EQ(s.df, 2);
  ExpectNear(s.chi_square, 70.0 / 3);
  ExpectNear(s.likelihood_ratio, 25.020121176909395);
  ExpectNear(s.cramers_v, 0.4714045207910317);
  EXPECT_EQ(s.kappa_significance.value(), 0);
  EXPECT_EQ(s.proportion_agree.value(), 0);
}

// df is 0 and chi-square is 0: neither p can be computed, V divides by 0, and lambda has no column to predict.
TEST(TableStatistics, OneColumnKeepsZeros) {
  const TableStatistics s = ComputeTableStatistics({3, 1, {7, 8, 9}});
  EXPECT_EQ(s.df, 0);
  EXPECT_EQ(s.chi_square.value(), 0);
  EXPECT_FALSE(s.chi_square_p.has_value());
  EXPECT_FALSE(s.likelihood_p.has_value());
  EXPECT_EQ(s.cramers_v.value(), 0);
  EXPECT_EQ(s.pearson_c.value(), 0);
  EXPECT_EQ(s.lambda_row.value(), 0);
  EXPECT_EQ(s.lambda_column.value(), 0);
}

TEST(TableStatistics, OneRowKeepsZeros) {
  const TableStatistics s = ComputeTableStatistics({1, 2, {7, 9}});
  EXPECT_EQ(s.cramers_v.value(), 0);
  EXPECT_FALSE(s.chi_square_p.has_value());
  EXPECT_EQ(s.lambda_row.value(), 0);
}

// Nothing is left to chance in a single cell: Pe is 1, and kappa and its error fail.
TEST(TableStatistics, OneCellAgreesPerfectlyWithAKappaOfZero) {
  const TableStatistics s = ComputeTableStatistics({1, 1, {12}});
  EXPECT_EQ(s.proportion_agree.value(), 1);
  EXPECT_EQ(s.kappa.value(), 0);
  EXPECT_TRUE(s.kappa_is_perfect);
  EXPECT_EQ(s.lambda_symmetric.value(), 0);
}

TEST(TableStatistics, PerfectAgreementPrintsNoSignificance) {
  const TableStatistics s = ComputeTableStatistics({3, 3, {10, 0, 0, 0, 7, 0, 0, 0, 3}});
  EXPECT_EQ(s.kappa.value(), 1);
  EXPECT_TRUE(s.kappa_is_perfect);
  ExpectNear(s.chi_square, 40);
  ExpectNear(s.likelihood_ratio, 39.94317326349568);  // empty cells add nothing to it
  EXPECT_EQ(s.low_cells, 8u);
}

TEST(TableStatistics, AnEmptyCellFailsTheOddsRatio) {
  const TableStatistics s = ComputeTableStatistics({2, 2, {10, 5, 0, 8}});
  EXPECT_EQ(s.odds_ratio.filled.value(), 0);
  EXPECT_EQ(s.relative_risk.filled.value(), 1);
  ExpectNear(s.relative_risk.ratio, 13.0 / 5);
}

TEST(TableStatistics, AnEmptyCellInTheFirstRowFailsTheRiskToo) {
  EXPECT_EQ(ComputeTableStatistics({2, 2, {0, 10, 12, 8}}).relative_risk.filled.value(), 0);
  EXPECT_EQ(ComputeTableStatistics({2, 2, {10, 0, 12, 8}}).relative_risk.filled.value(), 0);
}

TEST(TableStatistics, IndependenceHasNoP) {
  const TableStatistics s = ComputeTableStatistics({2, 2, {5, 5, 5, 5}});
  EXPECT_EQ(s.chi_square.value(), 0);
  EXPECT_EQ(s.likelihood_ratio.value(), 0);
  EXPECT_FALSE(s.chi_square_p.has_value());
  EXPECT_FALSE(s.likelihood_p.has_value());
  ExpectNear(s.yates_chi_square, 0.2);
  EXPECT_EQ(s.kappa.value(), 0);
  EXPECT_EQ(s.kappa_significance.value(), 1);
}

// |ad - bc| equals n / 2, so the corrected chi-square is 0 and has no p.
TEST(TableStatistics, ACorrectionThatUsesUpTheDifferenceHasNoP) {
  const TableStatistics s = ComputeTableStatistics({2, 2, {2, 1, 3, 4}});
  EXPECT_EQ(s.yates_chi_square.value(), 0);
  EXPECT_FALSE(s.yates_p.has_value());
  ExpectP(s.fisher_p, 1);
}

// A typed table may have a row without cases. Its cells expect 0: they count as low and add nothing.
TEST(TableStatistics, ARowWithoutCasesAddsNothing) {
  const TableStatistics with = ComputeTableStatistics({3, 2, {20, 30, 0, 0, 35, 14}});
  const TableStatistics without = ComputeTableStatistics({2, 2, {20, 30, 35, 14}});
  EXPECT_EQ(with.chi_square.value(), without.chi_square.value());
  EXPECT_EQ(with.likelihood_ratio.value(), without.likelihood_ratio.value());
  EXPECT_EQ(with.low_cells, 2u);
  EXPECT_EQ(with.df, 2);
}

TEST(TableStatistics, AnEmptyTableFailsNowhere) {
  const TableStatistics s = ComputeTableStatistics(CountedTable());
  EXPECT_EQ(s.chi_square.value(), 0);
  EXPECT_EQ(s.pearson_c.value(), 0);
  EXPECT_FALSE(s.chi_square_p.has_value());
}

TEST(TableStatistics, HugeTypedCountsStayFinite) {
  const TableStatistics s = ComputeTableStatistics({2, 2, {1e300, 1e300, 1e300, 1e300}});
  EXPECT_EQ(s.chi_square.value(), 0);  // every expected count fails: 0 is left of the first, and is skipped
  EXPECT_EQ(s.low_cells, 4u);
  EXPECT_TRUE(std::isfinite(s.kappa.value()));
}

// Po and Pe are chosen so that the standard error is sqrt(.5 / (.5 x 100)) = .1 and z = 10 (2 Po - 1).
Agreement AgreementOfZ(double z) { return ComputeAgreement((z / 10 + 1) / 2, 0.5, 100); }

TEST(Agreement, KappaAndItsError) {
  const Agreement agreement = AgreementOfZ(1.96);
  EXPECT_NEAR(agreement.kappa.value(), 0.196, 1e-15);
  EXPECT_NEAR(agreement.standard_error.value(), 0.1, 1e-16);
  EXPECT_NEAR(agreement.significance.value(), 0.04999579, 1e-7);  // 2 norm.sf(1.96)
}

TEST(Agreement, BothSidesHaveTheSameSignificance) {
  EXPECT_NEAR(AgreementOfZ(-1).significance.value(), 0.31731051, 1e-7);
  EXPECT_NEAR(AgreementOfZ(1).significance.value(), 0.31731051, 1e-7);
}

TEST(Agreement, AZThatRoundsToZeroIsOne) {
  EXPECT_EQ(AgreementOfZ(0).significance.value(), 1);
  EXPECT_EQ(AgreementOfZ(0.0049).significance.value(), 1);
  EXPECT_EQ(AgreementOfZ(-0.0049).significance.value(), 1);
  EXPECT_NEAR(AgreementOfZ(0.0051).significance.value(), 0.995931, 1e-6);  // 2 norm.sf(0.0051)
}

TEST(Agreement, AZThatRoundsAboveFourFiftyNineIsBeyond) {
  EXPECT_NEAR(AgreementOfZ(4.594).significance.value(), 0.00000435, 1e-7);  // rounds to 459: its own p
  EXPECT_EQ(AgreementOfZ(4.596).significance.value(), 0.0001);
  EXPECT_EQ(AgreementOfZ(-4.596).significance.value(), 0.0001);
}

// Pe = .5 and n = .0001: the error is 100, so 100 z is kappa itself, which 2 Po - 1 gives without rounding.
TEST(Agreement, AHalfRoundsToTheEvenNumber) {
  const auto significance = [](double kappa) {
    return ComputeAgreement((kappa + 1) / 2, 0.5, 0.0001).significance.value();
  };
  EXPECT_EQ(significance(0.5), 1);                 // to 0
  EXPECT_EQ(significance(-0.5), 1);                // to 0
  EXPECT_NEAR(significance(1.5), 0.988032, 1e-6);  // to 2, and 2 norm.sf(0.015)
  EXPECT_LT(significance(459.25), 0.00001);        // to 459
  EXPECT_EQ(significance(459.5), 0.0001);          // to 460
}

TEST(Agreement, NoSixteenBitLimit) {
  EXPECT_EQ(ComputeAgreement(1, 0.5, 1e12).significance.value(), 0.0001);  // 100 z is 1e8
}

TEST(Agreement, CertainAgreementFailsAndKeepsZeros) {
  const Agreement agreement = ComputeAgreement(1, 1, 10);
  EXPECT_EQ(agreement.kappa.value(), 0);
  EXPECT_EQ(agreement.standard_error.value(), 0);
  EXPECT_EQ(agreement.significance.value(), 1);  // z is 0
}

}  // namespace
}  // namespace tessara
