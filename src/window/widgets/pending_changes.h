#pragma once

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

#include "data/change_notes.h"
#include "data/data_set.h"

// Changes of the data that a model has still to tell its views. They are told one after the other, while the data stand
// as they are behind the last of them: until a change is told, the model's places are those ahead of it.

namespace tessara {

class PendingChanges {
 public:
  explicit PendingChanges(const DataSet& data) : data_(data), revision_(data.Revision()) {}

  // Takes up what has happened since the last time. False when all has to be shown anew: other data, or more changes
  // than are known still.
  bool TakeUp() {
    auto notes = data_.notes.Since(std::exchange(revision_, data_.Revision()));
    bool known = notes.has_value();
    for (std::size_t i = 0; known && i < notes->size(); ++i) known = (*notes)[i].kind != ChangeKind::kWholeData;
    notes_ = known ? std::move(*notes) : std::vector<ChangeNote>();
    return known;
  }
  bool IsUpToDate() const { return revision_ == data_.Revision(); }

  bool empty() const { return notes_.empty(); }
  ChangeNote Next() const { return notes_.front(); }
  void Tell() { notes_.erase(notes_.begin()); }

  // Where a column, or a row of the matrix, of the model stands in the data; nothing when it has gone.
  std::optional<std::size_t> Column(std::size_t column) const {
    return Place(column, ChangeKind::kColumnsAdded, ChangeKind::kColumnsRemoved, &ChangeExtent::first_column,
                 &ChangeExtent::column_count);
  }
  std::optional<std::size_t> Row(std::size_t row) const {
    return Place(row, ChangeKind::kRowsAdded, ChangeKind::kRowsRemoved, &ChangeExtent::first_row,
                 &ChangeExtent::row_count);
  }

 private:
  using Part = std::size_t ChangeExtent::*;
  std::optional<std::size_t> Place(std::size_t place, ChangeKind added, ChangeKind removed, Part first,
                                   Part count) const {
    for (const ChangeNote& note : notes_) {
      if ((note.kind != added && note.kind != removed) || place < note.extent.*first) continue;
      if (note.kind == added) {
        place += note.extent.*count;
      } else if (place < note.extent.*first + note.extent.*count) {
        return std::nullopt;
      } else {
        place -= note.extent.*count;
      }
    }
    return place;
  }

  const DataSet& data_;
  std::uint64_t revision_;
  std::vector<ChangeNote> notes_;
};

}  // namespace tessara
