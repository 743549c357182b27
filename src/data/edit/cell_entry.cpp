#include "data/edit/cell_entry.h"

#include <algorithm>
#include <utility>

#include "data/change_door.h"
#include "data/edit/edit_limit.h"
#include "data/field_ends.h"
#include "numerics/number_text.h"

namespace tessara {
namespace {

constexpr const char* kTyping = "Typing";

// Whether the cell of the entry is still the one that it began in: nothing has moved it meanwhile.
bool StandsStill(const CellEntry& entry, const DataSet& data) {
  const auto notes = data.notes.Since(entry.revision);
  return notes && std::ranges::all_of(*notes, [](const ChangeNote& note) {
           return note.kind == ChangeKind::kCells || note.kind == ChangeKind::kDictionary ||
                  note.kind == ChangeKind::kColumnsReplaced;
         });
}

void Commit(CellEntry& entry, DataSet& data, ChangedFlag flag) {
  if (StandsStill(entry, data)) {
    const std::string text = CellTextOf(entry.text);
    const std::size_t row = kHeaderRowCount + entry.place.row;
    const TaggedView before = data.matrix.Cell(row, entry.place.column);
    if (before != TaggedView(text)) {
      DataChange change = CellChange(row, entry.place.column, text, kTyping);
      change.flag = flag;
      ApplyChange(data, std::move(change));
    } else if (flag == ChangedFlag::kSet) {
      MarkChanged(data);  // the same text once more: no step, but an entry
    }
  }
  entry = {};
}

void MoveBy(DataSet& data, const GridPlace& from, EntryKey key) {
  GridPlace to = from;
  const std::size_t last_row = data.GridRecords();
  switch (key) {
    case EntryKey::kDown:
      if (to.row < last_row) ++to.row;
      break;
    case EntryKey::kUp:
      if (to.row > 1) --to.row;
      break;
    case EntryKey::kLeft:
      if (to.column > 1) --to.column;
      break;
    case EntryKey::kRight:
      if (to.column < data.GridVariables()) {
        ++to.column;
      } else if (to.row < last_row) {
        to = {to.row + 1, 1};
      }
      break;
  }
  MoveCursor(data, to);
}

}  // namespace

bool StartEntry(CellEntry& entry, const DataSet& data, Messages& messages) {
  if (!AllowsEntry(data, messages)) return false;
  const GridPlace place = CursorOf(data);
  if (place.column < 1 || place.column > data.VariableCount || place.row > data.RecordCount) return false;
  entry = {.open = true,
           .place = place,
           .text = TextOf(data.matrix.Cell(kHeaderRowCount + place.row, place.column)),
           .revision = data.Revision()};
  return true;
}

void CommitByKey(CellEntry& entry, DataSet& data, EntryKey key) {
  if (!entry.open) return;
  const GridPlace place = entry.place;
  const bool stays = (key == EntryKey::kUp && place.row == 1) || (key == EntryKey::kLeft && place.column == 1);
  Commit(entry, data, stays ? ChangedFlag::kKept : ChangedFlag::kSet);
  MoveBy(data, place, key);
}

void CommitByLeaving(CellEntry& entry, DataSet& data, EntryLeft left) {
  if (entry.open) Commit(entry, data, left == EntryLeft::kByClick ? ChangedFlag::kKept : ChangedFlag::kSet);
}

std::string WithoutCommas(std::string_view typed, Messages& messages) {
  for (auto commas = std::ranges::count(typed, ','); commas > 0; --commas) RefuseComma(messages);
  std::string text(typed);
  std::erase(text, ',');
  return text;
}

void RefuseComma(Messages& messages) { messages.ShowMessage({"Error", "Commas are prohibited"}); }

std::string CellTextOf(std::string_view text) {
  std::string kept(text);
  std::erase_if(kept, [](char c) { return c == '\r' || c == '\n' || c == kFieldSeparator; });
  return kept;
}

}  // namespace tessara
