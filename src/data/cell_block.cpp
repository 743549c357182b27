#include "data/cell_block.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace tessara {
namespace {

constexpr std::size_t kLeastStorePiece = 256;
constexpr std::size_t kMostStorePiece = std::size_t{1} << 16;
constexpr std::size_t kManyPieces = 32;

}  // namespace

void CellBlock::CompactCell::SetNumber(double number) {
  std::memcpy(bytes_, &number, sizeof number);
  bytes_[kMarkPlace] = kNumberMark;
}

void CellBlock::CompactCell::SetShortText(std::string_view text) {
  if (!text.empty()) std::memcpy(bytes_, text.data(), text.size());
  bytes_[kMarkPlace] = static_cast<unsigned char>(text.size());
}

void CellBlock::CompactCell::SetLongText(const char* text, std::size_t length, unsigned char mark) {
  std::memcpy(bytes_, &text, sizeof text);
  std::uint64_t size = length;
  std::memcpy(bytes_ + 8, &size, sizeof size);  // a length never reaches the eighth byte, which is the mark
  bytes_[kMarkPlace] = mark;
}

std::size_t CellBlock::CompactCell::LongTextLength() const {
  std::uint64_t size = 0;
  std::memcpy(&size, bytes_ + 8, 7);
  return static_cast<std::size_t>(size);
}

const char* CellBlock::CompactCell::LongText() const {
  const char* text = nullptr;
  std::memcpy(&text, bytes_, sizeof text);
  return text;
}

char* CellBlock::CompactCell::RoomToReuse(std::size_t length) const {
  if (bytes_[kMarkPlace] != kStoredTextMark || LongTextLength() < length) return nullptr;
  char* room = nullptr;
  std::memcpy(&room, bytes_, sizeof room);
  return room;
}

void CellBlock::CompactCell::ShareText() {
  if (bytes_[kMarkPlace] == kStoredTextMark) bytes_[kMarkPlace] = kSharedTextMark;
}

CellBlock::CellBlock(const CellBlock& other)
    : cells_(other.cells_), text_store_(other.text_store_), stored_bytes_(other.stored_bytes_) {
  for (CompactCell& cell : cells_) cell.ShareText();
  if (text_store_.size() > kManyPieces) GatherTexts();
  other.texts_shared_ = true;
}

CellBlock& CellBlock::operator=(CellBlock other) noexcept {
  cells_ = std::move(other.cells_);
  text_store_ = std::move(other.text_store_);
  free_ = other.free_;
  free_size_ = other.free_size_;
  stored_bytes_ = other.stored_bytes_;
  texts_shared_ = other.texts_shared_;
  return *this;
}

// Texts that have been replaced keep their room in the store. Copied again and again, a block would carry ever more of
// them: the living ones move into a store of their own.
void CellBlock::GatherTexts() {
  std::size_t living = 0;
  for (const CompactCell& cell : cells_) living += cell.IsInStore() ? cell.View().text().size() : 0;
  if (living > stored_bytes_ / 2) return;
  const auto old_store = std::exchange(text_store_, {});
  stored_bytes_ = 0;
  for (CompactCell& cell : cells_) {
    if (!cell.IsInStore()) continue;
    const std::string_view text = cell.View().text();
    char* room = Room(text.size());
    std::memcpy(room, text.data(), text.size());
    cell.SetLongText(room, text.size(), CompactCell::kStoredTextMark);
  }
}

CellBlock::CompactCell& CellBlock::At(std::size_t index) {
  if (index >= cells_.size()) {
    if (index >= cells_.capacity()) cells_.reserve(std::max(index + 1, cells_.capacity() * 2));
    cells_.resize(index + 1);
  }
  return cells_[index];
}

char* CellBlock::Room(std::size_t length) {
  if (length > free_size_) {
    // A text of some size gets a piece of its own, so that the piece in use goes on.
    const std::size_t piece = std::clamp(stored_bytes_, kLeastStorePiece, kMostStorePiece);
    const bool alone = length > piece / 4;
    const std::size_t size = alone ? length : piece;
    text_store_.push_back(std::make_shared_for_overwrite<char[]>(size));
    stored_bytes_ += size;
    if (alone) return text_store_.back().get();
    free_ = text_store_.back().get();
    free_size_ = size;
  }
  char* room = free_;
  free_ += length;
  free_size_ -= length;
  return room;
}

void CellBlock::Set(std::size_t index, const TaggedView& value) {
  if (value.is_text() && value.text().size() > CompactCell::kInlineLimit) {
    const bool may_reuse = index < cells_.size() && !texts_shared_;
    char* room = may_reuse ? cells_[index].RoomToReuse(value.text().size()) : nullptr;
    if (!room) room = Room(value.text().size());
    std::memmove(room, value.text().data(), value.text().size());  // the text may stand in that very room
    At(index).SetLongText(room, value.text().size(), CompactCell::kStoredTextMark);
  } else if (value.is_text()) {
    char copy[CompactCell::kInlineLimit];  // the text may stand in a cell that is about to move
    const std::size_t length = value.text().copy(copy, sizeof copy);
    At(index).SetShortText({copy, length});
  } else if (value.is_number()) {
    At(index).SetNumber(value.number());
  } else if (index < cells_.size()) {
    cells_[index].SetEmpty();
  }
}

void CellBlock::SetLoaded(std::size_t index, std::string_view text) {
  if (text.size() > CompactCell::kInlineLimit) {
    At(index).SetLongText(text.data(), text.size(), CompactCell::kLoadedTextMark);
  } else {
    At(index).SetShortText(text);
  }
}

void CellBlock::Append(const CellBlock& source, std::size_t first, std::size_t count) {
  const std::size_t end = cells_.size() + count;
  const std::size_t held = first < source.cells_.size() ? std::min(count, source.cells_.size() - first) : 0;
  cells_.reserve(end);
  text_store_.insert(text_store_.end(), source.text_store_.begin(), source.text_store_.end());
  stored_bytes_ += source.stored_bytes_;
  source.texts_shared_ = true;
  for (std::size_t index = first; index < first + held; ++index) {
    cells_.push_back(source.cells_[index]);
    cells_.back().ShareText();
  }
  if (count > held) cells_.resize(end);
}

}  // namespace tessara
