#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "data/data_set.h"
#include "data/value_labels.h"
#include "numerics/checked.h"
#include "procedures/case_control.h"
#include "procedures/run.h"

// Frequencies: each distinct value of a variable with its count, percent and cumulative percent, and on request an
// index of dispersion for nominal or ordinal data. Works on texts as well as on numbers.

namespace tessara {

// The accepted cases, counted by value. A value's place in the table and its text come from the ordering rules below.
struct FrequencyCases {
  struct Category {
    std::string text;             // as it is sorted: left-padded to 20 while all values ahead of it are numeric
    bool is_number_cell = false;  // a number cell behind the first text, sorted ahead of all texts
    double number = 0;            // of a numeric value
    std::size_t count = 0;
    bool shifted = false;  // the row starts one column further right when a negative value was seen
  };
  std::vector<Category> categories;  // in the order of the report
  std::size_t record_count = 0;      // trimmed
  std::size_t accepted = 0;
  bool negative_seen = false;  // a value below 0, or one that could not be compared with 0
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

FrequencyCases GatherFrequencies(const DataSet& data, const CaseControl& control, std::size_t column);
FrequencyTable ComputeFrequencies(const FrequencyCases& cases);

// Runs the procedure for the variable in role 1 and appends its report.
void RunFrequencies(ProcedureRun& run);

}  // namespace tessara
