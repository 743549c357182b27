#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "data/data_set.h"
#include "data/value_labels.h"
#include "numerics/checked.h"
#include "numerics/tagged_value.h"
#include "procedures/cases/case_control.h"
#include "procedures/cases/procedure_run.h"
#include "procedures/describe/options.h"

// Frequencies: each distinct value of a variable with its count, percent and cumulative percent, and on request an
// index of dispersion for nominal or ordinal data. Works on texts as well as on numbers.

namespace tessara {

// The accepted cases of a variable, counted by value, in the order of the report.
struct FrequencyCases {
  struct Category {
    TaggedValue value;  // as it was sorted: padded on the left to 20 while no text had been met
    std::size_t count = 0;
    bool below_zero = false;
  };
  std::vector<Category> categories;
  std::size_t accepted = 0;
  std::size_t record_count = 0;
  bool negative_seen = false;  // a value below 0, or a text, which cannot be compared with 0
};

struct FrequencyTable {
  struct Row {
    std::size_t count = 0;
    Number percent;
    Number cumulative;
  };
  std::vector<Row> rows;
  std::size_t n = 0;
  std::size_t missing = 0;  // records that were not accepted, those that the control excluded among them
  Number index_of_dispersion;
};

inline constexpr std::string_view kFrequencyTitle = "Frequency Analysis: ";  // of an error report

// The text of a cell, padded on the left to 20 characters, so that texts of numbers sort as numbers do.
std::string PaddedText(const TaggedView& cell);

// Takes role 1's missing values and the counts as they stand in the data set.
FrequencyCases GatherFrequencies(const CaseSource& source, std::size_t column);
FrequencyTable ComputeFrequencies(const FrequencyCases& cases);

// The error report on a variable without an accepted case.
void ReportNoFrequencies(ProcedureRun& run, std::size_t column);

// Runs the procedure for the main variable and appends its report.
void RunFrequencies(ProcedureRun& run, const Roles& roles, const FrequenciesOptions& options);

}  // namespace tessara
