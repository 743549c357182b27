#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/data_set.h"
#include "numerics/checked.h"
#include "numerics/tagged_value.h"
#include "procedures/cases/case_source.h"
#include "procedures/cases/procedure_run.h"

// The group pass: size, mean and squared deviations of a continuous variable in each category of another variable.

namespace tessara {

// The accepted pairs, in grid order: a number, and the group of its case.
struct GroupedCases {
  std::vector<double> values;
  std::vector<std::uint32_t> groups;   // of each value, as a place in `labels`
  std::vector<std::string> labels;     // of each group, ascending by category value; every group has a case
  std::vector<TaggedView> categories;  // of each group, its stored value; refers to the matrix
};

// A line for each group, ascending by the category's stored value.
struct GroupStats {
  struct Group {
    std::string label;  // the value label of the category, else the value
    Number n;
    Number mean;
    Number squares;  // squared deviations from the group's mean; exactly 0 of values that are all equal
    Number sum = {};
    TaggedView value = {};  // the category's stored value; refers to the matrix
  };
  std::vector<Group> groups;
  bool constant = false;  // all values of all groups are equal

  std::size_t GroupCount() const { return groups.size(); }
};

// A missing value in either variable drops the pair, and so does a continuous cell that is not numeric.
GroupedCases GatherGroups(const CaseSource& source, std::size_t continuous, std::size_t categorical);
// Sums run in grid order within each group. The labels move into the table.
GroupStats ComputeGroupStats(GroupedCases cases);

inline constexpr std::string_view kSummaryComparisonTitle = "Summary Comparison: ";  // of an error report

// Both for the main variable in the groups of the independent one. Without a case the pass reports its own error,
// whatever the procedure that runs it, and yields nothing.
std::optional<GroupStats> RunGroupPass(ProcedureRun& run, const CaseSource& source, const Roles& roles);

}  // namespace tessara
