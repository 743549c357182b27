#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "procedures/cases/procedure_run.h"
#include "procedures/tables/case_summary.h"

// Explore: descriptive statistics of continuous variables for all cases and for every category of the categorical
// ones. The run gathers the entries of all variables and prints them as one report.

namespace tessara {

struct ExploreEntry {
  std::string variable;  // its name, in the first entry of a variable alone
  std::string category;  // "All", or the label of a category
  CaseSummary summary;
};

using ExploreTable = std::vector<ExploreEntry>;

// Further entries are lost.
inline constexpr std::size_t kMostExploreEntries = 503;
// A variable is begun as long as the table has no more than this.
inline constexpr std::size_t kMostEntriesAhead = 499;
// A variable with more values than this has no categories worth a look.
inline constexpr std::size_t kMostExploreCategories = 10000;

// Whether another variable may begin; else a box says that the limit is exceeded.
bool MayExploreOn(const ExploreTable& table, Platform& platform);

// The entries of one continuous variable: all cases, then the categories of each of the others, in ascending order of
// their stored value. A category of one case has an error report and no entry, and so has a pair without a case.
void ExploreVariable(ProcedureRun& run, std::size_t continuous, const std::vector<std::size_t>& categorical,
                     ExploreTable& table);

// The whole table; `control_label` stands under each title, and is empty without a control variable.
std::string ExploreReport(const ExploreTable& table, std::string_view control_label);

}  // namespace tessara
