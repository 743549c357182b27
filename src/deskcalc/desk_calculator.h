#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// The desk calculator: a running value, the entry that is being typed, two memories and a tape of what was done.
//
// Each key is an operation. What cannot be computed, or an entry that is no number, ends the operation there: the
// display says so, nothing is pending any more, and the tape keeps what it had.

namespace tessara {

enum class CalcOperator : std::int16_t { kNone, kAdd, kSubtract, kMultiply, kDivide };

enum class CalcMemory { kFirst, kSecond };

inline constexpr const char* kTapeHeading = "    Calculation History";
inline constexpr const char* kFirstMemoryEmpty = "        Empty";
inline constexpr const char* kSecondMemoryEmpty = "Empty";
inline constexpr const char* kSystemLimit = "System limit exceeded   ";

struct DeskCalculator {
  double CalcValue = 0;         // the running value
  std::string CalcEntry = "0";  // the digits being typed
  CalcOperator CalcPendingOp = CalcOperator::kNone;
  bool CalcNewEntry = true;       // the next digit starts a new entry; while it is off the display shows the entry
  bool entry_is_present = false;  // something was entered since the last operator
  double CalcMemory1 = 0;
  double CalcMemory2 = 0;
  std::string memory_label1 = kFirstMemoryEmpty;
  std::string memory_label2 = kSecondMemoryEmpty;
  std::string CalcText1 = " 0";                     // the display
  std::vector<std::string> List1 = {kTapeHeading};  // the tape
  int selected = -1;                                // the tape's line that is chosen, counted from 0; -1 for none
  bool tape_is_shown = true;
};

enum class CalcKey {
  k0,
  k1,
  k2,
  k3,
  k4,
  k5,
  k6,
  k7,
  k8,
  k9,
  kPoint,
  kBackspace,
  kAdd,
  kSubtract,
  kMultiply,
  kDivide,
  kEqual,
  kSquareRoot,
  kSquare,
  kReciprocal,
  kFactorial,
  kNaturalLog,
  kLog,
  kAntilog,
  kInteger,
  kClear,
};

struct CalcKeyRow {
  CalcKey key;
  std::string_view word;           // by which a script names the key
  std::string_view tape = {};      // the operator field of its line
  std::string_view tool_tip = {};  // empty for none
};

// All keys in the order of their numbers.
std::span<const CalcKeyRow> CalcKeys();
const CalcKeyRow& RowOf(CalcKey key);
std::optional<CalcKey> KeyOfWord(std::string_view word);

void PressKey(DeskCalculator& calculator, CalcKey key);

// The operations behind the keys. A digit is '0' to '9', or the decimal point, ahead of which a "0" stays.
void PressDigit(DeskCalculator& calculator, char digit);
void PressBackspace(DeskCalculator& calculator);
void PressOperator(DeskCalculator& calculator, CalcOperator pressed);
void PressEqual(DeskCalculator& calculator);
// One of the keys from the square root to the integer part. They work on the running value, or on the entry while that
// value is 0.
void PressUnary(DeskCalculator& calculator, CalcKey key);
// Begins anew: the tape and the memories stay.
void PressClear(DeskCalculator& calculator);

// Puts the display's number into a memory; false, and an arithmetic error, when it shows none.
bool StoreMemory(DeskCalculator& calculator, CalcMemory memory);
void RecallMemory(DeskCalculator& calculator, CalcMemory memory);
void ClearMemory(DeskCalculator& calculator, CalcMemory memory);

// Makes a text the entry, as if it had been typed.
void EnterText(DeskCalculator& calculator, std::string_view text);
// Puts what a line of the tape holds beside its operator into the entry; signs leave with the operators. False when
// there is no such line.
bool CopyTapeLine(DeskCalculator& calculator, int line);
void ResetTape(DeskCalculator& calculator);

// The whole number of a tape's line, with its sign; nothing for the heading and the rules.
std::optional<std::string> NumberOfTapeLine(const DeskCalculator& calculator, int line);
// The number that the display shows; nothing when it shows none.
std::optional<std::string> NumberOfDisplay(const DeskCalculator& calculator);
// The tape, a line end between its lines.
std::string TapeText(const DeskCalculator& calculator);
// The printed page: the tape, and room for notes.
std::string TapePage(const DeskCalculator& calculator);

}  // namespace tessara
