#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/data_set.h"
#include "platform/platform.h"
#include "procedures/cases/case_control.h"

// The procedure panel StatProc1: which procedure is selected, which variables have which role, and its check boxes and
// fields. A front end copies its controls in here; a run reads nothing else.

namespace tessara {

// The option controls, by the names of the panel. Option7 is regression; Option21 and Option22 choose its kind.
enum class Procedure {
  kNone,
  kFrequencies,       // Option1
  kDescriptives,      // Option2
  kCrosstabulation,   // Option3
  kTTest,             // Option4
  kAnova,             // Option5
  kCorrelation,       // Option6
  kRegression,        // Option7
  kListVariables,     // Option12
  kDiagnostic,        // Option17
  kRandomSample,      // Option18
  kRepeatedSampling,  // Option19
  kExplore,           // Option20
  kSummaryTables,     // Reports
};

enum class RegressionKind { kLeastSquares, kLogistic };  // Option21, Option22
enum class TableData { kCategorical, kContinuous };      // Option15, Option16

// The check boxes of the panel. What Check1 and Check2 stand for depends on the procedure.
struct PanelChecks {
  bool Check1 = false;
  bool Check2 = false;
  bool Check3 = false;  // "Counts"
  bool Check4 = false;  // "Percent"
  bool Check5 = false;
  bool Check6 = false;
  bool Check7 = false;
  bool Check8 = false;
  bool Check9 = false;
  bool Check10 = false;
  bool Check11 = false;
  bool Check12 = false;
};

struct ProcedurePanel;

// How a procedure shows itself on the panel.
struct ProcedureRow {
  Procedure procedure = Procedure::kNone;
  std::string_view control;  // object name of its option
  std::string_view caption;
  std::string_view tooltip;
  std::string_view first_heading;   // Label2
  std::string_view second_heading;  // Label3; empty when List3 is off
  struct Box {
    std::string_view control;  // "Check1" ...
    std::string_view caption;
    std::string_view tooltip;
    bool set_on = false;
  };
  std::vector<Box> boxes;  // the boxes shown, in their order; all others are hidden
  struct Field {
    std::string_view control;  // "Text5", "Text6", "Text7" or "Combo1"
    std::string_view caption;
    std::string_view tooltip = {};
  };
  std::vector<Field> fields;         // the fields shown; all others are hidden
  std::string_view example_heading;  // Label10
};

// The rows of the panel, one for each procedure, in the order in which the panel shows them: those that describe, that
// compare, that relate, tables and samples.
const std::vector<ProcedureRow>& ProcedureRows();
// The row of a procedure; nullptr for kNone. For regression, the row of Option7.
const ProcedureRow* FindProcedureRow(Procedure procedure);
// The row of the regression kind, Option21 or Option22; its boxes are the ones in force while Option7 is selected.
const ProcedureRow& RegressionRow(RegressionKind kind);
// The row that the panel shows now: for regression that of the kind, nullptr while nothing is selected.
const ProcedureRow* ShownRow(const ProcedurePanel& panel);

struct ProcedurePanel {
  Procedure selected = Procedure::kNone;
  RegressionKind regression = RegressionKind::kLeastSquares;
  TableData table_data = TableData::kCategorical;
  PanelChecks checks;
  std::string Text5;  // "Group A Value>"
  std::string Text6;  // "Group B Value >"
  std::string Text7;  // "Max Observations"

  std::vector<std::size_t> SelectedVariables;     // column numbers, shown in List2
  std::vector<std::size_t> IndependentVariables;  // column numbers, shown in List3
  ControlChoice control;                          // relation and value; the variable is RoleVariable 4
};

// Applies one row of the table: clears Text5 and Text6 and sets the boxes to their state for the procedure.
void SelectProcedure(ProcedurePanel& panel, Procedure procedure);
void SelectRegression(ProcedurePanel& panel, RegressionKind kind);

// A click in List1 takes the variable as the main one; 0, the entry "None", takes none.
void PickVariable(DataSet& data, std::size_t column);

// Adding and setting. `chosen` holds the selected rows of List1, column numbers in list order; 0 stands for "None",
// which no list takes and which clears the control variable. Without a selection a box asks for one. List Variables
// takes seven analysis variables at most. Adding keeps SelectedVariableCount of the data set in step.
void AddAnalysisVariable(DataSet& data, ProcedurePanel& panel, Platform& platform,
                         const std::vector<std::size_t>& chosen);
void AddIndependentVariable(ProcedurePanel& panel, Platform& platform, const std::vector<std::size_t>& chosen);
void SetControlVariable(DataSet& data, Platform& platform, const std::vector<std::size_t>& chosen);

// The three arrows: as above, but without a selection in List1 an arrow removes from a target that holds something.
// What goes are the `marked` places of the target, from 0, or its last entry when none is marked.
void PressAnalysisArrow(DataSet& data, ProcedurePanel& panel, Platform& platform,
                        const std::vector<std::size_t>& chosen, const std::vector<std::size_t>& marked);
void PressIndependentArrow(ProcedurePanel& panel, Platform& platform, const std::vector<std::size_t>& chosen,
                           const std::vector<std::size_t>& marked);
void PressControlArrow(DataSet& data, Platform& platform, const std::vector<std::size_t>& chosen);

// Removes entries from a list of the panel, by place in the list from 0.
void RemoveAnalysisVariables(DataSet& data, ProcedurePanel& panel, const std::vector<std::size_t>& places);
void RemoveIndependentVariables(ProcedurePanel& panel, const std::vector<std::size_t>& places);

// Whether the data have a variable in the control role: a column beyond the data counts as none.
bool ControlIsSet(const DataSet& data);

// The button "Reset" of the control variable: variable, relation and value fields.
void ResetControl(DataSet& data, ProcedurePanel& panel);

// A value typed behind "greater than" or "less than" takes numbers only: another entry is answered by a box and the
// field is emptied. True when the text may stand, as an empty one may.
bool AcceptControlNumber(Platform& platform, std::string& text);

// Empties the lists of chosen variables, as a load does.
void ClearPanelLists(DataSet& data, ProcedurePanel& panel);

// Empties both lists and clears roles, control, relation and value fields. The selected procedure stays.
void ResetPanel(DataSet& data, ProcedurePanel& panel);

}  // namespace tessara
