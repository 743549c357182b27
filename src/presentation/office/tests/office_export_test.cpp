#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "platform/files.h"
#include "platform/scripted_platform.h"
#include "platform/tests/temporary_folder.h"
#include "presentation/office/excel_export.h"
#include "presentation/office/office_charts.h"
#include "presentation/office/word_export.h"
#include "presentation/office/zip_archive.h"

namespace tessara {
namespace {

class OfficeExport : public testing::Test {
 protected:
  std::string Content(const Path& path) {
    const auto bytes = ReadWholeFile(path);
    return bytes ? std::string(bytes->text()) : "(none)";
  }

  TemporaryFolder folder_;
  ScriptedPlatform platform_;
};

TEST_F(OfficeExport, TheSameContentMakesTheSameBytes) {
  ASSERT_TRUE(PrintToWord("a\r\nb", {}, folder_ / "1.docx", platform_));
  ASSERT_TRUE(PrintToWord("a\r\nb", {}, folder_ / "2.docx", platform_));
  EXPECT_EQ(Content(folder_ / "1.docx"), Content(folder_ / "2.docx"));
  ASSERT_TRUE(PrintToExcel("a\r\nb", folder_ / "1.xlsx", platform_));
  ASSERT_TRUE(PrintToExcel("a\r\nb", folder_ / "2.xlsx", platform_));
  EXPECT_EQ(Content(folder_ / "1.xlsx"), Content(folder_ / "2.xlsx"));
  EXPECT_TRUE(platform_.messages.empty());
  EXPECT_EQ(platform_.wait_cursors, 0);
}

TEST_F(OfficeExport, APathThatCannotBeWrittenIsToldAndNothingElseHappens) {
  const Path nowhere = folder_ / "none" / "a.xlsx";
  EXPECT_FALSE(PrintToExcel("a", nowhere, platform_));
  EXPECT_FALSE(PrintToWord("a", {}, nowhere, platform_));
  ASSERT_EQ(platform_.messages.size(), 2u);
  for (const MessageBox& box : platform_.messages) {
    EXPECT_EQ(box.title, "Export Aborted!");
    EXPECT_EQ(box.text, "The export failed. Please make sure the file is not open in another program.");
  }
  EXPECT_FALSE(std::filesystem::exists(folder_ / "none"));
}

TEST_F(OfficeExport, NothingIsLeftAmongTheTemporaryFiles) {
  const Path temporary = folder_ / "temporary";
  std::filesystem::create_directory(temporary);
  const char* before = std::getenv("TMPDIR");
  const std::string kept = before ? before : "";
  ::setenv("TMPDIR", temporary.c_str(), 1);
  EXPECT_TRUE(PrintToExcel("a  1", folder_ / "a.xlsx", platform_));
  EXPECT_TRUE(std::filesystem::is_empty(temporary));
  ::setenv("TMPDIR", (folder_ / "no such folder").c_str(), 1);
  EXPECT_FALSE(PrintToExcel("b  1", folder_ / "a.xlsx", platform_));
  before ? ::setenv("TMPDIR", kept.c_str(), 1) : ::unsetenv("TMPDIR");
  EXPECT_TRUE(IsWholeArchive(folder_ / "a.xlsx", "xl/worksheets/sheet", "<c ", {2}));  // the one before
}

// Cells of the sheets that are made of a limit of so many rows, columns and characters.
TEST_F(OfficeExport, WhatASheetCannotHoldGoesOnAndIsTold) {
  const SheetLimits limits = {.rows = 3, .columns = 2, .characters = 4};
  ASSERT_TRUE(PrintToExcel("a\r\nb\r\nc\r\nd", folder_ / "rows.xlsx", platform_, limits));
  EXPECT_TRUE(IsWholeArchive(folder_ / "rows.xlsx", "xl/worksheets/sheet", "<c ", {3, 1}));
  ASSERT_TRUE(PrintToExcel("a\tb\tc\td\te", folder_ / "columns.xlsx", platform_, limits));
  EXPECT_TRUE(IsWholeArchive(folder_ / "columns.xlsx", "xl/worksheets/sheet", "<row ", {3}));
  ASSERT_TRUE(PrintToExcel("abcdefgh", folder_ / "long.xlsx", platform_, limits));
  EXPECT_TRUE(IsWholeArchive(folder_ / "long.xlsx", "xl/worksheets/sheet", "<c ", {2}));
  EXPECT_EQ(platform_.notes, (std::vector<std::string>{
                                 "the spreadsheet goes on: what one sheet cannot hold in the sheets up to \"Output 2\"",
                                 "the spreadsheet goes on: rows of more than 2 cells in the next row",
                                 "the spreadsheet goes on: texts of more than 4 characters in the next cell"}));
}

TEST_F(OfficeExport, AnArchiveWithOtherCountsOrABrokenPartIsNotWhole) {
  const Path path = folder_ / "a.xlsx";
  ASSERT_TRUE(PrintToExcel("a  1\r\nb", path, platform_));
  EXPECT_TRUE(IsWholeArchive(path, "xl/worksheets/sheet", "<c ", {3}));
  EXPECT_FALSE(IsWholeArchive(path, "xl/worksheets/sheet", "<c ", {4}));
  EXPECT_FALSE(IsWholeArchive(path, "xl/worksheets/sheet", "<c ", {3, 0}));  // no second sheet
  std::string bytes = Content(path);
  bytes.resize(bytes.size() / 2);
  ASSERT_EQ(WriteWholeFile(path, bytes), WriteResult::kWritten);
  EXPECT_FALSE(IsWholeArchive(path, "xl/worksheets/sheet", "<c ", {3}));
  const auto cut = MakeArchive({{.name = "a.xml", .bytes = "<a>"}, {.name = "b.xml", .bytes = "<b"}});
  ASSERT_TRUE(cut);
  ASSERT_EQ(WriteWholeFile(path, *cut), WriteResult::kWritten);
  EXPECT_FALSE(IsWholeArchive(path, "none", "<c ", {}));
}

// The words are found also where two blocks meet, of 65536 bytes each.
TEST_F(OfficeExport, WordsAreCountedAcrossBlocks) {
  std::string text(3 * 65536, 'x');
  text.replace(65535, 3, "<c ");
  text.replace(2 * 65536 - 2, 3, "<c ");
  text.back() = '>';
  const auto archive = MakeArchive({{.name = "s1.xml", .bytes = text}});
  ASSERT_TRUE(archive);
  ASSERT_EQ(WriteWholeFile(folder_ / "a.zip", *archive), WriteResult::kWritten);
  EXPECT_TRUE(IsWholeArchive(folder_ / "a.zip", "s", "<c ", {2}));
}

bool DrawNames(const std::vector<Chart>& charts, std::vector<std::string>& pngs) {
  for (const Chart& chart : charts) pngs.push_back("png of " + chart.title + std::to_string(chart.labels.size()));
  return true;
}
bool DrawNothing(const std::vector<Chart>&, std::vector<std::string>&) { return false; }

TEST_F(OfficeExport, ChartsAreDrawnWithTheirRows) {
  ChartStore store;
  KeepCharts(store, ChartKind::kFrequencies,
             {BarsChart("Sex", "", "Count", {"Male", "Female"}, {{"", {1, 2}}}), BarsChart("", "", "", {}, {})});
  const auto pictures = DrawCharts(store, DrawNames);
  ASSERT_TRUE(pictures);
  ASSERT_EQ(pictures->size(), 2u);
  EXPECT_EQ((*pictures)[0].png, "png of Sex2");
  EXPECT_EQ((*pictures)[0].title, "Sex");
  EXPECT_EQ((*pictures)[1].title, "Chart");
  EXPECT_FALSE(DrawCharts(store, DrawNothing));
}

}  // namespace
}  // namespace tessara
