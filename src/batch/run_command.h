#pragma once

#include <span>
#include <string>

#include "batch/commands/command.h"

// Runs commands: the one place through which every line of a script and the command of the command line go.

namespace tessara {

// Runs a line: the name of a command and its words.
CommandResult RunCommand(Batch& batch, std::span<const std::string> line);
// Runs a command whose words have been told apart, and prints what the log has gained. The status counts the boxes that
// it showed. A command that the memory does not suffice for is not understood: everything that it had not yet done
// stays undone.
CommandResult RunCommand(Batch& batch, const CommandRow& command, const CommandWords& words);

}  // namespace tessara
