#pragma once

#include <string>

namespace tessara {

// The manual page of the program as a source of man, made from the rows of its options and commands.
std::string ManualPage();

}  // namespace tessara
