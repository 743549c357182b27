#include <QFileInfo>
#include <QMenu>
#include <QTextDocument>

#include "window_fixture.h"

namespace tessara {

// The list of recent files, as the menu shows it and as the next start finds it.
class RecentFilesTest : public QObject {
  Q_OBJECT

  std::unique_ptr<WindowFixture> window_;
  WindowFixture& window() { return *window_; }

  Path WriteScores(const std::string& name) { return window().WriteDataFile(name, {"AGE"}, {{"34"}, {"41"}}); }
  void Open(const Path& path) {
    window().ShowView(View::ViewDataGrid);
    window().script().open_answers.push_back(WindowFixture::Chosen(path));
    window().Trigger(102);
  }
  QMenu* Menu() { return window().Find<QMenu>("RecentFiles"); }
  // The files of the menu in their order, by name, without the numbers ahead of them.
  QStringList Names() {
    emit Menu()->aboutToShow();
    QStringList names;
    for (const QAction* action : Menu()->actions()) names += action->text().section("  ", 1);
    return names;
  }
  QStringList OpenOneAfterTheOther(int count) {
    QStringList latest_first;
    for (int i = 1; i <= count; ++i) {
      const std::string name = "file" + std::to_string(i) + ".dcs";
      Open(WriteScores(name));
      latest_first.prepend(QString::fromStdString(name));
    }
    return latest_first;
  }

 private slots:
  void init() { window_ = std::make_unique<WindowFixture>(); }
  void cleanup() { window_.reset(); }

  void WithoutFilesThereIsNothingToChoose() {
    window().Start();
    QVERIFY(Names().isEmpty());
    QVERIFY(!Menu()->isEnabled());
  }

  void TheLatestStandsFirst() {
    window().Start();
    const QStringList latest_first = OpenOneAfterTheOther(3);
    QCOMPARE(Names(), latest_first);
    QVERIFY(Menu()->isEnabled());
    QVERIFY(Menu()->actions()[0]->text().startsWith("&1"));
    QVERIFY(Menu()->actions()[2]->text().startsWith("&3"));
  }

  void EightAreKept() {
    window().Start();
    const QStringList latest_first = OpenOneAfterTheOther(10);
    QCOMPARE(Names(), latest_first.mid(0, 8));
    window().End();
    window().Start();
    QCOMPARE(Names(), latest_first.mid(0, 8));
  }

  void AFileThatIsOpenedAgainStandsThereOnce() {
    window().Start();
    OpenOneAfterTheOther(3);
    Open(window().program_folder() / "Data" / "file1.dcs");
    QCOMPARE(Names(), QStringList({"file1.dcs", "file3.dcs", "file2.dcs"}));
  }

  void AFileThatIsSavedUnderANewNameIsAmongThem() {
    window().Start();
    Open(WriteScores("scores.dcs"));
    const Path target = window().folder() / "kept.dcs";
    window().script().save_answers.push_back(WindowFixture::Chosen(target));
    window().Trigger(110);
    QVERIFY(std::filesystem::exists(target));
    QCOMPARE(Names(), QStringList({"kept.dcs", "scores.dcs"}));
  }

  void AFileThatHasVanishedLeavesTheListWhenTheMenuOpens() {
    window().Start();
    OpenOneAfterTheOther(3);
    std::filesystem::remove(window().program_folder() / "Data" / "file2.dcs");
    QCOMPARE(Names(), QStringList({"file3.dcs", "file1.dcs"}));
    WriteScores("file2.dcs");  // it is forgotten, and does not come back with the file
    QCOMPARE(Names(), QStringList({"file3.dcs", "file1.dcs"}));
  }

  // A folder of that name is there, but nothing that can be read: the list lets it go, and the data stay.
  void AFileThatCannotBeReadLeavesTheList() {
    window().Start();
    OpenOneAfterTheOther(2);
    emit Menu()->aboutToShow();
    const Path first = window().program_folder() / "Data" / "file1.dcs";
    std::filesystem::remove(first);
    Menu()->actions()[1]->trigger();  // file1, as the menu was drawn
    QCoreApplication::processEvents();
    QCOMPARE(Names(), QStringList("file2.dcs"));
    QVERIFY(window().frame().windowTitle().contains("file2.dcs"));
    QCOMPARE(window().Pane(2), "2 Records");
  }

  void ANameWithAnAmpersandIsShownWhole() {
    window().Start();
    const Path file = WriteScores("salt & pepper.dcs");
    Open(file);
    emit Menu()->aboutToShow();
    QCOMPARE(Menu()->actions()[0]->text(), "&1  salt && pepper.dcs");  // a single one would underline the blank
    QTextDocument hint;
    hint.setHtml(Menu()->actions()[0]->toolTip());
    QCOMPARE(hint.toPlainText(), PathToQt(file));
  }

  // The menu belongs to the views that a data file matters to.
  void TheMenuShowsInTheGridAndThePanel() {
    window().Start();
    window().ShowView(View::ViewDataGrid);
    QVERIFY(Menu()->menuAction()->isVisible());
    window().ShowView(View::ViewStatProcs);
    QVERIFY(Menu()->menuAction()->isVisible());
    window().ShowView(View::ViewOutput);
    QVERIFY(!Menu()->menuAction()->isVisible());
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::RecentFilesTest)
#include "recent_files_test.moc"
