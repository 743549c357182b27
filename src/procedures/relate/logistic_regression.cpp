#include "procedures/relate/logistic_regression.h"

#include <algorithm>
#include <cmath>

#include "numerics/masks.h"
#include "numerics/number_text.h"
#include "numerics/probability.h"
#include "numerics/report_text.h"
#include "numerics/sums.h"
#include "procedures/cases/saved_column.h"
#include "procedures/relate/regression_report.h"

namespace tessara {
namespace {

constexpr int kMostRounds = 200;
constexpr double kSmallStep = 0.00001;
constexpr double kMostEta = 200;  // keeps exp(eta) within the range; there is no lower limit

// What the cases of a block have in common for all sums of a round.
class BlockOdds {
 public:
  explicit BlockOdds(double eta_before) : last_eta(eta_before) {}

  void Compute(const ModelBlock& block, std::span<const double> coefficients) {
    Predict(block, coefficients, last_eta, eta.data());
    for (std::size_t c = 0; c < block.count; ++c) eta[c] = std::min(eta[c], kMostEta);
    last_eta = eta[block.count - 1];
    for (std::size_t c = 0; c < block.count; ++c) e[c] = std::exp(eta[c]);
    for (std::size_t c = 0; c < block.count; ++c) p[c] = e[c] / (1 + e[c]);
  }

  using Column = std::array<double, ModelBlock::kMostCases>;
  Column eta, e, p;
  double last_eta;  // of the case before; it outlives blocks and rounds, for a case whose own fails
};

// One pass of Newton's method at the coefficients of a round.
struct NewtonPass {
  explicit NewtonPass(std::size_t k) : Hessian(k, k), Gradient(k) {}

  bool finite() const { return AllFinite(Hessian.elements()) && AllFinite(Gradient) && std::isfinite(log_likelihood); }

  Matrix Hessian;
  std::vector<double> Gradient;
  double log_likelihood = 0;
  double last_eta = 0;
};

double AddLikelihood(const double* y, const BlockOdds& odds, std::size_t count, double sum, SumSteps steps) {
  if (steps == SumSteps::kPlain) {
    for (std::size_t c = 0; c < count; ++c) sum += y[c] * odds.eta[c] - std::log(1 + odds.e[c]);
    return sum;
  }
  for (std::size_t c = 0; c < count; ++c) {
    const double next = sum + (y[c] * odds.eta[c] - std::log(1 + odds.e[c]));
    if (std::isfinite(next)) sum = next;
  }
  return sum;
}

NewtonPass PassOverCases(const ModelCases& cases, const LogisticOutcomes& outcomes,
                         std::span<const double> coefficients, double eta_before, SumSteps steps) {
  NewtonPass pass(cases.k());
  BlockOdds odds(eta_before);
  BlockOdds::Column difference, weight, weighted;
  ForEachBlock(cases, [&](const ModelBlock& block) {
    const double* const y = outcomes.response.data() + block.first;
    odds.Compute(block, coefficients);
    for (std::size_t c = 0; c < block.count; ++c) {
      difference[c] = y[c] - odds.p[c];
      weight[c] = odds.e[c] / ((1 + odds.e[c]) * (1 + odds.e[c]));
    }
    AddProducts(difference.data(), block.x, block.count, pass.Gradient.data(), steps);
    // Both halves of the matrix are summed: (w x) z and (w z) x need not round to the same double.
    for (std::size_t j = 0; j < cases.k(); ++j) {
      for (std::size_t c = 0; c < block.count; ++c) weighted[c] = weight[c] * block.x[j][c];
      AddProducts(weighted.data(), block.x, block.count, pass.Hessian.Row(j), steps);
    }
    pass.log_likelihood = AddLikelihood(y, odds, block.count, pass.log_likelihood, steps);
  });
  pass.last_eta = odds.last_eta;
  return pass;
}

NewtonPass PassOverCases(const ModelCases& cases, const LogisticOutcomes& outcomes,
                         std::span<const double> coefficients, double eta_before) {
  NewtonPass pass = PassOverCases(cases, outcomes, coefficients, eta_before, SumSteps::kPlain);
  return pass.finite() ? pass : PassOverCases(cases, outcomes, coefficients, eta_before, SumSteps::kWithCare);
}

// Adds the step to the coefficients, and yields its length: the sum of the absolute values.
double TakeStep(const std::vector<double>& delta, std::vector<double>& coefficients) {
  for (std::size_t j = 0; j < delta.size(); ++j) {
    const double next = coefficients[j] + delta[j];
    if (std::isfinite(next)) coefficients[j] = next;
  }
  return SumInOrder(delta.size(), [&](std::size_t j) { return std::fabs(delta[j]); });
}

// Leaves the coefficients and the count in the model, and yields the last pass. That pass was made ahead of the last
// step: the deviance and the errors belong to the coefficients of the round before.
NewtonPass Iterate(const ModelCases& cases, const LogisticOutcomes& outcomes, LogisticModel& model) {
  NewtonPass pass(cases.k());
  std::vector<double> delta(cases.k());
  model.Coef.assign(cases.k(), 0);
  int round = 1;
  for (; round <= kMostRounds; ++round) {
    if (round > 1 && TakeStep(delta, model.Coef) < kSmallStep) break;
    pass = PassOverCases(cases, outcomes, model.Coef, pass.last_eta);
    delta = SolveFromZero(pass.Hessian, pass.Gradient);
  }
  model.IterationCount = round;
  return pass;
}

void ComputeTests(LogisticModel& model) {
  // A coefficient without an error keeps the test of the one before, and so does one whose figure fails.
  Number wald, p, odds_ratio;
  for (std::size_t j = 0; j < model.Coef.size(); ++j) {
    const Checked ratio = Checked(model.Coef[j]) / model.CoefSE[j];
    wald = ratio * ratio;
    p = ChiSquareP(1, wald);
    if (j > 0) odds_ratio = Exp(model.Coef[j]);  // the constant has none, and leaves none to keep
    model.wald.push_back(wald.value());
    model.p.push_back(p.value());
    model.odds_ratio.push_back(odds_ratio.value());
  }
}

void ComputeFit(const Number& n, LogisticModel& model) {
  model.cox_snell = 1 - Exp((model.ModelDeviance - model.InitialDeviance) / n);
  model.mcfadden = 1 - model.ModelDeviance / model.InitialDeviance;
  model.chi_square = model.InitialDeviance - model.ModelDeviance;
  model.degrees_of_freedom = static_cast<double>(model.Coef.size() - 1);
  model.chi_square_p = Computed(ChiSquareP(model.degrees_of_freedom, model.chi_square));
}

std::vector<double> Probabilities(const ModelCases& cases, const std::vector<double>& coefficients, double eta_before) {
  std::vector<double> probabilities(cases.n);
  BlockOdds odds(eta_before);
  ForEachBlock(cases, [&](const ModelBlock& block) {
    odds.Compute(block, coefficients);
    std::copy_n(odds.p.data(), block.count, probabilities.data() + block.first);
  });
  return probabilities;
}

void Classify(const ModelCases& cases, LogisticModel& model) {
  auto& table = model.ClassTable;
  const std::vector<double>& y = cases.ModelY();
  for (std::size_t i = 0; i < cases.n; ++i) {
    if (y[i] != 0 && y[i] != 1) continue;
    ++table[y[i] == 1 ? 1 : 0][model.probabilities[i] >= .5 ? 1 : 0];
  }
  const auto percent = [](std::size_t correct, std::size_t all) {
    return Computed(Checked(static_cast<double>(correct)) / static_cast<double>(all) * 100);
  };
  model.percent_correct[0] = percent(table[0][0], table[0][0] + table[0][1]);
  model.percent_correct[1] = percent(table[1][1], table[1][0] + table[1][1]);
  model.percent_correct_overall = percent(table[0][0] + table[1][1], cases.n);
}

}  // namespace

LogisticOutcomes ReadOutcomes(const ModelCases& cases) {
  LogisticOutcomes outcomes;
  outcomes.response.resize(cases.n);
  for (std::size_t i = 0; i < cases.n; ++i) {
    const double y = cases.ModelY()[i];
    outcomes.response[i] = y == 1 ? 1 : 0;
    outcomes.CountY1 += y == 1 ? 1 : 0;
    outcomes.CountY0 += y == 0 ? 1 : 0;
  }
  return outcomes;
}

LogisticModel ComputeLogistic(const ModelCases& cases, const LogisticOutcomes& outcomes) {
  const Number n = static_cast<double>(cases.n);
  const Number ones = static_cast<double>(outcomes.CountY1);
  const Number zeros = static_cast<double>(outcomes.CountY0);
  LogisticModel model;
  model.InitialDeviance = -2 * (ones * Log(ones / n) + zeros * Log(zeros / n));
  const NewtonPass pass = Iterate(cases, outcomes, model);
  model.ModelDeviance = Checked(-2) * pass.log_likelihood;
  model.CoefSE = CoefficientErrors(JacobiInverse(pass.Hessian), 1);
  ComputeTests(model);
  ComputeFit(n, model);
  model.probabilities = Probabilities(cases, model.Coef, pass.last_eta);
  Classify(cases, model);
  return model;
}

namespace {

std::string TooFewOutcomes(const ModelCases& cases, const LogisticOutcomes& outcomes) {
  const auto count = [](std::size_t number) { return FormatCol(static_cast<double>(number), 5, 0); };
  return ErrorMessage("Logistic Regression Comparison for Y = ", cases.dependent_name,
                      "Logistic regression assumes that the dependent variable will be coded 1 for \r\n"
                      "the response of interest and the base comparison group will be coded as 0. \r\n"
                      "There must also be at least k + 1 observations in both the 1 and the 0 group.\r\n"
                      "\r\n"
                      "See below: \r\n"
                      "\r\n"
                      "k + 1: " +
                          count(cases.k()) + "  (Minimum Obs required in each group)\r\n" + "Y = 1: " +
                          count(outcomes.CountY1) + "  Obs\r\n" + "Y = 0: " + count(outcomes.CountY0) + "  Obs\r\n" +
                          "\r\n"
                          "Run frequencies on the dependent variable to check its properties.");
}

std::string CoefficientRow(const ModelCases& cases, const LogisticModel& model, std::size_t j) {
  std::string row = PadLeftBlank(cases.ModelNames[j], 12);
  row += FormatCol(model.Coef[j], 15, 4);
  row += FormatCol(model.CoefSE[j], 12, 4);
  row += FormatCol(model.wald[j], 13, 4);
  row += FormatCol(model.p[j], 12, 4);
  if (j > 0) row += FormatCol(model.odds_ratio[j], 11, 4);
  return row + "\r\n";
}

std::string CaseLine(std::string_view caption, std::size_t count, std::size_t n) {
  const Number number = static_cast<double>(count);
  const Number share = number / static_cast<double>(n) * 100;
  return std::string(caption) + FormatCol(number, 5, 0) + FormatCol(share, 10, 2) + "%\r\n";
}

std::string ModelText(const ModelCases& cases, const LogisticOutcomes& outcomes, const LogisticModel& model,
                      const CaseControl& control, bool with_summary) {
  const std::string rule = DashedRule(kRegressionRuleLength) + "\r\n";
  std::string report = DashedRule(30) + " Logistic Regression " + DashedRule(31) + "\r\n";
  if (control.active()) report += control.ChartFootnote() + "\r\n";  // the words of the caption, and one line end
  report += "Dependent Y: " + cases.dependent_name + "\r\n\r\n";
  report += CaseLine("Cases with Y=0: ", outcomes.CountY0, cases.n);
  report += CaseLine("Cases with Y=1: ", outcomes.CountY1, cases.n);
  report += "Total Cases:    " + FormatCol(static_cast<double>(cases.n), 5, 0) + "\r\n\r\n";
  report += "Explanatory Model\r\n\r\n";
  report += ModelEquation(cases);
  if (with_summary) report += SummaryTable(cases);
  report += "\r\n\r\nModel Fit Statistics\r\n\r\n";
  report += "Initial -2 Log Likelihood " + FormatCol(model.InitialDeviance, 12, 3) + "\r\n";
  report += "Model -2 Log Likelihood   " + FormatCol(model.ModelDeviance, 12, 3) + "    Iteration (" +
            std::to_string(model.IterationCount) + ")\r\n";
  report += "Cox & Snell Rsq           " + FormatCol(model.cox_snell, 12, 3) + "\r\n";
  report += "McFadden Rsq              " + FormatCol(model.mcfadden, 12, 3) + "\r\n";
  report += "Model Chi-Square          " + FormatCol(model.chi_square, 12, 3) + "    df " +
            TextOf(model.degrees_of_freedom.value()) + "    p< " + MaskedOrEmpty(model.chi_square_p, "0.0000") +
            "\r\n\r\n";
  report += "Coefficients\r\n\r\n";
  report += PadLeftBlank("Variable", 12) + PadLeftBlank("b Coeff.", 15) + PadLeftBlank("SE", 11) +
            PadLeftBlank("Wald", 12) + PadLeftBlank("p <", 11) + PadLeftBlank("OR", 10) + "\r\n";
  report += rule;
  for (std::size_t j = 0; j < cases.k(); ++j) report += CoefficientRow(cases, model, j);
  report += rule + "\r\n";
  report += "Estimated Model\r\n";
  report += EstimatedEquation(cases, model.Coef, ".0000");
  return report;
}

std::string ClassificationText(const LogisticModel& model) {
  const std::string border = "             +" + DashedRule(11) + "+" + DashedRule(11) + "+\r\n";
  const auto count = [](std::size_t number) { return PadLeftBlank(static_cast<double>(number), 10); };
  const auto percent = [](const std::optional<double>& share) {
    return PadLeftBlank(MaskedOrEmpty(share, "0.00"), 10);
  };
  const auto& table = model.ClassTable;
  std::string text = "\r\n\r\n\r\nClassification Table (.50 cutpoint)\r\n\r\n\r\n";
  text += PadLeftBlank("Predicted Y", 31) + "\r\n";
  text += "Observed Y          0" + PadLeftBlank("1", 11) + "      % Correct\r\n";
  text += border;
  text += "         0   |" + count(table[0][0]) + "|" + count(table[0][1]) + "|" + percent(model.percent_correct[0]) +
          "\r\n";
  text += border;
  text += "         1   |" + count(table[1][0]) + "|" + count(table[1][1]) + "|" + percent(model.percent_correct[1]) +
          "\r\n";
  text += border;
  text += "                                Total " + percent(model.percent_correct_overall) + "\r\n\r\n";
  return text;
}

// Two new variables without labels. A case that is neither 0 nor 1 has the residual of a 0.
void SavePredicted(ProcedureRun& run, const ModelCases& cases, const LogisticOutcomes& outcomes,
                   const LogisticModel& model) {
  std::vector<double> residuals(cases.n);
  for (std::size_t i = 0; i < cases.n; ++i) residuals[i] = outcomes.response[i] - model.probabilities[i];
  constexpr const char* kWhat = "Save Predicted and Residuals";
  run.SaveColumn(MakeSavedColumn("Pi-" + cases.dependent_name, cases.accepted, model.probabilities), kWhat);
  run.SaveColumn(MakeSavedColumn("R-" + cases.dependent_name, cases.accepted, residuals), kWhat);
}

}  // namespace

void ReportLogistic(ProcedureRun& run, const CaseControl& control, const ModelCases& cases,
                    const LogisticOptions& options) {
  const LogisticOutcomes outcomes = ReadOutcomes(cases);
  if (outcomes.CountY0 < cases.k() || outcomes.CountY1 < cases.k()) {
    run.ReportError(TooFewOutcomes(cases, outcomes));
    return;
  }
  const LogisticModel model = ComputeLogistic(cases, outcomes);
  if (options.save_predicted) SavePredicted(run, cases, outcomes, model);
  run.AppendReport(ModelText(cases, outcomes, model, control, options.summary) + ClassificationText(model));
}

}  // namespace tessara
