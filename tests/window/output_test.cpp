#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextBlock>
#include <random>

#include "window_fixture.h"

namespace tessara {

// The Output view: both texts, what the user writes into them, and their way to files, printer and tabs.
class OutputTest : public QObject {
  Q_OBJECT

  std::unique_ptr<WindowFixture> window_;
  WindowFixture& window() { return *window_; }
  QPlainTextEdit* Sheet() { return window().Find<QPlainTextEdit>("RichText1"); }
  OutputLog& Output() { return window().session().output; }

  // Two runs: the log holds both reports, the most recent output the second alone.
  void MakeTwoReports() {
    for (const char* report : {"First report\r\n", "Second report\r\n"}) {
      BeginRun(Output());
      AppendReport(Output(), report);
    }
    window().ShowView(View::ViewOutput);
  }
  // A run whose report is shown at once.
  void AddReport(const std::string& report) {
    BeginRun(Output());
    AppendReport(Output(), report);
    dynamic_cast<ViewForm*>(window().Find("Output1"))->ShowSession();
  }

 private slots:
  void init() {
    window_ = std::make_unique<WindowFixture>();
    window().Start();
  }
  void cleanup() { window_.reset(); }

  void TheMostRecentOutputShowsFirstAndTheToggleShowsTheLog() {
    MakeTwoReports();
    QVERIFY(!Sheet()->toPlainText().contains("First report"));
    QVERIFY(Sheet()->toPlainText().contains("Second report"));
    QCOMPARE(window().Command(350)->text().remove('&'), "Output Log");
    window().Trigger(350);
    QVERIFY(Sheet()->toPlainText().contains("First report"));
    QCOMPARE(window().Command(350)->text().remove('&'), "Most Recent Output");
  }

  void AnEditIsKeptOverTheToggle() {
    MakeTwoReports();
    Sheet()->moveCursor(QTextCursor::Start);
    QTest::keyClicks(Sheet(), "My remark. ");
    window().Trigger(350);
    QVERIFY(!Sheet()->toPlainText().contains("My remark."));
    window().Trigger(350);
    QVERIFY(Sheet()->toPlainText().startsWith("My remark. Second report"));
    QCOMPARE(Output().MostRecentText.rfind("My remark. Second report\r\n", 0), std::size_t{0});
  }

  void SaveWritesTheSheetWithItsPageBreaks() {
    MakeTwoReports();
    const Path target = window().folder() / "out.txt";
    window().script().save_answers.push_back(WindowFixture::Chosen(target));
    window().Trigger(103);
    QCOMPARE(window().script().save_dialogs.back().title, std::string("Save As"));
    QCOMPARE(WindowFixture::ReadFile(target), std::string("Second report\r\n\r\n<Page Break>\r\n\r\n\r\n"));
    QCOMPARE(window().Pane(1), "Save Completed");
    QVERIFY(!Output().OutputChanged);
  }

  void OpenReplacesTheLog() {
    MakeTwoReports();
    const Path text = window().WriteFile("old.txt", "An old report");
    window().script().open_answers.push_back(WindowFixture::Chosen(text));
    window().Trigger(102);
    QCOMPARE(Output().OutputLogText, std::string("An old report\r\n\r\n<Page Break>"));
    QVERIFY(Sheet()->toPlainText().startsWith("An old report\n\n<Page Break>"));
  }

  void ClearAsksFirst() {
    MakeTwoReports();
    window().script().message_answers = {Answer::kNo, Answer::kYes};
    window().Trigger(101);
    QCOMPARE(window().script().messages.back().text,
             std::string("This will clear the Output log.  Do you wish to permanently erase all your output?"));
    QVERIFY(!Sheet()->toPlainText().isEmpty());
    window().Trigger(101);
    QVERIFY(Sheet()->toPlainText().isEmpty());
    QVERIFY(Output().OutputLogText.empty());
  }

  void ConvertTurnsTheSheetIntoTabsAndLeavesTheLog() {
    BeginRun(Output());
    AppendReport(Output(), "Mean          -2.5\r\n");
    window().ShowView(View::ViewOutput);
    window().Trigger(211);
    QVERIFY(Sheet()->toPlainText().startsWith("Mean\t2.5\n"));
    QVERIFY(Output().OutputLogText.rfind("Mean          -2.5\r\n", 0) == 0);
  }

  void AFailingSaveSaysSoAndKeepsAsking() {
    MakeTwoReports();
    window().script().save_answers.push_back(WindowFixture::Chosen(window().folder() / "no such folder" / "out.txt"));
    window().Trigger(103);
    QCOMPARE(window().script().messages.back().title, std::string("Save Aborted!"));
    QVERIFY(window().Pane(1) != "Save Completed");
    QVERIFY(Output().OutputChanged);
  }

  void ConvertIsOneStepThatCanBeTakenBack() {
    MakeTwoReports();
    QVERIFY(window().Command(214)->isVisible());
    QVERIFY(!window().Command(214)->isEnabled());
    const QString before = Sheet()->toPlainText();
    QTest::keyClicks(Sheet(), "a - b");
    window().Trigger(211);
    QVERIFY(Sheet()->toPlainText().startsWith("a\tb"));
    window().Trigger(214);
    QVERIFY(Sheet()->toPlainText().startsWith("a - b"));
    window().Trigger(215);
    QVERIFY(Sheet()->toPlainText().startsWith("a\tb"));
    window().Trigger(214);
    while (window().Command(214)->isEnabled()) window().Trigger(214);
    QCOMPARE(Sheet()->toPlainText(), before);
    window().Trigger(350);  // stores the box back
    QCOMPARE(Output().MostRecentText, std::string("Second report\r\n\r\n<Page Break>\r\n\r\n\r\n"));
    window().ShowView(View::ViewStatProcs);
    QVERIFY(!window().Command(214)->isVisible());
  }

  void TheKeysOfUndoWorkOnTheSheet() {
    AddReport("Mean          -2.5\r\n");
    window().ShowView(View::ViewOutput);
    const QString before = Sheet()->toPlainText();
    Sheet()->setFocus();
    QTest::keyClick(&window().frame(), Qt::Key_T, Qt::ControlModifier);
    QVERIFY(Sheet()->toPlainText() != before);
    QTest::keyClick(Sheet(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(Sheet()->toPlainText(), before);
  }

  // A run costs what it brings: the sheet is lengthened, the log that stands is not touched.
  void ANewReportIsAddedToTheLogOnTheSheet() {
    MakeTwoReports();
    window().Trigger(350);
    const int before = Sheet()->document()->characterCount();
    int removed = 0, at = -1;
    connect(Sheet()->document(), &QTextDocument::contentsChange, this, [&](int position, int gone, int) {
      at = position;
      removed += gone;
    });
    AddReport("Third report\r\n");
    QVERIFY(Sheet()->toPlainText().contains("Third report"));
    QVERIFY(Sheet()->toPlainText().startsWith("First report"));
    QCOMPARE(removed, 0);
    QVERIFY(at >= before - 1);
    // The same behind an edit, which the log has got by then.
    Sheet()->moveCursor(QTextCursor::Start);
    QTest::keyClicks(Sheet(), "My remark. ");
    removed = 0;
    window().ShowView(View::ViewStatProcs);
    window().ShowView(View::ViewOutput);
    AddReport("Fourth report\r\n");
    QVERIFY(Sheet()->toPlainText().startsWith("My remark. First report"));
    QVERIFY(Sheet()->toPlainText().contains("Fourth report"));
    QCOMPARE(removed, 0);
    QVERIFY(Output().OutputLogText.starts_with("My remark. First report"));
  }

  // Whatever is typed, cut and taken back, the stored text is that of the sheet.
  void EditsAreStoredAsTheyStand() {
    AddReport("one\r\ntwo  three\r\n\r\nfour\r\n");
    window().ShowView(View::ViewOutput);
    std::mt19937 random(20261122);
    const QStringList pieces = {"a", "aa", "\n", "\n\n", " ", "-", QString(QChar(0xE9)), QString(QChar(0x20AC)), "two"};
    for (int round = 0; round < 400; ++round) {
      QTextCursor cursor(Sheet()->document());
      const auto place = [&] { return static_cast<int>(random() % Sheet()->document()->characterCount()); };
      cursor.setPosition(place());
      if (random() % 2 == 0) cursor.setPosition(std::min(cursor.position() + 3, place()), QTextCursor::KeepAnchor);
      cursor.insertText(pieces[static_cast<int>(random() % pieces.size())]);
      if (random() % 7 == 0) Sheet()->undo();
      if (random() % 3 != 0) continue;
      dynamic_cast<ViewForm*>(window().Find("Output1"))->StoreWidgets();
      QCOMPARE(Output().BoxText(), FromQtLines(Sheet()->toPlainText()));
    }
  }

  // A character that the code page lacks is one byte there and two places on the sheet.
  void AnEditBehindAStrangeCharacterIsStoredToo() {
    AddReport("one\r\ntwo\r\n");
    window().ShowView(View::ViewOutput);
    auto* form = dynamic_cast<ViewForm*>(window().Find("Output1"));
    QTextCursor cursor(Sheet()->document());
    cursor.insertText(QString::fromUtf8("\xF0\x9F\x98\x80"));
    form->StoreWidgets();
    QVERIFY(Output().BoxText().starts_with("?one\r\ntwo\r\n"));
    cursor.movePosition(QTextCursor::End);
    cursor.insertText("end");
    form->StoreWidgets();
    QVERIFY(Output().BoxText().starts_with("?one\r\ntwo\r\n"));
    QVERIFY(Output().BoxText().ends_with("end"));
  }

  void AnEditOutlivesASelection() {
    MakeTwoReports();
    Sheet()->moveCursor(QTextCursor::Start);
    QTest::keyClicks(Sheet(), "My remark. ");
    Sheet()->selectAll();  // the commands are refreshed
    Sheet()->moveCursor(QTextCursor::Start);
    QVERIFY(Sheet()->toPlainText().startsWith("My remark. Second report"));
  }

  void TheMenuOfTheSheetHasItsCommands() {
    MakeTwoReports();
    const QPoint middle = Sheet()->viewport()->rect().center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, middle, Sheet()->viewport()->mapToGlobal(middle));
    QApplication::sendEvent(Sheet()->viewport(), &event);
    auto* menu = Sheet()->findChild<QMenu*>("OutputMenu");
    QVERIFY(menu);
    const auto entry = [menu](const QString& words) -> QAction* {
      for (QAction* action : menu->actions()) {
        if (action->text().remove('&').startsWith(words)) return action;
      }
      return nullptr;
    };
    for (const char* words : {"Undo", "Redo", "Cut", "Copy", "Paste", "Select All", "Find in Output"}) {
      QVERIFY2(entry(words), words);
    }
    Sheet()->setPlainText("a - b");
    entry("Convert Output to Tab Delimited")->trigger();
    QCOMPARE(Sheet()->toPlainText(), "a\tb");
    menu->close();
  }

  // What stood there before the scroll bar came is painted over.
  void NoEdgeOfTheSheetStaysBesideTheScrollBar() {
    window().ShowView(View::ViewOutput);
    std::string lines;
    for (int i = 0; i < 300; ++i) lines += "A line of the log\r\n";
    AddReport(lines);
    QTRY_VERIFY(Sheet()->verticalScrollBar()->isVisible());
    QTest::qWait(50);
    Sheet()->clearFocus();
    QCoreApplication::processEvents();
    const QPoint corner = Sheet()->mapTo(&window().frame(), QPoint(0, 0));
    const QImage shown =
        window()
            .frame()
            .screen()
            ->grabWindow(window().frame().winId(), corner.x(), corner.y(), Sheet()->width(), Sheet()->height())
            .toImage()
            .convertToFormat(QImage::Format_RGB32);
    const QImage painted = Sheet()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    QCOMPARE(shown.size(), painted.size());
    const int right = Sheet()->viewport()->geometry().right();
    for (int x = right - 5; x < shown.width(); ++x) {
      for (int y = 20; y < shown.height() - 20; ++y) QCOMPARE(shown.pixel(x, y), painted.pixel(x, y));
    }
  }

  void PrintSendsOnePageAReport() {
    MakeTwoReports();
    window().Trigger(350);
    window().script().print_answers.push_back(PrintChoice{2});
    window().Trigger(106);
    QCOMPARE(window().script().print_dialogs.back().title, std::string("Print"));
    QCOMPARE(window().script().printed.back().size(), std::size_t{4});  // two reports, two copies
    QVERIFY(window().script().printed.back()[1].find("Second report") != std::string::npos);
  }

  void APrinterThatRefusesGetsItsBox() {
    MakeTwoReports();
    window().script().printer_works = false;
    window().script().print_answers.push_back(PrintChoice{1});
    window().Trigger(106);
    QCOMPARE(window().script().messages.back().title, std::string("Printer Error"));
  }

  // A word processor takes the formatted text: there, too, columns stand below each other.
  void CopyBringsAFixedPitchAlong() {
    AddReport("Mean     <1 & 2\r\nMedian    3\r\n");
    window().ShowView(View::ViewOutput);
    window().Trigger(204);
    window().Trigger(205);
    const QMimeData* content = QApplication::clipboard()->mimeData();
    QVERIFY(content->text().startsWith("Mean     <1 & 2\nMedian    3\n"));
    QVERIFY(content->html().contains("Mean     &lt;1 &amp; 2\nMedian    3\n"));
    QTextDocument taken;
    taken.setHtml(content->html());
    QVERIFY(taken.toPlainText().startsWith("Mean     <1 & 2\nMedian    3\n"));
    const QTextCharFormat letters = taken.begin().begin().fragment().charFormat();
    QVERIFY(letters.fontFamilies().toStringList().contains("Courier New"));
    QVERIFY(content->html().contains("white-space:pre"));
  }

  void CopyAndPasteGoThroughTheClipboard() {
    MakeTwoReports();
    window().Trigger(204);
    QVERIFY(window().Command(205)->isEnabled());
    window().Trigger(205);
    QVERIFY(QApplication::clipboard()->text().contains("Second report"));
    Sheet()->moveCursor(QTextCursor::End);
    window().Trigger(206);
    QCOMPARE(Sheet()->toPlainText().count("Second report"), 2);
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::OutputTest)
#include "output_test.moc"
