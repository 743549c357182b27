#include "presentation/office/xml_text.h"

#include <algorithm>
#include <cstddef>

#include "numerics/code_page.h"

namespace tessara {
namespace {

constexpr unsigned char kFirstPrintable = ' ';
constexpr unsigned char kFirstBeyondAscii = 0x80;

unsigned char Byte(char c) { return static_cast<unsigned char>(c); }

bool IsForbidden(char c) { return Byte(c) < kFirstPrintable && c != '\t' && c != '\n' && c != '\r'; }

std::string_view EscapeOf(char c) {
  switch (c) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':  // also of "]]>", which ends nothing then
      return "&gt;";
    case '"':
      return "&quot;";
    case '\t':  // a reader takes these three for blanks where they stand in a value
      return "&#9;";
    case '\n':
      return "&#10;";
    case '\r':
      return "&#13;";
    default:
      return {};
  }
}

// Neither to be converted nor to be escaped.
bool IsPlain(char c) {
  return Byte(c) >= kFirstPrintable && Byte(c) < kFirstBeyondAscii && c != '&' && c != '<' && c != '>' && c != '"';
}

}  // namespace

std::string PlainUtf8(std::string_view bytes) {
  std::string text = ToUtf8(bytes);
  std::ranges::replace_if(text, IsForbidden, '?');
  return text;
}

void AppendXmlText(std::string_view bytes, std::string& xml) {
  for (std::size_t at = 0; at < bytes.size();) {
    const std::size_t plain = at;
    while (at < bytes.size() && IsPlain(bytes[at])) ++at;
    xml.append(bytes.substr(plain, at - plain));
    if (at == bytes.size()) return;
    const char c = bytes[at];
    if (const std::string_view escape = EscapeOf(c); !escape.empty()) {
      xml.append(escape);
    } else if (IsForbidden(c)) {
      xml += '?';
    } else {
      xml.append(ToUtf8(bytes.substr(at, 1)));
    }
    ++at;
  }
}

std::string XmlText(std::string_view bytes) {
  std::string xml;
  AppendXmlText(bytes, xml);
  return xml;
}

}  // namespace tessara
