#include "procedures/samples/create_sample.h"

#include <algorithm>
#include <utility>

#include "data/change_door.h"
#include "procedures/samples/record_shuffle.h"
#include "procedures/samples/sample_progress.h"

namespace tessara {
namespace {

constexpr std::size_t kNeverSorted = 15;  // records at the end

RecordOrder DrawRecords(std::size_t record_count, std::size_t sample_size, RandomNumbers& random) {
  RecordShuffle shuffle(record_count);
  const std::size_t sorted = record_count - std::min(record_count, kNeverSorted);
  const auto order = shuffle.Shuffle(sorted, random).first(sample_size);
  return {order.begin(), order.end()};
}

}  // namespace

bool CreateSample(DataSet& data, const SamplePanel& panel, RandomNumbers& random, Status& status) {
  const auto size = SizeOfBox(panel.Text8);
  if (!size || *size > data.RecordCount) return false;
  const WaitCursor wait(status);
  const auto last_row = static_cast<double>(*size + kHeaderRowCount);
  SampleProgress progress(status, last_row);
  progress.Show("Randomizing Records", 0);
  RecordOrder records = DrawRecords(data.RecordCount, *size, random);
  progress.Show("Populating Data Grid", last_row);
  ApplyChange(data, ChooseRecords(data, std::move(records), "Create Sample"));
  progress.Show("Randomization Complete", last_row);
  return true;
}

}  // namespace tessara
