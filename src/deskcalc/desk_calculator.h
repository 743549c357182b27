#pragma once

#include <cstdint>
#include <string>
#include <vector>

// The desk calculator: a running value, the entry that is being typed, two memories and a tape of what was done.

namespace tessara {

enum class CalcOperator : std::int16_t { kNone, kAdd, kSubtract, kMultiply, kDivide };

inline constexpr const char* kTapeHeading = "    Calculation History";
inline constexpr const char* kFirstMemoryEmpty = "        Empty";
inline constexpr const char* kSecondMemoryEmpty = "Empty";

struct DeskCalculator {
  double CalcValue = 0;         // the running value
  std::string CalcEntry = "0";  // the digits being typed
  CalcOperator CalcPendingOp = CalcOperator::kNone;
  bool CalcNewEntry = false;  // the next digit starts a new entry
  double CalcMemory1 = 0;
  double CalcMemory2 = 0;
  std::string memory_label1 = kFirstMemoryEmpty;
  std::string memory_label2 = kSecondMemoryEmpty;
  std::string CalcText1 = " 0";                     // the display
  std::vector<std::string> List1 = {kTapeHeading};  // the tape
  int selected = -1;                                // the tape's line that is chosen, counted from 0; -1 for none
  bool tape_is_shown = true;
};

}  // namespace tessara
