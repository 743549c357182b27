#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "data/column.h"
#include "numerics/random_numbers.h"

// Shuffles records by random keys: each record draws a uniform number, and the records are sorted by it. Records with
// equal keys keep their order.

namespace tessara {

class RecordShuffle {
 public:
  // Takes the memory for it at once. More records than an index counts are std::length_error.
  explicit RecordShuffle(std::size_t record_count);

  // Draws a key for each record, in their order, and sorts the first `sorted_count` of them; those behind stay where
  // they are. Yields indexes from 0, until the next shuffle.
  std::span<const std::uint32_t> Shuffle(std::size_t sorted_count, RandomNumbers& random);

 private:
  void SortByKey(std::size_t count);
  void Distribute(std::size_t count, unsigned shift);

  RecordOrder order_;
  std::vector<std::uint64_t> keyed_;  // the key ahead of the index
  std::vector<std::uint64_t> passed_;
};

}  // namespace tessara
