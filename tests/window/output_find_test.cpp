#include <QClipboard>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextBlock>
#include <QToolButton>

#include "window_fixture.h"

namespace tessara {

// Reading the sheet of the Output view: finding words, following a new report, and the sheet as a PDF file.
class OutputFindTest : public QObject {
  Q_OBJECT

  std::unique_ptr<WindowFixture> window_;
  WindowFixture& window() { return *window_; }
  QPlainTextEdit* Sheet() { return window().Find<QPlainTextEdit>("RichText1"); }
  QWidget* Bar() { return window().Find<QWidget>("FindBar"); }
  QLineEdit* Words() { return window().Find<QLineEdit>("FindWords"); }
  QString Result() { return window().Find<QLabel>("FindResult")->text(); }
  OutputLog& Output() { return window().session().output; }

  void AddReport(const std::string& report) {
    BeginRun(Output());
    Output().ReportText = report;
    AppendReport(Output());
  }
  void ShowOutput(const std::string& report) {
    AddReport(report);
    window().ShowView(View::ViewOutput);
  }
  // The sheet's line, from 0, and column of the selection's start; -1 without a selection.
  QPoint Found() {
    const QTextCursor cursor = Sheet()->textCursor();
    if (!cursor.hasSelection()) return {-1, -1};
    QTextCursor start(Sheet()->document());
    start.setPosition(cursor.selectionStart());
    return {start.positionInBlock(), start.blockNumber()};
  }
  void OpenBar() {
    Sheet()->setFocus();
    QTest::keyClick(Sheet(), Qt::Key_F, Qt::ControlModifier);
  }
  void Look(const QString& words) {
    OpenBar();
    Words()->setText(words);
    QTest::keyClick(Words(), Qt::Key_Return);
  }

 private slots:
  void init() {
    window_ = std::make_unique<WindowFixture>();
    window().Start();
  }
  void cleanup() { window_.reset(); }

  void TheBarIsAwayUntilItIsAskedFor() {
    ShowOutput("alpha\r\n");
    QVERIFY(!Bar()->isVisible());
    OpenBar();
    QVERIFY(Bar()->isVisible());
    QCOMPARE(QApplication::focusWidget(), Words());
    QTest::keyClick(Words(), Qt::Key_Escape);
    QVERIFY(!Bar()->isVisible());
    QCOMPARE(QApplication::focusWidget(), Sheet());
  }

  void TheNextOneIsSelectedAndTheLastLeadsToTheFirst() {
    ShowOutput("alpha\r\nbeta alpha\r\ngamma\r\n");
    Look("alpha");
    QCOMPARE(Found(), QPoint(0, 0));
    QTest::keyClick(Words(), Qt::Key_Return);
    QCOMPARE(Found(), QPoint(5, 1));
    QTest::keyClick(Words(), Qt::Key_F3);
    QCOMPARE(Found(), QPoint(0, 0));
    QCOMPARE(Result(), "");
  }

  void BackwardsGoesTheOtherWayRound() {
    ShowOutput("alpha\r\nbeta alpha\r\nalpha\r\n");
    Look("alpha");
    QCOMPARE(Found(), QPoint(0, 0));
    QTest::keyClick(Words(), Qt::Key_F3, Qt::ShiftModifier);
    QCOMPARE(Found(), QPoint(0, 2));
    QTest::keyClick(Words(), Qt::Key_F3, Qt::ShiftModifier);
    QCOMPARE(Found(), QPoint(5, 1));
    window().Find<QAction>("FindPrevious")->trigger();
    QCOMPARE(Found(), QPoint(0, 0));
    window().Find<QAction>("FindNext")->trigger();
    QCOMPARE(Found(), QPoint(5, 1));
  }

  void WordsThatAreNotThereLeaveTheCursorAndSaySo() {
    ShowOutput("alpha\r\nbeta alpha\r\n");
    Look("alpha");
    QTest::keyClick(Words(), Qt::Key_Return);
    const QPoint found = Found();
    Words()->clear();
    QTest::keyClicks(Words(), "delta");
    QCOMPARE(Result(), "");
    QTest::keyClick(Words(), Qt::Key_Return);
    QCOMPARE(Result(), "Not found");
    QCOMPARE(Found(), found);
    QTest::keyClicks(Words(), "x");  // whatever is typed next has not been looked for
    QCOMPARE(Result(), "");
  }

  void WhatIsSelectedIsLookedFor() {
    ShowOutput("alpha\r\nbeta alpha\r\n");
    QTextCursor cursor = Sheet()->textCursor();
    cursor.setPosition(6);
    cursor.movePosition(QTextCursor::EndOfWord, QTextCursor::KeepAnchor);
    Sheet()->setTextCursor(cursor);
    OpenBar();
    QCOMPARE(Words()->text(), "beta");
    QCOMPARE(Words()->selectedText(), "beta");  // so that typing replaces it
    QTest::keyClick(Words(), Qt::Key_Escape);
    Sheet()->selectAll();  // lines are no words
    OpenBar();
    QCOMPARE(Words()->text(), "beta");
  }

  void WithoutWordsTheKeyOpensTheBar() {
    ShowOutput("alpha\r\n");
    Sheet()->setFocus();
    QTest::keyClick(Sheet(), Qt::Key_F3);
    QVERIFY(Bar()->isVisible());
    QCOMPARE(Result(), "");
    QCOMPARE(Found(), QPoint(-1, -1));
  }

  // A new report comes behind a long log: its first line is the first one in sight.
  void ANewReportIsScrolledTo() {
    std::string first;
    for (int i = 0; i < 300; ++i) first += "line " + std::to_string(i) + "\r\n";
    ShowOutput(first);
    window().Trigger(350);  // the whole log
    Sheet()->verticalScrollBar()->setValue(0);
    std::string second = "Second report\r\n";
    for (int i = 0; i < 300; ++i) second += "row " + std::to_string(i) + "\r\n";
    AddReport(second);
    window().ShowView(View::ViewDataGrid);
    window().ShowView(View::ViewOutput);
    QVERIFY(Sheet()->toPlainText().contains("line 0\n"));
    const QString line = Sheet()->cursorForPosition(QPoint(20, 6)).block().text();
    const QString next = Sheet()->cursorForPosition(QPoint(20, 6)).block().next().text();
    QVERIFY2(line == "Second report" || next == "Second report" || line.isEmpty(), qPrintable(line));
    QVERIFY(Sheet()->cursorForPosition(QPoint(20, Sheet()->viewport()->height() / 2)).block().text().startsWith("row"));
  }

  // The most recent output alone is a new text, which begins at its top.
  void AnotherTextBeginsAtItsTop() {
    std::string first;
    for (int i = 0; i < 300; ++i) first += "line " + std::to_string(i) + "\r\n";
    ShowOutput(first);
    Sheet()->verticalScrollBar()->setValue(200);
    AddReport("row\r\n" + first);
    window().ShowView(View::ViewDataGrid);
    window().ShowView(View::ViewOutput);
    QVERIFY(Sheet()->toPlainText().startsWith("row\n"));
    QCOMPARE(Sheet()->verticalScrollBar()->value(), 0);
  }

  // What the user has just typed is in the file, on the paper and in the preview, though nothing has stored it yet.
  void APdfFileHoldsWhatWasJustTyped() {
    ShowOutput("alpha\r\n");
    Sheet()->moveCursor(QTextCursor::Start);
    QTest::keyClicks(Sheet(), "My remark. ");
    const Path target = window().folder() / "out.pdf";
    window().script().save_answers.push_back(WindowFixture::Chosen(target));
    window().Find<QAction>("PrintToPdf")->trigger();
    QCOMPARE(window().script().save_dialogs.back().initial_name, std::string("Output.pdf"));
    QCOMPARE(window().script().save_dialogs.back().initial_folder, window().documents_folder());
    QVERIFY(window().script().save_dialogs.back().overwrite_prompt);
    QVERIFY(WindowFixture::ReadFile(target).starts_with("%PDF-"));
    QCOMPARE(window().script().pdf_files.size(), std::size_t{1});
    const PrintJob& job = window().script().pdf_files[0].second;
    QCOMPARE(job.sheets.size(), std::size_t{1});
    QVERIFY(job.sheets[0].text.find("My remark. alpha") != std::string::npos);
    QCOMPARE(window().Pane(1), "Save Completed");
  }
  void APreviewShowsWhatWasJustTyped() {
    ShowOutput("alpha\r\n");
    Sheet()->moveCursor(QTextCursor::Start);
    QTest::keyClicks(Sheet(), "My remark. ");
    window().Find<QAction>("PrintPreview")->trigger();
    QCOMPARE(window().script().previews.size(), std::size_t{1});
    QVERIFY(window().script().previews[0].sheets[0].text.find("My remark. alpha") != std::string::npos);
    QTest::keyClicks(Sheet(), "And more. ");
    window().script().print_answers.push_back(PrintChoice{2});
    window().Trigger(106);
    QCOMPARE(window().script().printed.back().size(), std::size_t{2});  // two copies of the page
    QVERIFY(window().script().printed.back()[1].find("My remark. And more. alpha") != std::string::npos);
  }

  void APdfFileThatCannotBeWrittenIsTold() {
    ShowOutput("alpha\r\n");
    window().script().save_answers.push_back(WindowFixture::Chosen(window().folder() / "no/such/out.pdf"));
    window().Find<QAction>("PrintToPdf")->trigger();
    QCOMPARE(window().script().messages.size(), std::size_t{1});
    QCOMPARE(window().script().messages[0].title, std::string("Error"));
    QVERIFY(window().Pane(1) != "Save Completed");
  }

  // A tab goes on to the next multiple of eight columns.
  void TabsStandAtEveryEighthColumn() {
    ShowOutput("1234567\tX\r\n12345678\tX\r\n12345678X\r\n1234567812345678X\r\n");
    const auto x_of = [this](int line) {
      QTextCursor cursor(Sheet()->document()->findBlockByNumber(line));
      cursor.movePosition(QTextCursor::EndOfBlock);
      cursor.movePosition(QTextCursor::Left);
      return Sheet()->cursorRect(cursor).left();
    };
    QVERIFY(std::abs(x_of(0) - x_of(2)) <= 1);
    QVERIFY(std::abs(x_of(1) - x_of(3)) <= 1);
    QVERIFY(x_of(1) > x_of(0));
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::OutputFindTest)
#include "output_find_test.moc"
