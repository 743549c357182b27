#include <QAccessible>
#include <QTableView>

#include "shell/command_row.h"
#include "window/grid/grid_view.h"
#include "window_fixture.h"

namespace tessara {

// The sheets of cells as a reader of the screen has them.
class AccessibleGridTest : public QObject {
  Q_OBJECT

  std::unique_ptr<WindowFixture> window_;
  WindowFixture& window() { return *window_; }

  QTableView* Grid() { return window().Find<QTableView>("MSFlexGrid1"); }
  QAccessibleInterface* Spoken(QWidget* widget) { return QAccessible::queryAccessibleInterface(widget); }
  // What a reader of the screen is given of a place.
  QString SpokenAt(const GridPlace& place) {
    auto* grid = static_cast<GridView*>(Grid());
    QAccessibleInterface* part = Spoken(grid)->child(grid->SpokenPart(place));
    return part ? part->text(QAccessible::Name) + "/" + part->text(QAccessible::Description) : "nothing";
  }
  Path KnownData() { return window().WriteDataFile("known.dcs", {"SEX", "AGE"}, {{"1", "34"}, {"2", ""}, {"9", "x"}}); }

 private slots:
  void init() { window_ = std::make_unique<WindowFixture>(); }
  void cleanup() { window_.reset(); }

  void TheGridIsATableWithAName() {
    window().Start(KnownData());
    QAccessibleInterface* grid = Spoken(Grid());
    QVERIFY(grid);
    QCOMPARE(grid->role(), QAccessible::Table);
    QCOMPARE(grid->text(QAccessible::Name), "Data Grid");
    QAccessibleTableInterface* table = grid->tableInterface();
    QVERIFY(table);
    QCOMPARE(table->rowCount(), 3);
    QCOMPARE(table->columnCount(), 2);
    QCOMPARE(table->columnDescription(1), "AGE");
    QCOMPARE(table->rowDescription(2), "3");
  }

  void ACellTellsTextVariableAndRecord() {
    window().Start(KnownData());
    QAccessibleTableInterface* table = Spoken(Grid())->tableInterface();
    QCOMPARE(table->cellAt(0, 1)->text(QAccessible::Name), "34");
    QCOMPARE(table->cellAt(0, 1)->text(QAccessible::Description), "AGE, record 1");
    QCOMPARE(table->cellAt(1, 1)->text(QAccessible::Name), "blank");
    QCOMPARE(table->cellAt(2, 1)->text(QAccessible::Name), "x");
  }

  void ALabelledValueTellsItsLabel() {
    window().Start(Path(TESSARA_SOURCE_DIR) / "installed" / "Data" / "survey.dcs");
    const auto& data = window().session().data;
    int column = 0;
    while (data.VariableName(static_cast<std::size_t>(column) + 1) != "SMOKE") ++column;
    QSet<QString> names;
    QAccessibleTableInterface* table = Spoken(Grid())->tableInterface();
    for (int row = 0; row < 50; ++row) names += table->cellAt(row, column)->text(QAccessible::Name);
    QVERIFY(names.contains("0 = No"));
    QVERIFY(names.contains("1 = Yes"));
  }

  void HeadingsAndRecordNumbersArePartsToo() {
    window().Start(KnownData());
    QCOMPARE(SpokenAt({1, 2}), "34/AGE, record 1");
    QCOMPARE(SpokenAt({2, 2}), "blank/AGE, record 2");
    QCOMPARE(SpokenAt({0, 2}).section('/', 0, 0), "AGE");
    QCOMPARE(SpokenAt({0, 1}).section('/', 0, 0), "SEX");
    QCOMPARE(SpokenAt({3, 0}).section('/', 0, 0), "3");
  }

  void TheSummaryTableIsATableToo() {
    window().Start(KnownData());
    window().ShowView(View::ViewOutput);
    window().frame().Execute(kShowTableCommand);
    QTableView* sheet = nullptr;
    for (auto* view : window().frame().current_view()->findChildren<QTableView*>()) {
      if (view->accessibleName() == "Summary table") sheet = view;
    }
    QVERIFY(sheet);
    QAccessibleInterface* spoken = Spoken(sheet);
    QCOMPARE(spoken->role(), QAccessible::Table);
    QVERIFY(spoken->tableInterface());
    QCOMPARE(spoken->tableInterface()->columnDescription(0), "Column 1");
    QCOMPARE(spoken->tableInterface()->rowDescription(1), "Row 2");
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::AccessibleGridTest)
#include "accessible_grid_test.moc"
