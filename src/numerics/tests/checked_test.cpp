#include "numerics/checked.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace tessara {
namespace {

constexpr double kLargest = std::numeric_limits<double>::max();
constexpr double kSmallest = std::numeric_limits<double>::denorm_min();

const Checked kZero = 0;

TEST(Checked, HoldsAFiniteValue) {
  EXPECT_FALSE(Checked(2.5).failed());
  EXPECT_EQ(Checked(2.5).value(), 2.5);
  EXPECT_EQ(Checked(2.5).value_or(7), 2.5);
  EXPECT_EQ(Checked(kLargest).value(), kLargest);
}

TEST(Checked, IsFailedWithoutAFiniteValue) {
  EXPECT_TRUE(Checked::Failed().failed());
  EXPECT_TRUE(Checked(std::numeric_limits<double>::infinity()).failed());
  EXPECT_TRUE(Checked(-std::numeric_limits<double>::infinity()).failed());
  EXPECT_TRUE(Checked(std::numeric_limits<double>::quiet_NaN()).failed());
  EXPECT_EQ(Checked::Failed().value_or(7), 7);
}

TEST(Checked, CalculatesLikeDoubles) {
  const Checked a = 7;
  EXPECT_EQ((a + 2).value(), 9);
  EXPECT_EQ((a - 2).value(), 5);
  EXPECT_EQ((a * 2).value(), 14);
  EXPECT_EQ((a / 2).value(), 3.5);
  EXPECT_EQ((-a).value(), -7);
  EXPECT_EQ((1 - a).value(), -6);
  EXPECT_EQ(Abs(-a).value(), 7);
  EXPECT_EQ(Floor(Checked(-2.5)).value(), -3);
  EXPECT_EQ(Sqrt(Checked(2.25)).value(), 1.5);
  EXPECT_EQ(Exp(kZero).value(), 1);
  EXPECT_EQ(Log(Checked(1)).value(), 0);
  EXPECT_EQ(Power(Checked(2), Checked(10)).value(), 1024);
  EXPECT_EQ(Power(Checked(-2), Checked(3)).value(), -8);
  EXPECT_EQ(Power(kZero, kZero).value(), 1);
}

TEST(Checked, DivisionByZeroFails) {
  EXPECT_TRUE((Checked(1) / kZero).failed());
  EXPECT_TRUE((Checked(-1) / kZero).failed());
  EXPECT_TRUE((kZero / kZero).failed());
  EXPECT_TRUE(Power(kZero, Checked(-1)).failed());
}

TEST(Checked, OverflowFails) {
  EXPECT_TRUE((Checked(kLargest) + kLargest).failed());
  EXPECT_TRUE((Checked(-kLargest) - kLargest).failed());
  EXPECT_TRUE((Checked(1e200) * 1e200).failed());
  EXPECT_TRUE((Checked(1e200) / 1e-200).failed());
  EXPECT_TRUE(Exp(Checked(710)).failed());
  EXPECT_TRUE(Power(Checked(10), Checked(309)).failed());
  EXPECT_FALSE(Exp(Checked(709)).failed());
}

TEST(Checked, UnderflowIsZeroAndDoesNotFail) {
  EXPECT_EQ((Checked(kSmallest) / 2).value(), 0);
  EXPECT_EQ((Checked(1e-200) * 1e-200).value(), 0);
  EXPECT_EQ(Exp(Checked(-800)).value(), 0);
  EXPECT_EQ(Power(Checked(10), Checked(-400)).value(), 0);
}

TEST(Checked, LogarithmOfZeroOrLessFails) {
  EXPECT_TRUE(Log(kZero).failed());
  EXPECT_TRUE(Log(Checked(-0.0)).failed());
  EXPECT_TRUE(Log(Checked(-1)).failed());
  EXPECT_FALSE(Log(Checked(kSmallest)).failed());
}

TEST(Checked, SquareRootBelowZeroFails) {
  EXPECT_TRUE(Sqrt(Checked(-1e-300)).failed());
  EXPECT_EQ(Sqrt(kZero).value(), 0);
}

TEST(Checked, NegativeBaseWithFractionalExponentFails) {
  EXPECT_TRUE(Power(Checked(-8), Checked(0.5)).failed());
  EXPECT_TRUE(Power(Checked(-8), Checked(1.0 / 3)).failed());
}

TEST(Checked, FailureSticks) {
  const Checked failed = Checked::Failed();
  EXPECT_TRUE((1 / (1 / kZero)).failed());  // would be 0 among doubles
  EXPECT_TRUE(Exp(Log(kZero)).failed());    // as would this
  EXPECT_TRUE((failed + 1).failed());
  EXPECT_TRUE((1 - failed).failed());
  EXPECT_TRUE((failed * 0).failed());
  EXPECT_TRUE((kZero / failed).failed());
  EXPECT_TRUE((-failed).failed());
  EXPECT_TRUE(Abs(failed).failed());
  EXPECT_TRUE(Floor(failed).failed());
  EXPECT_TRUE(Sqrt(failed).failed());
  EXPECT_TRUE(Exp(failed).failed());
  EXPECT_TRUE(Log(failed).failed());
  EXPECT_TRUE(Power(failed, 0).failed());  // pow gives 1 whatever the base
  EXPECT_TRUE(Power(1, failed).failed());  // and here whatever the exponent
}

TEST(Number, StartsAtZero) { EXPECT_EQ(Number().value(), 0); }

TEST(Number, TakesWhatIsAssigned) {
  Number n = 2.5;
  EXPECT_EQ(n.value(), 2.5);
  n = 3;
  EXPECT_EQ(n.value(), 3);
  n = Checked(4);
  EXPECT_EQ(n.value(), 4);
  const Number other = 5;
  n = other;
  EXPECT_EQ(n.value(), 5);
}

TEST(Number, KeepsItsValueWhenTheAssignmentFails) {
  Number n = 2.5;
  n = Checked(1) / kZero;
  EXPECT_EQ(n.value(), 2.5);
  n = std::numeric_limits<double>::infinity();
  EXPECT_EQ(n.value(), 2.5);
  n = Sqrt(Checked(-1));
  EXPECT_EQ(n.value(), 2.5);
}

TEST(Number, StartsAtZeroWhenItsFirstValueFails) {
  EXPECT_EQ(Number(Checked::Failed()).value(), 0);
  EXPECT_EQ(Number(std::numeric_limits<double>::quiet_NaN()).value(), 0);
}

TEST(Number, StandsInFormulas) {
  const Number sum = 10;
  const Number n = 4;
  const Number none;
  const Number mean = sum / n;
  EXPECT_EQ(mean.value(), 2.5);
  EXPECT_TRUE((sum / none).failed());
  EXPECT_EQ((Sqrt(n) + 1).value(), 3);
}

TEST(Number, CompoundAssignmentIsOneStatement) {
  Number n = 10;
  n += 5;
  EXPECT_EQ(n.value(), 15);
  n -= 1;
  EXPECT_EQ(n.value(), 14);
  n *= 2;
  EXPECT_EQ(n.value(), 28);
  n /= 7;
  EXPECT_EQ(n.value(), 4);
  n /= 0;
  EXPECT_EQ(n.value(), 4);
  n += Checked::Failed();
  EXPECT_EQ(n.value(), 4);
}

bool Enters(Condition condition) { return static_cast<bool>(condition); }

TEST(Condition, ComparesValues) {
  const Checked two = 2;
  EXPECT_TRUE(Enters(two < 3));
  EXPECT_FALSE(Enters(two < 2));
  EXPECT_TRUE(Enters(two > 1));
  EXPECT_FALSE(Enters(two > 2));
  EXPECT_TRUE(Enters(two <= 2));
  EXPECT_FALSE(Enters(two <= 1));
  EXPECT_TRUE(Enters(two >= 2));
  EXPECT_FALSE(Enters(two >= 3));
  EXPECT_TRUE(Enters(two == 2));
  EXPECT_FALSE(Enters(two == 3));
  EXPECT_TRUE(Enters(two != 3));
  EXPECT_FALSE(Enters(two != 2));
  EXPECT_TRUE(Enters(Number(2) == two));
}

TEST(Condition, EntersItsBranchWhenItHasFailed) {
  const Checked failed = Checked::Failed();
  const Condition all[] = {failed<1, failed> 1, failed <= 1,      failed >= 1,        failed == 1, failed != 1,
                           1 < failed,          1 > failed,       1 <= failed,        1 >= failed, 1 == failed,
                           1 != failed,         failed == failed, Condition::Failed()};
  for (const Condition& condition : all) {
    EXPECT_TRUE(condition.failed());
    EXPECT_TRUE(Enters(condition));
  }
}

TEST(Condition, NotKeepsAFailure) {
  EXPECT_FALSE(Enters(!Condition(true)));
  EXPECT_TRUE(Enters(!Condition(false)));
  EXPECT_TRUE((!Condition::Failed()).failed());
  EXPECT_TRUE(Enters(!Condition::Failed()));
}

TEST(Condition, AndFailsWithEitherPart) {
  EXPECT_TRUE(Enters(Condition(true) && Condition(true)));
  EXPECT_FALSE(Enters(Condition(true) && Condition(false)));
  EXPECT_FALSE(Enters(Condition(false) && Condition(true)));
  EXPECT_TRUE((Condition(false) && Condition::Failed()).failed());  // no part is passed over
  EXPECT_TRUE((Condition::Failed() && Condition(false)).failed());
  EXPECT_TRUE((false && Condition::Failed()).failed());
  EXPECT_TRUE((Condition::Failed() && false).failed());
  EXPECT_TRUE(Enters(true && Condition(true)));
}

TEST(Condition, OrFailsWithEitherPart) {
  EXPECT_TRUE(Enters(Condition(true) || Condition(false)));
  EXPECT_TRUE(Enters(Condition(false) || Condition(true)));
  EXPECT_FALSE(Enters(Condition(false) || Condition(false)));
  EXPECT_TRUE((Condition(true) || Condition::Failed()).failed());
  EXPECT_TRUE((Condition::Failed() || Condition(true)).failed());
  EXPECT_TRUE((true || Condition::Failed()).failed());
  EXPECT_TRUE((Condition::Failed() || true).failed());
  EXPECT_FALSE(Enters(false || Condition(false)));
}

TEST(Keep, AnEmptyOptionalLeavesTheTarget) {
  std::string text = "before";
  Keep(text, std::optional<std::string>());
  EXPECT_EQ(text, "before");
  Keep(text, std::optional<std::string>("after"));
  EXPECT_EQ(text, "after");
  int number = 3;
  Keep(number, std::optional<int>());
  EXPECT_EQ(number, 3);
  Keep(number, std::optional<short>(short{-4}));
  EXPECT_EQ(number, -4);
}

}  // namespace
}  // namespace tessara
