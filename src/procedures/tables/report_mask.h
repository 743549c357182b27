#pragma once

#include <cstddef>
#include <string_view>

// How a table writes its numbers.

namespace tessara {

enum class MaskKind { kPercent, kOther };

inline constexpr std::size_t kWholeNumbers = 4;  // the index of the format without decimals

// The mask of an output format: 0 to 3 stand for one to four decimals, 4 for whole numbers.
std::string_view ReportMask(std::size_t index, MaskKind kind);
// The index of the output format that the panel shows as such a text; the first one of a text that it does not show.
std::size_t OutputFormatIndex(std::string_view output_format);

}  // namespace tessara
