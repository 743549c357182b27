#include "numerics/two_by_two.h"

#include <gtest/gtest.h>

#include <cmath>

#include "numerics/probability.h"

// The expectations of the exact test are fractions worked out with whole numbers; those of the intervals come from a
// computation with 50 digits.

namespace tessara {
namespace {

const Checked kFailed = Checked::Failed();

void ExpectValue(Checked result, double expected) {
  ASSERT_FALSE(result.failed());
  EXPECT_NEAR(result.value(), expected, 1e-13 * std::fabs(expected));
}

TEST(Factorial, MultipliesDownToTwo) {
  EXPECT_EQ(Factorial(1).value(), 1);
  EXPECT_EQ(Factorial(2).value(), 2);
  EXPECT_EQ(Factorial(3).value(), 6);
  EXPECT_EQ(Factorial(10).value(), 3628800);
  EXPECT_EQ(Factorial(20).value(), 2432902008176640000.0);
  ExpectValue(Factorial(170), 7.257415615307999e306);
}

TEST(Factorial, OfAnythingBelowTwoIsOne) {
  EXPECT_EQ(Factorial(0).value(), 1);
  EXPECT_EQ(Factorial(-3).value(), 1);
  EXPECT_EQ(Factorial(-32768).value(), 1);
}

TEST(Factorial, RoundsAFractionHalfToEvenFirst) {
  EXPECT_EQ(Factorial(1.4).value(), 1);
  EXPECT_EQ(Factorial(1.5).value(), 2);
  EXPECT_EQ(Factorial(2.5).value(), 2);
  EXPECT_EQ(Factorial(3.5).value(), 24);
  EXPECT_EQ(Factorial(4.5).value(), 24);
  EXPECT_EQ(Factorial(4.6).value(), 120);
}

TEST(Factorial, OverflowsAbove170) {
  EXPECT_TRUE(Factorial(171).failed());
  EXPECT_TRUE(Factorial(170.6).failed());
  EXPECT_FALSE(Factorial(170.5).failed());
  EXPECT_TRUE(Factorial(32767).failed());
}

TEST(Factorial, FailsForACountBeyond16Bits) {
  EXPECT_TRUE(Factorial(40000).failed());
  EXPECT_TRUE(Factorial(-40000).failed());
  EXPECT_TRUE(Factorial(1e300).failed());
  EXPECT_TRUE(Factorial(kFailed).failed());
}

TEST(HypergeometricTableP, IsTheProbabilityOfTheTable) {
  ExpectValue(HypergeometricTableP(3, 1, 1, 3), 8.0 / 35);
  ExpectValue(HypergeometricTableP(1, 5, 7, 3), 8.0 / 143);
  ExpectValue(HypergeometricTableP(4, 0, 0, 4), 1.0 / 70);
  ExpectValue(HypergeometricTableP(0, 0, 3, 4), 1);
  ExpectValue(HypergeometricTableP(0, 0, 0, 0), 1);
}

TEST(HypergeometricTableP, ACellOfZeroOrBelowCountsAsFactorialOne) {
  ExpectValue(HypergeometricTableP(-2, 8, 10, 0), 1.0 / 720720);  // 6! 10! 8! 8! / (8! 10! 16!)
  ExpectValue(HypergeometricTableP(-1, 7, 9, 1), 1.0 / 9009);
}

TEST(HypergeometricTableP, ReachesTo170Cases) {
  ExpectValue(HypergeometricTableP(85, 0, 0, 85), 1.093512623766556e-50);
  ExpectValue(HypergeometricTableP(42, 43, 43, 42), 0.12044251749406439);
  ExpectValue(HypergeometricTableP(0, 0, 85, 85), 1);
  ExpectValue(HypergeometricTableP(0, 170, 0, 0), 1);
  EXPECT_TRUE(HypergeometricTableP(85, 0, 0, 86).failed());
  EXPECT_TRUE(HypergeometricTableP(0, 0, 0, 171).failed());
  EXPECT_TRUE(HypergeometricTableP(kFailed, 1, 1, 1).failed());
}

TEST(FisherExactP, PicksCellDThoughAIsSmaller) {
  // With c = 7 >= d = 3 the tables are (-2 8 10 0), (-1 7 9 1), (0 6 8 2) and (1 5 7 3):
  // 2 (1/720720 + 1/9009 + 6!10!8!8! / (6!8!2!16!) + 8/143)
  ExpectValue(FisherExactP(1, 5, 7, 3), 4769.0 / 40040);
}

TEST(FisherExactP, CountsTheChosenCellDown) {
  struct Case {
    double a, b, c, d, p;
  };
  const Case cases[] = {
      {3, 1, 1, 3, 17.0 / 35},             // cell c: (4 0 0 4) 1/70 and (3 1 1 3) 16/70
      {8, 2, 1, 5, 7.0 / 143},             // cell c
      {6, 3, 2, 4, 6.0 / 13},              // cell c
      {2, 3, 0, 5, 4.0 / 9},               // cell c, of 0: the one table
      {10, 2, 3, 15, 1238.0 / 1330665},    // cell b
      {4, 1, 2, 6, 74.0 / 429},            // cell b
      {9, 3, 4, 8, 5176.0 / 52003},        // cell b
      {1, 9, 11, 20, 490245.0 / 1959964},  // cell a
      {0, 5, 5, 0, 1.0 / 126},             // cell d, of 0
      {2, 7, 8, 2, 1711.0 / 46189},        // cell d
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.a << " " << c.b << " " << c.c << " " << c.d);
    ExpectValue(FisherExactP(c.a, c.b, c.c, c.d), c.p);
  }
}

TEST(FisherExactP, MoreThanOneHalfInOneEndYieldsExactlyOne) {
  EXPECT_EQ(FisherExactP(5, 5, 5, 5).value(), 1);  // cell d: the end adds up to .67
  EXPECT_EQ(FisherExactP(1, 2, 3, 4).value(), 1);  // cell a: 2/3
  EXPECT_EQ(FisherExactP(40, 45, 42, 43).value(), 1);
  EXPECT_EQ(FisherExactP(0, 0, 0, 0).value(), 1);
}

TEST(FisherExactP, FailsAbove170Cases) {
  ExpectValue(FisherExactP(85, 0, 0, 85), 2.187025247533112e-50);
  ExpectValue(FisherExactP(50, 35, 40, 45), 0.1665017358773471);
  EXPECT_TRUE(FisherExactP(85, 0, 0, 86).failed());
  EXPECT_TRUE(FisherExactP(1e300, 1e300, 1e300, 1e300).failed());
  EXPECT_TRUE(FisherExactP(1e9, 1e9, 1e9, 1e9).failed());
}

TEST(FisherExactP, AFailedCountFails) {
  EXPECT_TRUE(FisherExactP(kFailed, 1, 1, 1).failed());
  EXPECT_TRUE(FisherExactP(1, kFailed, 1, 1).failed());
  EXPECT_TRUE(FisherExactP(1, 1, kFailed, 1).failed());
  EXPECT_TRUE(FisherExactP(1, 1, 1, kFailed).failed());
}

TEST(YatesChiSquare, CorrectsByHalfTheCases) {
  ExpectValue(YatesChiSquare(10, 20, 30, 40), 25.0 / 56);  // (200 - 50)^2 100 / (30 40 60 70)
  ExpectValue(YatesChiSquare(3, 1, 1, 3), 0.5);            // (8 - 4)^2 8 / 4^4
  ExpectValue(YatesChiSquare(15, 5, 10, 20), 6.75);        // (250 - 25)^2 50 / (20 25 25 30)
}

TEST(YatesChiSquare, IsNotClippedAtZero) {
  ExpectValue(YatesChiSquare(5, 5, 5, 5), 0.2);                             // (0 - 10)^2 20 / 10^4
  ExpectValue(YatesChiSquare(4, 5, 6, 7), 22.0 * 81 / (9 * 10 * 12 * 13));  // (2 - 11)^2 22 / (9 10 12 13)
}

TEST(YatesChiSquare, FailsWithAnEmptyMargin) {
  EXPECT_TRUE(YatesChiSquare(0, 0, 3, 4).failed());
  EXPECT_TRUE(YatesChiSquare(1, 0, 3, 0).failed());
  EXPECT_TRUE(YatesChiSquare(1e200, 1, 1, 1e200).failed());
  EXPECT_TRUE(YatesChiSquare(1, kFailed, 1, 1).failed());
}

void ExpectInterval(const RatioInterval& interval, double ratio, double standard_error, double lower, double upper) {
  ExpectValue(interval.ratio, ratio);
  ExpectValue(interval.standard_error, standard_error);
  ExpectValue(interval.lower, lower);
  ExpectValue(interval.upper, upper);
  EXPECT_EQ(interval.filled.value(), 1);
}

TEST(OddsRatioInterval, MeetsTheTrueValues) {
  ExpectInterval(OddsRatioInterval(10, 20, 30, 40), 0.66666666666666667, 0.45643546458763843, 0.27251036778097693,
                 1.6309267352413359);
  ExpectInterval(OddsRatioInterval(3, 1, 1, 3), 9, 1.6329931618554521, 0.3666153695418173, 220.94000069127185);
  ExpectInterval(OddsRatioInterval(15, 5, 10, 20), 6, 0.64549722436790281, 1.6931401968974467, 21.262267629087844);
}

TEST(RiskRatioInterval, IsTakenDownTheColumns) {
  ExpectInterval(RiskRatioInterval(10, 20, 30, 40), 0.75, 0.32914029430219165, 0.39345166615295829, 1.4296546396662671);
  ExpectInterval(RiskRatioInterval(3, 1, 1, 3), 3, 0.91287092917527686, 0.50126782869983233, 17.954473606143498);
  ExpectInterval(RiskRatioInterval(15, 5, 10, 20), 3, 0.43204937989385735, 1.2863329605395512, 6.9966332793221424);
}

TEST(OddsRatioInterval, IsNotFilledWithAZeroCell) {
  EXPECT_EQ(OddsRatioInterval(0, 1, 2, 3).filled.value(), 0);
  EXPECT_EQ(OddsRatioInterval(1, 0, 2, 3).filled.value(), 0);
  EXPECT_EQ(OddsRatioInterval(1, 2, 0, 3).filled.value(), 0);
  EXPECT_EQ(OddsRatioInterval(1, 2, 3, 0).filled.value(), 0);
  EXPECT_EQ(OddsRatioInterval(1, 2, 3, kFailed).filled.value(), 0);
}

TEST(RiskRatioInterval, IsNotFilledWithoutCasesInTheFirstRow) {
  EXPECT_EQ(RiskRatioInterval(0, 1, 2, 3).filled.value(), 0);
  EXPECT_EQ(RiskRatioInterval(1, 0, 2, 3).filled.value(), 0);
  EXPECT_EQ(RiskRatioInterval(0, 1, 0, 3).filled.value(), 0);
  // A 0 in the second row is a risk of 1: with c = 0 it is 1 / (2 / 5), and se is the root of 1/2 - 1/5.
  const RatioInterval interval = RiskRatioInterval(1, 2, 0, 3);
  ExpectValue(interval.ratio, 2.5);
  ExpectValue(interval.standard_error, std::sqrt(0.3));
  EXPECT_EQ(interval.filled.value(), 1);
}

TEST(RatioInterval, TheValuesAheadOfTheFailingStepStand) {
  const RatioInterval negative = OddsRatioInterval(-1, 2, 3, 4);  // ln(-4/6) fails
  EXPECT_NEAR(negative.ratio.value(), -4.0 / 6, 1e-15);
  EXPECT_EQ(negative.standard_error.value(), 0);
  EXPECT_EQ(negative.filled.value(), 0);

  const RatioInterval wide = OddsRatioInterval(1e-6, 1, 1, 1);  // se is 1000, exp(1960 - 14) overflows
  EXPECT_NEAR(wide.ratio.value(), 1e-6, 1e-20);
  EXPECT_NEAR(wide.standard_error.value(), 1000, 0.01);
  EXPECT_EQ(wide.lower.value(), 0);
  EXPECT_EQ(wide.upper.value(), 0);
  EXPECT_EQ(wide.filled.value(), 0);
}

}  // namespace
}  // namespace tessara
