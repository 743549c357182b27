#include <QAbstractItemModel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QRadioButton>

#include "window/grid/grid_view.h"
#include "window/stat_procs/variable_lists.h"
#include "window_fixture.h"

namespace tessara {

// Samples, subsets and the data dictionary in the frame, with a look at the file on disk.
class SamplingTest : public QObject {
  Q_OBJECT

  static constexpr int kUndoCommand = 214;
  static constexpr int kRedoCommand = 215;

  std::unique_ptr<WindowFixture> window_;
  Path file_;
  std::string before_;

  WindowFixture& window() { return *window_; }
  DataSet& data() { return window().session().data; }
  GridView* grid() { return window().Find<GridView>("MSFlexGrid1"); }
  QLineEdit* Box(const char* name) { return window().Find<QLineEdit>(name); }
  void Press(const char* button) {
    window().Find<QPushButton>(button)->click();
    QCoreApplication::processEvents();
  }
  Path Kept() { return file_.parent_path() / "numbers (as found).dcs"; }
  QString Shown(int row, int column) { return grid()->model()->index(row, column).data().toString(); }

  // A procedure of the panel, as a user chooses it.
  void Choose(const char* option) {
    window().ShowView(View::ViewStatProcs);
    window().Find<QRadioButton>(option)->click();
    QCoreApplication::processEvents();
  }
  void Pick(int row) {
    auto* list = window().Find<VariableListView>("List1");
    list->setCurrentIndex(list->model()->index(row, 0));
  }
  void Type(const char* box, const QString& text) {
    Box(box)->setFocus();
    Box(box)->selectAll();
    QTest::keyClicks(Box(box), text);
  }

 private slots:
  // Forty records of ID and ODD.
  void init() {
    window_ = std::make_unique<WindowFixture>();
    window().script().entropy = 42;
    std::vector<std::vector<std::string>> records;
    for (int i = 1; i <= 40; ++i) records.push_back({std::to_string(i), std::to_string(i % 2)});
    file_ = window().WriteDataFile("numbers.dcs", {"ID", "ODD"}, records);
    before_ = WindowFixture::ReadFile(file_);
    window().Start();
    window().script().open_answers.push_back(WindowFixture::Chosen(file_));
    window().Trigger(102);
  }
  void cleanup() { window_.reset(); }

  void EnterInTheBoxDrawsASampleThatUndoTakesBack() {
    Choose("Option18");
    QCOMPARE(Box("Text8")->placeholderText(), QString("of 40 records"));
    Type("Text8", "10");
    QTest::keyClick(Box("Text8"), Qt::Key_Return);
    QCOMPARE(data().RecordCount, std::size_t{10});
    QVERIFY(window().script().messages.empty());  // the procedure of the panel has not been run
    QCOMPARE(window().Find<QLabel>("Label27")->text(), QString("Randomization Complete"));
    QVERIFY(window().Find<QProgressBar>("ProgressBar3")->isHidden());
    QCOMPARE(Box("Text8")->placeholderText(), QString("of 10 records"));
    QVERIFY(!window().frame().isWindowModified());
    QCOMPARE(WindowFixture::ReadFile(file_), before_);

    window().ShowView(View::ViewDataGrid);
    QCOMPARE(grid()->model()->rowCount(), 10);
    QCOMPARE(window().Pane(2), QString("10 Records"));
    // Worked out by another program.
    QCOMPARE(Shown(0, 0), QString("11"));
    QCOMPARE(Shown(1, 0), QString("19"));
    QTest::keyClick(grid(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(grid()->model()->rowCount(), 40);
    QCOMPARE(Shown(0, 0), QString("1"));
    QTest::keyClick(grid(), Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(grid()->model()->rowCount(), 10);
    QCOMPARE(Shown(0, 0), QString("11"));
  }

  void ASaveReplacesTheFileAndKeepsWhatItHeld() {
    Choose("Option18");
    Type("Text8", "10");
    Press("CreateSample");
    window().ShowView(View::ViewDataGrid);
    window().Trigger(103);
    QVERIFY(WindowFixture::ReadFile(file_).starts_with("10 2 Tessara data"));
    QCOMPARE(WindowFixture::ReadFile(Kept()), before_);
    QVERIFY(window().Pane(1).contains("kept as numbers (as found).dcs"));
  }

  void ANumberThatIsNoSampleDoesNothing() {
    Choose("Option18");
    for (const char* size : {"41", "0", "ten", ""}) {
      Box("Text8")->clear();
      Type("Text8", size);
      Press("CreateSample");
      QCOMPARE(data().RecordCount, std::size_t{40});
      QVERIFY(window().script().messages.empty());
    }
  }

  void IterationsReplaceTheDataAndShowTheirReport() {
    Choose("Option19");
    QCOMPARE(window().Find<QLabel>("RunSummary")->text(), QString("Repeated Sampling: choose a variable in the list"));
    Pick(1);
    QCOMPARE(window().Find<QLabel>("RunSummary")->text(), QString("Repeated Sampling: ID"));
    Type("Text15", "5");
    Type("Text16", "1500");
    QTest::keyClick(Box("Text16"), Qt::Key_Return);
    QVERIFY(window().script().messages.empty());
    QCOMPARE(window().frame().current_view()->view(), View::ViewOutput);
    const std::string& text = window().session().output.MostRecentText;
    QVERIFY(text.starts_with(" ----------------------------------------------------\r\n| Results of Random Sampling."));
    QVERIFY(text.find("| Variable Randomized:        ID ") != std::string::npos);
    QCOMPARE(window().Pane(1), QString("There are 194,000 data cells remaining."));
    QCOMPARE(window().session().charts.charts.size(), std::size_t{3});

    window().ShowView(View::ViewStatProcs);
    QCOMPARE(window().Find<QLabel>("Label28")->text(), QString("Random Selection Complete"));
    QVERIFY(window().Find<QProgressBar>("ProgressBar4")->isHidden());
    QCOMPARE(Box("Text15")->text(), QString());
    QCOMPARE(Box("Text16")->text(), QString());
    QCOMPARE(QString::fromStdString(data().ProjectNotes),
             QString("Results from multiple random samples of ID. Based on 1500 random samples of sample size 5."));

    window().ShowView(View::ViewDataGrid);
    QCOMPARE(grid()->model()->headerData(1, Qt::Horizontal).toString(), QString("Mean"));
    // IterNum and Count as they stand, Mean and StdDev with five decimals.
    QCOMPARE(Shown(1499, 0), QString("1500"));
    QCOMPARE(Shown(0, 3), QString("5"));
    for (const int column : {1, 2}) {
      const QString shown = Shown(0, column);
      QCOMPARE(shown.section('.', 1).size(), 5);
      const double held = data().matrix.Cell(kFirstRecordRow, static_cast<std::size_t>(column + 1)).number();
      QVERIFY(std::abs(shown.toDouble() - held) <= 0.0000051);
    }
    QCOMPARE(WindowFixture::ReadFile(file_), before_);
    window().Trigger(kUndoCommand);
    QCOMPARE(grid()->model()->columnCount(), 2);
    QCOMPARE(Shown(39, 0), QString("40"));
    window().Trigger(kRedoCommand);
    QCOMPARE(Shown(0, 1).section('.', 1).size(), 5);
  }

  void TheBoxesOfTheIterationsComeInTheirOrder() {
    Choose("Option19");
    const auto pressed = [this] {
      window().script().messages.clear();
      Press("RunIterations");
      return window().script().messages.size() == 1 ? window().script().messages[0].text : std::string();
    };
    QCOMPARE(pressed(), std::string("Please enter a sample size."));
    Type("Text15", "40");
    QCOMPARE(pressed(), std::string("Please enter a sample size that is less than the current size of the data file."));
    Type("Text15", "5");
    QCOMPARE(pressed(), std::string("Please enter the number of iterations."));
    Type("Text16", "3");
    QCOMPARE(pressed(), std::string("Please select a variable from the listbox."));
    QCOMPARE(data().RecordCount, std::size_t{40});
  }

  void TheQuestionAboutUnsavedDataSavesElsewhereAndEnds() {
    window().session().panel.PickedVariable = 0;
    Choose("Option19");
    Pick(2);
    Type("Text15", "5");
    Type("Text16", "30");
    data().DataDirty = true;
    const Path elsewhere = file_.parent_path() / "changed.dcs";
    window().script().message_answers = {Answer::kYes};
    window().script().save_answers.push_back(WindowFixture::Chosen(elsewhere));
    Press("RunIterations");
    QCOMPARE(data().RecordCount, std::size_t{40});
    QCOMPARE(WindowFixture::ReadFile(elsewhere), before_);
    QCOMPARE(Box("Text16")->text(), QString("30"));
    Press("RunIterations");
    QCOMPARE(data().RecordCount, std::size_t{30});
  }

  void RunMakesASubsetOfTheControlledCases() {
    window().ShowView(View::ViewStatProcs);
    Pick(2);
    window().Find<QAbstractButton>("Image2(2)")->click();
    window().Find<QRadioButton>("Option10")->click();
    Type("Text3", "1");
    window().script().message_answers = {Answer::kNo, Answer::kYes};
    Press("RunButton");
    QCOMPARE(data().RecordCount, std::size_t{40});
    Press("RunButton");
    QCOMPARE(data().RecordCount, std::size_t{20});
    QCOMPARE(window().script().messages.size(), std::size_t{3});
    QCOMPARE(window().script().messages[2].title, std::string("Subgroup Procedure Completed!"));
    QCOMPARE(window().frame().current_view()->view(), View::ViewStatProcs);
    QCOMPARE(window().Find<QLineEdit>("Text18")->text(), QString());
    QCOMPARE(window().Pane(1), QString("There are 199,960 data cells remaining."));
    QCOMPARE(window().Pane(2), QString("20 Records"));
    QCOMPARE(WindowFixture::ReadFile(file_), before_);
    window().ShowView(View::ViewDataGrid);
    QCOMPARE(Shown(19, 0), QString("39"));
    QTest::keyClick(grid(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(Shown(39, 0), QString("40"));
  }

  void TheDictionaryComesFromTheMenuToTheOutput() {
    QVERIFY(window().Command(307)->isVisible() && window().Command(307)->isEnabled());
    window().Trigger(307);
    QCOMPARE(window().frame().current_view()->view(), View::ViewOutput);
    QVERIFY(window().session().output.MostRecentText.starts_with(
        "FILE DATA DICTIONARY\t(As of 11/5/2026)\r\n" + std::string(96, '_') + "\r\nFilename: numbers.dcs\r\n"));
    window().ShowView(View::ViewDataGrid);
    QCOMPARE(data().CurrentRow, std::size_t{0});
    QCOMPARE(data().CurrentColumn, std::size_t{1});
  }

  void PrintOnThePanelPrintsTheNotes() {
    window().ShowView(View::ViewStatProcs);
    window().script().print_answers = {PrintChoice{}};
    window().Trigger(106);
    QCOMPARE(window().script().printed.size(), std::size_t{1});
    QVERIFY(window().script().printed[0][0].starts_with("TESSARA DATA FILE:  numbers.dcs\r\n"));
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::SamplingTest)
#include "sampling_test.moc"
