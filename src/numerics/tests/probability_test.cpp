#include "numerics/probability.h"

#include <gtest/gtest.h>

#include <cmath>

// Two kinds of expectation. "True" values come from a computation with 50 digits of the function itself; a method meets
// them only as closely as its series, constants and stopping rule allow, and each test says how closely that is. "Step"
// values come from the method's own steps, carried out apart from this code in double precision; they are met to
// rounding, and hold the routine to its constants and shortcuts.

namespace tessara {
namespace {

constexpr double kRounding = 1e-13;  // relative; the elementary functions differ in their last digit between libraries

void ExpectSteps(Checked p, double expected) {
  ASSERT_FALSE(p.failed());
  // A p that comes out of 1 minus something carries the rounding of that 1.
  EXPECT_NEAR(p.value(), expected, kRounding * std::fabs(expected) + 1e-15);
}

void ExpectTrueValue(Checked p, double expected, double tolerance) {
  ASSERT_FALSE(p.failed());
  EXPECT_NEAR(p.value(), expected, tolerance);
}

const Checked kFailed = Checked::Failed();

// Student's t

TEST(TDistP, OfZeroIsOne) {
  EXPECT_EQ(TDistP(1, 0).value(), 1);
  EXPECT_EQ(TDistP(2, 0).value(), 1);
  EXPECT_EQ(TDistP(3, 0).value(), 1);
  EXPECT_EQ(TDistP(1e6, 0).value(), 1);
}

TEST(TDistP, BothSignsOfTAgree) {
  for (const double df : {1.0, 2.0, 3.0, 4.0, 5.0, 6.0, 7.5, 100.0}) {
    for (const double t : {0.1, 1.5, 2.5}) {
      EXPECT_NEAR(TDistP(df, t).value(), TDistP(df, -t).value(), 4e-16) << df << " " << t;
    }
  }
}

TEST(TDistP, EvenDfMeetsTheTrueValues) {  // a finite series without a shortened constant: rounding alone
  struct Case {
    double df, t, p;
  };
  const Case cases[] = {{2, 4.303, 0.049992524985214502},  {2, -1, 0.42264973081037424},
                        {4, 2.776, 0.050022778319976412},  {10, 2.228, 0.050011771817111365},
                        {30, 2.042, 0.050028670656197901}, {100, 5, 2.4501734135038004e-6},
                        {1000, 1.96, 0.050273184955748718}};
  for (const Case& c : cases) ExpectTrueValue(TDistP(c.df, c.t), c.p, 1e-14);
  ExpectTrueValue(TDistP(100000, 2.5), 0.012420919192559045, 1e-12);  // 50,000 roundings
}

TEST(TDistP, OddDfMeetsTheTrueValues) {
  // 0.36338023 is 2.4E-09 above 1 - 2/pi; times a sum of at most pi/2, p moves by less than 4E-09.
  struct Case {
    double df, t, p;
  };
  const Case cases[] = {{1, 0.5, 0.70483276469913345},    {1, 12.706, 0.050000802358133188},
                        {3, 3.182, 0.050017136543313765}, {5, 1.5, 0.19390368024247343},
                        {7, 0.1, 0.92314805960479239},    {29, 2.045, 0.050024075922411674},
                        {101, 1, 0.31970031777658195},    {1001, 1.96, 0.050272907732898506}};
  for (const Case& c : cases) ExpectTrueValue(TDistP(c.df, c.t), c.p, 4e-9);
}

TEST(TDistP, KeepsTheShortenedConstant) {
  ExpectSteps(TDistP(1, 0.5), 0.7048327657968569);
  ExpectSteps(TDistP(3, 3.182), 0.05001714007628877);
  ExpectSteps(TDistP(5, 1.5), 0.19390368324033602);
  ExpectSteps(TDistP(7, 0.1), 0.9231480598906039);
  ExpectSteps(TDistP(29, 2.045), 0.050024079455361026);
  ExpectSteps(TDistP(1001, 1.96), 0.05027291126492672);
  ExpectSteps(TDistP(100001, 2.5), 0.012420922850227);
}

TEST(TDistP, FractionalDfFollowsTheStepsAsTheyStand) {
  // Parity is df modulo 2 rounded to even: .5 rounds to 0, 1.5 to 2, and a parity of 2 doubles the scale's constant.
  ExpectSteps(TDistP(0.5, 1), 0.18350341907227397);
  ExpectSteps(TDistP(1.5, 1), 0.6790481498319307);
  ExpectSteps(TDistP(1.6, 1), 0.6842803651139617);
  ExpectSteps(TDistP(2.5, 2), 0.21553545944726382);
  ExpectSteps(TDistP(3.5, 2), 0.6399675898387172);
  ExpectSteps(TDistP(4.5, 2), 0.13241892222024942);
  ExpectSteps(TDistP(5.7, 2), 0.6222681088931044);
  ExpectSteps(TDistP(6.4, 2), 0.10093165756342981);
  ExpectSteps(TDistP(7.5, -2), 0.6114065925062107);
  ExpectSteps(TDistP(17.3, 2.1), 0.05279311399898523);
  ExpectSteps(TDistP(23.9, -1.7), 0.617553060644438);
}

TEST(TDistP, FailsWithoutDegreesOfFreedom) {
  EXPECT_TRUE(TDistP(0, 1).failed());
  EXPECT_TRUE(TDistP(0, 0).failed());
  EXPECT_TRUE(TDistP(-1, 1).failed());
  EXPECT_TRUE(TDistP(1e-300, 1e200).failed());  // t / sqrt(df) overflows
}

TEST(TDistP, AFailedArgumentFails) {
  EXPECT_TRUE(TDistP(kFailed, 1).failed());
  EXPECT_TRUE(TDistP(5, kFailed).failed());
}

TEST(TDistP, AHugeDfGivesTheNormalTail) {
  // 50-digit values of the function; the odd ones move by the shortened constant.
  ExpectTrueValue(TDistP(1e8, 2), 0.0455002665959067529, 1e-14);
  ExpectTrueValue(TDistP(1e8 + 1, 2), 0.0455002665959067259, 4e-9);
  ExpectTrueValue(TDistP(1e300, -2), 0.045500263896358414, 1e-14);
  ExpectTrueValue(TDistP(1e308, 1e-5), 0.999992021154392104, 1e-14);
  EXPECT_EQ(TDistP(1e300, 1e200).value(), 0);
  EXPECT_EQ(TDistP(1e16, 1e300).value(), 0);
  EXPECT_EQ(TDistP(1e300, 0).value(), 1);
}

TEST(TDistP, TheLimitContinuesTheSeries) {
  // On either side of the longest series that is added up. There the cosine, rounded once by up to 6E-17, stands in the
  // last term with a power of 2E+07: the added-up side is off by up to 1E-09.
  for (const double t : {0.001, 0.7, -2.0, 4.0}) {
    EXPECT_NEAR(TDistP(20000002, t).value(), TDistP(20000004, t).value(), 1e-9) << t;
    EXPECT_NEAR(TDistP(20000003, t).value(), TDistP(20000005, t).value(), 1e-9) << t;
  }
  EXPECT_NEAR(TDistP(20000003.75, 2).value(), TDistP(20000005.75, 2).value(), 1e-9);
}

TEST(TDistP, SideBySideGivesTheSameDigits) {
  // More than there are lanes, of lengths that make them end one by one; the shortest have no steps to take.
  std::vector<StudentT> values;
  for (const double df :
       {1.0, 2.0, 3.0, 4.0, 5.0, 30.0, 31.0, 99.5, 513.0, 514.0, 515.0, 1030.0, 4001.0, 70000.0, 2e7}) {
    for (const double t : {0.0, 0.02, -1.3, 2.5, 40.0, -1e200}) values.push_back({.df = df, .t = t});
  }
  values.push_back({.df = 0, .t = 1});
  values.push_back({.df = 7, .t = kFailed});
  values.push_back({.df = 1e12, .t = 2});
  const std::vector<Checked> ps = TDistPs(values);
  ASSERT_EQ(ps.size(), values.size());
  for (std::size_t i = 0; i < values.size(); ++i) {
    const Checked alone = TDistP(values[i].df, values[i].t);
    ASSERT_EQ(ps[i].failed(), alone.failed()) << i;
    EXPECT_TRUE(alone.failed() || ps[i].value() == alone.value()) << i;
  }
  EXPECT_TRUE(TDistPs({}).empty());
}

// F

TEST(FDistP, OfZeroIsOne) {
  EXPECT_EQ(FDistP(1, 1, 0).value(), 1);
  EXPECT_EQ(FDistP(3, 20, 0).value(), 1);
}

TEST(FDistP, MeetsTheTrueValues) {  // the fraction stops at 3E-08 and log gamma holds 10 digits: 1E-07 of p
  struct Case {
    double d1, d2, f, p;
  };
  const Case cases[] = {{1, 1, 1, 0.5},
                        {1, 10, 4.96, 0.05008765056646819},
                        {2, 10, 4.1, 0.050077548481083857},
                        {3, 20, 3.1, 0.04992453304567878},
                        {5, 5, 5.05, 0.050006256524899827},
                        {10, 4, 0.5, 0.82947307415122281},
                        {4, 100, 2.46, 0.050198913005842359},
                        {30, 30, 1.84, 0.050129844595604871},
                        {1, 1000, 3.84, 0.050320988122173584},
                        {60, 120, 1, 0.49007166435474816},
                        {2, 3, 0.001, 0.99900083268567094},
                        {1, 5, 1000, 5.9382972530375839e-7},
                        {500, 500, 1.1, 0.14346824631816403},
                        {2.5, 7.5, 2, 0.19957276707454742}};
  for (const Case& c : cases) ExpectTrueValue(FDistP(c.d1, c.d2, c.f), c.p, 1e-7 * c.p);
}

TEST(FDistP, KeepsToItsSteps) {
  ExpectSteps(FDistP(1, 1, 1), 0.5000000005315495);
  ExpectSteps(FDistP(1, 10, 4.96), 0.050087650511696356);
  ExpectSteps(FDistP(3, 20, 3.1), 0.04992453307654468);
  ExpectSteps(FDistP(10, 4, 0.5), 0.8294730741512195);
  ExpectSteps(FDistP(30, 30, 1.84), 0.050129844600489096);
  EXPECT_NEAR(FDistP(1, 1000, 3.84).value(), 0.05032098701117426, 1e-11);  // log gammas of about 2600 cancel
  EXPECT_NEAR(FDistP(500, 500, 1.1).value(), 0.14346824526482574, 1e-11);
}

TEST(FDistP, FailsWithoutDegreesOfFreedom) {
  EXPECT_TRUE(FDistP(0, 10, 2).failed());
  EXPECT_TRUE(FDistP(2, 0, 2).failed());
  EXPECT_TRUE(FDistP(0, 0, 2).failed());
  EXPECT_TRUE(FDistP(0, 10, 0).failed());
}

TEST(FDistP, FailsForAnFBelowZero) {
  EXPECT_TRUE(FDistP(2, 10, -1).failed());   // x is above 1
  EXPECT_TRUE(FDistP(2, 10, -5).failed());   // x divides by 0
  EXPECT_TRUE(FDistP(2, 10, -20).failed());  // x is below 0
}

TEST(FDistP, AnOverflowOnTheWayFails) {
  EXPECT_TRUE(FDistP(10, 10, 1e308).failed());  // d1 F is beyond a double, and x would be 0
  EXPECT_TRUE(FDistP(kFailed, 10, 1).failed());
  EXPECT_TRUE(FDistP(1, kFailed, 1).failed());
  EXPECT_TRUE(FDistP(1, 10, kFailed).failed());
}

// Incomplete beta and log gamma

TEST(BetaIncomplete, MeetsTheTrueValues) {                   // 3E-08 of the fraction, 2E-10 of each gamma
  ExpectTrueValue(BetaIncomplete(2, 3, 0.2), 0.1808, 1e-8);  // 6 x^2 - 8 x^3 + 3 x^4
  ExpectTrueValue(BetaIncomplete(2, 3, 0.9), 0.9963, 1e-8);
  ExpectTrueValue(BetaIncomplete(5, 1, 0.5), 0.03125, 1e-8);  // x^5
  ExpectTrueValue(BetaIncomplete(0.5, 0.5, 0.3), 0.36901011956554538, 1e-8);
  ExpectTrueValue(BetaIncomplete(10, 20, 0.25), 0.16630494959787945, 1e-8);
}

TEST(BetaIncomplete, KeepsToItsSteps) {
  ExpectSteps(BetaIncomplete(0.5, 0.5, 0.3), 0.3690101195474177);
  ExpectSteps(BetaIncomplete(10, 20, 0.25), 0.1663049496588757);
}

TEST(BetaIncomplete, TheEndsOfTheRangeHaveNoFrontFactor) {
  EXPECT_EQ(BetaIncomplete(2, 3, 0).value(), 0);
  EXPECT_EQ(BetaIncomplete(2, 3, 1).value(), 1);
}

TEST(BetaIncomplete, FailsOutsideTheRange) {
  EXPECT_TRUE(BetaIncomplete(2, 3, -0.1).failed());
  EXPECT_TRUE(BetaIncomplete(2, 3, 1.1).failed());
  EXPECT_TRUE(BetaIncomplete(-3, 1, 0.5).failed());  // (a + 1) / (a + b + 2) divides by 0
  EXPECT_TRUE(BetaIncomplete(2, 3, kFailed).failed());
  EXPECT_TRUE(BetaIncomplete(kFailed, 3, 0).failed());
  EXPECT_TRUE(BetaIncomplete(2, kFailed, 1).failed());
}

TEST(BetaContinuedFraction, KeepsToItsSteps) {
  EXPECT_EQ(BetaContinuedFraction(1, 1, 0).value(), 1);
  ExpectSteps(BetaContinuedFraction(2, 3, 0.2), 1.471354166666666);
  ExpectSteps(BetaContinuedFraction(0.5, 0.5, 0.3), 1.264877612329033);
  ExpectSteps(BetaContinuedFraction(10, 20, 0.25), 2.7453559083976495);
}

TEST(BetaContinuedFraction, YieldsWhatItHasWhenTheRoundsRunOut) {
  // Large and equal a and b converge in about sqrt(a) rounds, so that 100 are too few.
  EXPECT_NEAR(BetaContinuedFraction(50000, 50000, 0.4999999).value(), 396.3157567997889, 1e-9);
  EXPECT_NEAR(BetaContinuedFraction(1e6, 1e6, 0.4999999).value(), 1982.0401837433026, 1e-8);
}

TEST(BetaContinuedFraction, ADenominatorOfZeroFailsAndASmallOneIsFloored) {
  EXPECT_TRUE(BetaContinuedFraction(-1, 1, 0.5).failed());
  EXPECT_TRUE(BetaContinuedFraction(-2, 3, 0.5).failed());
  EXPECT_TRUE(BetaContinuedFraction(1e200, 1e200, 0.5).failed());  // (qam + m2) (a + m2) overflows, and aa would be 0
  // 1 - (a + b) x / (a + 1) is exactly 0 for a = b = x = 1. By hand: d = 1 / 1E-30 and h = 1E+30; then aa = 0, so that
  // d and cc are 1; then aa = -2 3 / (3 4) = -1/2, so that d = 2, cc = 1/2 and del = 1, which ends the rounds.
  EXPECT_NEAR(BetaContinuedFraction(1, 1, 1).value(), 1e30, 1e17);
}

TEST(LogGamma, MeetsTheTrueValues) {  // the series has a relative error of gamma below 2E-10
  struct Case {
    double x, value;
  };
  const Case cases[] = {{0.001, 6.90717888538385366},
                        {0.5, 0.572364942924700087},
                        {1, 0},
                        {1.5, -0.120782237635245222},
                        {2, 0},
                        {3, 0.693147180559945309},
                        {10, 12.8018274800814696},
                        {100.5, 361.435540467777622}};
  for (const Case& c : cases) ExpectTrueValue(LogGamma(c.x), c.value, 2e-10);
  ExpectTrueValue(LogGamma(1e6), 12815504.5691476117, 1e-8);  // 16 digits of an eight-digit number
}

TEST(LogGamma, KeepsToItsSteps) {
  ExpectSteps(LogGamma(0.5), 0.5723649429247439);
  ExpectSteps(LogGamma(10), 12.801827480081958);
  ExpectSteps(LogGamma(100.5), 361.4355404678821);
}

TEST(LogGamma, FailsAtZeroAndWhereALogarithmDoes) {
  EXPECT_TRUE(LogGamma(0).failed());
  EXPECT_TRUE(LogGamma(-1).failed());    // y is 0 in the series
  EXPECT_TRUE(LogGamma(-5.5).failed());  // ln(0)
  EXPECT_TRUE(LogGamma(-10).failed());
  EXPECT_TRUE(LogGamma(1e306).failed());  // x ln(x) overflows
  EXPECT_TRUE(LogGamma(kFailed).failed());
}

// Chi-square

TEST(ChiSquareP,
     MeetsTheTrueValues) {  // the series stops at a term of 1E-07 of its sum; the terms left out add to that
  struct Case {
    double df, chi, p;
  };
  const Case cases[] = {
      {1, 0.001, 0.97477287936996039},   {1, 3.841, 0.050013683763956699},   {1, 10.83, 0.00099868637918025874},
      {2, 1, 0.60653065971263342},       {2, 5.991, 0.05001161502657909},    {3, 7.815, 0.049993902974883887},
      {5, 11.07, 0.050009618622405482},  {10, 2, 0.99634015317265629},       {10, 18.307, 0.05000058909139812},
      {20, 31.41, 0.050005239202315168}, {50, 67.505, 0.049998364470548182}, {100, 124.342, 0.050000715769971768}};
  for (const Case& c : cases) ExpectTrueValue(ChiSquareP(c.df, c.chi), c.p, 2e-7);
}

TEST(ChiSquareP, KeepsToItsSteps) {
  ExpectSteps(ChiSquareP(1, 3.841), 0.05001369018415036);
  ExpectSteps(ChiSquareP(2, 1), 0.6065306598836001);
  ExpectSteps(ChiSquareP(5, 11.07), 0.05000963034268879);
  ExpectSteps(ChiSquareP(100, 124.342), 0.05000080400203466);
  EXPECT_NEAR(ChiSquareP(1, 40).value(), 5.00574671713494e-08,
              1e-14);  // the stopping rule's own share, not the true 3E-10
}

TEST(ChiSquareP, AVeryLargeChiIsZero) {
  EXPECT_EQ(ChiSquareP(1, 1600).value(), 0);
  EXPECT_EQ(ChiSquareP(10, 1e6).value(), 0);
  EXPECT_EQ(ChiSquareP(1, 1e300).value(), 0);
}

TEST(ChiSquareP, FailsWhereItsSeriesOverflows) {
  EXPECT_TRUE(ChiSquareP(1, 1450).failed());
  EXPECT_TRUE(ChiSquareP(1, 1480).failed());
  EXPECT_FALSE(ChiSquareP(1, 1400).failed());
  EXPECT_EQ(ChiSquareP(1, 1500).value(), 0);
}

TEST(ChiSquareP, OfATinyTruePTheErrorOfTheSeriesIsLeft) {  // true values from 1E-10 to 1E-306
  for (const double chi : {40.0, 80.0, 200.0, 700.0, 1400.0}) EXPECT_NEAR(ChiSquareP(1, chi).value(), 0, 1e-6) << chi;
}

TEST(ChiSquareP, FailsForAChiOfZeroOrLess) {
  EXPECT_TRUE(ChiSquareP(1, 0).failed());
  EXPECT_TRUE(ChiSquareP(1, -3).failed());
  EXPECT_TRUE(ChiSquareP(0, 0).failed());
  EXPECT_TRUE(ChiSquareP(kFailed, 3).failed());
  EXPECT_TRUE(ChiSquareP(1, kFailed).failed());
}

TEST(ChiSquareP, WithoutDegreesOfFreedomIsZero) {
  // exp(-x) times the series of exp(x): all that is left is what the stopping rule leaves out.
  ExpectTrueValue(ChiSquareP(0, 3), 0, 1e-7);
}

// Normal

TEST(NormalCdf, OfExactlyZeroIsOne) {
  EXPECT_EQ(NormalCdf(0).value(), 1);
  EXPECT_EQ(NormalCdf(-0.0).value(), 1);
  ExpectTrueValue(NormalCdf(1e-10), 0.5, 1e-10);
  ExpectTrueValue(NormalCdf(5e-324), 0.5, 1e-10);
}

TEST(NormalCdf, TheFirstFormReachesTo1Point28) {  // the two forms differ by 1E-12 there
  EXPECT_NEAR(NormalCdf(1.28).value(), 0.8997274320481533, 1e-15);
  EXPECT_NEAR(NormalCdf(std::nextafter(1.28, 2)).value(), 0.8997274320495294, 1e-15);
  EXPECT_NEAR(NormalCdf(-1.28).value(), 0.10027256795184669, 1e-15);
  EXPECT_NEAR(NormalCdf(1.2800001).value(), 0.8997274496342712, 1e-15);
}

TEST(NormalCdf, TheSecondFormReachesTo12Point7) {
  EXPECT_NEAR(NormalCdf(-12.7).value(), 2.9564853647363456e-37, 1e-49);
  EXPECT_EQ(NormalCdf(12.7).value(), 1);  // 1 less a tail of 3E-37
  EXPECT_EQ(NormalCdf(12.71).value(), 1);
  EXPECT_EQ(NormalCdf(-12.71).value(), 0);
  EXPECT_EQ(NormalCdf(-1e150).value(), 0);
}

TEST(NormalCdf, MeetsTheTrueValues) {  // nine digits of the tail
  struct Case {
    double z, area;
  };
  const Case cases[] = {{-8, 6.2209605742717841e-16},  {-5, 2.8665157187919391e-7},    {-3, 0.0013498980316300945},
                        {-1.96, 0.024997895148220436}, {-1.645, 0.049984905539121363}, {-1, 0.15865525393145705},
                        {-0.5, 0.3085375387259869},    {-0.01, 0.4960106436853684},    {0.01, 0.5039893563146316},
                        {0.5, 0.6914624612740131},     {1, 0.84134474606854295},       {1.645, 0.95001509446087864},
                        {1.96, 0.97500210485177956},   {2.5758, 0.99499957626222132},  {4, 0.99996832875816688}};
  for (const Case& c : cases) ExpectTrueValue(NormalCdf(c.z), c.area, 1e-9 * c.area);
}

TEST(NormalCdf, KeepsToItsSteps) {
  ExpectSteps(NormalCdf(-1.96), 0.024997895149175307);
  ExpectSteps(NormalCdf(-1), 0.15865525392828372);
  ExpectSteps(NormalCdf(0.5), 0.6914624612735877);
  ExpectSteps(NormalCdf(2.5758), 0.9949995762624247);
  EXPECT_NEAR(NormalCdf(-8).value(), 6.220960574470825e-16, 1e-28);
}

TEST(NormalCdf, FailsWhereTheSquareOfZOverflows) {
  EXPECT_TRUE(NormalCdf(2e154).failed());
  EXPECT_TRUE(NormalCdf(-2e154).failed());
  EXPECT_EQ(NormalCdf(1e154).value(), 1);
  EXPECT_TRUE(NormalCdf(kFailed).failed());
}

// Critical t

TEST(TCritical95, ReadsTheTableAndLowersN) {
  struct Case {
    double n, t;
  };
  const Case cases[] = {{1, 1.960},  {2, 12.706}, {3, 4.303},   {4, 3.182},   {5, 2.776},   {6, 2.571},  {7, 2.447},
                        {8, 2.365},  {9, 2.306},  {10, 2.262},  {11, 2.228},  {12, 2.201},  {13, 2.179}, {14, 2.160},
                        {15, 2.145}, {16, 2.131}, {17, 2.120},  {18, 2.110},  {19, 2.101},  {20, 2.093}, {21, 2.086},
                        {22, 2.080}, {23, 2.074}, {24, 2.069},  {25, 2.064},  {26, 2.060},  {27, 2.056}, {28, 2.052},
                        {29, 2.048}, {30, 2.045}, {31, 2.042},  {40, 2.042},  {41, 2.021},  {60, 2.021}, {61, 2.000},
                        {90, 2.000}, {91, 1.980}, {121, 1.980}, {122, 1.960}, {1e9, 1.960}, {0, 1.960},  {-5, 1.960}};
  for (const Case& c : cases) {
    Number n = c.n;
    EXPECT_EQ(TCritical95(n), c.t) << c.n;
    EXPECT_EQ(n.value(), c.n - 1);
  }
}

TEST(TCritical95, AFractionHasNoExactRow) {
  struct Case {
    double n, t;
  };
  const Case cases[] = {{1.5, 1.960}, {10.5, 1.960}, {29.5, 1.960}, {30.5, 2.042}, {60.5, 2.021}, {121.5, 1.980}};
  for (const Case& c : cases) {
    Number n = c.n;
    EXPECT_EQ(TCritical95(n), c.t) << c.n;
  }
}

}  // namespace
}  // namespace tessara
