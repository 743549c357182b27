#include <csignal>
#include <cstdio>
#include <string>
#include <vector>

#include "batch/batch.h"

int main(int argc, char** argv) {
#if defined(SIGPIPE)
  std::signal(SIGPIPE, SIG_IGN);  // a reader that goes away ends the printing, not the program
#endif
  const std::vector<std::string> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
  return tessara::RunBatch(arguments, {stdin, stdout, stderr});
}
