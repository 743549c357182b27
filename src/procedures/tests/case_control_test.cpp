#include "procedures/cases/case_control.h"

#include <gtest/gtest.h>

#include <random>

#include "procedures/tests/test_data.h"

namespace tessara {
namespace {

// Passing flags of a control column of texts, "1" for a case that passes.
std::string Passing(const std::vector<TaggedValue>& cells, ControlRelation relation, const std::string& value = {},
                    const std::string& missing_spec = {}, NotEqualReading reading = NotEqualReading::kAsText) {
  DataSet data = MakeTestData({{"C", cells, "", missing_spec, {}}});
  const CaseControl control(data, 1, {relation, value});
  std::string flags;
  for (const std::uint8_t passes : control.PassingCases(data.RecordCount, reading)) flags += passes ? '1' : '0';
  return flags;
}

TEST(CaseControl, WithoutControlVariableEveryCasePasses) {
  DataSet data = MakeTestData({{"C", Texts({"1", ""}), "", "", {}}});
  const CaseControl control(data, 0, {ControlRelation::kEqualTo, "1"});
  EXPECT_FALSE(control.active());
  EXPECT_TRUE(control.PassingCases(2).empty());
  EXPECT_EQ(control.ControlCaption(), "");
  EXPECT_EQ(control.ControlLabel(), "");
  EXPECT_EQ(control.ChartFootnote(), "");
}

TEST(CaseControl, ColumnBeyondTheDataCountsAsNone) {
  DataSet data = MakeTestData({{"C", Texts({"1"}), "", "", {}}});
  EXPECT_FALSE(CaseControl(data, 2, {}).active());
}

TEST(CaseControl, GreaterThanWithAnEmptyValuePassesAllValidCases) {
  EXPECT_EQ(Passing(Texts({"1", "", "5"}), ControlRelation::kGreaterThan), "101");
  DataSet data = MakeTestData({{"AGE", Texts({"1"}), "", "", {}}});
  const CaseControl control(data, 1, {ControlRelation::kGreaterThan, ""});
  EXPECT_EQ(control.ControlCaption(), "Controlling for AGE > \r\n\r\n");
}

TEST(CaseControl, AllMissingWithoutMissingValuesPassesNoCase) {
  EXPECT_EQ(Passing(Texts({"1", "2"}), ControlRelation::kAllMissing), "00");
}

TEST(CaseControl, AllMissingPassesBlanksAndMissingValuesOnly) {
  EXPECT_EQ(Passing({"1", "", TaggedValue(), TaggedValue(0.0), "9", "0"}, ControlRelation::kAllMissing, "", "9||||||"),
            "011110");
}

TEST(CaseControl, NoMissingPassesValidCasesOnly) {
  EXPECT_EQ(Passing(Texts({"1", "", "9"}), ControlRelation::kNoMissing, "", "9||||||"), "100");
}

TEST(CaseControl, EqualToComparesTexts) {
  EXPECT_EQ(Passing(Texts({"1", "1.0", "Male", "male"}), ControlRelation::kEqualTo, "1"), "1000");
  EXPECT_EQ(Passing(Texts({"1", "1.0"}), ControlRelation::kGreaterThan, "0"), "11");
  EXPECT_EQ(Passing(Texts({"1", "1.0", "Male", "male"}), ControlRelation::kEqualTo, "Male"), "0010");
}

TEST(CaseControl, EqualToMeetsANumberCellByItsGeneralText) {
  EXPECT_EQ(Passing({TaggedValue(1.0), TaggedValue(0.5), "0.5"}, ControlRelation::kEqualTo, "0.5"), "011");
}

TEST(CaseControl, WithoutARelationOnlyMissingControlValuesAreExcluded) {
  EXPECT_EQ(Passing(Texts({"1", "", "9"}), ControlRelation::kNone, "", "9||||||"), "100");
  DataSet data = MakeTestData({{"AGE", Texts({"1"}), "", "", {}}});
  EXPECT_EQ(CaseControl(data, 1, {}).ControlCaption(), "Controlling for AGE\r\n\r\n");
}

TEST(CaseControl, AMissingControlValueIsExcludedForNotEqualToAsWell) {
  EXPECT_EQ(Passing(Texts({"1", "9", "3", ""}), ControlRelation::kNotEqualTo, "1", "9||||||"), "0010");
}

TEST(CaseControl, StrictComparisons) {
  EXPECT_EQ(Passing(Texts({"1", "2", "3"}), ControlRelation::kGreaterThan, "2"), "001");
  EXPECT_EQ(Passing(Texts({"1", "2", "3"}), ControlRelation::kLessThan, "2"), "100");
}

TEST(CaseControl, ACellThatIsNoNumberPassesGreaterAndLessThan) {
  EXPECT_EQ(Passing(Texts({"x", "1"}), ControlRelation::kGreaterThan, "2"), "10");
  EXPECT_EQ(Passing(Texts({"x", "3"}), ControlRelation::kLessThan, "2"), "10");
}

TEST(CaseControl, ABoundThatMeetsATextDropsTheCaseUnderAllMissingToo) {
  EXPECT_EQ(Passing(Texts({"x", "1", "7"}), ControlRelation::kNone, "", "||||5||"), "001");
  EXPECT_EQ(Passing(Texts({"x", "1", "7", ""}), ControlRelation::kAllMissing, "", "||||5||"), "0101");
}

TEST(CaseControl, NotEqualToAsNumberLetsAFailedConversionPass) {
  const auto cells = Texts({"1", "1.0", "2", "x"});
  EXPECT_EQ(Passing(cells, ControlRelation::kNotEqualTo, "1"), "0111");
  EXPECT_EQ(Passing(cells, ControlRelation::kNotEqualTo, "1", "", NotEqualReading::kAsNumber), "0011");
  EXPECT_EQ(Passing(cells, ControlRelation::kNotEqualTo, "Male", "", NotEqualReading::kAsNumber), "1111");
  EXPECT_EQ(Passing(Texts({"1", "1.0"}), ControlRelation::kEqualTo, "1", "", NotEqualReading::kAsNumber), "10");
}

TEST(CaseControl, CaptionsOfEveryRelation) {
  struct Row {
    ControlRelation relation;
    const char* words;
  };
  const Row rows[] = {{ControlRelation::kNone, "SEX"},
                      {ControlRelation::kGreaterThan, "SEX > 3"},
                      {ControlRelation::kLessThan, "SEX < 3"},
                      {ControlRelation::kEqualTo, "SEX = 3"},
                      {ControlRelation::kNotEqualTo, "SEX not equal to 3"},
                      {ControlRelation::kAllMissing, "SEX (missing data only)"},
                      {ControlRelation::kNoMissing, "SEX (valid data only)"}};
  DataSet data = MakeTestData({{"SEX", Texts({"1"}), "", "", {}}});
  for (const Row& row : rows) {
    const CaseControl control(data, 1, {row.relation, "3"});
    EXPECT_EQ(control.ControlCaption(), std::string("Controlling for ") + row.words + "\r\n\r\n");
    EXPECT_EQ(control.ChartFootnote(), std::string("Controlling for ") + row.words);
    EXPECT_EQ(control.ControlLabel(), std::string("Control: ") + row.words);
  }
}

// The pass over the column remembers decisions; it must not change one.
TEST(CaseControl, ThePassAgreesWithTheDecisionOnEachCell) {
  std::mt19937 random(7);
  const char* texts[] = {"1", "2", "10", "1.0", "x", "", "9", "a longer text than eight", "-3", "9.5"};
  std::vector<TaggedValue> cells;
  for (int i = 0; i < 3000; ++i) {
    switch (random() % 8) {
      case 0:
        cells.emplace_back();
        break;
      case 1:
        cells.emplace_back(static_cast<double>(random() % 4));
        break;
      case 2:
        cells.emplace_back(std::to_string(random() % 5000));
        break;
      default:
        cells.emplace_back(texts[random() % std::size(texts)]);
    }
  }
  for (const char* spec : {"", "9|x|||||", "||||2||", "|||||5|", "9||||1|8|"}) {
    DataSet data = MakeTestData({{"C", cells, "", spec, {}}});
    for (int relation = 0; relation <= static_cast<int>(ControlRelation::kNoMissing); ++relation) {
      const CaseControl control(data, 1, {static_cast<ControlRelation>(relation), "2"});
      const auto passing = control.PassingCases(cells.size());
      for (std::size_t i = 0; i < cells.size(); ++i) {
        ASSERT_EQ(passing[i] != 0, control.CasePasses(cells[i])) << spec << " " << relation << " " << i;
      }
    }
  }
}

}  // namespace
}  // namespace tessara
