#pragma once

#include "numerics/checked.h"

// The measures of a 2x2 table, read a, b in the first row and c, d in the second. As in the probability kit, each
// routine is one published method, kept to its constants and shortcuts.

namespace tessara {

// Probability of this one 2x2 table under fixed margins (Fisher 1934). Each of the nine factorials is taken whole, so
// that a table of more than 170 cases fails. A cell of 0 or below counts as factorial 1.
Checked HypergeometricTableP(Checked a, Checked b, Checked c, Checked d);

// Fisher's exact test, two-tailed by doubling one end of the table, never above 1. Fails for more than 170 cases.
Checked FisherExactP(Checked a, Checked b, Checked c, Checked d);

// Chi-square of a 2x2 table with Yates' correction (Yates 1934); a difference smaller than the correction is not
// clipped at 0. Fails where a margin is 0.
Checked YatesChiSquare(Checked a, Checked b, Checked c, Checked d);

// A ratio with the standard error of its logarithm and its 95 percent interval, exp(ln(ratio) -+ 1.96 se). `filled` is
// 1 once the record has been computed whole.
struct RatioInterval {
  Number ratio;
  Number standard_error;
  Number lower;
  Number upper;
  Number filled;
};

// The odds ratio ad / bc by Woolf's method (Woolf 1955), and the risk ratio taken down the columns, a / (a + c) over
// b / (b + d), by the logarithmic method (Katz and others 1978). Either ends at its first failing step: `filled` stays
// 0 then, and the values ahead of that step stand. A cell of 0 fails the odds ratio, a or b of 0 the risk ratio.
RatioInterval OddsRatioInterval(Checked a, Checked b, Checked c, Checked d);
RatioInterval RiskRatioInterval(Checked a, Checked b, Checked c, Checked d);

}  // namespace tessara
