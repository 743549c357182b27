#include "window/grid/grid_model.h"

#include <QAbstractItemModelTester>
#include <QtTest>

#include "data/change_door.h"

namespace tessara {
namespace {

DataSet Shaped(std::size_t records, std::size_t variables) {
  DataSet data;
  MatrixEditor(data).Replace(DataMatrix(records + kFirstRecordRow, variables));
  data.RecordCount = records;
  data.VariableCount = variables;
  return data;
}

}  // namespace

class GridModelTest : public QObject {
  Q_OBJECT

 private slots:
  void KeepsTheRulesOfAModel() {
    DataSet data = Shaped(12, 3);
    GridModel model(data);
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    MatrixEditor(data).Replace(DataMatrix(4 + kFirstRecordRow, 5));
    data.RecordCount = 4;
    data.VariableCount = 5;
    QVERIFY(model.Refresh());
    QCOMPARE(model.rowCount(), 4);
    QCOMPARE(model.columnCount(), 5);
    QVERIFY(!model.Refresh());
  }

  void ShowsRecordsBehindTheDictionary() {
    DataSet data = Shaped(2, 2);
    MatrixEditor(data).SetText(kVariableNameRow, 2, "SEX");
    MatrixEditor(data).SetText(kVariableLabelRow, 2, "Sex of the respondent");
    MatrixEditor(data).SetText(kFirstRecordRow + 1, 2, "caf\xE9");
    MatrixEditor(data).SetNumber(kFirstRecordRow, 1, 2.5);
    const GridModel model(data);
    QCOMPARE(model.index(1, 1).data().toString(), QString::fromUtf8("caf\u00E9"));
    QCOMPARE(model.index(0, 0).data().toString(), QString("2.5"));
    QCOMPARE(model.headerData(1, Qt::Horizontal).toString(), QString("SEX"));
    QCOMPARE(model.headerData(1, Qt::Horizontal, Qt::ToolTipRole).toString(), QString("Sex of the respondent"));
    QCOMPARE(model.headerData(1, Qt::Vertical).toString(), QString("2"));
  }

  void NumbersStandRightAndTextsLeft() {
    DataSet data = Shaped(1, 2);
    MatrixEditor(data).SetText(kFirstRecordRow, 1, "1,234.5");
    MatrixEditor(data).SetText(kFirstRecordRow, 2, "12abc");
    const GridModel model(data);
    const auto alignment = [&](int column) {
      return model.index(0, column).data(Qt::TextAlignmentRole).value<Qt::Alignment>();
    };
    QVERIFY(alignment(0).testFlag(Qt::AlignRight));
    QVERIFY(alignment(1).testFlag(Qt::AlignLeft));
  }

  void ACellTellsItsValueLabel() {
    DataSet data = Shaped(2, 1);
    MatrixEditor(data).SetText(kFirstValueLabelRow, 1, "1=Male");
    MatrixEditor(data).SetText(kFirstRecordRow, 1, "1");
    MatrixEditor(data).SetText(kFirstRecordRow + 1, 1, "2");
    const GridModel model(data);
    QCOMPARE(model.index(0, 0).data(Qt::ToolTipRole).toString(), QString("1 = Male"));
    QVERIFY(model.index(1, 0).data(Qt::ToolTipRole).toString().isEmpty());
  }

  // 250 records of 1000 variables are 250,000 cells: above the edit limit of 200,000.
  void AboveTheEditLimitTheFirstHundredRecordsAreShown_data() {
    QTest::addColumn<int>("records");
    QTest::addColumn<int>("variables");
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("columns");
    QTest::newRow("far above") << 250 << 1000 << 100 << 300;
    QTest::newRow("at the limit") << 10000 << 20 << 10000 << 20;
    QTest::newRow("just above") << 10001 << 20 << 100 << 20;
    QTest::newRow("300 variables") << 5 << 300 << 5 << 300;
    QTest::newRow("301 variables") << 5 << 301 << 5 << 300;
  }
  void AboveTheEditLimitTheFirstHundredRecordsAreShown() {
    QFETCH(int, records);
    QFETCH(int, variables);
    const DataSet data = Shaped(static_cast<std::size_t>(records), static_cast<std::size_t>(variables));
    const GridModel model(data);
    QTEST(model.rowCount(), "rows");
    QTEST(model.columnCount(), "columns");
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::GridModelTest)
#include "grid_model_test.moc"
