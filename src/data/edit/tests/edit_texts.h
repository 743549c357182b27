#pragma once

// The words of the boxes of the edit limit.

namespace tessara {

inline constexpr const char* kNoEntryText =
    "The spreadsheet has reached its maximum capacity. You may continue to add variables with recode and compute "
    "functions, but you cannot edit cells. You must edit these files with other software.";
inline constexpr const char* kNoMoreCellsText =
    "The spreadsheet has reached its maximum capacity. You may continue to add variables with recode and compute "
    "functions, but you cannot add cells for data entry.  Tessara can read files larger than the limit, but you must "
    "edit these files with other software.";

}  // namespace tessara
