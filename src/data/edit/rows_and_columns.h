#pragma once

#include "data/data_set.h"
#include "data/edit/grid_block.h"
#include "platform/dialogs.h"
#include "platform/status.h"

// Rows and columns that a user adds or deletes by hand. Each is one step to undo.

namespace tessara {

inline constexpr std::size_t kRowsAddedByHand = 10;

// Ten empty records behind the last one. Marks the data as changed, also when the edit limit refuses them.
void AddRowsByHand(DataSet& data, Messages& messages);

// An empty variable behind the last one, named "V" and its number, and the cursor in its first record. Marks the data
// as changed, also when the edit limit refuses it.
void AddColumnByHand(DataSet& data, Messages& messages);

// The records of the selection go, when the cursor stands in the column of the record numbers; row 0 counts as 1. Does
// nothing elsewhere, and to the only record. Does not mark the data as changed.
void DeleteRowsByHand(DataSet& data, const GridBlock& selection, Status& status);

// The variables of the selection go, when the cursor stands in the heading row, and the cursor moves back by one.
void DeleteColumnsByHand(DataSet& data, const GridBlock& selection, Status& status);

}  // namespace tessara
