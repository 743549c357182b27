#pragma once

#include "data/data_set.h"

// The cut to the used range. A save and every procedure that reads cases work on the counts without the trailing run of
// wholly blank variables and the trailing run of wholly blank records; the full counts return afterwards.

namespace tessara {

// Copies the counts to the working copies and cuts them. Header rows do not count: a named but empty last column is
// cut.
void TrimToUsedRange(DataSet& data);

// Puts the counts back as they were ahead of the cut.
void RestoreWorkingCounts(DataSet& data);

// The cut for as long as the object lives.
class UsedRange {
 public:
  explicit UsedRange(DataSet& data) : data_(data) { TrimToUsedRange(data_); }
  ~UsedRange() { RestoreWorkingCounts(data_); }
  UsedRange(const UsedRange&) = delete;
  UsedRange& operator=(const UsedRange&) = delete;

 private:
  DataSet& data_;
};

}  // namespace tessara
