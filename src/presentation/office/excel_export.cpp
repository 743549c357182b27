#include "presentation/office/excel_export.h"

#include <algorithm>
#include <string>

#include "data/progress.h"
#include "numerics/number_text.h"
#include "presentation/office/sheet_text.h"
#include "presentation/office/sheet_writer.h"

namespace tessara {
namespace {

constexpr const char* kExporting = "Exporting to Excel...";
constexpr std::string_view kLineEnds = "\r\n";

// Takes the first line off a text, its end (CR LF, or one of both alone) with it.
std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = std::min(text.find_first_of(kLineEnds), text.size());
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(end);
  if (!text.empty()) text.remove_prefix(text.starts_with(kLineEnds) ? 2 : 1);
  return line;
}

void WriteFields(SheetWriter& sheet, std::string_view line) {
  while (true) {
    const std::size_t tab = line.find('\t');
    sheet.Field(line.substr(0, tab));
    if (tab == line.npos) return;
    line.remove_prefix(tab + 1);
  }
}

bool Finish(SheetWriter& sheet, Workbook& workbook, const Path& path, Platform& platform) {
  sheet.End();
  if (!workbook.Save(path, platform)) {
    ShowExportFailed(platform);
    return false;
  }
  if (const std::string note = sheet.Note(); !note.empty()) platform.ShowNote(note);
  return true;
}

// A block of the data that one sheet holds; both ends belong to it.
struct DataBlock {
  std::size_t first_record = 1;
  std::size_t last_record = 0;
  std::size_t first_column = 1;
  std::size_t last_column = 0;
};

// Of a number in the data its leading zeros are kept, as codes have them; decimals are as many as it needs.
void WriteCell(SheetWriter& sheet, const TaggedView& cell) {
  constexpr std::size_t kUsualLength = 8;
  if (cell.is_number()) return sheet.Number({cell.number(), {}}, kUsualLength);
  auto number = FindPlainNumber(cell.text());
  if (!number) return sheet.Field(cell.text());
  if (number->mask.find_first_not_of('0') != std::string::npos) number->mask.clear();
  sheet.Number(*number, cell.text().size());
}

void WriteBlock(SheetWriter& sheet, Workbook& workbook, const DataSet& data, const DataBlock& block,
                Progress& progress) {
  sheet.NextSheet();
  workbook.KeepInSight(1);
  for (std::size_t column = block.first_column; column <= block.last_column; ++column) {
    sheet.Field(TextOf(data.matrix.Cell(kVariableNameRow, column)), {.alignment = {}, .bold = true});
  }
  for (std::size_t record = block.first_record; record <= block.last_record; ++record) {
    progress.ProgressStep();
    sheet.NextRow();
    for (std::size_t column = block.first_column; column <= block.last_column; ++column) {
      WriteCell(sheet, data.matrix.Cell(record + kHeaderRowCount, column));
    }
  }
}

}  // namespace

void ShowExportFailed(Messages& messages) {
  messages.ShowMessage(
      {"Export Aborted!", "The export failed. Please make sure the file is not open in another program."});
}

bool PrintToExcel(std::string_view text, const Path& path, Platform& platform, const SheetLimits& limits) {
  const WaitCursor wait(platform);
  const std::string converted = SheetText(std::string(text));
  Workbook workbook(platform.Now());
  SheetWriter sheet(workbook, "Output", limits);
  Progress progress(platform);
  progress.ProgressOpen(0, static_cast<double>(converted.size()), kExporting, 0);
  for (std::string_view rest = converted; !rest.empty();) {
    const std::size_t before = rest.size();
    sheet.NextRow();
    WriteFields(sheet, TakeLine(rest));
    progress.ProgressStep(static_cast<double>(before - rest.size()));
  }
  return Finish(sheet, workbook, path, platform);
}

bool TableToExcel(const TableGrid& grid, const Path& path, Platform& platform, const SheetLimits& limits) {
  const WaitCursor wait(platform);
  Workbook workbook(platform.Now());
  SheetWriter sheet(workbook, "Summary Table", limits);
  Progress progress(platform);
  progress.ProgressOpen(0, static_cast<double>(grid.RowCount()), kExporting, 0);
  for (std::size_t row = 1; row <= grid.RowCount(); ++row) {
    sheet.NextRow();
    for (std::size_t column = 1; column <= grid.ColumnCount(); ++column) {
      const TableCell& cell = grid.Cell(row, column);
      std::string_view text = cell.text;
      if (text.starts_with(' ')) text.remove_prefix(1);
      sheet.Field(text, {.alignment = cell.alignment});
    }
    progress.ProgressStep();
  }
  return Finish(sheet, workbook, path, platform);
}

bool DataToExcel(const DataSet& data, const Path& path, Platform& platform, std::size_t selected_variables,
                 const SheetLimits& limits) {
  const WaitCursor wait(platform);
  Workbook workbook(platform.Now());
  SheetWriter sheet(workbook, "Data", limits);
  Progress progress(platform);
  const std::size_t blocks = data.VariableCount / limits.columns + 1;
  progress.ProgressOpen(0, static_cast<double>(data.RecordCount * blocks), kExporting, selected_variables);
  const std::size_t records = limits.rows - 1;  // of a sheet, below the names
  for (std::size_t column = 1; column <= data.VariableCount; column += limits.columns) {
    for (std::size_t record = 1; record == 1 || record <= data.RecordCount; record += records) {
      WriteBlock(sheet, workbook, data,
                 {.first_record = record,
                  .last_record = std::min(record + records - 1, data.RecordCount),
                  .first_column = column,
                  .last_column = std::min(column + limits.columns - 1, data.VariableCount)},
                 progress);
    }
  }
  return Finish(sheet, workbook, path, platform);
}

}  // namespace tessara
