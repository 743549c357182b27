#include "presentation/office/workbook.h"

#include <xlsxwriter.h>

#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <new>

#include "platform/files.h"
#include "platform/safe_file_writer.h"
#include "presentation/office/xml_text.h"
#include "presentation/office/zip_archive.h"

namespace tessara {
namespace {

constexpr std::size_t kBlock = std::size_t{1} << 20;

// The library does not look at every answer of the machine's. Asked for ahead of it, the memory that it needs can be
// refused in good order: std::bad_alloc comes out.
void RequireRoomForLibrary() {
  constexpr std::size_t kRoom = std::size_t{16} << 20;
  void* const volatile room = std::malloc(kRoom);  // NOLINT: only tried
  if (!room) throw std::bad_alloc();
  std::free(room);  // NOLINT
}

std::time_t SecondsOf(const DateTime& moment) {
  constexpr long kSecondsOfDay = 86400;
  const long days = DayNumber(moment.date) - DayNumber({1970, 1, 1});
  return days * kSecondsOfDay + moment.hour * 3600L + moment.minute * 60L + moment.second;
}

// A sheet reads "_x000D_" as a character by its number: where those seven characters stand in a text of ours, their
// first one is written that way.
bool IsNumberedCharacter(std::string_view text) {
  constexpr std::size_t kLength = 7;
  if (text.size() < kLength || !text.starts_with("_x") || text[kLength - 1] != '_') return false;
  for (const char digit : text.substr(2, 4)) {
    if (std::isxdigit(static_cast<unsigned char>(digit)) == 0) return false;
  }
  return true;
}

std::string SheetUtf8(std::string_view bytes) {
  std::string text = PlainUtf8(bytes);
  constexpr std::string_view kUnderline = "_x005F_";
  for (std::size_t at = text.find("_x"); at != text.npos; at = text.find("_x", at + 1)) {
    if (!IsNumberedCharacter(std::string_view(text).substr(at))) continue;
    text.replace(at, 1, kUnderline);
    at += kUnderline.size() - 1;
  }
  return text;
}

uint8_t AlignmentOf(TableAlignment alignment) {
  switch (alignment) {
    case TableAlignment::kLeft:
      return LXW_ALIGN_LEFT;
    case TableAlignment::kCentre:
      return LXW_ALIGN_CENTER;
    case TableAlignment::kRight:
      return LXW_ALIGN_RIGHT;
  }
  return LXW_ALIGN_NONE;
}

bool CopyInto(SafeFileWriter& writer, const Path& file) {
  std::ifstream from(file, std::ios::binary);
  std::string block(kBlock, '\0');
  while (from) {
    from.read(block.data(), static_cast<std::streamsize>(block.size()));
    writer.Write({block.data(), static_cast<std::size_t>(from.gcount())});
  }
  return from.eof() && !from.bad();
}

}  // namespace

Workbook::Workbook(const DateTime& created) {
  RequireRoomForLibrary();
  if (folder_.path().empty()) {
    failed_ = true;
    return;
  }
  file_ = folder_.FileOf("workbook.xlsx");
  std::string folder = folder_.path().string();
  // The library keeps copies of both texts.
  lxw_workbook_options options = {.constant_memory = LXW_TRUE, .tmpdir = folder.data(), .use_zip64 = LXW_FALSE};
  workbook_.reset(workbook_new_opt(file_.string().c_str(), &options));
  if (!workbook_) throw std::bad_alloc();
  char title[] = "Tessara output";
  char author[] = "Tessara";
  lxw_doc_properties properties{};
  properties.title = title;
  properties.author = author;
  properties.created = SecondsOf(created);
  NoteError(workbook_set_properties(workbook_.get(), &properties));
}

// The library leaves the temporary files of sheets open when they are not put together.
void Workbook::Free::operator()(lxw_workbook* workbook) const {
  lxw_worksheet* sheet = nullptr;
  STAILQ_FOREACH(sheet, workbook->worksheets, list_pointers) {
    if (sheet->optimize_tmpfile) std::fclose(sheet->optimize_tmpfile);
  }
  lxw_workbook_free(workbook);
}

void Workbook::NoteError(int error) {
  if (error == LXW_ERROR_MEMORY_MALLOC_FAILED) throw std::bad_alloc();
  if (error != LXW_NO_ERROR) failed_ = true;
}

void Workbook::AddSheet(const std::string& name) {
  if (failed_) return;
  RequireRoomForLibrary();
  sheet_ = workbook_add_worksheet(workbook_.get(), name.c_str());
  // A sheet goes by way of a temporary file of its own.
  failed_ = !sheet_ || !sheet_->optimize_tmpfile;
  if (failed_) return;
  sheets_.push_back(sheet_);
  cells_.push_back(0);
}

void Workbook::WriteText(std::size_t row, std::size_t column, std::string_view text, const CellLook& look) {
  if (failed_ || text.empty()) return;
  NoteError(worksheet_write_string(sheet_, static_cast<lxw_row_t>(row), static_cast<lxw_col_t>(column),
                                   SheetUtf8(text).c_str(), FormatOf(look, {})));
  ++cells_.back();
}

void Workbook::WriteNumber(std::size_t row, std::size_t column, const PlainNumber& number, const CellLook& look) {
  if (failed_) return;
  NoteError(worksheet_write_number(sheet_, static_cast<lxw_row_t>(row), static_cast<lxw_col_t>(column), number.value,
                                   FormatOf(look, number.mask)));
  ++cells_.back();
}

void Workbook::WriteField(std::size_t row, std::size_t column, std::string_view text, const CellLook& look) {
  const auto number = FindPlainNumber(text);
  if (number && number->survives) {
    WriteNumber(row, column, *number, look);
  } else {
    WriteText(row, column, text, look);
  }
}

lxw_format* Workbook::FormatOf(const CellLook& look, const std::string& mask) {
  if (!look.alignment && !look.bold && mask.empty()) return nullptr;
  lxw_format*& format = formats_[{look, mask}];
  if (format) return format;
  format = workbook_add_format(workbook_.get());
  if (!format) throw std::bad_alloc();
  if (look.alignment) format_set_align(format, AlignmentOf(*look.alignment));
  if (look.bold) format_set_bold(format);
  if (!mask.empty()) format_set_num_format(format, mask.c_str());
  return format;
}

void Workbook::SetColumnWidth(std::size_t column, std::size_t characters) {
  if (failed_) return;
  const auto number = static_cast<lxw_col_t>(column);
  NoteError(worksheet_set_column(sheet_, number, number, static_cast<double>(characters), nullptr));
}

void Workbook::KeepInSight(std::size_t rows) {
  if (!failed_) worksheet_freeze_panes(sheet_, static_cast<lxw_row_t>(rows), 0);
}

bool Workbook::Save(const Path& path, Status& status) {
  for (lxw_worksheet* sheet : sheets_) failed_ = failed_ || std::ferror(sheet->optimize_tmpfile) != 0;
  if (failed_) return false;
  RequireRoomForLibrary();
  NoteError(workbook_close(workbook_.release()));
  // Not every failing write to its temporary files comes back from the library: what a full disk has cut is seen here.
  if (failed_ || !IsWholeArchive(file_, "xl/worksheets/sheet", "<c ", cells_)) return false;
  SafeFileWriter writer(path);
  if (writer.result() != WriteResult::kWritten || !CopyInto(writer, file_)) return false;
  if (writer.Commit() != WriteResult::kWritten) return false;
  NoteWhatWasNotKept(writer, status);
  return true;
}

}  // namespace tessara
