#pragma once

#include <cstdint>
#include <vector>

#include "data/data_set.h"
#include "platform/platform.h"
#include "procedures/cases/case_control.h"

namespace tessara {

// The records that a subset takes, a flag each. As in a run, a missing control value drops the record, and "All
// Missing" keeps those alone. The value of the relation is read as a number and compared with the cell's; where one of
// the two is no number, "equal to" and "not equal to" compare texts and the other relations let the record pass.
std::vector<std::uint8_t> SubsetRecords(const DataSet& data, std::size_t control_column, const ControlChoice& control);

enum class SubsetOutcome {
  kMade,
  kDeclined,  // the user wants the data as they are
  kRefused,   // a relation without its value, or no record passes: the box has been shown
};

// Asks, and replaces the data by the records that pass the control variable. One step to undo; the changed flag stays.
// The caller resets the panel.
SubsetOutcome CreateSubset(DataSet& data, std::size_t control_column, const ControlChoice& control, Platform& platform);

}  // namespace tessara
