#include <QScrollBar>
#include <QSignalSpy>

#include "data/change_door.h"
#include "window/grid/grid_view.h"
#include "window/stat_procs/variable_lists.h"
#include "window_fixture.h"

namespace tessara {

// What the views of the data keep while the data change: selection, scroll position, widths.
class DataChangesTest : public QObject {
  Q_OBJECT

  static constexpr int kRunCommand = 308;

  std::unique_ptr<WindowFixture> window_;
  WindowFixture& window() { return *window_; }
  DataSet& data() { return window().session().data; }
  GridView* grid() { return window().Find<GridView>("MSFlexGrid1"); }

  // 200 records of 30 variables, so that the grid scrolls both ways.
  void OpenALargeFile() {
    std::vector<std::string> names;
    for (int column = 1; column <= 30; ++column) names.push_back("VAR" + std::to_string(column));
    std::vector<std::vector<std::string>> records;
    for (int record = 1; record <= 200; ++record) {
      std::vector<std::string> cells;
      for (int column = 1; column <= 30; ++column) cells.push_back(std::to_string(record * column));
      records.push_back(cells);
    }
    window().script().open_answers.push_back(
        WindowFixture::Chosen(window().WriteDataFile("large.dcs", names, records)));
    window().Trigger(102);
  }

  struct Shown {
    QItemSelection selection;
    QModelIndex current;
    int across, down;
    std::vector<int> widths;
  };
  Shown WhatIsShown() {
    Shown shown{grid()->selectionModel()->selection(),
                grid()->currentIndex(),
                grid()->horizontalScrollBar()->value(),
                grid()->verticalScrollBar()->value(),
                {}};
    for (int column = 0; column < 30; ++column) shown.widths.push_back(grid()->columnWidth(column));
    return shown;
  }
  // A user at work somewhere in the middle, with widths of his own.
  Shown WorkInTheMiddle() {
    grid()->setColumnWidth(11, 133);
    grid()->setColumnWidth(0, 41);
    grid()->setCurrentIndex(grid()->model()->index(90, 11));
    grid()->selectionModel()->select({grid()->model()->index(90, 11), grid()->model()->index(93, 12)},
                                     QItemSelectionModel::ClearAndSelect);
    grid()->verticalScrollBar()->setValue(85);
    grid()->horizontalScrollBar()->setValue(grid()->horizontalScrollBar()->maximum() / 2);
    return WhatIsShown();
  }
  void ExpectShown(const Shown& before) {
    const Shown now = WhatIsShown();
    QCOMPARE(now.selection, before.selection);
    QCOMPARE(now.current, before.current);
    QCOMPARE(now.across, before.across);
    QCOMPARE(now.down, before.down);
    QVERIFY(now.widths == before.widths);
  }
  void Refresh() {
    window().ShowView(View::ViewOutput);
    window().ShowView(View::ViewDataGrid);
  }

 private slots:
  void init() {
    window_ = std::make_unique<WindowFixture>();
    window().Start();
    OpenALargeFile();
  }
  void cleanup() { window_.reset(); }

  void ASavedColumnTakesNothingFromTheGrid() {
    const Shown before = WorkInTheMiddle();
    QVERIFY(before.down > 0 && before.across > 0);
    QSignalSpy resets(grid()->model(), &QAbstractItemModel::modelReset);
    QSignalSpy changed(grid()->model(), &QAbstractItemModel::dataChanged);

    SelectProcedure(window().session().panel, Procedure::kDescriptives);
    window().session().panel.SelectedVariables = {2};
    window().session().panel.options.descriptives.save_z_scores = true;
    window().ShowView(View::ViewStatProcs);
    window().Trigger(kRunCommand);
    QCOMPARE(data().VariableCount, std::size_t{31});
    QVERIFY(data().DataDirty);
    QVERIFY(window().frame().isWindowModified());

    window().ShowView(View::ViewDataGrid);
    QCOMPARE(grid()->model()->columnCount(), 31);
    QCOMPARE(grid()->model()->headerData(30, Qt::Horizontal).toString(), QString("Z-VAR2"));
    ExpectShown(before);
    QCOMPARE(resets.count(), 0);
    QCOMPARE(changed.count(), 0);
    // The new column has been measured: it has room for eight characters of its values and some more.
    QVERIFY(grid()->columnWidth(30) >= grid()->fontMetrics().averageCharWidth() * 9);
  }

  void ATypedCellRepaintsItselfAlone() {
    const Shown before = WorkInTheMiddle();
    QSignalSpy resets(grid()->model(), &QAbstractItemModel::modelReset);
    QSignalSpy changed(grid()->model(), &QAbstractItemModel::dataChanged);
    QVERIFY(ApplyChange(data(), CellChange(kFirstRecordRow + 91, 12, "a text of another length than before", "Type")));
    Refresh();
    QCOMPARE(resets.count(), 0);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed[0][0].toModelIndex(), grid()->model()->index(91, 11));
    QCOMPARE(changed[0][1].toModelIndex(), grid()->model()->index(91, 11));
    ExpectShown(before);
  }

  void ColumnsThatGoAndComeBackKeepTheOthersWidths() {
    WorkInTheMiddle();
    QVERIFY(ApplyChange(data(), RemoveColumns(data(), 3, 2, "Delete Columns")));
    Refresh();
    QCOMPARE(grid()->columnWidth(9), 133);  // two places further left
    QCOMPARE(grid()->currentIndex(), grid()->model()->index(90, 9));
    QCOMPARE(data().CurrentColumn, std::size_t{10});
    QCOMPARE(data().CurrentRow, std::size_t{91});
    QVERIFY(UndoChange(data()));
    Refresh();
    QCOMPARE(grid()->columnWidth(11), 133);
    QCOMPARE(grid()->columnWidth(0), 41);
    QCOMPARE(grid()->model()->headerData(2, Qt::Horizontal).toString(), QString("VAR3"));
    QCOMPARE(data().CurrentColumn, std::size_t{12});
  }

  void TheListOfVariablesKeepsItsSelection() {
    window().ShowView(View::ViewStatProcs);
    auto* list = window().Find<VariableListView>("List1");
    list->setCurrentIndex(list->model()->index(7, 0));
    QVERIFY(ApplyChange(data(), AddColumns(data(), {Column()}, "Add Columns")));
    QVERIFY(ApplyChange(data(), RemoveColumns(data(), 2, 1, "Delete Columns")));
    window().ShowView(View::ViewDataGrid);
    window().ShowView(View::ViewStatProcs);
    QCOMPARE(list->model()->rowCount(), 31);
    QCOMPARE(list->SelectedColumns(), std::vector<std::size_t>{6});
    QCOMPARE(list->currentIndex().data().toString(), QString("VAR7"));
  }

  void AnotherFileIsShownFromItsBeginning() {
    WorkInTheMiddle();
    QSignalSpy resets(grid()->model(), &QAbstractItemModel::modelReset);
    OpenALargeFile();
    QCOMPARE(resets.count(), 1);
    QCOMPARE(grid()->currentIndex(), grid()->model()->index(0, 0));
    QCOMPARE(grid()->verticalScrollBar()->value(), 0);
    QVERIFY(grid()->columnWidth(11) != 133);
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::DataChangesTest)
#include "data_changes_test.moc"
