#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/path.h"

// A list of paths as one text of plain ASCII, for a store of settings that may keep neither other bytes nor line ends.
// A path is any bytes: those outside the visible ASCII characters, and "%", stand as "%" and two hexadecimal digits.

namespace tessara {

// One path a line.
std::string PathListText(const std::vector<Path>& paths);
// Lines that no such text holds are taken as they stand.
std::vector<Path> PathsOfList(std::string_view text);

}  // namespace tessara
