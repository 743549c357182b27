#include <QAbstractScrollArea>
#include <QDrag>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QRadioButton>

#include "window/stat_procs/variable_lists.h"
#include "window_fixture.h"

// A drag needs a pointer that the tests' platform does not have. Here a drag that starts is over at once: it falls on
// the widget that waits for it, with all that it carries.
static QWidget* g_drop_target = nullptr;
static QObject* g_drag_source = nullptr;

QObject* QDropEvent::source() const { return g_drag_source; }

Qt::DropAction QDrag::exec(Qt::DropActions actions) {
  g_drag_source = source();
  const QPoint at = g_drop_target->rect().center();
  QDragEnterEvent enter(at, actions, mimeData(), Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(g_drop_target, &enter);
  QDragMoveEvent move(at, actions, mimeData(), Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(g_drop_target, &move);
  const bool taken = enter.isAccepted() && move.isAccepted();
  QDropEvent drop(at, actions, mimeData(), Qt::LeftButton, Qt::NoModifier);
  if (taken) QApplication::sendEvent(g_drop_target, &drop);
  g_drag_source = nullptr;
  deleteLater();
  return taken ? drop.dropAction() : Qt::IgnoreAction;
}

namespace tessara {

// The lists of the panel in the frame: finding by label, dragging from list to list, and what the summary line says.
class PanelListsTest : public QObject {
  Q_OBJECT

  std::unique_ptr<WindowFixture> window_;
  WindowFixture& window() { return *window_; }
  VariableListView* List(const char* name) { return window().Find<VariableListView>(name); }
  ProcedurePanel& Panel() { return window().session().panel; }
  QLineEdit* Find() { return window().Find<QLineEdit>("FindVariable"); }
  QString Summary() { return window().Find<QLabel>("RunSummary")->text(); }

  // Five variables, two of them with a label.
  Path WritePeople() {
    const auto line = [](const std::vector<std::string>& cells) {
      std::string text;
      for (std::size_t i = 0; i < cells.size(); ++i) text += (i == 0 ? "" : "\x01") + cells[i];
      return text + "\r\n";
    };
    std::string content = line({"2 5 Tessara data"});
    for (std::size_t row = 1; row < kVariableNameRow; ++row) {
      content += row == kVariableLabelRow ? line({"Years of life", "", "Income of the house", "", ""})
                                          : line(std::vector<std::string>(5));
    }
    content += line({"AGE", "SEX", "INC", "EDU", "REGION"});
    content += line({"34", "1", "5", "2", "7"}) + line({"41", "2", "6", "3", "8"});
    return window().WriteFile("people.dcs", content);
  }

  static QStringList Shown(const QListView* list) {
    QStringList names;
    for (int row = 0; row < list->model()->rowCount(); ++row) names += list->model()->index(row, 0).data().toString();
    return names;
  }
  void SelectRow(const char* list, int row) { List(list)->setCurrentIndex(List(list)->model()->index(row, 0)); }
  void Add(int row, const char* arrow) {
    SelectRow("List1", row);
    window().Find<QAbstractButton>(arrow)->click();
  }

  // The pointer with its left button down, as the list sees it.
  static void MoveWithButton(QWidget* on, const QPoint& at) {
    QMouseEvent move(QEvent::MouseMove, at, on->mapToGlobal(at), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(on, &move);
  }

  // Presses the button on an entry and moves far enough to begin a drag, which falls on the target.
  void Drag(const char* from, int row, QWidget* target) {
    VariableListView* source = List(from);
    auto* area = qobject_cast<QAbstractScrollArea*>(target);
    g_drop_target = area ? area->viewport() : target;
    const QPoint start = source->visualRect(source->model()->index(row, 0)).center();
    QTest::mousePress(source->viewport(), Qt::LeftButton, {}, start);
    const int far = QApplication::startDragDistance() + 5;
    MoveWithButton(source->viewport(), start + QPoint(far, 0));
    MoveWithButton(source->viewport(), start + QPoint(2 * far, 0));
    QTest::mouseRelease(source->viewport(), Qt::LeftButton, {}, start + QPoint(2 * far, 0));
    QCoreApplication::processEvents();
  }

 private slots:
  void init() {
    window_ = std::make_unique<WindowFixture>();
    window().Start(WritePeople());
    window().ShowView(View::ViewStatProcs);
    window().Find<QRadioButton>("Option3")->click();
  }
  void cleanup() { window_.reset(); }

  void AVariableIsFoundByAPartOfItsName() {
    QTest::keyClicks(Find(), "e");
    QCOMPARE(Shown(List("List1")), QStringList({"AGE", "SEX", "INC", "EDU", "REGION"}));  // INC by its label
    QTest::keyClicks(Find(), "d");
    QCOMPARE(Shown(List("List1")), QStringList("EDU"));
    Find()->clear();
    QCOMPARE(Shown(List("List1")), QStringList({"None", "AGE", "SEX", "INC", "EDU", "REGION"}));
  }

  void AVariableIsFoundByItsLabel() {
    QTest::keyClicks(Find(), "OF LIFE");
    QCOMPARE(Shown(List("List1")), QStringList("AGE"));
    Find()->setText("  house ");
    QCOMPARE(Shown(List("List1")), QStringList("INC"));
    Find()->setText("houses");
    QVERIFY(Shown(List("List1")).isEmpty());
  }

  void EnterTakesTheFirstThatIsFound() {
    Find()->setFocus();
    QTest::keyClicks(Find(), "re");
    QTest::keyClick(Find(), Qt::Key_Return);
    QCOMPARE(Panel().SelectedVariables, std::vector<std::size_t>{5});
    QCOMPARE(Find()->text(), "");
    QVERIFY(window().script().messages.empty());  // and does not run
  }

  void TheSummaryNamesThreeAndCountsTheRest() {
    for (const int row : {1, 2, 3}) Add(row, "Image2(0)");
    QCOMPARE(Summary().section(": ", 1), "AGE, SEX, INC");
    Add(4, "Image2(0)");
    QCOMPARE(Summary().section(": ", 1), "AGE, SEX, INC and 1 more");
    Add(5, "Image2(0)");
    QCOMPARE(Summary().section(": ", 1), "AGE, SEX, INC and 2 more");
    Add(2, "Image2(1)");
    QCOMPARE(Summary().section(": ", 1), "AGE, SEX, INC and 2 more by SEX");
  }

  // The procedure that is chosen already stays as it is: nothing that was typed for it goes.
  void ASecondPressOfTheProcedureKeepsWhatWasTyped() {
    auto* t_test = window().Find<QRadioButton>("Option4");
    t_test->click();
    auto* panel = window().Find<QWidget>("StatProc1");
    auto* group = panel->findChild<QLineEdit*>("Text5");
    group->setFocus();
    QTest::keyClicks(group, "12");
    t_test->click();
    QVERIFY(t_test->isChecked());
    QCOMPARE(group->text(), "12");
    window().Find<QRadioButton>("Option5")->click();  // another one clears the fields
    t_test->click();
    QCOMPARE(group->text(), "");
  }

  void AVariableIsDraggedFromTheListToTheFirst() {
    Drag("List1", 1, List("List2"));
    QCOMPARE(Panel().SelectedVariables, std::vector<std::size_t>{1});
    QVERIFY(Panel().IndependentVariables.empty());
  }

  void AVariableIsDraggedFromOneListToTheOther() {
    Add(1, "Image2(0)");
    Add(2, "Image2(0)");
    Drag("List2", 0, List("List3"));
    QCOMPARE(Panel().SelectedVariables, std::vector<std::size_t>{2});
    QCOMPARE(Panel().IndependentVariables, std::vector<std::size_t>{1});
  }

  void AVariableThatIsDraggedBackLeavesItsList() {
    Add(1, "Image2(0)");
    Add(2, "Image2(0)");
    Drag("List2", 1, List("List1"));
    QCOMPARE(Panel().SelectedVariables, std::vector<std::size_t>{1});
  }

  void WhatIsDraggedOntoItsOwnListStays() {
    Add(1, "Image2(0)");
    Add(2, "Image2(0)");
    Drag("List2", 0, List("List2"));
    QCOMPARE(Panel().SelectedVariables, std::vector<std::size_t>({1, 2}));
  }

  void ADragToTheControlSetsIt() {
    auto* control = window().Find<QWidget>("StatProc1")->findChild<QLineEdit*>("Text18");  // a calculator has one too
    Drag("List1", 2, control);
    QCOMPARE(control->text(), "SEX");
    QVERIFY(Panel().SelectedVariables.empty());
  }

  // The cursor stays where the user types, also in the middle of the text, whatever the frame shows anew.
  void NotesKeepTheCursorAtEachLetter() {
    window().Find<QAbstractButton>("Viewbar1(2)")->click();
    auto* notes = window().Find<QPlainTextEdit>("ProjectNotes");
    notes->setFocus();
    QTest::keyClicks(notes, "First wave");
    for (int i = 0; i < 4; ++i) QTest::keyClick(notes, Qt::Key_Left);
    QTest::keyClicks(notes, "and second ");
    QCOMPARE(notes->toPlainText(), "First and second wave");
    QTest::keyClick(notes, Qt::Key_Return);
    QTest::keyClicks(notes, "of the ");
    QCOMPARE(notes->toPlainText(), "First and second \nof the wave");
    QCOMPARE(window().session().data.ProjectNotes, std::string("First and second \r\nof the wave"));
  }

  // What is not saved yet shows in the title, until it is.
  void TheTitleMarksWhatIsNotSaved() {
    QVERIFY(!window().frame().isWindowModified());
    window().Find<QAbstractButton>("Viewbar1(2)")->click();
    auto* notes = window().Find<QPlainTextEdit>("ProjectNotes");
    notes->setFocus();
    QTest::keyClicks(notes, "x");
    QVERIFY(window().frame().isWindowModified());
    QVERIFY(window().session().data.DataDirty);
    QVERIFY(window().frame().windowTitle().endsWith("[*]"));
    window().ShowView(View::ViewDataGrid);
    window().Trigger(103);
    QVERIFY(!window().frame().isWindowModified());
    QVERIFY(!window().session().data.DataDirty);
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::PanelListsTest)
#include "panel_lists_test.moc"
