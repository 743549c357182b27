#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "data/recode/recode_panel.h"

// The Run button, and what it would do.

namespace tessara {

struct RecodeOutcome {
  bool refused = false;           // a box has told why
  std::size_t changed_cells = 0;  // cells that show another text than before
  std::size_t found_row = 0;      // of a search: the matrix row of the match; 0 for none
};

// Does what the mode says. A run that changes data is one step that can be undone.
RecodeOutcome RunRecodePanel(RecodePanel& panel, DataSet& data, Platform& platform);

// The button "Undo": the records as they were ahead of the latest Replace are written over those of the variable that
// is picked now, whichever that is; records behind them stay. Yields the number of cells that change.
std::size_t UndoReplace(const RecodePanel& panel, DataSet& data);

// Whether a run would write into the last variable instead of adding one.
bool RunGoesOn(const RecodePanel& panel, const DataSet& data);

struct PreviewedCell {
  std::size_t record = 0;  // from 1
  std::string source;      // texts of the cells that a run reads
  std::string other_source;
  std::string new_text;
};

struct RecodePreview {
  std::vector<PreviewedCell> cells;  // empty when a check refuses
  std::size_t looked_at = 0;         // records
};

// The first cells that a run would change, at most most_cells, among the first most_records.
RecodePreview PreviewRecode(const RecodePanel& panel, const DataSet& data, std::size_t most_cells,
                            std::size_t most_records);

}  // namespace tessara
