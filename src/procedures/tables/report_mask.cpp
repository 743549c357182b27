#include "procedures/tables/report_mask.h"

#include <algorithm>
#include <array>

namespace tessara {
namespace {

constexpr std::array<std::string_view, 5> kPercentMasks = {"0.0%", "0.00%", "0.000%", "0.0000%", "0%"};
constexpr std::array<std::string_view, 5> kOtherMasks = {"0.0", "0.00", "0.000", "0.0000", "0"};

}  // namespace

std::string_view ReportMask(std::size_t index, MaskKind kind) {
  const auto& masks = kind == MaskKind::kPercent ? kPercentMasks : kOtherMasks;
  return masks[std::min(index, masks.size() - 1)];
}

std::size_t OutputFormatIndex(std::string_view output_format) {
  const auto found = std::ranges::find(kOtherMasks, output_format);
  return found == kOtherMasks.end() ? 0 : static_cast<std::size_t>(found - kOtherMasks.begin());
}

}  // namespace tessara
