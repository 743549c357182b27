#include "procedures/samples/record_shuffle.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "data/record_choice.h"

namespace tessara {
namespace {

// A key has 24 bits, those of a single-precision number in [0, 1), and stands above the index of its record.
constexpr float kKeys = 0x1p24F;
constexpr unsigned kIndexBits = 32;
constexpr unsigned kDigitBits = 12;
constexpr std::size_t kDigits = std::size_t{1} << kDigitBits;
constexpr std::size_t kFewRecords = 1024;  // for them the counting of digits is not worth its while

std::size_t DigitOf(std::uint64_t keyed, unsigned shift) {
  return static_cast<std::size_t>(keyed >> shift) & (kDigits - 1);
}

}  // namespace

RecordShuffle::RecordShuffle(std::size_t record_count) {
  if (record_count > kMostRecordsOfAChoice) throw std::length_error("records");
  order_.resize(record_count);
  keyed_.resize(record_count);
  passed_.resize(record_count);
}

std::span<const std::uint32_t> RecordShuffle::Shuffle(std::size_t sorted_count, RandomNumbers& random) {
  for (std::size_t i = 0; i < keyed_.size(); ++i) {
    const auto key = static_cast<std::uint64_t>(random.Uniform() * kKeys);  // exact: a power of two
    keyed_[i] = key << kIndexBits | i;
  }
  SortByKey(std::min(sorted_count, keyed_.size()));
  std::ranges::transform(keyed_, order_.begin(), [](std::uint64_t keyed) { return static_cast<std::uint32_t>(keyed); });
  return order_;
}

// With the index below its key no two are equal, and equal keys stand in the order of their records.
void RecordShuffle::SortByKey(std::size_t count) {
  if (count < kFewRecords) {
    std::sort(keyed_.begin(), keyed_.begin() + static_cast<std::ptrdiff_t>(count));
    return;
  }
  Distribute(count, kIndexBits);
  Distribute(count, kIndexBits + kDigitBits);
}

// One pass of a radix sort from the least digit up: each record goes behind those of a lower digit, and behind those of
// the same digit that came ahead of it.
void RecordShuffle::Distribute(std::size_t count, unsigned shift) {
  std::array<std::size_t, kDigits> places{};
  for (std::size_t i = 0; i < count; ++i) ++places[DigitOf(keyed_[i], shift)];
  std::size_t place = 0;
  for (std::size_t& digit : places) {
    const std::size_t of_digit = digit;
    digit = place;
    place += of_digit;
  }
  for (std::size_t i = 0; i < count; ++i) passed_[places[DigitOf(keyed_[i], shift)]++] = keyed_[i];
  std::copy(keyed_.begin() + static_cast<std::ptrdiff_t>(count), keyed_.end(),
            passed_.begin() + static_cast<std::ptrdiff_t>(count));
  keyed_.swap(passed_);
}

}  // namespace tessara
