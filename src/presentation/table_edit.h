#pragma once

#include <string>
#include <string_view>

#include "platform/clipboard.h"
#include "platform/dialogs.h"
#include "presentation/table_face.h"

// What a user does to the summary table by hand. Each change is one step that can be taken back. A selection that
// reaches beyond the used area counts as far as the table goes; only writing and pasting make the table grow.

namespace tessara {

// A table grows by hand as far as this; the rest of a text is never taken in parts.
inline constexpr std::size_t kMostPastedCells = 1'000'000;
inline constexpr std::size_t kMostPastedColumns = 10'000;

// Writes a text, without its line ends, into the cell at the cursor.
void TypeIntoTable(TableGrid& grid, TableFace& face, std::string_view text);

// Tabs between cells, CR between rows.
std::string TableText(const TableGrid& grid, const TableBlock& block);
void CopyTableCells(const TableGrid& grid, const TableFace& face, Clipboard& clipboard);
void CutTableCells(TableGrid& grid, TableFace& face, Clipboard& clipboard);
// The cells keep their alignment and what they stand for.
void ClearTableCells(TableGrid& grid, TableFace& face);

// Puts a text into the cells from the first selected one on and selects what it has written. Lines may have different
// lengths: what one is short of is empty. False, with a box that says why, when the table would grow beyond its limits.
bool PasteIntoTable(TableGrid& grid, TableFace& face, std::string_view text, Messages& messages);

// The rows and columns that the selection touches.
void DeleteTableRows(TableGrid& grid, TableFace& face);
void DeleteTableColumns(TableGrid& grid, TableFace& face);

void AlignTableCells(TableGrid& grid, TableFace& face, TableAlignment alignment);

// Widths in hundredths of a character.
void SetTableColumnWidth(TableGrid& grid, TableFace& face, std::size_t column, double width);
// As wide as the longest text of the column, with a gap of two characters.
void FitTableColumn(TableGrid& grid, TableFace& face, std::size_t column);

// Another table in the place of this one, and none at all. `name` is what the step is called.
void ReplaceTable(TableGrid& grid, TableFace& face, TableGrid next, std::string_view name);
void EmptyTable(TableGrid& grid, TableFace& face);

}  // namespace tessara
