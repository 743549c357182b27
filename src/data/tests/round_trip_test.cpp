#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "data/change_door.h"
#include "data/data_file.h"
#include "data/tests/data_fixture.h"
#include "numerics/number_text.h"

// Random data sets through file and memory, held to a model of vectors of texts.

namespace tessara {
namespace {

using Rows = std::vector<std::vector<std::string>>;  // rows from 0, columns from 1 at index 0

// Bytes that a cell may hold: neither byte 1 nor a line end.
std::string RandomCell(std::mt19937_64& random) {
  static constexpr std::string_view kBytes("0123456789.,-+eE @#$%|=\0\t\x7F\x80\xE9\xFF", 30);
  std::string cell(random() % 10 == 0 ? random() % 60 : random() % 6, '\0');
  for (char& c : cell) c = kBytes[random() % kBytes.size()];
  return cell;
}

// A file as the writer would leave it: its last record and its last variable are not wholly blank, row 0 holds banner
// and notes.
Rows RandomRows(std::mt19937_64& random, std::size_t records, std::size_t variables) {
  Rows rows(records + kFirstRecordRow, std::vector<std::string>(variables));
  for (std::size_t row = 1; row < rows.size(); ++row) {
    for (std::string& cell : rows[row]) {
      if (random() % 3 != 0) cell = RandomCell(random);
    }
  }
  rows.back()[random() % variables] = "last";
  rows[kFirstRecordRow + random() % records][variables - 1] = "last";
  rows[0][0] = std::to_string(records) + " " + std::to_string(variables) + " Tessara data";
  if (variables > 1) rows[0][1] = "some notes@#$%of two lines";
  return rows;
}

std::string TextOfRows(const Rows& rows) {
  std::string text;
  for (const auto& row : rows) {
    for (std::size_t column = 0; column < row.size(); ++column) text += (column > 0 ? "\x01" : "") + row[column];
    text += "\r\n";
  }
  return text;
}

// The shape of turn n: small ones, long ones, wide ones.
std::pair<std::size_t, std::size_t> RandomShape(std::mt19937_64& random, int turn) {
  if (turn % 10 == 8) return {4000 + random() % 5000, 1 + random() % 3};
  if (turn % 10 == 9) return {1 + random() % 20, 500 + random() % 1500};
  return {1 + random() % 40, 1 + random() % 12};
}

class RoundTripTest : public DataFixture {
 protected:
  void ExpectCells(const Rows& rows) const {
    for (std::size_t row = 1; row < rows.size(); ++row) {
      for (std::size_t column = 0; column < rows[row].size(); ++column) {
        ASSERT_EQ(TextOf(data.matrix.Cell(row, column + 1)), rows[row][column]) << row << ' ' << column + 1;
      }
    }
  }
};

TEST_F(RoundTripTest, LoadAndSaveGiveTheSameBytes) {
  std::mt19937_64 random(5);
  for (int turn = 0; turn < 60; ++turn) {
    const auto [records, variables] = RandomShape(random, turn);
    const Rows rows = RandomRows(random, records, variables);
    ASSERT_EQ(OpenText(TextOfRows(rows)), LoadOutcome::kLoaded);
    ASSERT_NO_FATAL_FAILURE(ExpectCells(rows)) << turn;
    ASSERT_EQ(SavedText(), TextOfRows(rows)) << turn;
  }
}

TEST_F(RoundTripTest, AMatrixOfTypedCellsComesBackAsItsTexts) {
  std::mt19937_64 random(6);
  for (int turn = 0; turn < 20; ++turn) {
    const auto [records, variables] = RandomShape(random, turn % 8);
    Rows rows = RandomRows(random, records, variables);
    MatrixEditor(data).Replace(DataMatrix(rows.size(), variables));
    data.RecordCount = records;
    data.VariableCount = variables;
    data.ProjectNotes = "some notes\r\nof two lines";
    for (std::size_t row = 1; row < rows.size(); ++row) {
      for (std::size_t column = 1; column <= variables; ++column) {
        std::string& cell = rows[row][column - 1];
        if (random() % 4 == 0 && cell != "last") {
          const double number = static_cast<double>(static_cast<std::int64_t>(random() % 2000) - 1000) / 16;
          MatrixEditor(data).SetNumber(row, column, number);
          cell = GeneralText(number);
        } else if (!cell.empty()) {
          MatrixEditor(data).SetText(row, column, cell);
        }
      }
    }
    const std::string text = TextOfRows(rows);
    ASSERT_EQ(SavedText(), text) << turn;
    ASSERT_EQ(Open(folder / "saved.dcs"), LoadOutcome::kLoaded);
    ASSERT_NO_FATAL_FAILURE(ExpectCells(rows)) << turn;
    ASSERT_EQ(SavedText(), text) << turn;
  }
}

TEST_F(RoundTripTest, EditsOfLoadedDataAgreeWithAModel) {
  std::mt19937_64 random(7);
  for (int turn = 0; turn < 40; ++turn) {
    const auto [records, variables] = RandomShape(random, turn);
    Rows rows = RandomRows(random, records, variables);
    ASSERT_EQ(OpenText(TextOfRows(rows)), LoadOutcome::kLoaded);
    for (int edit = 0; edit < 200; ++edit) {
      const std::size_t columns = rows[0].size();
      const std::size_t row = 1 + random() % (rows.size() - 1);
      const std::size_t column = 1 + random() % columns;
      std::string& cell = rows[row][column - 1];
      switch (random() % 8) {
        case 0:
          cell.clear();
          MatrixEditor(data).SetEmpty(row, column);
          break;
        case 1: {
          const std::size_t from_row = 1 + random() % (rows.size() - 1);
          const std::size_t from_column = 1 + random() % columns;
          cell = std::string(rows[from_row][from_column - 1]);
          MatrixEditor(data).Set(row, column, data.matrix.Cell(from_row, from_column));
          break;
        }
        case 2:
          if (edit % 10 == 0) {
            for (auto& cells : rows) cells.emplace_back();
            data.VariableCount = MatrixEditor(data).AddColumn();
            ASSERT_EQ(data.VariableCount, columns + 1);
            break;
          }
          [[fallthrough]];
        default:
          cell = RandomCell(random);
          MatrixEditor(data).SetText(row, column, cell);
      }
    }
    rows.back().back() = "last";
    MatrixEditor(data).SetText(rows.size() - 1, rows[0].size(), "last");
    rows[0][0] = std::to_string(records) + " " + std::to_string(rows[0].size()) + " Tessara data";
    if (rows[0].size() > 1) rows[0][1] = NotesToField(data.ProjectNotes);
    ASSERT_NO_FATAL_FAILURE(ExpectCells(rows)) << turn;
    ASSERT_EQ(SavedText(), TextOfRows(rows)) << turn;
  }
}

TEST_F(RoundTripTest, NumericViewsAgreeWithTheCellsThroughEdits) {
  std::mt19937_64 random(8);
  ASSERT_EQ(OpenText(TextOfRows(RandomRows(random, 300, 4))), LoadOutcome::kLoaded);
  for (int edit = 0; edit < 200; ++edit) {
    const std::size_t column = 1 + random() % 4;
    MatrixEditor(data).SetText(kFirstRecordRow + random() % 300, column, RandomCell(random));
    const NumericColumn& numbers = data.matrix.Numbers(column, 300);
    for (std::size_t record = 0; record < 300; ++record) {
      const TaggedView cell = data.matrix.Cell(kFirstRecordRow + record, column);
      const auto number = ParseNumber(cell.text());
      const CellClass expected = cell.is_blank() ? CellClass::kBlank : number ? CellClass::kNumber : CellClass::kText;
      ASSERT_EQ(numbers.classes[record], expected) << cell.text();
      ASSERT_EQ(numbers.values[record], number.value_or(0)) << cell.text();
    }
  }
}

}  // namespace
}  // namespace tessara
