#include "presentation/report_page.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/scripted_platform.h"

namespace tessara {
namespace {

constexpr CalendarDay kDay = {2026, 11, 5};

// Two labels and two values to a row, in columns of 10, 10, 8 and 8 characters.
TableGrid Table(std::size_t rows) {
  TableGrid grid;
  for (std::size_t row = 1; row <= rows; ++row) {
    grid.SetText(row, 1, "row " + std::to_string(row));
    grid.SetText(row, 2, "Count");
    grid.SetText(row, 3, "12");
    grid.SetText(row, 4, "3.50");
  }
  grid.SetWidth(1, 1000);
  grid.SetWidth(2, 1000);
  grid.SetWidth(3, 800);
  grid.SetWidth(4, 800);
  return grid;
}

ReportPage Plain() {
  ReportPage page;
  page.ReportHeader = "Head";
  page.ReportFooter = "Foot";
  page.ReportHeaderAlign = TableAlignment::kLeft;
  page.ReportFooterAlign = TableAlignment::kLeft;
  return page;
}

std::size_t LinesOf(const std::string& text) {
  return 1 + static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

TEST(FormatReportLine, LeftAlignedTextStandsAsItIs) {
  EXPECT_EQ(FormatReportLine(TableAlignment::kLeft, 10, "abc", kDay), "abc");
}

TEST(FormatReportLine, RightAlignedTextHasBlanksInFront) {
  EXPECT_EQ(FormatReportLine(TableAlignment::kRight, 10, "abc", kDay), "       abc");
}

TEST(FormatReportLine, CentredTextHasHalfTheFreeWidthInFrontTiesToEven) {
  EXPECT_EQ(FormatReportLine(TableAlignment::kCentre, 10, "abcd", kDay), "   abcd");
  EXPECT_EQ(FormatReportLine(TableAlignment::kCentre, 10, "abc", kDay), "    abc");  // 3.5
  EXPECT_EQ(FormatReportLine(TableAlignment::kCentre, 8, "abc", kDay), "  abc");     // 2.5
  EXPECT_EQ(FormatReportLine(TableAlignment::kCentre, 4, "abc", kDay), "abc");       // 0.5
}

TEST(FormatReportLine, LineEndsGoAndBlanksAroundToo) {
  EXPECT_EQ(FormatReportLine(TableAlignment::kLeft, 20, "  one\r\ntwo\nthree \r\n", kDay), "onetwothree");
}

TEST(FormatReportLine, TheDateTakesThePlaceOfItsToken) {
  EXPECT_EQ(FormatReportLine(TableAlignment::kLeft, 40, "#date# and #date#", kDay), "11/5/2026 and 11/5/2026");
}

TEST(FormatReportLine, ALongTextIsCut) {
  EXPECT_EQ(FormatReportLine(TableAlignment::kRight, 4, "abcdef", kDay), "abcd");
  EXPECT_EQ(FormatReportLine(TableAlignment::kCentre, 6, "abcdef", kDay), "abcdef");
}

TEST(ReportPages, ARowIsItsLabelsPaddedAndItsValuesAtTheRight) {
  const auto pages = MakeReportPages(Table(1), Plain(), kDay);
  ASSERT_TRUE(pages);
  ASSERT_EQ(pages->pages.size(), 1u);
  EXPECT_EQ(pages->orientation, Orientation::kPortrait);
  EXPECT_EQ(pages->pages[0],
            "  Head\r\n\r\n\r\n"
            "  row 1     Count           12    3.50\r\n"
            "  Foot");
}

TEST(ReportPages, ALabelIsCutBeforeTheNextColumnAndAValueAtItsEnd) {
  TableGrid grid = Table(1);
  grid.SetText(1, 1, "0123456789abc");
  grid.SetText(1, 3, "123456789");
  const auto pages = MakeReportPages(grid, Plain(), kDay);
  EXPECT_EQ(pages->pages[0],
            "  Head\r\n\r\n\r\n"
            "  012345678 Count     12345678    3.50\r\n"
            "  Foot");
}

TEST(ReportPages, RulesStandUnderTheHeaderAndOverTheFooter) {
  ReportPage page = Plain();
  page.ReportHeaderRule = true;
  page.ReportFooterRule = true;
  const std::string rule = "  " + std::string(111, '_');
  const auto pages = MakeReportPages(Table(1), page, kDay);
  EXPECT_EQ(pages->pages[0], "  Head\r\n" + rule +
                                 "\r\n\r\n\r\n"
                                 "  row 1     Count           12    3.50\r\n"
                                 "\r\n\r\n" +
                                 rule + "\r\n  Foot");
}

TEST(ReportPages, AnEmptyHeaderAndFooterLeaveTheEmptyLinesOfTheHeadAlone) {
  ReportPage page;
  page.ReportHeader.clear();
  page.ReportFooter.clear();
  EXPECT_EQ(MakeReportPages(Table(1), page, kDay)->pages[0],
            "\r\n\r\n\r\n"
            "  row 1     Count           12    3.50\r\n");
}

TEST(ReportPages, AHeaderWithoutTokensStandsOnEachPageAndNumbersCountFromOne) {
  ReportPage page = Plain();
  page.ReportFooter = "Page pg# of pg#";
  const auto pages = MakeReportPages(Table(130), page, kDay);
  ASSERT_EQ(pages->pages.size(), 3u);
  for (const std::string& text : pages->pages) EXPECT_TRUE(text.starts_with("  Head\r\n\r\n\r\n"));
  EXPECT_TRUE(pages->pages[0].ends_with("\r\n  Page 1 of 1"));
  EXPECT_TRUE(pages->pages[2].ends_with("\r\n  Page 3 of 3"));
}

// An upright page has 67 lines; a plain head takes three of them and a plain footer one.
TEST(ReportPages, AnUprightPageHasSixtySevenLines) {
  EXPECT_EQ(MakeReportPages(Table(63), Plain(), kDay)->pages.size(), 1u);
  const auto pages = MakeReportPages(Table(64), Plain(), kDay);
  ASSERT_EQ(pages->pages.size(), 2u);
  EXPECT_EQ(LinesOf(pages->pages[0]), 67u);
  ReportPage ruled = Plain();
  ruled.ReportHeaderRule = true;
  ruled.ReportFooterRule = true;
  const auto with_rules = MakeReportPages(Table(60), ruled, kDay);
  ASSERT_EQ(with_rules->pages.size(), 2u);
  EXPECT_EQ(LinesOf(with_rules->pages[0]), 67u);
}

TEST(ReportPages, ATableOfMoreThan104CharactersIsPrintedAcross) {
  TableGrid grid = Table(60);
  grid.SetWidth(4, 7600);  // 104 in all, with the margin 106
  EXPECT_EQ(MakeReportPages(grid, Plain(), kDay)->orientation, Orientation::kPortrait);
  grid.SetWidth(4, 7601);
  const auto pages = MakeReportPages(grid, Plain(), kDay);
  EXPECT_EQ(pages->orientation, Orientation::kLandscape);
  EXPECT_EQ(LinesOf(pages->pages[0]), 47u);
  EXPECT_TRUE(pages->pages[0].starts_with("      Head\r\n\r\n\r\n      row 1     Count "));
}

TEST(ReportPages, ATableOf148CharactersIsPrintedAndOneOfMoreIsNot) {
  TableGrid grid = Table(1);
  grid.SetWidth(4, 12000);
  EXPECT_TRUE(MakeReportPages(grid, Plain(), kDay));
  grid.SetWidth(4, 12001);
  EXPECT_FALSE(MakeReportPages(grid, Plain(), kDay));
}

TEST(ReportPages, WidthsThatAddUpTo148AreNotLostInRounding) {
  TableGrid grid;
  for (std::size_t column = 1; column <= 40; ++column) {
    grid.SetText(1, column, "x");
    grid.SetWidth(column, 370);
  }
  EXPECT_TRUE(MakeReportPages(grid, Plain(), kDay));
}

TEST(PrintReport, PrintsEachCopyWithTheOrientationOfItsSheets) {
  ScriptedPlatform platform;
  platform.print_answers.push_back(PrintChoice{.copies = 2});
  EXPECT_TRUE(PrintReport(Table(1), Plain(), platform));
  ASSERT_EQ(platform.print_jobs.size(), 1u);
  ASSERT_EQ(platform.print_jobs[0].sheets.size(), 2u);
  EXPECT_EQ(platform.print_jobs[0].sheets[1].orientation, Orientation::kPortrait);
}

TEST(PrintReport, ATableAcrossHasTheSmallerType) {
  const Sheet upright = JobOfReport({Orientation::kPortrait, {"x"}}).sheets[0];
  const Sheet across = JobOfReport({Orientation::kLandscape, {"x"}}).sheets[0];
  EXPECT_LT(across.point_size, upright.point_size);
}

TEST(PrintReport, ATableThatIsTooWideIsRefusedAheadOfTheDialog) {
  ScriptedPlatform platform;
  TableGrid grid = Table(1);
  grid.SetWidth(3, 20000);
  EXPECT_FALSE(PrintReport(grid, Plain(), platform));
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].text,
            "The output is too wide to print properly. Please reduce the column width, reanalyze using fewer column "
            "categories, or export for further editing.  This operation truncates the end of labels to fit the "
            "column.");
  EXPECT_TRUE(platform.print_jobs.empty());
}

TEST(PrintReport, CancelSaysNothing) {
  ScriptedPlatform platform;
  platform.print_answers.push_back(std::nullopt);
  EXPECT_FALSE(PrintReport(Table(1), Plain(), platform));
  EXPECT_TRUE(platform.messages.empty());
  EXPECT_TRUE(platform.print_jobs.empty());
}

TEST(PrintReport, APrinterThatRefusesIsTold) {
  ScriptedPlatform platform;
  platform.print_answers.push_back(PrintChoice{});
  platform.printer_works = false;
  EXPECT_FALSE(PrintReport(Table(1), Plain(), platform));
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, "Printer Error");
  EXPECT_EQ(platform.messages[0].text,
            "The printer is not accepting the print request. If the problem continues, you may want to reinstall the "
            "printer software.");
}

TEST(EqualizeColumns, SetsTheDataColumnsAlone) {
  ScriptedPlatform platform;
  TableGrid grid = Table(1);
  EXPECT_TRUE(EqualizeColumns(grid, " 1,500 ", platform));
  EXPECT_EQ(grid.Width(1), 1000);
  EXPECT_EQ(grid.Width(2), 1000);
  EXPECT_EQ(grid.Width(3), 1500);
  EXPECT_EQ(grid.Width(4), 1500);
}

TEST(EqualizeColumns, ATextThatIsNoNumberIsRefused) {
  ScriptedPlatform platform;
  TableGrid grid = Table(1);
  EXPECT_FALSE(EqualizeColumns(grid, "wide", platform));
  EXPECT_FALSE(EqualizeColumns(grid, "", platform));
  ASSERT_EQ(platform.messages.size(), 2u);
  EXPECT_EQ(platform.messages[0].title, "Entry Error");
  EXPECT_EQ(platform.messages[0].text, "You must enter a number to calculate.\r\n");
  EXPECT_EQ(grid.Width(3), 800);
}

TEST(EqualizeColumns, NoColumnVanishesOrRunsAway) {
  ScriptedPlatform platform;
  TableGrid grid = Table(1);
  EXPECT_TRUE(EqualizeColumns(grid, "-7", platform));
  EXPECT_EQ(grid.Width(3), 100);
  EXPECT_TRUE(EqualizeColumns(grid, "1e300", platform));
  EXPECT_EQ(grid.Width(3), 20000);
}

}  // namespace
}  // namespace tessara
