#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "data/data_set.h"

// What a table of all variables tells of each: its dictionary in a few words, and how its cells fall.

namespace tessara {

// The cells of a variable that are no valid numbers; each counts once.
struct CellCounts {
  std::size_t blank = 0;
  std::size_t missing = 0;      // not blank, but declared as missing
  std::size_t not_numeric = 0;  // other texts that are no number
  std::size_t records = 0;

  friend bool operator==(const CellCounts&, const CellCounts&) = default;
};

// One pass over the records of a variable.
CellCounts CountCells(const DataSet& data, std::size_t column);

// "9, 99, < 0, > 120" and "1 = Male, 2 = Female"; empty for none. Not longer than a table shows.
std::string MissingValuesInWords(const DataSet& data, std::size_t column);
std::string ValueLabelsInWords(const DataSet& data, std::size_t column);

// A part of all records: "4.5%", "0" for none; a part that is not none is never shown as none, nor one that is not all
// as all: "<0.1%", ">99.9%".
std::string ShareInWords(std::size_t part, std::size_t records);

// The counts of all variables, each counted when it is asked for and kept until the data make it wrong.
class SummarizedVariables {
 public:
  explicit SummarizedVariables(const DataSet& data) : data_(data) {}

  // Drops what the changes since the last call have made wrong.
  void Follow();

  // nullptr while they have not been counted. Follow first.
  const CellCounts* Find(std::size_t column) const;
  void Count(std::size_t column);
  // The next variable from `first` on, and then from the first one on, that has not been counted; nothing when all
  // have.
  std::optional<std::size_t> NextToCount(std::size_t first) const;

 private:
  void Tell(const ChangeNote& note);
  void Forget(const ChangeExtent& extent);

  const DataSet& data_;
  std::uint64_t revision_ = 0;
  bool followed_ = false;
  std::vector<std::optional<CellCounts>> counts_;  // column 1 at index 0
};

}  // namespace tessara
