#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "batch/commands/commands.h"
#include "batch/words/script_line.h"
#include "deskcalc/desk_calculator.h"

namespace tessara {
namespace {

std::string KeyNames() {
  std::string names;
  for (const CalcKeyRow& row : CalcKeys()) names.append(names.empty() ? "" : " ").append(row.word);
  return names;
}

bool IsTypedNumber(std::string_view word) {
  return !word.empty() && word.find_first_not_of("0123456789.") == word.npos;
}

// Adds the keys of a word: one by its name, or a number key by key. False when it stands for none.
bool AddKeys(std::vector<CalcKey>& keys, std::string_view word) {
  if (const auto key = KeyOfWord(word)) {
    keys.push_back(*key);
    return true;
  }
  if (!IsTypedNumber(word)) return false;
  for (const char& character : word) keys.push_back(KeyOfWord({&character, 1}).value());
  return true;
}

// No key is pressed before all are known.
CommandResult Run(Batch& batch, const CommandWords& words) {
  std::vector<CalcKey> keys;
  for (const std::string& word : words.words) {
    if (!AddKeys(keys, word)) return NotUnderstood(Quoted(word) + " is no key; the keys are " + KeyNames());
  }
  DeskCalculator& calculator = batch.session.calculator;
  for (const CalcKey key : keys) PressKey(calculator, key);
  batch.stream.PrintText(TapeText(calculator) + "\r\n" + calculator.CalcText1 + "\r\n");
  return Done();
}

}  // namespace

constinit const CommandRow kCalculatorCommand{
    .name = "calculator",
    .synopsis = "KEY...",
    .summary = "press keys of the desk calculator",
    .details =
        "Presses the keys one after the other and prints the tape and the display at once; the log\n"
        "gets nothing. Keys are the digits, \".\", \"+\", \"-\", \"*\", \"/\", \"=\", \"sqrt\", \"sq\", \"1/x\", "
        "\"n!\",\n"
        "\"nl\", \"log\", \"Exp\", \"Int\", \"back\" (the last character typed goes) and \"clear\" (begins anew,\n"
        "the tape stays). Blanks stand between keys; a number may be one word, as 12.5. Operators\n"
        "work from left to right. \"sqrt\" and its kin work on the running value, and on the number\n"
        "just typed only while that value is 0. The next line of a script goes on where this one\n"
        "ends. In a shell the keys \"*\" and \"n!\" want quotes around them.\n",
    .example = "calculator 12.5 + 3 =",
    .most_words = kAnyNumber,
    .run = Run,
};

}  // namespace tessara
