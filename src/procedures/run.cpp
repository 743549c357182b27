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

using RunProcedure = void (*)(ProcedureRun& run);

// The procedure for each of the independent variables, in list order.
void RunForIndependents(ProcedureRun& run, RunProcedure procedure) {
  for (const std::size_t column : run.panel.IndependentVariables) {
    run.data.RoleVariable[kIndependentRole] = column;
    procedure(run);
  }
}

Step RefuseWithoutIndependent(ProcedureRun& run) {
  return Refuse(run.platform, kAborted, "Please select an independent variable.");
}

// The same for a procedure that cannot do without one.
Step Compare(ProcedureRun& run, RunProcedure procedure) {
  if (run.panel.IndependentVariables.empty()) return RefuseWithoutIndependent(run);
  RunForIndependents(run, procedure);
  return Step::kNextVariable;
}

Step Correlate(ProcedureRun& run) {
  if (!run.panel.checks.Check2) return Compare(run, RunCorrelation);
  if (run.panel.SelectedVariables.size() < 2) {
    return Refuse(run.platform, kAborted, "Please select two analysis variables.");
  }
  RunCorrelationMatrix(run);
  return Step::kLeaveLoop;
}

// One model of the first analysis variable on all independent variables.
Step Regress(ProcedureRun& run) {
  if (run.panel.IndependentVariables.empty()) return RefuseWithoutIndependent(run);
  RunRegression(run);
  return Step::kLeaveLoop;
}

// The selected procedure for the variable in the main role.
Step RunForVariable(ProcedureRun& run) {
  switch (run.panel.selected) {
    case Procedure::kFrequencies:
      RunFrequencies(run);
      RunForIndependents(run, RunCrosstabulation);
      return Step::kNextVariable;
    case Procedure::kDescriptives:
      RunDescriptives(run);
      return Step::kNextVariable;
    case Procedure::kCorrelation:
      return Correlate(run);
    case Procedure::kCrosstabulation:
      return Compare(run, RunCrosstabulation);
    case Procedure::kTTest:
      return Compare(run, RunTTest);
    case Procedure::kAnova:
      return Compare(run, RunAnova);
    case Procedure::kRegression:
      return Regress(run);
    case Procedure::kDiagnostic:
      return Compare(run, RunDiagnostic);
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
    run.data.RoleVariable[kMainRole] = column;
    if (const Step step = RunForVariable(run); step != Step::kNextVariable) return step;
  }
  return Step::kNextVariable;
}

// A request to cut the data to the cases that pass the control, and not a run.
bool IsSubsetRequest(const DataSet& data, const ProcedurePanel& panel) {
  return ControlIsSet(data) && panel.SelectedVariables.empty() && panel.IndependentVariables.empty();
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
