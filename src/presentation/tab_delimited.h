#pragma once

#include <string>

#include "presentation/output_log.h"

namespace tessara {

// A report text as tab-delimited text: runs of blanks and vertical bars become tabs, and every hyphen goes, rules and
// minus signs included.
std::string TabDelimited(std::string text);

// Converts the text of the box in place. Neither the log nor the most recent output gets anything from it.
void ConvertOutputToTabDelimited(OutputLog& output);

}  // namespace tessara
