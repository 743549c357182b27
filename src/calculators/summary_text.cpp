#include "calculators/summary_text.h"

#include <algorithm>

#include "numerics/masks.h"
#include "numerics/number_text.h"
#include "numerics/report_text.h"

namespace tessara {
namespace {

constexpr std::size_t kLabelWidth = 9;
constexpr int kNarrativeRule = 54;

}  // namespace

std::string Text(const Number& number) { return GeneralText(number.value()); }
std::string Text(Checked number, std::string_view mask) { return MaskedNumber(number.value_or(0), mask); }

std::string WithoutCommas(std::string_view text) {
  std::string kept(text);
  std::erase(kept, ',');
  return kept;
}

std::string SampleLabel(std::string_view text) {
  std::string label(text);
  std::erase_if(label, [](char c) { return c == '\r' || c == '\n'; });
  label.resize(std::min(label.size(), kLabelWidth));
  label.insert(0, kLabelWidth - label.size(), ' ');
  return label;
}

std::string DifferenceNarrative(std::string_view title, std::string_view p_text, std::string_view closing) {
  std::string narrative(title);
  narrative.append("\r\n\r\n");
  narrative.append("Based on a benchmark of .05 alpha, the estimated p-value of ").append(p_text).append(" suggests");
  narrative.append(ToNumber(p_text) > 0.05 ? " there is not a statistically significant difference"
                                           : " there is a statistically significant difference");
  narrative.append(closing);
  return narrative;
}

std::optional<std::string> JoinedNarratives(const std::optional<std::string>& first,
                                            const std::optional<std::string>& second) {
  if (!first || !second) return first ? first : second;
  return *first + "\r\n\r\n\r\n" + DashedRule(kNarrativeRule) + "\r\n\r\n\r\n" + *second;
}

}  // namespace tessara
