#include "shell/calculator_operations.h"

#include <algorithm>
#include <vector>

#include "numerics/number_text.h"
#include "presentation/print_pages.h"

namespace tessara {
namespace {

constexpr std::size_t kLongestPaste = 400;  // no number of a double needs more characters

std::string_view WithoutSpace(std::string_view text) {
  constexpr std::string_view kSpace = " \t\r\n";
  const std::size_t first = text.find_first_not_of(kSpace);
  if (first == text.npos) return {};
  return text.substr(first, text.find_last_not_of(kSpace) - first + 1);
}

}  // namespace

void StoreCalculatorMemory(Session& session, CalcMemory memory) {
  if (StoreMemory(session.calculator, memory)) PlaySoundEffect(session, "copy.wav");
}

void CopyChosenTapeLine(Session& session) {
  DeskCalculator& calculator = session.calculator;
  const int line = calculator.selected;
  if (!CopyTapeLine(calculator, line)) return;
  const std::string& whole = calculator.List1[static_cast<std::size_t>(line)];
  session.platform.SetClipboardText(NumberOfTapeLine(calculator, line).value_or(whole));
  PlaySoundEffect(session, "copy.wav");
}

void CopyDisplay(Session& session) {
  const auto number = NumberOfDisplay(session.calculator);
  if (!number) return;
  session.platform.SetClipboardText(*number);
  PlaySoundEffect(session, "copy.wav");
}

void CopyWholeTape(Session& session) { session.platform.SetClipboardText(TapeText(session.calculator)); }

void PrintTape(Session& session) {
  const auto choice = session.platform.AskPrint({.title = "Print"});
  if (!choice) return;
  const std::vector<std::string> pages(static_cast<std::size_t>(std::max(choice->copies, 0)),
                                       TapePage(session.calculator));
  if (!session.platform.Print(JobOfPages(pages))) ShowPrinterError(session.platform);
}

bool PasteNumber(Session& session) {
  const std::string content = session.platform.ClipboardText();
  std::string number(WithoutSpace(content));
  if (number.size() > kLongestPaste || !IsNumeric(number)) return false;
  std::erase(number, ',');  // of groups of digits
  EnterText(session.calculator, number);
  return true;
}

std::string NumberToTransfer(const DeskCalculator& calculator) {
  if (const auto number = NumberOfTapeLine(calculator, calculator.selected)) return *number;
  return NumberOfDisplay(calculator).value_or("");
}

}  // namespace tessara
