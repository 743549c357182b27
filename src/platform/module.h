#pragma once

#include "platform/platform.h"

// A shared library that is loaded only when it is needed, so that a program that rarely needs it starts at once.

namespace tessara {

// The address of a routine of a module that stands beside the executable, "tessara-print" for example (prefix and
// ending are the system's); nullptr when the module or the routine is not there. A module stays loaded.
void* FindModuleRoutine(const char* module_name, const char* routine_name);

}  // namespace tessara
