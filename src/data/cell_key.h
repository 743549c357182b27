#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "numerics/tagged_value.h"

// Equal cells are looked at once. A coded variable has a million cells and five different ones: what a procedure
// decides on a cell alone, it decides for each different cell.

namespace tessara {

inline constexpr std::size_t kShortText = 8;

// A text of at most 8 bytes as one number; texts of the same length have the same key only when they are equal. Reads
// no byte beyond the text.
inline std::uint64_t ShortTextKey(std::string_view text) {
  const char* bytes = text.data();
  const std::size_t length = text.size();
  if (length >= 4) {
    std::uint32_t first;
    std::uint32_t last;  // may overlap the first four
    std::memcpy(&first, bytes, 4);
    std::memcpy(&last, bytes + length - 4, 4);
    return first | static_cast<std::uint64_t>(last) << 32;
  }
  if (length == 0) return 0;
  const auto byte = [bytes](std::size_t place) {
    return static_cast<std::uint64_t>(static_cast<unsigned char>(bytes[place]));
  };
  return byte(0) | byte(length / 2) << 8 | byte(length - 1) << 16;
}

// Where a text of such a key is remembered or looked up first: the upper bits of the number.
inline std::uint64_t SpreadKey(std::uint64_t key, std::size_t length) {
  return (key ^ length * 0x9E3779B97F4A7C15U) * 0xD6E8FEB86659FD93U;
}

// A secret of the process, so that nobody can make a file of cells that all fall into one place. Multiplying by an odd
// number that is drawn at random is universal hashing (Dietzfelbinger and others, 1997): any two keys meet no more
// often than by chance.
struct CellSeed {
  std::uint64_t start = 0;
  std::uint64_t factor = 1;  // odd

  static CellSeed OfProcess();

  std::uint64_t Spread(std::uint64_t key) const {
    const std::uint64_t mixed = (key ^ start) * 0xD6E8FEB86659FD93U;
    return (mixed ^ mixed >> 32) * factor;
  }
  std::uint64_t Spread(std::uint64_t key, std::size_t length) const {
    return Spread(key ^ length * 0x9E3779B97F4A7C15U);
  }

  std::size_t operator()(std::string_view text) const;
  std::size_t operator()(double number) const;
};

// A decision about a cell, remembered for the short texts met last.
template <typename T>
class CellMemo {
 public:
  // The decision for a cell; decide(cell) is asked when it is not remembered.
  template <typename Decide>
  T Get(const TaggedView& cell, Decide decide) {
    if (!cell.is_text() || cell.text().size() > kShortText) return decide(cell);
    const std::size_t length = cell.text().size();
    const std::uint64_t key = ShortTextKey(cell.text());
    Slot& slot = slots_[SpreadKey(key, length) >> (64 - kSlotBits)];
    if (slot.key != key || slot.length != length) slot = {key, length, decide(cell)};
    return slot.decision;
  }

 private:
  static constexpr int kSlotBits = 10;
  static constexpr std::size_t kNoLength = ~std::size_t{0};
  struct Slot {
    std::uint64_t key = 0;
    std::size_t length = kNoLength;
    T decision{};
  };

  std::vector<Slot> slots_ = std::vector<Slot>(std::size_t{1} << kSlotBits);
};

// Numbers the different cells of a column from 0 in the order in which they are met. A number and a text of the same
// look are two different cells. Refers to the texts, so the matrix must not change while it lives.
class CellDictionary {
 public:
  // What it yields does not depend on the seed.
  explicit CellDictionary(const CellSeed& seed = CellSeed::OfProcess())
      : seed_(seed), long_texts_(0, seed), numbers_(0, seed) {}

  std::size_t Find(const TaggedView& cell) {
    if (cell.is_text() && cell.text().size() <= kShortText) return FindShort(cell);
    return FindOther(cell);
  }

  std::size_t size() const { return cells_.size(); }
  const TaggedView& Cell(std::size_t id) const { return cells_[id]; }

 private:
  struct Slot {
    std::uint64_t key = 0;
    std::uint32_t length = 0;
    std::uint32_t id_and_one = 0;  // 0: free
  };

  std::size_t FindShort(const TaggedView& cell) {
    const auto length = static_cast<std::uint32_t>(cell.text().size());
    const std::uint64_t key = ShortTextKey(cell.text());
    for (std::size_t at = seed_.Spread(key, length) >> shift_;; at = (at + 1) & (slots_.size() - 1)) {
      Slot& slot = slots_[at];
      if (slot.id_and_one == 0) return AddShort(cell, at);
      if (slot.key == key && slot.length == length) return slot.id_and_one - 1;
    }
  }

  std::size_t AddShort(const TaggedView& cell, std::size_t at);
  std::size_t FindOther(const TaggedView& cell);

  CellSeed seed_;
  std::vector<TaggedView> cells_;
  std::vector<Slot> slots_ = std::vector<Slot>(256);
  int shift_ = 64 - 8;
  std::size_t short_texts_ = 0;
  std::unordered_map<std::string_view, std::size_t, CellSeed> long_texts_;
  std::unordered_map<double, std::size_t, CellSeed> numbers_;
  std::size_t empty_and_one_ = 0;
};

}  // namespace tessara
