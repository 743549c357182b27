#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "platform/files.h"

// The lines of a delimited text, as an import takes them. They end in LF or CR LF; there is no quoting.

namespace tessara {

// Trims the text, makes each run of 10 blanks one blank, then each of 5, 4, 3 and 2, one pass each, and takes a blank
// ahead of a CR LF away. A very long run still leaves two blanks.
std::string SquashBlanks(std::string_view text);

// How often the delimiter stands in a line; no two of them overlap.
std::size_t CountDelimiters(std::string_view line, std::string_view delimiter);

// The first line, without its end.
std::string_view FirstTextLine(std::string_view text);

// A line end behind the last line opens no further line.
std::size_t CountTextLines(std::string_view text);

// Converts UTF-8 to the code page in place, under the rule for text files (FromTextFile).
void ConvertTextFile(FileBytes& text);

// Called now and then with the number of bytes cleaned since the last time.
using CleaningProgress = std::function<void(std::size_t bytes)>;

// Brings each line into the form that is split, in place: trims it; takes all commas out, unless they are the
// delimiter; squashes blanks, if a blank is the delimiter; takes every "$" and "%" out; and puts the separator of data
// files where the delimiter stood. A separator that stood in the text becomes a blank first, unless it is the
// delimiter. There are as many lines as before, and an empty delimiter splits none of them.
void CleanLines(FileBytes& text, std::string_view delimiter, const CleaningProgress& progress = {});

}  // namespace tessara
