#pragma once

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "data/change_door.h"
#include "data/data_set.h"
#include "numerics/number_text.h"

// Data sets beside their naive model, in which every cell is a text of its own.

namespace tessara {

// Columns of rows: each cell its tag and its text.
using ModelColumn = std::vector<std::string>;
using Model = std::vector<ModelColumn>;

inline std::string ModelCell(const TaggedView& cell) {
  return cell.is_empty() ? "-" : (cell.is_text() ? "t" : "n") + TextOf(cell);
}

inline Model ModelOf(const DataMatrix& matrix) {
  Model model(matrix.ColumnCount(), ModelColumn(matrix.RowCount()));
  for (std::size_t column = 1; column <= model.size(); ++column) {
    for (std::size_t row = 0; row < matrix.RowCount(); ++row) {
      model[column - 1][row] = ModelCell(matrix.Cell(row, column));
    }
  }
  return model;
}

// A matrix as a load leaves it: a name and `records` cells to a column.
inline DataMatrix LoadedMatrix(std::size_t records, std::size_t columns) {
  std::string text;
  const auto line = [&](std::size_t row) {
    for (std::size_t column = 1; column <= columns; ++column) {
      if (column > 1) text += '\x01';
      if (row == kVariableNameRow) text += "V" + std::to_string(column);
      if (row < kFirstRecordRow) continue;
      text += std::to_string(row - kHeaderRowCount) + "/" + std::to_string(column);
      if (row % 7 == 0) text += " and more than the sixteen bytes of a cell";
    }
    text += "\r\n";
  };
  for (std::size_t row = 0; row < kFirstRecordRow + records; ++row) line(row);
  auto bytes = FileBytes::Allocate(text.size());
  std::memcpy(bytes->data(), text.data(), text.size());
  const std::size_t rows = kFirstRecordRow + records;
  return DataMatrix(rows, columns, LoadedText(std::move(*bytes), rows, columns));
}

inline DataContents LoadedContents(std::size_t records, std::size_t columns) {
  return {.matrix = LoadedMatrix(records, columns),
          .RecordCount = records,
          .VariableCount = columns,
          .DataFileTitle = "loaded.dcs",
          .GridTitle = "loaded.dcs"};
}

inline DataSet LoadedData(std::size_t records, std::size_t columns) {
  DataSet data;
  BeginData(data, LoadedContents(records, columns));
  return data;
}

// A column of `records` texts.
inline Column TextColumn(const std::string& name, std::size_t records, const std::string& text) {
  Column column;
  column.Set(kVariableNameRow, name);
  for (std::size_t record = 0; record < records; ++record) column.Set(kFirstRecordRow + record, text);
  return column;
}

}  // namespace tessara
