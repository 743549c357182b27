#pragma once

#include <string>

#include "data/data_set.h"
#include "numerics/dates.h"
#include "platform/platform.h"
#include "presentation/output_log.h"

// The data set described on paper: its variables, and its project notes.

namespace tessara {

// The file and its counts, then of each variable name, label, value labels and missing values.
std::string DataDictionaryText(const DataSet& data, const CalendarDay& today);
// The dictionary as a run of its own in the output log, whose text is to be seen; the grid's cursor goes to the heading
// of the first variable. Where the memory does not suffice, std::bad_alloc leaves both as they were.
void CreateDataDictionary(DataSet& data, OutputLog& output, Platform& platform);

// Title, data statistics and notes.
std::string ProjectNotesText(const DataSet& data);
// Asks for the printer and prints them, as often as copies are wanted. False when it was cancelled or the printer
// refused.
bool PrintProjectNotes(const DataSet& data, Platform& platform);

}  // namespace tessara
