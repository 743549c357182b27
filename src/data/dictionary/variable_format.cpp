#include "data/dictionary/variable_format.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "data/change_door.h"
#include "data/column_place.h"
#include "data/dictionary/change_decimals.h"
#include "data/edit/cell_entry.h"
#include "data/missing_values.h"
#include "data/value_labels.h"
#include "numerics/number_text.h"
#include "numerics/text.h"

namespace tessara {
namespace {

constexpr std::string_view kProhibited = ",\r\n\x01";  // the byte between the fields of a file stands in no text
constexpr std::size_t kSelectedOfALabel = 20;
constexpr std::size_t kMostOfANameInAStep = 40;

FormatTexts StoredTexts(const DataMatrix& matrix, std::size_t column) {
  FormatTexts texts;
  texts[FormatBox::Text1] = TextOf(matrix.Cell(kVariableNameRow, column));
  texts[FormatBox::Text2] = TextOf(matrix.Cell(kVariableLabelRow, column));
  const MissingValues missing = LoadMissingSet(matrix, column);
  for (std::size_t i = 0; i < kMissingEntries; ++i) texts[kFirstMissingBox + i] = TextOf(missing.entries[i]);
  const ValueLabels labels = LoadValueLabels(matrix, column);
  for (std::size_t i = 0; i < kValueLabelSlots; ++i) {
    texts[kFirstValueLabelBox + 2 * i] = labels.table[i].value;
    texts[kFirstValueLabelBox + 2 * i + 1] = labels.table[i].label;
  }
  return texts;
}

// The same of a column that stands in no matrix yet.
FormatTexts StoredTexts(const Column& column) {
  DataMatrix alone(kFirstRecordRow, 1);
  std::vector<Column> columns{column};
  alone.ExchangeColumns(1, 1, columns);
  return StoredTexts(alone, 1);
}

// Boxes that somebody has typed into keep what they hold; the others take what the data hold now.
void TakeStored(FormatDraft& draft, const FormatTexts& now) {
  for (std::size_t i = 0; i < kVariableBoxes; ++i) {
    if (draft.boxes[i] == draft.stored[i]) draft.boxes[i] = now[i];
    draft.stored[i] = now[i];
  }
}

bool Differs(const FormatTexts& boxes, const FormatTexts& stored) {
  for (std::size_t i = 0; i < kVariableBoxes; ++i) {
    if (boxes[i] != stored[i]) return true;
  }
  return false;
}

FormatDraft ShownDraft(const VariableFormat& format) { return {format.boxes, format.stored}; }

// The number of decimals is no text of a variable: it stays.
void ShowDraft(VariableFormat& format, FormatDraft draft) {
  draft.boxes[FormatBox::Text22] = std::move(format.boxes[FormatBox::Text22]);
  format.boxes = std::move(draft.boxes);
  format.stored = std::move(draft.stored);
}

bool IsVariable(const DataSet& data, std::size_t column) { return column >= 1 && column <= data.VariableCount; }

bool StillHas(const DataSet& data, std::size_t column, const FormatTexts& stored) {
  return IsVariable(data, column) && data.VariableName(column) == stored[FormatBox::Text1];
}

void FollowMovedColumns(VariableFormat& format, const ChangeNote& note) {
  format.column = PlaceBehind(format.column, note);
  std::map<std::size_t, FormatDraft> drafts;
  for (auto& [column, draft] : format.drafts) {
    if (const std::size_t place = PlaceBehind(column, note)) drafts.emplace(place, std::move(draft));
  }
  format.drafts = std::move(drafts);
}

void FollowOtherData(VariableFormat& format, const DataSet& data) {
  if (!StillHas(data, format.column, format.stored)) format.column = 0;
  std::erase_if(format.drafts, [&](const auto& entry) { return !StillHas(data, entry.first, entry.second.stored); });
}

std::string Cleaned(std::string_view text) {
  std::string clean;
  clean.reserve(text.size());
  std::ranges::copy_if(text, std::back_inserter(clean),
                       [](char c) { return kProhibited.find(c) == std::string_view::npos; });
  return clean;
}

std::string MissingSpecOf(const FormatTexts& boxes) {
  std::string missing_spec;
  for (std::size_t i = 0; i < kMissingEntries; ++i) missing_spec += boxes[kFirstMissingBox + i] + "|";
  return missing_spec;
}

void StoreBoxes(const FormatTexts& boxes, Column& column) {
  column.Set(kMissingSpecRow, MissingSpecOf(boxes));
  column.Set(kVariableLabelRow, boxes[FormatBox::Text2]);
  for (std::size_t i = 0; i < kValueLabelSlots; ++i) {
    const std::size_t value = kFirstValueLabelBox + 2 * i;
    column.Set(kFirstValueLabelRow + i, boxes[value] + "=" + boxes[value + 1]);
  }
  column.Set(kVariableNameRow, boxes[FormatBox::Text1]);
}

}  // namespace

void ShowVariableFormat(VariableFormat& format, const DataSet& data, std::size_t column) {
  format.column = IsVariable(data, column) ? column : 0;
  const FormatTexts texts = format.column == 0 ? FormatTexts() : StoredTexts(data.matrix, format.column);
  ShowDraft(format, {texts, texts});
  format.revision = data.Revision();
}

void PickVariable(VariableFormat& format, const DataSet& data, std::size_t column) {
  FollowFormat(format, data);
  if (column == format.column) return;
  if (HasUnsavedBoxes(format)) format.drafts[format.column] = ShownDraft(format);
  ShowVariableFormat(format, data, column);
  auto earlier = format.drafts.extract(format.column);
  if (earlier.empty()) return;
  TakeStored(earlier.mapped(), format.stored);
  ShowDraft(format, std::move(earlier.mapped()));
}

bool HasUnsavedBoxes(const VariableFormat& format) {
  return format.column != 0 && Differs(format.boxes, format.stored);
}

std::vector<std::size_t> UnsavedVariables(const VariableFormat& format) {
  std::vector<std::size_t> columns;
  for (const auto& [column, draft] : format.drafts) columns.push_back(column);
  if (HasUnsavedBoxes(format)) columns.insert(std::ranges::upper_bound(columns, format.column), format.column);
  return columns;
}

void RevertFormat(VariableFormat& format) { ShowDraft(format, {format.stored, format.stored}); }

void FollowFormat(VariableFormat& format, const DataSet& data) {
  if (format.revision == data.Revision()) return;
  const auto notes = data.notes.Since(std::exchange(format.revision, data.Revision()));
  const std::vector<ChangeNote> unknown = {{ChangeKind::kWholeData, {}}};
  for (const ChangeNote& note : notes.value_or(unknown)) {
    if (MovesColumns(note)) FollowMovedColumns(format, note);
    if (note.kind == ChangeKind::kWholeData) FollowOtherData(format, data);
  }
  if (!IsVariable(data, format.column)) {
    ShowVariableFormat(format, data, 0);
    return;
  }
  FormatDraft shown = ShownDraft(format);
  TakeStored(shown, StoredTexts(data.matrix, format.column));
  ShowDraft(format, std::move(shown));
}

FormatSaved SaveVariableFormat(VariableFormat& format, DataSet& data) {
  FollowFormat(format, data);
  if (format.column == 0) return {};
  FormatTexts boxes;
  for (std::size_t i = 0; i < kFormatBoxes; ++i) boxes[i] = Cleaned(format.boxes[i]);

  FormatSaved saved{.stored = true};
  Column column = data.matrix.ColumnAt(format.column);
  StoreBoxes(boxes, column);
  const std::string& decimals = boxes[FormatBox::Text22];
  const bool no_number = format.Check1 && decimals.empty();
  if (format.Check1 && !no_number) {
    saved.decimals_changed = ChangeDecimals(data.matrix, format.column, data.RecordCount,
                                            UnpackMissingSpec(MissingSpecOf(boxes)), decimals, column);
  }
  const FormatTexts stored = StoredTexts(column);
  FormatDraft shown{stored, stored};
  DataChange change = ReplaceColumns(data, format.column, {std::move(column)},
                                     "Format " + boxes[FormatBox::Text1].substr(0, kMostOfANameInAStep));
  if (no_number) change.flag = ChangedFlag::kKept;  // the Save stops short of the flag
  ApplyChange(data, std::move(change));
  ShowDraft(format, std::move(shown));  // from here on nothing can fail
  format.revision = data.Revision();
  return saved;
}

void CopyFormat(const VariableFormat& format, CopiedFormat& copied) {
  for (std::size_t i = 0; i < kCopiedBoxes; ++i) copied.texts[i] = format.boxes[kFirstMissingBox + i];
  copied.copied = true;
}

void PasteFormat(VariableFormat& format, const CopiedFormat& copied) {
  if (!copied.copied) return;
  for (std::size_t i = 0; i < kCopiedBoxes; ++i) format.boxes[kFirstMissingBox + i] = copied.texts[i];
}

void SetChangeDecimals(VariableFormat& format, bool on) {
  format.Check1 = on;
  if (!on) format.boxes[FormatBox::Text22].clear();
}

CommaTurn PressComma(Messages& messages, FormatBox box) {
  RefuseComma(messages);
  return box == FormatBox::Text1 ? CommaTurn::kBlank : CommaTurn::kBackspace;
}

std::optional<std::size_t> FocusBox(VariableFormat& format, FormatBox box) {
  const auto place = static_cast<std::size_t>(box);
  const bool is_value_label =
      place >= kFirstValueLabelBox && place < kVariableBoxes && (place - kFirstValueLabelBox) % 2 == 1;
  if (box != FormatBox::Text2 && !is_value_label) return std::nullopt;
  // What the data hold is trimmed along: blanks at the ends alone are nothing to be saved.
  for (std::string* text : {&format.boxes[place], &format.stored[place]}) *text = std::string(Trimmed(*text));
  return is_value_label ? kSelectedOfALabel : format.boxes[place].size();
}

}  // namespace tessara
