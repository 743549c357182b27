#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "data/sample_files.h"
#include "platform/files.h"

namespace tessara {
namespace {

class SampleListTest : public testing::Test {
 protected:
  SampleListTest()
      : folder_(std::filesystem::temp_directory_path() / ("tessara_samples_" + std::to_string(SystemEntropy()))) {
    std::filesystem::create_directories(folder_);
  }
  ~SampleListTest() override {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }
  void Write(const Path& name, const std::string& content) const {
    std::ofstream(folder_ / name, std::ios::binary) << content;
  }

  Path folder_;
};

TEST_F(SampleListTest, TellsNameSizeAndTheFirstLineOfTheNotes) {
  Write("teeth.dcs", "60 3 Tessara data\x01Guinea pigs.@#$%More.\r\nrest");
  Write("iris.DCS", "150 5 Tessara data\r\n");
  Write("notes.txt", "2 2 Tessara data\r\n");
  const auto samples = SampleFiles(folder_);
  ASSERT_EQ(samples.size(), 2U);
  EXPECT_EQ(samples[0].name, "iris");
  EXPECT_EQ(samples[0].records, 150U);
  EXPECT_EQ(samples[0].variables, 5U);
  EXPECT_EQ(samples[0].about, "");
  EXPECT_EQ(samples[1].path, folder_ / "teeth.dcs");
  EXPECT_EQ(samples[1].records, 60U);
  EXPECT_EQ(samples[1].about, "Guinea pigs.");
}

TEST_F(SampleListTest, WhatIsNoDataFileIsLeftOut) {
  Write("empty.dcs", "");
  Write("picture.dcs", std::string("\x89PNG\0\0", 6));
  Write("negative.dcs", "-1 5 x\r\n");
  Write("huge.dcs", "1e300 5 x\r\n");
  std::filesystem::create_directories(folder_ / "folder.dcs");
  EXPECT_TRUE(SampleFiles(folder_).empty());
  EXPECT_TRUE(SampleFiles(folder_ / "missing").empty());
}

TEST_F(SampleListTest, ALongListAndALongNoteAreCut) {
  for (int i = 100; i < 150; ++i) Write(std::to_string(i) + ".dcs", "1 1 x\x01" + std::string(5000, 'n'));
  const auto samples = SampleFiles(folder_);
  ASSERT_EQ(samples.size(), kMostSamples);
  EXPECT_EQ(samples.front().name, "100");
  EXPECT_EQ(samples.back().name, "139");
  EXPECT_EQ(samples.front().about, std::string(200, 'n'));
}

}  // namespace
}  // namespace tessara
