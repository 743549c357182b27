#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "data/data_set.h"
#include "data/edit/grid_block.h"
#include "platform/dialogs.h"

// The entry of one cell: what the overlay box holds, and what its keys do.

namespace tessara {

struct CellEntry {
  bool open = false;
  GridPlace place;  // a heading in row 0
  std::string text;
  std::uint64_t revision = 0;  // of the data when the entry began
};

// Begins an entry in the cell at the cursor with the text of that cell. False, and nothing begins, where the edit limit
// refuses it, which a box tells, and in the column of the record numbers, which are no cells.
bool StartEntry(CellEntry& entry, const DataSet& data, Messages& messages);

// The keys that end an entry; Enter is kDown.
enum class EntryKey { kDown, kUp, kLeft, kRight };

// Writes the text into its cell, closes the entry and moves the cursor by the key. Marks the data as changed, but for
// kUp in the first record and kLeft in the first variable.
void CommitByKey(CellEntry& entry, DataSet& data, EntryKey key);

// The same for what takes the user elsewhere than a key of the entry. A click in the grid leaves the changed flag as it
// is; a command or the end of the program marks the data, so that what was typed is not lost unasked.
enum class EntryLeft { kByClick, kByCommand };
void CommitByLeaving(CellEntry& entry, DataSet& data, EntryLeft left);

// A typed text without its commas: for each of them a box says that it is prohibited.
std::string WithoutCommas(std::string_view typed, Messages& messages);
void RefuseComma(Messages& messages);

// The text that a cell may hold: no line end and no field separator, which would break the data file.
std::string CellTextOf(std::string_view text);

}  // namespace tessara
