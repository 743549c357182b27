#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "numerics/checked.h"
#include "procedures/cases/group_stats.h"
#include "procedures/cases/procedure_run.h"
#include "procedures/compare/options.h"

// One-way analysis of variance: compares the means of a continuous variable over the categories of a second one, and on
// request tells which groups differ.

namespace tessara {

struct AnovaTable {
  Number between_squares;
  Number within_squares;
  Number total_squares;
  Number between_df;
  Number within_df;
  Number total_df;
  Number between_mean;
  Number within_mean;
  Number f;
  std::optional<double> p;         // nothing when it could not be computed
  std::vector<Number> deviations;  // of each group, with n - 1
};

// The comparison of one group with another.
struct PostHocRow {
  std::size_t first = 0;  // places of the groups
  std::size_t second = 0;
  Number difference;
  Number error;
  Number p;
};

inline constexpr std::size_t kMostPostHocGroups = 1000;  // a list of a million rows
constexpr bool HasPostHocList(std::size_t group_count) { return group_count <= kMostPostHocGroups; }

AnovaTable ComputeAnova(const GroupStats& stats);
// Every ordered pair of groups by the t-test of these two alone, p multiplied by the number of unordered pairs (after
// Bonferroni; Dunn, Journal of the American Statistical Association 56, 1961), never above 1. Each pair comes twice,
// once from either side. With G groups these are G (G - 1) rows: keep G to kMostPostHocGroups.
std::vector<PostHocRow> ComputePostHoc(const GroupStats& stats);

// Runs the procedure for the main variable in the groups of the independent one and appends its report. Leaves no
// chart.
void RunAnova(ProcedureRun& run, const Roles& roles, const AnovaOptions& options);

}  // namespace tessara
