#pragma once

#include <string>

namespace tessara {

// The compact result of a panel, by the value of CurrentPanel, as it stands while nothing has been calculated: its
// report with zeros. Empty for the standard score, which has no compact result.
std::string EmptyResult(int panel);

}  // namespace tessara
