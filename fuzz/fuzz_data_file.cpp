// The loader of the data file against a plain splitter: whatever the bytes, every cell is the field that stands there,
// and what has been saved loads again as it was.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "data/data_file.h"
#include "data/used_range.h"
#include "platform/files.h"
#include "platform/scripted_platform.h"

namespace tessara {
namespace {

using Lines = std::vector<std::vector<std::string>>;

// Lines end in LF or CR LF; the last one may have no line end.
Lines SplitPlainly(const std::string& text) {
  Lines lines;
  for (std::size_t at = 0; at < text.size();) {
    std::size_t end = text.find('\n', at);
    const bool has_end = end != std::string::npos;
    if (!has_end) end = text.size();
    std::string line = text.substr(at, end - at);
    if (has_end && !line.empty() && line.back() == '\r') line.pop_back();
    at = end + 1;
    lines.emplace_back();
    for (std::size_t field = 0;;) {
      const std::size_t separator = line.find(kFieldSeparator, field);
      lines.back().push_back(line.substr(field, separator - field));
      if (separator == std::string::npos) break;
      field = separator + 1;
    }
  }
  return lines;
}

void Require(bool holds) {
  if (!holds) std::abort();
}

const Path& FuzzFile() {
  static const Path path =
      std::filesystem::temp_directory_path() / ("fuzz-" + std::to_string(SystemEntropy()) + ".dcs");
  return path;
}

void CheckIndex(const std::string& text, std::size_t rows, std::size_t columns) {
  auto bytes = FileBytes::Allocate(text.size());
  Require(bytes.has_value());
  if (!text.empty()) std::memcpy(bytes->data(), text.data(), text.size());
  const LoadedText loaded(std::move(*bytes), rows, columns);
  const Lines lines = SplitPlainly(text);
  Require(loaded.row_count() == std::min(rows, lines.size()));
  for (std::size_t row = 0; row < loaded.row_count(); ++row) {
    for (std::size_t column = 1; column <= columns; ++column) {
      const auto field = loaded.Field(row, column);
      Require(field.has_value() == (column <= lines[row].size()));
      if (field) Require(*field == lines[row][column - 1]);
    }
  }
}

void CheckLoadAndSave(const std::string& text) {
  if (WriteWholeFile(FuzzFile(), text) != WriteResult::kWritten) return;
  ScriptedPlatform platform;
  DataSet data;
  MakeEmptyDataSet(data);
  // As from a command line, which loads an empty file too.
  Require(LoadDataFile(data, platform, FuzzFile(), FilePick::kCommandLine) == LoadOutcome::kLoaded);
  Require(platform.messages.empty());
  if (data.CellCount() > 100000) return;  // a sparse shape: saving it takes long and tells nothing new

  Require(SaveDataFileTo(data, platform, FuzzFile()) == SaveOutcome::kSaved);
  const UsedRange used = TrimToUsedRange(data);
  DataSet again;
  MakeEmptyDataSet(again);
  LoadDataFile(again, platform, FuzzFile(), FilePick::kCommandLine);
  if (used.variables == 0) return;  // sixteen empty lines, whose banner tells no counts
  Require(again.RecordCount == used.records && again.VariableCount == used.variables);
  for (std::size_t row = 1; row < used.records + kFirstRecordRow; ++row) {
    for (std::size_t column = 1; column <= used.variables; ++column) {
      const std::string_view cell = data.matrix.Cell(row, column).text();
      Require(again.matrix.Cell(row, column).text() == cell);
    }
  }
}

}  // namespace
}  // namespace tessara

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  if (size < 2) return 0;
  const std::string text(reinterpret_cast<const char*>(bytes) + 2, size - 2);
  tessara::CheckIndex(text, bytes[0] % 40, bytes[1] % 9);
  tessara::CheckLoadAndSave(text);
  return 0;
}
