#pragma once

#include "data/data_set.h"
#include "numerics/random_numbers.h"
#include "platform/platform.h"
#include "procedures/samples/sample_panel.h"

namespace tessara {

// Replaces the data by a random selection of so many records as Text8 says; dictionary and notes stay, and so does the
// changed flag. One step to undo. False, without a word, when no number of 1 and above is given or there are not as
// many records.
//
// The shuffle leaves the last fifteen records at the end, so that a sample which is smaller than the records by fifteen
// and more never has them. This is how the procedure is defined.
bool CreateSample(DataSet& data, const SamplePanel& panel, RandomNumbers& random, Status& status);

}  // namespace tessara
