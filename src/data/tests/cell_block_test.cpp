#include "data/cell_block.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <string>
#include <vector>

namespace tessara {
namespace {

TEST(CellBlock, ACellNeverAssignedIsEmpty) {
  CellBlock block;
  EXPECT_EQ(block.size(), 0u);
  EXPECT_TRUE(block.Cell(0).is_empty());
  block.Set(2, "x");
  EXPECT_EQ(block.size(), 3u);
  EXPECT_TRUE(block.Cell(0).is_empty());
  EXPECT_TRUE(block.Cell(3).is_empty());
}

TEST(CellBlock, TextsOfEveryLengthAroundTheCellsOwnRoomComeBack) {
  CellBlock block;
  for (std::size_t length = 0; length <= 40; ++length) block.Set(length, std::string(length, 'a'));
  for (std::size_t length = 0; length <= 40; ++length) {
    EXPECT_TRUE(block.Cell(length).is_text());
    EXPECT_EQ(block.Cell(length).text(), std::string(length, 'a'));
  }
}

TEST(CellBlock, EmptyTextIsATextAndNotTheEmptyTag) {
  CellBlock block;
  block.Set(0, "");
  EXPECT_TRUE(block.Cell(0).is_text());
  EXPECT_TRUE(block.Cell(0).is_blank());
  block.Set(0, TaggedView());
  EXPECT_TRUE(block.Cell(0).is_empty());
}

TEST(CellBlock, NumbersKeepEveryBit) {
  CellBlock block;
  const std::vector<double> numbers = {0, -1, 0.1, 1e308, std::numeric_limits<double>::denorm_min(), -1e-9};
  for (std::size_t i = 0; i < numbers.size(); ++i) block.Set(i, numbers[i]);
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    EXPECT_TRUE(block.Cell(i).is_number());
    EXPECT_EQ(block.Cell(i).number(), numbers[i]);
  }
}

TEST(CellBlock, TheEmptyTagBehindTheLastCellTakesNoRoom) {
  CellBlock block;
  block.Set(1000000, TaggedView());
  EXPECT_EQ(block.size(), 0u);
}

TEST(CellBlock, ATextWithNulBytesComesBackWhole) {
  CellBlock block;
  const std::string shorter("a\0b", 3);
  const std::string longer("a\0b, and a good deal behind it\0", 31);
  block.Set(0, shorter);
  block.Set(1, longer);
  EXPECT_EQ(block.Cell(0).text(), shorter);
  EXPECT_EQ(block.Cell(1).text(), longer);
}

TEST(CellBlock, ATextMayStandInTheCellsThatMoveForIt) {
  CellBlock block;
  block.Set(0, "short");
  for (std::size_t i = 1; i < 1000; ++i) block.Set(i, block.Cell(i - 1));  // the cells move many times
  EXPECT_EQ(block.Cell(999).text(), "short");
}

TEST(CellBlock, ALongTextMayBeReplacedByAStretchOfItself) {
  CellBlock block;
  const std::string text = "abcdefghijklmnopqrstuvwxyz0123456789";
  block.Set(0, text);
  block.Set(0, block.Cell(0));
  EXPECT_EQ(block.Cell(0).text(), text);
  block.Set(0, block.Cell(0).text().substr(3, 30));
  EXPECT_EQ(block.Cell(0).text(), text.substr(3, 30));
  block.Set(0, block.Cell(0).text().substr(2, 5));
  EXPECT_EQ(block.Cell(0).text(), "fghij");
}

TEST(CellBlock, ALongTextInAnotherCellStaysWhenItsCopyChanges) {
  CellBlock block;
  const std::string text = "a text that is too long for a cell";
  block.Set(0, text);
  block.Set(1, block.Cell(0));
  block.Set(1, "another text, also too long");
  EXPECT_EQ(block.Cell(0).text(), text);
  EXPECT_EQ(block.Cell(1).text(), "another text, also too long");
}

TEST(CellBlock, ALoadedLongTextIsReferredToAndNeverWrittenOver) {
  const std::string loaded = "a long text in the bytes of a file";
  CellBlock block;
  block.SetLoaded(0, loaded);
  EXPECT_EQ(block.Cell(0).text().data(), loaded.data());
  block.Set(0, "quite another long text");
  EXPECT_EQ(block.Cell(0).text(), "quite another long text");
  EXPECT_EQ(loaded, "a long text in the bytes of a file");
}

TEST(CellBlock, TextsLargerThanAPieceOfTheStoreComeBack) {
  CellBlock block;
  std::vector<std::string> texts;
  for (const std::size_t size : {16u, 16383u, 16384u, 16385u, 65536u, 65537u, 1000000u, 17u}) {
    texts.emplace_back(size, static_cast<char>('a' + texts.size()));
    block.Set(texts.size() - 1, texts.back());
  }
  for (std::size_t i = 0; i < texts.size(); ++i) EXPECT_EQ(block.Cell(i).text(), texts[i]);
}

TEST(CellBlock, AgreesWithAVectorOfValuesThroughManyChanges) {
  std::mt19937_64 random(4);
  CellBlock block;
  std::vector<TaggedValue> model(200);
  for (int turn = 0; turn < 20000; ++turn) {
    const std::size_t index = random() % model.size();
    switch (random() % 4) {
      case 0:
        model[index] = TaggedValue();
        break;
      case 1:
        model[index] = static_cast<double>(random() % 1000) / 8;
        break;
      case 2:
        model[index] = std::string(random() % 40, static_cast<char>('a' + random() % 26));
        break;
      default:
        const std::size_t source = random() % model.size();
        block.Set(index, block.Cell(source));
        model[index] = TaggedValue(model[source]);
        continue;
    }
    block.Set(index, model[index]);
  }
  for (std::size_t i = 0; i < model.size(); ++i) EXPECT_EQ(block.Cell(i), model[i].view()) << i;
}

}  // namespace
}  // namespace tessara
