#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/data_set.h"
#include "platform/platform.h"
#include "procedures/cases/case_control.h"
#include "procedures/options.h"

// The procedure panel StatProc1: which procedure is selected, which variables have which role, and the options. A
// front end copies its controls in here; a run reads nothing else.

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
    bool& (*option)(ProcedureOptions&);  // what the box stands for
  };
  std::vector<Box> boxes;  // the boxes shown, in their order; all others are hidden
  struct Field {
    std::string_view control;  // "Text5", "Text6", "Text7" or "Combo1"
    std::string_view caption;
    std::string& (*option)(ProcedureOptions&);  // what is typed or chosen in it
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

// What the panel knows of the data that its lists and its control belong to.
struct FollowedData {
  std::uint64_t revision = 0;
  std::map<std::size_t, std::string> names;  // of the columns in the lists and of the control
};

struct ProcedurePanel {
  Procedure selected = Procedure::kNone;
  RegressionKind regression = RegressionKind::kLeastSquares;
  TableData table_data = TableData::kCategorical;
  ProcedureOptions options;

  std::vector<std::size_t> SelectedVariables;     // column numbers, shown in List2
  std::vector<std::size_t> IndependentVariables;  // column numbers, shown in List3
  ControlVariable control_variable;
  ControlChoice control;           // relation and value
  std::size_t PickedVariable = 0;  // the column clicked last in List1; 0 for none
  FollowedData followed;           // FollowData keeps it
};

// Applies one row of the table: the group values are emptied and the boxes stand as they do at first.
void SelectProcedure(ProcedurePanel& panel, Procedure procedure);
void SelectRegression(ProcedurePanel& panel, RegressionKind kind);

// A click in List1; 0 is the entry "None".
void PickVariable(ProcedurePanel& panel, std::size_t column);

// Adding and setting. `chosen` holds the selected rows of List1, column numbers in list order; 0 stands for "None",
// which no list takes and which clears the control variable. Without a selection a box asks for one. List Variables
// takes seven analysis variables at most.
void AddAnalysisVariable(ProcedurePanel& panel, Platform& platform, const std::vector<std::size_t>& chosen);
void AddIndependentVariable(ProcedurePanel& panel, Platform& platform, const std::vector<std::size_t>& chosen);
void SetControlVariable(ProcedurePanel& panel, const DataSet& data, Platform& platform,
                        const std::vector<std::size_t>& chosen);

// The three arrows: as above, but without a selection in List1 an arrow removes from a target that holds something.
// What goes are the `marked` places of the target, from 0, or its last entry when none is marked.
void PressAnalysisArrow(ProcedurePanel& panel, Platform& platform, const std::vector<std::size_t>& chosen,
                        const std::vector<std::size_t>& marked);
void PressIndependentArrow(ProcedurePanel& panel, Platform& platform, const std::vector<std::size_t>& chosen,
                           const std::vector<std::size_t>& marked);
void PressControlArrow(ProcedurePanel& panel, const DataSet& data, Platform& platform,
                       const std::vector<std::size_t>& chosen);

// Removes entries from a list of the panel, by place in the list from 0.
void RemoveAnalysisVariables(ProcedurePanel& panel, const std::vector<std::size_t>& places);
void RemoveIndependentVariables(ProcedurePanel& panel, const std::vector<std::size_t>& places);

// Whether the cases are controlled by a variable of the data: a column beyond the data counts as none.
bool ControlIsSet(const ProcedurePanel& panel, const DataSet& data);

// The button "Reset" of the control variable: variable, relation and value fields.
void ResetControl(ProcedurePanel& panel);

// A value behind "greater than" or "less than" takes numbers only. True when the text may stand, as an empty one may.
bool IsControlNumber(std::string_view text);
// The same with a box that answers another entry.
bool AcceptControlNumber(Platform& platform, std::string_view text);
// Whether the control holds a value that its relation does not take. No run goes ahead with it.
bool ControlValueIsRefused(const ProcedurePanel& panel, const DataSet& data);

// Whether a run goes through the independent variables. Frequencies crosstabulate by those that another procedure has
// left, without a list for them; a matrix of correlations has no use for its second list.
bool RunUsesIndependents(const ProcedurePanel& panel);

// Empties the lists of chosen variables, as a load does.
void ClearPanelLists(ProcedurePanel& panel);

// Empties both lists and clears the control with its relation and value fields. The selected procedure stays.
void ResetPanel(ProcedurePanel& panel);

}  // namespace tessara
