#pragma once

#include <string_view>

#include "batch/commands/command.h"

namespace tessara {

// Opens a data file as the open dialog does.
CommandResult OpenPath(Batch& batch, std::string_view utf8_path);

}  // namespace tessara
