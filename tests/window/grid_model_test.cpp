#include "window/grid/grid_model.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QtTest>
#include <random>

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
    QVERIFY(model.Refresh() == GridModel::Outcome::kEverything);
    QCOMPARE(model.rowCount(), 4);
    QCOMPARE(model.columnCount(), 5);
    QVERIFY(model.Refresh() == GridModel::Outcome::kNothing);
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

  // Places that a view remembers lead to the same cells behind any changes, however many come at once.
  void RememberedPlacesFollowTheirCells_data() {
    QTest::addColumn<int>("records");
    QTest::addColumn<int>("variables");
    QTest::newRow("small") << 30 << 8;
    QTest::newRow("around 300 variables") << 12 << 298;
    QTest::newRow("around the edit limit") << 10000 << 19;
  }
  void RememberedPlacesFollowTheirCells() {
    QFETCH(int, records);
    QFETCH(int, variables);
    std::mt19937_64 random(3);
    DataSet data;
    int named = 0;
    const auto column = [&] {
      Column made;
      const std::string name = "C" + std::to_string(++named);
      made.Set(kVariableNameRow, name);
      for (std::size_t record = 0; record < 25; ++record) {
        made.Set(kFirstRecordRow + record, name + "/" + std::to_string(record));
      }
      return made;
    };
    DataMatrix matrix(static_cast<std::size_t>(records) + kFirstRecordRow, 0);
    std::vector<Column> columns;
    for (int i = 0; i < variables; ++i) columns.push_back(column());
    matrix.ExchangeColumns(1, 0, columns);
    BeginData(data, {.matrix = matrix,
                     .RecordCount = static_cast<std::size_t>(records),
                     .VariableCount = static_cast<std::size_t>(variables)});
    GridModel model(data);
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    for (int turn = 0; turn < (records > 1000 ? 12 : 40); ++turn) {
      std::vector<std::pair<QPersistentModelIndex, QString>> places;
      for (int i = 0; i < 60; ++i) {
        const QModelIndex place = model.index(static_cast<int>(random() % 25) % model.rowCount(),
                                              static_cast<int>(random() % static_cast<unsigned>(model.columnCount())));
        if (!place.data().toString().isEmpty()) places.emplace_back(place, place.data().toString());
      }
      for (std::uint64_t change = random() % 4; change < 4; ++change) {
        switch (random() % 6) {
          case 0:
            ApplyChange(data, AddColumns(data, {column(), column()}, ""));
            break;
          case 1:
            if (data.VariableCount > 4)
              ApplyChange(data, RemoveColumns(data, 1 + random() % (data.VariableCount - 2), 2, ""));
            break;
          case 2:
            ApplyChange(data, AddRows(data, 5, ""));
            break;
          case 3:
            if (data.RecordCount > 8) ApplyChange(data, RemoveRows(data, 1 + random() % 5, 1 + random() % 3, ""));
            break;
          case 4:
            UndoChange(data);
            break;
          default:
            RedoChange(data);
        }
      }
      QVERIFY(model.Refresh() != GridModel::Outcome::kEverything);
      QCOMPARE(model.rowCount(), static_cast<int>(data.GridRecords()));
      QCOMPARE(model.columnCount(), static_cast<int>(data.GridVariables()));
      for (const auto& [place, text] : places) {
        if (place.isValid()) QCOMPARE(QModelIndex(place).data().toString(), text);
      }
      for (int place = 0; place < model.columnCount(); ++place) {
        const auto name = data.VariableName(static_cast<std::size_t>(place) + 1);
        QCOMPARE(model.headerData(place, Qt::Horizontal).toString().toStdString(), name);
      }
    }
  }

  void TooManyChangesAtOnceAreShownAnew() {
    DataSet data = Shaped(12, 3);
    GridModel model(data);
    for (int i = 0; i < 100; ++i) ApplyChange(data, CellChange(kFirstRecordRow, 1, "x", ""));
    QVERIFY(model.Refresh() == GridModel::Outcome::kEverything);
    QVERIFY(model.Refresh() == GridModel::Outcome::kNothing);
  }

  void AChangedNameIsTheHeadingsAlone() {
    DataSet data = Shaped(12, 3);
    GridModel model(data);
    QSignalSpy headings(&model, &QAbstractItemModel::headerDataChanged);
    QSignalSpy cells(&model, &QAbstractItemModel::dataChanged);
    ApplyChange(data, CellChange(kVariableNameRow, 2, "SEX", ""));
    QVERIFY(model.Refresh() == GridModel::Outcome::kChanges);
    QCOMPARE(headings.count(), 1);
    QCOMPARE(headings[0][1].toInt(), 1);
    QCOMPARE(headings[0][2].toInt(), 1);
    QCOMPARE(cells.count(), 0);
  }

  void OfAVeryLongTextTheBeginningIsShown() {
    DataSet data = Shaped(1, 1);
    MatrixEditor(data).SetText(kFirstRecordRow, 1, std::string(100000, 'x'));
    const GridModel model(data);
    QVERIFY(model.index(0, 0).data().toString().size() < 10000);
    QCOMPARE(model.CellLength(0, 0), std::size_t{100000});
    MatrixEditor(data).SetText(kVariableNameRow, 1, std::string(100000, 'n'));
    MatrixEditor(data).SetText(kVariableLabelRow, 1, std::string(100000, 'l'));
    QVERIFY(model.headerData(0, Qt::Horizontal).toString().size() < 10000);
    QVERIFY(model.headerData(0, Qt::Horizontal, Qt::ToolTipRole).toString().size() < 10000);
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
