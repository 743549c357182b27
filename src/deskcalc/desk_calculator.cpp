#include "deskcalc/desk_calculator.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <iterator>
#include <utility>

#include "deskcalc/tape.h"
#include "numerics/checked.h"
#include "numerics/number_text.h"
#include "numerics/probability.h"

namespace tessara {
namespace {

// An arithmetic error. The next digit starts anew, what was typed can still be put right with the backspace.
void ShowSystemLimit(DeskCalculator& calculator) {
  calculator.CalcText1 = kSystemLimit;
  calculator.CalcPendingOp = CalcOperator::kNone;
  calculator.CalcNewEntry = true;
}

// What a key leaves behind, made ready first, so that a lack of memory changes nothing.
struct KeyOutcome {
  double value = 0;
  std::string entry;
  CalcOperator pending = CalcOperator::kNone;
  bool entry_is_present = true;
  std::vector<std::string> lines;  // that the tape gains
};

void AddLines(DeskCalculator& calculator, std::vector<std::string> lines) {
  calculator.List1.insert(calculator.List1.end(), std::move_iterator(lines.begin()), std::move_iterator(lines.end()));
}

void Show(DeskCalculator& calculator, KeyOutcome outcome) {
  std::string display = " " + outcome.entry;
  AddLines(calculator, std::move(outcome.lines));
  calculator.CalcValue = outcome.value;
  calculator.CalcEntry = std::move(outcome.entry);
  calculator.CalcText1 = std::move(display);
  calculator.CalcPendingOp = outcome.pending;
  calculator.CalcNewEntry = true;
  calculator.entry_is_present = outcome.entry_is_present;
}

// The pending operation on the running value and the entry. With none pending the entry is the value; where nothing was
// entered since the operator, the value stays.
Checked PendingApplied(const DeskCalculator& calculator) {
  const Checked entry = ToNumber(calculator.CalcEntry);
  if (entry.failed() || calculator.CalcPendingOp == CalcOperator::kNone) return entry;
  const Checked value = calculator.CalcValue;
  if (!calculator.entry_is_present) return value;
  switch (calculator.CalcPendingOp) {
    case CalcOperator::kAdd:
      return value + entry;
    case CalcOperator::kSubtract:
      return value - entry;
    case CalcOperator::kMultiply:
      return value * entry;
    case CalcOperator::kDivide:
      return value / entry;
    case CalcOperator::kNone:
      break;
  }
  return entry;
}

Checked UnaryResult(CalcKey key, Checked value) {
  switch (key) {
    case CalcKey::kSquareRoot:
      return Sqrt(value);
    case CalcKey::kSquare:
      return value * value;
    case CalcKey::kReciprocal:
      return Checked(1) / value;
    case CalcKey::kFactorial:
      return Factorial(value);
    case CalcKey::kNaturalLog:
      return Log(value);
    case CalcKey::kLog:
      return Log(value) / Log(10);
    case CalcKey::kAntilog:
      return Exp(value);
    case CalcKey::kInteger:
      return {std::trunc(value.value())};
    default:
      return Checked::Failed();
  }
}

CalcOperator OperatorOf(CalcKey key) {
  switch (key) {
    case CalcKey::kAdd:
      return CalcOperator::kAdd;
    case CalcKey::kSubtract:
      return CalcOperator::kSubtract;
    case CalcKey::kMultiply:
      return CalcOperator::kMultiply;
    case CalcKey::kDivide:
      return CalcOperator::kDivide;
    default:
      return CalcOperator::kNone;
  }
}

// The operator field of a pending operation; blank for none.
std::string_view TapeTextOf(CalcOperator pending) {
  for (const CalcKeyRow& row : CalcKeys()) {
    if (pending != CalcOperator::kNone && OperatorOf(row.key) == pending) return row.tape;
  }
  return {};
}

double& Cell(DeskCalculator& calculator, CalcMemory memory) {
  return memory == CalcMemory::kFirst ? calculator.CalcMemory1 : calculator.CalcMemory2;
}

std::string& Label(DeskCalculator& calculator, CalcMemory memory) {
  return memory == CalcMemory::kFirst ? calculator.memory_label1 : calculator.memory_label2;
}

// A character at the end of the entry, and of the display that shows it: no copy of either, however long it is.
void Append(DeskCalculator& calculator, char character) {
  calculator.CalcEntry.reserve(calculator.CalcEntry.size() + 1);
  calculator.CalcText1 += character;
  calculator.CalcEntry += character;
  calculator.entry_is_present = true;
}

void StartEntry(DeskCalculator& calculator, char character) {
  calculator.CalcText1 = {' ', character};
  calculator.CalcEntry = character;
  calculator.CalcNewEntry = false;
  calculator.entry_is_present = true;
}

}  // namespace

// A line of the tape that was chosen is the chosen one until the work goes on.
void PressKey(DeskCalculator& calculator, CalcKey key) {
  calculator.selected = -1;
  if (key <= CalcKey::kPoint) return PressDigit(calculator, RowOf(key).word.front());
  switch (key) {
    case CalcKey::kBackspace:
      return PressBackspace(calculator);
    case CalcKey::kAdd:
    case CalcKey::kSubtract:
    case CalcKey::kMultiply:
    case CalcKey::kDivide:
      return PressOperator(calculator, OperatorOf(key));
    case CalcKey::kEqual:
      return PressEqual(calculator);
    case CalcKey::kClear:
      return PressClear(calculator);
    default:
      return PressUnary(calculator, key);
  }
}

void PressDigit(DeskCalculator& calculator, char digit) {
  const bool replaces_zero = calculator.CalcEntry == "0" && digit != '.';
  if (calculator.CalcNewEntry || replaces_zero) return StartEntry(calculator, digit);
  Append(calculator, digit);
}

// Also edits a result, which is being typed from there on.
void PressBackspace(DeskCalculator& calculator) {
  if (calculator.CalcEntry.size() <= 1) {
    calculator.CalcText1 = " 0";
    calculator.CalcEntry = "0";
    calculator.CalcNewEntry = true;
    calculator.entry_is_present = true;
    return;
  }
  if (calculator.CalcNewEntry) calculator.CalcText1 = " " + calculator.CalcEntry;
  calculator.CalcText1.pop_back();
  calculator.CalcEntry.pop_back();
  calculator.CalcNewEntry = false;
  calculator.entry_is_present = true;
}

void PressOperator(DeskCalculator& calculator, CalcOperator pressed) {
  const Checked value = PendingApplied(calculator);
  if (value.failed()) return ShowSystemLimit(calculator);
  KeyOutcome outcome;
  outcome.value = value.value();
  outcome.entry = calculator.CalcEntry;
  outcome.pending = pressed;
  outcome.entry_is_present = false;
  outcome.lines = {TapeLine(TapeTextOf(pressed), calculator.CalcEntry)};
  Show(calculator, std::move(outcome));
}

void PressEqual(DeskCalculator& calculator) {
  const Checked value = PendingApplied(calculator);
  if (value.failed()) return ShowSystemLimit(calculator);
  KeyOutcome outcome;
  outcome.value = value.value();
  outcome.entry = GeneralText(outcome.value);
  outcome.lines = {TapeLine(TapeTextOf(calculator.CalcPendingOp), calculator.CalcEntry), TapeRule(),
                   TapeLine(RowOf(CalcKey::kEqual).tape, outcome.entry)};
  Show(calculator, std::move(outcome));
  calculator.selected = static_cast<int>(calculator.List1.size()) - 1;
}

void PressUnary(DeskCalculator& calculator, CalcKey key) {
  if (calculator.CalcValue == 0) {
    const Checked entry = ToNumber(calculator.CalcEntry);
    if (entry.failed()) return ShowSystemLimit(calculator);
    calculator.CalcValue = entry.value();
  }
  std::vector<std::string> first_line = {TapeLine(RowOf(key).tape, GeneralText(calculator.CalcValue))};
  const Checked result = UnaryResult(key, calculator.CalcValue);
  if (result.failed()) {  // the line of the key is on the tape by then
    AddLines(calculator, std::move(first_line));
    return ShowSystemLimit(calculator);
  }
  KeyOutcome outcome;
  outcome.value = result.value();
  outcome.entry = GeneralText(outcome.value);
  outcome.pending = calculator.CalcPendingOp;
  outcome.lines = {std::move(first_line.front()), TapeRule(), TapeLine(RowOf(CalcKey::kEqual).tape, outcome.entry)};
  Show(calculator, std::move(outcome));
}

void PressClear(DeskCalculator& calculator) {
  KeyOutcome outcome;
  outcome.entry = "0";
  outcome.entry_is_present = false;
  Show(calculator, std::move(outcome));
}

bool StoreMemory(DeskCalculator& calculator, CalcMemory memory) {
  const Checked shown = ToNumber(calculator.CalcText1);
  if (shown.failed()) {
    ShowSystemLimit(calculator);
    return false;
  }
  Label(calculator, memory) = GeneralText(shown.value());
  Cell(calculator, memory) = shown.value();
  return true;
}

void RecallMemory(DeskCalculator& calculator, CalcMemory memory) {
  const double number = Cell(calculator, memory);
  KeyOutcome outcome;
  outcome.value = calculator.CalcEntry == "0" ? calculator.CalcValue : number;
  outcome.entry = GeneralText(number);
  outcome.pending = calculator.CalcPendingOp;
  Show(calculator, std::move(outcome));
}

void ClearMemory(DeskCalculator& calculator, CalcMemory memory) {
  Label(calculator, memory) = memory == CalcMemory::kFirst ? kFirstMemoryEmpty : kSecondMemoryEmpty;
  Cell(calculator, memory) = 0;
}

void EnterText(DeskCalculator& calculator, std::string_view text) {
  KeyOutcome outcome;
  outcome.value = calculator.CalcValue;
  outcome.entry = text;
  outcome.pending = calculator.CalcPendingOp;
  Show(calculator, std::move(outcome));
}

bool CopyTapeLine(DeskCalculator& calculator, int line) {
  const std::optional<std::string_view> text = LineOfTape(calculator.List1, line);
  if (!text) return false;
  EnterText(calculator, WithoutOperators(*text));
  return true;
}

void ResetTape(DeskCalculator& calculator) {
  calculator.List1 = {kTapeHeading};
  calculator.selected = -1;
}

std::optional<std::string> NumberOfTapeLine(const DeskCalculator& calculator, int line) {
  const std::optional<std::string_view> text = LineOfTape(calculator.List1, line);
  return text ? NumberBesideOperator(*text) : std::nullopt;
}

std::optional<std::string> NumberOfDisplay(const DeskCalculator& calculator) {
  if (!IsNumeric(calculator.CalcText1)) return std::nullopt;
  return calculator.CalcText1.substr(1);
}

std::string TapeText(const DeskCalculator& calculator) { return JoinedTape(calculator.List1); }

std::string TapePage(const DeskCalculator& calculator) { return PrintedTape(calculator.List1); }

}  // namespace tessara
