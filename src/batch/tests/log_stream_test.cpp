#include "batch/log_stream.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <string>

#include "batch/batch.h"

// Standard output as it can be: a terminal, a full device, a pipe whose reader has gone.

namespace tessara {
namespace {

std::string Content(std::FILE* file) {
  std::string text;
  std::rewind(file);
  for (int c = 0; (c = std::fgetc(file)) != EOF;) text.push_back(static_cast<char>(c));
  std::fclose(file);
  return text;
}

// A terminal without a screen, in the form that sends line ends as they are.
class Terminal {
 public:
  Terminal() : master_(posix_openpt(O_RDWR | O_NOCTTY)) {
    if (grantpt(master_) != 0 || unlockpt(master_) != 0) ADD_FAILURE() << "there is no terminal";
    const int slave = open(ptsname(master_), O_RDWR | O_NOCTTY);
    termios mode{};
    tcgetattr(slave, &mode);
    cfmakeraw(&mode);
    tcsetattr(slave, TCSANOW, &mode);
    file = fdopen(slave, "w");
  }
  ~Terminal() {
    std::fclose(file);
    close(master_);
  }
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;

  // What has been sent: it may come in pieces.
  std::string Sent() {
    constexpr int kPatience = 200;  // milliseconds
    std::string sent;
    std::array<char, 1024> buffer;
    pollfd ready{master_, POLLIN, 0};
    while (poll(&ready, 1, kPatience) > 0) {
      const auto count = read(master_, buffer.data(), buffer.size());
      if (count <= 0) break;
      sent.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return sent;
  }

  std::FILE* file = nullptr;

 private:
  int master_;
};

// A pipe that nobody reads.
std::FILE* BrokenPipe() {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) return nullptr;
  close(ends[0]);
  return fdopen(ends[1], "w");
}

class PipeSignalOff {
 public:
  PipeSignalOff() : earlier_(std::signal(SIGPIPE, SIG_IGN)) {}
  ~PipeSignalOff() { std::signal(SIGPIPE, earlier_); }

 private:
  void (*earlier_)(int);
};

TEST(LogStream, ATerminalIsShownControlCharactersAndAFileGetsThem) {
  constexpr const char* kHeld = "Red\x1B[31m\r\n\tK\xF6ln\x07\r\n";
  Terminal terminal;
  LogStream(terminal.file, stderr).PrintText(kHeld);
  EXPECT_EQ(terminal.Sent(), "Red\xE2\x90\x9B[31m\n\tK\xC3\xB6ln\xE2\x90\x87\n");

  std::FILE* file = std::tmpfile();
  LogStream(file, stderr).PrintText(kHeld);
  EXPECT_EQ(Content(file), "Red\x1B[31m\n\tK\xC3\xB6ln\x07\n");
}

TEST(LogStream, BytesAreExactOnATerminalToo) {
  Terminal terminal;
  LogStream stream(terminal.file, stderr);
  stream.SetForm(LogForm::kBytes);
  stream.PrintText("\x1B[1m\r\n");
  EXPECT_EQ(terminal.Sent(), "\x1B[1m\r\n");
}

TEST(LogStream, MessagesShowControlCharactersEverywhere) {
  std::FILE* out = std::tmpfile();
  std::FILE* err = std::tmpfile();
  LogStream(out, err).PrintMessage("unknown variable \"\x1B]0;title\x07\"\tx");
  EXPECT_EQ(Content(err), "unknown variable \"\xE2\x90\x9B]0;title\xE2\x90\x87\"\tx\n");
  EXPECT_EQ(Content(out), "");
}

// A line end that lies across two pieces of the conversion stays one.
TEST(LogStream, ALongTextIsOneText) {
  for (const std::size_t length : {65534u, 65535u, 65536u, 65537u, 131071u}) {
    std::FILE* file = std::tmpfile();
    const std::string text(length, 'x');
    LogStream(file, stderr).PrintText(text + "\r\nK\xF6ln\r\n");
    EXPECT_EQ(Content(file), text + "\nK\xC3\xB6ln\n") << length;
  }
}

TEST(LogStream, PrintsWhatTheLogHasGained) {
  std::FILE* file = std::tmpfile();
  OutputLog log;
  LogStream stream(file, stderr);
  stream.Follow(&log);
  log.OutputLogText = "one\r\n";
  stream.PrintNews();
  stream.PrintNews();
  log.OutputLogText += "two\r\n";
  stream.PrintText("between\r\n");
  log.OutputLogText = "new\r\n";  // shorter: the log has been replaced
  stream.PrintNews();
  EXPECT_EQ(Content(file), "one\ntwo\nbetween\nnew\n");
}

TEST(LogStream, AFullDeviceIsAFailure) {
  std::FILE* full = std::fopen("/dev/full", "w");
  ASSERT_NE(full, nullptr);
  LogStream stream(full, stderr);
  stream.PrintText("");
  EXPECT_FALSE(stream.write_failed());
  stream.PrintText("x");
  EXPECT_TRUE(stream.write_failed());
  std::fclose(full);
}

TEST(LogStream, AReaderThatHasGoneIsNone) {
  const PipeSignalOff off;
  std::FILE* pipe = BrokenPipe();
  ASSERT_NE(pipe, nullptr);
  LogStream stream(pipe, stderr);
  stream.PrintText("x");
  stream.PrintText("y");
  EXPECT_FALSE(stream.write_failed());
  std::fclose(pipe);
}

// More than a buffer: the failure shows in the writing, not in the flushing.
TEST(LogStream, BothAreToldApartInALongTextToo) {
  const PipeSignalOff off;
  const std::string text(1 << 20, 'x');
  std::FILE* full = std::fopen("/dev/full", "w");
  std::FILE* pipe = BrokenPipe();
  LogStream to_full(full, stderr);
  LogStream to_pipe(pipe, stderr);
  to_full.PrintText(text);
  to_pipe.PrintText(text);
  EXPECT_TRUE(to_full.write_failed());
  EXPECT_FALSE(to_pipe.write_failed());
  std::fclose(full);
  std::fclose(pipe);
}

struct Outcome {
  int status = 0;
  std::string err;
};

Outcome RunInto(std::FILE* out, const std::vector<std::string>& words) {
  std::FILE* err = std::tmpfile();
  const int status = RunBatch(words, {stdin, out, err});
  return {status, Content(err)};
}

TEST(StandardOutput, ThatIsFullIsStatusTwo) {
  std::FILE* full = std::fopen("/dev/full", "w");
  for (const char* word : {"--version", "--help", "--man", "--completion", "statistics"}) {
    const Outcome outcome = RunInto(full, {word});
    EXPECT_EQ(outcome.status, 2) << word;
    EXPECT_EQ(outcome.err, "tessara-cli: standard output cannot be written\n") << word;
  }
  std::fclose(full);
}

TEST(StandardOutput, WhoseReaderHasGoneIsStatusZero) {
  const PipeSignalOff off;
  std::FILE* pipe = BrokenPipe();
  for (const char* word : {"--version", "statistics"}) {
    const Outcome outcome = RunInto(pipe, {word});
    EXPECT_EQ(outcome.status, 0) << word;
    EXPECT_EQ(outcome.err, "") << word;
  }
  std::fclose(pipe);
}

// The status tells what the message cannot.
TEST(StandardError, ThatIsFullChangesNoStatus) {
  std::FILE* out = std::tmpfile();
  std::FILE* full = std::fopen("/dev/full", "w");
  EXPECT_EQ(RunBatch(std::vector<std::string>{"nonsense"}, {stdin, out, full}), 2);
  EXPECT_EQ(RunBatch(std::vector<std::string>{"control", "V1", "--gt", "x"}, {stdin, out, full}), 1);
  EXPECT_EQ(RunBatch(std::vector<std::string>{"new"}, {stdin, out, full}), 0);
  std::fclose(full);
  EXPECT_EQ(Content(out), "");
}

}  // namespace
}  // namespace tessara
