#include "numerics/probability.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <optional>
#include <span>
#include <vector>

#include "numerics/number_text.h"

namespace tessara {
namespace {

// Beyond this many steps (df of 2E+07) the t series gives way to its limit. By then the two differ by less than the
// rounding that the series gathers on its way, 1E-09.
constexpr double kMostSeriesSteps = 1e7;

// The t series as it enters its loop: what has been added up, the term added last, and the numbers that the next term
// takes two further. Afterwards `sum` is the sum of all.
struct StudentSeries {
  double sum = 0;
  double term = 0;
  double cosine = 0;
  double i = 0;
  double j = 1;
  int steps = 0;
  double parity = 0;  // 0 to 2, also of a fractional df
};

void TakeStep(double& sum, double& term, double cosine, double& i, double& j) {
  i += 2;
  j += 2;
  term = term * cosine * cosine * i / j;
  sum += term;
}

// The terms are left as soon as they cannot change the sum any more. They have one sign, and none exceeds the one ahead
// of it: i stays below j, the cosine is at most 1, and j stays far below 2^53, where rounding could lift a term again.
// So once a term leaves the sum as it is, each of those behind it does.
void AddUp(StudentSeries& series) {
  for (int k = 1; k <= series.steps; ++k) {
    const double sum_ahead = series.sum;
    TakeStep(series.sum, series.term, series.cosine, series.i, series.j);
    if (series.sum == sum_ahead) break;
  }
}

// Several series side by side, a lane each. A step waits for the division of the one ahead of it in its own series;
// meanwhile the processor takes the steps of the others. The sum of a series is the same to the last digit.
class SeriesLanes {
 public:
  // Adds up all of them, one taking the lane of another that has ended.
  static void AddUp(std::span<StudentSeries> all);

 private:
  static constexpr std::size_t kLanes = 8;
  static constexpr int kStepsInOneGo = 256;

  void Enter(std::size_t lane, StudentSeries& series);
  void Leave(std::size_t lane);
  int CommonSteps() const;  // that every lane in use still has; 0 when none is in use
  void Take(int steps);

  std::array<double, kLanes> sum_{};
  std::array<double, kLanes> term_{};  // of an idle lane 0, which stays so
  std::array<double, kLanes> cosine_{};
  std::array<double, kLanes> i_{};
  std::array<double, kLanes> j_{1, 1, 1, 1, 1, 1, 1, 1};
  std::array<int, kLanes> steps_left_{};
  std::array<StudentSeries*, kLanes> series_{};  // null of an idle lane
};

void SeriesLanes::Enter(std::size_t lane, StudentSeries& series) {
  series_[lane] = &series;
  sum_[lane] = series.sum;
  term_[lane] = series.term;
  cosine_[lane] = series.cosine;
  i_[lane] = series.i;
  j_[lane] = series.j;
  steps_left_[lane] = series.steps;
}

void SeriesLanes::Leave(std::size_t lane) {
  series_[lane]->sum = sum_[lane];
  series_[lane] = nullptr;
  term_[lane] = 0;
}

int SeriesLanes::CommonSteps() const {
  int common = 0;
  for (std::size_t lane = 0; lane < kLanes; ++lane) {
    if (series_[lane] == nullptr) continue;
    common = common == 0 ? std::min(steps_left_[lane], kStepsInOneGo) : std::min(steps_left_[lane], common);
  }
  return common;
}

void SeriesLanes::Take(int steps) {
  for (int k = 1; k <= steps; ++k) {
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
      TakeStep(sum_[lane], term_[lane], cosine_[lane], i_[lane], j_[lane]);
    }
  }
}

void SeriesLanes::AddUp(std::span<StudentSeries> all) {
  SeriesLanes lanes;
  auto next = all.begin();
  while (true) {
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
      while (next != all.end() && next->steps < 1) ++next;
      if (lanes.series_[lane] == nullptr && next != all.end()) lanes.Enter(lane, *next++);
    }
    const int steps = lanes.CommonSteps();
    if (steps == 0) return;
    lanes.Take(steps);
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
      if (lanes.series_[lane] == nullptr) continue;
      lanes.steps_left_[lane] -= steps;
      const bool settled = lanes.sum_[lane] + lanes.term_[lane] == lanes.sum_[lane];
      if (settled || lanes.steps_left_[lane] == 0) lanes.Leave(lane);
    }
  }
}

// The central area between -t and t for a number of degrees of freedom in the millions, where tan(theta) is t /
// sqrt(df): the normal area at t (1 - 1/(4 df)) / sqrt(1 + t^2 / (2 df)) (Abramowitz and Stegun 26.7.8), whose error of
// less than 1/df^2 is below the rounding of a double here.
double CentralAreaOfMillions(double df, double sine, double cosine) {
  const double z = std::sqrt(df) * sine / std::sqrt(cosine * cosine + sine * sine / 2) * (1 - 1 / (4 * df));
  return std::erf(z / std::sqrt(2.0));
}

// The series of t, or nothing where it fails. A series beyond the longest comes with its sum and no steps.
std::optional<StudentSeries> StartSeries(Checked df, Checked t) {
  const double ratio = t.value() / std::sqrt(df.value());
  if (!std::isfinite(ratio)) return std::nullopt;  // its arc tangent would be finite
  const double theta = std::atan(ratio);
  const double s = std::sin(theta);
  const double c = std::cos(theta);
  StudentSeries series = {.cosine = c};
  series.parity = RoundHalfEven(df.value() - 2 * std::floor(df.value() / 2));
  const bool odd = series.parity != 0;
  if (odd) {
    series.term = s * c;
    series.sum = df.value() == 1 ? theta : theta + series.term;
  } else {
    series.term = s;
    series.sum = s;
    series.i = -1;
    series.j = 0;
  }
  const double steps = std::floor((df.value() - (odd ? 3 : 2)) / 2);
  if (steps <= kMostSeriesSteps) {
    series.steps = static_cast<int>(steps);
  } else {
    // n steps of the odd path belong to 2n + 3 degrees of freedom, and add up to pi / 2 times the central area.
    series.sum = odd ? CentralAreaOfMillions(2 * steps + 3, s, c) * (std::numbers::pi / 2)
                     : CentralAreaOfMillions(2 * steps + 2, s, c);
  }
  return series;
}

// The two-tailed p from a series that has been added up.
Checked PFrom(const StudentSeries& series, Checked t) {
  const double sum = series.parity != 0 ? series.sum * (1 - series.parity * 0.36338023) : series.sum;
  return {t.value() < 0 ? 2 * (0.5 * (sum + 1)) : 2 * (1 - 0.5 * (sum + 1))};
}

// 1e-30 in place of a value that is smaller in size, whatever its sign. A failed value stays failed.
Checked Floored(Checked value) {
  constexpr double kFloor = 1e-30;
  return std::fabs(value.value()) < kFloor ? Checked(kFloor) : value;
}

}  // namespace

Checked TDistP(Checked df, Checked t) {
  auto series = StartSeries(df, t);
  if (!series) return Checked::Failed();
  AddUp(*series);
  return PFrom(*series, t);
}

std::vector<Checked> TDistPs(std::span<const StudentT> values) {
  std::vector<StudentSeries> started(values.size());
  std::vector<bool> failed(values.size());
  for (std::size_t i = 0; i < values.size(); ++i) {
    const auto series = StartSeries(values[i].df, values[i].t);
    failed[i] = !series;
    if (series) started[i] = *series;
  }
  SeriesLanes::AddUp(started);
  std::vector<Checked> ps;
  ps.reserve(values.size());
  for (std::size_t i = 0; i < values.size(); ++i) {
    ps.push_back(failed[i] ? Checked::Failed() : PFrom(started[i], values[i].t));
  }
  return ps;
}

Checked FDistP(Checked d1, Checked d2, Checked f) {
  const Checked x = d2 / (d2 + d1 * f);
  return BetaIncomplete(d2 / 2, d1 / 2, x);
}

Checked BetaIncomplete(Checked a, Checked b, Checked x) {
  const Checked turn = (a + 1) / (a + b + 2);
  if (x.failed() || turn.failed()) return Checked::Failed();

  Checked front = 0;
  if (x.value() != 0 && x.value() != 1) {
    front = Exp(LogGamma(a + b) - LogGamma(a) - LogGamma(b) + a * Log(x) + b * Log(1 - x));
  }
  if (x.value() < turn.value()) return front * BetaContinuedFraction(a, b, x) / a;
  return 1 - front * BetaContinuedFraction(b, a, 1 - x) / b;
}

Checked BetaContinuedFraction(Checked a, Checked b, Checked x) {
  constexpr int kMostRounds = 100;
  constexpr double kTolerance = 3e-08;

  const Checked qab = a + b;
  const Checked qap = a + 1;
  const Checked qam = a - 1;
  Checked cc = 1;
  Checked d = 1 / Floored(1 - qab * x / qap);
  Checked h = d;
  for (int round = 1; round <= kMostRounds; ++round) {
    const double m = round;
    const double m2 = 2 * m;
    Checked aa = m * (b - m) * x / ((qam + m2) * (a + m2));
    d = Floored(1 + aa * d);
    cc = Floored(1 + aa / cc);
    d = 1 / d;
    h = h * d * cc;

    aa = -(a + m) * (qab + m) * x / ((a + m2) * (qap + m2));
    d = Floored(1 + aa * d);
    cc = Floored(1 + aa / cc);
    d = 1 / d;
    const Checked del = d * cc;
    h = h * del;
    if (Abs(del - 1) < kTolerance) break;  // a failed step ends the rounds too, and h has failed with it
  }
  return h;
}

Checked LogGamma(Checked x) {
  constexpr std::array kCoefficients = {76.1800917294715,  -86.5053203294168,   24.0140982408309,
                                        -1.23173957245015, 0.00120865097386618, -5.395239384953e-06};
  Checked y = x;
  Checked tmp = x + 5.5;
  tmp = (x + 0.5) * Log(tmp) - tmp;
  Checked ser = 1.00000000019001;
  for (const double coefficient : kCoefficients) {
    y = y + 1;
    ser = ser + coefficient / y;
  }
  return tmp + Log(2.506628274631 * ser / x);
}

Checked ChiSquareP(Checked df, Checked chi) {
  constexpr double kTolerance = 1e-07;

  const Checked x = 0.5 * chi;
  const Checked a = 0.5 * df;
  const Checked front = Exp(a * Log(x) - LogGamma(a + 1) - x);
  if (front.failed()) return front;
  if (front.value() == 0) return {0};

  double term = 1;
  double sum = 1;
  double ap = a.value();
  double share;
  do {
    ap = ap + 1;
    term = term * x.value() / ap;
    sum = sum + term;
    share = term / sum;
    if (!std::isfinite(sum) || !std::isfinite(share)) return Checked::Failed();
  } while (!(share < kTolerance));
  return 1 - front * sum;
}

Checked NormalCdf(Checked z) {
  const double y = std::fabs(z.value());
  const double h = z.value() * z.value() / 2;
  if (!std::isfinite(h)) return Checked::Failed();

  if (y == 0) return {1};  // reports give a z of exactly 0 a tail of 1
  if (y > 12.7) return {z.value() >= 0 ? 1.0 : 0.0};
  double tail;
  if (y <= 1.28) {
    tail = 0.5 - y * (0.398942280444 - 0.399903438504 * h /
                                           (h + 5.75885480458 -
                                            29.8213557808 / (h + 2.62433121679 + 48.6959930692 / (h + 5.92885724438))));
  } else {
    tail = (0.398942280385 * std::exp(-h)) /
           (y - 3.8052e-08 +
            1.00000615302 / (y + 0.000398064794 +
                             1.98615381364 / (y - 0.151679116635 +
                                              5.29330324926 / (y + 4.8385912808 -
                                                               15.1508972451 / (y + 0.742380924027 +
                                                                                30.789933034 / (y + 3.99019417011))))));
  }
  return {z.value() < 0 ? tail : 1 - tail};
}

double TCritical95(Number& n) {
  constexpr std::array kTable = {12.706, 4.303, 3.182, 2.776, 2.571, 2.447, 2.365, 2.306, 2.262, 2.228,
                                 2.201,  2.179, 2.160, 2.145, 2.131, 2.120, 2.110, 2.101, 2.093, 2.086,
                                 2.080,  2.074, 2.069, 2.064, 2.060, 2.056, 2.052, 2.048, 2.045};
  n = n - 1;
  const double df = n.value();
  if (df >= 1 && df <= 29 && df == std::floor(df)) return kTable[static_cast<std::size_t>(df) - 1];
  if (df > 29 && df < 40) return 2.042;
  if (df > 39 && df < 60) return 2.021;
  if (df > 59 && df < 90) return 2.000;
  if (df > 89 && df < 121) return 1.980;
  return 1.960;  // a fraction among the exact rows too
}

}  // namespace tessara
