#include "data/loaded_text.h"

#include <gtest/gtest.h>

#include <cstring>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "data/tests/naive_split.h"

namespace tessara {
namespace {

using namespace std::string_literals;

constexpr std::size_t kAll = 1000000;

FileBytes BytesOf(std::string_view text) {
  auto bytes = FileBytes::Allocate(text.size());
  EXPECT_TRUE(bytes.has_value());
  if (!text.empty()) std::memcpy(bytes->data(), text.data(), text.size());
  return std::move(*bytes);
}

LoadedText Loaded(std::string_view text, std::size_t row_limit = kAll, std::size_t column_limit = kAll) {
  return LoadedText(BytesOf(text), row_limit, column_limit);
}

std::optional<std::string> FieldOf(const LoadedText& text, std::size_t row, std::size_t column) {
  const auto field = text.Field(row, column);
  return field ? std::optional(std::string(*field)) : std::nullopt;
}

// All that the index tells, held against the naive splitter.
void ExpectAgrees(std::string_view text, std::size_t row_limit, std::size_t column_limit) {
  const LoadedText loaded = Loaded(text, row_limit, column_limit);
  auto lines = NaiveSplit(text);
  if (lines.size() > row_limit) lines.resize(row_limit);
  ASSERT_EQ(loaded.row_count(), lines.size());
  std::size_t most_fields = 0;
  for (std::size_t row = 0; row < lines.size(); ++row) {
    auto& fields = lines[row];
    if (fields.size() > column_limit) fields.resize(column_limit);
    most_fields = std::max(most_fields, fields.size());
    std::string joined;
    for (std::size_t column = 1; column <= fields.size(); ++column) {
      ASSERT_EQ(FieldOf(loaded, row, column), fields[column - 1]) << "row " << row << " column " << column;
      joined += (column > 1 ? "\x01" : "") + fields[column - 1];
    }
    ASSERT_EQ(loaded.Field(row, fields.size() + 1), std::nullopt) << "row " << row;
    ASSERT_EQ(loaded.LeadingFields(row, fields.size() + 1), std::nullopt) << "row " << row;
    if (!fields.empty()) {
      ASSERT_EQ(loaded.LeadingFields(row, fields.size()), joined) << "row " << row;
    }
  }
  for (std::size_t column = 1; column <= std::min<std::size_t>(most_fields + 1, 12); ++column) {
    std::size_t next = 0;
    loaded.ForEachField(column, 0, lines.size() + 2, [&](std::size_t index, const TaggedView& cell) {
      ASSERT_EQ(index, next++);
      const bool is_there = index < lines.size() && column <= lines[index].size();
      ASSERT_EQ(cell.is_text(), is_there) << "row " << index << " column " << column;
      ASSERT_EQ(cell.is_empty(), !is_there);
      if (is_there) {
        ASSERT_EQ(cell.text(), lines[index][column - 1]);
      }
    });
    ASSERT_EQ(next, lines.size() + 2);
  }
}

TEST(LoadedText, NothingAtAllHasNoLines) {
  EXPECT_EQ(LoadedText().row_count(), 0u);
  EXPECT_EQ(LoadedText().Field(0, 1), std::nullopt);
  EXPECT_EQ(Loaded("").row_count(), 0u);
}

TEST(LoadedText, LinesEndInCrLfOrInABareLf) {
  const LoadedText text = Loaded(
      "a\x01"
      "b\r\nc\x01"
      "d\n");
  ASSERT_EQ(text.row_count(), 2u);
  EXPECT_EQ(FieldOf(text, 0, 1), "a");
  EXPECT_EQ(FieldOf(text, 0, 2), "b");
  EXPECT_EQ(FieldOf(text, 1, 1), "c");
  EXPECT_EQ(FieldOf(text, 1, 2), "d");
}

TEST(LoadedText, TheLastLineNeedsNoLineEnd) {
  const LoadedText text = Loaded("a\r\nb\x01");
  ASSERT_EQ(text.row_count(), 2u);
  EXPECT_EQ(FieldOf(text, 1, 1), "b");
  EXPECT_EQ(FieldOf(text, 1, 2), "");
}

TEST(LoadedText, ALoneCrBelongsToItsCell) {
  const LoadedText text = Loaded(
      "a\rb\x01\rc\r\x01"
      "d\r\r\ne\r");
  ASSERT_EQ(text.row_count(), 2u);
  EXPECT_EQ(FieldOf(text, 0, 1), "a\rb");
  EXPECT_EQ(FieldOf(text, 0, 2), "\rc\r");
  EXPECT_EQ(FieldOf(text, 0, 3), "d\r");  // only the CR right ahead of the LF belongs to the line end
  EXPECT_EQ(FieldOf(text, 1, 1), "e\r");  // no LF behind it
}

TEST(LoadedText, AnEmptyLineIsOneEmptyField) {
  const LoadedText text = Loaded("\r\n\n");
  ASSERT_EQ(text.row_count(), 2u);
  for (const std::size_t row : {0u, 1u}) {
    EXPECT_EQ(FieldOf(text, row, 1), "");
    EXPECT_EQ(FieldOf(text, row, 2), std::nullopt);
  }
}

TEST(LoadedText, ASeparatorAtTheLineEndOpensAnEmptyField) {
  const LoadedText text = Loaded("a\x01\r\n\x01\x01\r\n");
  EXPECT_EQ(FieldOf(text, 0, 2), "");
  EXPECT_EQ(FieldOf(text, 0, 3), std::nullopt);
  EXPECT_EQ(FieldOf(text, 1, 1), "");
  EXPECT_EQ(FieldOf(text, 1, 3), "");
  EXPECT_EQ(FieldOf(text, 1, 4), std::nullopt);
}

TEST(LoadedText, ANulByteIsAByteLikeAnyOther) {
  const LoadedText text = Loaded("a\0b\x01\0\r\n"s);
  EXPECT_EQ(FieldOf(text, 0, 1), "a\0b"s);
  EXPECT_EQ(FieldOf(text, 0, 2), "\0"s);
}

TEST(LoadedText, LinesAndFieldsBeyondTheLimitsAreDropped) {
  const LoadedText text = Loaded(
      "a\x01"
      "b\x01"
      "c\nd\ne\x01"
      "f\n",
      2, 2);
  ASSERT_EQ(text.row_count(), 2u);
  EXPECT_EQ(FieldOf(text, 0, 2), "b");
  EXPECT_EQ(FieldOf(text, 0, 3), std::nullopt);
  EXPECT_EQ(FieldOf(text, 2, 1), std::nullopt);
}

TEST(LoadedText, NoColumnAtAllStillCountsTheLines) {
  const LoadedText text = Loaded(
      "a\x01"
      "b\nc\n",
      kAll, 0);
  EXPECT_EQ(text.row_count(), 2u);
  EXPECT_EQ(FieldOf(text, 0, 1), std::nullopt);
  EXPECT_EQ(FieldOf(text, 0, 0), std::nullopt);
}

TEST(LoadedText, LeadingFieldsAreOneStretchWithTheirSeparators) {
  const LoadedText text = Loaded(
      "a\x01"
      "b\x01"
      "c\r\nd\x01"
      "e\r\n");
  EXPECT_EQ(text.LeadingFields(0, 1), "a");
  EXPECT_EQ(text.LeadingFields(0, 3),
            "a\x01"
            "b\x01"
            "c");
  EXPECT_EQ(text.LeadingFields(1, 3), std::nullopt);
  EXPECT_EQ(text.LeadingFields(0, 0), std::nullopt);
}

TEST(LoadedText, AStretchOfAColumnMayBeginAndEndAnywhere) {
  std::string bytes;
  for (int line = 0; line < 10000; ++line) bytes += "x\x01" + std::to_string(line) + "\r\n";
  const LoadedText text = Loaded(bytes);
  for (const std::size_t first : {0u, 16u, 4095u, 4096u, 9990u}) {
    std::size_t seen = 0;
    text.ForEachField(2, first, 5000, [&](std::size_t index, const TaggedView& cell) {
      ++seen;
      if (first + index < 10000) {
        ASSERT_EQ(cell.text(), std::to_string(first + index));
      } else {
        ASSERT_TRUE(cell.is_empty());
      }
    });
    EXPECT_EQ(seen, 5000u);
  }
}

TEST(LoadedText, ProgressHearsOfAllLinesInTheEnd) {
  std::string bytes;
  for (int line = 0; line < 10000; ++line) bytes += "1\n";
  std::vector<std::size_t> told;
  const LoadedText text(BytesOf(bytes), kAll, 1, [&](std::size_t lines) { told.push_back(lines); });
  ASSERT_GE(told.size(), 2u);
  EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
  EXPECT_EQ(told.back(), 10000u);
}

// A line of a hundred thousand fields among short ones: an index by fields would take a line's room for each line.
TEST(LoadedText, ALongLineAmongShortOnesIsFoundQuickly) {
  constexpr std::size_t kFields = 300000;
  std::string bytes =
      "a\x01"
      "b\r\n";
  for (std::size_t field = 1; field <= kFields; ++field) {
    bytes += std::to_string(field);
    bytes += field < kFields ? "\x01" : "\r\n";
  }
  bytes +=
      "c\x01"
      "d";
  const LoadedText text = Loaded(bytes);
  ASSERT_EQ(text.row_count(), 3u);
  for (std::size_t field = 1; field <= kFields; ++field) {  // a scan for each of them would take minutes
    ASSERT_EQ(text.Field(1, field), std::to_string(field));
  }
  EXPECT_EQ(text.Field(1, kFields + 1), std::nullopt);
  EXPECT_EQ(FieldOf(text, 0, 2), "b");
  EXPECT_EQ(FieldOf(text, 0, 3), std::nullopt);
  EXPECT_EQ(FieldOf(text, 2, 1), "c");
  EXPECT_EQ(FieldOf(text, 2, 2), "d");
}

TEST(LoadedText, OneLongFieldIsOneField) {
  const std::string field(10000000, 'x');
  const LoadedText text = Loaded("a\n" + field +
                                 "\x01"
                                 "b\n");
  EXPECT_EQ(FieldOf(text, 1, 1), field);
  EXPECT_EQ(FieldOf(text, 1, 2), "b");
}

// Bytes that are mostly separators and line ends.
std::string RandomBytes(std::mt19937_64& random, std::size_t size) {
  static constexpr std::string_view kBytes("\x01\x01\n\n\r\rab\0\xFF", 10);
  std::string text(size, '\0');
  for (char& c : text) c = kBytes[random() % kBytes.size()];
  return text;
}

TEST(LoadedText, AgreesWithANaiveSplitterOnEverySizeAroundAWord) {
  std::mt19937_64 random(1);
  for (std::size_t size = 0; size <= 260; ++size) {
    for (int turn = 0; turn < 3; ++turn) {
      ASSERT_NO_FATAL_FAILURE(ExpectAgrees(RandomBytes(random, size), kAll, kAll)) << size;
      ASSERT_NO_FATAL_FAILURE(ExpectAgrees(RandomBytes(random, size), 1 + random() % 20, 1 + random() % 4)) << size;
    }
  }
}

TEST(LoadedText, AgreesWithANaiveSplitterAcrossChunks) {
  std::mt19937_64 random(2);
  for (const std::size_t lines : {4095u, 4096u, 4097u, 8192u, 9000u}) {
    std::string text;
    for (std::size_t line = 0; line < lines; ++line) {
      for (std::size_t fields = random() % 4; fields > 0; --fields) text += std::to_string(random() % 100) + "\x01";
      text += random() % 2 == 0 ? "\r\n" : "\n";
    }
    ASSERT_NO_FATAL_FAILURE(ExpectAgrees(text, kAll, 5)) << lines;
    ASSERT_NO_FATAL_FAILURE(ExpectAgrees(text, lines, 3)) << lines;
    ASSERT_NO_FATAL_FAILURE(ExpectAgrees(text, 4096, 1)) << lines;
  }
}

TEST(LoadedText, AgreesWithANaiveSplitterOnWideLinesAmongShortOnes) {
  std::mt19937_64 random(3);
  for (int turn = 0; turn < 20; ++turn) {
    std::string text;
    for (int line = 0; line < 40; ++line) {
      const bool is_wide = random() % 8 == 0;
      for (std::size_t fields = random() % (is_wide ? 3000 : 3); fields > 0; --fields) text += "\x01";
      text += random() % 2 == 0 ? "x\r\n" : "\n";
    }
    ASSERT_NO_FATAL_FAILURE(ExpectAgrees(text, kAll, kAll)) << turn;
    ASSERT_NO_FATAL_FAILURE(ExpectAgrees(text, 30, 1500)) << turn;
  }
}

}  // namespace
}  // namespace tessara
