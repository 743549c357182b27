#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

#include "numerics/tagged_value.h"

// A run of owned cells of a column: 16 bytes each. A text of up to 15 bytes stands in the cell itself, a longer one in
// the block's text store or, left where it is, in the bytes of a loaded file.
//
// A copy shares the texts of its source: neither of the two writes over them any more.

namespace tessara {

class CellBlock {
 public:
  CellBlock() = default;
  CellBlock(const CellBlock& other);
  CellBlock(CellBlock&&) noexcept = default;
  CellBlock& operator=(CellBlock other) noexcept;
  ~CellBlock() = default;

  // Cells that have never been assigned behind the last assigned one take no room: size() is the number of cells held.
  std::size_t size() const { return cells_.size(); }
  void Reserve(std::size_t count) { cells_.reserve(count); }

  // A cell behind the last one held is empty.
  TaggedView Cell(std::size_t index) const { return index < cells_.size() ? cells_[index].View() : TaggedView(); }

  // Calls visit(index, cell) for the first `count` cells.
  template <typename Visit>
  void ForEachCell(std::size_t count, Visit visit) const;

  // Where the memory fails the cell stays as it was.
  void Set(std::size_t index, const TaggedView& value);
  // A text whose bytes outlive this block: a long one is referred to, not copied.
  void SetLoaded(std::size_t index, std::string_view text);

  // Puts cells `first` to first + count - 1 of another block behind the last cell held; cells that the other one does
  // not hold are empty. Long texts are shared.
  void Append(const CellBlock& source, std::size_t first, std::size_t count);

  // Bytes of memory, texts included.
  std::size_t Bytes() const { return sizeof *this + cells_.capacity() * sizeof(CompactCell) + stored_bytes_; }

 private:
  class CompactCell {
   public:
    CompactCell() { bytes_[kMarkPlace] = kEmptyMark; }

    TaggedView View() const;
    void SetEmpty() { bytes_[kMarkPlace] = kEmptyMark; }
    void SetNumber(double number);
    void SetShortText(std::string_view text);
    void SetLongText(const char* text, std::size_t length, unsigned char mark);
    // The room of the cell's own text in the store, when a text of that length goes into it; else nothing.
    char* RoomToReuse(std::size_t length) const;
    // The text in the store is no longer this cell's to write over.
    void ShareText();
    bool IsInStore() const { return bytes_[kMarkPlace] == kStoredTextMark || bytes_[kMarkPlace] == kSharedTextMark; }

    static constexpr std::size_t kInlineLimit = 15;
    static constexpr unsigned char kStoredTextMark = 0xF2;  // bytes 0 to 7 the address, 8 to 14 the length
    static constexpr unsigned char kLoadedTextMark = 0xF3;  // the same, of bytes that are not the block's
    static constexpr unsigned char kSharedTextMark = 0xF4;  // the same, of bytes that are not the block's alone

   private:
    std::size_t LongTextLength() const;
    const char* LongText() const;

    // The last byte tells the kind: 0 to 15 is the length of a short text.
    static constexpr std::size_t kMarkPlace = 15;
    static constexpr unsigned char kEmptyMark = 0xF0;
    static constexpr unsigned char kNumberMark = 0xF1;

    alignas(8) unsigned char bytes_[16] = {};
  };
  static_assert(sizeof(CompactCell) == 16);

  char* Room(std::size_t length);
  CompactCell& At(std::size_t index);
  void GatherTexts();

  std::vector<CompactCell> cells_;
  std::vector<std::shared_ptr<char[]>> text_store_;
  char* free_ = nullptr;
  std::size_t free_size_ = 0;
  std::size_t stored_bytes_ = 0;       // in the text store, used or not
  mutable bool texts_shared_ = false;  // a copy has been made: texts are not written over
};

inline TaggedView CellBlock::CompactCell::View() const {
  const unsigned char mark = bytes_[kMarkPlace];
  if (mark <= kInlineLimit) return std::string_view(reinterpret_cast<const char*>(bytes_), mark);
  if (mark == kNumberMark) {
    double number;
    std::memcpy(&number, bytes_, sizeof number);
    return number;
  }
  if (mark != kEmptyMark) return std::string_view(LongText(), LongTextLength());
  return {};
}

template <typename Visit>
void CellBlock::ForEachCell(std::size_t count, Visit visit) const {
  std::size_t index = 0;
  for (const std::size_t held = std::min(count, cells_.size()); index < held; ++index) {
    visit(index, cells_[index].View());
  }
  for (; index < count; ++index) visit(index, TaggedView());
}

}  // namespace tessara
