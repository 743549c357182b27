#pragma once

#include <string_view>

#include "procedures/panel.h"

namespace tessara {

// What Text9 shows when a procedure is selected: an example of its report, and a paragraph that tells a student when to
// use it and how to read it. Lines end in LF. An empty text for kNone.
std::string_view ExampleOfOutput(Procedure procedure, RegressionKind kind);

}  // namespace tessara
