#include "data/cell_key.h"

#include <bit>

#include "platform/files.h"

namespace tessara {

CellSeed CellSeed::OfProcess() {
  static const CellSeed seed{SystemEntropy(), SystemEntropy() | 1U};
  return seed;
}

std::size_t CellSeed::operator()(std::string_view text) const {
  std::uint64_t sum = text.size();
  for (; text.size() > kShortText; text.remove_prefix(kShortText)) {
    sum = Spread(sum ^ ShortTextKey(text.substr(0, kShortText)));
    sum ^= sum >> 32;
  }
  sum = Spread(sum ^ ShortTextKey(text));
  return sum ^ sum >> 32;
}

std::size_t CellSeed::operator()(double number) const {
  const std::uint64_t sum = Spread(number == 0 ? 0 : std::bit_cast<std::uint64_t>(number));  // zero of either sign
  return sum ^ sum >> 32;
}

std::size_t CellDictionary::AddShort(const TaggedView& cell, std::size_t at) {
  const std::size_t id = cells_.size();
  cells_.push_back(cell);
  slots_[at] = {ShortTextKey(cell.text()), static_cast<std::uint32_t>(cell.text().size()),
                static_cast<std::uint32_t>(id + 1)};
  if (++short_texts_ * 2 > slots_.size()) {
    std::vector<Slot> old(slots_.size() * 4);
    old.swap(slots_);
    shift_ -= 2;
    for (const Slot& slot : old) {
      if (slot.id_and_one == 0) continue;
      std::size_t place = seed_.Spread(slot.key, slot.length) >> shift_;
      while (slots_[place].id_and_one != 0) place = (place + 1) & (slots_.size() - 1);
      slots_[place] = slot;
    }
  }
  return id;
}

std::size_t CellDictionary::FindOther(const TaggedView& cell) {
  const std::size_t next = cells_.size();
  std::size_t id = next;
  if (cell.is_text()) {
    id = long_texts_.try_emplace(cell.text(), next).first->second;
  } else if (cell.is_number()) {
    id = numbers_.try_emplace(cell.number(), next).first->second;
  } else if (empty_and_one_ != 0) {
    id = empty_and_one_ - 1;
  } else {
    empty_and_one_ = next + 1;
  }
  if (id == next) cells_.push_back(cell);
  return id;
}

}  // namespace tessara
