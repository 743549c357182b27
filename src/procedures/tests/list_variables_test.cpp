#include "procedures/describe/list_variables.h"

#include <gtest/gtest.h>

#include "procedures/tests/test_data.h"

namespace tessara {
namespace {

const std::string kRule = std::string(96, '-') + "\r\n";

TestRun ListRun(const std::vector<TestColumn>& columns, std::vector<std::size_t> selected) {
  TestRun run(columns);
  run.variables = std::move(selected);
  return run;
}

std::string Right(const std::string& text, std::size_t width) { return std::string(width - text.size(), ' ') + text; }

// Missing values and texts are listed as they stand, and without their labels.
TEST(ListVariables, WholeReport) {
  TestRun run = ListRun({{"SEX", Texts({"1", "2", "9", ""}), "Sex", "9||||||", {"1=Male", "2=Female"}},
                         {"AGE", Texts({"34", " 41", "x", "1e3"})}},
                        {1, 2});
  const std::string unused(10, ' ');
  EXPECT_EQ(run.Report(RunListVariables),
            "List Variables\r\n\r\n"
            "  Obs" +
                Right("SEX", 37) + Right("AGE", 37) + unused + "\r\n" + kRule +  //
                "00001" + Right("1", 37) + Right("34", 37) + unused +
                "\r\n"  //
                "00002" +
                Right("2", 37) + Right(" 41", 37) + unused +
                "\r\n"  //
                "00003" +
                Right("9", 37) + Right("x", 37) + unused +
                "\r\n"  //
                "00004" +
                Right("", 37) + Right("1e3", 37) + unused + "\r\n" + kRule + "\r\n\r\n");
  EXPECT_TRUE(run.platform.messages.empty());
}

TEST(ListVariables, WidthsFollowTheNumberOfVariables) {
  const std::size_t kWidths[] = {70, 35, 25, 19, 16, 13, 11};
  for (std::size_t count = 1; count <= 7; ++count) {
    TestRun run = ListRun({{"A", Texts({"5"})}}, std::vector<std::size_t>(count, 1));
    std::string head = "  Obs";
    std::string line = "00001";
    for (std::size_t place = 0; place < count; ++place) {
      head += "  " + Right("A", kWidths[count - 1]);
      line += "  " + Right("5", kWidths[count - 1]);
    }
    const std::string unused(2 * (7 - count), ' ');
    EXPECT_EQ(run.Report(RunListVariables),
              "List Variables\r\n\r\n" + head + unused + "\r\n" + kRule + line + unused + "\r\n" + kRule + "\r\n\r\n")
        << count;
  }
}

TEST(ListVariables, NamesAndCellsAreCutToTheWidth) {
  TestRun run = ListRun({{"TEMPERATURES", Texts({"12345678901234", "12345678901", "1234567890"})}},
                        std::vector<std::size_t>(7, 1));
  const std::string report = run.Report(RunListVariables);
  EXPECT_NE(report.find("  Obs  TEMPERATURE  TEMPERATURE"), std::string::npos);
  EXPECT_NE(report.find("00001  12345678901  12345678901"), std::string::npos);
  EXPECT_NE(report.find("00002  12345678901  12345678901"), std::string::npos);
  EXPECT_NE(report.find("00003   1234567890   1234567890"), std::string::npos);
}

TEST(ListVariables, NumbersShowTheirGeneralText) {
  TestRun run = ListRun({{"A", {0.5, 0.0, 1e20, -3.0}}}, {1});
  const std::string report = run.Report(RunListVariables);
  EXPECT_NE(report.find("00001" + Right("0.5", 72)), std::string::npos);
  EXPECT_NE(report.find("00002" + Right("0", 72)), std::string::npos);
  EXPECT_NE(report.find("00003" + Right("1E+20", 72)), std::string::npos);
  EXPECT_NE(report.find("00004" + Right("-3", 72)), std::string::npos);
}

// Seven of ten records pass. The limit counts listed lines, and so do the numbers.
TEST(ListVariables, LinesThatTheControlRejectsDoNotCount) {
  TestRun run = ListRun({{"A", Texts({"a", "b", "c", "d", "e", "f", "g", "h", "i", "j"})},
                         {"C", Texts({"0", "0", "0", "1", "1", "1", "1", "1", "1", "1"})}},
                        {1});
  run.Control(2, ControlRelation::kEqualTo, "1");
  run.options.list.max_observations = "5";
  std::string lines;
  const char* values[] = {"d", "e", "f", "g", "h"};
  for (int i = 0; i < 5; ++i) {
    lines += "0000" + std::to_string(i + 1) + Right(values[i], 72) + std::string(12, ' ') + "\r\n";
  }
  EXPECT_EQ(run.Report(RunListVariables), "Controlling for C = 1\r\n\r\nList Variables\r\n\r\n  Obs" + Right("A", 72) +
                                              std::string(12, ' ') + "\r\n" + kRule + lines + kRule + "\r\n\r\n");
}

std::size_t Lines(const std::string& max_observations) {
  TestRun run = ListRun({{"A", Texts({"1", "2", "3", "4"})}}, {1});
  run.options.list.max_observations = max_observations;
  const std::string report = run.Report(RunListVariables);
  std::size_t lines = 0;
  for (std::size_t at = report.find("\r\n0000"); at != std::string::npos; at = report.find("\r\n0000", at + 1)) ++lines;
  return lines;
}

TEST(ListVariables, TheLimit) {
  EXPECT_EQ(Lines(""), 4u);
  EXPECT_EQ(Lines("3"), 3u);
  EXPECT_EQ(Lines("4"), 4u);
  EXPECT_EQ(Lines("1e300"), 4u);
  EXPECT_EQ(Lines("0"), 0u);
  EXPECT_EQ(Lines("-2"), 0u);
  EXPECT_EQ(Lines("all"), 0u);  // the conversion fails
  EXPECT_EQ(Lines("1e999"), 0u);
  EXPECT_EQ(Lines("1.7"), 2u);  // a whole number, half to even
  EXPECT_EQ(Lines("2.5"), 2u);
  EXPECT_EQ(Lines("0.5"), 0u);
}

TEST(ListVariables, NoVariable) {
  TestRun run = ListRun({{"A", Texts({"1"})}}, {});
  EXPECT_EQ(run.Report(RunListVariables), "");
  ASSERT_EQ(run.platform.messages.size(), 1u);
  EXPECT_EQ(run.platform.messages[0].title, "Procedure Aborted");
  EXPECT_EQ(run.platform.messages[0].text, "You must select at least one variable.");
}

TEST(ListVariables, NoRecords) {
  TestRun run = ListRun({{"A", {}}}, {1});
  EXPECT_EQ(run.Report(RunListVariables), "List Variables\r\n\r\n  Obs" + Right("A", 72) + std::string(12, ' ') +
                                              "\r\n" + kRule + kRule + "\r\n\r\n");
}

TEST(ListVariables, AboveSevenVariablesTheFirstSevenAreListed) {
  TestRun run = ListRun({{"A", Texts({"5"})}, {"B", Texts({"6"})}}, {1, 1, 1, 1, 1, 1, 1, 2});
  const std::string report = run.Report(RunListVariables);
  EXPECT_EQ(report.find('6'), std::string::npos);
  EXPECT_NE(report.find("00001            5"), std::string::npos);
}

// The number has five places and grows beyond them.
TEST(ListVariables, ManyLines) {
  TestRun run = ListRun({{"A", std::vector<TaggedValue>(100001, "7")}}, {1});
  const std::string report = run.Report(RunListVariables);
  EXPECT_NE(report.find("\r\n99999" + Right("7", 72) + std::string(12, ' ') + "\r\n100000" + Right("7", 72)),
            std::string::npos);
  EXPECT_NE(report.find("\r\n100001" + Right("7", 72)), std::string::npos);
}

TEST(ListVariables, FormerChartsAreGone) {
  TestRun run = ListRun({{"A", Texts({"1"})}}, {1});
  run.charts.kind = ChartKind::kFrequencies;
  run.Report(RunListVariables);
  EXPECT_EQ(run.charts.kind, ChartKind::kNone);
}

}  // namespace
}  // namespace tessara
