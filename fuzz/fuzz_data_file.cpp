// Any bytes as a data file: the index of the fields against a naive splitter, then the whole way through a load, a
// save, and a load of what was saved. A rule that does not hold stops the run.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "data/data_file.h"
#include "data/tests/naive_split.h"
#include "numerics/number_text.h"
#include "platform/files.h"
#include "platform/scripted_platform.h"

namespace {

using namespace tessara;

using Lines = std::vector<std::vector<std::string>>;

void Require(bool holds, const char* rule) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", rule);
  std::abort();
}

// A folder of this run, in memory where the system has such a place.
class ScratchFolder {
 public:
  ScratchFolder() {
    std::error_code error;
    const Path memory = "/dev/shm";
    const Path root = std::filesystem::is_directory(memory, error) ? memory : std::filesystem::temp_directory_path();
    path_ = root / ("tessara-fuzz-" + std::to_string(SystemEntropy()));
    std::filesystem::create_directories(path_);
  }
  ~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  Path operator/(const char* name) const { return path_ / name; }

 private:
  Path path_;
};

void CheckIndex(std::string_view text, std::size_t row_limit, std::size_t column_limit) {
  auto bytes = FileBytes::Allocate(text.size());
  Require(bytes.has_value(), "a small block is to be had");
  if (!text.empty()) std::memcpy(bytes->data(), text.data(), text.size());
  const LoadedText loaded(std::move(*bytes), row_limit, column_limit);

  const Lines lines = NaiveSplit(text);
  Require(loaded.row_count() == std::min(lines.size(), row_limit), "every line up to the limit is counted");
  for (std::size_t row = 0; row < loaded.row_count(); ++row) {
    const std::size_t fields = std::min(lines[row].size(), column_limit);
    for (std::size_t column = 1; column <= fields; ++column) {
      Require(loaded.Field(row, column) == lines[row][column - 1], "a field is that of the naive splitter");
    }
    Require(!loaded.Field(row, fields + 1), "there is no field behind the last");
  }
  for (std::size_t column = 1; column <= std::min<std::size_t>(column_limit, 3); ++column) {
    loaded.ForEachField(column, 0, loaded.row_count() + 1, [&](std::size_t row, const TaggedView& cell) {
      const auto field = loaded.Field(row, column);
      Require(cell == (field ? TaggedView(*field) : TaggedView()), "a column holds the fields of its lines");
    });
  }
}

LoadOutcome Load(DataSet& data, const Path& path) {
  ScriptedPlatform platform;
  MakeEmptyDataSet(data);
  data.WaitingPath = path;
  const LoadOutcome outcome = LoadDataFile(data, platform);
  Require(platform.messages.empty(), "a load shows no message");
  return outcome;
}

std::string Save(DataSet& data, const Path& path) {
  ScriptedPlatform platform;
  platform.save_answers.push_back(ChosenFile{path, "saved"});
  Require(SaveDataFileAs(data, platform) == SaveOutcome::kSaved, "what has loaded can be saved");
  const auto bytes = ReadWholeFile(path);
  Require(bytes.has_value(), "what has been saved is there");
  return std::string(bytes->text());
}

// The cells of a loaded file, as far as its lines reach and one further.
void CheckLoadedCells(const DataSet& data, const Lines& lines) {
  const std::size_t rows = std::min(data.RecordCount + kFirstRecordRow, lines.size() + 1);
  for (std::size_t row = 0; row < rows; ++row) {
    const std::size_t fields = row < lines.size() ? lines[row].size() : 0;
    for (std::size_t column = 1; column <= std::min(data.VariableCount, fields + 1); ++column) {
      const TaggedView cell = data.matrix.Cell(row, column);
      const bool is_there = column <= fields;
      Require(cell.is_text() == is_there && cell.is_empty() == !is_there,
              "a cell is a text, or empty when it is missing");
      Require(!is_there || cell.text() == lines[row][column - 1], "a cell is the field of the naive splitter");
    }
  }
}

void CheckLoadAndSave(const ScratchFolder& folder, std::string_view text) {
  std::ofstream(folder / "data.dcs", std::ios::binary) << text;
  DataSet data;
  Require(Load(data, folder / "data.dcs") == LoadOutcome::kLoaded, "any bytes load");
  Require(data.matrix.RowCount() == data.RecordCount + kFirstRecordRow, "the matrix has the rows of the counts");
  Require(data.matrix.ColumnCount() == data.VariableCount, "the matrix has the columns of the counts");
  Require(data.VarList.size() == data.VariableCount + 1, "every variable is listed");
  CheckLoadedCells(data, NaiveSplit(text));

  const std::size_t records = data.RecordCount;
  const std::size_t variables = data.VariableCount;
  const std::string saved = Save(data, folder / "saved.dcs");
  Require(data.RecordCount == records && data.VariableCount == variables, "a save puts the counts back");

  DataSet again;
  Load(again, folder / "saved.dcs");
  if (saved.starts_with("\r\n")) {
    std::string empty_lines;
    while (empty_lines.size() < 32) empty_lines += "\r\n";
    Require(saved == empty_lines, "no variable at all saves as sixteen empty lines");
    return;
  }
  Require(again.RecordCount <= records && again.VariableCount <= variables, "a save cuts and never adds");
  for (std::size_t row = 0; row < again.RecordCount + kFirstRecordRow; ++row) {
    for (std::size_t column = 1; column <= again.VariableCount; ++column) {
      Require(TextOf(again.matrix.Cell(row, column)) == TextOf(data.matrix.Cell(row, column)),
              "a save and a load give the same cells");
    }
  }
  Require(again.VariableCount < 2 || again.ProjectNotes == data.ProjectNotes, "notes come back");
  Require(Save(again, folder / "again.dcs") == saved, "what was saved saves as itself");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const ScratchFolder folder;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  CheckIndex(text, ~std::size_t{0}, ~std::size_t{0});
  CheckIndex(text, size % 23, size % 7);
  CheckLoadAndSave(folder, text);
  return 0;
}
