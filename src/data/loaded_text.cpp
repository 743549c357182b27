#include "data/loaded_text.h"

#include <bit>
#include <cstring>
#include <limits>
#include <utility>

namespace tessara {
namespace {

constexpr std::size_t kMostChunkLines = 4096;
constexpr std::size_t kChunkIndexSize = std::size_t{1} << 17;  // bytes; two of them fit a core's second-level cache
constexpr std::size_t kIndexBytesPerTextByte = 8;
constexpr std::size_t kIndexBytesAlways = std::size_t{1} << 16;

// A field of a line with its line end.
std::optional<std::string_view> ScanField(std::string_view line, std::size_t column) {
  if (line.ends_with('\n')) line.remove_suffix(line.ends_with("\r\n") ? 2 : 1);
  for (; column > 1; --column) {
    const std::size_t separator = line.find(kFieldSeparator);
    if (separator == std::string_view::npos) return std::nullopt;
    line.remove_prefix(separator + 1);
  }
  return line.substr(0, line.find(kFieldSeparator));
}

std::size_t CountLines(std::string_view text) {
  const std::size_t last = text.find_last_not_of("\r\n");
  if (last == std::string_view::npos) return 0;
  return static_cast<std::size_t>(std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(last), '\n')) + 1;
}

}  // namespace

// Lays the index down in one pass. The ends of a chunk's fields are collected line by line and turned into columns when
// the chunk is full; a line's fields beyond the limit are passed over.
class LoadedText::Splitter {
 public:
  Splitter(LoadedText& target, std::size_t row_limit, const Progress& progress)
      : target_(target),
        row_limit_(row_limit),
        progress_(progress),
        chunk_lines_(std::size_t{1} << target.line_bits_),
        line_start_(target.bytes_.data()) {
    StartChunk();
  }

  void Run() {
    const char* const text = target_.bytes_.data();
    const std::size_t size = target_.bytes_.size();
    for (std::size_t at = 0; at < size && target_.row_count_ < row_limit_; at += 64) {
      std::uint64_t ends = FieldEnds(text + at);  // the file's padding may be read
      if (size - at < 64) ends &= (std::uint64_t{1} << (size - at)) - 1;
      for (; ends != 0; ends &= ends - 1) {
        const char* const end = text + at + std::countr_zero(ends);
        if (*end == '\n') {
          EndLine(end > line_start_ && end[-1] == '\r' ? end - 1 : end, end + 1);
          if (target_.row_count_ == row_limit_) break;
        } else {
          EndField(end);
        }
      }
    }
    // A last line without a line end; a CR at its end has no LF behind it and stays.
    if (target_.row_count_ < row_limit_ && line_start_ < text + size) EndLine(text + size, text + size);
    FinishChunk();
    target_.dropped_lines_ = CountLines({line_start_, static_cast<std::size_t>(text + size - line_start_)});
  }

 private:
  void StartChunk() {
    base_ = line_start_ - 1;
    ends_.clear();
    counts_.clear();
    starts_.clear();
    fields_ = 0;
    StartLine();
  }

  void StartLine() {
    line_fields_ = 0;
    is_long_ = false;
    starts_.push_back(line_start_);
  }

  void EndField(const char* end) {
    if (line_fields_ == target_.column_limit_) {
      is_long_ = true;
      return;
    }
    ++line_fields_;
    ends_.push_back(static_cast<std::uint32_t>(end - base_));  // runs over in a chunk that is too long for 32 bits
  }

  void EndLine(const char* end, const char* next) {
    EndField(end);
    counts_.push_back(static_cast<std::uint32_t>(line_fields_));
    fields_ = std::max(fields_, line_fields_);
    target_.long_lines_ += is_long_ ? 1U : 0U;
    last_line_end_ = end;
    line_start_ = next;
    ++target_.row_count_;
    if (counts_.size() == chunk_lines_) {
      FinishChunk();
      StartChunk();
    } else {
      StartLine();
    }
  }

  void FinishChunk() {
    if (counts_.empty()) return;
    Chunk chunk;
    chunk.base = base_;
    chunk.fields = fields_;
    chunk.stride = counts_.size() + 16;
    const auto text_size = static_cast<std::size_t>(last_line_end_ - base_);
    const std::size_t index_size = (fields_ + 1) * chunk.stride;
    if (text_size > std::numeric_limits<std::uint32_t>::max() ||
        index_size * sizeof(std::uint32_t) > kIndexBytesAlways + kIndexBytesPerTextByte * text_size) {
      KeepLineByLine(chunk);
    } else {
      chunk.ends = std::make_unique_for_overwrite<std::uint32_t[]>(index_size);
      TurnIntoColumns(chunk);
    }
    target_.chunks_.push_back(std::move(chunk));
    counts_.clear();
    if (progress_) progress_(target_.row_count_);
  }

  void TurnIntoColumns(Chunk& chunk) const {
    const std::uint32_t* end = ends_.data();
    for (std::size_t line = 0; line < counts_.size(); ++line) {
      std::uint32_t* place = chunk.ends.get() + line;
      *place = static_cast<std::uint32_t>(starts_[line] - 1 - base_);
      const std::size_t count = counts_[line];
      for (std::size_t field = 0; field < count; ++field) *(place += chunk.stride) = *end++;
      for (std::size_t field = count; field < fields_; ++field) *(place += chunk.stride) = 0;
    }
  }

  void KeepLineByLine(Chunk& chunk) const {
    chunk.lines.reserve(counts_.size());
    chunk.line_ends.reserve(ends_.size());
    std::size_t first = 0;
    for (std::size_t line = 0; line < counts_.size(); ++line) {
      const char* const start = starts_[line];
      const char* const next = line + 1 < counts_.size() ? starts_[line + 1] : line_start_;
      chunk.lines.push_back({{start, static_cast<std::size_t>(next - start)}, first, counts_[line]});
      // Offsets from the line's own start; the ones from the chunk's may have run over, their differences have not.
      const auto offset = static_cast<std::uint32_t>(start - base_);
      for (std::size_t end = first; end < first + counts_[line]; ++end) chunk.line_ends.push_back(ends_[end] - offset);
      first += counts_[line];
    }
  }

  LoadedText& target_;
  const std::size_t row_limit_;
  const Progress& progress_;
  const std::size_t chunk_lines_;
  const char* line_start_;
  const char* base_ = nullptr;
  const char* last_line_end_ = nullptr;
  std::size_t line_fields_ = 0;
  bool is_long_ = false;  // the line at work has more fields than the limit
  std::size_t fields_ = 0;
  std::vector<std::uint32_t> ends_;
  std::vector<std::uint32_t> counts_;  // fields of each finished line of the chunk
  std::vector<const char*> starts_;    // of these lines, and of the one at work
};

LoadedText::LoadedText(FileBytes bytes, std::size_t row_limit, std::size_t column_limit, const Progress& progress)
    : bytes_(std::move(bytes)), column_limit_(column_limit) {
  std::size_t lines = kMostChunkLines;
  while (lines > 1 &&
         (std::min<std::size_t>(column_limit, 1024) + 1) * lines * sizeof(std::uint32_t) > kChunkIndexSize) {
    lines /= 2;
  }
  line_bits_ = static_cast<std::size_t>(std::countr_zero(lines));
  if (bytes_.size() > 0 && row_limit > 0) Splitter(*this, row_limit, progress).Run();
}

std::size_t LoadedText::Bytes() const {
  std::size_t bytes = bytes_.size();
  for (const Chunk& chunk : chunks_) bytes += sizeof chunk + chunk.IndexBytes();
  return bytes;
}

std::size_t LoadedText::Chunk::IndexBytes() const {
  return (ends ? (fields + 1) * stride : line_ends.capacity()) * sizeof(std::uint32_t) +
         lines.capacity() * sizeof(Line);
}

std::optional<std::string_view> LoadedText::Field(std::size_t row, std::size_t column) const {
  if (row < leading_rows_ || row - leading_rows_ >= row_count_ || column == 0 || column > column_limit_)
    return std::nullopt;
  row -= leading_rows_;
  const Chunk& chunk = chunks_[row >> line_bits_];
  const std::size_t line = row & ((std::size_t{1} << line_bits_) - 1);
  if (!chunk.ends) return chunk.FieldOfLine(chunk.lines[line], column);
  if (column > chunk.fields) return std::nullopt;
  const std::uint32_t* before = chunk.ends.get() + (column - 1) * chunk.stride + line;
  const std::uint32_t end = before[chunk.stride];
  if (end == 0) return std::nullopt;
  return std::string_view(chunk.base + *before + 1, end - *before - 1);
}

std::optional<std::string_view> LoadedText::Chunk::FieldOfLine(const Line& line, std::size_t column) const {
  if (column > line.fields) return std::nullopt;
  if (line.text.size() > std::numeric_limits<std::uint32_t>::max()) return ScanField(line.text, column);
  const std::uint32_t* end = line_ends.data() + line.first_end + (column - 1);
  const std::size_t start = column == 1 ? 0 : std::size_t{end[-1]} + 1;
  return line.text.substr(start, *end - start);
}

std::optional<std::string_view> LoadedText::LeadingFields(std::size_t row, std::size_t column_count) const {
  const auto last = Field(row, column_count);
  const auto first = Field(row, 1);
  if (!first || !last) return std::nullopt;
  return std::string_view(first->data(), static_cast<std::size_t>(last->data() + last->size() - first->data()));
}

}  // namespace tessara
