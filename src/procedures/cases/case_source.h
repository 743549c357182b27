#pragma once

#include "data/data_set.h"
#include "data/used_range.h"
#include "procedures/cases/case_control.h"

// Where a procedure reads its cases: the records of the used range, and the filter that the control puts on them.

namespace tessara {

// Refers to the data set, whose records must not change while it lives; a new column does no harm.
struct CaseSource {
  const DataSet& data;
  UsedRange used;
  CaseControl control;
};

CaseSource ReadableCases(const DataSet& data, std::size_t control_column, const ControlChoice& choice);

}  // namespace tessara
