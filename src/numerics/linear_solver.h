#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "numerics/checked.h"

// The linear algebra below the regressions: conjugate gradients for the coefficients, and an inverse by way of the
// eigenvalues for their errors. There is no elimination and no pivoting, and the thresholds are absolute, so what is
// printed for badly scaled or collinear data is what these routines arrive at. Every printed coefficient follows from
// them: neither may be replaced by a more accurate method.
//
// The matrices have one row a coefficient. A step that fails keeps its target, element by element.

namespace tessara {

// A matrix of doubles, one row behind the other. Starts with zeros.
class Matrix {
 public:
  Matrix() = default;
  Matrix(std::size_t rows, std::size_t columns) : rows_(rows), columns_(columns), elements_(rows * columns) {}

  std::size_t rows() const { return rows_; }
  std::size_t columns() const { return columns_; }

  double& operator()(std::size_t row, std::size_t column) { return elements_[row * columns_ + column]; }
  double operator()(std::size_t row, std::size_t column) const { return elements_[row * columns_ + column]; }
  double* Row(std::size_t row) { return elements_.data() + row * columns_; }
  const double* Row(std::size_t row) const { return elements_.data() + row * columns_; }
  std::span<const double> elements() const { return elements_; }

 private:
  std::size_t rows_ = 0;
  std::size_t columns_ = 0;
  std::vector<double> elements_;
};

// The sum of a(i) b(i), from left to right. Fails as a whole beyond the range of a double.
Checked DotProduct(std::span<const double> a, std::span<const double> b);

// out = A v. A term beyond the range of a double is left out of its sum.
void MatrixVectorProduct(const Matrix& a, std::span<const double> v, std::span<double> out);

// Solves A x = r by conjugate gradients (Hestenes and Stiefel 1952) for a symmetric A. Expects r with the right-hand
// side, the direction p and the solution x with zeros, and rho with r dot r; all four change. Ends after 100 rounds, or
// as soon as the residual is shorter than 0.0001; which of the two is not told.
void ConjugateGradientSolve(const Matrix& a, std::span<double> r, std::span<double> p, std::span<double> x,
                            Number& rho);

// The same, from the right-hand side alone.
std::vector<double> SolveFromZero(const Matrix& a, std::vector<double> right_hand_side);

// A place above the diagonal, from 0.
struct MatrixPlace {
  std::size_t p = 0;
  std::size_t q = 0;
};
// The place of the largest absolute element above the diagonal; the first in the order of the rows among equal ones.
// The matrix has two rows or more.
MatrixPlace LargestOffDiagonal(const Matrix& a);

struct Rotation {
  Number sine;
  Number cosine;
};
// The rotation of rows and columns p and q that makes a(p, q) vanish (Jacobi 1846).
Rotation JacobiRotation(std::size_t p, std::size_t q, const Matrix& a);

// The inverse of a symmetric matrix from its eigenvalues and eigenvectors, by 1000 rotations at the most; they end
// earlier when no element above the diagonal reaches 0.0001. An eigenvalue of exactly 0 is left out, so a singular
// matrix has a pseudo-inverse and no failure.
Matrix JacobiInverse(const Matrix& a);

}  // namespace tessara
