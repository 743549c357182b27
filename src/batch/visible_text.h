#pragma once

#include <string>
#include <string_view>

// Texts for the outside. What the product holds is code page 1252 with CR LF; a terminal gets UTF-8 with LF, and
// nothing out of a file that it would obey.

namespace tessara {

// A held text for the outside: UTF-8, CR LF as LF.
std::string TerminalText(std::string_view held_text);

// A UTF-8 text with a visible stand-in for each control character but tab and line feed, so that names and values out
// of a file cannot move the cursor, change colours or write to a terminal's clipboard. Each stand-in is one column
// wide, like the character that a table has counted. What is not UTF-8 is taken for code page 1252.
std::string WithVisibleControls(std::string_view text);

}  // namespace tessara
