// The import of delimited text against the same steps one by one: whatever the bytes and the delimiter, every cell is
// the field that stands there, and what has been imported is saved and read again as it was.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "data/change_door.h"
#include "data/data_file.h"
#include "data/exchange/export.h"
#include "data/exchange/import.h"
#include "data/exchange/tests/naive_import.h"
#include "data/used_range.h"
#include "numerics/code_page.h"
#include "platform/files.h"
#include "platform/scripted_platform.h"

namespace tessara {
namespace {

void Require(bool holds) {
  if (!holds) std::abort();
}

const Path& FuzzFile(const char* ending) {
  static const Path folder = std::filesystem::temp_directory_path() / ("fuzz-" + std::to_string(SystemEntropy()));
  static Path path;
  path = folder;
  path += ending;
  return path;
}

const std::string& DelimiterOf(std::uint8_t byte) {
  static const std::vector<std::string> delimiters = {",", "\t", " ", ";", "::", ", ", "$", "\x01", "\r", "a"};
  return delimiters[byte % delimiters.size()];
}

void CheckCells(const DataSet& data, const std::string& text, const std::string& delimiter, bool has_names) {
  const std::vector<std::vector<std::string>> records = NaiveImport(text, delimiter);
  const std::size_t first_row = has_names ? kVariableNameRow : kFirstRecordRow;
  Require(data.RecordCount + (has_names ? 1 : 0) == records.size());
  for (std::size_t i = 0; i < records.size(); ++i) {
    for (std::size_t column = 1; column <= data.VariableCount; ++column) {
      const TaggedView cell = data.matrix.Cell(first_row + i, column);
      Require(cell.is_empty() == (column > records[i].size()));
      if (!cell.is_empty()) Require(cell.text() == records[i][column - 1]);
    }
  }
}

void CheckSaveAndUndo(DataSet& data, ScriptedPlatform& platform) {
  Require(SaveDataFile(data, platform) == SaveOutcome::kNoName);
  Require(ExportText(data, platform, FuzzFile(".out"), '\t'));
  Require(SaveDataFileTo(data, platform, FuzzFile(".dcs")) == SaveOutcome::kSaved);
  const UsedRange used = TrimToUsedRange(data);
  if (used.variables > 0) {  // else sixteen empty lines, whose banner tells no counts
    DataSet again;
    MakeEmptyDataSet(again);
    LoadDataFile(again, platform, FuzzFile(".dcs"), FilePick::kCommandLine);
    Require(again.RecordCount == used.records && again.VariableCount == used.variables);
    for (std::size_t row = kVariableNameRow; row < used.records + kFirstRecordRow; ++row) {
      for (std::size_t column = 1; column <= used.variables; ++column) {
        Require(again.matrix.Cell(row, column).text() == data.matrix.Cell(row, column).text());
      }
    }
  }
  Require(UndoChange(data) && data.VariableCount == kNewVariableCount);
}

void CheckImport(const std::string& content, const std::string& delimiter, bool has_names) {
  if (WriteWholeFile(FuzzFile(".txt"), content) != WriteResult::kWritten) return;
  ScriptedPlatform platform;
  DataSet data;
  MakeEmptyDataSet(data);
  DelimitForm form;
  Require(TakeImportFile(form, data, FuzzFile(".txt")));
  form.delimiter = DelimiterOption::kOther;
  form.Text2 = delimiter;
  form.Check1 = has_names;
  PreviewText(form);
  if (RefuseImport(form, platform)) return;
  const ImportOutcome outcome = ImportText(form, data, platform);
  Require(outcome == ImportOutcome::kImported || outcome == ImportOutcome::kNoData);
  if (outcome == ImportOutcome::kNoData) return;
  CheckCells(data, FromTextFile(content), delimiter, has_names);
  if (data.CellCount() <= 100000) CheckSaveAndUndo(data, platform);
}

}  // namespace
}  // namespace tessara

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  if (size < 2) return 0;
  const std::string text(reinterpret_cast<const char*>(bytes) + 2, size - 2);
  tessara::CheckImport(text, tessara::DelimiterOf(bytes[0]), bytes[1] % 2 == 1);
  return 0;
}
