#include "procedures/samples/record_shuffle.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

namespace tessara {
namespace {

using Records = std::vector<std::uint32_t>;

Records Shuffled(std::size_t records, std::size_t sorted, std::uint64_t seed) {
  RandomNumbers random(seed);
  RecordShuffle shuffle(records);
  const auto order = shuffle.Shuffle(sorted, random);
  return {order.begin(), order.end()};
}

// The same by a stable sort of the keys as they are: single-precision numbers.
Records SortedByKey(std::size_t records, std::size_t sorted, RandomNumbers& random) {
  std::vector<float> keys(records);
  for (float& key : keys) key = random.Uniform();
  Records order(records);
  std::iota(order.begin(), order.end(), 0U);
  std::stable_sort(order.begin(), order.begin() + static_cast<std::ptrdiff_t>(sorted),
                   [&](std::uint32_t a, std::uint32_t b) { return keys[a] < keys[b]; });
  return order;
}

// Worked out from the recurrence of the generator by another program.
TEST(RecordShuffle, OrdersRecordsByTheirKeys) {
  EXPECT_EQ(Shuffled(20, 20, 7), (Records{5, 2, 4, 8, 19, 15, 13, 12, 11, 9, 0, 10, 14, 6, 18, 3, 7, 1, 17, 16}));
}

TEST(RecordShuffle, RecordsBehindTheSortedOnesStayButDrawTheirKeys) {
  EXPECT_EQ(Shuffled(20, 5, 7), (Records{2, 4, 0, 3, 1, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19}));
  RandomNumbers random(7);
  RandomNumbers drawn(7);
  RecordShuffle(20).Shuffle(0, random);
  for (int i = 0; i < 20; ++i) drawn.Uniform();
  EXPECT_EQ(random.Uniform(), drawn.Uniform());
}

TEST(RecordShuffle, ManyRecordsAreSortedAsFewAre) {
  for (const std::size_t records : {1023u, 1024u, 5000u, 300000u}) {
    for (const std::size_t sorted : {records, records - 15}) {
      RandomNumbers random(records);
      EXPECT_EQ(Shuffled(records, sorted, records), SortedByKey(records, sorted, random)) << records;
    }
  }
}

// Of 300,000 keys of 24 bits some thousand pairs are equal, so that the order of equal keys is tested above.
TEST(RecordShuffle, EqualKeysComeUp) {
  RandomNumbers random(300000);
  std::vector<float> keys(300000);
  for (float& key : keys) key = random.Uniform();
  std::sort(keys.begin(), keys.end());
  EXPECT_NE(std::adjacent_find(keys.begin(), keys.end()), keys.end());
}

TEST(RecordShuffle, EachShuffleDrawsAnew) {
  RandomNumbers random(3);
  RandomNumbers same(3);
  RecordShuffle shuffle(2000);
  for (int i = 0; i < 3; ++i) {
    const auto order = shuffle.Shuffle(2000, random);
    EXPECT_EQ(Records(order.begin(), order.end()), SortedByKey(2000, 2000, same)) << i;
  }
}

TEST(RecordShuffle, NoRecordsHaveNoOrder) { EXPECT_TRUE(Shuffled(0, 0, 1).empty()); }

}  // namespace
}  // namespace tessara
