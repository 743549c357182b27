#pragma once

#include <string>
#include <string_view>

#include "data/data_set.h"
#include "data/edit/grid_block.h"
#include "platform/clipboard.h"
#include "platform/dialogs.h"

// Copy, Cut, Paste and Delete of a block of cells, headings among them. Each is one step to undo.

namespace tessara {

// Tabs between cells, CR between rows.
std::string BlockText(const DataSet& data, const GridBlock& block);

void CopyBlock(const DataSet& data, const GridBlock& block, Clipboard& clipboard);

// Puts empty text into the cells; a heading loses its name.
void ClearBlock(DataSet& data, const GridBlock& block, Messages& messages);

void CutBlock(DataSet& data, const GridBlock& block, Clipboard& clipboard, Messages& messages);

// Rows and columns of a pasted text, from the counts of its tabs and CRs: an empty line behind the last CR is none. A
// text whose lines have different lengths yields the columns of their mean, rounded down.
struct PasteSize {
  std::size_t rows = 0;
  std::size_t columns = 0;

  friend bool operator==(const PasteSize&, const PasteSize&) = default;
};
PasteSize SizeOfPaste(std::string_view text);

// Puts the text into the cells from the cursor on, as far as the data reach: they do not grow. Yields what was written;
// nothing, with both counts 0, when there was nothing to paste or the data are read only. Marks the data as changed in
// any case.
PasteSize PasteText(DataSet& data, std::string_view text, Messages& messages);

}  // namespace tessara
