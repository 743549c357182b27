#pragma once

#include <cstdio>
#include <span>
#include <string>

// The batch program as a routine, so that tests can run it in their own process.

namespace tessara {

struct BatchStreams {
  std::FILE* in = nullptr;
  std::FILE* out = nullptr;
  std::FILE* err = nullptr;
};

// Runs the program with the words behind its name and yields the exit status: 0 all well, 1 some command was refused, 2
// something could not be understood or opened.
int RunBatch(std::span<const std::string> arguments, const BatchStreams& streams);

}  // namespace tessara
