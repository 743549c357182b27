#include "presentation/print_pages.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "platform/scripted_platform.h"

namespace tessara {
namespace {

constexpr PrintOptions kPlain{.date = false, .notes_caption = false};
constexpr CalendarDay kToday{2026, 11, 5};

const std::string kMargin = "          ";
const std::string kNotes =
    "\r\n\r\n\r\n          Notes\r\n"
    "          "
    "__________________________________________________________________________________________________\r\n";

std::string Head(int page, const std::string& date = "") {
  return "\r\n\r\n\r\n\r\n\r\n          Page " + std::to_string(page) + date + "\r\n\r\n\r\n";
}

// The lines "1" to "n", with a line end between them.
std::string NumberedLines(int n) {
  std::string text = "1";
  for (int line = 2; line <= n; ++line) text += "\r\n" + std::to_string(line);
  return text;
}

// The lines from `first` to `last` as a page prints them, each with a line end behind it.
std::string PrintedLines(int first, int last) {
  std::string text;
  for (int line = first; line <= last; ++line) text += (line == 1 ? "" : kMargin) + std::to_string(line) + "\r\n";
  return text;
}

using Pages = std::vector<std::string>;

TEST(OutputPages, TextWithoutAMarkIsOnePageAsItStands) {
  EXPECT_EQ(OutputPages("one\r\ntwo", PrintOptions{}, kToday), Pages{"one\r\ntwo"});
  EXPECT_EQ(OutputPages("", PrintOptions{}, kToday), Pages{""});
  EXPECT_EQ(OutputPages(NumberedLines(200), PrintOptions{}, kToday), Pages{NumberedLines(200)});
  EXPECT_EQ(OutputPages("a\r\n<page break>", PrintOptions{}, kToday), Pages{"a\r\n<page break>"});
}

TEST(OutputPages, BlockLosesTheCharacterAheadOfTheMark) {
  EXPECT_EQ(OutputPages("one\r\n<Page Break>", kPlain, kToday), Pages{Head(1) + kMargin + "one\r"});
  EXPECT_EQ(OutputPages("one<Page Break>", kPlain, kToday), Pages{Head(1) + kMargin + "on"});
}

TEST(OutputPages, LinesOfABlockAreSetIn) {
  EXPECT_EQ(OutputPages("one\r\ntwo\r\n\r\n<Page Break>", kPlain, kToday),
            Pages{Head(1) + kMargin + "one\r\n          two\r\n          \r"});
}

TEST(OutputPages, BareCarriageReturnOrLineFeedIsNoLineEnd) {
  EXPECT_EQ(OutputPages("one\ntwo\rthree.<Page Break>", kPlain, kToday), Pages{Head(1) + kMargin + "one\ntwo\rthree"});
}

TEST(OutputPages, NextBlockBeginsBehindTheMark) {
  EXPECT_EQ(OutputPages("one\r\n<Page Break>\r\n\r\n\r\ntwo\r\n<Page Break>\r\n\r\n\r\n", kPlain, kToday),
            (Pages{Head(1) + kMargin + "one\r",  //
                   Head(2) + kMargin + "\r\n          \r\n          \r\n          two\r"}));
}

TEST(OutputPages, TextBehindTheLastMarkIsNotPrinted) {
  EXPECT_EQ(OutputPages("one.<Page Break>lost", kPlain, kToday), Pages{Head(1) + kMargin + "one"});
}

TEST(OutputPages, MarkAtTheVeryStartIsAnEmptyBlock) {
  EXPECT_EQ(OutputPages("<Page Break>", kPlain, kToday), Pages{Head(1) + kMargin});
  EXPECT_EQ(OutputPages("<Page Break><Page Break>one.<Page Break>", kPlain, kToday),
            (Pages{Head(1) + kMargin, Head(2) + kMargin, Head(3) + kMargin + "one"}));
  EXPECT_EQ(OutputPages("x<Page Break>", kPlain, kToday), Pages{Head(1) + kMargin});
}

TEST(OutputPages, DateStandsBehindThePageNumber) {
  const std::string date = std::string(72, ' ') + "11/5/2026";
  EXPECT_EQ(OutputPages("one.<Page Break>two.<Page Break>", {.date = true, .notes_caption = false}, kToday),
            (Pages{Head(1, date) + kMargin + "one", Head(2, date) + kMargin + "two"}));
}

TEST(OutputPages, NotesCaptionStandsBelowEachBlock) {
  EXPECT_EQ(OutputPages("one.<Page Break>two.<Page Break>", {.date = false, .notes_caption = true}, kToday),
            (Pages{Head(1) + kMargin + "one" + kNotes, Head(2) + kMargin + "two" + kNotes}));
}

TEST(OutputPages, BlockOf66LinesIsOnePage) {
  // Below 67 lines the block is printed as it is, without a line end behind its last line.
  std::string printed = kMargin + PrintedLines(1, 66);
  printed.resize(printed.size() - 2);
  EXPECT_EQ(OutputPages(NumberedLines(66) + ".<Page Break>", kPlain, kToday), Pages{Head(1) + printed});
}

TEST(OutputPages, BlockOf67LinesIsTwoPages) {
  // The second page begins with 20 blanks: its own margin, and that of the line.
  EXPECT_EQ(OutputPages(NumberedLines(67) + ".<Page Break>", kPlain, kToday),
            (Pages{Head(1) + kMargin + PrintedLines(1, 66),  //
                   Head(2) + "                    67\r\n"}));
}

TEST(OutputPages, BlockOf132LinesIsTwoFullPagesAndNoEmptyThird) {
  EXPECT_EQ(OutputPages(NumberedLines(132) + ".<Page Break>", kPlain, kToday),
            (Pages{Head(1) + kMargin + PrintedLines(1, 66), Head(2) + kMargin + PrintedLines(67, 132)}));
}

TEST(OutputPages, BlockOf133LinesIsThreePages) {
  EXPECT_EQ(OutputPages(NumberedLines(133) + ".<Page Break>", kPlain, kToday),
            (Pages{Head(1) + kMargin + PrintedLines(1, 66), Head(2) + kMargin + PrintedLines(67, 132),
                   Head(3) + "                    133\r\n"}));
}

TEST(OutputPages, LongBlockKeepsTheCarriageReturnAtItsEnd) {
  EXPECT_EQ(OutputPages(NumberedLines(67) + "\r\n<Page Break>", kPlain, kToday).back(),
            Head(2) + "                    67\r\r\n");
}

TEST(OutputPages, NotesCaptionStandsOnlyOnTheLastPageOfALongBlock) {
  const PrintOptions notes{.date = false, .notes_caption = true};
  EXPECT_EQ(OutputPages(NumberedLines(67) + ".<Page Break>one.<Page Break>", notes, kToday),
            (Pages{Head(1) + kMargin + PrintedLines(1, 66), Head(2) + kMargin + PrintedLines(67, 67) + kNotes,
                   Head(3) + kMargin + "one" + kNotes}));
  EXPECT_EQ(OutputPages(NumberedLines(132) + ".<Page Break>", notes, kToday).back(),
            Head(2) + kMargin + PrintedLines(67, 132) + kNotes);
}

TEST(OutputPages, DateStandsOnEachPageOfALongBlock) {
  const std::string date = std::string(72, ' ') + "11/5/2026";
  EXPECT_EQ(OutputPages(NumberedLines(67) + ".<Page Break>", {.date = true, .notes_caption = false}, kToday),
            (Pages{Head(1, date) + kMargin + PrintedLines(1, 66), Head(2, date) + kMargin + PrintedLines(67, 67)}));
}

class PrintedOutput : public testing::Test {
 protected:
  bool Print(const std::string& text, std::optional<PrintChoice> choice) {
    EditBox(output, text);
    platform.print_answers.push_back(choice);
    return PrintOutput(output, platform, kPlain, false);
  }

  ScriptedPlatform platform;
  OutputLog output;
};

TEST_F(PrintedOutput, DialogOffersASelectionWhenTheBoxHasOne) {
  PrintOutput(output, platform, kPlain, false);
  PrintOutput(output, platform, kPlain, true);
  ASSERT_EQ(platform.print_dialogs.size(), 2u);
  EXPECT_EQ(platform.print_dialogs[0].title, "Print");
  EXPECT_FALSE(platform.print_dialogs[0].offer_selection);
  EXPECT_EQ(platform.print_dialogs[1].title, "Print");
  EXPECT_TRUE(platform.print_dialogs[1].offer_selection);
}

TEST_F(PrintedOutput, TextOfTheBoxIsPrinted) {
  EXPECT_TRUE(Print("one.<Page Break>", PrintChoice{1}));
  ASSERT_EQ(platform.printed.size(), 1u);
  EXPECT_EQ(platform.printed[0], Pages{Head(1) + kMargin + "one"});
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(PrintedOutput, DateIsThatOfToday) {
  EditBox(output, "one.<Page Break>");
  platform.now = {{2024, 2, 29}, 23, 59, 59};
  platform.print_answers.push_back(PrintChoice{1});
  EXPECT_TRUE(PrintOutput(output, platform, {.date = true, .notes_caption = false}, false));
  ASSERT_EQ(platform.printed.size(), 1u);
  EXPECT_EQ(platform.printed[0], Pages{Head(1, std::string(72, ' ') + "2/29/2024") + kMargin + "one"});
}

TEST_F(PrintedOutput, PageNumbersBeginAnewWithEachCopy) {
  EXPECT_TRUE(Print("one.<Page Break>two.<Page Break>", PrintChoice{2}));
  ASSERT_EQ(platform.printed.size(), 1u);
  EXPECT_EQ(platform.printed[0], (Pages{Head(1) + kMargin + "one", Head(2) + kMargin + "two", Head(1) + kMargin + "one",
                                        Head(2) + kMargin + "two"}));
}

TEST_F(PrintedOutput, TextWithoutAMarkIgnoresTheNumberOfCopies) {
  EXPECT_TRUE(Print("one\r\ntwo", PrintChoice{3}));
  ASSERT_EQ(platform.printed.size(), 1u);
  EXPECT_EQ(platform.printed[0], Pages{"one\r\ntwo"});
}

TEST_F(PrintedOutput, CancelPrintsNothing) {
  EXPECT_FALSE(Print("one.<Page Break>", std::nullopt));
  EXPECT_TRUE(platform.printed.empty());
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(PrintedOutput, RefusingPrinterShowsABox) {
  platform.printer_works = false;
  EXPECT_FALSE(Print("one.<Page Break>", PrintChoice{1}));
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, "Printer Error");
  EXPECT_EQ(platform.messages[0].text,
            "The printer is not accepting the print request.  Your printer software may be corrupted.  If the problem "
            "continues, you may want to reinstall the printer software.");
  EXPECT_EQ(platform.messages[0].buttons, Buttons::kOk);
}

TEST_F(PrintedOutput, TextOpenedFromAFilePrintsWhole) {
  // Behind the text of the file stand two line ends and the mark, of which the last line feed is left out.
  EXPECT_TRUE(Print("one\r\ntwo\r\n\r\n<Page Break>", PrintChoice{1}));
  ASSERT_EQ(platform.printed.size(), 1u);
  EXPECT_EQ(platform.printed[0], Pages{Head(1) + kMargin + "one\r\n          two\r\n          \r"});
}

}  // namespace
}  // namespace tessara
