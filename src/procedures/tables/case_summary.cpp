#include "procedures/tables/case_summary.h"

#include "numerics/probability.h"

namespace tessara {

CaseSummary SummaryOf(const DescriptiveStatistics& statistics) {
  return {.n = static_cast<double>(statistics.count),
          .mean = statistics.mean,
          .sum = statistics.sum,
          .deviation = statistics.sample_deviation,
          .error = statistics.standard_error,
          .interval = statistics.interval};
}

CaseSummary SummaryOf(const GroupStats::Group& group) {
  CaseSummary summary{.n = group.n, .mean = group.mean, .sum = group.sum, .deviation = {}, .error = {}, .interval = {}};
  if (group.squares != 0 && group.n != 1) {
    summary.deviation = Sqrt(group.squares / (group.n - 1));
    summary.error = summary.deviation / Sqrt(group.n - 1);
  }
  Number critical_n = group.n;  // comes back as the degrees of freedom
  summary.interval = TCritical95(critical_n) * summary.error;
  return summary;
}

}  // namespace tessara
