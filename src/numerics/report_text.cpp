#include "numerics/report_text.h"

#include <algorithm>
#include <optional>

#include "numerics/masks.h"
#include "numerics/number_text.h"

namespace tessara {
namespace {

std::string_view MaskOf(int decimals) {
  switch (decimals) {
    case 1:
      return "0.0";
    case 2:
      return "0.00";
    case 3:
      return "0.000";
    case 4:
      return "0.0000";
    case 5:
      return "0.00000";
    default:
      return "";
  }
}

// The text by way of single precision; nothing for a value that is not numeric or has no single.
std::optional<std::string> ShortenedText(const TaggedView& value) {
  const Checked number = ToNumber(value);
  return number.failed() ? std::nullopt : SingleText(number.value());
}

// How many blanks fill a text up to a width; none when it is longer.
std::size_t PadLength(std::string_view text, int width) {
  const std::size_t columns = static_cast<std::size_t>(std::max(width, 0));
  return columns > text.size() ? columns - text.size() : 0;
}

std::string_view CutTo(std::string_view text, int width) {
  return text.substr(0, static_cast<std::size_t>(std::max(width, 0)));
}

}  // namespace

std::string FormatCol(const TaggedView& value, int width, int decimals) {
  constexpr std::size_t kLongestText = 15;

  std::string text = MaskedValue(value, MaskOf(decimals));
  if (text.size() > kLongestText) Keep(text, ShortenedText(value));
  const bool too_wide = width < 0 || text.size() > static_cast<std::size_t>(width);
  text.insert(0, too_wide ? 2 : PadLength(text, width), ' ');
  return text;
}

std::string FormatCol(const Number& value, int width, int decimals) {
  return FormatCol(TaggedView(value.value()), width, decimals);
}

std::string FormatCol(double value, int width, int decimals) { return FormatCol(Number(value), width, decimals); }

std::string PadRight(const TaggedView& value, int width) {
  NumberBuffer buffer;
  std::string text(CutTo(TextOf(value, buffer), width));
  text.append(PadLength(text, width), ' ');
  return text;
}

std::string PadLeftBlank(const TaggedView& value, int width) {
  NumberBuffer buffer;
  const std::string_view text = CutTo(TextOf(value, buffer), width);
  std::string column(PadLength(text, width), ' ');
  column += text;
  column += ' ';
  return column;
}

std::string DashedRule(int length) { return std::string(PadLength("", length), '-'); }

std::string Blanks(int count) { return std::string(PadLength("", count), ' '); }

std::string ReportHead(std::string_view title, std::string_view name, std::string_view label) {
  std::string head(title);
  head.append(kLineEnd).append("Variable: ").append(name).append("     ").append(label).append(kLineEnd);
  head.append(DashedRule()).append(kLineEnd);
  return head;
}

std::string ErrorFrame(std::string_view pending_text) {
  constexpr std::size_t kRuleLength = 77;

  std::string frame(kRuleLength, '*');
  frame.append("\r\n\r\n");
  frame.append(Blanks(30)).append("-- Error --\r\n\r\n\r\n");
  frame.append(pending_text).append("\r\n\r\n");
  frame.append(kRuleLength, '*').append("\r\n\r\n");
  return frame;
}

std::string ErrorMessage(std::string_view title, std::string_view variable_name, std::string_view sentence) {
  std::string message(title);
  message.append(variable_name).append("\r\n\r\n").append(sentence).append("\r\n\r\n");
  return message;
}

}  // namespace tessara
