#pragma once

#include <string>

#include "batch/commands/command.h"

namespace tessara {

std::string VersionText();
// The page of the program: its command line, its options and its commands.
std::string ProgramHelp();
// The page of one command, with an example.
std::string CommandHelp(const CommandRow& command);

}  // namespace tessara
