#include "data/exchange/delimited_lines.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "data/exchange/cleaning_scan.h"
#include "data/field_ends.h"
#include "numerics/code_page.h"

namespace tessara {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t kPiece = std::size_t{1} << 16;  // bytes worked on at a time: they stay in the cache

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// What the passes for runs of 10, 5, 4, 3 and 2 blanks leave of a run.
std::size_t BlanksLeft(std::size_t run) {
  for (const std::size_t pass : {10u, 5u, 4u, 3u, 2u}) run = run / pass + run % pass;
  return run;
}

// Squashes a text without a look at its ends.
void SquashRuns(std::string& text) {
  std::size_t to = 0;
  for (std::size_t from = 0; from < text.size();) {
    if (text[from] != ' ') {
      text[to++] = text[from++];
      continue;
    }
    const std::size_t end = std::min(text.find_first_not_of(' ', from), text.size());
    for (std::size_t left = BlanksLeft(end - from); left > 0; --left) text[to++] = ' ';
    from = end;
  }
  text.resize(to);
}

bool HasHighBytes(std::string_view text) {
  unsigned char high = 0;
  for (const char c : text) high |= static_cast<unsigned char>(c);
  return high >= 0x80;
}

// The end of a piece of UTF-8: ahead of a byte that goes on in no character, so that the pieces convert one by one.
std::size_t EndOfPiece(std::string_view text, std::size_t from) {
  std::size_t end = from + std::min(kPiece, text.size() - from);
  while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) ++end;
  return end;
}

// A delimiter as it stands in the lines: a separator that is not all of it has become a blank.
std::string DelimiterInLines(std::string_view delimiter) {
  std::string in_lines(delimiter);
  if (in_lines.size() > 1) std::replace(in_lines.begin(), in_lines.end(), kFieldSeparator, ' ');
  return in_lines;
}

class LineCleaner {
 public:
  LineCleaner(FileBytes& text, std::string_view delimiter)
      : text_(text),
        delimiter_(DelimiterInLines(delimiter)),
        removes_commas_(delimiter_ != ","),
        squashes_(delimiter_ == " "),
        clears_separators_(delimiter_ != std::string_view(&kFieldSeparator, 1)),
        out_(text.data()) {
    FillTables();
  }

  void Run(const CleaningProgress& progress) {
    char* const begin = text_.data();
    char* const end = begin + text_.size();
    for (char* in = begin; in < end;) {
      char* const next = EndOfLines(in, end);
      if (IsPlain(in, next)) {
        TakeAsTheyStand(in, next);
      } else {
        CleanEach(in, next);
      }
      if (progress) progress(static_cast<std::size_t>(next - in));
      in = next;
    }
    text_.Shorten(static_cast<std::size_t>(out_ - begin));
  }

 private:
  // The end of the line in which a piece ends.
  static char* EndOfLines(char* from, char* end) {
    if (static_cast<std::size_t>(end - from) <= kPiece) return end;
    void* const line_end = std::memchr(from + kPiece, '\n', static_cast<std::size_t>(end - from) - kPiece);
    return line_end ? static_cast<char*>(line_end) + 1 : end;
  }

  // Whether nothing is done to the lines but to tell their fields apart. May see more than there is, never less.
  bool IsPlain(const char* from, const char* end) const {
    if (delimiter_.size() != 1 || squashes_ || *from == ' ' || end[-1] == ' ') return false;
    if (delimiter_ == "\n" || delimiter_ == "\r") return false;  // no line end is one
    return !AnyIsCleaned(from, end, {removes_commas_ ? ',' : '$', clears_separators_ ? kFieldSeparator : '$'});
  }

  void TakeAsTheyStand(const char* from, const char* end) {
    const auto size = static_cast<std::size_t>(end - from);
    if (out_ != from) std::memmove(out_, from, size);
    ReplaceBytes(out_, out_ + size, delimiter_[0], kFieldSeparator);
    out_ += size;
  }

  void CleanEach(char* from, char* end) {
    if (clears_separators_) std::replace(from, end, kFieldSeparator, ' ');
    while (from < end) {
      auto* const line_end = static_cast<char*>(std::memchr(from, '\n', static_cast<std::size_t>(end - from)));
      if (!line_end) return TakeLast({from, static_cast<std::size_t>(end - from)});
      const bool has_return = line_end > from && line_end[-1] == '\r';
      const char* const line = out_;
      TakeCleaned({from, static_cast<std::size_t>(line_end - from) - (has_return ? 1 : 0)});
      // A CR that has come to the end belongs to the line: one more keeps it. There is room, what stood behind it has
      // gone.
      if (has_return || (out_ > line && out_[-1] == '\r')) *out_++ = '\r';
      *out_++ = '\n';
      from = line_end + 1;
    }
  }

  // A last line without a line end, which gets one when nothing else is left of it.
  void TakeLast(std::string_view line) {
    const char* const start = out_;
    TakeCleaned(line);
    if (out_ == start) *out_++ = '\n';
  }

  void TakeCleaned(std::string_view line) {
    line = Trimmed(line);
    if (delimiter_.size() != 1 || squashes_) return CleanInSteps(line);
    char* out = out_;  // in a register
    for (const char c : line) {
      const auto byte = static_cast<unsigned char>(c);
      *out = becomes_[byte];
      out += stays_[byte];
    }
    out_ = out;
  }

  // For a single character that is no blank all steps are one.
  void FillTables() {
    for (std::size_t byte = 0; byte < becomes_.size(); ++byte) {
      const char c = static_cast<char>(byte);
      stays_[byte] = c != '$' && c != '%' && !(removes_commas_ && c == ',');
      becomes_[byte] = delimiter_ == std::string_view(&c, 1) ? kFieldSeparator : c;
    }
  }

  void CleanInSteps(std::string_view line) {
    line_.assign(line);
    if (removes_commas_) std::erase(line_, ',');
    if (squashes_) {
      line_.assign(std::string(Trimmed(line_)));
      SquashRuns(line_);
    }
    std::erase_if(line_, [](char c) { return c == '$' || c == '%'; });
    MarkDelimiters();
    std::memcpy(out_, line_.data(), line_.size());
    out_ += line_.size();
  }

  void MarkDelimiters() {
    if (squashes_) std::replace(line_.begin(), line_.end(), ' ', kFieldSeparator);
    if (delimiter_.size() <= 1) return;
    std::size_t to = 0;
    for (std::size_t from = 0; from < line_.size();) {
      const std::size_t found = std::min(line_.find(delimiter_, from), line_.size());
      to = static_cast<std::size_t>(std::copy(line_.begin() + static_cast<std::ptrdiff_t>(from),
                                              line_.begin() + static_cast<std::ptrdiff_t>(found),
                                              line_.begin() + static_cast<std::ptrdiff_t>(to)) -
                                    line_.begin());
      if (found < line_.size()) line_[to++] = kFieldSeparator;
      from = found + delimiter_.size();
    }
    line_.resize(to);
  }

  FileBytes& text_;
  const std::string delimiter_;
  const bool removes_commas_;
  const bool squashes_;
  const bool clears_separators_;
  std::array<char, 256> becomes_{};
  std::array<unsigned char, 256> stays_{};
  char* out_;  // never ahead of what is read
  std::string line_;
};

}  // namespace

std::string SquashBlanks(std::string_view text) {
  std::string squashed(Trimmed(text));
  SquashRuns(squashed);
  std::size_t to = 0;
  for (std::size_t from = 0; from < squashed.size(); ++from) {
    if (squashed.compare(from, 3, " \r\n") != 0) squashed[to++] = squashed[from];
  }
  squashed.resize(to);
  return squashed;
}

std::size_t CountDelimiters(std::string_view line, std::string_view delimiter) {
  const std::string in_lines = DelimiterInLines(delimiter);
  if (in_lines.empty()) return 0;
  std::size_t count = 0;
  for (std::size_t at = 0; (at = line.find(in_lines, at)) != std::string_view::npos; at += in_lines.size()) ++count;
  return count;
}

std::string_view FirstTextLine(std::string_view text) {
  const std::size_t end = text.find('\n');
  std::string_view line = text.substr(0, end);
  if (end != std::string_view::npos && line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

std::size_t CountTextLines(std::string_view text) {
  std::size_t lines = text.empty() || text.ends_with('\n') ? 0 : 1;
  while (!text.empty()) {
    const std::string_view some = text.substr(0, 255);  // as many as a byte can count: the compiler takes them at once
    unsigned char found = 0;
    for (const char c : some) found = static_cast<unsigned char>(found + (c == '\n' ? 1 : 0));
    lines += found;
    text.remove_prefix(some.size());
  }
  return lines;
}

void ConvertTextFile(FileBytes& text) {
  const std::string_view whole = text.text();
  const bool has_mark = whole.starts_with(kByteOrderMark);
  if (!has_mark && (!HasHighBytes(whole) || !IsUtf8(whole))) return;
  char* out = text.data();
  for (std::size_t from = has_mark ? kByteOrderMark.size() : 0; from < whole.size();) {
    const std::size_t end = EndOfPiece(whole, from);
    const std::string piece = FromUtf8(whole.substr(from, end - from));  // never longer than it was
    std::memcpy(out, piece.data(), piece.size());
    out += piece.size();
    from = end;
  }
  text.Shorten(static_cast<std::size_t>(out - text.data()));
}

void CleanLines(FileBytes& text, std::string_view delimiter, const CleaningProgress& progress) {
  LineCleaner(text, delimiter).Run(progress);
}

}  // namespace tessara
