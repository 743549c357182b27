#pragma once

#include <string>
#include <string_view>

#include "numerics/checked.h"
#include "numerics/tagged_value.h"

// Columns of a monospaced report. Lines end in CR LF, nothing wraps, and alignment comes from these routines alone.

namespace tessara {

inline constexpr std::string_view kLineEnd = "\r\n";

// A number right-aligned in a width, with 1 to 5 decimals; any other count gives the general text. A text of more than
// 15 characters is shortened by way of single precision, once; beyond the range of single precision it stays as it was.
// One that is wider than the width is never cut: it follows two blanks and pushes the rest of the line to the right.
std::string FormatCol(const TaggedView& value, int width, int decimals);
std::string FormatCol(const Number& value, int width, int decimals);
std::string FormatCol(double value, int width, int decimals);

// Left-aligned in a width, cut when longer, with nothing to mark the cut.
std::string PadRight(const TaggedView& value, int width);

// Right-aligned in a width, cut when longer, then one blank: always width + 1 long.
std::string PadLeftBlank(const TaggedView& value, int width);

// A rule of dashes, without a line end; 79 of them stand under the title block of most reports.
std::string DashedRule(int length = 79);

std::string Blanks(int count);

// The report head that most procedures share, three lines with their line ends: title, the variable's name and label,
// the rule.
std::string ReportHead(std::string_view title, std::string_view name, std::string_view label);

// The error frame around a procedure's pending text, ready for the log.
std::string ErrorFrame(std::string_view pending_text);

// The text that stands in an error frame: title (which brings its own ": "), name, two line ends, the sentence, two
// line ends.
std::string ErrorMessage(std::string_view title, std::string_view variable_name, std::string_view sentence);

}  // namespace tessara
