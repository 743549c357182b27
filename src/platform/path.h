#pragma once

#include <filesystem>

namespace tessara {

// A path as the operating system has it.
using Path = std::filesystem::path;

}  // namespace tessara
