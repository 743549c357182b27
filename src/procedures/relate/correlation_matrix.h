#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "numerics/checked.h"
#include "procedures/cases/procedure_run.h"

// The correlation matrix: Pearson's coefficient of every pair of the selected variables in a square table. Deletion is
// pairwise, so each cell has its own n.

namespace tessara {

// The cells of the matrix, rows and columns from 0. A cell and its mirror are the same and are held once.
class CorrelationStore {
 public:
  struct Cell {
    Number r;  // rounded to three decimals
    std::size_t n = 0;
    std::optional<double> p;
  };

  explicit CorrelationStore(std::size_t variables) : size_(variables), cells_(variables * (variables + 1) / 2) {}

  std::size_t size() const { return size_; }
  // Nothing while the pair has not been stored: a pair of fewer than two cases never is.
  const std::optional<Cell>& At(std::size_t i, std::size_t j) const { return cells_[Place(i, j)]; }
  void Store(std::size_t i, std::size_t j, const Cell& cell) { cells_[Place(i, j)] = cell; }

 private:
  static std::size_t Place(std::size_t i, std::size_t j) { return i < j ? j * (j + 1) / 2 + i : i * (i + 1) / 2 + j; }

  std::size_t size_;
  std::vector<std::optional<Cell>> cells_;
};

// Computes each unordered pair once, a variable with itself too.
CorrelationStore ComputeCorrelationMatrix(const CaseSource& source, std::span<const std::size_t> columns);

// Runs the procedure for all analysis variables and appends its report, behind an error frame for each pair of fewer
// than two cases.
void RunCorrelationMatrix(ProcedureRun& run, std::span<const std::size_t> columns);

}  // namespace tessara
