#include "calculators/counts_walk.h"

#include <gtest/gtest.h>

#include "platform/scripted_platform.h"

namespace tessara {
namespace {

class CountsWalkTest : public testing::Test {
 protected:
  CountsWalkTest() { SelectPanel(panel, 3); }

  std::string_view Behind(std::string_view box) { return BoxKeyReleased(panel, platform, box, kKeyEnter); }
  void Fill(std::initializer_list<const char*> boxes) {
    for (const char* box : boxes) SetBox(panel, box, "7");
  }

  BrevarumPanel panel;
  ScriptedPlatform platform;
};

TEST_F(CountsWalkTest, ATwoByTwoTableNeedsNoOtherKey) {
  const std::pair<const char*, const char*> way[] = {{"C1R1", "30"}, {"C2R1", "10"}, {"C3R1", ""}, {"C1R2", "15"},
                                                     {"C2R2", "25"}, {"C1R3", ""},   {nullptr, ""}};
  for (std::size_t i = 0; way[i].first; ++i) {
    SetBox(panel, way[i].first, way[i].second);
    EXPECT_EQ(Behind(way[i].first), way[i + 1].first ? std::string_view(way[i + 1].first) : kCalculateNext);
  }
}

TEST_F(CountsWalkTest, RowsBehindTheFirstTakeTheColumnsInUse) {
  Fill({"C1R1", "C2R1", "C3R1"});
  EXPECT_EQ(Behind("C4R1"), "C1R2");
  EXPECT_EQ(Behind("C1R2"), "C2R2");
  EXPECT_EQ(Behind("C2R2"), "C3R2");
  EXPECT_EQ(Behind("C3R2"), "C1R3");
}

TEST_F(CountsWalkTest, AnEmptyColumnBetweenIsSkipped) {
  Fill({"C1R1", "C3R1"});
  EXPECT_EQ(Behind("C1R1"), "C3R1");
  EXPECT_EQ(Behind("C4R1"), "C1R2");
  EXPECT_EQ(Behind("C1R2"), "C3R2");
  EXPECT_EQ(Behind("C3R2"), "C1R3");
}

TEST_F(CountsWalkTest, TheFullTableEndsAtCalculate) {
  for (int row = 1; row <= 5; ++row) {
    for (int column = 1; column <= 5; ++column) {
      SetBox(panel, "C" + std::to_string(column) + "R" + std::to_string(row), "1");
    }
  }
  EXPECT_EQ(Behind("C5R1"), "C1R2");  // and not to the label of the row
  EXPECT_EQ(Behind("C5R4"), "C1R5");
  EXPECT_EQ(Behind("C5R5"), kCalculateNext);
}

TEST_F(CountsWalkTest, LabelsTellHowManyThereAre) {
  Fill({"Text1", "Text2", "Text6", "Text7", "C1R1", "C2R1"});
  EXPECT_EQ(Behind("C2R1"), "C1R2");
  Fill({"C1R2", "C2R2"});
  EXPECT_EQ(Behind("C2R2"), kCalculateNext);
}

TEST_F(CountsWalkTest, LabelsLeadToTheirCounts) {
  Fill({"Text1"});
  EXPECT_EQ(Behind("Text1"), "Text2");
  EXPECT_EQ(Behind("Text2"), "C1R1");  // left empty: no more labels
  Fill({"Text5"});
  EXPECT_EQ(Behind("Text5"), "C1R1");
  EXPECT_EQ(Behind("Text6"), "C1R1");
  EXPECT_EQ(Behind("Text9"), "C1R4");
}

TEST_F(CountsWalkTest, AnEmptyTableIsWalkedFromItsFirstBox) {
  EXPECT_EQ(Behind("C1R1"), "C2R1");
  EXPECT_EQ(Behind("C5R1"), "C1R2");
  EXPECT_EQ(Behind("C1R2"), "C2R2");
}

TEST_F(CountsWalkTest, AnEmptyRowAheadOfAFullOneIsWalked) {
  Fill({"C1R1", "C2R1", "C1R4"});
  EXPECT_EQ(Behind("C1R3"), "C2R3");
  EXPECT_EQ(Behind("C2R3"), "C1R4");
}

}  // namespace
}  // namespace tessara
