#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Scripts and their lines: how a file of commands becomes words.

namespace tessara {

// The words of a line, split at blanks. A quoted stretch may stand anywhere in a word and keeps its blanks; "" inside
// it is a quote. Nothing when a quote is left open.
std::optional<std::vector<std::string>> SplitWords(std::string_view line);

// Whether the line says nothing: it is empty, holds blanks alone, or its first character that is no blank is "#".
bool IsSilentLine(std::string_view line);

// A script as UTF-8: without its byte-order mark, and converted when it is not well-formed UTF-8, which makes it a text
// of code page 1252.
std::string DecodeScript(std::string content);

// The lines of a script one after the other, without their ends (LF or CR LF). A last line needs no end.
class ScriptLines {
 public:
  explicit ScriptLines(std::string_view text) : rest_(text) {}

  std::optional<std::string_view> Next();
  // The number of the line that Next yielded last, from 1.
  std::size_t number() const { return number_; }

 private:
  std::string_view rest_;
  std::size_t number_ = 0;
};

// A word as the data set holds text: bytes of the code page. A word that is not UTF-8 stands as it is.
std::string HeldText(std::string_view word);

// A text as a text box holds it: every line end is CR LF.
std::string WithBoxLineEnds(std::string_view text);

// Whether a word can name a file at all: it is not empty and holds no zero byte.
bool IsPossiblePath(std::string_view word);

// A word as a message quotes it: in UTF-8, and not longer than a line.
std::string Quoted(std::string_view word);

}  // namespace tessara
