#pragma once

#include <string>

namespace tessara {

// A report text as the cells of a sheet: a line is a row, a tab leads to the next cell. Runs of blanks and vertical
// bars become tabs; page break marks, rules and hyphens go, but for the minus of a number behind a blank, "+/-", and
// the hyphens of "t-", "D-" and "LR-".
std::string SheetText(std::string text);

}  // namespace tessara
