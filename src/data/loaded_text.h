#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "data/field_ends.h"
#include "numerics/tagged_value.h"
#include "platform/files.h"

// The bytes of a data file with an index of its fields. Lines end in LF or CR LF, a CR elsewhere belongs to its cell,
// and byte 1 stands between fields. One pass over the bytes lays the index down; nothing is copied or converted.
//
// The index is kept in chunks of lines, and within a chunk field by field: a column is read from two short stretches of
// memory instead of from every record. Ends are 32-bit offsets from the chunk's start.

namespace tessara {

class LoadedText {
 public:
  // Called now and then with the number of lines split so far.
  using Progress = std::function<void(std::size_t lines)>;

  LoadedText() = default;
  // Indexes the first row_limit lines and of each the first column_limit fields.
  LoadedText(FileBytes bytes, std::size_t row_limit, std::size_t column_limit, const Progress& progress = {});

  // Bytes of memory that the text and its index take.
  std::size_t Bytes() const;

  // The first line is this row from now on, for a text without the lines that would stand ahead of it.
  void SetFirstRow(std::size_t row) { leading_rows_ = row; }

  // Lines that are there, at most row_limit, and the rows ahead of the first one.
  std::size_t row_count() const { return leading_rows_ + row_count_; }

  // Lines with more fields than column_limit, and lines of the text behind row_limit; line ends alone at the end of the
  // text do not count.
  std::size_t long_lines() const { return long_lines_; }
  std::size_t dropped_lines() const { return dropped_lines_; }

  // Field `column`, from 1, of the line of a row, from 0; nothing when the line has fewer fields or there is none.
  std::optional<std::string_view> Field(std::size_t row, std::size_t column) const;

  // Fields 1 to column_count of a line in one stretch, when the line has as many.
  std::optional<std::string_view> LeadingFields(std::size_t row, std::size_t column_count) const;

  // Calls visit(index from 0, cell) for one field of `count` lines from first_row on; a missing field is the empty tag.
  template <typename Visit>
  void ForEachField(std::size_t column, std::size_t first_row, std::size_t count, Visit visit) const;

 private:
  struct Line {
    std::string_view text;  // with its line end
    std::size_t first_end;  // the place of its first field's end
    std::uint32_t fields;
  };

  // Lines are a power of two to a chunk. A chunk whose index by fields would be out of all proportion to its text (a
  // long line among short ones), or whose text is too long for 32 bits, is indexed line by line. Only the fields of a
  // line that is itself too long for 32 bits are found by a scan when they are asked for.
  struct Chunk {
    const char* base = nullptr;  // the byte ahead of the chunk's first line
    // Field by field, `stride` apart (a little more than the lines, so that the fields of a line do not share one cache
    // set): for each line the offset of the field's end, 0 where the line has no such field. Field 0 stands for the
    // byte ahead of the line.
    std::unique_ptr<std::uint32_t[]> ends;
    std::size_t stride = 0;
    std::size_t fields = 0;  // most fields of a line of the chunk
    // Instead of `ends`: the lines, and the ends of their fields as offsets from the start of their own line.
    std::vector<Line> lines;
    std::vector<std::uint32_t> line_ends;

    std::size_t IndexBytes() const;
    std::optional<std::string_view> FieldOfLine(const Line& line, std::size_t column) const;
  };

  class Splitter;

  FileBytes bytes_;
  std::size_t leading_rows_ = 0;  // rows that the text has no lines for
  std::size_t row_count_ = 0;
  std::size_t column_limit_ = 0;
  std::size_t long_lines_ = 0;
  std::size_t dropped_lines_ = 0;
  std::size_t line_bits_ = 0;  // a chunk has 2 to this power lines
  std::vector<Chunk> chunks_;
};

template <typename Visit>
void LoadedText::ForEachField(std::size_t column, std::size_t first_row, std::size_t count, Visit visit) const {
  const std::size_t chunk_lines = std::size_t{1} << line_bits_;
  std::size_t index = 0;
  for (; index < count && first_row + index < leading_rows_; ++index) visit(index, TaggedView());
  while (index < count && first_row + index - leading_rows_ < row_count_) {
    const std::size_t row = first_row + index - leading_rows_;
    const Chunk& chunk = chunks_[row >> line_bits_];
    const std::size_t from = row & (chunk_lines - 1);
    const std::size_t to = std::min({chunk_lines, from + (count - index), from + (row_count_ - row)});
    if (chunk.ends && column <= chunk.fields) {
      const std::uint32_t* before = chunk.ends.get() + (column - 1) * chunk.stride;
      const std::uint32_t* end = before + chunk.stride;
      for (std::size_t line = from; line < to; ++line, ++index) {
        if (end[line] == 0) {
          visit(index, TaggedView());
        } else {
          visit(index, TaggedView(std::string_view(chunk.base + before[line] + 1, end[line] - before[line] - 1)));
        }
      }
    } else {
      for (std::size_t line = from; line < to; ++line, ++index) {
        const auto field = Field(first_row + index, column);
        visit(index, field ? TaggedView(*field) : TaggedView());
      }
    }
  }
  for (; index < count; ++index) visit(index, TaggedView());
}

}  // namespace tessara
