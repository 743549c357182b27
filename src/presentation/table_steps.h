#pragma once

#include <list>
#include <string_view>
#include <variant>

#include "presentation/table_face.h"

// Changes of the table as steps that can be taken back. A step is made ready before anything changes, so that a lack of
// memory leaves the table and its steps as they were.

namespace tessara {

// At most so much is kept of what has been; the last step is kept whatever its size.
inline constexpr std::size_t kMostTableSteps = 100;
inline constexpr std::size_t kMostStepBytes = std::size_t{64} << 20;

// Makes the change whose other side is given; the face then selects `after`.
void TakeStep(TableGrid& grid, TableFace& face, TableStep step);

// Another table in the place of this one, as a step that is made ready ahead of other things that may fail.
using ReadyStep = std::list<TableStep>;
ReadyStep ReadyToReplace(const TableFace& face, TableGrid next, std::string_view name);
// Asks for no memory.
void TakeReadyStep(TableGrid& grid, TableFace& face, ReadyStep step) noexcept;

// One step back or forth. False when there is none.
bool UndoTableStep(TableGrid& grid, TableFace& face);
bool RedoTableStep(TableGrid& grid, TableFace& face);
// The name of the step that would be taken back or made again; empty when there is none.
std::string_view UndoTableName(const TableFace& face);
std::string_view RedoTableName(const TableFace& face);

}  // namespace tessara
