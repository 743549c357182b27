#include <QPlainTextEdit>
#include <QStandardPaths>
#include <QTextCursor>

#include "platform/files.h"
#include "presentation/office/zip_archive.h"
#include "window/system/desktop_programs.h"
#include "window_fixture.h"

namespace tessara {

// The way of the output to a word processor and a spreadsheet program, through the frame and up to the files.
class OfficeTest : public QObject {
  Q_OBJECT

  std::unique_ptr<WindowFixture> window_;
  WindowFixture& window() { return *window_; }
  ScriptedPlatform& script() { return window().script(); }

  Path File(const char* name) { return window().documents_folder() / "Tessara Data" / name; }
  // Types a text into the Output view.
  void Type(const QString& text) {
    window().ShowView(View::ViewOutput);
    QTest::keyClicks(window().Find<QPlainTextEdit>("RichText1"), text);
  }
  static qint64 SizeOf(const Path& path) { return QFile(PathToQt(path)).size(); }

 private slots:
  void init() { window_ = std::make_unique<WindowFixture>(); }
  void cleanup() { window_.reset(); }

  void TheCommandsStandInTheOutputView() {
    window().Start();
    QVERIFY(!window().Command(109)->isVisible());
    QVERIFY(window().Command(108)->isVisible());
    window().ShowView(View::ViewStatProcs);
    QVERIFY(!window().Command(108)->isVisible());
    window().ShowView(View::ViewOutput);
    QVERIFY(window().Command(108)->isVisible());
    QVERIFY(window().Command(109)->isVisible());
    QVERIFY(window().Command(109)->isEnabled());
    QCOMPARE(window().Command(109)->text().remove('&'), "Export to Word");
    QCOMPARE(window().Command(108)->text().remove('&'), "Export to Excel");
  }

  // What was typed a moment ago goes along.
  void TypedTextGoesToASpreadsheet() {
    window().Start();
    Type("Mean  2.50  -1");
    window().Trigger(108);
    const Path file = File("Output 2026-11-05.xlsx");
    QVERIFY(IsWholeArchive(file, "xl/worksheets/sheet", "<c ", {3}));
    QCOMPARE(script().documents, std::vector<std::string>{PathToUtf8(file)});
    QVERIFY(script().messages.empty());
    QCOMPARE(window().Pane(1), "Saved as " + PathToQt(file));
  }

  void TypedTextGoesToADocument() {
    window().Start();
    Type("<b>Mean</b>");
    window().Trigger(109);
    window().Trigger(109);
    const Path file = File("Output 2026-11-05.docx");
    QVERIFY(IsWholeArchive(file, "none", "none", {}));
    QVERIFY(SizeOf(File("Output 2026-11-05 (2).docx")) > 0);
    QCOMPARE(WindowFixture::ReadFile(file), WindowFixture::ReadFile(File("Output 2026-11-05 (2).docx")));
    QCOMPARE(window().Find<QPlainTextEdit>("RichText1")->toPlainText(), "<b>Mean</b>");
  }

  void WithoutAProgramABoxSaysSoAndTheFileStays() {
    window().Start();
    script().documents_open = false;
    Type("a");
    window().Trigger(109);
    QCOMPARE(script().messages.size(), std::size_t{1});
    QCOMPARE(script().messages[0].title, "Print to Word");
    QVERIFY(SizeOf(File("Output 2026-11-05.docx")) > 0);
    QCOMPARE(window().Pane(1), "Saved as " + PathToQt(File("Output 2026-11-05.docx")));
  }

  void TheTableGoesWhileItIsInFront() {
    window().Start();
    window().ShowView(View::ViewOutput);
    window().session().table.grid.SetText(2, 3, "2.5");
    window().session().output.OutputGridMode = true;
    window().Trigger(108);
    QVERIFY(IsWholeArchive(File("Output 2026-11-05.xlsx"), "xl/worksheets/sheet", "<c ", {1}));
  }

  // The desktop's own question, answered by a script in its place.
  void AKindOfFileThatNoProgramOpensIsKnown() {
    const Path tools = window().folder() / "tools";
    std::filesystem::create_directory(tools);
    const QByteArray path = qgetenv("PATH");
    const QString file = PathToQt(window().folder() / "a.docx");
    const auto answer = [&](const char* words) {
      std::ofstream(tools / "xdg-mime") << "#!/bin/sh\n" << words << "\n";
      std::filesystem::permissions(tools / "xdg-mime", std::filesystem::perms::owner_all);
      return DesktopHasProgramFor(file);
    };
    qputenv("PATH", PathToQt(tools).toUtf8());
    QVERIFY(DesktopHasProgramFor(file));  // nobody to ask
    QVERIFY(!answer("echo"));
    QVERIFY(answer("echo writer.desktop"));
    QVERIFY(answer("[ \"$3\" = application/vnd.openxmlformats-officedocument.wordprocessingml.document ] && echo a"));
    QVERIFY(answer("exit 3"));
    qputenv("PATH", path);
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::OfficeTest)
#include "office_test.moc"
