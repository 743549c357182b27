#include <csignal>
#include <cstdio>
#include <string>
#include <vector>

#include "batch/batch.h"
#include "platform/temporary_files.h"

#if !defined(_WIN32)
#include <fcntl.h>
#include <unistd.h>
#endif

namespace {

// A stream that the caller has closed stays unusable: its number must not go to the first file that a command opens,
// which would then get the log.
void HoldClosedStreams() {
#if !defined(_WIN32)
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (::fcntl(stream, F_GETFD) >= 0) continue;
    if (::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY) != stream) return;
  }
#endif
}

}  // namespace

int main(int argc, char** argv) {
#if defined(SIGPIPE)
  std::signal(SIGPIPE, SIG_IGN);  // a reader that goes away ends the printing, not the program
#endif
  HoldClosedStreams();
  tessara::RemoveTemporariesOnSignals();
  const std::vector<std::string> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
  return tessara::RunBatch(arguments, {stdin, stdout, stderr});
}
