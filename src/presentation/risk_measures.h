#pragma once

#include <string>

#include "numerics/counted_table.h"

// The section of the risk measures, which stands in the reports on tables of cases and of typed counts.

namespace tessara {

// The heading and the two lines of odds ratio and relative risk, behind an empty line. A ratio that could not be
// computed whole has its label alone.
std::string RiskMeasuresText(const TableStatistics& statistics);

}  // namespace tessara
