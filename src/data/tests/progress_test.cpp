#include "data/progress.h"

#include <gtest/gtest.h>

#include "platform/scripted_platform.h"

namespace tessara {
namespace {

TEST(Progress, ASmallJobShowsNothing) {
  ScriptedPlatform platform;
  Progress progress(platform);
  progress.ProgressOpen(0, 999, "Working...", 19);
  EXPECT_TRUE(progress.ProgressOff());
  for (int step = 0; step < 999; ++step) progress.ProgressStep();
  EXPECT_TRUE(platform.progress.empty());
  EXPECT_EQ(progress.ProgressCount(), 0);
}

TEST(Progress, AThousandStepsAreShown) {
  ScriptedPlatform platform;
  Progress progress(platform);
  progress.ProgressOpen(0, 1000, "Working...", 1);
  EXPECT_FALSE(progress.ProgressOff());
  ASSERT_EQ(platform.progress.size(), 1u);
  EXPECT_EQ(platform.progress[0].minimum, 0);
  EXPECT_EQ(platform.progress[0].maximum, 1000);
  EXPECT_EQ(platform.progress[0].caption, "Working...");
  for (int step = 0; step < 1000; ++step) progress.ProgressStep();
  EXPECT_EQ(progress.ProgressCount(), 1000);
  EXPECT_EQ(platform.progress[0].last_value, 1000);
  EXPECT_FALSE(platform.progress[0].hidden);
  progress.ProgressHide(true);
  EXPECT_TRUE(platform.progress[0].hidden);
  EXPECT_EQ(progress.ProgressCount(), 0);
}

TEST(Progress, TwentyVariablesAreShownHoweverFewTheSteps) {
  ScriptedPlatform platform;
  Progress progress(platform);
  progress.ProgressOpen(0, 5, "Working...", 20);
  EXPECT_EQ(platform.progress.size(), 1u);
  progress.ProgressStep();
  EXPECT_EQ(platform.progress[0].last_value, 1);
}

TEST(Progress, CancelHidesTheFormAtTheNextStepAndNothingMore) {
  ScriptedPlatform platform;
  platform.cancel_progress_at = 500;
  Progress progress(platform);
  progress.ProgressOpen(0, 1000, "Working...", 1);
  int step = 0;
  while (!progress.ProgressOff() && step < 1000) {
    progress.ProgressStep();
    ++step;
  }
  EXPECT_GE(step, 500);
  EXPECT_LT(step, 600);
  EXPECT_FALSE(platform.progress[0].hidden);
  progress.ProgressStep();
  EXPECT_TRUE(platform.progress[0].hidden);
  progress.ProgressStep();  // the job runs on
  EXPECT_EQ(platform.progress.size(), 1u);
}

TEST(Progress, TheNextJobShowsAgainBehindACancelledOne) {
  ScriptedPlatform platform;
  platform.cancel_progress_at = 0;
  Progress progress(platform);
  progress.ProgressOpen(0, 1000, "one", 1);
  for (int step = 0; step < 20; ++step) progress.ProgressStep();
  EXPECT_TRUE(progress.ProgressOff());
  progress.ProgressOpen(0, 1000, "two", 1);
  EXPECT_FALSE(progress.ProgressOff());
  ASSERT_EQ(platform.progress.size(), 2u);
  EXPECT_EQ(platform.progress[1].caption, "two");
}

TEST(Progress, TheNextJobCountsFromZero) {
  ScriptedPlatform platform;
  Progress progress(platform);
  progress.ProgressOpen(0, 1000, "one", 1);
  progress.ProgressStep(1000);
  progress.ProgressOpen(0, 4000, "two", 1);
  EXPECT_EQ(progress.ProgressCount(), 0);
  progress.ProgressStep(20);
  EXPECT_EQ(platform.progress.at(1).last_value, 20);
}

TEST(Progress, ASmallJobHidesTheFormOfTheOneAhead) {
  ScriptedPlatform platform;
  Progress progress(platform);
  progress.ProgressOpen(0, 1000, "long", 1);
  progress.ProgressOpen(0, 10, "short", 1);
  EXPECT_FALSE(platform.progress[0].hidden);
  progress.ProgressStep();
  EXPECT_TRUE(platform.progress[0].hidden);
}

TEST(Progress, HideWithTheFlagOffShowsTheFormAgain) {
  ScriptedPlatform platform;
  Progress progress(platform);
  progress.ProgressOpen(0, 1000, "Working...", 1);
  progress.ProgressHide(true);
  progress.ProgressHide(false);
  ASSERT_EQ(platform.progress.size(), 2u);
  EXPECT_EQ(platform.progress[1].caption, "Working...");
  EXPECT_FALSE(platform.progress[1].hidden);
}

TEST(Progress, TheFormIsGoneWhenTheJobEnds) {
  ScriptedPlatform platform;
  {
    Progress progress(platform);
    progress.ProgressOpen(0, 1000, "Working...", 1);
  }
  EXPECT_TRUE(platform.progress.at(0).hidden);
}

TEST(Progress, StepsMayBeCountedSeveralAtOnce) {
  ScriptedPlatform platform;
  Progress progress(platform);
  progress.ProgressOpen(0, 2000, "Working...", 1);
  progress.ProgressStep(1500);
  progress.ProgressStep(500);
  EXPECT_EQ(progress.ProgressCount(), 2000);
  EXPECT_EQ(platform.progress[0].last_value, 2000);
}

}  // namespace
}  // namespace tessara
