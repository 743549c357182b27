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

// The form "Format Variables and Values": the dictionary of one variable at a time in boxes, and what its buttons and
// keys do. Nothing is stored before a Save, and a Save is one step that can be undone.

namespace tessara {

// The boxes by their names: name, label, four missing values, the bounds below and above which values are missing,
// eight pairs of a value and its label, and the number of decimals.
enum class FormatBox : std::uint8_t {
  Text1,
  Text2,
  Text3,
  Text25,
  Text26,
  Text27,
  Text20,
  Text21,
  Text4,
  Text5,
  Text6,
  Text7,
  Text8,
  Text9,
  Text10,
  Text11,
  Text12,
  Text13,
  Text14,
  Text15,
  Text16,
  Text17,
  Text18,
  Text19,
  Text22,
};
inline constexpr std::array<std::string_view, 25> kFormatBoxNames = {
    "Text1",  "Text2",  "Text3",  "Text25", "Text26", "Text27", "Text20", "Text21", "Text4",
    "Text5",  "Text6",  "Text7",  "Text8",  "Text9",  "Text10", "Text11", "Text12", "Text13",
    "Text14", "Text15", "Text16", "Text17", "Text18", "Text19", "Text22"};
inline constexpr std::size_t kFormatBoxes = kFormatBoxNames.size();
inline constexpr std::size_t kFirstMissingBox = 2;
inline constexpr std::size_t kFirstValueLabelBox = 8;  // a value; its label is the next one
inline constexpr std::size_t kVariableBoxes = 24;      // those that are stored with a variable
inline constexpr std::size_t kCopiedBoxes = kVariableBoxes - kFirstMissingBox;

class FormatTexts {
 public:
  std::string& operator[](FormatBox box) { return texts_[static_cast<std::size_t>(box)]; }
  const std::string& operator[](FormatBox box) const { return texts_[static_cast<std::size_t>(box)]; }
  std::string& operator[](std::size_t place) { return texts_[place]; }
  const std::string& operator[](std::size_t place) const { return texts_[place]; }

 private:
  std::array<std::string, kFormatBoxes> texts_;
};

// What was typed for a variable, and what the data held when it was.
struct FormatDraft {
  FormatTexts boxes;
  FormatTexts stored;
};

struct VariableFormat {
  std::size_t column = 0;  // that of Combo1, and of role 1; 0 while no variable is shown
  FormatTexts boxes;
  bool Check1 = false;  // "Change Decimals"

  FormatTexts stored;                         // what the data hold for the boxes
  std::map<std::size_t, FormatDraft> drafts;  // of other variables that were left without a Save
  std::uint64_t revision = 0;                 // of the data that the form has followed to
};

// The copied format, kept between uses of the form: the boxes of missing values and value labels.
struct CopiedFormat {
  bool copied = false;
  std::array<std::string, kCopiedBoxes> texts;
};

// Fills the boxes from the dictionary of a variable. Check1 and Text22 belong to the form and stay.
void ShowVariableFormat(VariableFormat& format, const DataSet& data, std::size_t column);

// The same for a form that stays open: what was typed for the variable that it leaves is kept, and what was typed
// earlier for the one that it comes to is in the boxes again.
void PickVariable(VariableFormat& format, const DataSet& data, std::size_t column);

// Whether a box of the shown variable holds something else than the data.
bool HasUnsavedBoxes(const VariableFormat& format);
// The variables that are to be saved still, in column order; the shown one among them.
std::vector<std::size_t> UnsavedVariables(const VariableFormat& format);
// Gives up what was typed for the shown variable.
void RevertFormat(VariableFormat& format);

// The form follows its variable when the data change, and so do the drafts; with another data set they stay only where
// their column carries the same name. Boxes that nobody has typed into show what the data hold by now. Called behind
// every operation, so that a Save never writes into another variable.
void FollowFormat(VariableFormat& format, const DataSet& data);

struct FormatSaved {
  bool stored = false;                               // false: there is no variable to store into
  std::optional<std::size_t> decimals_changed = {};  // cells rewritten; nothing when no rewriting was asked for
};
// The button "Save": the boxes go into the dictionary of their variable and, with Check1 set, the cells are rewritten
// under the number of decimals. Commas and line ends go out of the boxes, empty pairs are stored as "=". Without a
// number of decimals in Text22 the changed flag stays as it was.
FormatSaved SaveVariableFormat(VariableFormat& format, DataSet& data);

// The buttons "Copy Format" and "Paste Format". What was pasted is stored by a Save only.
void CopyFormat(const VariableFormat& format, CopiedFormat& copied);
void PasteFormat(VariableFormat& format, const CopiedFormat& copied);

// The check box: off it empties Text22.
void SetChangeDecimals(VariableFormat& format, bool on);

// What a typed comma becomes: its box has been shown then.
enum class CommaTurn { kBackspace, kBlank };
CommaTurn PressComma(Messages& messages, FormatBox box);

// A box gets the focus: the label boxes trim their text, and so many characters of it are selected from the first one
// on, so that typing replaces them. Nothing for a box that stays as it is.
std::optional<std::size_t> FocusBox(VariableFormat& format, FormatBox box);

}  // namespace tessara
