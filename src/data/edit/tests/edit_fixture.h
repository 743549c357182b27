#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "data/change_door.h"
#include "data/edit/grid_block.h"
#include "data/edit/tests/edit_texts.h"
#include "numerics/number_text.h"
#include "platform/scripted_platform.h"

namespace tessara {

// Data of records in which cell r of variable c is the text "r.c", under names A, B, C...
class EditFixture : public testing::Test {
 protected:
  EditFixture() { Begin(6, 4); }

  void Begin(std::size_t records, std::size_t variables) {
    DataContents contents{
        .matrix = DataMatrix(kFirstRecordRow + records, variables), .RecordCount = records, .VariableCount = variables};
    for (std::size_t column = 1; column <= variables && column <= 26; ++column) {
      contents.matrix.SetText(kVariableNameRow, column, std::string(1, static_cast<char>('A' + column - 1)));
      for (std::size_t record = 1; record <= records && record <= 9; ++record) {
        contents.matrix.SetText(kHeaderRowCount + record, column,
                                std::to_string(record) + "." + std::to_string(column));
      }
    }
    BeginData(data, std::move(contents));
  }
  // The same without a cell filled.
  void BeginBlank(std::size_t records, std::size_t variables) {
    BeginData(data, {.matrix = DataMatrix(kFirstRecordRow + records, variables),
                     .RecordCount = records,
                     .VariableCount = variables});
  }

  // A cell of the grid; row 0 holds the names.
  std::string Cell(std::size_t row, std::size_t column) const {
    return TextOf(data.matrix.Cell(kHeaderRowCount + row, column));
  }
  // Rows joined by "/", their cells by blanks.
  std::string Cells(const GridBlock& block) const {
    std::string text;
    for (std::size_t row = block.first_row; row <= block.last_row; ++row) {
      if (row > block.first_row) text += "/";
      for (std::size_t column = block.first_column; column <= block.last_column; ++column) {
        if (column > block.first_column) text += " ";
        text += Cell(row, column);
      }
    }
    return text;
  }
  void PutCursor(std::size_t row, std::size_t column) { MoveCursor(data, {row, column}); }
  GridPlace Cursor() const { return CursorOf(data); }

  void ExpectBox(const std::string& title, const std::string& text) {
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_EQ(platform.messages[0].title, title);
    EXPECT_EQ(platform.messages[0].text, text);
    platform.messages.clear();
  }

  DataSet data;
  ScriptedPlatform platform;
};

inline void PrintTo(const GridPlace& place, std::ostream* out) { *out << place.row << '/' << place.column; }

}  // namespace tessara
