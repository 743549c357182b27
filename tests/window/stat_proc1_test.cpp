#include "window/stat_procs/stat_proc1.h"

#include <QAbstractItemModelTester>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QtTest>

#include "data/change_door.h"
#include "platform/scripted_platform.h"
#include "window/stat_procs/variable_lists.h"

namespace tessara {

using Columns = std::vector<std::size_t>;

class StatProc1Test : public QObject {
  Q_OBJECT

  ScriptedPlatform platform_;
  MemorySettingsStore store_;
  std::unique_ptr<Session> session_;
  std::unique_ptr<StatProc1> view_;

  template <typename Widget>
  Widget* Find(const char* name) {
    auto* found = view_->findChild<Widget*>(name);
    if (!found) qFatal("no %s", name);
    return found;
  }
  VariableListView* List(const char* name) { return Find<VariableListView>(name); }
  void Click(const char* name) { Find<QAbstractButton>(name)->click(); }
  ProcedurePanel& panel() { return session_->panel; }

  void Load(const std::vector<std::string>& names) {
    DataSet& data = session_->data;
    MatrixEditor(data).Replace(DataMatrix(10 + kFirstRecordRow, names.size()));
    data.RecordCount = 10;
    data.VariableCount = names.size();
    for (std::size_t i = 0; i < names.size(); ++i) MatrixEditor(data).SetText(kVariableNameRow, i + 1, names[i]);
    MatrixEditor(data).Replace(data.matrix);
    RebuildVariableLists(data);
    view_->ShowSession();
  }
  void Pick(int row, Qt::KeyboardModifiers keys = {}) {
    VariableListView* list = List("List1");
    QTest::mouseClick(list->viewport(), Qt::LeftButton, keys, list->visualRect(list->model()->index(row, 0)).center());
  }

 private slots:
  void init() {
    platform_ = {};
    session_ = std::make_unique<Session>(platform_, store_);
    MakeEmptyDataSet(session_->data);
    view_ = std::make_unique<StatProc1>(*session_);
    view_->resize(1200, 800);
    view_->show();
    QVERIFY(QTest::qWaitForWindowExposed(view_.get()));
    QApplication::setActiveWindow(view_.get());
    Load({"AGE", "SEX", "SMOKE", "WEIGHT"});
  }
  void cleanup() {
    view_.reset();
    session_.reset();
  }

  void TheListNamesEveryVariableBehindNone() {
    QAbstractItemModel* model = List("List1")->model();
    const QAbstractItemModelTester tester(model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QCOMPARE(model->rowCount(), 5);
    QCOMPARE(model->index(0, 0).data().toString(), QString("None"));
    QCOMPARE(model->index(4, 0).data().toString(), QString("WEIGHT"));
    QCOMPARE(List("List1")->toolTip(), QString("Select variable - click none to reset"));
    QCOMPARE(Find<QLabel>("Label1")->text(), QString("Variable List"));
    QCOMPARE(Find<QLabel>("Label4")->text(), QString("Control"));
  }

  void TheMouseChoosesVariables() {
    Pick(1);
    QCOMPARE(session_->panel.PickedVariable, std::size_t{1});
    Pick(3, Qt::ControlModifier);
    Click("Image2(0)");
    QCOMPARE(panel().SelectedVariables, (Columns{1, 3}));
    QCOMPARE(session_->panel.SelectedVariables.size(), std::size_t{2});
    QCOMPARE(List("List2")->model()->index(1, 0).data().toString(), QString("SMOKE"));
    Pick(2);
    Click("Image2(1)");
    QCOMPARE(panel().IndependentVariables, Columns{2});
    Click("Image2(2)");
    QCOMPARE(session_->panel.control_variable.column, std::size_t{2});
    QCOMPARE(Find<QLineEdit>("Text18")->text(), QString("SEX"));
  }

  void TheKeyboardAloneChoosesAndRuns() {
    QSignalSpy asked(view_.get(), &StatProc1::CommandRequested);
    auto* find = Find<QLineEdit>("FindVariable");
    find->setFocus();
    QTest::keyClicks(find, "smo");
    QTest::keyClick(find, Qt::Key_Return);
    QCOMPARE(panel().SelectedVariables, Columns{3});
    QVERIFY(find->text().isEmpty());
    QVERIFY(asked.isEmpty());

    VariableListView* list = List("List1");
    list->setFocus();
    list->setCurrentIndex(list->model()->index(1, 0));
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Return);
    QCOMPARE(panel().SelectedVariables, (Columns{3, 2}));

    auto* frequencies = Find<QRadioButton>("Option1");
    frequencies->setFocus();
    QTest::keyClick(frequencies, Qt::Key_Space);
    QCOMPARE(panel().selected, Procedure::kFrequencies);
    QTest::keyClick(frequencies, Qt::Key_F5);
    QCOMPARE(asked.size(), 1);
    QCOMPARE(asked[0][0].toInt(), 308);
  }

  void ADoubleClickAddsToTheFirstList() {
    VariableListView* list = List("List1");
    const QPoint place = list->visualRect(list->model()->index(2, 0)).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, place);
    QCOMPARE(panel().SelectedVariables, Columns{2});
  }

  void AnArrowWithoutASelectionRemovesWhatIsMarked() {
    panel().SelectedVariables = {1, 2, 3};
    view_->ShowSession();
    List("List2")->setCurrentIndex(List("List2")->model()->index(1, 0));
    Click("Image2(0)");
    QCOMPARE(panel().SelectedVariables, (Columns{1, 3}));
    QTest::keyClick(List("List2"), Qt::Key_Delete);
    List("List2")->setCurrentIndex(List("List2")->model()->index(0, 0));
    QTest::keyClick(List("List2"), Qt::Key_Delete);
    QVERIFY(panel().SelectedVariables.size() < 2);
    QVERIFY(platform_.messages.empty());
  }

  void AnArrowWithNothingToTakeAsksForAVariable() {
    Click("Image2(0)");
    QCOMPARE(platform_.messages.size(), std::size_t{1});
    QCOMPARE(platform_.messages[0].title, std::string("Procedure Aborted"));
    QCOMPARE(platform_.messages[0].text, std::string("You must select a variable from the list"));
  }

  void AProcedureRelabelsThePanel_data() {
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("tooltip");
    QTest::addColumn<QString>("label2");
    QTest::addColumn<QString>("label3");  // empty: List3 is off
    QTest::addColumn<QStringList>("boxes");
    const auto row = [](const char* option, const char* caption, const char* tooltip, const char* label2,
                        const char* label3, const QStringList& boxes) {
      QTest::newRow(option) << QString(option) << QString(caption) << QString(tooltip) << QString(label2)
                            << QString(label3) << boxes;
    };
    row("Option1", "Frequencies", "Counts and percentages", "Analysis Variable", "", {"Check2=Index of Dispersion"});
    row("Option2", "Descriptives", "Calculates summary statistics", "Analysis Variable", "",
        {"Check1=Show bar chart", "Check2=Save Z-scores"});
    row("Option3", "Crosstabulation", "Compare one categorical variable to another", "Rows", "Columns",
        {"Check1=Association", "Check11=Agreement", "Check12=Risk (2x2 only)", "Check2=Chi-Square Tests"});
    row("Option4", "T-test", "Compare two independent means", "Continuous Variable", "Categorical Variable", {});
    row("Option5", "One-Way ANOVA", "Compare 2 or more independent means", "Continuous Variable",
        "Categorical Variable", {"Check1=Post Hoc Test", "Check2=Summary Statistics"});
    row("Option6", "Correlation", "Compare two continuous variables", "Variable Y", "Variable X",
        {"Check2=Create Matrix"});
    row("Option7", "Regression", "Multiple and simple regression", "Variable Y", "Variable X",
        {"Check1=Save Residuals", "Check2=Summary Statistics"});
    row("Option12", "List Variables", "List up to 7 variables", "List Variables", "", {});
    row("Option17", "Diagnostic", "Diagnostic accuracy", "Test Variable-Rows", "Reference Variable-Cols", {});
    row("Option20", "Explore", "Explore descriptive statistics by subgroups", "Continuous Variable",
        "Categorical Variable", {});
    row("Reports", "Summary Tables", "", "Rows", "Columns",
        {"Check10=Sum", "Check3=Counts", "Check4=Percent", "Check5=Mean", "Check6=Standard Deviation",
         "Check7=Standard Error", "Check8=95% CI", "Check9=Count"});
  }
  void AProcedureRelabelsThePanel() {
    QFETCH(QString, option);
    QFETCH(QString, label3);
    QFETCH(QStringList, boxes);
    auto* button = Find<QRadioButton>(option.toLatin1().constData());
    QTEST(button->text(), "caption");
    QTEST(button->toolTip(), "tooltip");
    button->click();
    QTEST(Find<QLabel>("Label2")->text(), "label2");
    QCOMPARE(List("List3")->isEnabled(), !label3.isEmpty());
    if (!label3.isEmpty()) QCOMPARE(Find<QLabel>("Label3")->text(), label3);
    QStringList shown;
    for (int i = 1; i <= 12; ++i) {
      const QString name = QString("Check%1").arg(i);
      auto* box = Find<QCheckBox>(name.toLatin1().constData());
      if (!box->isHidden()) shown += name + "=" + box->text();
    }
    shown.sort();
    boxes.sort();
    QCOMPARE(shown, boxes);
    QCOMPARE(Find<QCheckBox>("Check2")->isChecked(), option == "Option3");
    QCOMPARE(Find<QLabel>("Label10")->text(), QString::fromStdString(std::string(ShownRow(panel())->example_heading)));
    QVERIFY(!Find<QPlainTextEdit>("Text9")->toPlainText().isEmpty());
  }

  void TheFieldsAreShownWhereTheyAreUsed() {
    Click("Option4");
    QVERIFY(!Find<QWidget>("Text5")->isHidden() && !Find<QWidget>("Text6")->isHidden());
    QVERIFY(Find<QWidget>("Text7")->isHidden());
    Click("Option12");
    QVERIFY(Find<QWidget>("Text5")->isHidden() && !Find<QWidget>("Text7")->isHidden());
    Click("Reports");
    QVERIFY(!Find<QWidget>("Combo1")->isHidden() && !Find<QWidget>("Option15")->isHidden());
    Click("Option18");
    QVERIFY(Find<QWidget>("Text8")->isVisible() && !Find<QWidget>("Text15")->isVisible());
    Click("Option19");
    QVERIFY(!Find<QWidget>("Text8")->isVisible() && Find<QWidget>("Text15")->isVisible());
  }

  void TheKindOfRegressionChangesItsBoxes() {
    Click("Option7");
    Click("Option22");
    QCOMPARE(panel().regression, RegressionKind::kLogistic);
    QCOMPARE(Find<QCheckBox>("Check1")->text(), QString("Save Predicted"));
    QVERIFY(!Find<QCheckBox>("Check2")->isHidden());
    QCOMPARE(Find<QCheckBox>("Check2")->text(), QString("Summary Statistics"));
    QCOMPARE(Find<QLabel>("Label10")->text(), QString("  Logistic Regression    [Example]"));
  }

  void TheSummaryNamesWhatWillBeCompared() {
    Click("Option3");
    panel().SelectedVariables = {1};
    panel().IndependentVariables = {2};
    Click("Option1");
    QVERIFY(Find<QLabel>("RunSummary")->text().contains(" by "));
    Click("Option2");
    QVERIFY(!Find<QLabel>("RunSummary")->text().contains(" by "));
    Click("Option12");
    QVERIFY(!Find<QLabel>("RunSummary")->text().contains(" by "));
  }

  void RunIsAskedForWithThePanelFilled() {
    QSignalSpy asked(view_.get(), &StatProc1::CommandRequested);
    Click("Option3");
    Click("Check1");
    Click("Check2");
    Pick(1);
    Click("Image2(2)");
    Click("Option10");
    Find<QLineEdit>("Text3")->setText("Male");
    Click("RunButton");
    QCOMPARE(asked.size(), 1);
    QCOMPARE(panel().selected, Procedure::kCrosstabulation);
    QVERIFY(panel().options.crosstabulation.association && !panel().options.crosstabulation.chi_square_tests);
    QCOMPARE(panel().control.relation, ControlRelation::kEqualTo);
    QCOMPARE(panel().control.value, std::string("Male"));
  }

  void TheRelationsExcludeEachOtherAndCanBeLetGo() {
    Click("Option8");
    QVERIFY(Find<QLineEdit>("Text1")->isEnabled());
    Click("Option13");
    QVERIFY(!Find<QRadioButton>("Option8")->isChecked());
    QVERIFY(!Find<QLineEdit>("Text1")->isEnabled());
    Click("Option13");
    QVERIFY(!Find<QRadioButton>("Option13")->isChecked());
    view_->StoreWidgets();
    QCOMPARE(panel().control.relation, ControlRelation::kNone);
  }

  void GreaterThanTakesNumbersOnly() {
    Click("Option8");
    auto* value = Find<QLineEdit>("Text1");
    value->setFocus();
    QTest::keyClicks(value, "old");
    QTest::keyClick(value, Qt::Key_Tab);
    QTRY_COMPARE(platform_.messages.size(), std::size_t{1});
    QCOMPARE(platform_.messages[0].title, std::string("Warning"));
    QCOMPARE(platform_.messages[0].text, std::string("Only numerical entries are allowed."));
    QCOMPARE(value->text(), QString("old"));  // left in place, with the keyboard
    QVERIFY(value->hasFocus());
    Click("Option10");
    QTest::keyClicks(Find<QLineEdit>("Text3"), "old");
    QTest::keyClick(Find<QLineEdit>("Text3"), Qt::Key_Tab);
    QCoreApplication::processEvents();
    view_->StoreWidgets();
    QCOMPARE(platform_.messages.size(), std::size_t{1});
    QCOMPARE(panel().control.value, std::string("old"));
  }

  void ResetClearsVariableRelationAndValues() {
    Pick(2);
    Click("Image2(2)");
    Click("Option9");
    QTest::keyClicks(Find<QLineEdit>("Text2"), "5");
    Click("ResetVar");
    QCOMPARE(session_->panel.control_variable.column, std::size_t{0});
    QVERIFY(Find<QLineEdit>("Text18")->text().isEmpty());
    QVERIFY(!Find<QRadioButton>("Option9")->isChecked());
    QVERIFY(Find<QLineEdit>("Text2")->text().isEmpty());
    QCOMPARE(panel().control.relation, ControlRelation::kNone);
  }

  void StatisticsAreShownForTheData() {
    Click("Viewbar1(1)");
    QVERIFY(view_->IsFaceShown(Face::kGridStatistics));
    QCOMPARE(Find<QLabel>("StatisticsCaption3")->text() + Find<QLabel>("StatisticsValue3")->text(),
             QString("Data Cells Used: 40"));
    QCOMPARE(Find<QProgressBar>("UsageBar")->value(), 2);  // a sliver below three percent
  }

  void NotesMarkTheDataAsChanged() {
    Click("Viewbar1(2)");
    QTest::keyClicks(Find<QPlainTextEdit>("ProjectNotes"), "a");
    QTest::keyClick(Find<QPlainTextEdit>("ProjectNotes"), Qt::Key_Return);
    QTest::keyClicks(Find<QPlainTextEdit>("ProjectNotes"), "b");
    QCOMPARE(session_->data.ProjectNotes, std::string("a\r\nb"));
    QVERIFY(session_->data.DataDirty);
  }

  void TheViewbarNamesItsFaces() {
    const QStringList tooltips = {"View control panel", "View grid statistics", "View project notes",
                                  "View stat procedures", "View example of output"};
    for (int i = 0; i < 5; ++i) {
      QCOMPARE(Find<QAbstractButton>(QString("Viewbar1(%1)").arg(i).toLatin1().constData())->toolTip(), tooltips[i]);
    }
  }

  void InASmallWindowTheFacesShareOnePlace() {
    view_->resize(400, 380);
    QVERIFY(view_->IsFaceShown(Face::kControlPanel) && !view_->IsFaceShown(Face::kStatProcedures));
    Click("Viewbar1(3)");
    QVERIFY(!view_->IsFaceShown(Face::kControlPanel) && view_->IsFaceShown(Face::kStatProcedures));
    QVERIFY(Find<QRadioButton>("Option1")->isVisible() && !List("List1")->isVisible());
    Click("Viewbar1(4)");
    QVERIFY(Find<QWidget>("Text9")->isVisible() && !Find<QRadioButton>("Option1")->isVisible());
    view_->resize(1200, 800);
    QVERIFY(List("List1")->isVisible() && Find<QRadioButton>("Option1")->isVisible());
    Click("FoldExample");
    QVERIFY(!Find<QWidget>("Text9")->isVisible());
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::StatProc1Test)
#include "stat_proc1_test.moc"
