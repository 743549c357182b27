#include "batch/run_command.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <new>
#include <string>
#include <vector>

#include "batch/commands/commands.h"
#include "presentation/output_log.h"

namespace tessara {
namespace {

std::string Content(std::FILE* file) {
  std::string text;
  std::rewind(file);
  for (int c = 0; (c = std::fgetc(file)) != EOF;) text.push_back(static_cast<char>(c));
  return text;
}

class RunCommandTest : public testing::Test {
 protected:
  ~RunCommandTest() override {
    std::fclose(out_);
    std::fclose(err_);
  }

  CommandResult RunLine(const std::vector<std::string>& line) { return RunCommand(batch_, line); }

  std::FILE* out_ = std::tmpfile();
  std::FILE* err_ = std::tmpfile();
  LogStream stream_{out_, err_};
  Batch batch_{stream_, std::nullopt};
};

CommandResult ReportAndRunOutOfMemory(Batch& batch, const CommandWords&) {
  AppendReport(batch.session.output, "so far\r\n");
  throw std::bad_alloc();
}

constexpr CommandRow kHungry{
    .name = "hungry",
    .summary = "",
    .details = "",
    .example = "",
    .run = ReportAndRunOutOfMemory,
};

TEST_F(RunCommandTest, WithoutMemoryItIsNotUnderstoodAndTheLogStays) {
  stream_.Follow(&batch_.session.output);
  const CommandResult result = RunCommand(batch_, kHungry, {});
  EXPECT_EQ(result.status, BatchStatus::kNotUnderstood);
  EXPECT_EQ(result.error, "out of memory");
  stream_.PrintNews();
  EXPECT_TRUE(Content(out_).starts_with("so far\n"));
  // The run can go on; whether it does is decided by its caller.
  EXPECT_EQ(RunLine({"statistics"}).status, BatchStatus::kAllWell);
}

CommandResult AskForTooMuch(Batch&, const CommandWords&) {
  std::string text;
  text.reserve(text.max_size() + 1);
  return Done();
}

constexpr CommandRow kGreedy{.name = "greedy", .summary = "", .details = "", .example = "", .run = AskForTooMuch};

TEST_F(RunCommandTest, WhatNoMemoryCanHoldIsOutOfMemoryToo) {
  EXPECT_EQ(RunCommand(batch_, kGreedy, {}).error, "out of memory");
}

TEST_F(RunCommandTest, NamesTheCommandInWhatIsWrong) {
  EXPECT_EQ(RunLine({"open"}).error, "open: PATH is missing");
  EXPECT_EQ(RunLine({"new", "x"}).error, "new: \"x\" is a word too many");
  EXPECT_EQ(RunLine({"list", "A", "--max"}).error, "list: --max needs a value");
  EXPECT_EQ(RunLine({"list", "A"}).error, "list: unknown variable \"A\"");
  EXPECT_EQ(RunLine({"nonsense"}).status, BatchStatus::kNotUnderstood);
}

CommandResult TellANote(Batch& batch, const CommandWords&) {
  batch.platform.ShowNote("the file has 2 records,\r\nits first line says \x80 3\x1B");
  return Done();
}

constexpr CommandRow kTelling{.name = "telling", .summary = "", .details = "", .example = "", .run = TellANote};

TEST_F(RunCommandTest, ANoteGoesToStandardErrorAndChangesNoStatus) {
  EXPECT_EQ(RunCommand(batch_, kTelling, {}).status, BatchStatus::kAllWell);
  EXPECT_EQ(Content(err_),
            "tessara-cli: note: the file has 2 records,\nits first line says \xE2\x82\xAC 3\xE2\x90\x9B\n");
  EXPECT_EQ(Content(out_), "");
}

TEST_F(RunCommandTest, ARefusalDoesNotStickToTheNextCommand) {
  EXPECT_EQ(RunLine({"control", "V1", "--gt", "x"}).status, BatchStatus::kRefused);
  EXPECT_EQ(Content(err_), "Warning: Only numerical entries are allowed.\n");
  EXPECT_EQ(RunLine({"new"}).status, BatchStatus::kAllWell);
}

}  // namespace
}  // namespace tessara
