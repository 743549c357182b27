#include "numerics/decimal_digits.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace tessara {
namespace {

// The digits as 1.25e+2 is written: sign, digits without a point, "e", exponent.
std::string Shown(const DecimalDigits& number) {
  return (number.negative ? "-" : "") + std::string(number.digits.data(), static_cast<std::size_t>(number.count)) +
         "e" + std::to_string(number.exponent);
}

struct DigitCase {
  double value;
  std::string shown;
};

TEST(ShortestDigits, WithoutZerosAtTheEnds) {
  const std::vector<DigitCase> cases = {{1, "1e0"},
                                        {-120, "-12e2"},
                                        {0.0025, "25e-3"},
                                        {0.00025, "25e-4"},
                                        {0.000025, "25e-5"},
                                        {70.5, "705e1"},
                                        {1e22, "1e22"},
                                        {123456789012.3456, "1234567890123456e11"},
                                        {0.1 + 0.2, "30000000000000004e-1"},
                                        {5e-324, "5e-324"},
                                        {std::numeric_limits<double>::max(), "17976931348623157e308"}};
  for (const auto& [value, shown] : cases) EXPECT_EQ(Shown(ShortestDigits(value)), shown);
}

TEST(ShortestDigits, ZeroHasNone) {
  EXPECT_EQ(ShortestDigits(0.0).count, 0);
  EXPECT_EQ(ShortestDigits(-0.0).count, 0);
  EXPECT_FALSE(ShortestDigits(-0.0).negative);
}

// The first is 0.498259791907483483..., the second 0.373464686958969505..., though both end in 5 when written shortest.
TEST(SignificantDigits, AHalfOfTheShortestDigitsIsDecidedByTheExactValue) {
  EXPECT_EQ(Shown(SignificantDigits(0.4982597919074835, 15)), "498259791907483e-1");
  EXPECT_EQ(Shown(SignificantDigits(0.3734646869589695, 15)), "37346468695897e-1");
}

TEST(SignificantDigits, AnExactHalfGoesAwayFromZero) {
  EXPECT_EQ(Shown(SignificantDigits(2.5, 1)), "3e0");
  EXPECT_EQ(Shown(SignificantDigits(-4194304.5, 7)), "-4194305e6");
  EXPECT_EQ(Shown(SignificantDigits(1234567890123.125, 15)), "123456789012313e12");
}

TEST(SignificantDigits, CarriesThroughNines) {
  EXPECT_EQ(Shown(SignificantDigits(9.996, 3)), "1e1");
  EXPECT_EQ(Shown(SignificantDigits(1.996, 3)), "2e0");
  EXPECT_EQ(Shown(SignificantDigits(0.99999, 2)), "1e0");
}

// The smallest double is 4.940656458412465...e-324.
TEST(SignificantDigits, SubnormalNumbersHaveMoreThanTheirShortestDigits) {
  EXPECT_EQ(Shown(SignificantDigits(5e-324, 15)), "494065645841247e-324");
  EXPECT_EQ(Shown(SignificantDigits(-5e-324, 3)), "-494e-324");
  EXPECT_EQ(SignificantDigits(0.0, 15).count, 0);
}

TEST(DecimalDigits, RoundingToNoDigits) {
  DecimalDigits half = ShortestDigits(0.5);
  half.RoundTo(0);
  EXPECT_EQ(Shown(half), "1e0");
  DecimalDigits less = ShortestDigits(0.49);
  less.RoundTo(0);
  EXPECT_EQ(less.count, 0);
  DecimalDigits tiny = ShortestDigits(0.09);
  tiny.RoundTo(-1);
  EXPECT_EQ(tiny.count, 0);
}

TEST(DecimalDigits, ADigitForEachPowerOfTen) {
  const DecimalDigits number = ShortestDigits(120.5);
  const std::string expected = "0120500";
  for (int power = 3; power >= -3; --power) {
    EXPECT_EQ(number.DigitAt(power), expected[static_cast<std::size_t>(3 - power)]) << power;
  }
}

}  // namespace
}  // namespace tessara
