#pragma once

#include <string>
#include <string_view>

// Bytes of the code page as the text of XML files. Every byte comes through: what XML has no way to hold, the control
// characters but for tab and line ends, becomes "?".

namespace tessara {

// UTF-8 without what XML forbids; nothing is escaped yet.
std::string PlainUtf8(std::string_view bytes);

// The same, escaped for the content of an element and for a value in double quotes, at the end of `xml`.
void AppendXmlText(std::string_view bytes, std::string& xml);
std::string XmlText(std::string_view bytes);

}  // namespace tessara
