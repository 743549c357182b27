#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

// The lines of the desk calculator's tape: an operator in a field of 5 and a number behind it.

namespace tessara {

// The number ends at column 22; a longer one makes the line wider.
std::string TapeLine(std::string_view operator_text, std::string_view number);
// What stands above a result.
std::string TapeRule();

// A line counted from 0; nothing outside the tape.
std::optional<std::string_view> LineOfTape(std::span<const std::string> tape, int line);

// A line without the texts of root and square, the four operators and the equal sign, and without blanks around: the
// sign of a number and that of its exponent go with them.
std::string WithoutOperators(std::string_view line);
// The number behind the operator field, as it stands there; nothing when there is none.
std::optional<std::string> NumberBesideOperator(std::string_view line);

// A line end between the lines.
std::string JoinedTape(std::span<const std::string> tape);
// Title, tape and rows to write notes on.
std::string PrintedTape(std::span<const std::string> tape);

}  // namespace tessara
