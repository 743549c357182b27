#include "window/grid/data1.h"

#include <QtTest>

#include "data/change_door.h"
#include "platform/scripted_platform.h"

namespace tessara {

class Data1Test : public QObject {
  Q_OBJECT

  ScriptedPlatform platform_;
  MemorySettingsStore store_;
  std::unique_ptr<Session> session_;
  std::unique_ptr<Data1> view_;

  GridView* grid() { return view_->findChild<GridView*>("MSFlexGrid1"); }
  QString Text(const char* name) { return view_->findChild<QLabel*>(name)->text(); }
  bool Shown(const char* name) { return !view_->findChild<QWidget*>(name)->isHidden(); }

  void Load(std::size_t records, std::size_t variables) {
    DataSet& data = session_->data;
    DataMatrix matrix(records + kFirstRecordRow, variables);
    data.RecordCount = records;
    data.VariableCount = variables;
    data.CurrentRow = data.CurrentColumn = 1;
    data.GridTitle = "scores.dcs";
    for (std::size_t row = 0; row < 3; ++row) {
      for (std::size_t column = 1; column <= 3; ++column) {
        matrix.SetText(kFirstRecordRow + row, column, std::to_string(row + 1) + "-" + std::to_string(column));
      }
    }
    MatrixEditor(data).Replace(std::move(matrix));
    view_->ShowSession();
  }

 private slots:
  void init() {
    platform_ = {};
    session_ = std::make_unique<Session>(platform_, store_);
    MakeEmptyDataSet(session_->data);
    view_ = std::make_unique<Data1>(*session_);
    view_->resize(640, 380);
    view_->show();
    QVERIFY(QTest::qWaitForWindowExposed(view_.get()));
  }
  void cleanup() {
    view_.reset();
    session_.reset();
  }

  void ANewDataSetInvitesToOpenAFile() {
    QCOMPARE(grid()->model()->rowCount(), 1000);
    QCOMPARE(grid()->model()->columnCount(), 20);
    QCOMPARE(Text("GridHint"), QString("Open a data file (Ctrl+O) or drop one here"));
    QVERIFY(Shown("FirstSteps"));
    Load(3, 3);
    QVERIFY(!Shown("FirstSteps"));
  }

  void TheStripTellsFileAndSize() {
    Load(1000, 3);
    QCOMPARE(Text("GridTitle"), QString("scores.dcs"));
    QCOMPARE(Text("GridSize"), QString::fromUtf8("1,000 records \u00D7 3 variables"));
    QVERIFY(!Shown("GridPart"));
  }

  // A save under another name changes no cell.
  void TheStripFollowsASaveAs() {
    Load(1000, 3);
    session_->data.GridTitle = "other.dcs";
    view_->ShowSession();
    QCOMPARE(Text("GridTitle"), QString("other.dcs"));
  }

  void APartOfTheDataIsSaidToBeOne() {
    Load(1000, 301);
    QCOMPARE(Text("GridPart"), QString("Shows the first 100 of 1,000 records, first 300 of 301 variables"));
    QVERIFY(Shown("GridPart"));
  }

  void TheSheetIsLightYellowAboveTheEditLimit() {
    Load(10, 3);
    QCOMPARE(ColoursOfGrid(QPalette(Qt::white), true).sheet.rgb(), qRgb(255, 255, 255));
    QCOMPARE(grid()->palette().color(QPalette::Base).rgb(), qRgb(255, 255, 255));
    Load(10001, 20);
    QCOMPARE(grid()->palette().color(QPalette::Base).rgb(), qRgb(0xFF, 0xFF, 0xC0));
  }

  void TheCursorIsMarkedInBothHeadings() {
    Load(5, 4);
    auto* names = static_cast<GridHeader*>(grid()->horizontalHeader());
    auto* numbers = static_cast<GridHeader*>(grid()->verticalHeader());
    QVERIFY(names->IsMarked(0) && numbers->IsMarked(0));
    grid()->setFocus();
    QTest::keyClick(grid(), Qt::Key_Right);
    QTest::keyClick(grid(), Qt::Key_Down);
    QTest::keyClick(grid(), Qt::Key_Down);
    QCOMPARE(session_->data.CurrentRow, std::size_t{3});
    QCOMPARE(session_->data.CurrentColumn, std::size_t{2});
    QVERIFY(names->IsMarked(1) && numbers->IsMarked(2));
    QVERIFY(!names->IsMarked(0) && !numbers->IsMarked(0));
    const QImage heading = names->grab().toImage();
    const int x = names->sectionViewportPosition(1) + 3;
    QCOMPARE(heading.pixelColor(QPoint(x, 3) * heading.devicePixelRatio()).rgb(), qRgb(0xFF, 0xC0, 0x80));
  }

  void HomeAndEndWithCtrlReachTheCorners() {
    Load(50, 4);
    grid()->setFocus();
    QTest::keyClick(grid(), Qt::Key_End, Qt::ControlModifier);
    QCOMPARE(session_->data.CurrentRow, std::size_t{50});
    QCOMPARE(session_->data.CurrentColumn, std::size_t{4});
    QTest::keyClick(grid(), Qt::Key_Home, Qt::ControlModifier);
    QCOMPARE(session_->data.CurrentRow, std::size_t{1});
    QCOMPARE(session_->data.CurrentColumn, std::size_t{1});
  }

  void AHeadingTakesTheCursorAndSelectsItsColumn() {
    Load(5, 4);
    QHeaderView* names = grid()->horizontalHeader();
    QTest::mouseClick(names->viewport(), Qt::LeftButton, {}, {names->sectionViewportPosition(2) + 5, 5});
    QCOMPARE(session_->data.CurrentRow, std::size_t{0});
    QCOMPARE(session_->data.CurrentColumn, std::size_t{3});
    QVERIFY(grid()->selectionModel()->isColumnSelected(2));
  }

  void CopyPutsTabsBetweenCellsAndReturnsBetweenRows() {
    Load(5, 4);
    grid()->selectionModel()->select({grid()->model()->index(0, 1), grid()->model()->index(1, 2)},
                                     QItemSelectionModel::ClearAndSelect);
    view_->Perform(WidgetAction::kCopy);
    QCOMPARE(platform_.clipboard, std::string("1-2\t1-3\r2-2\t2-3"));
  }

  void SelectAllAndCtrlCCopyTheGrid() {
    Load(3, 3);
    grid()->setFocus();
    view_->Perform(WidgetAction::kSelectAll);
    QTest::keyClick(grid(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(platform_.clipboard, std::string("1-1\t1-2\t1-3\r2-1\t2-2\t2-3\r3-1\t3-2\t3-3"));
  }

  void EnterInTheGridDoesNothing() {
    Load(5, 4);
    grid()->setFocus();
    QTest::keyClick(grid(), Qt::Key_Return);
    QCOMPARE(session_->data.CurrentRow, std::size_t{1});
    QVERIFY(!session_->data.DataDirty);
    QVERIFY(!Shown("GridText1"));
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::Data1Test)
#include "data1_test.moc"
