#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "numerics/dates.h"
#include "platform/path.h"
#include "platform/scratch_folder.h"
#include "platform/status.h"
#include "presentation/office/plain_number.h"
#include "presentation/table_grid.h"

struct lxw_format;
struct lxw_workbook;
struct lxw_worksheet;

namespace tessara {

// What one sheet can hold.
struct SheetLimits {
  std::size_t rows = 1048576;
  std::size_t columns = 16384;
  std::size_t characters = 32767;  // of a cell
};

struct CellLook {
  std::optional<TableAlignment> alignment;
  bool bold = false;

  auto operator<=>(const CellLook&) const = default;
};

// A spreadsheet file in the making. Rows and columns are counted from 0; a row is finished when a cell of a later one
// is written, so that the memory does not grow with the sheet. What has failed is told at the end, by Save.
class Workbook {
 public:
  explicit Workbook(const DateTime& created);
  Workbook(const Workbook&) = delete;
  Workbook& operator=(const Workbook&) = delete;

  // The cells that follow stand in a new sheet.
  void AddSheet(const std::string& name);
  // Bytes of the code page; an empty text leaves no cell.
  void WriteText(std::size_t row, std::size_t column, std::string_view text, const CellLook& look = {});
  void WriteNumber(std::size_t row, std::size_t column, const PlainNumber& number, const CellLook& look = {});
  // A number where the text is one that the file holds to its last digit, else the text.
  void WriteField(std::size_t row, std::size_t column, std::string_view text, const CellLook& look = {});
  void SetColumnWidth(std::size_t column, std::size_t characters);
  // So many rows at the top stay in sight.
  void KeepInSight(std::size_t rows);

  // Puts the file together, looks it through and gives it its name. False when that cannot be done; a file of that name
  // is as it was then.
  bool Save(const Path& path, Status& status);

 private:
  struct Free {
    void operator()(lxw_workbook* workbook) const;
  };

  lxw_format* FormatOf(const CellLook& look, const std::string& mask);
  void NoteError(int error);

  ScratchFolder folder_;
  Path file_;
  std::unique_ptr<lxw_workbook, Free> workbook_;
  lxw_worksheet* sheet_ = nullptr;
  std::map<std::tuple<CellLook, std::string>, lxw_format*> formats_;
  std::vector<lxw_worksheet*> sheets_;
  std::vector<std::uint64_t> cells_;  // written to each sheet
  bool failed_ = false;
};

}  // namespace tessara
