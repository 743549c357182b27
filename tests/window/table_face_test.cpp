#include "presentation/table_face.h"

#include <QAbstractItemModelTester>
#include <QClipboard>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTableView>
#include <QToolButton>
#include <cmath>

#include "window/output/table_model.h"
#include "window_fixture.h"

namespace tessara {

// The summary table as a face of the Output view, typed and clicked into through the frame.
class TableFaceTest : public QObject {
  Q_OBJECT

  std::unique_ptr<WindowFixture> window_;
  WindowFixture& window() { return *window_; }
  Session& session() { return window().session(); }
  TableGrid& Grid() { return session().table.grid; }
  TableFace& Face() { return session().table.face; }
  QTableView* Sheet() { return window().Find<QTableView>("MSFlexGrid2"); }
  QLineEdit* Box() { return window().Find<QLineEdit>("GridText2"); }
  QToolButton* Button(const char* name) { return window().Find<QToolButton>(name); }

  std::string Text(std::size_t row, std::size_t column) { return Grid().Text(row, column); }
  void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
  }
  // The first character opens the box, which takes the others.
  void Type(const QString& text) {
    for (const QChar c : text) QTest::keyClicks(QApplication::focusWidget(), QString(c));
  }
  void GoTo(std::size_t row, std::size_t column) {
    QTest::mouseClick(Sheet()->viewport(), Qt::LeftButton, {}, CentreOf(row, column));
  }
  QPoint CentreOf(std::size_t row, std::size_t column) {
    const QModelIndex cell = Sheet()->model()->index(static_cast<int>(row) - 1, static_cast<int>(column) - 1);
    return Sheet()->visualRect(cell).center();
  }
  QString Shown(int row, int column) { return Sheet()->model()->index(row - 1, column - 1).data().toString(); }

  // A table of two row variables by two columns.
  void FillTable() {
    const std::vector<std::vector<std::string>> rows = {{"", "", "Yes", "No"},
                                                        {"Sex", "", "", ""},
                                                        {"male", "Percent", "40.0%", "60.0%"},
                                                        {"", "Count", "4", "6"},
                                                        {"female", "Percent", "50.0%", "50.0%"}};
    for (std::size_t row = 0; row < rows.size(); ++row) {
      for (std::size_t column = 0; column < 4; ++column) Grid().SetText(row + 1, column + 1, rows[row][column]);
    }
    Grid().SetRowTag(1, std::string(kCategoricalBlock));
    Grid().SetRowTag(2, std::string(kCategoricalBlock) + "3:Sex0:heading");
    Grid().FitColumns();
  }
  void ShowTable() {
    FillTable();
    session().output.OutputGridMode = true;
    window().ShowView(View::ViewOutput);
    Sheet()->setFocus();
  }

 private slots:
  void init() {
    window_ = std::make_unique<WindowFixture>();
    window().Start();
  }
  void cleanup() { window_.reset(); }

  void TheTableShowsWhenItIsTheFaceOfTheView() {
    ShowTable();
    QVERIFY(Sheet()->isVisible());
    QVERIFY(!window().Find<QPlainTextEdit>("RichText1")->isVisible());
    QCOMPARE(Sheet()->model()->rowCount(), 15);  // ten empty rows behind the table
    QCOMPARE(Shown(3, 3), "40.0%");
    QVERIFY(Button("ShowSummaryTable")->isChecked());
    QVERIFY(!window().Command(350)->isVisible());
    QVERIFY(!Sheet()->accessibleName().isEmpty());
    QVERIFY(!Box()->accessibleName().isEmpty());
    QVERIFY(Sheet()->model()->headerData(2, Qt::Horizontal).toString() == "Column 3");
  }

  void TheUserGoesBackAndForthBetweenTextAndTable() {
    QVERIFY(!Button("ShowSummaryTable")->isEnabled());
    ShowTable();
    BeginRun(session().output);
    AppendReport(session().output, "A report\r\n");
    Button("ShowOutputLog")->click();
    QVERIFY(!session().output.OutputGridMode);
    QVERIFY(session().output.ShowLogMode);
    QVERIFY(window().Find<QPlainTextEdit>("RichText1")->toPlainText().startsWith("A report"));
    QVERIFY(Button("ShowSummaryTable")->isEnabled());
    Button("ShowSummaryTable")->click();
    QVERIFY(Sheet()->isVisible());
    Button("ShowMostRecent")->click();
    QVERIFY(!Sheet()->isVisible());
    QVERIFY(!session().output.ShowLogMode);
    QVERIFY(Button("ShowMostRecent")->isChecked());
  }

  void TypingWritesAndEnterGoesDown() {
    ShowTable();
    GoTo(3, 3);
    Type("41%");
    QVERIFY(Box()->isVisible());
    QCOMPARE(Text(3, 3), "40.0%");  // not before it ends
    Press(Qt::Key_Return);
    QCOMPARE(Text(3, 3), "41%");
    QCOMPARE(Shown(3, 3), "41%");
    QVERIFY(!Box()->isVisible());
    QCOMPARE(Face().selection.cursor, (TablePlace{4, 3}));
    QVERIFY(Sheet()->hasFocus());
  }

  void ArrowsAndTabGoThroughTheTable() {
    ShowTable();
    GoTo(2, 3);
    Press(Qt::Key_Right);
    QCOMPARE(Face().selection.cursor, (TablePlace{2, 4}));
    Press(Qt::Key_Right);  // past the last column
    QCOMPARE(Face().selection.cursor, (TablePlace{3, 1}));
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(Face().selection.cursor, (TablePlace{2, 4}));
    Press(Qt::Key_Tab);
    Press(Qt::Key_Tab);
    QCOMPARE(Face().selection.cursor, (TablePlace{3, 2}));
    Press(Qt::Key_Up);
    Press(Qt::Key_Left);
    QCOMPARE(Face().selection.cursor, (TablePlace{2, 1}));
    Press(Qt::Key_Return);
    QCOMPARE(Face().selection.cursor, (TablePlace{3, 1}));
    Press(Qt::Key_End, Qt::ControlModifier);
    QCOMPARE(Face().selection.cursor, (TablePlace{5, 4}));
    Press(Qt::Key_Home);
    QCOMPARE(Face().selection.cursor, (TablePlace{5, 1}));
    Press(Qt::Key_End);
    Press(Qt::Key_Right, Qt::ControlModifier);  // to what is behind the table
    QCOMPARE(Face().selection.cursor, (TablePlace{5, 6}));
    Press(Qt::Key_Home, Qt::ControlModifier);
    QCOMPARE(Face().selection.cursor, (TablePlace{1, 1}));
  }

  void TheEditorEndsByItsKeys() {
    ShowTable();
    GoTo(3, 1);
    Type("men");
    Press(Qt::Key_Tab);
    QCOMPARE(Text(3, 1), "men");
    QCOMPARE(Face().selection.cursor, (TablePlace{3, 2}));
    Type("x");
    Press(Qt::Key_Escape);  // drops the entry
    QCOMPARE(Text(3, 2), "Percent");
    QVERIFY(Sheet()->hasFocus());
    Press(Qt::Key_F2);
    QCOMPARE(Box()->text(), "Percent");
    Press(Qt::Key_Left);  // inside the text
    Type("s");
    Press(Qt::Key_Up);
    QCOMPARE(Text(3, 2), "Percenst");
    QCOMPARE(Face().selection.cursor, (TablePlace{2, 2}));
    Type("a");
    Press(Qt::Key_Right);  // of a text that is typed anew
    QCOMPARE(Text(2, 2), "a");
    QCOMPARE(Face().selection.cursor, (TablePlace{2, 3}));
  }

  void AnEntryBehindTheTableMakesItGrow() {
    ShowTable();
    GoTo(7, 1);
    Type("Note");
    Press(Qt::Key_Return);
    QCOMPARE(Grid().RowCount(), std::size_t{7});
    QCOMPARE(Sheet()->model()->rowCount(), 17);
    window().Trigger(214);
    QCOMPARE(Grid().RowCount(), std::size_t{5});
    QCOMPARE(Sheet()->model()->rowCount(), 15);
  }

  void ACommandTakesAnOpenEntryAlong() {
    ShowTable();
    GoTo(3, 3);
    Type("99%");
    window().Trigger(452);
    QCOMPARE(Text(3, 3), "99%");
    QVERIFY(!Box()->isVisible());
    QCOMPARE(Grid().Cell(3, 3).alignment, TableAlignment::kCentre);
    GoTo(4, 3);
    Type("9");
    window().ShowView(View::ViewStatProcs);
    QCOMPARE(Text(4, 3), "9");
    window().ShowView(View::ViewOutput);
    GoTo(4, 4);
    Type("8");
    GoTo(2, 2);  // a click elsewhere
    QCOMPARE(Text(4, 4), "8");
    QCOMPARE(Face().selection.cursor, (TablePlace{2, 2}));
  }

  void BlocksGoThroughTheClipboard() {
    ShowTable();
    GoTo(3, 3);
    Press(Qt::Key_Right, Qt::ShiftModifier);
    Press(Qt::Key_Down, Qt::ShiftModifier);
    Press(Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), "40.0%\t60.0%\r4\t6");
    QCOMPARE(Text(4, 4), "");
    GoTo(7, 3);
    Press(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(Text(7, 3), "40.0%");
    QCOMPARE(Text(8, 4), "6");
    QCOMPARE(Shown(8, 4), "6");
    Press(Qt::Key_Z, Qt::ControlModifier);
    Press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(Text(3, 3), "40.0%");
    QCOMPARE(Grid().RowCount(), std::size_t{5});
    Press(Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(Text(3, 3), "");
  }

  void DeleteEmptiesTheSelectedCells() {
    ShowTable();
    Press(Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(Face().selection, (TableSelection{{1, 1}, {5, 4}}));
    Press(Qt::Key_Delete);
    QCOMPARE(Text(3, 3), "");
    QCOMPARE(Shown(3, 3), "");
    window().Trigger(214);
    QCOMPARE(Shown(3, 3), "40.0%");
    QCOMPARE(window().Pane(1), "Undone: Delete");
  }

  void RowsAndColumnsAreSelectedAtTheEdgesAndDeleted() {
    ShowTable();
    QHeaderView* rows = Sheet()->verticalHeader();
    QTest::mouseClick(rows->viewport(), Qt::LeftButton, {},
                      {rows->width() / 2, rows->sectionViewportPosition(3) + rows->sectionSize(3) / 2});
    QCOMPARE(Face().selection, (TableSelection{{4, 1}, {4, 4}}));
    window().Trigger(209);
    QCOMPARE(Text(4, 1), "female");
    QCOMPARE(Shown(4, 1), "female");
    QHeaderView* columns = Sheet()->horizontalHeader();
    QTest::mouseClick(columns->viewport(), Qt::LeftButton, {},
                      {columns->sectionViewportPosition(2) + columns->sectionSize(2) / 2, columns->height() / 2});
    QCOMPARE(Face().selection, (TableSelection{{1, 3}, {4, 3}}));
    window().Trigger(210);
    QCOMPARE(Shown(1, 3), "No");
    window().Trigger(214);
    window().Trigger(214);
    QCOMPARE(Shown(4, 2), "Count");
    QCOMPARE(Shown(1, 3), "Yes");
    GoTo(3, 2);
    Press(Qt::Key_Space, Qt::ShiftModifier);
    QCOMPARE(Face().selection, (TableSelection{{3, 1}, {3, 4}}));
    Press(Qt::Key_Space, Qt::ControlModifier);
    QCOMPARE(Face().selection, (TableSelection{{1, 1}, {5, 1}}));
  }

  void TheMouseSetsTheWidthOfAColumn() {
    ShowTable();
    QHeaderView* columns = Sheet()->horizontalHeader();
    const double before = Grid().Width(3);
    const double next = Grid().Width(4);
    const int edge = columns->sectionViewportPosition(2) + columns->sectionSize(2) - 1;
    const int y = columns->height() / 2;
    const int character = Sheet()->fontMetrics().horizontalAdvance('0');
    QTest::mousePress(columns->viewport(), Qt::LeftButton, {}, {edge, y});
    QTest::mouseMove(columns->viewport(), {edge + character * 3, y});
    QTest::mouseMove(columns->viewport(), {edge + character * 5, y});
    QTest::mouseRelease(columns->viewport(), Qt::LeftButton, {}, {edge + character * 5, y});
    QVERIFY2(Grid().Width(3) >= before + 400 && Grid().Width(3) <= before + 600,
             qPrintable(QString::number(Grid().Width(3))));
    QCOMPARE(std::fmod(Grid().Width(3), 100.0), 0.0);
    QCOMPARE(Grid().Width(4), next);
    window().Trigger(214);
    QCOMPARE(Grid().Width(3), before);
  }

  void HeadingsAndGroupsStandOut() {
    ShowTable();
    const auto* model = qobject_cast<const TableModel*>(Sheet()->model());
    QVERIFY(model);
    QCOMPARE(model->RowKind(0), TableRowKind::kHeading);
    QCOMPARE(model->RowKind(1), TableRowKind::kGroup);
    QCOMPARE(model->RowKind(2), TableRowKind::kPlain);
    QVERIFY(model->index(0, 2).data(Qt::FontRole).value<QFont>().bold());
    QVERIFY(model->index(1, 0).data(Qt::FontRole).value<QFont>().bold());
    QVERIFY(!model->index(2, 0).data(Qt::FontRole).isValid());
  }

  void RowsOfARunAreKnownByWhatTheyHold() {
    window().script().open_answers.push_back(WindowFixture::Chosen(
        window().WriteDataFile("people.dcs", {"SEX", "AGE"}, {{"f", "20"}, {"f", "40"}, {"m", "30"}})));
    window().Trigger(102);
    session().panel.SelectedVariables = {1};
    window().ShowView(View::ViewStatProcs);
    for (const char* name : {"Reports", "Check3", "RunButton"}) window().Find<QAbstractButton>(name)->click();
    QVERIFY(Sheet()->isVisible());
    QCOMPARE(Shown(1, 3), "   All");
    QCOMPARE(Shown(3, 1), "SEX");
    const auto* model = qobject_cast<const TableModel*>(Sheet()->model());
    const TableRowKind kinds[] = {TableRowKind::kHeading, TableRowKind::kPlain, TableRowKind::kGroup,
                                  TableRowKind::kPlain};
    for (int row = 0; row < 4; ++row) QCOMPARE(model->RowKind(row), kinds[row]);
    // A run is a step like those by hand.
    QCOMPARE(window().Command(214)->text().remove('&'), "Undo Summary Table");
    window().Trigger(214);
    QVERIFY(Grid().empty());
    window().Trigger(215);
    QCOMPARE(Shown(3, 1), "SEX");
    // Another run finds its rows and columns again, though the labels and the heading have gone.
    GoTo(1, 1);
    window().Trigger(209);
    Press(Qt::Key_Space, Qt::ControlModifier);
    window().Trigger(210);
    window().ShowView(View::ViewStatProcs);
    window().Find<QAbstractButton>("RunButton")->click();
    QVERIFY(Sheet()->isVisible());
    QVERIFY(Grid().RowCount() >= 5);
  }

  void TheModelKeepsItsPromises() {
    ShowTable();
    const QAbstractItemModelTester tester(Sheet()->model(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    GoTo(9, 5);
    Type("x");
    Press(Qt::Key_Return);
    window().Trigger(214);
    window().Trigger(215);
    Press(Qt::Key_A, Qt::ControlModifier);
    window().Trigger(209);
    QCOMPARE(Sheet()->model()->rowCount(), 10);
    window().Trigger(214);
    QCOMPARE(Sheet()->model()->rowCount(), 19);
  }

  void HostileTextsArePlain() {
    ShowTable();
    QApplication::clipboard()->setText("<b>bold</b>\t<img src=x>\x01\x02\t&amp;");
    GoTo(3, 1);
    Press(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(Text(3, 1), "<b>bold</b>");
    QCOMPARE(Shown(3, 1), "<b>bold</b>");
    QCOMPARE(Text(3, 2), "<img src=x>\x01\x02");
    QCOMPARE(Text(3, 3), "&amp;");
    Sheet()->grab();
    Press(Qt::Key_F2);
    QCOMPARE(Box()->text(), "<b>bold</b>");
    Press(Qt::Key_Escape);
  }

  void AMegabyteOfTextNeitherHangsNorEatsMemory() {
    ShowTable();
    GoTo(1, 1);
    QApplication::clipboard()->setText(QString(1 << 20, u'\t'));
    Press(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(window().script().messages.size(), std::size_t{1});
    QCOMPARE(window().script().messages[0].title, std::string("Operation Aborted!"));
    QCOMPARE(Text(3, 3), "40.0%");
    QApplication::clipboard()->setText(QString(1 << 20, u'x'));
    Press(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(Text(1, 1).size(), std::size_t{1} << 20);
    QCOMPARE(Shown(1, 1).size(), 2000);
    Press(Qt::Key_F2);
    QVERIFY(!Box()->isVisible());
    QCOMPARE(window().Pane(1), "This text is too long to be edited in its cell");
    QTest::mouseDClick(Sheet()->horizontalHeader()->viewport(), Qt::LeftButton, {},
                       {Sheet()->horizontalHeader()->sectionSize(0) - 1, 2});
    Sheet()->grab();
    window().Trigger(214);
  }

  void AStormOfKeysLosesNothing() {
    ShowTable();
    GoTo(1, 1);
    const int keys[] = {Qt::Key_A, Qt::Key_Return, Qt::Key_Tab,    Qt::Key_F2,   Qt::Key_Down, Qt::Key_Delete,
                        Qt::Key_B, Qt::Key_Escape, Qt::Key_Right,  Qt::Key_Left, Qt::Key_Up,   Qt::Key_Backspace,
                        Qt::Key_C, Qt::Key_End,    Qt::Key_Return, Qt::Key_Home, Qt::Key_F2,   Qt::Key_Tab};
    unsigned random = 20261122;
    for (int i = 0; i < 600; ++i) {
      random = random * 1664525u + 1013904223u;
      Press(keys[(random >> 16) % std::size(keys)]);
      if (i % 37 == 0) window().Trigger(i % 2 == 0 ? 209 : 210);
      if (i % 53 == 0) window().Trigger(214);
      QVERIFY(Sheet()->hasFocus() || Box()->hasFocus() || i == 0);
    }
    if (Box()->isVisible()) Press(Qt::Key_Escape);
    while (window().Command(214)->isEnabled()) window().Trigger(214);
    if (Face().undone.size() < 100) QCOMPARE(Text(3, 3), "40.0%");
  }

  void TheKeyboardLeavesTheTable() {
    ShowTable();
    GoTo(1, 1);
    Press(Qt::Key_F6);
    QVERIFY(Button("ShowSummaryTable")->hasFocus());
    Press(Qt::Key_F6);
    QVERIFY(Sheet()->hasFocus());
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    QVERIFY(!Sheet()->hasFocus());
  }

  void WhileExploreIsSelectedTheToolsOfTheShapeGo() {
    ShowTable();
    QVERIFY(window().Command(451)->isVisible());
    QCOMPARE(window().Command(301)->text().remove('&'), "Format Page");
    session().panel.selected = Procedure::kExplore;
    window().ShowView(View::ViewStatProcs);
    window().ShowView(View::ViewOutput);
    QVERIFY(!window().Command(451)->isVisible());
    QVERIFY(!window().Command(209)->isVisible());
    QVERIFY(window().Command(205)->isEnabled());
  }

  void TheMenuOfTheTableHasItsCommands() {
    ShowTable();
    GoTo(3, 3);
    QContextMenuEvent event(QContextMenuEvent::Mouse, CentreOf(3, 3), Sheet()->viewport()->mapToGlobal(CentreOf(3, 3)));
    QApplication::sendEvent(Sheet()->viewport(), &event);
    auto* menu = window().Find<QMenu>("TableMenu");
    QVERIFY(menu);
    QVERIFY(menu->actions().contains(window().Command(209)));
    QVERIFY(menu->actions().contains(window().Command(453)));
    menu->close();
  }

  void ZoomChangesTheSheet() {
    ShowTable();
    const int before = Sheet()->columnWidth(0);
    window().Find<QAction>("ZoomIn")->trigger();
    QVERIFY(Sheet()->columnWidth(0) > before);
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::TableFaceTest)
#include "table_face_test.moc"
