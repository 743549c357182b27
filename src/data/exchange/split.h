#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "data/data_set.h"
#include "platform/platform.h"

// A new data file of some of the variables. The data in memory stay as they are, and the new file is not opened.

namespace tessara {

inline constexpr std::size_t kMostSplitVariables = 300;

struct SplitPanel {
  std::vector<std::size_t> SplitColumns;  // in the order of choosing; at most kMostSplitVariables

  std::size_t SplitCount() const { return SplitColumns.size(); }
};

// Adds the variable of a column, also one that is there already. `column` 0: nothing is selected, and a box says so. A
// variable beyond the most that there can be is not added, and a note says so.
void AddVariable(SplitPanel& panel, std::size_t column, Platform& platform);
// Adds all these, but none that is there already.
void AddAllVariables(SplitPanel& panel, std::span<const std::size_t> columns, Platform& platform);
// "None": no variable is chosen any more.
void ResetSplit(SplitPanel& panel);
// The columns of a data set that has changed since may be gone.
void DropMissingVariables(SplitPanel& panel, const DataSet& data);

// Whether there is something to write; a box says so when there is not.
bool MayRunSplit(const SplitPanel& panel, Messages& messages);

// Writes the file: the records of the used range of the whole data, and of the chosen variables all rows of the
// dictionary. False when it could not be written: the box of a Save As has said so, and the old file is as it was.
bool RunSplit(const SplitPanel& panel, const DataSet& data, Platform& platform, const Path& path);

}  // namespace tessara
