#include <QClipboard>
#include <QMimeData>
#include <QPageSize>
#include <QRegularExpression>
#include <cerrno>
#include <new>

#include "platform/file_calls.h"
#include "window/system/page_painter.h"
#include "window_fixture.h"

// The window's platform: printed sheets, notes, clipboard, memory.

namespace tessara {
namespace {

// The media boxes of a PDF file's pages, "595 x 842".
QStringList PageSizes(const QByteArray& pdf) {
  QStringList sizes;
  static const QRegularExpression box("/MediaBox \\[0 0 ([0-9.]+) ([0-9.]+)\\]");
  for (auto found = box.globalMatch(QString::fromLatin1(pdf)); found.hasNext();) {
    const auto match = found.next();
    sizes += QString("%1 x %2").arg(qRound(match.captured(1).toDouble())).arg(qRound(match.captured(2).toDouble()));
  }
  return sizes;
}

Sheet SheetOf(PaperSize paper, Orientation orientation) {
  Sheet sheet;
  sheet.text = "one\r\ntwo\r\n";
  sheet.paper = paper;
  sheet.orientation = orientation;
  return sheet;
}

}  // namespace

class PlatformTest : public QObject {
  Q_OBJECT

 private slots:
  // Points: A4 is 595 by 842, Letter 612 by 792.
  void EachSheetHasItsPaper() {
    PrintJob job;
    job.sheets = {SheetOf(PaperSize::kA4, Orientation::kPortrait), SheetOf(PaperSize::kA4, Orientation::kLandscape),
                  SheetOf(PaperSize::kLetter, Orientation::kPortrait),
                  SheetOf(PaperSize::kLetter, Orientation::kLandscape)};
    const auto pdf = MakePdf(job);
    QVERIFY(pdf.has_value());
    QCOMPARE(PageSizes(*pdf), (QStringList{"595 x 842", "842 x 595", "612 x 792", "792 x 612"}));
  }

  // 200 lines of 20 points are 4000 points high and need at least five sheets of 842; of 5 points two.
  void TypeOfASheetIsTheOneAskedFor() {
    const auto sheets = [](double point_size) {
      PrintJob job;
      job.sheets.push_back({.text = QString("line\r\n").repeated(199).toStdString(),
                            .paper = PaperSize::kA4,
                            .orientation = Orientation::kPortrait,
                            .point_size = point_size});
      return PageSizes(MakePdf(job).value()).size();
    };
    QVERIFY(sheets(20) >= 5);
    QCOMPARE(sheets(5), 2);
  }

  void JobWithoutSheetsIsAPdfFileToo() { QVERIFY(MakePdf({}).value().startsWith("%PDF")); }

  void PdfFileTakesItsNameWhenItIsWhole() {
    WindowFixture window;
    const Path path = window.folder() / "out.pdf";
    const PrintJob job = JobOfPages({"one", "two"});
    QVERIFY(window.platform().QtPlatform::WritePdf(job, path));
    QVERIFY(WindowFixture::ReadFile(path).starts_with("%PDF"));
    const std::string before = WindowFixture::ReadFile(path);
    CallsOfFiles().write = [](int, const char*, std::size_t) -> std::int64_t {
      errno = ENOSPC;
      return -1;
    };
    const bool written = window.platform().QtPlatform::WritePdf(JobOfPages({"three"}), path);
    CallsOfFiles() = SystemFileCalls();
    QVERIFY(!written);
    QVERIFY(WindowFixture::ReadFile(path) == before);
  }

  void PreviewOfTheOutputShowsItsPages() {
    WindowFixture window;
    window.Start();
    AppendOutput(window, "A report");
    window.ShowView(View::ViewOutput);
    window.Find<QAction>("PrintPreview")->trigger();
    QCOMPARE(window.script().previews.size(), std::size_t{1});
    QVERIFY(window.script().previews[0].sheets.at(0).text.find("A report") != std::string::npos);
  }

  void PreviewThatCannotBeSaysSo() {
    WindowFixture window;
    window.Start();
    AppendOutput(window, "A report");
    window.ShowView(View::ViewOutput);
    window.script().printer_works = false;
    window.Find<QAction>("PrintPreview")->trigger();
    QCOMPARE(window.script().messages.back().title, std::string("Printer Error"));
  }

  void ClipboardTakesTextAndItsRicherForm() {
    WindowFixture window;
    window.platform().SetClipboard({"a b", "<pre>a b</pre>"});
    QCOMPARE(QApplication::clipboard()->text(), QString("a b"));
    QCOMPARE(QApplication::clipboard()->mimeData()->html(), QString("<pre>a b</pre>"));
    window.platform().SetClipboardText("plain");
    QVERIFY(!QApplication::clipboard()->mimeData()->hasHtml());
  }

  void NoteStandsBesideTheMessageOfItsOperation() {
    WindowFixture window;
    window.Start();
    window.platform().ShowNote("the file has 3 records");
    window.platform().SetStatusPane(1, "Save Completed");
    QCOMPARE(window.Pane(1), QString("Save Completed; the file has 3 records"));
    QCoreApplication::processEvents();
    window.platform().SetStatusPane(1, "Ready");
    QCOMPARE(window.Pane(1), QString("Ready"));
    window.platform().ShowNote("alone");
    QCOMPARE(window.Pane(1), QString("alone"));
  }

  void LoadOfAMisfitTellsInTheFirstPane() {
    WindowFixture window;
    const Path file = window.WriteDataFile("a.dcs", {"A", "B"}, {{"1", "2"}, {"3", "4"}});
    std::string content = WindowFixture::ReadFile(file);
    content[0] = '1';
    window.WriteFile(file, content);
    window.script().open_answers.push_back(WindowFixture::Chosen(file));
    window.Start();
    window.Trigger(102);
    QCOMPARE(window.Pane(1), QString("the file has 2 records, its first line says 1"));
  }

  void OperationWithoutMemoryIsToldAndTheProgramGoesOn() {
    WindowFixture window;
    window.Start();
    QVERIFY(!window.platform().WithinMemory([] { throw std::bad_alloc(); }));
    QCOMPARE(window.script().messages.back().title, std::string("Operation Aborted!"));
    QVERIFY(window.platform().WithinMemory([] {}));
  }

  void LoadWithoutMemoryKeepsTheDataInTheWindow() {
    WindowFixture window;
    const Path first = window.WriteDataFile("a.dcs", {"A"}, {{"1"}, {"2"}});
    const Path second = window.WriteDataFile("b.dcs", {"B"}, {{"3"}});
    window.script().open_answers = {WindowFixture::Chosen(first), WindowFixture::Chosen(second)};
    window.Start();
    window.Trigger(102);
    CallsOfFiles().read = [](int, char*, std::size_t) -> std::int64_t { throw std::bad_alloc(); };
    window.Trigger(102);
    CallsOfFiles() = SystemFileCalls();
    QCOMPARE(window.script().messages.size(), std::size_t{1});
    QCOMPARE(window.Pane(2), QString("2 Records"));
    QVERIFY(window.session().data.DataFilePath == first);
  }

 private:
  static void AppendOutput(WindowFixture& window, const std::string& report) {
    OutputLog& output = window.session().output;
    AppendReport(output, report);
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::PlatformTest)
#include "platform_test.moc"
