#include "procedures/run.h"

#include <string>
#include <utility>

#include "presentation/table_steps.h"
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
#include "procedures/samples/create_subset.h"
#include "procedures/tables/explore.h"
#include "procedures/tables/table_variables.h"

namespace tessara {
namespace {

constexpr const char* kAborted = "Procedure Aborted";
constexpr const char* kTryAgain = "Try Again!";

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

Step RefuseWithoutProcedure(Platform& platform) {
  return Refuse(platform, kTryAgain, "Please select a statistical procedure.");
}

Step RefuseWithoutIndependent(Platform& platform) {
  return Refuse(platform, kAborted, "Please select an independent variable.");
}

std::string ControlLabelOf(const DataSet& data, const ProcedurePanel& panel) {
  return CaseControl(data, panel.control_variable.column, panel.control).ControlLabel();
}

// The panel's procedure for one analysis variable after the other.
class PanelRun {
 public:
  // Tables grow in a table of the run's own.
  PanelRun(ProcedureRun& run, const ProcedurePanel& panel, SummaryTable& table)
      : run_(run),
        panel_(panel),
        options_(panel.options),
        control_label_(ControlLabelOf(run.data, panel)),
        writer_(table, panel.table_data, control_label_) {}

  Step RunForAllVariables() {
    for (const std::size_t column : panel_.SelectedVariables) {
      if (const Step step = RunForVariable(column); step != Step::kNextVariable) return step;
    }
    if (panel_.selected == Procedure::kExplore) run_.AppendReport(ExploreReport(explore_, control_label_));
    return Step::kNextVariable;
  }

 private:
  Step RunForVariable(std::size_t main);
  void Describe(std::size_t main) const;
  Step Explore(std::size_t main);
  Step Tabulate(std::size_t main);
  Step Correlate(std::size_t main) const;
  Step Regress(std::size_t main) const;

  // each(roles) for each of the independent variables, in list order.
  template <typename Each>
  void RunForIndependents(std::size_t main, Each each) const {
    for (const std::size_t column : panel_.IndependentVariables) each({.main = main, .independent = column});
  }
  // The same for a procedure that cannot do without one.
  template <typename Each>
  Step Compare(std::size_t main, Each each) const {
    if (panel_.IndependentVariables.empty()) return RefuseWithoutIndependent(run_.platform);
    RunForIndependents(main, each);
    return Step::kNextVariable;
  }

  ProcedureRun& run_;
  const ProcedurePanel& panel_;
  const ProcedureOptions& options_;
  std::string control_label_;
  TableWriter writer_;
  ExploreTable explore_;
};

// The comparison by groups stands in no report of this procedure: what is left of it are its errors.
void PanelRun::Describe(std::size_t main) const {
  RunDescriptives(run_, {.main = main}, options_.descriptives);
  const CaseSource source = ReadableCases(run_.data, panel_.control_variable.column, panel_.control);
  RunForIndependents(main, [&](const Roles& roles) { RunGroupPass(run_, source, roles); });
}

Step PanelRun::Explore(std::size_t main) {
  if (!MayExploreOn(explore_, run_.platform)) return Step::kEndRun;
  ExploreVariable(run_, main, panel_.IndependentVariables, explore_);
  return Step::kNextVariable;
}

Step PanelRun::Tabulate(std::size_t main) {
  const SummaryTableOptions& options = options_.summary_tables;
  if (panel_.table_data == TableData::kContinuous) {
    AddContinuousVariable(run_, writer_, options, main, panel_.IndependentVariables);
    return Step::kNextVariable;
  }
  if (!options.counts && !options.percent) return RefuseWithoutProcedure(run_.platform);
  AddCategoricalVariable(run_, writer_, options, main, panel_.IndependentVariables);
  return Step::kNextVariable;
}

Step PanelRun::Correlate(std::size_t main) const {
  if (!options_.correlation.create_matrix) {
    return Compare(main, [this](const Roles& roles) { RunCorrelation(run_, roles); });
  }
  if (panel_.SelectedVariables.size() < 2) {
    return Refuse(run_.platform, kAborted, "Please select two analysis variables.");
  }
  RunCorrelationMatrix(run_, panel_.SelectedVariables);
  return Step::kLeaveLoop;
}

// One model of the first analysis variable on all independent variables.
Step PanelRun::Regress(std::size_t main) const {
  if (panel_.IndependentVariables.empty()) return RefuseWithoutIndependent(run_.platform);
  const ModelVariables variables{.dependent = main, .independent = panel_.IndependentVariables};
  if (panel_.regression == RegressionKind::kLogistic) {
    RunLogistic(run_, variables, options_.logistic);
  } else {
    RunLeastSquares(run_, variables, options_.least_squares);
  }
  return Step::kLeaveLoop;
}

Step PanelRun::RunForVariable(std::size_t main) {
  switch (panel_.selected) {
    case Procedure::kFrequencies: {
      RunFrequencies(run_, {.main = main}, options_.frequencies);
      // The panel has one box for both: with the index of dispersion the tables have their tests.
      const CrosstabulationOptions tables{.chi_square_tests = options_.frequencies.dispersion};
      RunForIndependents(main, [&](const Roles& roles) { RunCrosstabulation(run_, roles, tables); });
      return Step::kNextVariable;
    }
    case Procedure::kDescriptives:
      Describe(main);
      return Step::kNextVariable;
    case Procedure::kCorrelation:
      return Correlate(main);
    case Procedure::kCrosstabulation:
      return Compare(main, [this](const Roles& roles) { RunCrosstabulation(run_, roles, options_.crosstabulation); });
    case Procedure::kTTest:
      return Compare(main, [this](const Roles& roles) { RunTTest(run_, roles, options_.t_test); });
    case Procedure::kAnova:
      return Compare(main, [this](const Roles& roles) { RunAnova(run_, roles, options_.anova); });
    case Procedure::kRegression:
      return Regress(main);
    case Procedure::kDiagnostic:
      return Compare(main, [this](const Roles& roles) { RunDiagnostic(run_, roles); });
    case Procedure::kListVariables:
      RunListVariables(run_, panel_.SelectedVariables, options_.list);
      return Step::kLeaveLoop;
    case Procedure::kExplore:
      return Explore(main);
    case Procedure::kSummaryTables:
      return Tabulate(main);
    case Procedure::kRandomSample:  // samples have buttons of their own
    case Procedure::kRepeatedSampling:
    case Procedure::kNone:
      break;
  }
  return RefuseWithoutProcedure(run_.platform);
}

// A request to cut the data to the cases that pass the control, and not a run.
bool IsSubsetRequest(const DataSet& data, const ProcedurePanel& panel) {
  return ControlIsSet(panel, data) && panel.SelectedVariables.empty() && panel.IndependentVariables.empty();
}

// Whether the table began with cases under another control; a title that the user has typed tells nothing of it.
bool HasOtherCaption(const TableGrid& table, const std::string& control_label) {
  const std::string& caption = table.Text(1, 1);
  return !table.empty() && caption != control_label && (caption.empty() || caption.starts_with("Control: "));
}

// What the user hears of a run whose results do not show everything; empty when there is nothing to tell.
std::string NoteOfRun(const ProcedureRun& run, const ProcedurePanel& panel, const TableGrid& table_before) {
  if (panel.selected == Procedure::kSummaryTables) {
    if (run.aborted) return "an error message stands in the output log";
    if (HasOtherCaption(table_before, ControlLabelOf(run.data, panel))) {
      return "the caption of the table is that of its first run, which had another control";
    }
  }
  if (panel.selected == Procedure::kDescriptives && !panel.IndependentVariables.empty()) {
    return "Explore and Summary Tables show the statistics of each group";
  }
  return {};
}

// The face of the Output view follows what the run has made.
void ShowFaceOfRun(OutputLog& output, const ProcedureRun& run, const TableGrid& table, Procedure procedure) {
  if (procedure == Procedure::kSummaryTables) {
    output.OutputGridMode = !table.empty();  // an error report alone is in the text
  } else if (!run.reports.empty()) {
    output.OutputGridMode = false;
  }
}

}  // namespace

RunOutcome Run(DataSet& data, const ProcedurePanel& panel, OutputLog& output, ChartStore& charts, SummaryTable& table,
               Platform& platform) {
  const WaitCursor wait(platform);
  RunOutcome outcome;
  // A value that was typed wrong must not let all cases through.
  if (ControlValueIsRefused(panel, data)) {
    AcceptControlNumber(platform, panel.control.value);
    outcome.refused = true;
    return outcome;
  }
  if (IsSubsetRequest(data, panel)) {
    outcome.subset = CreateSubset(data, panel.control_variable.column, panel.control, platform) == SubsetOutcome::kMade;
    outcome.refused = !outcome.subset;
    return outcome;
  }
  if (panel.SelectedVariables.empty()) {
    Refuse(platform, kAborted, "Please select a dependent variable.");
    outcome.refused = true;
    return outcome;
  }
  // Reports and charts reach the outside when the run is over: one that ends for want of memory leaves all as it was.
  ChartStore made;
  made.SelectedVariableCount = panel.SelectedVariables.size();
  made.Revision = charts.Revision;
  ClearCharts(made);
  ProcedureRun run{.data = data,
                   .charts = made,
                   .platform = platform,
                   .control_variable = panel.control_variable,
                   .control = panel.control,
                   .wants_charts = panel.SelectedVariables.size() < 2};
  const bool adds_to_table = panel.selected == Procedure::kSummaryTables;
  SummaryTable grown;  // the steps of the table stay where they are
  if (adds_to_table) {
    grown.grid = table.grid;
    grown.columns = table.columns;
  }
  outcome.refused = PanelRun(run, panel, grown).RunForAllVariables() == Step::kEndRun;
  if (adds_to_table) grown.grid.FitColumns();
  const std::string note = NoteOfRun(run, panel, table.grid);
  const bool table_grows = adds_to_table && !outcome.refused;
  ReadyStep step;
  if (table_grows) step = ReadyToReplace(table.face, std::move(grown.grid), "Summary Table");
  FinishRun(run, data, output, panel.selected == Procedure::kRegression ? BoxOfRun::kEmptied : BoxOfRun::kKept);
  charts = std::move(made);
  if (table_grows) {
    TakeReadyStep(table.grid, table.face, std::move(step));
    output.OutputChanged = true;  // a close of the program asks for the table too
    table.columns = std::move(grown.columns);
  }
  if (!outcome.refused || !adds_to_table) ShowFaceOfRun(output, run, table.grid, panel.selected);
  // A box that was emptied for a report that did not come shows its text again, so that nobody stores back an empty
  // log.
  if (outcome.refused && panel.selected == Procedure::kRegression) RefreshOutputView(output);
  outcome.aborted = run.aborted;
  if (!note.empty()) platform.ShowNote(note);
  return outcome;
}

}  // namespace tessara
