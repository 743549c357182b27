#include "reference/glossary_record.h"

#include "reference/tests/glossary_fixture.h"

namespace tessara {
namespace {

TEST(GlossaryRecord, HasItsFieldsAtTheirPlaces) {
  const std::string record = MakeRecord(258, "Mean", "The sum by the number.");
  ASSERT_EQ(record.size(), 3080u);
  EXPECT_EQ(record.substr(0, 2), std::string("\x02\x01", 2));
  EXPECT_EQ(record.substr(2, 60), "Mean" + std::string(56, ' '));
  EXPECT_EQ(record.substr(62, 3000), "The sum by the number." + std::string(2978, ' '));
  EXPECT_EQ(record.substr(3062), std::string(18, '\0'));
}

TEST(GlossaryRecord, ReservedBytesAreWrittenAsTheyWereFound) {
  const std::string older = RecordBytes(2, "a", "b", "eighteen reserved.");
  EXPECT_EQ(MakeRecord(3, "c", "d", older), RecordBytes(3, "c", "d", "eighteen reserved."));
  EXPECT_EQ(RenumberedRecord(older, 7), RecordBytes(7, "a", "b", "eighteen reserved."));
}

TEST(GlossaryRecord, LongFieldsAreCutAndBlanksAroundThemGo) {
  const std::string record = MakeRecord(2, "  " + std::string(61, 's'), " " + std::string(3001, 't') + " ");
  EXPECT_EQ(record, RecordBytes(2, std::string(60, 's'), std::string(3000, 't')));
}

TEST(GlossaryRecord, NumbersAreSigned) {
  EXPECT_EQ(NumberOfRecord(std::string("\xFF\x7F", 2)), 32767);
  EXPECT_EQ(NumberOfRecord(std::string("\xFF\xFF", 2)), -1);
  EXPECT_EQ(NumberOfRecord(std::string("\x00\x80", 2)), -32768);
  EXPECT_EQ(NumberOfRecord("x"), 0);
  EXPECT_EQ(NumberOfRecord(""), 0);
}

TEST(GlossaryRecord, OneThatIsCutIsBlankBehindTheCut) {
  const std::string whole = RecordBytes(5, "Subject", "A text");
  EXPECT_EQ(SubjectOfRecord(whole.substr(0, 6)), "Subj");
  EXPECT_EQ(TextOfRecord(whole.substr(0, 6)), "");
  EXPECT_EQ(TextOfRecord(whole.substr(0, 65)), "A t");
  EXPECT_EQ(FilledRecord(whole.substr(0, 6)), whole.substr(0, 6) + std::string(3074, ' '));
  EXPECT_TRUE(IsBlankRecord(whole.substr(0, 2)));
}

TEST(GlossaryRecord, EveryByteSurvives) {
  std::string bytes;
  for (int i = 255; i >= 0; --i) bytes += static_cast<char>(i);
  EXPECT_EQ(TextOfRecord(MakeRecord(2, "all", bytes)), bytes);
}

TEST(GlossaryRecord, BlanksAndUnwrittenZerosAreNoNote) {
  EXPECT_TRUE(IsBlankRecord(RecordBytes(2, "", "")));
  EXPECT_TRUE(IsBlankRecord(std::string(3080, '\0')));
  EXPECT_FALSE(IsBlankRecord(RecordBytes(2, "", "text")));
  EXPECT_FALSE(IsBlankRecord(RecordBytes(2, "\t", "")));
}

}  // namespace
}  // namespace tessara
