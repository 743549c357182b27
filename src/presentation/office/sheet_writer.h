#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "presentation/office/workbook.h"

namespace tessara {

// Fills the sheets of a workbook row by row. What one sheet cannot hold goes on: a text in the next cell, a row in the
// next one, a sheet in the next one.
class SheetWriter {
 public:
  // The sheets are named `name`, `name` 2 and so on.
  SheetWriter(Workbook& workbook, std::string name, const SheetLimits& limits);

  // Begins a row; the first one begins the first sheet.
  void NextRow();
  // The next cell of the row; an empty field leaves it out.
  void Field(std::string_view field, const CellLook& look = {});
  void Number(const PlainNumber& number, std::size_t characters, const CellLook& look = {});
  // Goes on in a new sheet.
  void NextSheet();
  // Gives the columns of the last sheet their widths.
  void End();

  // The number of the row in its sheet, from 0.
  std::size_t row() const { return row_; }
  // What went on elsewhere and what was rounded, as a sentence; empty when nothing was.
  std::string Note() const;

 private:
  void MakePlace(std::size_t characters);
  void SetWidths();

  Workbook& workbook_;
  const std::string name_;
  const SheetLimits limits_;
  std::size_t sheets_ = 0;
  std::size_t row_ = 0;
  std::size_t column_ = 0;
  bool has_row_ = false;
  std::vector<std::size_t> longest_;  // in each column of the sheet
  bool went_to_next_cell_ = false;
  bool went_to_next_row_ = false;
  bool rounded_ = false;
};

}  // namespace tessara
