#include <QCheckBox>
#include <QDockWidget>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QScreen>
#include <QSettings>
#include <QTabBar>
#include <QTabWidget>

#include "window/stat_procs/variable_lists.h"
#include "window_fixture.h"

namespace tessara {

// The frame as a user meets it: menus, tabs, panes, the help pane, files that are opened in several ways.
class FrameTest : public QObject {
  Q_OBJECT

  std::unique_ptr<WindowFixture> window_;
  WindowFixture& window() { return *window_; }

  Path WriteScores(const char* name = "scores.dcs") {
    return window().WriteDataFile(name, {"AGE", "SEX"}, {{"34", "1"}, {"41", "2"}, {"29", "2"}, {"55", "1"}});
  }
  void OpenByMenu(const Path& path) {
    window().script().open_answers.push_back(WindowFixture::Chosen(path));
    window().Trigger(102);
  }
  // The help pane's own box: the procedure panel has one of that name too.
  QAbstractButton* ShowAtStart() {
    return window().Find<QDockWidget>("TaskPanel")->findChild<QAbstractButton*>("Check11");
  }
  QTabWidget* Workspace() { return window().Find<QTabWidget>("workspace"); }
  bool Drop(const Path& path) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(PathToQt(path))});
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window().frame(), &enter);
    if (!enter.isAccepted()) return false;
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window().frame(), &drop);
    return true;
  }

 private slots:
  void init() { window_ = std::make_unique<WindowFixture>(); }
  void cleanup() { window_.reset(); }

  void TabsStandInTheirOrder() {
    window().Start();
    QStringList tabs;
    for (int i = 0; i < Workspace()->count(); ++i) {
      tabs += Workspace()->tabText(i);
      QVERIFY(!Workspace()->tabIcon(i).isNull());
    }
    QCOMPARE(tabs.join(","), "Data Grid,Stat Procs,Output,Charts,Brevarum,Glossary,Handbook");
    QCOMPARE(window().session().ActiveView, View::ViewDataGrid);
  }

  void AllTabsStayInSightInTheLeastSize() {
    window().store().Write("Op16", "0");
    window().Start();
    window().frame().resize(9800 / 15, 7400 / 15);
    QCoreApplication::processEvents();
    QVERIFY(Workspace()->tabBar()->sizeHint().width() <= Workspace()->width());
    window().frame().resize(1400, 900);
    QCoreApplication::processEvents();
    QVERIFY(Workspace()->iconSize().width() > 0);  // and with room enough they have their icons
  }

  void WithQuickTipsOnTipsIsOnTopAfterTheStart() {
    window().store().Write("Op16", "0");
    window().Start();
    QTRY_COMPARE(window().session().ActiveView, View::ViewTips);
  }

  void AnEmptyDataSetIsThereAtTheStart() {
    window().Start();
    QCOMPARE(window().Pane(1), "Ready");
    QCOMPARE(window().Pane(2), "1000 Records");
    QCOMPARE(window().Pane(3), "20 Variables");
  }

  void OpenByTheMenuShowsTheFile() {
    window().Start();
    OpenByMenu(WriteScores());
    QCOMPARE(window().script().open_dialogs.size(), std::size_t{1});
    QCOMPARE(window().script().open_dialogs[0].title, std::string("Open"));
    QCOMPARE(window().script().open_dialogs[0].filter, std::string("Tessara data files (*.dcs)|*.dcs"));
    QCOMPARE(window().Pane(2), "4 Records");
    QCOMPARE(window().Pane(3), "2 Variables");
    QVERIFY(window().frame().windowTitle().contains("scores.dcs"));
  }

  void AFileOfTheCommandLineIsOpenBeforeTheFirstViewShows() {
    window().Start(WriteScores());
    QCOMPARE(window().Pane(2), "4 Records");
    QCOMPARE(window().session().data.DataFileTitle.find("scores.dcs") != std::string::npos, true);
  }

  void ADroppedDataFileIsOpenedAndOthersAreNot() {
    window().Start();
    QVERIFY(Drop(WriteScores()));
    QTRY_COMPARE(window().Pane(2), "4 Records");
    QVERIFY(!Drop(window().WriteFile("notes.txt", "x")));
    QCOMPARE(window().Pane(2), "4 Records");
  }

  void ASaveGoesToTheFileThatWasOpenedLast_data() {
    QTest::addColumn<bool>("dropped");
    QTest::newRow("dropped") << true;
    QTest::newRow("recent") << false;
  }
  void ASaveGoesToTheFileThatWasOpenedLast() {
    QFETCH(bool, dropped);
    const Path first = WriteScores("first.dcs");
    const Path second = window().WriteDataFile("second.dcs", {"WT", "HT"}, {{"70", "1.8"}});
    const std::string first_text = WindowFixture::ReadFile(first);
    window().Start();
    if (!dropped) OpenByMenu(second);
    OpenByMenu(first);
    if (dropped) {
      QVERIFY(Drop(second));
    } else {
      window().Find<QMenu>("RecentFiles")->actions().at(1)->trigger();
    }
    QCoreApplication::processEvents();
    QCOMPARE(window().Pane(2), "1 Records");
    QCOMPARE(window().session().data.DataFilePath, second);
    QVERIFY(window().frame().windowTitle().contains(" second.dcs"));  // the file name alone
    QVERIFY(window().Find<QMenu>("RecentFiles")->actions().at(0)->text().contains("second.dcs"));
    SetProjectNotes(window().session(), "seen");
    QTest::keyClick(&window().frame(), Qt::Key_S, Qt::ControlModifier);
    QVERIFY(window().script().save_dialogs.empty());
    QCOMPARE(WindowFixture::ReadFile(first), first_text);
    QVERIFY(WindowFixture::ReadFile(second).starts_with("1 2 Tessara data\x01seen\r\n"));
  }

  void AFileOfTheCommandLineIsProposedByTheFirstSave() {
    const Path scores = WriteScores();
    window().Start(scores);
    window().Trigger(103);
    QCOMPARE(window().script().save_dialogs.size(), std::size_t{1});
    QCOMPARE(window().script().save_dialogs[0].initial_folder, scores.parent_path());
    QCOMPARE(window().script().save_dialogs[0].initial_name, std::string("scores.dcs"));
    QVERIFY(window().script().messages.empty());
  }

  void RecentFilesOpenAgainAfterARestart() {
    const Path scores = WriteScores();
    window().Start();
    OpenByMenu(scores);
    window().Trigger(101);
    QCOMPARE(window().Pane(2), "1000 Records");
    window().End();
    window().Start();
    auto* recent = window().Find<QMenu>("RecentFiles");
    QVERIFY(!recent->actions().isEmpty());
    QVERIFY(recent->actions()[0]->text().contains("scores.dcs"));
    recent->actions()[0]->trigger();
    QTRY_COMPARE(window().Pane(2), "4 Records");
  }

  void AFileThatHasVanishedLeavesTheDataAndShowsNoBox() {
    const Path scores = WriteScores();
    window().Start();
    OpenByMenu(scores);
    std::filesystem::remove(scores);
    window().frame().OpenFile(scores);
    QCOMPARE(window().Pane(2), "4 Records");
    QVERIFY(window().script().messages.empty());
  }

  void SaveWritesAndSaysSo() {
    window().Start();
    const Path scores = WriteScores();
    OpenByMenu(scores);
    std::string expected = WindowFixture::ReadFile(scores);
    expected.insert(expected.find("\r\n"), "\x01");  // the field of the notes, which the file lacked
    window().Trigger(103);
    QCOMPARE(window().Pane(1), "Save Completed");
    QCOMPARE(WindowFixture::ReadFile(scores), expected);
  }

  void TheWholeJobByMouse() {
    window().Start(WriteScores());
    window().ShowView(View::ViewStatProcs);
    window().Find<QRadioButton>("Option1")->click();
    auto* list = window().Find<VariableListView>("List1");
    const QModelIndex sex = list->model()->index(2, 0);  // behind "None" and AGE
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(sex).center());
    window().Find<QAbstractButton>("Image2(0)")->click();
    window().Find<QPushButton>("RunButton")->click();
    QCoreApplication::processEvents();
    QCOMPARE(window().session().ActiveView, View::ViewOutput);
    const QString report = window().Find<QPlainTextEdit>("RichText1")->toPlainText();
    QVERIFY(report.startsWith("Frequencies\n\nVariable: SEX     \n\n"));
    QVERIFY(report.contains("1                               2        50.00          50.00\n"));
    QVERIFY(report.contains("<Page Break>"));
  }

  void TheWholeJobByKeyboard() {
    window().Start(WriteScores());
    window().ShowView(View::ViewStatProcs);
    auto* descriptives = window().Find<QRadioButton>("Option2");
    descriptives->setFocus();
    QTest::keyClick(descriptives, Qt::Key_Space);
    auto* list = window().Find<VariableListView>("List1");
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Home);
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Return);
    window().Command(308)->trigger();
    QCoreApplication::processEvents();
    const QString report = window().Find<QPlainTextEdit>("RichText1")->toPlainText();
    QVERIFY(report.startsWith("Descriptive Statistics\nVariable: AGE     \n"));
    QVERIFY(report.contains("Mean                          39.7500"));  // (34 + 41 + 29 + 55) / 4
  }

  void WhatIsChosenInThePanelStays() {
    window().Start(WriteScores());
    window().ShowView(View::ViewStatProcs);
    auto* panel = window().Find<QWidget>("StatProc1");
    window().Find<QRadioButton>("Option4")->click();  // t-test
    auto* group = panel->findChild<QLineEdit*>("Text5");
    group->setFocus();
    QTest::keyClicks(group, "12");
    QCOMPARE(group->text(), "12");
    auto* summary = window().Find<QCheckBox>("Check2");
    window().Find<QRadioButton>("Option5")->click();  // analysis of variance
    QTest::mouseClick(summary, Qt::LeftButton, {}, QPoint(8, summary->height() / 2));
    QVERIFY(summary->isChecked());
    auto* greater = window().Find<QRadioButton>("Option8");
    greater->click();
    auto* value = panel->findChild<QLineEdit*>("Text1");
    QVERIFY(greater->isChecked() && value->isEnabled());
    QTest::keyClicks(value, "30");
    QCOMPARE(value->text(), "30");
    QVERIFY(summary->isChecked() && greater->isChecked());
    QTest::mouseClick(summary, Qt::LeftButton, {}, QPoint(8, summary->height() / 2));
    QVERIFY(!summary->isChecked());
    QCOMPARE(value->text(), "30");
  }

  void TheFocusIsSeenOnListsAndTexts() {
    window().Start(WriteScores());
    window().ShowView(View::ViewBrevarum);
    auto* compact = window().Find<QPlainTextEdit>("T5");
    compact->setFocus();
    QTRY_VERIFY(window().frame().findChild<QWidget*>("FocusOutline"));
    auto* outline = window().Find<QWidget>("FocusOutline");
    QVERIFY(outline->isVisible());
    QCOMPARE(outline->parentWidget(), compact->parentWidget());
    QCOMPARE(outline->geometry(), compact->geometry());
    window().frame().resize(window().frame().width() + 50, window().frame().height() + 40);
    QTRY_COMPARE(outline->geometry(), compact->geometry());
    window().ShowView(View::ViewStatProcs);
    window().Find<QWidget>("Image2(0)")->setFocus();
    QTRY_VERIFY(!window().frame().findChild<QWidget*>("FocusOutline"));
  }

  void TabGoesFromEachArrowToItsList() {
    window().Start(WriteScores());
    window().ShowView(View::ViewStatProcs);
    window().Find<QRadioButton>("Option3")->click();
    QWidget* at = window().Find<QWidget>("Image2(0)");
    QStringList names;
    for (int i = 0; i < 7; ++i) {
      names += at->objectName();
      at->setFocus();
      QTest::keyClick(at, Qt::Key_Tab);
      at = QApplication::focusWidget();
    }
    QCOMPARE(names, QStringList({"Image2(0)", "List2", "Image2(1)", "List3", "Image2(2)", "Text18", "ResetVar"}));
  }

  void TheSummaryStatisticsOfAnAnovaByMouse() {
    window().Start(WriteScores());
    window().ShowView(View::ViewStatProcs);
    window().Find<QRadioButton>("Option5")->click();
    auto* list = window().Find<VariableListView>("List1");
    for (const auto& [row, arrow] : {std::pair{1, "Image2(0)"}, std::pair{2, "Image2(1)"}}) {
      QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(list->model()->index(row, 0)).center());
      window().Find<QAbstractButton>(arrow)->click();
    }
    window().Find<QCheckBox>("Check2")->click();
    window().Find<QPushButton>("RunButton")->click();
    QCoreApplication::processEvents();
    const QString report = window().Find<QPlainTextEdit>("RichText1")->toPlainText();
    QVERIFY(report.contains("Group Summary Statistics"));
    QVERIFY(report.contains("44.5000"));  // (34 + 55) / 2
  }

  void WithOp10OffTheOutputStaysBehind() {
    window().store().Write("Op10", "1");
    window().Start(WriteScores());
    window().ShowView(View::ViewStatProcs);
    window().Find<QRadioButton>("Option1")->click();
    auto* list = window().Find<VariableListView>("List1");
    list->setCurrentIndex(list->model()->index(1, 0));
    window().Find<QAbstractButton>("Image2(0)")->click();
    window().Command(308)->trigger();
    QCOMPARE(window().session().ActiveView, View::ViewStatProcs);
    QVERIFY(!window().session().output.MostRecentText.empty());
  }

  void ARefusedRunShowsItsBoxAndNoOutput() {
    window().Start();
    window().ShowView(View::ViewStatProcs);
    window().Command(308)->trigger();
    QCOMPARE(window().script().messages.size(), std::size_t{1});
    QCOMPARE(window().script().messages[0].text, std::string("Please select a dependent variable."));
    QCOMPARE(window().session().ActiveView, View::ViewStatProcs);
  }

  void CommandsShowInTheirViews() {
    window().Start(WriteScores());
    struct Row {
      View view;
      bool open, run, print, convert, toggle;
    };
    const Row rows[] = {{View::ViewDataGrid, true, false, false, false, false},
                        {View::ViewStatProcs, false, true, true, false, false},
                        {View::ViewOutput, true, false, true, true, true},
                        {View::ViewCharts, false, false, true, false, false},
                        {View::ViewHandbook, false, false, true, false, false}};
    for (const Row& row : rows) {
      window().ShowView(row.view);
      QCOMPARE(window().Command(102)->isVisible(), row.open);
      QCOMPARE(window().Command(308)->isVisible(), row.run);
      QCOMPARE(window().Command(106)->isVisible(), row.print);
      QCOMPARE(window().Command(211)->isVisible(), row.convert);
      QCOMPARE(window().Command(350)->isVisible(), row.toggle);
    }
  }

  void WhatCannotBePrintedYetSaysSoInTheStatusBar() {
    window().Start(WriteScores());
    window().ShowView(View::ViewBrevarum);
    QVERIFY(!window().Command(106)->isEnabled());
    QCOMPARE(window().Command(106)->statusTip(), "There is no result yet");
    window().ShowView(View::ViewStatProcs);
    QVERIFY(window().Command(106)->isEnabled());
    window().ShowView(View::ViewCharts);
    QVERIFY(window().Command(106)->isEnabled());
    QCOMPARE(window().Command(106)->statusTip(), "");
  }

  void TheTipsPrintFromTheCommandToo() {
    window().WriteFile(window().program_folder() / "Help" / "t0.html", "<title>First</title><p>A tip</p>");
    window().store().Write("Op16", "0");
    window().Start();
    window().ShowView(View::ViewTips);
    window().Trigger(106);
    QCOMPARE(window().script().print_dialogs.size(), std::size_t{1});
    QCOMPARE(window().script().print_dialogs[0].title, std::string("Print"));
  }

  void AMessageLeavesWithTheNextOperation() {
    window().Start();
    OpenByMenu(WriteScores());
    window().Trigger(103);
    QCOMPARE(window().Pane(1), "Save Completed");
    window().Trigger(602);
    QCOMPARE(window().Pane(1), "Ready");
    window().Trigger(103);
    QCOMPARE(window().Pane(1), "Save Completed");
    QVERIFY(Drop(WriteScores("other.dcs")));
    QCOMPARE(window().Pane(1), "Ready");
  }

  // Each pane once for a run, whatever views it brings to the front.
  void StatusIsWorkedOutOnceARun() {
    window().Start(WriteScores());
    window().ShowView(View::ViewStatProcs);
    window().Find<QRadioButton>("Option1")->click();
    auto* list = window().Find<VariableListView>("List1");
    list->setCurrentIndex(list->model()->index(1, 0));
    window().Find<QAbstractButton>("Image2(0)")->click();
    window().platform().pane_writes.clear();
    window().Command(308)->trigger();
    QCOMPARE(window().session().ActiveView, View::ViewOutput);
    QCOMPARE(window().platform().pane_writes[2], 1);
    QCOMPARE(window().platform().pane_writes[3], 1);
  }

  void TheUsersDataFolderIsTheWorkingFolder() {
    const Path scores = WriteScores();
    std::filesystem::current_path(scores.parent_path());
    window().Start("scores.dcs");  // as the folder of the call understands it
    QCOMPARE(window().Pane(2), "4 Records");
    QVERIFY(std::filesystem::equivalent(std::filesystem::current_path(), window().documents_folder() / "Tessara Data"));
  }

  void AFileOfAnyNameOpensAgainAfterARestart() {
    const Path odd = WriteScores("odd\n\xFF\t&%41,.dcs");
    window().Start();
    window().frame().OpenFile(odd);
    QCOMPARE(window().Pane(2), "4 Records");
    window().Trigger(101);
    window().End();
    window().Start();
    auto* recent = window().Find<QMenu>("RecentFiles");
    QCOMPARE(recent->actions().size(), qsizetype{1});
    recent->actions()[0]->trigger();
    QCOMPARE(window().Pane(2), "4 Records");
    QCOMPARE(window().session().data.DataFilePath, odd);
  }

  void AFileOfTheCommandLineIsARecentOne() {
    window().Start(WriteScores());
    QVERIFY(window().Find<QMenu>("RecentFiles")->actions().at(0)->text().contains("scores.dcs"));
  }

  void TheHelpPaneShowsThePageOfTheView() {
    window().WriteFile(window().program_folder() / "Help" / "UserManual1.html", "<p>About the grid</p>");
    window().WriteFile(window().program_folder() / "Help" / "UserManual5.html", "<p>About the output</p>");
    window().Start();
    auto* pane = window().Find<QDockWidget>("TaskPanel");
    QVERIFY(!pane->isVisible());
    window().Trigger(602);
    QVERIFY(pane->isVisible());
    QCOMPARE(pane->windowTitle(), "Help Window");
    auto* browser = window().Find<QWidget>("TaskPanel")->findChild<QTextEdit*>("WebBrowser1");
    QTRY_VERIFY(browser->toPlainText().contains("About the grid"));
    window().ShowView(View::ViewOutput);
    QTRY_VERIFY(browser->toPlainText().contains("About the output"));
    window().ShowView(View::ViewCharts);  // its page is missing: no crash, the program goes on
    window().Trigger(602);
    QVERIFY(!pane->isVisible());
  }

  void Check11WritesOp4AtItsClick() {
    window().Start();
    window().Trigger(602);
    auto* box = ShowAtStart();
    QVERIFY(!box->isChecked());
    box->click();
    QCOMPARE(window().Setting("Op4"), std::string("1"));
    box->click();
    QCOMPARE(window().Setting("Op4"), std::string("0"));
  }

  void WithOp4OnTheHelpPaneIsThereAtTheStart() {
    window().store().Write("Op4", "1");
    window().Start();
    QVERIFY(window().Find<QDockWidget>("TaskPanel")->isVisible());
    QVERIFY(ShowAtStart()->isChecked());
  }

  void AStoredSizeBelowTheLeastIsRaised() {
    window().store().Write("Op7", "300");
    window().store().Write("Op8", "11700");
    window().Start();
    QTRY_COMPARE(window().frame().height(), 7400 / 15);
    QCOMPARE(window().frame().width(), 11700 / 15);
  }

  void ASizeBeyondTheScreenIsBoundedByIt() {
    window().store().Write("Op7", "60000");
    window().store().Write("Op8", "90000");
    window().Start();
    const QSize screen = window().frame().screen()->availableSize();
    QVERIFY(screen.width() < 90000 / 15 && screen.height() < 60000 / 15);
    QTRY_COMPARE(window().frame().size(), screen);
  }

  void TheSizeIsStoredAtTheClose() {
    window().Start();
    window().frame().resize(900, 700);
    window().frame().close();
    QCOMPARE(window().Setting("Op8"), std::to_string(900 * 15));
    QCOMPARE(window().Setting("Op7"), std::to_string(700 * 15));
  }

  void ThePlaceAndTheMaximisedStateAreKept() {
    window().Start();
    window().frame().move(40, 30);
    window().frame().resize(700, 520);
    QCoreApplication::processEvents();
    const QPoint place = window().frame().pos();
    window().frame().close();
    window().End();
    window().Start();
    QCOMPARE(window().frame().pos(), place);
    QVERIFY(!window().frame().isMaximized());

    window().frame().showMaximized();
    QCoreApplication::processEvents();
    window().frame().close();
    window().End();
    window().Start();
    QVERIFY(window().frame().isMaximized());
    window().frame().showNormal();
    QCoreApplication::processEvents();
    QCOMPARE(window().frame().size(), QSize(700, 520));
  }

  void APlaceThatNoScreenShowsIsPassedOver() {
    window().store().Write("WindowPlace", "-9000 -9000 700 520 0");
    window().Start();
    QVERIFY(QGuiApplication::primaryScreen()->availableGeometry().intersects(window().frame().frameGeometry()));
  }

  void EverySettingThatIsStoredHasItsRow() {
    window().Start();
    OpenByMenu(WriteScores());
    window().Trigger(602);
    ShowAtStart()->click();
    window().frame().close();
    QSettings stored(PathToQt(window().folder() / "settings.ini"), QSettings::IniFormat);
    stored.beginGroup("Software/Tessara5/Options");
    for (const char* name : {"Op4", "Op7", "Op8", "RecentFiles", "WindowPlace"}) {
      QVERIFY2(stored.childKeys().contains(name), name);
    }
    for (const QString& name : stored.childKeys()) QVERIFY2(FindSetting(name.toStdString()), qPrintable(name));
  }

  void RepairAsksAndCopies() {
    window().WriteFile(window().program_folder() / "Help" / "iris.dcs", "the original");
    const Path practice = window().WriteFile("iris.dcs", "spoiled");
    window().Start();
    window().script().message_answers = {Answer::kCancel};
    window().Trigger(402);
    QCOMPARE(window().script().messages.back().title, std::string("Repair Practice Data Files"));
    QCOMPARE(WindowFixture::ReadFile(practice), std::string("spoiled"));
    window().script().message_answers = {Answer::kOk};
    window().Trigger(402);
    QCOMPARE(WindowFixture::ReadFile(practice), std::string("the original"));
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::FrameTest)
#include "frame_test.moc"
