#include "procedures/run.h"

#include "procedures/cases/procedure_run.h"
#include "procedures/compare/anova.h"
#include "procedures/compare/crosstabulation.h"
#include "procedures/compare/diagnostic.h"
#include "procedures/compare/two_sample_t.h"
#include "procedures/describe/descriptives.h"
#include "procedures/describe/frequencies.h"
#include "procedures/describe/list_variables.h"
#include "procedures/relate/correlation.h"
#include "procedures/relate/correlation_matrix.h"
#include "procedures/relate/regression.h"

namespace tessara {
namespace {

constexpr const char* kAborted = "Procedure Aborted";
constexpr const char* kTryAgain = "Try Again!";
constexpr const char* kComesNext =
    "This procedure comes next: it is on its way and will be part of a coming release of Tessara.";

// How the loop over the analysis variables goes on.
enum class Step {
  kNextVariable,
  kLeaveLoop,  // the procedure has taken all variables at once
  kEndRun,     // a message box has refused the run
};

Step Refuse(Platform& platform, const char* title, const char* text) {
  platform.ShowMessage({title, text});
  return Step::kEndRun;
}

Step ComesNext(Platform& platform) { return Refuse(platform, kTryAgain, kComesNext); }

using RunProcedure = void (*)(ProcedureRun& run, const Roles& roles);

// The procedure for each of the independent variables, in list order.
void RunForIndependents(ProcedureRun& run, std::size_t main, RunProcedure procedure) {
  for (const std::size_t column : run.panel.IndependentVariables) procedure(run, {.main = main, .independent = column});
}

Step RefuseWithoutIndependent(ProcedureRun& run) {
  return Refuse(run.platform, kAborted, "Please select an independent variable.");
}

// The same for a procedure that cannot do without one.
Step Compare(ProcedureRun& run, std::size_t main, RunProcedure procedure) {
  if (run.panel.IndependentVariables.empty()) return RefuseWithoutIndependent(run);
  RunForIndependents(run, main, procedure);
  return Step::kNextVariable;
}

Step Correlate(ProcedureRun& run, std::size_t main) {
  if (!run.panel.checks.Check2) return Compare(run, main, RunCorrelation);
  if (run.panel.SelectedVariables.size() < 2) {
    return Refuse(run.platform, kAborted, "Please select two analysis variables.");
  }
  RunCorrelationMatrix(run);
  return Step::kLeaveLoop;
}

// One model of the first analysis variable on all independent variables.
Step Regress(ProcedureRun& run, std::size_t main) {
  if (run.panel.IndependentVariables.empty()) return RefuseWithoutIndependent(run);
  RunRegression(run, {.main = main});
  return Step::kLeaveLoop;
}

// The selected procedure for one analysis variable.
Step RunForVariable(ProcedureRun& run, std::size_t main) {
  switch (run.panel.selected) {
    case Procedure::kFrequencies:
      RunFrequencies(run, {.main = main});
      RunForIndependents(run, main, RunCrosstabulation);
      return Step::kNextVariable;
    case Procedure::kDescriptives:
      RunDescriptives(run, {.main = main});
      return Step::kNextVariable;
    case Procedure::kCorrelation:
      return Correlate(run, main);
    case Procedure::kCrosstabulation:
      return Compare(run, main, RunCrosstabulation);
    case Procedure::kTTest:
      return Compare(run, main, RunTTest);
    case Procedure::kAnova:
      return Compare(run, main, RunAnova);
    case Procedure::kRegression:
      return Regress(run, main);
    case Procedure::kDiagnostic:
      return Compare(run, main, RunDiagnostic);
    case Procedure::kListVariables:
      RunListVariables(run);
      return Step::kLeaveLoop;
    case Procedure::kExplore:
    case Procedure::kSummaryTables:
    case Procedure::kRandomSample:
    case Procedure::kRepeatedSampling:
      return ComesNext(run.platform);
    case Procedure::kNone:
      break;
  }
  return Refuse(run.platform, kTryAgain, "Please select a statistical procedure.");
}

Step RunForAllVariables(ProcedureRun& run) {
  for (const std::size_t column : run.panel.SelectedVariables) {
    if (const Step step = RunForVariable(run, column); step != Step::kNextVariable) return step;
  }
  return Step::kNextVariable;
}

// A request to cut the data to the cases that pass the control, and not a run.
bool IsSubsetRequest(const DataSet& data, const ProcedurePanel& panel) {
  return ControlIsSet(panel, data) && panel.SelectedVariables.empty() && panel.IndependentVariables.empty();
}

}  // namespace

RunOutcome Run(DataSet& data, const ProcedurePanel& panel, OutputLog& output, ChartStore& charts, Platform& platform) {
  const WaitCursor wait(platform);
  RunOutcome outcome;
  if (IsSubsetRequest(data, panel)) {
    ComesNext(platform);
    outcome.refused = true;
    return outcome;
  }
  if (panel.SelectedVariables.empty()) {
    Refuse(platform, kAborted, "Please select a dependent variable.");
    outcome.refused = true;
    return outcome;
  }
  if (panel.selected == Procedure::kRegression) ClearBox(output);
  BeginRun(output);
  ClearCharts(charts);
  charts.SelectedVariableCount = panel.SelectedVariables.size();
  ProcedureRun run{.data = data, .panel = panel, .output = output, .charts = charts, .platform = platform};
  outcome.refused = RunForAllVariables(run) == Step::kEndRun;
  // A box that was emptied for a report that did not come shows its text again, so that nobody stores back an empty
  // log.
  if (outcome.refused && panel.selected == Procedure::kRegression) RefreshOutputView(output);
  // Descriptives are done; their comparison by the independent variables is still to come.
  if (!outcome.refused && panel.selected == Procedure::kDescriptives && !panel.IndependentVariables.empty()) {
    ComesNext(platform);
  }
  outcome.aborted = run.aborted;
  return outcome;
}

}  // namespace tessara
