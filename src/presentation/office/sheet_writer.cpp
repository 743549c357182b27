#include "presentation/office/sheet_writer.h"

#include <algorithm>
#include <utility>

namespace tessara {
namespace {

// Columns as wide as their longest text, but a title does not push the figures out of sight.
constexpr std::size_t kLeastWidth = 9;
constexpr std::size_t kGreatestWidth = 48;

void Join(std::string& sentence, const std::string& words) { sentence += (sentence.empty() ? "" : ", ") + words; }

}  // namespace

SheetWriter::SheetWriter(Workbook& workbook, std::string name, const SheetLimits& limits)
    : workbook_(workbook), name_(std::move(name)), limits_(limits) {}

void SheetWriter::NextRow() {
  if (sheets_ == 0 || row_ + 1 == limits_.rows) return NextSheet();
  if (has_row_) ++row_;
  has_row_ = true;
  column_ = 0;
}

void SheetWriter::NextSheet() {
  SetWidths();
  ++sheets_;
  workbook_.AddSheet(sheets_ == 1 ? name_ : name_ + " " + std::to_string(sheets_));
  row_ = 0;
  column_ = 0;
  has_row_ = true;
}

// Room for one more cell in the row.
void SheetWriter::MakePlace(std::size_t characters) {
  if (column_ == limits_.columns) {
    went_to_next_row_ = true;
    NextRow();
  }
  if (longest_.size() <= column_) longest_.resize(column_ + 1);
  longest_[column_] = std::max(longest_[column_], characters);
}

void SheetWriter::Field(std::string_view field, const CellLook& look) {
  std::string_view part = field.substr(0, limits_.characters);
  MakePlace(part.size());
  if (part.size() == field.size()) return workbook_.WriteField(row_, column_++, part, look);
  workbook_.WriteText(row_, column_++, part, look);
  for (std::size_t at = part.size(); at < field.size(); at += part.size()) {
    went_to_next_cell_ = true;
    part = field.substr(at, limits_.characters);
    MakePlace(part.size());
    workbook_.WriteText(row_, column_++, part, look);
  }
}

void SheetWriter::Number(const PlainNumber& number, std::size_t characters, const CellLook& look) {
  MakePlace(characters);
  rounded_ = rounded_ || !number.survives;
  workbook_.WriteNumber(row_, column_++, number, look);
}

void SheetWriter::SetWidths() {
  if (sheets_ == 0) return;
  for (std::size_t column = 0; column < longest_.size(); ++column) {
    const std::size_t width = std::min(longest_[column] + 1, kGreatestWidth);
    if (width > kLeastWidth) workbook_.SetColumnWidth(column, width);
  }
  longest_.clear();
}

void SheetWriter::End() {
  if (sheets_ == 0) NextSheet();
  SetWidths();
}

std::string SheetWriter::Note() const {
  std::string places;
  if (went_to_next_cell_)
    Join(places, "texts of more than " + std::to_string(limits_.characters) + " characters in the next cell");
  if (went_to_next_row_)
    Join(places, "rows of more than " + std::to_string(limits_.columns) + " cells in the next row");
  if (sheets_ > 1)
    Join(places, "what one sheet cannot hold in the sheets up to \"" + name_ + " " + std::to_string(sheets_) + "\"");
  std::string note = places.empty() ? places : "the spreadsheet goes on: " + places;
  if (rounded_) note += (note.empty() ? "" : "; ") + std::string("it keeps 16 digits of a number, and some had more");
  return note;
}

}  // namespace tessara
