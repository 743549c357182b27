#pragma once

#include <string>

namespace tessara {

// A script for bash that completes the program's options, commands and file names, and behind a command its options.
std::string CompletionScript();

}  // namespace tessara
