#include <QClipboard>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QSignalSpy>

#include "window/grid/grid_view.h"
#include "window_fixture.h"

namespace tessara {

// Selection, copy and paste of blocks, whole rows and columns, and ways to a cell.
class GridBlocksTest : public QObject {
  Q_OBJECT

  std::unique_ptr<WindowFixture> window_;
  Path file_;
  WindowFixture& window() { return *window_; }
  DataSet& data() { return window().session().data; }
  GridView* grid() { return window().Find<GridView>("MSFlexGrid1"); }
  QLineEdit* name_box() { return window().Find<QLineEdit>("NameBox"); }
  GridPlace Cursor() { return CursorOf(data()); }

  // 40 records of 12 variables A to L; cell r of the third one is "r.3".
  void OpenBlock() {
    std::vector<std::string> names;
    for (char name = 'A'; name <= 'L'; ++name) names.emplace_back(1, name);
    std::vector<std::vector<std::string>> records;
    for (int record = 1; record <= 40; ++record) {
      std::vector<std::string> cells;
      for (int column = 1; column <= 12; ++column)
        cells.push_back(std::to_string(record) + "." + std::to_string(column));
      records.push_back(cells);
    }
    file_ = window().WriteDataFile("block.dcs", names, records);
    window().script().open_answers.push_back(WindowFixture::Chosen(file_));
    window().Trigger(102);
    grid()->setFocus();
  }
  void PutCursor(std::size_t row, std::size_t column) { grid()->Select({row, column}); }
  std::string Cell(std::size_t row, std::size_t column) {
    return std::string(data().matrix.Cell(kHeaderRowCount + row, column).text());
  }
  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(grid(), key, modifiers); }
  QPoint Middle(std::size_t row, std::size_t column) { return grid()->PlaceOfEntry({row, column}).place.center(); }
  void Click(std::size_t row, std::size_t column, Qt::KeyboardModifiers modifiers = {},
             Qt::MouseButton button = Qt::LeftButton) {
    const auto cell = grid()->PlaceOfEntry({row, column});
    QTest::mouseClick(cell.ground, button, modifiers, cell.place.center());
  }
  void ClickNumber(int record, Qt::KeyboardModifiers modifiers = {}) {
    QHeaderView* numbers = grid()->verticalHeader();
    QTest::mouseClick(numbers->viewport(), Qt::LeftButton, modifiers,
                      {5, numbers->sectionViewportPosition(record - 1) + 5});
  }
  std::string ClipboardText() { return FromQt(QApplication::clipboard()->text()); }

 private slots:
  void init() {
    window_ = std::make_unique<WindowFixture>();
    window().Start();
    OpenBlock();
  }
  void cleanup() { window_.reset(); }

  // The cursor and the selection.

  void ShiftAndArrowsStretchTheSelectionAroundTheCursor() {
    PutCursor(5, 3);
    Press(Qt::Key_Down, Qt::ShiftModifier);
    Press(Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(grid()->Selection(), (GridBlock{5, 6, 3, 4}));
    QCOMPARE(Cursor(), (GridPlace{5, 3}));
    Press(Qt::Key_Up, Qt::ShiftModifier);
    Press(Qt::Key_Up, Qt::ShiftModifier);
    QCOMPARE(grid()->Selection(), (GridBlock{4, 5, 3, 4}));
    Press(Qt::Key_Down);  // from the cursor on
    QCOMPARE(grid()->Selection(), (GridBlock{6, 6, 3, 3}));
    QCOMPARE(Cursor(), (GridPlace{6, 3}));
  }

  void TheMouseDrawsAndShiftClickStretches() {
    QTest::mousePress(grid()->viewport(), Qt::LeftButton, {}, Middle(2, 2));
    QTest::mouseMove(grid()->viewport(), Middle(3, 3));
    QMouseEvent move(QEvent::MouseMove, QPointF(Middle(4, 4)), grid()->viewport()->mapToGlobal(Middle(4, 4)),
                     Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(grid()->viewport(), &move);
    QTest::mouseRelease(grid()->viewport(), Qt::LeftButton, {}, Middle(4, 4));
    QCOMPARE(grid()->Selection(), (GridBlock{2, 4, 2, 4}));
    QCOMPARE(Cursor(), (GridPlace{2, 2}));
    Click(1, 3, Qt::ShiftModifier);
    QCOMPARE(grid()->Selection(), (GridBlock{1, 2, 2, 3}));
    QCOMPARE(Cursor(), (GridPlace{2, 2}));
    Click(6, 1);
    QCOMPARE(grid()->Selection(), (GridBlock{6, 6, 1, 1}));
  }

  void PagesAreRowsInSight() {
    PutCursor(1, 3);
    Press(Qt::Key_PageDown);
    const std::size_t page = Cursor().row - 1;
    QVERIFY(page > 3 && page < 39);
    QCOMPARE(Cursor().column, std::size_t{3});
    Press(Qt::Key_PageUp);
    QCOMPARE(Cursor(), (GridPlace{1, 3}));
    for (int i = 0; i < 40; ++i) Press(Qt::Key_PageDown);
    QCOMPARE(Cursor(), (GridPlace{40, 3}));
  }

  void AClickOnTheCurrentCellMeansItAgain() {
    Click(3, 3);
    QSignalSpy presses(grid(), &GridView::Pressed);
    Click(3, 3);
    QCOMPARE(presses.count(), 1);
    Click(0, 4);
    Click(0, 4);
    QCOMPARE(presses.count(), 3);
  }

  void CtrlAndShiftWithTheBlankSelectWholeColumnsAndRows() {
    PutCursor(4, 2);
    Press(Qt::Key_Space, Qt::ControlModifier);
    QCOMPARE(Cursor(), (GridPlace{0, 2}));
    QCOMPARE(grid()->Selection(), (GridBlock{0, 40, 2, 2}));
    PutCursor(4, 2);
    Press(Qt::Key_Space, Qt::ShiftModifier);
    QCOMPARE(grid()->Selection(), (GridBlock{4, 4, 0, 12}));
  }

  void HomeEndAndTheArrowsWithCtrl() {
    PutCursor(5, 5);
    Press(Qt::Key_Home);
    QCOMPARE(Cursor(), (GridPlace{5, 1}));
    Press(Qt::Key_End);
    QCOMPARE(Cursor(), (GridPlace{5, 12}));
    Press(Qt::Key_Down, Qt::ControlModifier);
    QCOMPARE(Cursor(), (GridPlace{40, 12}));
    QVERIFY(grid()->viewport()->rect().contains(grid()->visualRect(grid()->model()->index(39, 11))));
    Press(Qt::Key_Left, Qt::ControlModifier);
    QCOMPARE(Cursor(), (GridPlace{40, 1}));
    Press(Qt::Key_Home, Qt::ControlModifier);
    QCOMPARE(Cursor(), (GridPlace{1, 1}));
    Press(Qt::Key_End, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(grid()->Selection(), (GridBlock{1, 40, 1, 12}));
  }

  void TabGoesThroughTheCells() {
    PutCursor(1, 12);
    Press(Qt::Key_Tab);
    QCOMPARE(Cursor(), (GridPlace{2, 1}));
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(Cursor(), (GridPlace{1, 12}));
    QVERIFY(grid()->hasFocus());
    PutCursor(40, 12);
    Press(Qt::Key_Tab);  // behind the last cell the next widget has its turn
    QVERIFY(!grid()->hasFocus());
    QCOMPARE(Cursor(), (GridPlace{40, 12}));
  }

  void AHeadingSelectsItsColumnAndANumberItsRow() {
    Click(0, 3);
    QCOMPARE(Cursor(), (GridPlace{0, 3}));
    QCOMPARE(grid()->Selection(), (GridBlock{0, 40, 3, 3}));
    QVERIFY(grid()->selectionModel()->isColumnSelected(2));
    QTest::mouseClick(grid()->horizontalHeader()->viewport(), Qt::LeftButton, Qt::ShiftModifier,
                      grid()->PlaceOfEntry({0, 5}).place.center());
    QCOMPARE(grid()->Selection(), (GridBlock{0, 40, 3, 5}));
    QCOMPARE(Cursor(), (GridPlace{0, 3}));
    ClickNumber(4);
    QCOMPARE(Cursor(), (GridPlace{4, 0}));
    QCOMPARE(grid()->Selection(), (GridBlock{4, 4, 0, 12}));
    QVERIFY(grid()->selectionModel()->isRowSelected(3));
    Press(Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(grid()->Selection(), (GridBlock{4, 5, 0, 12}));
  }

  void SelectAllTakesTheCursorToTheFirstCell() {
    PutCursor(5, 5);
    window().Trigger(204);
    QCOMPARE(grid()->Selection(), (GridBlock{1, 40, 1, 12}));
    QCOMPARE(Cursor(), (GridPlace{1, 1}));
    window().Trigger(205);
    QCOMPARE(window().platform().ClipboardText().substr(0, 8), std::string("1.1\t1.2\t"));
  }

  // Copy, paste, cut, delete.

  void ABlockGoesThroughTheClipboard() {
    grid()->Select({2, 2}, {3, 3});
    window().Trigger(205);
    QCOMPARE(ClipboardText(), std::string("2.2\t2.3\r3.2\t3.3"));
    PutCursor(10, 5);
    window().Trigger(206);
    QCOMPARE(Cell(10, 5), std::string("2.2"));
    QCOMPARE(Cell(11, 6), std::string("3.3"));
    QCOMPARE(grid()->Selection(), (GridBlock{10, 11, 5, 6}));
    QVERIFY(data().DataDirty);
    QCOMPARE(window().Command(214)->text(), QString("&Undo Paste"));
    window().Trigger(214);
    QCOMPARE(Cell(11, 6), std::string("11.6"));
    QCOMPARE(window().Pane(1), QString("Undone: Paste"));
    QVERIFY(!data().DataDirty);
  }

  void ABlockOfASpreadsheetComesInAtTheCorner() {
    QApplication::clipboard()->setText("1,5\tb\tc\nd\te\tf\n");  // as other programs leave it
    PutCursor(40, 11);
    window().Trigger(206);
    QCOMPARE(Cell(40, 11), std::string("1,5"));
    QCOMPARE(Cell(40, 12), std::string("b"));
    QCOMPARE(data().RecordCount, std::size_t{40});
    QCOMPARE(data().VariableCount, std::size_t{12});
    QVERIFY(window().script().messages.empty());
    PutCursor(1, 1);
    window().Trigger(206);
    QCOMPARE(Cell(2, 3), std::string("f"));
    QCOMPARE(Cell(3, 1), std::string("3.1"));
  }

  void WhatIsPastedIsInTheFile() {
    QApplication::clipboard()->setText("x\ty");
    PutCursor(1, 1);
    window().Trigger(206);
    window().Trigger(103);
    const std::string saved = WindowFixture::ReadFile(file_);
    QVERIFY(saved.find("\r\nx\x01y\x01"
                       "1.3\x01") != std::string::npos);
  }

  void TheDeleteKeyBlanksTheBlockInOneStep() {
    grid()->Select({2, 2}, {3, 3});
    Press(Qt::Key_Delete);
    QCOMPARE(Cell(2, 2), std::string());
    QCOMPARE(Cell(3, 3), std::string());
    QCOMPARE(Cell(4, 3), std::string("4.3"));
    QVERIFY(window().frame().isWindowModified());
    QCOMPARE(grid()->Selection(), (GridBlock{2, 3, 2, 3}));
    window().Trigger(214);
    QCOMPARE(Cell(2, 2), std::string("2.2"));
    QVERIFY(!window().frame().isWindowModified());
  }

  void DeleteOnAHeadingClearsItsName() {
    Click(0, 2);
    Press(Qt::Key_Delete);
    QCOMPARE(data().VariableName(2), std::string());
    QCOMPARE(Cell(40, 2), std::string());
    QCOMPARE(data().VariableName(3), std::string("C"));
  }

  void CutCopiesAndBlanks() {
    grid()->Select({1, 1}, {1, 2});
    window().Trigger(213);
    QCOMPARE(ClipboardText(), std::string("1.1\t1.2"));
    QCOMPARE(Cell(1, 1), std::string());
    QCOMPARE(Cell(1, 3), std::string("1.3"));
  }

  // Rows and columns.

  void WholeRowsAndColumnsGoAndComeBack() {
    ClickNumber(3);
    Press(Qt::Key_Down, Qt::ShiftModifier);
    window().Trigger(209);
    QCOMPARE(data().RecordCount, std::size_t{38});
    QCOMPARE(Cell(3, 1), std::string("5.1"));
    QCOMPARE(Cursor(), (GridPlace{3, 0}));
    QCOMPARE(window().Pane(2), QString("38 Records"));
    QVERIFY(!data().DataDirty);
    Click(0, 2);
    window().Trigger(210);
    QCOMPARE(data().VariableCount, std::size_t{11});
    QCOMPARE(data().VariableName(2), std::string("C"));
    QCOMPARE(Cursor(), (GridPlace{0, 1}));
    QCOMPARE(window().Pane(3), QString("11 Variables"));
    window().Trigger(214);
    window().Trigger(214);
    QCOMPARE(data().RecordCount, std::size_t{40});
    QCOMPARE(data().VariableName(2), std::string("B"));
    QCOMPARE(Cell(3, 2), std::string("3.2"));
  }

  // Ahead of the first variable the cursor stands in the corner, which selects nothing.
  void AfterTheFirstVariableOneMoreIsDeletedAtATime() {
    PutCursor(0, 1);
    window().Trigger(210);
    QCOMPARE(data().VariableCount, std::size_t{11});
    QCOMPARE(Cursor(), (GridPlace{0, 0}));
    QVERIFY(!grid()->selectionModel()->hasSelection());
    Press(Qt::Key_Delete);
    QCOMPARE(data().VariableName(1), std::string("B"));
    window().Trigger(210);
    QCOMPARE(data().VariableCount, std::size_t{10});
    QCOMPARE(data().VariableName(1), std::string("C"));
  }

  void WithTheCursorInACellNothingIsDeleted() {
    PutCursor(3, 3);
    window().Trigger(209);
    window().Trigger(210);
    QCOMPARE(data().RecordCount, std::size_t{40});
    QCOMPARE(data().VariableCount, std::size_t{12});
    QVERIFY(window().script().messages.empty());
  }

  void RowsAndColumnsAreAdded() {
    window().Trigger(207);
    QCOMPARE(data().RecordCount, std::size_t{50});
    QCOMPARE(grid()->model()->rowCount(), 50);
    QCOMPARE(window().Pane(2), QString("50 Records"));
    window().Trigger(208);
    QCOMPARE(grid()->model()->headerData(12, Qt::Horizontal).toString(), QString("V13"));
    QCOMPARE(Cursor(), (GridPlace{1, 13}));
    QCOMPARE(grid()->currentIndex(), grid()->model()->index(0, 12));
    QVERIFY(grid()->viewport()->rect().contains(grid()->visualRect(grid()->currentIndex())));
    QCOMPARE(data().VarList.back().name, std::string("V13"));
  }

  void WidthsByMouseStayWhileTheDataStay() {
    QHeaderView* names = grid()->horizontalHeader();
    const int edge = names->sectionViewportPosition(1) + names->sectionSize(1) - 1;
    const int width = grid()->columnWidth(1);
    QTest::mousePress(names->viewport(), Qt::LeftButton, {}, {edge, 8});
    QMouseEvent move(QEvent::MouseMove, QPointF(edge + 60, 8), names->viewport()->mapToGlobal(QPoint(edge + 60, 8)),
                     Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(names->viewport(), &move);
    QTest::mouseRelease(names->viewport(), Qt::LeftButton, {}, {edge + 60, 8});
    QCOMPARE(grid()->columnWidth(1), width + 60);
    window().Trigger(207);
    window().Trigger(208);
    QCOMPARE(grid()->columnWidth(1), width + 60);
  }

  // Ways to a cell.

  void TheNameBoxShowsTheCursorAndTakesAnother() {
    PutCursor(5, 3);
    QCOMPARE(name_box()->text(), QString("5 C"));
    window().Trigger(216);
    QVERIFY(name_box()->hasFocus());
    QTest::keyClicks(name_box(), "38 K");
    QTest::keyClick(name_box(), Qt::Key_Return);
    QCOMPARE(Cursor(), (GridPlace{38, 11}));
    QVERIFY(grid()->hasFocus());
    QVERIFY(grid()->viewport()->rect().contains(grid()->visualRect(grid()->model()->index(37, 10))));
    QCOMPARE(name_box()->text(), QString("38 K"));
    Click(0, 1);
    QCOMPARE(name_box()->text(), QString("0 A"));
  }

  void WhatTheNameBoxCannotFindItSays() {
    window().Trigger(216);
    QTest::keyClicks(name_box(), "41 A");
    QTest::keyClick(name_box(), Qt::Key_Return);
    QCOMPARE(window().Pane(1), QString("There is no record 41"));
    QVERIFY(name_box()->hasFocus());
    QCOMPARE(Cursor(), (GridPlace{1, 1}));
    QTest::keyClick(name_box(), Qt::Key_Escape);
    QVERIFY(grid()->hasFocus());
    QCOMPARE(name_box()->text(), QString("1 A"));
  }

  void TheMenuHoldsTheCommandsInTheirOrder() {
    PutCursor(2, 2);
    QContextMenuEvent asked(QContextMenuEvent::Mouse, Middle(4, 4), grid()->viewport()->mapToGlobal(Middle(4, 4)));
    Click(4, 4, {}, Qt::RightButton);
    QApplication::sendEvent(grid()->viewport(), &asked);
    QCOMPARE(Cursor(), (GridPlace{4, 4}));
    auto* menu = window().Find<QMenu>("GridMenu");
    QVERIFY(menu);
    const QStringList wanted = {"202", "203", "301", "302", "303", "304", "305", "306", "307",
                                "204", "205", "206", "213", "207", "208", "209", "210"};
    QStringList ids;
    for (const QAction* action : menu->actions()) {
      if (!action->isSeparator()) ids += action->objectName();
    }
    QStringList there;
    for (const QString& id : wanted) {
      if (window().frame().findChild<QAction*>(id, Qt::FindDirectChildrenOnly)) there += id;
    }
    QCOMPARE(ids, there);
    QVERIFY(ids.contains("204") && ids.contains("210"));
    menu->close();
  }

  void TheRightButtonKeepsASelectionThatItFallsInto() {
    grid()->Select({2, 2}, {5, 5});
    Click(4, 4, {}, Qt::RightButton);
    QCOMPARE(grid()->Selection(), (GridBlock{2, 5, 2, 5}));
    QCOMPARE(Cursor(), (GridPlace{2, 2}));
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::GridBlocksTest)
#include "grid_blocks_test.moc"
