#include <QApplication>
#include <QContextMenuEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QRadioButton>
#include <QToolButton>

#include "window/stat_procs/variable_lists.h"
#include "window_fixture.h"

namespace tessara {

// The lists of the procedure panel in the frame: their menus, and a second list without a use.
class ListsTest : public QObject {
  Q_OBJECT

  using Columns = std::vector<std::size_t>;
  std::unique_ptr<WindowFixture> window_;
  WindowFixture& window() { return *window_; }
  ProcedurePanel& panel() { return window().session().panel; }
  VariableListView* List(const char* name) { return window().Find<VariableListView>(name); }
  QAbstractButton* Button(const char* name) {
    return window().Find<QWidget>("StatProc1")->findChild<QAbstractButton*>(name);
  }
  // Other views have fields of the same names.
  QLineEdit* Field(const char* name) { return window().Find<QWidget>("StatProc1")->findChild<QLineEdit*>(name); }
  QString Summary() { return window().Find<QLabel>("RunSummary")->text(); }

  void Pick(const char* list, int row) { List(list)->setCurrentIndex(List(list)->model()->index(row, 0)); }
  void Choose(int row, const char* arrow) {
    Pick("List1", row);
    Button(arrow)->click();
  }
  // The menu that a right click on the widget opens.
  QMenu* MenuOf(QWidget* widget) {
    const QPoint place(4, 4);
    QContextMenuEvent asked(QContextMenuEvent::Mouse, place, widget->mapToGlobal(place));
    QApplication::sendEvent(widget, &asked);
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
  }
  static void Trigger(QMenu* menu, const char* entry) {
    auto* action = menu->findChild<QAction*>(entry);
    QVERIFY2(action && action->isEnabled(), entry);
    action->trigger();
    menu->close();
    QCoreApplication::processEvents();
  }

  // "4o" behind "greater than", and all else ready for a run.
  QLineEdit* TypeAWrongValue() {
    Button("Option1")->click();
    Choose(1, "Image2(0)");
    Choose(2, "Image2(2)");
    Button("Option8")->click();
    auto* value = Field("Text1");
    QTest::keyClicks(value, "4o");
    return value;
  }
  void CompareRefused(QLineEdit* value) {
    for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();
    QCOMPARE(window().script().messages.size(), std::size_t{1});
    QCOMPARE(window().script().messages[0].title, std::string("Warning"));
    QCOMPARE(window().script().messages[0].text, std::string("Only numerical entries are allowed."));
    QCOMPARE(value->text(), "4o");
    QVERIFY(value->hasFocus());
    QVERIFY(window().session().output.OutputLogText.empty());
    QCOMPARE(window().session().ActiveView, View::ViewStatProcs);
  }

 private slots:
  void init() {
    window_ = std::make_unique<WindowFixture>();
    window().Start(window().WriteDataFile("four.dcs", {"AGE", "SEX", "SMOKE", "KG"}, {{"1", "2", "3", "4"}}));
    window().ShowView(View::ViewStatProcs);
  }
  void cleanup() { window_.reset(); }

  void TheMenuOfTheVariablesAddsToTheLists() {
    Button("Option3")->click();
    Pick("List1", 2);
    QMenu* menu = MenuOf(List("List1")->viewport());
    QVERIFY(menu);
    QCOMPARE(menu->findChild<QAction*>("AddTo0")->text().section('\t', 0, 0), "Add to Rows");
    Trigger(menu, "AddTo0");
    QCOMPARE(panel().SelectedVariables, Columns{2});
    Pick("List1", 3);
    Trigger(MenuOf(List("List1")->viewport()), "AddTo1");
    QCOMPARE(panel().IndependentVariables, Columns{3});
    Pick("List1", 4);
    Trigger(MenuOf(List("List1")->viewport()), "AddTo2");
    QCOMPARE(Field("Text18")->text(), "KG");
    // A procedure without a second list adds nothing to it.
    Button("Option1")->click();
    Pick("List1", 4);
    QMenu* without = MenuOf(List("List1")->viewport());
    QVERIFY(!without->findChild<QAction*>("AddTo1")->isEnabled());
    without->close();
  }

  void TheMenuOfAListRemoves() {
    Button("Option3")->click();
    for (const int row : {1, 2, 3}) Choose(row, "Image2(0)");
    Pick("List2", 1);
    Trigger(MenuOf(List("List2")->viewport()), "Remove");
    QCOMPARE(panel().SelectedVariables, (Columns{1, 3}));
    Trigger(MenuOf(List("List2")->viewport()), "RemoveAll");
    QVERIFY(panel().SelectedVariables.empty());
    QMenu* menu = MenuOf(List("List2")->viewport());
    QVERIFY(!menu->findChild<QAction*>("Remove")->isEnabled());
    QVERIFY(!menu->findChild<QAction*>("RemoveAll")->isEnabled());
    menu->close();
  }

  void TheMenuOfTheControlResetsIt() {
    Choose(2, "Image2(2)");
    QCOMPARE(Field("Text18")->text(), "SEX");
    Trigger(MenuOf(Field("Text18")), "Reset");
    QCOMPARE(Field("Text18")->text(), "");
  }

  void ASecondListWithoutAUseCanBeEmptied() {
    Button("Option3")->click();
    Choose(2, "Image2(1)");
    Choose(3, "Image2(1)");
    Button("Option12")->click();
    QVERIFY(!List("List3")->isEnabled());
    // The arrow removes, whatever is selected in the list of all variables.
    Pick("List1", 4);
    QVERIFY(Button("Image2(1)")->isEnabled());
    QVERIFY(Button("Image2(1)")->toolTip().startsWith("Remove from"));
    Button("Image2(1)")->click();
    QCOMPARE(panel().IndependentVariables, Columns{2});
    Button("Image2(1)")->click();
    QVERIFY(panel().IndependentVariables.empty());
    QVERIFY(!Button("Image2(1)")->isEnabled());
    QVERIFY(window().script().messages.empty());
  }

  void TheSummaryNamesWhatTheRunDoesWithTheSecondList() {
    Button("Option3")->click();
    Choose(1, "Image2(0)");
    Choose(2, "Image2(1)");
    QCOMPARE(Summary(), "Crosstabulation: AGE by SEX");
    Button("Option1")->click();
    QCOMPARE(Summary(), "Frequencies: AGE by SEX");  // which are crosstabulated
    Button("Option12")->click();
    QCOMPARE(Summary(), "List Variables: AGE, without SEX");
    Button("Option6")->click();
    QCOMPARE(Summary(), "Correlation: AGE by SEX");
    Button("Check2")->click();  // the matrix is of the first list alone
    QCOMPARE(Summary(), "Correlation: AGE, without SEX");
  }

  void AWrongValueStopsTheRunByEnter() {
    QLineEdit* value = TypeAWrongValue();
    QTest::keyClick(value, Qt::Key_Return);
    CompareRefused(value);
    // Put right, the same key runs.
    QTest::keyClicks(value, "0");
    QTest::keyClick(value, Qt::Key_Return);
    QVERIFY(!window().session().output.OutputLogText.empty());
  }

  void AWrongValueStopsTheRunByItsCommand() {
    QLineEdit* value = TypeAWrongValue();
    window().Trigger(308);
    CompareRefused(value);
  }

  void AWrongValueStopsTheRunByItsButton() {
    QLineEdit* value = TypeAWrongValue();
    QTest::mouseClick(window().Find<QWidget>("RunButton"), Qt::LeftButton);
    CompareRefused(value);
  }

  void AWrongValueIsAnsweredWhenItsFieldIsLeft() {
    QLineEdit* value = TypeAWrongValue();
    QTest::keyClick(value, Qt::Key_Tab);
    CompareRefused(value);
    // Reset is no way into a box.
    QTest::mouseClick(Button("ResetVar"), Qt::LeftButton);
    QCoreApplication::processEvents();
    QCOMPARE(window().script().messages.size(), std::size_t{1});
    QCOMPARE(value->text(), "");
  }

  void MaxObservationsHasItsTip() {
    Button("Option12")->click();
    QCOMPARE(Field("Text7")->toolTip(), "Enter maximum number of observations");
    Button("Option4")->click();
    QCOMPARE(Field("Text5")->toolTip(), "");
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::ListsTest)
#include "lists_test.moc"
