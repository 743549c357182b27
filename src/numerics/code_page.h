#pragma once

#include <string>
#include <string_view>

// The store and the reports hold bytes of code page Windows-1252; the outside speaks UTF-8. These routines convert at
// the edge and are not called deeper.

namespace tessara {

// Bytes of the code page as UTF-8. The five bytes that the code page leaves unassigned (81, 8D, 8F, 90, 9D) become the
// control characters of the same number, so that every byte survives the way there and back.
std::string ToUtf8(std::string_view bytes);

// UTF-8 as bytes of the code page. A character that the code page lacks becomes "?"; a malformed sequence becomes one
// "?".
std::string FromUtf8(std::string_view utf8);

// Whether the text is well-formed UTF-8 throughout (no overlong forms, no surrogates, nothing above U+10FFFF).
bool IsUtf8(std::string_view text);

// A text file on its way in: with a UTF-8 byte-order mark, or with a byte above 127 and well-formed UTF-8 throughout,
// it is converted (and the mark dropped); otherwise it is taken byte for byte.
std::string FromTextFile(std::string_view content);

}  // namespace tessara
