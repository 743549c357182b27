#include <QLabel>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QSettings>
#include <QToolBar>
#include <set>

#include "window_fixture.h"

namespace tessara {

// The names under which settings are stored are a promise to files of earlier versions: here they stand letter by
// letter, each with what it changes.
class SettingsKeysTest : public QObject {
  Q_OBJECT

  std::unique_ptr<WindowFixture> window_;
  WindowFixture& window() { return *window_; }

  void AddReport() {
    OutputLog& output = window().session().output;
    BeginRun(output);
    AppendReport(output, "A report\r\n");
    window().ShowView(View::ViewOutput);
  }
  std::string PrintedPage() {
    window().script().print_answers.push_back(PrintChoice{});
    window().Trigger(106);
    return window().script().printed.empty() ? std::string() : window().script().printed.back().front();
  }
  static bool Holds(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

 private slots:
  void init() { window_ = std::make_unique<WindowFixture>(); }
  void cleanup() { window_.reset(); }

  void TheFirstStartStoresEveryNameWithZero() {
    QTemporaryDir folder;
    const QString file = folder.filePath("first.ini");
    {
      QtSettingsStore store(file);
      QVERIFY(!store.SectionExists());
      FrameStart start;
      start.splash = false;
      FrmMain frame(window().platform(), store, start);
      QVERIFY(store.SectionExists());
    }
    QFile written(file);
    QVERIFY(written.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(written.readAll());
    QVERIFY2(text.startsWith("[Software]"), qPrintable(text));
    for (const char* name : {"Op3", "Op4", "Op6", "Op10", "Op11", "Op12", "Op13", "Op14", "Op15", "Op16"}) {
      const QRegularExpression line("^Tessara5\\\\Options\\\\" + QString(name) + "=\"?0\"?$",
                                    QRegularExpression::MultilineOption);
      QVERIFY2(line.match(text).hasMatch(), name);
    }
    for (const char* name : {"Op7", "Op8"}) QVERIFY2(text.contains(QString("Tessara5\\Options\\") + name + "="), name);
  }

  // A file as an earlier version has left it.
  void AStoredFileIsUnderstood() {
    const QString file = PathToQt(window().folder() / "older.ini");
    {
      QFile written(file);
      QVERIFY(written.open(QIODevice::WriteOnly));
      written.write(
          "[Software]\nTessara5\\Options\\Op3=1\nTessara5\\Options\\Op16=1\nTessara5\\Options\\Op14=/somewhere\n");
    }
    QtSettingsStore store(file);
    QVERIFY(store.SectionExists());
    QCOMPARE(store.Read("Op3"), std::optional<std::string>("1"));
    FrameStart start;
    start.splash = false;
    FrmMain frame(window().platform(), store, start);
    QVERIFY(!frame.session().settings.sounds());
    QCOMPARE(frame.session().settings.Op14, Path("/somewhere"));
    QCOMPARE(store.Read("Op4"), std::nullopt);  // a section that is there is not filled up
  }

  void Op3SilencesTheSounds() {
    window().store().Write("Op3", "1");
    window().Start();
    AddReport();
    window().script().message_answers = {Answer::kYes};
    window().Trigger(101);
    QVERIFY(window().script().sounds.empty());
    window().End();
    window().store().Write("Op3", "0");
    window().Start();
    AddReport();
    window().script().message_answers = {Answer::kYes};
    window().Trigger(101);
    QCOMPARE(window().script().sounds.size(), std::size_t{1});
    QCOMPARE(window().script().sounds[0].filename(), Path("clean.wav"));
  }

  void Op11TakesTheNotesOffThePage() {
    window().Start();
    AddReport();
    QVERIFY(Holds(PrintedPage(), "Notes\r\n"));
    window().End();
    window().store().Write("Op11", "1");
    window().Start();
    AddReport();
    const std::string page = PrintedPage();
    QVERIFY(Holds(page, "A report"));
    QVERIFY(!Holds(page, "Notes"));
    QVERIFY(Holds(page, "11/5/2026"));
  }

  void Op12TakesTheDateOffThePage() {
    window().store().Write("Op12", "1");
    window().Start();
    AddReport();
    const std::string page = PrintedPage();
    QVERIFY(Holds(page, "Page 1\r\n"));
    QVERIFY(!Holds(page, "2026"));
    QVERIFY(Holds(page, "Notes\r\n"));
  }

  void Op13MakesTheIconsLarge() {
    window().Start();
    const QSize small = window().Find<QToolBar>("Standard")->iconSize();
    window().End();
    window().store().Write("Op13", "1");
    window().Start();
    const QSize large = window().Find<QToolBar>("Standard")->iconSize();
    QVERIFY(large.width() > small.width());
    QVERIFY(large.height() > small.height());
  }

  void Op14IsWhereTheDialogsOfDataStart() {
    window().Start();
    window().Trigger(102);
    QCOMPARE(window().script().open_dialogs.back().initial_folder, window().program_folder() / "Data");
    window().End();
    window().store().Write("Op14", (window().folder() / "documents").string());
    window().Start();
    window().Trigger(102);
    QCOMPARE(window().script().open_dialogs.back().initial_folder, window().folder() / "documents");
  }

  void ASecondStartLeavesWhatIsStored() {
    window().store().Write("Op6", "3");
    window().Start();
    QCOMPARE(window().session().settings.Op6, 3);
    window().End();
    QCOMPARE(window().Setting("Op6"), std::string("3"));
    QCOMPARE(window().Setting("Op16"), std::string("1"));
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::SettingsKeysTest)
#include "settings_keys_test.moc"
