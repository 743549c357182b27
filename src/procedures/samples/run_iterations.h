#pragma once

#include <cstddef>
#include <string>

#include "data/data_set.h"
#include "numerics/random_numbers.h"
#include "platform/platform.h"
#include "presentation/chart_data.h"
#include "presentation/output_log.h"
#include "procedures/samples/sample_panel.h"

// Run Iterations: repeated random sampling of one variable.

namespace tessara {

// Asks about changes that no file holds, where there are any. True when the user wants to save them first: the
// iterations do not run then.
bool WantsToSaveFirst(const DataSet& data, Messages& messages);

enum class IterationsOutcome {
  kRun,
  kRefused,  // a box has said what is missing
  kAborted,  // they have run, but Descriptives have ended in the error frame: there is one sample alone
};

// Replaces the data by the sampling distribution of the picked variable, one record a sample, and reports it by
// Descriptives of the means, with their charts. The path and the changed flag stay. One step to undo. Where the memory
// does not suffice, std::bad_alloc leaves data, output and charts as they were. The caller resets the panel.
IterationsOutcome RunIterations(DataSet& data, const SamplePanel& samples, std::size_t picked_variable,
                                OutputLog& output, ChartStore& charts, RandomNumbers& random, Platform& platform);

}  // namespace tessara
