#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#if defined(__unix__)
#include <unistd.h>

#include <csignal>
#endif

#include "batch/batch.h"

// Where the texts of a run end up: a device without room, a reader that has gone, pages of several runs.

namespace tessara {
namespace {

std::string ContentOf(std::FILE* file) {
  std::string text;
  std::rewind(file);
  for (int c = 0; (c = std::fgetc(file)) != EOF;) text.push_back(static_cast<char>(c));
  return text;
}

struct Outcome {
  int status = 0;
  std::string err;
};

// Runs a script with its standard output going to `out`, which is closed.
Outcome RunInto(std::FILE* out, const std::string& script) {
  std::FILE* in = std::tmpfile();
  std::FILE* err = std::tmpfile();
  std::fwrite(script.data(), 1, script.size(), in);
  std::rewind(in);
  Outcome outcome;
  const std::vector<std::string> arguments{"-s", "-"};
  outcome.status = RunBatch(arguments, {in, out, err});
  outcome.err = ContentOf(err);
  for (std::FILE* file : {in, out, err}) std::fclose(file);
  return outcome;
}

#if defined(__linux__)
TEST(OutputStreams, ADeviceWithoutRoomIsToldOnce) {
  std::FILE* full = std::fopen("/dev/full", "w");
  ASSERT_NE(full, nullptr);
  const Outcome run = RunInto(full, "statistics\nstatistics\n");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "tessara-cli: standard output cannot be written\n");
}

// What is left in the buffer meets the device only when it is flushed.
TEST(OutputStreams, ADeviceWithoutRoomIsNoticedByAShortText) {
  std::FILE* full = std::fopen("/dev/full", "w");
  ASSERT_NE(full, nullptr);
  std::setvbuf(full, nullptr, _IOFBF, 1 << 20);
  EXPECT_EQ(RunInto(full, "statistics\n").status, 2);
}

// Without a buffer it is the writing itself that fails, and there is nothing left to flush.
TEST(OutputStreams, ADeviceWithoutRoomIsNoticedWithoutABuffer) {
  std::FILE* full = std::fopen("/dev/full", "w");
  ASSERT_NE(full, nullptr);
  std::setvbuf(full, nullptr, _IONBF, 0);
  EXPECT_EQ(RunInto(full, "statistics\n").status, 2);
}

// Nothing to write, nothing to complain about.
TEST(OutputStreams, ADeviceWithoutRoomDoesNotMatterToASilentRun) {
  std::FILE* full = std::fopen("/dev/full", "w");
  ASSERT_NE(full, nullptr);
  const Outcome run = RunInto(full, "control V1 --gt 5\n");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "");
}
#endif

#if defined(__unix__)
// Whoever closes a pipe has seen enough: no message, no error, and the script runs to its end.
TEST(OutputStreams, AReaderThatHasGoneIsNoError) {
  const auto before = std::signal(SIGPIPE, SIG_IGN);
  int ends[2] = {-1, -1};
  ASSERT_EQ(::pipe(ends), 0);
  ::close(ends[0]);
  const auto notes = std::filesystem::temp_directory_path() / "tessara-closed-pipe.dcs";
  std::filesystem::remove(notes);
  const Outcome run =
      RunInto(::fdopen(ends[1], "w"), "statistics\nstatistics\ncell 1 V2 5\nnotes seen\nsave " + notes.string() + "\n");
  std::signal(SIGPIPE, before);
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "");
  EXPECT_TRUE(std::filesystem::exists(notes));
  std::filesystem::remove(notes);
}
#endif

// What is printed is the log, and not the latest run alone: each run has a page.
TEST(OutputStreams, PrintWritesTheReportsOfEveryRun) {
  const auto folder = std::filesystem::temp_directory_path() / "tessara-print-runs";
  std::filesystem::create_directories(folder);
  const auto data = folder / "data.dcs";
  const auto pages = folder / "pages.txt";
  std::string text = "3 2 Tessara data\x01note\r\n";
  for (int row = 1; row < 15; ++row) text += "\x01\r\n";
  text +=
      "FIRST\x01SECOND\r\n1\x01"
      "5\r\n2\x01"
      "6\r\n2\x01"
      "7\r\n";
  std::ofstream(data, std::ios::binary) << text;
  const Outcome run =
      RunInto(std::tmpfile(),
              "open " + data.string() + "\nfrequencies FIRST\nfrequencies SECOND\nprint " + pages.string() + "\n");
  EXPECT_EQ(run.status, 0) << run.err;
  std::ostringstream written;
  written << std::ifstream(pages, std::ios::binary).rdbuf();
  const std::string printed = written.str();
  std::filesystem::remove_all(folder);
  const std::size_t feed = printed.find('\f');
  ASSERT_NE(feed, std::string::npos);
  EXPECT_EQ(printed.find('\f', feed + 1), std::string::npos);
  EXPECT_NE(printed.substr(0, feed).find("Variable: FIRST"), std::string::npos);
  EXPECT_NE(printed.substr(feed).find("Variable: SECOND"), std::string::npos);
}

}  // namespace
}  // namespace tessara
