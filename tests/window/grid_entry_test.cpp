#include <QClipboard>
#include <QLineEdit>

#include "data/edit/tests/edit_texts.h"
#include "window/grid/grid_text1.h"
#include "window/grid/grid_view.h"
#include "window_fixture.h"

namespace tessara {

// Typing into the cells of the Data Grid, and what becomes of it.
class GridEntryTest : public QObject {
  Q_OBJECT

  std::unique_ptr<WindowFixture> window_;
  Path file_;
  WindowFixture& window() { return *window_; }
  DataSet& data() { return window().session().data; }
  GridView* grid() { return window().Find<GridView>("MSFlexGrid1"); }
  GridText1* box() { return window().Find<GridText1>("GridText1"); }

  void Open(const Path& path) {
    window().script().open_answers.push_back(WindowFixture::Chosen(path));
    window().Trigger(102);
  }
  void PutCursor(std::size_t row, std::size_t column) {
    grid()->Select({row, column});
    grid()->setFocus();
  }
  std::string Cell(std::size_t row, std::size_t column) {
    const TaggedView cell = data().matrix.Cell(kHeaderRowCount + row, column);
    return std::string(cell.text());
  }
  GridPlace Cursor() { return CursorOf(data()); }
  // Keys go to the box while it is open, else to the grid.
  QWidget* Keyboard() { return box()->isVisible() ? static_cast<QWidget*>(box()) : grid(); }
  void Type(const QString& text) {
    for (const QChar c : text) QTest::keyClick(Keyboard(), c.toLatin1());
  }
  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(Keyboard(), key, modifiers); }
  void Click(std::size_t row, std::size_t column) {
    const auto cell = grid()->PlaceOfEntry({row, column});
    QTest::mouseClick(cell.ground, Qt::LeftButton, {}, cell.place.center());
  }
  // What stands in the records of a saved file, behind its sixteen lines.
  std::string SavedRecords(const Path& path) {
    std::string text = WindowFixture::ReadFile(path);
    for (int line = 0; line < 16; ++line) text.erase(0, text.find('\n') + 1);
    std::ranges::replace(text, '\x01', '|');
    std::erase(text, '\r');
    return text;
  }

 private slots:
  void init() {
    window_ = std::make_unique<WindowFixture>();
    window().Start();
    file_ = window().WriteDataFile("scores.dcs", {"NAME", "AGE", "CITY"},
                                   {{"Ann", "34", "Bern"}, {"Bob", "41", "Oslo"}, {"Cid", "28", "Rome"}});
    Open(file_);
    grid()->setFocus();
  }
  void cleanup() { window_.reset(); }

  void ACharacterBeginsAnEntryOverTheCell() {
    PutCursor(2, 2);
    Type("5");
    QVERIFY(box()->isVisible());
    QVERIFY(box()->hasFocus());
    QCOMPARE(box()->text(), QString("5"));
    QCOMPARE(box()->geometry(), grid()->visualRect(grid()->model()->index(1, 1)));
    QCOMPARE(box()->cursorPosition(), 1);
    Type("7");
    QCOMPARE(Cell(2, 2), std::string("41"));  // not committed yet
    Press(Qt::Key_Return);
    QVERIFY(!box()->isVisible());
    QVERIFY(grid()->hasFocus());
    QCOMPARE(Cell(2, 2), std::string("57"));
    QCOMPARE(Cursor(), (GridPlace{3, 2}));
    QCOMPARE(grid()->currentIndex(), grid()->model()->index(2, 1));
    QVERIFY(data().DataDirty);
    QVERIFY(window().frame().isWindowModified());
    QCOMPARE(grid()->model()->index(1, 1).data().toString(), QString("57"));
  }

  void EachKeyOfTheBoxCommitsAndMoves() {
    struct KeyCase {
      Qt::Key key;
      GridPlace to;
    };
    const KeyCase cases[] = {{Qt::Key_Enter, {3, 2}},  {Qt::Key_Down, {3, 2}},  {Qt::Key_Up, {1, 2}},
                             {Qt::Key_Left, {2, 1}},   {Qt::Key_Right, {2, 3}}, {Qt::Key_Tab, {2, 3}},
                             {Qt::Key_Backtab, {2, 1}}};
    for (const KeyCase& c : cases) {
      PutCursor(2, 2);
      Type("x");
      Press(c.key, c.key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
      QCOMPARE(Cursor(), c.to);
      QCOMPARE(Cell(2, 2), std::string("x"));
      QVERIFY(!box()->isVisible());
      window().Trigger(214);
      QCOMPARE(Cell(2, 2), std::string("41"));
    }
  }

  void AColumnIsTypedDownItsRecords() {
    PutCursor(1, 2);
    for (const char* age : {"11", "22", "33"}) {
      Type(age);
      Press(Qt::Key_Return);
    }
    QCOMPARE(Cursor(), (GridPlace{3, 2}));
    window().Trigger(103);
    QCOMPARE(SavedRecords(file_), std::string("Ann|11|Bern\nBob|22|Oslo\nCid|33|Rome\n"));
  }

  void WhatIsTypedBehindACommandGoesOnInTheGrid() {
    PutCursor(1, 2);
    Type("77");
    QCOMPARE(window().frame().focusWidget(), static_cast<QWidget*>(box()));
    window().Trigger(103);
    QCOMPARE(window().frame().focusWidget(), static_cast<QWidget*>(grid()));
    Press(Qt::Key_Right);
    Type("88");
    Press(Qt::Key_Return);
    QCOMPARE(Cell(1, 2), std::string("77"));
    QCOMPARE(Cell(1, 3), std::string("88"));
  }

  void UpInTheFirstRecordAndLeftInTheFirstVariableLeaveTheFlag() {
    PutCursor(1, 2);
    Type("9");
    Press(Qt::Key_Up);
    QCOMPARE(Cell(1, 2), std::string("9"));
    QVERIFY(!data().DataDirty);
    PutCursor(2, 1);
    Type("z");
    Press(Qt::Key_Left);
    QCOMPARE(Cell(2, 1), std::string("z"));
    QVERIFY(!data().DataDirty);
  }

  void EscapeLeavesWithoutACommit() {
    PutCursor(2, 2);
    Type("99");
    Press(Qt::Key_Escape);
    QVERIFY(!box()->isVisible());
    QVERIFY(grid()->hasFocus());
    QCOMPARE(Cell(2, 2), std::string("41"));
    QVERIFY(!data().DataDirty);
    QCOMPARE(Cursor(), (GridPlace{2, 2}));
  }

  void EnterAndEscapeBeginNothing() {
    PutCursor(2, 2);
    Press(Qt::Key_Return);
    Press(Qt::Key_Escape);
    QVERIFY(!box()->isVisible());
    QCOMPARE(Cursor(), (GridPlace{2, 2}));
  }

  void F2AndADoubleClickEditTheText() {
    PutCursor(2, 3);
    Press(Qt::Key_F2);
    QCOMPARE(box()->text(), QString("Oslo"));
    Type("!");
    Press(Qt::Key_Return);
    QCOMPARE(Cell(2, 3), std::string("Oslo!"));
    const QPoint place = grid()->visualRect(grid()->model()->index(0, 0)).center();
    QTest::mouseClick(grid()->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(grid()->viewport(), Qt::LeftButton, {}, place);
    QVERIFY(box()->isVisible());
    QCOMPARE(box()->text(), QString("Ann"));
    Type("e");
    Press(Qt::Key_Return);
    QCOMPARE(Cell(1, 1), std::string("Anne"));
  }

  void AClickElsewhereCommitsAndLeavesTheFlag() {
    PutCursor(2, 2);
    Type("50");
    Click(3, 3);
    QVERIFY(!box()->isVisible());
    QCOMPARE(Cell(2, 2), std::string("50"));
    QCOMPARE(Cursor(), (GridPlace{3, 3}));
    QVERIFY(!data().DataDirty);
    QVERIFY(window().Command(214)->isEnabled());
  }

  void AHeadingClickCommitsToo() {
    PutCursor(2, 2);
    Type("50");
    Click(0, 3);
    QVERIFY(!box()->isVisible());
    QCOMPARE(Cell(2, 2), std::string("50"));
    QCOMPARE(Cursor(), (GridPlace{0, 3}));
  }

  void AHeadingIsRenamedByTyping() {
    Click(0, 2);
    QCOMPARE(Cursor(), (GridPlace{0, 2}));
    Type("YEARS");
    QCOMPARE(box()->parentWidget(), grid()->horizontalHeader()->viewport());
    QCOMPARE(box()->geometry().left(), grid()->horizontalHeader()->sectionViewportPosition(1));
    Press(Qt::Key_Return);
    QCOMPARE(data().VariableName(2), std::string("YEARS"));
    QCOMPARE(grid()->model()->headerData(1, Qt::Horizontal).toString(), QString("YEARS"));
    QCOMPARE(data().VarList[2].name, std::string("AGE"));  // the lists are not rebuilt by it
    QCOMPARE(Cursor(), (GridPlace{1, 2}));
    window().Trigger(103);
    const std::string saved = WindowFixture::ReadFile(file_);
    QVERIFY(saved.find("NAME\x01YEARS\x01"
                       "CITY\r\n") != std::string::npos);
  }

  void ACommaHasItsBoxAndIsDropped() {
    PutCursor(2, 2);
    Type(",");
    QCOMPARE(window().script().messages.size(), std::size_t{1});
    QCOMPARE(window().script().messages[0].title, std::string("Error"));
    QCOMPARE(window().script().messages[0].text, std::string("Commas are prohibited"));
    QVERIFY(!box()->isVisible());
    Type("1");
    Type(",");
    Type("5");
    QCOMPARE(window().script().messages.size(), std::size_t{2});
    QCOMPARE(box()->text(), QString("15"));
  }

  void WhatTheCodePageLacksBecomesAQuestionMark() {
    PutCursor(1, 3);
    Press(Qt::Key_F2);
    box()->selectAll();
    box()->insert(QString::fromUtf8("\u041c\u00fcnchen\u20ac"));  // a Cyrillic letter, an umlaut, the Euro
    Press(Qt::Key_Return);
    QCOMPARE(Cell(1, 3), std::string("?\xFCnchen\x80"));
  }

  void ATextThatWasOnlyLookedAtStaysAsItIs() {
    const Path odd = window().WriteDataFile("odd.dcs", {"A"},
                                            {{"a\tb\x02"
                                              "c"},
                                             {"x"}});
    Open(odd);
    PutCursor(1, 1);
    Press(Qt::Key_F2);
    Press(Qt::Key_Return);
    QCOMPARE(Cell(1, 1), std::string("a\tb\x02"
                                     "c"));
    QVERIFY(!window().Command(214)->text().contains("Typing"));
    QVERIFY(data().DataDirty);
  }

  void AVeryLongTextIsNotCutByLookingAtIt() {
    const Path long_text = window().WriteDataFile("long.dcs", {"A"}, {{std::string(300'000, 'x')}, {"y"}});
    Open(long_text);
    PutCursor(1, 1);
    Press(Qt::Key_F2);
    QVERIFY(!box()->isVisible());
    QCOMPARE(window().Pane(1), QString("This text is too long to be edited in its cell"));
    QCOMPARE(Cell(1, 1).size(), std::size_t{300'000});
  }

  void AtTheEditLimitNoEntryBegins() {
    std::vector<std::vector<std::string>> records(1000, std::vector<std::string>(199));
    records[0][0] = "1";
    records[999][198] = "1";
    std::vector<std::string> names;
    for (int i = 1; i <= 199; ++i) names.push_back("V" + std::to_string(i));
    Open(window().WriteDataFile("limit.dcs", names, records));
    PutCursor(1, 1);
    Type("5");
    QVERIFY(!box()->isVisible());
    QCOMPARE(window().script().messages.size(), std::size_t{1});
    QCOMPARE(window().script().messages[0].title, std::string("Operation Aborted!"));
    QCOMPARE(window().script().messages[0].text, std::string(kNoEntryText));
    Type(",");  // the test comes first
    QCOMPARE(window().script().messages.size(), std::size_t{2});
    QCOMPARE(window().script().messages[1].text, std::string(kNoEntryText));
    Press(Qt::Key_Right);  // moving is free
    QCOMPARE(window().script().messages.size(), std::size_t{2});
    QCOMPARE(Cursor(), (GridPlace{1, 2}));
  }

  void SavingWhileTypingSavesWhatIsTyped() {
    PutCursor(2, 2);
    Type("88");
    QTest::keyClick(Keyboard(), Qt::Key_S, Qt::ControlModifier);
    QCoreApplication::processEvents();
    if (box()->isVisible()) window().Trigger(103);
    QVERIFY(!box()->isVisible());
    QCOMPARE(SavedRecords(file_), std::string("Ann|34|Bern\nBob|88|Oslo\nCid|28|Rome\n"));
    QVERIFY(!data().DataDirty);
  }

  void ClosingWhileTypingAsksAndKeepsTheText() {
    PutCursor(2, 2);
    Type("88");
    window().script().message_answers.push_back(Answer::kCancel);
    window().frame().close();
    QCOMPARE(window().script().messages.size(), std::size_t{1});
    QCOMPARE(window().script().messages[0].text, std::string("Do you wish to save the changes to the data file?"));
    QCOMPARE(Cell(2, 2), std::string("88"));
    QVERIFY(window().frame().isVisible());
  }

  void OpeningAnotherFileWhileTypingWritesNothingIntoIt() {
    const Path other = window().WriteDataFile("other.dcs", {"A", "B"}, {{"1", "2"}, {"3", "4"}});
    PutCursor(2, 2);
    Type("stray");
    Open(other);
    QVERIFY(!box()->isVisible());
    QCOMPARE(Cell(2, 2), std::string("4"));
    QVERIFY(!data().DataDirty);
    PutCursor(1, 1);
    Type("stray");
    window().frame().OpenFile(file_);  // dropped
    QCOMPARE(Cell(1, 1), std::string("Ann"));
    Type("stray");
    window().Trigger(101);
    QCOMPARE(Cell(1, 1), std::string());
    QVERIFY(!box()->isVisible());
  }

  void UndoFromTheMenuTakesBackWhatWasBeingTyped() {
    PutCursor(2, 2);
    Type("88");
    window().Trigger(214);
    QCOMPARE(Cell(2, 2), std::string("41"));
    QVERIFY(!box()->isVisible());
    QCOMPARE(window().Pane(1), QString("Undone: Typing"));
    QVERIFY(!data().DataDirty);
    window().Trigger(215);
    QCOMPARE(Cell(2, 2), std::string("88"));
    QCOMPARE(window().Pane(1), QString("Redone: Typing"));
  }

  void AnotherViewKeepsWhatWasTyped() {
    PutCursor(2, 2);
    Type("88");
    window().ShowView(View::ViewStatProcs);
    QCOMPARE(Cell(2, 2), std::string("88"));
    QVERIFY(data().DataDirty);
    window().ShowView(View::ViewDataGrid);
    QVERIFY(!box()->isVisible());
    QVERIFY(grid()->hasFocus());
  }

  void KeysOfAnEntryDoNotReachTheGrid() {
    PutCursor(2, 2);
    Type("8");
    for (const Qt::Key key : {Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End, Qt::Key_Delete, Qt::Key_F2}) Press(key);
    QVERIFY(box()->isVisible());
    QCOMPARE(Cursor(), (GridPlace{2, 2}));
    QCOMPARE(box()->text(), QString("8"));
  }

  void TheBoxStaysOverItsCellWhenColumnsGrow() {
    PutCursor(2, 3);
    Type("8");
    grid()->setColumnWidth(0, 200);
    QCOMPARE(box()->geometry(), grid()->visualRect(grid()->model()->index(1, 2)));
  }

  void BackspaceBeginsAnEmptyEntry() {
    PutCursor(2, 2);
    Press(Qt::Key_Backspace);
    QVERIFY(box()->isVisible());
    QCOMPARE(box()->text(), QString());
    Press(Qt::Key_Return);
    QCOMPARE(Cell(2, 2), std::string());
  }

  void ATextPastedIntoTheBoxKeepsItsCommasAndLosesItsLineEnds() {
    PutCursor(2, 2);
    Type("a");
    QApplication::clipboard()->setText("1,5\n2");
    box()->paste();
    Press(Qt::Key_Return);
    QCOMPARE(Cell(2, 2), std::string("a1,52"));
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::GridEntryTest)
#include "grid_entry_test.moc"
