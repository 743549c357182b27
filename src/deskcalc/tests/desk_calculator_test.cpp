#include "deskcalc/desk_calculator.h"

#include <gtest/gtest.h>

#include <sstream>

namespace tessara {
namespace {

const std::string kRule = "   -----------------------";

// Presses keys by their words, blanks between them; "12.5" is four keys.
void Press(DeskCalculator& calculator, const std::string& keys) {
  std::istringstream words(keys);
  for (std::string word; words >> word;) {
    if (const auto key = KeyOfWord(word)) {
      PressKey(calculator, *key);
      continue;
    }
    for (const char c : word) PressKey(calculator, KeyOfWord(std::string_view(&c, 1)).value());
  }
}

DeskCalculator Pressed(const std::string& keys) {
  DeskCalculator calculator;
  Press(calculator, keys);
  return calculator;
}

// The lines under the heading.
std::vector<std::string> Lines(const DeskCalculator& calculator) {
  EXPECT_FALSE(calculator.List1.empty());
  EXPECT_EQ(calculator.List1.front(), "    Calculation History");
  return {calculator.List1.begin() + 1, calculator.List1.end()};
}

using Tape = std::vector<std::string>;

TEST(DeskCalculator, StartsWithAZeroAndATapeOfItsHeading) {
  const DeskCalculator calculator;
  EXPECT_EQ(calculator.CalcText1, " 0");
  EXPECT_EQ(Lines(calculator), Tape{});
}

TEST(DeskCalculator, DigitsMakeTheEntry) {
  struct Case {
    std::string keys, display;
  };
  for (const Case& c : std::vector<Case>{{"0 5", " 5"},
                                         {"0 0", " 0"},
                                         {"12", " 12"},
                                         {"0 . 5", " 0.5"},
                                         {". 5", " .5"},
                                         {"1.2.3", " 1.2.3"},
                                         {"12 back", " 1"},
                                         {"12 back back", " 0"},
                                         {"1 back 7", " 7"},
                                         {"back", " 0"},
                                         {"5 + 3", " 3"},
                                         {"5 + .", " ."},
                                         {"2 + 3 = 7", " 7"},
                                         {"12 + 3 = back 7", " 17"}}) {
    EXPECT_EQ(Pressed(c.keys).CalcText1, c.display) << c.keys;
  }
}

TEST(DeskCalculator, TheLineThatIsChosenIsGivenUpWithTheNextKey) {
  DeskCalculator calculator = Pressed("5 + 3 =");
  EXPECT_EQ(calculator.selected, 4);
  for (const CalcKey key : {CalcKey::k7, CalcKey::kFactorial, CalcKey::kBackspace, CalcKey::kAdd, CalcKey::kClear}) {
    calculator.selected = 1;
    PressKey(calculator, key);
    EXPECT_EQ(calculator.selected, -1);
  }
}

TEST(DeskCalculator, AnOperatorWritesItsSignAndTheEntryAsItWasTyped) {
  const DeskCalculator calculator = Pressed("007.50 + 2. -");
  EXPECT_EQ(Lines(calculator), (Tape{"   +              7.50",  //
                                     "   -                2."}));
  EXPECT_EQ(calculator.CalcValue, 9.5);
  EXPECT_EQ(calculator.CalcPendingOp, CalcOperator::kSubtract);
}

TEST(DeskCalculator, TheFourOperations) {
  EXPECT_EQ(Pressed("8 + 2 =").CalcValue, 10);
  EXPECT_EQ(Pressed("8 - 2 =").CalcValue, 6);
  EXPECT_EQ(Pressed("8 * 2 =").CalcValue, 16);
  EXPECT_EQ(Pressed("8 / 2 =").CalcValue, 4);
  EXPECT_EQ(Pressed("8 + 2 * 3 - 6 / 4 =").CalcValue, 6);  // from left to right
}

TEST(DeskCalculator, EqualWritesThePendingSignARuleAndTheResult) {
  const DeskCalculator calculator = Pressed("12.5 + 3 =");
  EXPECT_EQ(Lines(calculator), (Tape{"   +              12.5",  //
                                     "   +                 3",  //
                                     kRule,                     //
                                     "   =              15.5"}));
  EXPECT_EQ(calculator.CalcText1, " 15.5");
  EXPECT_EQ(calculator.CalcEntry, "15.5");
  EXPECT_EQ(calculator.CalcPendingOp, CalcOperator::kNone);
  EXPECT_EQ(calculator.selected, 4);
}

TEST(DeskCalculator, EqualWithNothingPendingTakesTheEntry) {
  const DeskCalculator calculator = Pressed("5 =");
  EXPECT_EQ(Lines(calculator), (Tape{"                     5",  //
                                     kRule,                     //
                                     "   =                 5"}));
  EXPECT_EQ(calculator.CalcValue, 5);
}

TEST(DeskCalculator, TheResultGoesOn) {
  EXPECT_EQ(Pressed("2 + 3 = * 4 =").CalcText1, " 20");
  EXPECT_EQ(Pressed("2 + 3 = 7 * 2 =").CalcText1, " 14");
}

TEST(DeskCalculator, ASecondOperatorReplacesThePendingOneAndWritesItsLine) {
  const DeskCalculator calculator = Pressed("5 + * 3 =");
  EXPECT_EQ(Lines(calculator), (Tape{"   +                 5",  //
                                     "   *                 5",  //
                                     "   *                 3",  //
                                     kRule,                     //
                                     "   =                15"}));
}

TEST(DeskCalculator, EqualBehindAnOperatorKeepsTheValue) {
  EXPECT_EQ(Pressed("5 + =").CalcText1, " 5");
  EXPECT_EQ(Pressed("5 * back =").CalcText1, " 0");  // what the display shows is an entry
}

TEST(DeskCalculator, UnaryKeysWriteTheirNameAndTheValue) {
  struct Case {
    std::string keys, first_line, result;
  };
  for (const Case& c : std::vector<Case>{{"16 sqrt", "sqrt                16", "4"},
                                         {"12 sq", "  sq                12", "144"},
                                         {"8 1/x", "  1/x                8", "0.125"},
                                         {"5 n!", "   n!                5", "120"},
                                         {"0 n!", "   n!                0", "1"},
                                         {"1 nl", "  nl                 1", "0"},
                                         {"100 log", "  log              100", "2"},
                                         {"0 Exp", "  Exp                0", "1"},
                                         {"2.7 Int", "  Int              2.7", "2"}}) {
    const DeskCalculator calculator = Pressed(c.keys);
    const std::string field = "   =" + std::string(18 - c.result.size(), ' ') + c.result;
    EXPECT_EQ(Lines(calculator), (Tape{c.first_line, kRule, field})) << c.keys;
    EXPECT_EQ(calculator.CalcText1, " " + c.result) << c.keys;
    EXPECT_EQ(calculator.CalcEntry, c.result) << c.keys;
    EXPECT_EQ(calculator.selected, -1) << c.keys;  // only the equal key selects
  }
}

TEST(DeskCalculator, IntegerPartGoesTowardZero) {
  EXPECT_EQ(Pressed("0 - 2.7 = Int").CalcText1, " -2");
  EXPECT_EQ(Pressed("0 - .5 = Int").CalcText1, " 0");
}

TEST(DeskCalculator, AUnaryKeyTakesTheEntryOnlyWhileTheValueIsZero) {
  EXPECT_EQ(Pressed("9 sqrt").CalcText1, " 3");
  EXPECT_EQ(Pressed("2 + 2 = 9 sqrt").CalcText1, " 2");  // the running value is 4
  EXPECT_EQ(Pressed("16 + 9 sqrt =").CalcText1, " 8");   // root of 16, and the result is the entry
  EXPECT_EQ(Pressed("9 sqrt + 1 =").CalcText1, " 4");
  EXPECT_EQ(Pressed("9 sqrt 5").CalcText1, " 5");
}

TEST(DeskCalculator, FactorialEndsAt170) {
  EXPECT_EQ(Pressed("170 n!").CalcText1, " 7.257415615308004E+306");  // as doubles multiply downward
  const DeskCalculator beyond = Pressed("171 n!");
  EXPECT_EQ(beyond.CalcText1, "System limit exceeded   ");
  EXPECT_EQ(Lines(beyond), Tape{"   n!              171"});  // the key's line was written
}

TEST(DeskCalculator, WhatCannotBeComputedIsSaid) {
  for (const char* keys : {"1/x", "0 1/x", "1 / 0 =", "1 / 0 +", "0 - 4 = sqrt", "0 nl", "0 - 1 = log", "1000 Exp",
                           "1.2.3 +", ". =", "1..5 sqrt", "170 n! * 171 =", "170 n! sq"}) {
    const DeskCalculator calculator = Pressed(keys);
    EXPECT_EQ(calculator.CalcText1, "System limit exceeded   ") << keys;
    EXPECT_EQ(calculator.CalcPendingOp, CalcOperator::kNone) << keys;
  }
}

TEST(DeskCalculator, AnErrorKeepsTheTapeAndTheNextDigitStartsAnew) {
  DeskCalculator calculator = Pressed("1 / 0 =");
  EXPECT_EQ(Lines(calculator), Tape{"   /                 1"});  // it failed ahead of its lines
  Press(calculator, "7 + 1 =");
  EXPECT_EQ(calculator.CalcText1, " 8");
  EXPECT_EQ(Lines(calculator), (Tape{"   /                 1",  //
                                     "   +                 7",  //
                                     "   +                 1",  //
                                     kRule,                     //
                                     "   =                 8"}));
  EXPECT_EQ(Pressed("171 n! 5").CalcText1, " 5");
  EXPECT_EQ(Pressed("1.2.3 + back back * 2 =").CalcText1, " 2.4");  // put right
}

TEST(DeskCalculator, LongNumbersPushTheLineWider) {
  const DeskCalculator calculator = Pressed("123456789012345678 +");
  EXPECT_EQ(Lines(calculator), Tape{"   + 123456789012345678"});
}

TEST(DeskCalculator, ClearKeepsTapeAndMemories) {
  DeskCalculator calculator = Pressed("5");
  StoreMemory(calculator, CalcMemory::kFirst);
  Press(calculator, "+ 3 clear");
  EXPECT_EQ(calculator.CalcText1, " 0");
  EXPECT_EQ(calculator.CalcValue, 0);
  EXPECT_EQ(calculator.CalcPendingOp, CalcOperator::kNone);
  EXPECT_EQ(Lines(calculator), Tape{"   +                 5"});
  EXPECT_EQ(calculator.CalcMemory1, 5);
  EXPECT_EQ(Pressed("5 + clear 9 sqrt").CalcText1, " 3");
}

TEST(DeskCalculator, MemoriesHoldTheDisplay) {
  DeskCalculator calculator = Pressed("1.50");
  EXPECT_TRUE(StoreMemory(calculator, CalcMemory::kSecond));
  EXPECT_EQ(calculator.CalcMemory2, 1.5);
  EXPECT_EQ(calculator.memory_label2, "1.5");
  EXPECT_EQ(calculator.memory_label1, "        Empty");
  EXPECT_EQ(calculator.CalcText1, " 1.50");
  Press(calculator, "7");  // the entry goes on
  EXPECT_EQ(calculator.CalcText1, " 1.507");
  ClearMemory(calculator, CalcMemory::kSecond);
  EXPECT_EQ(calculator.CalcMemory2, 0);
  EXPECT_EQ(calculator.memory_label2, "Empty");
  StoreMemory(calculator, CalcMemory::kFirst);
  ClearMemory(calculator, CalcMemory::kFirst);
  EXPECT_EQ(calculator.memory_label1, "        Empty");
}

TEST(DeskCalculator, AnErrorOnTheDisplayIsNotStored) {
  DeskCalculator calculator = Pressed("7");
  StoreMemory(calculator, CalcMemory::kFirst);
  Press(calculator, "clear 1/x");
  EXPECT_FALSE(StoreMemory(calculator, CalcMemory::kFirst));
  EXPECT_EQ(calculator.CalcMemory1, 7);
  EXPECT_EQ(calculator.CalcText1, "System limit exceeded   ");
}

TEST(DeskCalculator, RecallIsTheEntryAndTheValueUnlessTheEntryWasZero) {
  DeskCalculator calculator = Pressed("3");
  StoreMemory(calculator, CalcMemory::kFirst);
  Press(calculator, "clear");
  RecallMemory(calculator, CalcMemory::kFirst);
  EXPECT_EQ(calculator.CalcText1, " 3");
  EXPECT_EQ(calculator.CalcEntry, "3");
  EXPECT_EQ(calculator.CalcValue, 0);
  Press(calculator, "5 +");
  RecallMemory(calculator, CalcMemory::kFirst);
  EXPECT_EQ(calculator.CalcValue, 3);
  Press(calculator, "=");
  EXPECT_EQ(calculator.CalcText1, " 6");
}

TEST(DeskCalculator, CopyingALineTakesTheSignsAwayWithTheOperators) {
  DeskCalculator calculator = Pressed("0 - 12.5 = 1/x");
  ASSERT_EQ(calculator.List1[4], "   =             -12.5");
  EXPECT_TRUE(CopyTapeLine(calculator, 4));
  EXPECT_EQ(calculator.CalcEntry, "12.5");
  EXPECT_EQ(calculator.CalcText1, " 12.5");
  EXPECT_EQ(NumberOfTapeLine(calculator, 4), "-12.5");
  EXPECT_TRUE(CopyTapeLine(calculator, 5));  // "  1/x            -12.5"
  EXPECT_EQ(calculator.CalcEntry, "1x            12.5");
  EXPECT_EQ(NumberOfTapeLine(calculator, 5), "-12.5");
  EXPECT_TRUE(CopyTapeLine(calculator, 3));  // a rule leaves nothing
  EXPECT_EQ(calculator.CalcEntry, "");
  EXPECT_EQ(NumberOfTapeLine(calculator, 3), std::nullopt);
  EXPECT_TRUE(CopyTapeLine(calculator, 0));
  EXPECT_EQ(calculator.CalcEntry, "Calculation History");
  EXPECT_EQ(NumberOfTapeLine(calculator, 0), std::nullopt);
  Press(calculator, "+");
  EXPECT_EQ(calculator.CalcText1, "System limit exceeded   ");
  for (const int line : {-1, 8, 1000000}) EXPECT_FALSE(CopyTapeLine(calculator, line)) << line;
  EXPECT_EQ(calculator.CalcEntry, "Calculation History");
}

TEST(DeskCalculator, ACopiedNumberIsTheNextEntry) {
  DeskCalculator calculator = Pressed("16 sqrt clear 10 +");
  ASSERT_TRUE(CopyTapeLine(calculator, 1));  // "sqrt                16"
  Press(calculator, "=");
  EXPECT_EQ(calculator.CalcText1, " 26");
}

TEST(DeskCalculator, ResetLeavesTheHeading) {
  DeskCalculator calculator = Pressed("2 + 3 =");
  ResetTape(calculator);
  EXPECT_EQ(Lines(calculator), Tape{});
  EXPECT_EQ(calculator.selected, -1);
  EXPECT_EQ(calculator.CalcText1, " 5");
}

TEST(DeskCalculator, TheWholeTapeAndItsPage) {
  const DeskCalculator calculator = Pressed("5 +");
  EXPECT_EQ(TapeText(calculator), "    Calculation History\r\n   +                 5");
  const std::string page = TapePage(calculator);
  EXPECT_TRUE(page.starts_with(
      "Abaquill Calculator Output\r\n\r\n    Calculation History\r\n   +                 5\r\n\r\nNotes\r\n____"));
  EXPECT_TRUE(page.ends_with("_\r\n"));
}

TEST(DeskCalculator, TheNumberOfTheDisplay) {
  EXPECT_EQ(NumberOfDisplay(Pressed("1.50")), "1.50");
  EXPECT_EQ(NumberOfDisplay(Pressed("1/x")), std::nullopt);
  EXPECT_EQ(NumberOfDisplay(Pressed("1.2.3")), std::nullopt);
}

// A key that is held down: a million digits, and as many steps back.
TEST(DeskCalculator, ALongEntryStaysQuick) {
  DeskCalculator calculator;
  for (int i = 0; i < 1'000'000; ++i) PressDigit(calculator, '7');
  EXPECT_EQ(calculator.CalcText1.size(), 1'000'001U);
  PressOperator(calculator, CalcOperator::kAdd);
  EXPECT_EQ(calculator.CalcText1, "System limit exceeded   ");
  for (int i = 0; i < 999'999; ++i) PressBackspace(calculator);
  EXPECT_EQ(calculator.CalcText1, " 7");
}

TEST(DeskCalculator, ALongTapeStaysQuick) {
  DeskCalculator calculator = Pressed("1");
  for (int i = 0; i < 100'000; ++i) PressOperator(calculator, CalcOperator::kAdd);
  EXPECT_EQ(calculator.List1.size(), 100'001U);
}

TEST(CalcKeys, EachStandsAtItsNumberWithTipsAsOnThePad) {
  int number = 0;
  for (const CalcKeyRow& row : CalcKeys()) EXPECT_EQ(static_cast<int>(row.key), number++);
  EXPECT_EQ(KeyOfWord("sqrt"), CalcKey::kSquareRoot);
  EXPECT_EQ(KeyOfWord("SQRT"), std::nullopt);
  EXPECT_EQ(RowOf(CalcKey::kReciprocal).tool_tip, "Reciprical of X");
  EXPECT_EQ(RowOf(CalcKey::kFactorial).tool_tip, "n factorial");
  EXPECT_EQ(RowOf(CalcKey::kNaturalLog).tool_tip, "Natural Log");
  EXPECT_EQ(RowOf(CalcKey::kLog).tool_tip, "Log to base 10");
  EXPECT_EQ(RowOf(CalcKey::kAntilog).tool_tip, "Antilog");
  EXPECT_EQ(RowOf(CalcKey::kInteger).tool_tip, "Display Integer");
  EXPECT_EQ(RowOf(CalcKey::kSquareRoot).tool_tip, "");
}

}  // namespace
}  // namespace tessara
