#pragma once

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

#include "data/column.h"

// Makes the columns of a data set of which some records are chosen, in an order of their own. What stands as it was
// loaded stays a view into the bytes of its file: such a column costs a pointer, however many records there are, and
// the columns of one choice share its order. Records that a column owns are copied.

namespace tessara {

// An index has 32 bits, and one of its values stands for none.
inline constexpr std::size_t kMostRecordsOfAChoice = 0xFFFFFFFE;

class RecordChoice {
 public:
  // Indexes of records, from 0. One may come more than once.
  explicit RecordChoice(RecordOrder records) : records_(std::make_shared<const RecordOrder>(std::move(records))) {}

  std::size_t record_count() const { return records_->size(); }

  // The column with the chosen records alone. A record that it does not have is empty.
  Column Of(const Column& column);

 private:
  using SharedOrder = std::shared_ptr<const RecordOrder>;

  // The chosen records of a column whose records were chosen before.
  SharedOrder OrderBehind(const SharedOrder& earlier);
  Column CopyOf(const Column& column) const;

  SharedOrder records_;
  std::vector<std::pair<SharedOrder, SharedOrder>> behind_;  // an earlier order, and what it has become
};

}  // namespace tessara
