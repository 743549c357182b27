#include "data/cell_key.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace tessara {
namespace {

constexpr CellSeed kSeeds[] = {
    {0x0123456789ABCDEFU, 0x9E3779B97F4A7C15U}, {1, 0xC2B2AE3D27D4EB4FU}, {0xFFFFFFFF00000000U, 0x165667B19E3779F9U}};

// The number that the fixed factor of the mixing multiplies to 1: a file made with it knows all but the secret.
constexpr std::uint64_t InverseOf(std::uint64_t factor) {
  std::uint64_t inverse = factor;
  for (int i = 0; i < 6; ++i) inverse *= 2 - factor * inverse;
  return inverse;
}

TEST(CellSeed, CraftedKeysAreSpreadAsByChance) {
  constexpr std::uint64_t kFactor = 0xD6E8FEB86659FD93U;
  constexpr std::uint64_t kInverse = InverseOf(kFactor);
  static_assert(kFactor * kInverse == 1);
  constexpr std::size_t kKeys = 4096;
  for (const CellSeed& seed : kSeeds) {
    std::set<std::uint64_t> places;
    std::set<std::uint64_t> places_without_secret;
    for (std::uint64_t i = 0; i < kKeys; ++i) {
      const std::uint64_t key = i * kInverse;  // times the factor: i, whose upper bits are all the same
      places.insert(seed.Spread(key) >> 52);
      places_without_secret.insert(SpreadKey(key, 0) >> 52);
    }
    EXPECT_EQ(places_without_secret.size(), 1U);
    // Of 4096 places about 2589 are met by chance, with a deviation of 20.
    EXPECT_GT(places.size(), 2300U);
  }
}

TEST(CellSeed, ZeroOfEitherSignIsOneNumber) {
  for (const CellSeed& seed : kSeeds) EXPECT_EQ(seed(0.0), seed(-0.0));
}

TEST(CellSeed, EveryByteOfALongTextCounts) {
  const CellSeed seed = kSeeds[0];
  const std::string text = "a text that is longer than eight bytes";
  std::set<std::size_t> sums = {seed(text)};
  for (std::size_t i = 0; i < text.size(); ++i) {
    std::string other = text;
    other[i] = '#';
    sums.insert(seed(other));
  }
  sums.insert(seed(text + ' '));
  EXPECT_EQ(sums.size(), text.size() + 2);
}

TEST(CellSeed, SeedOfTheProcessStaysAndItsFactorIsOdd) {
  EXPECT_EQ(CellSeed::OfProcess().start, CellSeed::OfProcess().start);
  EXPECT_EQ(CellSeed::OfProcess().factor & 1U, 1U);
}

TEST(CellDictionary, NumbersCellsInTheirOrderWhateverTheSeed) {
  std::vector<std::string> texts;
  for (int i = 0; i < 3000; ++i)
    texts.push_back((i % 2 == 0 ? "t" : "a text of more than eight bytes ") + std::to_string(i));
  for (const CellSeed& seed : kSeeds) {
    CellDictionary cells(seed);
    std::size_t next = 0;
    for (const std::string& text : texts) EXPECT_EQ(cells.Find(TaggedView(text)), next++);
    for (int i = 0; i < 3000; ++i) EXPECT_EQ(cells.Find(TaggedView(i / 8.0)), next++);
    EXPECT_EQ(cells.Find(TaggedView()), next);
    EXPECT_EQ(cells.Find(TaggedView(-0.0)), texts.size());
    EXPECT_EQ(cells.Find(TaggedView(texts[1234])), 1234U);
    EXPECT_EQ(cells.size(), next + 1);
  }
}

}  // namespace
}  // namespace tessara
