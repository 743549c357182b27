#pragma once

#include <cmath>
#include <limits>
#include <optional>
#include <utility>

// Arithmetic that may fail, and what a failure leaves behind.
//
// A statement of a procedure that fails (a division by zero, a result beyond the range of a double, the logarithm of 0)
// assigns nothing: its target keeps the value that it had. The three types here carry that rule, so that a formula
// reads like the algorithm and no guard can be forgotten:
//
//   Checked    what an expression yields: a finite double, or failed. Failure sticks: 1 / (1 / 0) has failed.
//   Number     what a statement assigns to: starts at 0, and ignores a failed Checked. Always finite.
//   Condition  what a comparison yields: it enters its branch when it holds, and also when it has failed.

namespace tessara {

class Number;

class Checked {
 public:
  Checked(double value) : value_(std::isfinite(value) ? value : kFailedMark) {}  // NOLINT: implicit by design
  Checked(const Number& number);                                                 // NOLINT: implicit by design

  static Checked Failed() { return Checked(kFailedMark); }

  bool failed() const { return std::isnan(value_); }
  // The value; only of a Checked that has not failed.
  double value() const { return value_; }
  double value_or(double other) const { return failed() ? other : value_; }

 private:
  static constexpr double kFailedMark = std::numeric_limits<double>::quiet_NaN();

  double value_;  // the mark of failure is a NaN, so plain arithmetic passes it on
};

class Number {
 public:
  Number() = default;
  Number(double value) { *this = Checked(value); }  // NOLINT: implicit by design
  Number(Checked value) { *this = value; }          // NOLINT: implicit by design

  // A failed value leaves the number as it was.
  Number& operator=(Checked value) {
    if (!value.failed()) value_ = value.value();
    return *this;
  }
  Number& operator=(double value) { return *this = Checked(value); }

  double value() const { return value_; }

 private:
  double value_ = 0;
};

inline Checked::Checked(const Number& number) : value_(number.value()) {}

inline Checked operator+(Checked a, Checked b) { return {a.value() + b.value()}; }
inline Checked operator-(Checked a, Checked b) { return {a.value() - b.value()}; }
inline Checked operator*(Checked a, Checked b) { return {a.value() * b.value()}; }
inline Checked operator/(Checked a, Checked b) { return {a.value() / b.value()}; }
inline Checked operator-(Checked a) { return {-a.value()}; }

inline Number& operator+=(Number& target, Checked value) { return target = target + value; }
inline Number& operator-=(Number& target, Checked value) { return target = target - value; }
inline Number& operator*=(Number& target, Checked value) { return target = target * value; }
inline Number& operator/=(Number& target, Checked value) { return target = target / value; }

// The elementary functions. They fail where they are not defined (Sqrt below 0, Log of 0 or less, Power of a negative
// base with a fractional exponent) and where the result has no finite double (Exp, Power).
inline Checked Abs(Checked x) { return {std::fabs(x.value())}; }
inline Checked Square(Checked x) { return {x.value() * x.value()}; }
inline Checked Floor(Checked x) { return {std::floor(x.value())}; }
inline Checked Sqrt(Checked x) { return {std::sqrt(x.value())}; }
inline Checked Exp(Checked x) { return {std::exp(x.value())}; }
inline Checked Log(Checked x) {
  return {x.value() > 0 ? std::log(x.value()) : std::numeric_limits<double>::quiet_NaN()};
}
inline Checked Power(Checked base, Checked exponent) {
  if (base.failed() || exponent.failed()) return Checked::Failed();  // pow(1, NaN) would be 1
  return {std::pow(base.value(), exponent.value())};
}

class Condition {
 public:
  Condition(bool holds) : state_(holds ? State::kHolds : State::kFails) {}  // NOLINT: implicit by design
  static Condition Failed() {
    Condition condition(false);
    condition.state_ = State::kCouldNotBeTested;
    return condition;
  }

  // Whether the branch behind the test is entered.
  explicit operator bool() const { return state_ != State::kFails; }
  bool failed() const { return state_ == State::kCouldNotBeTested; }

 private:
  enum class State : unsigned char { kFails, kHolds, kCouldNotBeTested };

  State state_;
};

// A test that is put together from others has failed as soon as one of them has: no part is skipped.
inline Condition operator!(Condition a) { return a.failed() ? a : Condition(!static_cast<bool>(a)); }
inline Condition operator&&(Condition a, Condition b) {
  if (a.failed() || b.failed()) return Condition::Failed();
  return {static_cast<bool>(a) && static_cast<bool>(b)};
}
inline Condition operator||(Condition a, Condition b) {
  if (a.failed() || b.failed()) return Condition::Failed();
  return {static_cast<bool>(a) || static_cast<bool>(b)};
}
inline Condition operator&&(bool a, Condition b) { return Condition(a) && b; }
inline Condition operator&&(Condition a, bool b) { return a && Condition(b); }
inline Condition operator||(bool a, Condition b) { return Condition(a) || b; }
inline Condition operator||(Condition a, bool b) { return a || Condition(b); }

inline Condition CompareChecked(Checked a, Checked b, bool holds) {
  return a.failed() || b.failed() ? Condition::Failed() : Condition(holds);
}
inline Condition operator<(Checked a, Checked b) { return CompareChecked(a, b, a.value() < b.value()); }
inline Condition operator>(Checked a, Checked b) { return CompareChecked(a, b, a.value() > b.value()); }
inline Condition operator<=(Checked a, Checked b) { return CompareChecked(a, b, a.value() <= b.value()); }
inline Condition operator>=(Checked a, Checked b) { return CompareChecked(a, b, a.value() >= b.value()); }
inline Condition operator==(Checked a, Checked b) { return CompareChecked(a, b, a.value() == b.value()); }
inline Condition operator!=(Checked a, Checked b) { return CompareChecked(a, b, a.value() != b.value()); }

// A value that need not be there.
inline std::optional<double> Computed(Checked value) {
  return value.failed() ? std::nullopt : std::optional<double>(value.value());
}

// An assignment to anything but a Number: an empty optional leaves the target alone.
template <typename T, typename U>
void Keep(T& target, std::optional<U> value) {
  if (value) target = *std::move(value);
}

}  // namespace tessara
