#include "data/edit/grid_places.h"

#include "data/edit/tests/edit_fixture.h"

namespace tessara {
namespace {

class GridPlacesTest : public EditFixture {
 protected:
  // One variable with these cells filled, of ten records.
  void Fill(std::initializer_list<std::size_t> records) {
    BeginBlank(10, 3);
    for (const std::size_t record : records) MatrixEditor(data).SetText(kHeaderRowCount + record, 2, "x");
  }
  GridPlace Down(std::size_t row) { return EdgeOfData(data, {row, 2}, GridStep::kDown); }
  GridPlace Up(std::size_t row) { return EdgeOfData(data, {row, 2}, GridStep::kUp); }

  // The place that a text names from record 2 of variable 3, or why there is none.
  std::string Find(std::string_view text) {
    const NamedPlace found = FindPlace(data, text, {2, 3});
    if (!found.place) return found.error;
    return std::to_string(found.place->row) + "/" + std::to_string(found.place->column);
  }
};

TEST_F(GridPlacesTest, WithinABlockItsEndIsTheEdge) {
  Fill({2, 3, 4, 7});
  EXPECT_EQ(Down(2), (GridPlace{4, 2}));
  EXPECT_EQ(Up(4), (GridPlace{2, 2}));
}

TEST_F(GridPlacesTest, FromItsEndTheNextBlockIs) {
  Fill({2, 3, 4, 7});
  EXPECT_EQ(Down(4), (GridPlace{7, 2}));
  EXPECT_EQ(Down(1), (GridPlace{2, 2}));
  EXPECT_EQ(Up(7), (GridPlace{4, 2}));
  EXPECT_EQ(Up(9), (GridPlace{7, 2}));
}

TEST_F(GridPlacesTest, BehindTheLastBlockTheLastCellIs) {
  Fill({2, 3, 4, 7});
  EXPECT_EQ(Down(7), (GridPlace{10, 2}));
  EXPECT_EQ(Up(2), (GridPlace{1, 2}));
  EXPECT_EQ(Down(10), (GridPlace{10, 2}));
  EXPECT_EQ(Up(1), (GridPlace{1, 2}));
}

TEST_F(GridPlacesTest, TheEdgesOfARow) {
  Begin(3, 4);
  EXPECT_EQ(EdgeOfData(data, {2, 2}, GridStep::kRight), (GridPlace{2, 4}));
  EXPECT_EQ(EdgeOfData(data, {2, 3}, GridStep::kLeft), (GridPlace{2, 1}));
  EXPECT_EQ(EdgeOfData(data, {2, 0}, GridStep::kRight), (GridPlace{2, 1}));
  EXPECT_EQ(EdgeOfData(data, {0, 2}, GridStep::kDown), (GridPlace{1, 2}));
}

TEST_F(GridPlacesTest, DataWithoutARecordHaveNoEdge) {
  BeginBlank(0, 3);
  EXPECT_EQ(EdgeOfData(data, {0, 1}, GridStep::kDown), (GridPlace{0, 1}));
  EXPECT_EQ(EdgeOfData(data, {0, 1}, GridStep::kUp), (GridPlace{0, 1}));
}

TEST_F(GridPlacesTest, APlaceHasAName) {
  EXPECT_EQ(NameOfPlace(data, {3, 2}), "3 B");
  EXPECT_EQ(NameOfPlace(data, {0, 2}), "0 B");
  EXPECT_EQ(NameOfPlace(data, {3, 0}), "3");
}

TEST_F(GridPlacesTest, ANameFindsItsPlace) {
  EXPECT_EQ(Find("4 B"), "4/2");
  EXPECT_EQ(Find("  4   B "), "4/2");
  EXPECT_EQ(Find("4"), "4/3");
  EXPECT_EQ(Find("B"), "2/2");
  EXPECT_EQ(Find("b"), "2/2");
  EXPECT_EQ(Find("#4"), "2/4");
  EXPECT_EQ(Find("0 A"), "0/1");
  EXPECT_EQ(Find(""), "2/3");
}

TEST_F(GridPlacesTest, ANameIsFoundToTheLetterFirst) {
  MatrixEditor(data).SetText(kVariableNameRow, 4, "b");
  EXPECT_EQ(Find("b"), "2/4");  // to the letter
  EXPECT_EQ(Find("B"), "2/2");
  MatrixEditor(data).SetText(kVariableNameRow, 1, "body height");
  EXPECT_EQ(Find("5 body height"), "5/1");
  MatrixEditor(data).SetText(kVariableNameRow, 1, "#2");
  EXPECT_EQ(Find("#2"), "2/1");
}

TEST_F(GridPlacesTest, WhatIsNotThereIsSaid) {
  EXPECT_EQ(Find("7"), "There is no record 7");
  EXPECT_EQ(Find("2 SEX"), "There is no variable \"SEX\"");
  EXPECT_EQ(Find("#9"), "There is no variable \"#9\"");
  EXPECT_EQ(Find("#0"), "There is no variable \"#0\"");
  EXPECT_EQ(Find("99999999999999999999999"), "There is no variable \"99999999999999999999999\"");
  EXPECT_EQ(Find(std::string(5000, 'x')), "There is no variable \"" + std::string(40, 'x') + "...\"");
}

TEST_F(GridPlacesTest, WhatTheGridDoesNotShowIsSaid) {
  Begin(10001, 20);
  EXPECT_EQ(Find("100"), "100/3");
  EXPECT_EQ(Find("101"), "The grid shows the records 1 to 100");
  Begin(2, 301);
  EXPECT_EQ(Find("#301"), "The grid shows the variables 1 to 300");
}

}  // namespace
}  // namespace tessara
