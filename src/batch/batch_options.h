#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "batch/commands/command.h"
#include "batch/words/command_words.h"

// The command line of the batch program: options, a data file, a command with its words.

namespace tessara {

std::span<const OptionRow> ProgramOptions();

struct BatchOptions {
  std::optional<std::string> script;  // "-" is standard input
  std::optional<std::string> output;
  std::optional<std::uint64_t> seed;
  bool bytes = false;
  bool overwrite = false;  // outputs may replace files of the run, and files that are no data files
  bool version = false;
  bool man = false;
  bool completion = false;
  bool help = false;
  const CommandRow* help_command = nullptr;  // nothing: the page of the program

  std::optional<std::string> data_file;
  const CommandRow* command = nullptr;
  CommandWords words;  // of the command

  std::string error;  // what could not be understood; empty when all is well
};

// The program's own options may stand ahead of the data file, behind it and among the words of the command. The first
// word that is no option is a command when a command has that name, else a data file.
BatchOptions ReadCommandLine(std::span<const std::string> arguments);

}  // namespace tessara
