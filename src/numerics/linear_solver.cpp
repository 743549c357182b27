#include "numerics/linear_solver.h"

#include <cmath>

#include "numerics/sums.h"

namespace tessara {
namespace {

constexpr double kShortResidual = 0.0001;
constexpr int kMostRounds = 100;
constexpr double kSmallElement = 0.0001;
constexpr int kMostRotations = 1000;

void Assign(double& target, double value) {
  if (std::isfinite(value)) target = value;
}

// The pair of elements that a rotation mixes.
void RotatePair(const Rotation& rotation, double& at_p, double& at_q) {
  const double s = rotation.sine.value();
  const double c = rotation.cosine.value();
  const double p = at_p;
  const double q = at_q;
  Assign(at_p, c * p - s * q);
  Assign(at_q, s * p + c * q);
}

void RotateMatrix(const Rotation& rotation, MatrixPlace place, Matrix& a) {
  const auto [p, q] = place;
  const double s = rotation.sine.value();
  const double c = rotation.cosine.value();
  for (std::size_t i = 0; i < a.rows(); ++i) {
    if (i == p || i == q) continue;
    RotatePair(rotation, a(i, p), a(i, q));
    a(p, i) = a(i, p);
    a(q, i) = a(i, q);
  }
  const double app = a(p, p);
  const double aqq = a(q, q);
  const double apq = a(p, q);
  Assign(a(p, p), c * c * app - 2 * s * c * apq + s * s * aqq);
  Assign(a(q, q), s * s * app + 2 * s * c * apq + c * c * aqq);
  a(p, q) = 0;
  a(q, p) = 0;
}

void RotateColumns(const Rotation& rotation, MatrixPlace place, Matrix& vectors) {
  for (std::size_t i = 0; i < vectors.rows(); ++i) RotatePair(rotation, vectors(i, place.p), vectors(i, place.q));
}

Matrix Identity(std::size_t k) {
  Matrix identity(k, k);
  for (std::size_t i = 0; i < k; ++i) identity(i, i) = 1;
  return identity;
}

}  // namespace

Checked DotProduct(std::span<const double> a, std::span<const double> b) {
  double sum = 0;
  for (std::size_t i = 0; i < a.size(); ++i) sum += a[i] * b[i];
  return {sum};
}

void MatrixVectorProduct(const Matrix& a, std::span<const double> v, std::span<double> out) {
  for (std::size_t i = 0; i < a.rows(); ++i) {
    const double* const row = a.Row(i);
    out[i] = SumInOrder(a.columns(), [&](std::size_t j) { return row[j] * v[j]; });
  }
}

void ConjugateGradientSolve(const Matrix& a, std::span<double> r, std::span<double> p, std::span<double> x,
                            Number& rho) {
  const std::size_t k = a.rows();
  std::vector<double> t(k);
  Number length;  // a residual whose length overflows keeps the length of the round before
  Number beta;    // 0 in the first round
  Number alpha;   // a direction without length keeps the step of the round before
  for (int count = 1; count <= kMostRounds; ++count) {
    const Checked square = DotProduct(r, r);
    length = Sqrt(square);
    if (length.value() < kShortResidual) return;
    if (count > 1) {
      beta = square / rho;
      rho = square;
    }
    for (std::size_t i = 0; i < k; ++i) Assign(p[i], r[i] + beta.value() * p[i]);
    MatrixVectorProduct(a, p, t);
    alpha = rho / DotProduct(p, t);
    for (std::size_t i = 0; i < k; ++i) Assign(x[i], x[i] + alpha.value() * p[i]);
    for (std::size_t i = 0; i < k; ++i) Assign(r[i], r[i] - alpha.value() * t[i]);
  }
}

std::vector<double> SolveFromZero(const Matrix& a, std::vector<double> right_hand_side) {
  std::vector<double>& r = right_hand_side;
  std::vector<double> p(a.rows());
  std::vector<double> x(a.rows());
  Number rho = DotProduct(r, r);
  ConjugateGradientSolve(a, r, p, x, rho);
  return x;
}

MatrixPlace LargestOffDiagonal(const Matrix& a) {
  MatrixPlace place{0, 1};
  double largest = 0;
  for (std::size_t i = 0; i < a.rows(); ++i) {
    const double* const row = a.Row(i);
    for (std::size_t j = i + 1; j < a.columns(); ++j) {
      if (std::fabs(row[j]) > largest) {
        largest = std::fabs(row[j]);
        place = {i, j};
      }
    }
  }
  return place;
}

Rotation JacobiRotation(std::size_t p, std::size_t q, const Matrix& a) {
  const Number b = -a(p, q);
  const Number d = (Checked(a(p, p)) - a(q, q)) / 2;
  Number w = 1;
  if (d.value() != 0) {
    w = 0;  // what a root that overflows leaves: no rotation
    w = Checked(d.value() > 0 ? 1 : -1) * b / Sqrt(b * b + d * d);
  }
  Rotation rotation;
  rotation.sine = w / Sqrt(2 * (1 + Sqrt(1 - w * w)));
  rotation.cosine = Sqrt(1 - rotation.sine * rotation.sine);
  return rotation;
}

Matrix JacobiInverse(const Matrix& a) {
  const std::size_t k = a.rows();
  Matrix work = a;
  Matrix vectors = Identity(k);
  for (int count = 0; count < kMostRotations && k > 1; ++count) {
    const MatrixPlace place = LargestOffDiagonal(work);
    if (std::fabs(work(place.p, place.q)) < kSmallElement) break;
    const Rotation rotation = JacobiRotation(place.p, place.q, work);
    RotateMatrix(rotation, place, work);
    RotateColumns(rotation, place, vectors);
  }

  Matrix inverse(k, k);
  for (std::size_t i = 0; i < k; ++i) {
    for (std::size_t j = i; j < k; ++j) {
      inverse(i, j) = SumInOrder(k, [&](std::size_t l) {
        const double eigenvalue = work(l, l);
        return eigenvalue == 0 ? 0 : vectors(i, l) * vectors(j, l) / eigenvalue;
      });
      inverse(j, i) = inverse(i, j);
    }
  }
  return inverse;
}

}  // namespace tessara
