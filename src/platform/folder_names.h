#pragma once

#include <optional>
#include <vector>

#include "platform/path.h"

namespace tessara {

// The names in a folder, its own and its parent's left out. Nothing when it cannot be read. (The standard's iterator
// would end the program where the memory does not suffice.)
std::optional<std::vector<Path>> NamesInFolder(const Path& folder);

}  // namespace tessara
