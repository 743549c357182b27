#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/data_set.h"
#include "data/recode/grid_marks.h"
#include "platform/platform.h"

// The panel DataRecode: one Run button that makes new variables from old ones, and finds and replaces cells of one
// variable. A front end copies its boxes in here, calls an operation, and shows the panel again.

namespace tessara {

enum class RecodeMode { kNone, kRecode, kCompute, kCombine, kCompareDates, kTrim, kReplace, kFind };

// OptionLT, OptionEQ, OptionGT.
enum class RecodeOption { kNone, kLessThan, kEqualTo, kGreaterThan };
// OptionPlus, OptionMinus, OptionMult, OptionDiv, OptionExp.
enum class ComputeOption { kNone, kPlus, kMinus, kMultiplied, kDivided, kPower };
// OptPlus, OptMinus, OptMult, OptDiv.
enum class CombineOption { kNone, kPlus, kMinus, kMultiplied, kDivided };

// How the panel shows itself in a mode.
struct RecodeModeRow {
  RecodeMode mode = RecodeMode::kNone;
  std::string_view title;
  std::string_view run_caption;
  std::string_view run_tip;
  std::string_view help;          // the text of the top box
  std::string_view help_section;  // of UserManual1.html
  bool makes_variable = false;
};

const std::vector<RecodeModeRow>& RecodeModeRows();
// The row of a mode; that of Recode for kNone.
const RecodeModeRow& RowOfMode(RecodeMode mode);

struct RecodePanel {
  RecodeMode mode = RecodeMode::kNone;
  std::size_t RecodeColumn = 0;    // picked in List1; 0 for "None"
  std::size_t CombineColumn1 = 0;  // whose names stand in Date1 and Date2
  std::size_t CombineColumn2 = 0;
  bool NewVariableMade = false;  // the next Run writes into the last column
  std::size_t made_column = 0;   // the column that this began with
  RecodeMode made_mode = RecodeMode::kNone;
  std::string made_name;  // the new name of the latest Run, whatever its mode

  std::string OldValue, NewValue, NewVar;  // Recode
  RecodeOption recode_option = RecodeOption::kNone;
  bool Check2 = false;  // the values are dates

  std::string Text1, Text2;  // Compute: name and value
  ComputeOption compute_option = ComputeOption::kNone;
  bool Check1 = false;  // an exact duplicate
  bool Check3 = false;  // the log transformation, which wins over the duplicate

  std::string Date1, Date2, DateVar;  // Combine and Compare Dates
  CombineOption combine_option = CombineOption::kNone;

  std::string Text4, Text5, Text6;  // Trim: name, lower and upper cutpoint

  std::string Text12, Text13;  // Find and Replace
  bool Label21 = false;        // "No Match Found" shows
  std::size_t FindRow = 0;     // the matrix row that the next search starts from; 0 for the first record

  // The records that the latest Replace found, from index 0. Nothing: there was none.
  std::optional<Column> UndoColumn;
  std::size_t undo_records = 0;

  GridMarks marks;
  std::uint64_t followed_revision = 0;  // FollowRecodeData keeps it
};

// Opens the panel in a mode. The data count as changed from here on.
void OpenRecodePanel(RecodePanel& panel, DataSet& data, RecodeMode mode);

// The button "Reset": boxes, options and the picked variable of the mode; in Find the bold marks.
void ResetRecodePanel(RecodePanel& panel);

// The command that removes the bold marks; the next search starts from the top.
void ResetSearch(RecodePanel& panel);

// The new-name box of the mode: NewVar, Text1, DateVar or Text4; nullptr where no variable is made.
std::string* NewNameBox(RecodePanel& panel);
const std::string* NewNameBox(const RecodePanel& panel);
// What is typed in it. Every change of NewVar and Text1 makes the next Run add a column; Trim goes on in its column
// until it is opened again or reset.
void ChangeNewName(RecodePanel& panel, std::string text);

// A click in List1; 0 is the entry "None".
void PickRecodeVariable(RecodePanel& panel, std::size_t column);

// The buttons Var1 and Var2: the picked variable becomes the first or the second one. False, behind a box, when none is
// picked.
bool CopyVariable1(RecodePanel& panel, const DataSet& data, Messages& messages);
bool CopyVariable2(RecodePanel& panel, const DataSet& data, Messages& messages);

// The boxes that take no comma: NewValue, NewVar and Text1. Answers the key with a box, empties the box, and yields
// the key that is taken instead.
char RefuseComma(std::string& box, Messages& messages);
// Whether a character may be typed into Text2; the box answers any other one, which then acts as a backspace.
bool IsConstantKey(char key);
void RefuseConstantKey(std::string& box, Messages& messages);

}  // namespace tessara
