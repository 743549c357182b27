#include "procedures/samples/sample_panel.h"

#include <algorithm>

#include "numerics/number_text.h"

namespace tessara {

std::optional<std::size_t> SizeOfBox(std::string_view text) {
  constexpr double kMost = 9007199254740992.0;  // beyond it a double cannot count
  const auto number = ParseNumber(text);
  if (!number) return std::nullopt;
  const double whole = RoundHalfEven(*number);
  if (whole < 1) return std::nullopt;
  return static_cast<std::size_t>(std::min(whole, kMost));
}

}  // namespace tessara
