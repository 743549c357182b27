#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

// The glossary that comes with the program: records of 3080 bytes, numbered from 1. A record holds a 16-bit number
// with its low byte first, a subject of 60 characters, a text of 3000, both filled with blanks, and 18 bytes in
// reserve.

namespace tessara {
namespace {

constexpr std::size_t kRecordSize = 3080;
constexpr std::size_t kSubjectAt = 2;
constexpr std::size_t kSubjectSize = 60;
constexpr std::size_t kTextAt = 62;
constexpr std::size_t kTextSize = 3000;

std::string WithoutFill(const std::string& field) { return field.substr(0, field.find_last_not_of(' ') + 1); }

class DefaultGlossary : public testing::Test {
 protected:
  std::size_t Records() const { return bytes_.size() / kRecordSize; }

  std::string Record(std::size_t number) const { return bytes_.substr((number - 1) * kRecordSize, kRecordSize); }

  int Number(std::size_t number) const {
    const std::string record = Record(number);
    return static_cast<unsigned char>(record.at(0)) + 256 * static_cast<unsigned char>(record.at(1));
  }
  std::string Subject(std::size_t number) const { return WithoutFill(Record(number).substr(kSubjectAt, kSubjectSize)); }
  std::string Text(std::size_t number) const { return WithoutFill(Record(number).substr(kTextAt, kTextSize)); }

  std::string TextOf(const std::string& subject) const {
    for (std::size_t number = 2; number <= Records(); ++number) {
      if (Subject(number) == subject) return Text(number);
    }
    return "no such subject";
  }

  static std::string ReadBytes() {
    const auto path = std::filesystem::path(TESSARA_SOURCE_DIR) / "installed" / "Lexicards.lx1";
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  }

  const std::string bytes_ = ReadBytes();
};

TEST_F(DefaultGlossary, IsMadeOfWholeRecords) {
  EXPECT_EQ(bytes_.size() % kRecordSize, 0u);
  EXPECT_GE(Records(), 401u);
}

TEST_F(DefaultGlossary, FirstRecordHoldsOnlyTheNumberOfTheLast) {
  ASSERT_GE(Records(), 1u);
  EXPECT_EQ(Number(1), static_cast<int>(Records()));
  EXPECT_EQ(Subject(1), "");
  EXPECT_EQ(Text(1), "");
}

TEST_F(DefaultGlossary, EveryOtherRecordHoldsItsOwnNumberASubjectAndAText) {
  std::set<std::string> subjects;
  for (std::size_t number = 2; number <= Records(); ++number) {
    EXPECT_EQ(Number(number), static_cast<int>(number));
    EXPECT_FALSE(Subject(number).empty()) << number;
    EXPECT_FALSE(Text(number).empty()) << number;
    EXPECT_TRUE(subjects.insert(Subject(number)).second) << Subject(number);
  }
}

TEST_F(DefaultGlossary, ReservedBytesAreZero) {
  for (std::size_t number = 1; number <= Records(); ++number) {
    EXPECT_EQ(Record(number).substr(kTextAt + kTextSize), std::string(18, '\0')) << number;
  }
}

TEST_F(DefaultGlossary, HoldsTheTermsOfTheReports) {
  EXPECT_TRUE(TextOf("Frequency").starts_with("The number of cases that have a certain value."));
  EXPECT_TRUE(TextOf("Range").starts_with("The largest value less the smallest."));
  EXPECT_TRUE(TextOf("p-value").starts_with("The probability of a result at least as extreme as the one found"));
  EXPECT_TRUE(TextOf("Z-score").starts_with("A value as its distance from the mean"));
}

TEST_F(DefaultGlossary, AFormulaAndACrossReferenceHaveLinesOfTheirOwn) {
  EXPECT_NE(TextOf("Odds").find("\r\n\r\nodds = p / (1 - p)\r\np = odds / (1 + odds)\r\n\r\n"), std::string::npos);
  EXPECT_TRUE(TextOf("Odds").ends_with("\r\n\r\nSee also Odds ratio, Logit, Probability."));
}

}  // namespace
}  // namespace tessara
