#include "shell/toolbar_style.h"

#include "shell/settings.h"

namespace tessara {
namespace {

constexpr ToolbarStyle kStyles[] = {
    {"Office 2003", 2, 2}, {"Office 2000", 0, 1},  // bars and headings differ on purpose
    {"Office XP", 1, 0},   {"Native Windows XP", 3, 4}, {"Whidbey", 4, 4},
};
static_assert(std::size(kStyles) == kToolbarStyles);

}  // namespace

std::span<const ToolbarStyle> ToolbarStyles() { return kStyles; }

}  // namespace tessara
