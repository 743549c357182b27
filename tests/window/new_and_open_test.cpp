#include <QAbstractItemView>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>

#include "window/stat_procs/variable_lists.h"
#include "window_fixture.h"

namespace tessara {

// What New and Open leave behind: the views show the new text or data at once, and the commands follow.
class NewAndOpenTest : public QObject {
  Q_OBJECT

  std::unique_ptr<WindowFixture> window_;
  WindowFixture& window() { return *window_; }
  QPlainTextEdit* Sheet() { return window().Find<QPlainTextEdit>("RichText1"); }
  QAbstractItemView* Grid() { return window().Find<QAbstractItemView>("MSFlexGrid1"); }

  bool On(int id) { return window().Command(id)->isVisible() && window().Command(id)->isEnabled(); }
  void AddReport(const std::string& report) {
    OutputLog& output = window().session().output;
    BeginRun(output);
    AppendReport(output, report);
  }
  std::string Heading(int column) {
    return FromQt(Grid()->model()->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
  }
  // Whether a heading or a cell of the first rows reads like this.
  bool GridShows(const QString& text) {
    const QAbstractItemModel* model = Grid()->model();
    for (int column = 0; column < std::min(model->columnCount(), 30); ++column) {
      if (model->headerData(column, Qt::Horizontal).toString().contains(text)) return true;
      for (int row = 0; row < std::min(model->rowCount(), 5); ++row) {
        if (model->index(row, column).data().toString() == text) return true;
      }
    }
    return false;
  }
  // As many records and variables as a new data set has.
  Path WriteOfTheNewSize() {
    std::vector<std::string> names;
    for (int i = 1; i <= 20; ++i) names.push_back("X" + std::to_string(i));
    std::vector<std::vector<std::string>> records(1000, std::vector<std::string>(20, "77"));
    return window().WriteDataFile("wide.dcs", names, records);
  }
  void Open(const Path& path) {
    window().script().open_answers.push_back(WindowFixture::Chosen(path));
    window().Trigger(102);
  }

 private slots:
  void init() { window_ = std::make_unique<WindowFixture>(); }
  void cleanup() { window_.reset(); }

  // The size of the data does not change, and all the same every view shows the new ones.
  void NewDataOfTheSameSizeAreShown() {
    window().Start(WriteOfTheNewSize());
    QVERIFY(GridShows("X7"));
    QVERIFY(GridShows("77"));
    window().Trigger(101);
    QVERIFY(!GridShows("X7"));
    QVERIFY(!GridShows("77"));
    QVERIFY(GridShows("V7"));
    QCOMPARE(window().Pane(2), "1000 Records");
    window().ShowView(View::ViewStatProcs);
    const QAbstractItemModel* variables = window().Find<VariableListView>("List1")->model();
    QCOMPARE(variables->index(7, 0).data().toString(), "V7");
  }

  void OpenedDataOfTheSameSizeAreShown() {
    const Path wide = WriteOfTheNewSize();
    window().Start();
    QVERIFY(GridShows("V7"));
    Open(wide);
    QVERIFY(GridShows("X7"));
    QVERIFY(!GridShows("V7"));
    window().ShowView(View::ViewStatProcs);
    QCOMPARE(window().Find<VariableListView>("List1")->model()->index(7, 0).data().toString(), "X7");
  }

  void NewInTheGridForgetsTheFile() {
    window().Start(WriteOfTheNewSize());
    QVERIFY(window().frame().windowTitle().contains("wide.dcs"));
    window().Trigger(101);
    QVERIFY(!window().frame().windowTitle().contains("wide.dcs"));
    QVERIFY(!window().frame().isWindowModified());
    QVERIFY(On(103));
    window().Trigger(103);  // without a file Save asks for one
    QCOMPARE(window().script().save_dialogs.size(), std::size_t{1});
  }

  void NewInThePanelEmptiesIt() {
    window().Start(WriteOfTheNewSize());
    window().ShowView(View::ViewStatProcs);
    window().Find<QRadioButton>("Option1")->click();
    auto* list = window().Find<VariableListView>("List1");
    list->setCurrentIndex(list->model()->index(3, 0));
    window().Find<QAbstractButton>("Image2(0)")->click();
    QCOMPARE(window().Find<VariableListView>("List2")->model()->rowCount(), 1);
    window().Trigger(101);
    QCOMPARE(window().Find<VariableListView>("List2")->model()->rowCount(), 0);
    QCOMPARE(window().Pane(3), "20 Variables");  // the data stay
    QVERIFY(GridShows("X7"));
  }

  void NewInTheOutputAsksAndTurnsTheCommandsOff() {
    window().Start();
    AddReport("A report\r\n");
    window().ShowView(View::ViewOutput);
    QVERIFY(On(101) && On(102) && On(103) && On(106) && On(204) && On(211) && On(350));
    window().script().message_answers = {Answer::kNo};
    window().Trigger(101);
    QVERIFY(Sheet()->toPlainText().startsWith("A report"));
    QVERIFY(On(204) && On(211));
    window().script().message_answers = {Answer::kYes};
    window().Trigger(101);
    QVERIFY(Sheet()->toPlainText().isEmpty());
    QVERIFY(!On(204));
    QVERIFY(!On(211));
    QVERIFY(!window().Find<QAction>("PrintPreview")->isEnabled());
    QVERIFY(!window().Find<QAction>("PrintToPdf")->isEnabled());
    QVERIFY(Sheet()->hasFocus());
  }

  void TheFirstLetterTurnsThemOnAndTheLastOffAgain() {
    window().Start();
    window().ShowView(View::ViewOutput);
    QVERIFY(!On(204));
    QVERIFY(!On(211));
    Sheet()->setFocus();
    QTest::keyClicks(Sheet(), "a");
    QVERIFY(On(204));
    QVERIFY(On(211));
    QVERIFY(window().Find<QAction>("PrintToPdf")->isEnabled());
    QTest::keyClick(Sheet(), Qt::Key_Backspace);
    QVERIFY(!On(204));
    QVERIFY(!On(211));
  }

  void OpenInTheOutputTurnsThemOn() {
    window().Start();
    window().ShowView(View::ViewOutput);
    QVERIFY(!On(211));
    Open(window().WriteFile("report.txt", "Some text\r\n"));
    QVERIFY(Sheet()->toPlainText().startsWith("Some text\n"));
    QVERIFY(On(204));
    QVERIFY(On(211));
    QVERIFY(Sheet()->hasFocus());
  }

  void ASelectionTurnsCopyAndCutOn() {
    window().Start();
    AddReport("A report\r\n");
    window().ShowView(View::ViewOutput);
    QVERIFY(!On(205));
    QVERIFY(!On(213));
    window().Trigger(204);
    QVERIFY(On(205));
    QVERIFY(On(213));
    QTest::keyClick(Sheet(), Qt::Key_Left);
    QVERIFY(!On(205));
    QVERIFY(!On(213));
  }

  // The captions of Open and Save name what the view in front would open and save.
  void TheCaptionsFollowTheView() {
    window().Start();
    QCOMPARE(window().Command(102)->text().remove('&'), "Open Data File");
    QCOMPARE(window().Command(103)->text().remove('&'), "Save Data");
    QCOMPARE(window().Command(110)->text().remove('&'), "Save Data As...");
    window().ShowView(View::ViewOutput);
    QCOMPARE(window().Command(102)->text().remove('&'), "Open Text File");
    QCOMPARE(window().Command(103)->text().remove('&'), "Save Output");
    QVERIFY(!window().Command(110)->isVisible());
    window().ShowView(View::ViewDataGrid);
    QCOMPARE(window().Command(102)->text().remove('&'), "Open Data File");
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::NewAndOpenTest)
#include "new_and_open_test.moc"
