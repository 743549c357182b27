#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "calculators/chi_square_table.h"

// Typed tables and their pages, for tests.

namespace tessara {

inline ChiSquareBoxes Typed(const std::vector<std::vector<std::string>>& rows) {
  ChiSquareBoxes boxes;
  for (std::size_t row = 0; row < rows.size(); ++row) {
    for (std::size_t column = 0; column < rows[row].size(); ++column) boxes.cells[row][column] = rows[row][column];
  }
  return boxes;
}

inline std::string ReportOf(const std::vector<std::vector<std::string>>& rows) {
  return CalculateChiSquareTable(Typed(rows)).calculation.report.value_or("no report");
}

inline bool Contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

// The part of a text from one stretch up to another.
inline std::string Between(const std::string& text, const std::string& from, const std::string& to) {
  const std::size_t start = text.find(from);
  if (start == std::string::npos) return "no " + from;
  const std::size_t end = text.find(to, start);
  return text.substr(start, end == std::string::npos ? end : end - start);
}

}  // namespace tessara
