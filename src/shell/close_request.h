#pragma once

#include "shell/session.h"

namespace tessara {

// The close request: a question about the data that were changed, and one about the output. True when the close goes
// on; only then is cleared what a No gives up.
bool RequestClose(Session& session);

}  // namespace tessara
