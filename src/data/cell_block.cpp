#include "data/cell_block.h"

#include <cstdint>

namespace tessara {
namespace {

constexpr std::size_t kStorePiece = std::size_t{1} << 16;

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

CellBlock::CompactCell& CellBlock::At(std::size_t index) {
  if (index >= cells_.size()) {
    if (index >= cells_.capacity()) cells_.reserve(std::max(index + 1, cells_.capacity() * 2));
    cells_.resize(index + 1);
  }
  return cells_[index];
}

char* CellBlock::Room(std::size_t length) {
  if (length > kStorePiece / 4) {  // a text of its own, so that the piece in use goes on
    text_store_.push_back(std::make_unique_for_overwrite<char[]>(length));
    return text_store_.back().get();
  }
  if (length > free_size_) {
    text_store_.push_back(std::make_unique_for_overwrite<char[]>(kStorePiece));
    free_ = text_store_.back().get();
    free_size_ = kStorePiece;
  }
  char* room = free_;
  free_ += length;
  free_size_ -= length;
  return room;
}

void CellBlock::Set(std::size_t index, const TaggedView& value) {
  if (value.is_text() && value.text().size() > CompactCell::kInlineLimit) {
    char* room = index < cells_.size() ? cells_[index].RoomToReuse(value.text().size()) : nullptr;
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

}  // namespace tessara
