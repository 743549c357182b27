#include "numerics/two_by_two.h"

#include <cmath>
#include <cstdint>
#include <optional>

#include "numerics/number_text.h"
#include "numerics/probability.h"

namespace tessara {
namespace {

Checked CellFactorial(Checked count) {
  if (count.value() <= 0) return {1};
  return Factorial(count);
}

// margin! / (one! other!), for a margin and its two cells.
Checked Arrangements(Checked margin, Checked one, Checked other) {
  return Factorial(margin) / CellFactorial(one) / CellFactorial(other);
}

struct Table {
  double a, b, c, d;
};

enum class Cell { kA, kB, kC, kD };

// The cell that Fisher's test counts down to 0. This chain is not the smallest cell: of 1, 5, 7, 3 it takes d.
Cell ChooseCell(const Table& table) {
  if (table.c >= table.d) return Cell::kD;
  if (table.b >= table.c) return Cell::kC;
  if (table.a >= table.b) return Cell::kB;
  return Cell::kA;
}

double CountOf(const Table& table, Cell cell) {
  switch (cell) {
    case Cell::kA:
      return table.a;
    case Cell::kB:
      return table.b;
    case Cell::kC:
      return table.c;
    default:
      return table.d;
  }
}

// The table with the margins of the observed one and another count in one cell. As that cell need not be the smallest,
// the one opposite to it can come out negative.
Table WithCount(const Table& observed, Cell cell, double count) {
  const double r1 = observed.a + observed.b;
  const double r2 = observed.c + observed.d;
  const double c1 = observed.a + observed.c;
  const double c2 = observed.b + observed.d;
  switch (cell) {
    case Cell::kA: {
      const double c = c1 - count;
      return {.a = count, .b = r1 - count, .c = c, .d = r2 - c};
    }
    case Cell::kB: {
      const double a = r1 - count;
      return {.a = a, .b = count, .c = c1 - a, .d = c2 - count};
    }
    case Cell::kC: {
      const double a = c1 - count;
      return {.a = a, .b = r1 - a, .c = count, .d = r2 - count};
    }
    default: {
      const double b = c2 - count;
      return {.a = r1 - b, .b = b, .c = r2 - count, .d = count};
    }
  }
}

RatioInterval IntervalAround(Checked ratio, Checked squared_error) {
  RatioInterval interval;
  if (ratio.failed()) return interval;
  interval.ratio = ratio;

  const Checked log_ratio = Log(ratio);
  if (log_ratio.failed()) return interval;

  const Checked standard_error = Sqrt(squared_error);
  if (standard_error.failed()) return interval;
  interval.standard_error = standard_error;

  const Checked lower = Exp(log_ratio - 1.96 * standard_error);
  if (lower.failed()) return interval;
  interval.lower = lower;

  const Checked upper = Exp(log_ratio + 1.96 * standard_error);
  if (upper.failed()) return interval;
  interval.upper = upper;

  interval.filled = 1;
  return interval;
}

}  // namespace

Checked Factorial(Checked x) {
  const std::optional<std::int16_t> count = ToInt16(x);
  if (!count) return Checked::Failed();
  if (*count < 2) return {1};
  double product = *count;
  for (int factor = *count - 1; factor >= 2 && std::isfinite(product); --factor) product *= factor;
  return {product};
}

// The factorials of the denominator divide between those of the numerator: no product on the way is larger than the
// factorials themselves, or so small that it would lose digits.
Checked HypergeometricTableP(Checked a, Checked b, Checked c, Checked d) {
  const Checked n = a + b + c + d;
  return Factorial(a + b) / Factorial(n) * Factorial(c + d) * Arrangements(a + c, a, c) * Arrangements(b + d, b, d);
}

Checked FisherExactP(Checked a, Checked b, Checked c, Checked d) {
  if (a.failed() || b.failed() || c.failed() || d.failed()) return Checked::Failed();
  const Table observed{.a = a.value(), .b = b.value(), .c = c.value(), .d = d.value()};
  const Cell cell = ChooseCell(observed);
  const double k = CountOf(observed, cell);

  double sum = 0;
  double i = 0;
  while (i <= k) {
    const Table table = WithCount(observed, cell, i++);
    const Checked p = HypergeometricTableP(table.a, table.b, table.c, table.d);
    if (p.failed()) return p;  // so that a count beyond 170 ends at its first table
    sum += p.value();
  }
  if (sum > 0.5) sum = 0.5;
  return {2 * sum};
}

Checked YatesChiSquare(Checked a, Checked b, Checked c, Checked d) {
  const Checked n = a + b + c + d;
  const Checked difference = Abs(a * d - b * c) - n / 2;
  return difference * difference * n / ((a + b) * (a + c) * (b + d) * (c + d));
}

RatioInterval OddsRatioInterval(Checked a, Checked b, Checked c, Checked d) {
  return IntervalAround((a * d) / (b * c), 1 / d + 1 / a + 1 / b + 1 / c);
}

RatioInterval RiskRatioInterval(Checked a, Checked b, Checked c, Checked d) {
  return IntervalAround((a / (a + c)) / (b / (b + d)), 1 / a - 1 / (a + c) + 1 / b - 1 / (b + d));
}

}  // namespace tessara
