#include "data/exchange/export.h"

#include "data/line_writer.h"
#include "data/progress.h"
#include "platform/safe_file_writer.h"

namespace tessara {

void ShowExportReminder(Messages& messages) {
  messages.ShowMessage(
      {"Reminder!", "Please note that the export will not contain formatting.", Buttons::kOk, Tone::kInformation});
}

bool ExportText(const DataSet& data, Platform& platform, const Path& path, char delimiter,
                std::size_t selected_variables) {
  SafeFileWriter file(path);
  if (file.result() == WriteResult::kWritten) {
    Progress progress(platform);
    const std::size_t last = data.RecordCount + kHeaderRowCount;
    progress.ProgressOpen(0, static_cast<double>(last), "Exporting data...", selected_variables);
    const WaitCursor wait(platform);
    LineWriter lines(data, data.VariableCount, file, delimiter);
    for (std::size_t row = kVariableNameRow; row <= last; ++row) {
      progress.ProgressStep();
      lines.Write(row);
    }
  }
  if (file.Commit() == WriteResult::kWritten) {
    NoteWhatWasNotKept(file, platform);
    return true;
  }
  platform.ShowMessage(
      {"Export Aborted!", "The export failed. Please make sure the file is not open in another program."});
  return false;
}

}  // namespace tessara
