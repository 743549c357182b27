#include <QClipboard>
#include <QPlainTextEdit>

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
