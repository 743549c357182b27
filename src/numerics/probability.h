#pragma once

#include <span>
#include <vector>

#include "numerics/checked.h"

// The probability kit below every report: p-values and one table of critical values. Each routine is one published
// method, kept to the constants, stopping rules and shortcuts given here: the printed figures follow from them, so none
// may be replaced by a more accurate one. All arithmetic is double precision.

namespace tessara {

// Two-tailed p of Student's t, by the finite series of Abramowitz and Stegun 26.7.3 and 26.7.4, with 1 - 2/pi kept to
// eight digits. df may be fractional. Takes about df / 2 steps, up to 10,000,000 of them; the limit of the series
// beyond. Fails for df of 0 or less.
Checked TDistP(Checked df, Checked t);

struct StudentT {
  Checked df;
  Checked t;
};

// TDistP of each, the same to the last digit. Of many values with a high df in a fraction of the time.
std::vector<Checked> TDistPs(std::span<const StudentT> values);

// Upper-tail p of F with d1 and d2 degrees of freedom: the incomplete beta at d2 / (d2 + d1 F) (Abramowitz and Stegun
// 26.6.2). Fails for an F below 0 and where a degree of freedom is 0.
Checked FDistP(Checked d1, Checked d2, Checked f);

// Upper-tail p of chi-square, by the lower series of the incomplete gamma function alone (Abramowitz and
// Stegun 6.5.29), stopping at 1e-07. Nothing is clipped: of a tiny true p the error of the series is left, and it could
// be negative. Fails for chi of 0 or less, and where the series overflows (small df, chi between about 1420 and 1550).
Checked ChiSquareP(Checked df, Checked chi);

// Area below z by Hill's algorithm AS 66 (Applied Statistics 22, 1973), cut at 1.28. The area at exactly 0 is given
// as 1. Fails where the square of z overflows, for |z| beyond 1E+154.
Checked NormalCdf(Checked z);

// Regularised incomplete beta I_x(a, b), by the continued fraction below (Abramowitz and Stegun 26.5.8). x is not
// tested; outside 0 to 1 it fails by its logarithms.
Checked BetaIncomplete(Checked a, Checked b, Checked x);

// Lentz's modified method (Thompson and Barnett 1986): at most 100 rounds, tolerance 3e-08, floor 1e-30. That the
// rounds ran out is not told.
Checked BetaContinuedFraction(Checked a, Checked b, Checked x);

// Natural log of gamma(x), x above 0: Lanczos' series with six terms (SIAM Journal on Numerical Analysis B 1, 1964).
Checked LogGamma(Checked x);

// Two-tailed .05 critical value of t for n - 1 degrees of freedom, from the printed table (1.96 where it has no row, so
// also for n of 1 or less). Replaces n by n - 1.
double TCritical95(Number& n);

// x factorial, multiplied downward from x, the count rounded half to even first; 1 for anything below 2. Fails above
// 170 by overflow, and where the count has no 16 bits.
Checked Factorial(Checked x);

}  // namespace tessara
