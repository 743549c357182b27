#include "data/edit/edit_limit.h"

namespace tessara {
namespace {

bool RefuseEntry(Messages& messages) {
  messages.ShowMessage({"Operation Aborted!",
                        "The spreadsheet has reached its maximum capacity. You may continue to add variables with "
                        "recode and compute functions, but you cannot edit cells. You must edit these files with other "
                        "software."});
  return false;
}

}  // namespace

bool AllowsEntry(const DataSet& data, Messages& messages) {
  return CellsOf(data.RecordCount, data.VariableCount + 1) < kEditLimit || RefuseEntry(messages);
}

bool AllowsBlockEdit(const DataSet& data, Messages& messages) {
  return data.WithinEditLimit() || RefuseEntry(messages);
}

bool AllowsMoreCells(const DataSet& data, Messages& messages) {
  if (data.CellCount() < kEditLimit) return true;
  messages.ShowMessage({"Operation Aborted!",
                        "The spreadsheet has reached its maximum capacity. You may continue to add variables with "
                        "recode and compute functions, but you cannot add cells for data entry.  Tessara can read "
                        "files larger than the limit, but you must edit these files with other software."});
  return false;
}

}  // namespace tessara
