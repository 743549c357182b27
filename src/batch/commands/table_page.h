#pragma once

#include "batch/commands/command.h"

// "table page" and "table width": the summary table as it is printed.

namespace tessara {

CommandResult RunTablePage(Batch& batch, const CommandWords& words);
CommandResult RunTableWidth(Batch& batch, const CommandWords& words);

}  // namespace tessara
