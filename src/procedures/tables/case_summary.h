#pragma once

#include <cstddef>
#include <optional>

#include "numerics/checked.h"
#include "procedures/cases/group_stats.h"
#include "procedures/cases/procedure_run.h"
#include "procedures/describe/descriptives.h"

// The figures of a continuous variable in one group of cases, or in all of them, for the tables and for Explore.

namespace tessara {

struct CaseSummary {
  Number n, mean, sum;
  Number deviation;  // of the sample, with n - 1
  Number error;      // the deviation over the root of n - 1, as Descriptives have it
  Number interval;   // half width of the 95 percent interval
};

CaseSummary SummaryOf(const DescriptiveStatistics& statistics);
// Without a deviation from the mean, and of a single case, both the deviation and the error are 0.
CaseSummary SummaryOf(const GroupStats::Group& group);

}  // namespace tessara
