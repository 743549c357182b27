#include "window/grid/variable_view.h"

#include <QAbstractItemModelTester>
#include <QClipboard>
#include <QLineEdit>
#include <QTableView>
#include <QToolButton>

#include "data/change_door.h"
#include "window/grid/data_format.h"
#include "window/grid/variable_table.h"
#include "window_fixture.h"

namespace tessara {

// The table of all variables, beside the real grid.
class VariableViewTest : public QObject {
  Q_OBJECT

  static constexpr int kVariables = 310;

  std::unique_ptr<WindowFixture> window_;
  WindowFixture& window() { return *window_; }
  DataSet& data() { return window().session().data; }
  VariableView* view() { return window().frame().findChild<VariableView*>("VariableView"); }
  QTableView* table() { return view()->findChild<QTableView*>("VariableTable"); }
  QString Shown(int row, int section) { return table()->model()->index(row, section).data().toString(); }
  void Open(const std::vector<std::string>& names, const std::vector<std::vector<std::string>>& records) {
    window().script().open_answers.push_back(
        WindowFixture::Chosen(window().WriteDataFile("people.dcs", names, records)));
    window().Trigger(102);
  }
  void WaitForShares() { QTRY_VERIFY(!Shown(table()->model()->rowCount() - 1, VariableTable::kBlank).isEmpty()); }
  void RefreshViews() {
    window().ShowView(View::ViewOutput);
    window().ShowView(View::ViewDataGrid);
  }

 private slots:
  void init() {
    window_ = std::make_unique<WindowFixture>();
    window().Start();
    Open({"SEX", "AGE", "CITY"}, {{"1", "34", "Bern"}, {"2", "", "Oslo"}, {"9", "x", "Bern"}, {"1", "50", ""}});
    MatrixEditor editor(data());
    editor.SetText(kMissingSpecRow, 1, "9||||||");
    editor.SetText(kVariableLabelRow, 1, "Sex of respondent");
    editor.SetText(kFirstValueLabelRow, 1, "1=Male");
    editor.SetText(kFirstValueLabelRow + 1, 1, "2=Female");
  }
  void cleanup() { window_.reset(); }

  void ShowsTheDictionaryAndTheSharesOfCells() {
    window().Trigger(kVariables);
    QVERIFY(view()->isVisible());
    const QAbstractItemModelTester tester(table()->model());
    WaitForShares();
    const char* expected[3][VariableTable::kSections] = {
        {"SEX", "Sex of respondent", "9", "1 = Male, 2 = Female", "0", "25.0%", "0"},
        {"AGE", "", "", "", "25.0%", "0", "25.0%"},
        {"CITY", "", "", "", "25.0%", "0", "75.0%"}};
    for (int row = 0; row < 3; ++row) {
      for (int section = 0; section < VariableTable::kSections; ++section) {
        QCOMPARE(Shown(row, section), expected[row][section]);
      }
    }
    QCOMPARE(table()->model()->index(2, VariableTable::kNotNumeric).data(Qt::ToolTipRole).toString(), "3 of 4 cells");
  }

  void FollowsTheData() {
    window().Trigger(kVariables);
    const QAbstractItemModelTester tester(table()->model());
    WaitForShares();
    ApplyChange(data(), CellChange(kFirstRecordRow, 2, "", "Clear"));
    RefreshViews();
    QTRY_COMPARE(Shown(1, VariableTable::kBlank), "50.0%");
    table()->setCurrentIndex(table()->model()->index(2, 0));
    ApplyChange(data(), RemoveColumns(data(), 1, 1, "Delete"));
    RefreshViews();
    QCOMPARE(table()->model()->rowCount(), 2);
    QCOMPARE(Shown(0, VariableTable::kName), "AGE");
    QCOMPARE(Shown(0, VariableTable::kBlank), "50.0%");  // has moved with its variable
    QCOMPARE(table()->currentIndex().row(), 1);
    UndoChange(data());
    RefreshViews();
    QCOMPARE(table()->model()->rowCount(), 3);
    QTRY_COMPARE(Shown(0, VariableTable::kMissing), "25.0%");
    Open({"X"}, {{"1"}});
    QCOMPARE(table()->model()->rowCount(), 1);
    QCOMPARE(Shown(0, VariableTable::kName), "X");
  }

  void ADoubleClickOrEnterOpensTheFormOnTheVariable() {
    window().Trigger(kVariables);
    const QPoint place = table()->visualRect(table()->model()->index(1, 0)).center();
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(table()->viewport(), Qt::LeftButton, {}, place);
    auto* form = window().frame().findChild<DataFormat*>("DataFormat");
    QVERIFY(form && form->isVisible());
    QCOMPARE(form->findChild<QLineEdit*>("Text1")->text(), "AGE");
    table()->setCurrentIndex(table()->model()->index(2, 0));
    QTest::keyClick(table(), Qt::Key_Return);
    QCOMPARE(form->findChild<QLineEdit*>("Text1")->text(), "CITY");
    QVERIFY(view()->isVisible());
  }

  void ASaveOfTheFormIsInTheTableAtOnce() {
    window().Trigger(kVariables);
    table()->setCurrentIndex(table()->model()->index(1, 0));
    QTest::keyClick(table(), Qt::Key_Return);
    auto* form = window().frame().findChild<DataFormat*>("DataFormat");
    auto* label = form->findChild<QLineEdit*>("Text2");
    label->setFocus();
    QTest::keyClicks(label, "Age in years");
    QTest::mouseClick(form->findChild<QPushButton*>("SaveFormat"), Qt::LeftButton);
    QCOMPARE(Shown(1, VariableTable::kLabel), "Age in years");
  }

  void TheButtonOfTheStripOpensAndClosesIt() {
    auto* button = window().Find<QToolButton>("VariablesButton");
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(view()->isVisible());
    QVERIFY(button->isChecked());
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(!view()->isVisible());
    QVERIFY(!button->isChecked());
    window().Trigger(kVariables);
    QVERIFY(button->isChecked());
    QTest::keyClick(view(), Qt::Key_Escape);
    QVERIFY(!button->isChecked());
  }

  void SelectedRowsAreCopiedAsABlock() {
    window().Trigger(kVariables);
    WaitForShares();
    table()->selectAll();
    QTest::keyClick(table(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(),
             "SEX\tSex of respondent\t9\t1 = Male, 2 = Female\t0\t25.0%\t0\r"
             "AGE\t\t\t\t25.0%\t0\t25.0%\r"
             "CITY\t\t\t\t25.0%\t0\t75.0%");
  }

  // Ten thousand variables: those in sight are counted first, and the keyboard is never waited for.
  void ManyVariablesComeInByAndBy() {
    std::vector<std::string> names;
    for (int column = 1; column <= 10000; ++column) names.push_back("V" + std::to_string(column));
    Open(names, {std::vector<std::string>(names.size(), "1")});
    window().Trigger(kVariables);
    QCOMPARE(table()->model()->rowCount(), 10000);
    table()->scrollTo(table()->model()->index(9000, 0), QAbstractItemView::PositionAtTop);
    QTRY_COMPARE(Shown(9000, VariableTable::kBlank), "0");
    WaitForShares();
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::VariableViewTest)
#include "variable_view_test.moc"
