#pragma once

// What correlation and regression can be asked for.

namespace tessara {

struct CorrelationOptions {
  bool create_matrix = false;  // of all analysis variables, in the place of a report on each pair
};

struct LeastSquaresOptions {
  bool save_residuals = false;  // as a new variable
  bool summary = false;         // summary statistics of the variables of the model
};

struct LogisticOptions {
  bool save_predicted = false;  // with the residuals, as new variables
  bool summary = false;
};

}  // namespace tessara
