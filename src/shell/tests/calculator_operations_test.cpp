#include "shell/calculator_operations.h"

#include "shell/tests/session_fixture.h"

namespace tessara {
namespace {

class CalculatorOperations : public SessionFixture {
 protected:
  CalculatorOperations() { StartSession(session, {}); }

  DeskCalculator& calculator() { return session.calculator; }
  // -12.5 in three lines and the rule above the last.
  void Compute() {
    PressOperator(calculator(), CalcOperator::kSubtract);
    for (const char digit : {'1', '2'}) PressDigit(calculator(), digit);
    PressPoint(calculator());
    PressDigit(calculator(), '5');
    PressEqual(calculator());
  }
  const Path copy_sound() const { return folder / "program" / "Media" / "copy.wav"; }
};

TEST_F(CalculatorOperations, AStoreIsHeardUnlessSoundsAreOff) {
  PressDigit(calculator(), '7');
  StoreCalculatorMemory(session, CalcMemory::kFirst);
  EXPECT_EQ(calculator().CalcMemory1, 7);
  ASSERT_EQ(platform.sounds.size(), 1U);
  EXPECT_EQ(platform.sounds[0], copy_sound());
  session.settings.Op3 = 1;
  StoreCalculatorMemory(session, CalcMemory::kSecond);
  EXPECT_EQ(calculator().CalcMemory2, 7);
  EXPECT_EQ(platform.sounds.size(), 1U);
}

TEST_F(CalculatorOperations, ACopyGoesToTheEntryAndWholeToTheClipboard) {
  Compute();
  calculator().selected = 4;
  CopyChosenTapeLine(session);
  EXPECT_EQ(calculator().CalcEntry, "12.5");  // the sign goes with the operators
  EXPECT_EQ(platform.clipboard, "-12.5");
  ASSERT_EQ(platform.sounds.size(), 1U);
  EXPECT_EQ(platform.sounds[0], copy_sound());
  calculator().selected = 0;
  CopyChosenTapeLine(session);
  EXPECT_EQ(platform.clipboard, "    Calculation History");
}

TEST_F(CalculatorOperations, WithoutAChosenLineNothingIsCopied) {
  platform.clipboard = "kept";
  CopyChosenTapeLine(session);
  EXPECT_EQ(platform.clipboard, "kept");
  EXPECT_TRUE(platform.sounds.empty());
}

TEST_F(CalculatorOperations, TheDisplayAndTheWholeTapeAreCopied) {
  Compute();
  CopyDisplay(session);
  EXPECT_EQ(platform.clipboard, "-12.5");
  CopyWholeTape(session);
  EXPECT_EQ(
      platform.clipboard,
      "    Calculation History\r\n   -                 0\r\n   -              12.5\r\n   -----------------------\r\n"
      "   =             -12.5");
  PressKey(calculator(), CalcKey::kSquareRoot);
  CopyDisplay(session);  // an error is no number
  EXPECT_TRUE(platform.clipboard.starts_with("    Calculation"));
}

TEST_F(CalculatorOperations, TheTapeIsPrintedInCopies) {
  PrintTape(session);  // cancelled
  EXPECT_EQ(platform.print_dialogs.at(0).title, "Print");
  EXPECT_TRUE(platform.printed.empty());
  platform.print_answers.push_back(PrintChoice{2});
  PrintTape(session);
  ASSERT_EQ(platform.printed.size(), 1U);
  ASSERT_EQ(platform.printed[0].size(), 2U);
  EXPECT_EQ(platform.printed[0][0], platform.printed[0][1]);
  EXPECT_TRUE(platform.printed[0][0].starts_with(
      "Abaquill Calculator Output\r\n\r\n    Calculation History\r\n\r\nNotes\r\n____"));
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(CalculatorOperations, APrinterThatRefusesIsTold) {
  platform.printer_works = false;
  platform.print_answers.push_back(PrintChoice{});
  PrintTape(session);
  ASSERT_EQ(platform.messages.size(), 1U);
  EXPECT_EQ(platform.messages[0].title, "Printer Error");
  EXPECT_EQ(platform.messages[0].text,
            "The printer is not accepting the print request.  Your printer software may be corrupted.  If the problem "
            "continues, you may want to reinstall the printer software.");
}

TEST_F(CalculatorOperations, ANumberIsPastedAndNothingElse) {
  platform.clipboard = " 1,234.5\r\n";
  EXPECT_TRUE(PasteNumber(session));
  EXPECT_EQ(calculator().CalcText1, " 1234.5");
  for (const std::string& text : {std::string("12 apples"), std::string(), std::string("<b>5</b>"),
                                  std::string(1'000'000, '7'), std::string("5\0006", 3)}) {
    platform.clipboard = text;
    EXPECT_FALSE(PasteNumber(session));
    EXPECT_EQ(calculator().CalcText1, " 1234.5");
  }
}

TEST_F(CalculatorOperations, ATransferTakesTheChosenNumberOrTheDisplay) {
  Compute();
  EXPECT_EQ(NumberToTransfer(calculator()), "-12.5");
  calculator().selected = 2;
  EXPECT_EQ(NumberToTransfer(calculator()), "12.5");
  calculator().selected = 3;  // a rule
  PressDigit(calculator(), '8');
  EXPECT_EQ(NumberToTransfer(calculator()), "8");
  calculator().selected = -1;
  PressKey(calculator(), CalcKey::kPoint);
  PressKey(calculator(), CalcKey::kPoint);
  EXPECT_EQ(NumberToTransfer(calculator()), "");
}

}  // namespace
}  // namespace tessara
