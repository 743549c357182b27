#include "data/exchange/split.h"

#include <algorithm>
#include <string>

#include "data/data_file.h"
#include "data/field_ends.h"
#include "data/progress.h"
#include "data/used_range.h"
#include "numerics/code_page.h"
#include "numerics/number_text.h"
#include "platform/files.h"

namespace tessara {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

void RefuseNoSelection(Messages& messages) {
  messages.ShowMessage({"Procedure Aborted", "You must select a variable from the list"});
}

// False, and a note, when there is no more room.
bool Add(SplitPanel& panel, std::size_t column, Platform& platform) {
  if (panel.SplitCount() >= kMostSplitVariables) {
    platform.ShowNote("a new data file takes " + std::to_string(kMostSplitVariables) + " variables at most");
    return false;
  }
  panel.SplitColumns.push_back(column);
  return true;
}

// Two fields, whatever the number of variables.
std::string FirstRow(const SplitPanel& panel, const DataSet& data, const UsedRange& used) {
  return std::to_string(used.records) + " " + std::to_string(panel.SplitCount()) + " Tessara data" + kFieldSeparator +
         TextOf(data.matrix.Cell(kNotesRow, 2));
}

WriteResult WriteSplit(const SplitPanel& panel, const DataSet& data, Platform& platform, const Path& path) {
  SafeFileWriter file(path);
  if (file.result() != WriteResult::kWritten) return file.result();
  const UsedRange used = TrimToUsedRange(data);
  const std::size_t rows = used.records + kFirstRecordRow;
  Progress progress(platform);
  progress.ProgressOpen(0, static_cast<double>(rows), "Saving data file...", panel.SplitCount());
  const WaitCursor wait(platform);
  std::string line = FirstRow(panel, data, used);
  NumberBuffer buffer{};
  for (std::size_t row = 0; row < rows; ++row) {
    progress.ProgressStep();
    if (row > 0) {
      line.clear();
      for (std::size_t i = 0; i < panel.SplitCount(); ++i) {
        if (i > 0) line += kFieldSeparator;
        line += TextOf(data.matrix.Cell(row, panel.SplitColumns[i]), buffer);
      }
    }
    line += kLineEnd;
    file.Write(line);
  }
  const WriteResult result = file.Commit();
  if (result == WriteResult::kWritten) NoteWhatWasNotKept(file, platform);
  return result;
}

}  // namespace

void AddVariable(SplitPanel& panel, std::size_t column, Platform& platform) {
  if (column == 0) return RefuseNoSelection(platform);
  Add(panel, column, platform);
}

void AddAllVariables(SplitPanel& panel, std::span<const std::size_t> columns, Platform& platform) {
  if (columns.empty()) return RefuseNoSelection(platform);
  for (const std::size_t column : columns) {
    if (std::ranges::find(panel.SplitColumns, column) != panel.SplitColumns.end()) continue;
    if (!Add(panel, column, platform)) return;
  }
}

void ResetSplit(SplitPanel& panel) { panel.SplitColumns.clear(); }

void DropMissingVariables(SplitPanel& panel, const DataSet& data) {
  std::erase_if(panel.SplitColumns, [&](std::size_t column) { return column > data.VariableCount; });
}

bool MayRunSplit(const SplitPanel& panel, Messages& messages) {
  if (panel.SplitCount() > 0) return true;
  messages.ShowMessage({"Procedure Aborted", "You must have at least one variable in new data file list"});
  return false;
}

bool RunSplit(const SplitPanel& panel, const DataSet& data, Platform& platform, const Path& path) {
  if (WriteSplit(panel, data, platform, path) != WriteResult::kWritten) {
    ShowSaveAsError(platform);
    return false;
  }
  platform.ShowMessage({"Operation Completed",
                        "The new file has been successfully saved. You must open this file to begin using it.\r\n\r\n"
                        "File Name:    " +
                            FromUtf8(PathToUtf8(path.filename())) + "\r\nFile Location: " + FromUtf8(PathToUtf8(path)),
                        Buttons::kOk, Tone::kInformation});
  return true;
}

}  // namespace tessara
