#include <QLineEdit>
#include <QListView>
#include <QRadioButton>
#include <QTextBrowser>
#include <QToolButton>

#include "window_fixture.h"

namespace tessara {

// The command palette: keys typed into it, and what is in front afterwards.
class PaletteTest : public QObject {
  Q_OBJECT

  std::unique_ptr<WindowFixture> window_;
  WindowFixture& window() { return *window_; }
  QWidget* Panel() { return window().frame().findChild<QWidget*>("PalettePanel"); }
  QLineEdit* Text() { return window().Find<QLineEdit>("PaletteText"); }
  QListView* List() { return window().Find<QListView>("PaletteList"); }
  QString Hint() { return window().Find<QLabel>("PaletteHint")->text(); }
  bool IsOpen() { return Panel() && Panel()->isVisible(); }
  QStringList Lines() {
    QStringList lines;
    for (int row = 0; row < List()->model()->rowCount(); ++row) {
      lines += List()->model()->index(row, 0).data().toString();
    }
    return lines;
  }
  QString Current() { return List()->currentIndex().data().toString(); }

  void Start() {
    window().WriteFile(window().program_folder() / "Help" / "Index.html", "<p>The first page</p>");
    window().WriteFile(window().program_folder() / "Help" / "hb-out.html", "<p>About outliers</p>");
    window().WriteFile(window().program_folder() / "Help" / "extra.html", "<title>Extra page</title><p>More</p>");
    window().WriteFile(window().program_folder() / "Help" / "Index.log", "Contents,Index\r\nOutliers,hb-out\r\n");
    window().Start(
        window().WriteDataFile("scores.dcs", {"AGE", "SEX", "WEIGHT"}, {{"34", "1", "70"}, {"41", "2", "81"}}));
  }
  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    QCoreApplication::processEvents();
  }
  void Open() {
    Press(Qt::Key_K, Qt::ControlModifier);
    QVERIFY(IsOpen());
    QVERIFY(Text()->hasFocus());
  }
  void Type(const char* words) {
    Open();
    QTest::keyClicks(Text(), words);
  }
  void Choose(const char* words) {
    Type(words);
    Press(Qt::Key_Return);
    QVERIFY(!IsOpen());
  }

 private slots:
  void init() { window_ = std::make_unique<WindowFixture>(); }
  void cleanup() { window_.reset(); }

  void ItOpensOnTheCommandsOfTheView() {
    Start();
    Open();
    const QStringList lines = Lines();
    QVERIFY(lines.contains("Save Data"));
    QVERIFY(!lines.contains("Save Output"));
    QVERIFY(!lines.contains("Exit"));  // which belongs to no view
    QCOMPARE(Current(), lines.front());
    QCOMPARE(Hint(), "Enter chooses, Esc closes");
  }

  void ACommandOfTheViewRuns() {
    Start();
    Choose("add col");
    QCOMPARE(window().Pane(3), "4 Variables");
    QCOMPARE(window().session().ActiveView, View::ViewDataGrid);
  }

  void ACommandOfAnotherViewBringsItToTheFront() {
    Start();
    window().ShowView(View::ViewCharts);
    Choose("add rows");
    QCOMPARE(window().session().ActiveView, View::ViewDataGrid);
    QCOMPARE(window().Pane(2), "12 Records");  // ten more
  }

  void WhatCannotBeChosenSaysWhyAndStays() {
    Start();
    Type("undo");
    QCOMPARE(Current(), "Undo");
    QCOMPARE(Hint(), "There is nothing to undo");
    Press(Qt::Key_Return);
    QVERIFY(IsOpen());
    QCOMPARE(window().session().ActiveView, View::ViewDataGrid);
  }

  void AProcedureIsChosenOnThePanel() {
    Start();
    Choose("anova one");
    QCOMPARE(window().session().ActiveView, View::ViewStatProcs);
    QVERIFY(window().Find<QRadioButton>("Option5")->isChecked());
    window().ShowView(View::ViewDataGrid);
    Choose("logistic");
    QVERIFY(window().Find<QRadioButton>("Option22")->isChecked());
  }

  void ACalculatorIsChosenOnItsForm() {
    Start();
    Choose("one sample prop");
    QCOMPARE(window().session().ActiveView, View::ViewBrevarum);
    QVERIFY(window().Find<QAbstractButton>("Option1(2)")->isChecked());
    QVERIFY(window().Find<QAbstractButton>("Option2(1)")->isChecked());
  }

  void AVariableTakesTheCursorOfTheGrid() {
    Start();
    window().ShowView(View::ViewOutput);
    Choose("weight");
    QCOMPARE(window().session().ActiveView, View::ViewDataGrid);
    QCOMPARE(window().session().data.CurrentColumn, std::size_t{3});
    auto* grid = window().Find<QAbstractItemView>("MSFlexGrid1");
    QCOMPARE(grid->currentIndex().column(), 2);
    QVERIFY(grid->hasFocus());
  }

  void ATopicIsShownInTheHandbook() {
    Start();
    Choose("outli");
    QCOMPARE(window().session().ActiveView, View::ViewHandbook);
    QVERIFY(window().Find<QTextBrowser>("HandbookPage")->toPlainText().contains("About outliers"));
    window().Trigger(901);  // the first page lies behind it
    QVERIFY(window().Find<QTextBrowser>("HandbookPage")->toPlainText().contains("The first page"));
  }

  void AHelpPageIsShownInItsPane() {
    Start();
    Choose("extra");
    QVERIFY(window().Find<QWidget>("TaskPanel")->isVisible());
    QVERIFY(
        window().frame().findChild<QWidget*>("TaskPanel")->findChild<QTextBrowser*>()->toPlainText().contains("More"));
    QCOMPARE(window().session().ActiveView, View::ViewDataGrid);
  }

  void WhatWasUsedLastComesFirst() {
    Start();
    Choose("default size");
    Choose("add rows");
    Open();
    QCOMPARE(Lines().mid(0, 2), QStringList({"Add Rows", "Default Size"}));
    Press(Qt::Key_Escape);
  }

  void TheKeysGoThroughTheList() {
    Start();
    Open();
    const QStringList lines = Lines();
    Press(Qt::Key_Down);
    QCOMPARE(Current(), lines[1]);
    Press(Qt::Key_Tab);
    QCOMPARE(Current(), lines[2]);
    Press(Qt::Key_Up);
    QCOMPARE(Current(), lines[1]);
    Press(Qt::Key_Up);
    Press(Qt::Key_Up);
    QCOMPARE(Current(), lines.back());  // around the top
    Press(Qt::Key_PageUp);
    Press(Qt::Key_PageUp);
    Press(Qt::Key_PageUp);
    Press(Qt::Key_PageUp);
    QCOMPARE(Current(), lines.front());
    Press(Qt::Key_PageDown);
    QVERIFY(List()->currentIndex().row() > 5);
    QVERIFY(Text()->hasFocus());
    QVERIFY(Text()->accessibleDescription().startsWith(Current() + ", Command, "));
  }

  void ALineIsChosenWithTheMouse() {
    Start();
    Type("add rows");
    QTest::mouseClick(List()->viewport(), Qt::LeftButton, {},
                      List()->visualRect(List()->model()->index(0, 0)).center());
    QVERIFY(!IsOpen());
    QCOMPARE(window().Pane(2), "12 Records");
  }

  void EscapeAndItsOwnKeyGiveTheKeyboardBack() {
    Start();
    window().ShowView(View::ViewStatProcs);
    auto* find = window().Find<QLineEdit>("FindVariable");
    for (const bool escape : {true, false}) {
      find->setFocus();
      Open();
      escape ? Press(Qt::Key_Escape) : Press(Qt::Key_K, Qt::ControlModifier);
      QVERIFY(!IsOpen());
      QVERIFY(find->hasFocus());
    }
  }

  void ItGoesWhenTheKeyboardGoesElsewhere() {
    Start();
    Open();
    window().Find<QWidget>("MSFlexGrid1")->setFocus();
    QVERIFY(!IsOpen());
    QVERIFY(window().Find<QWidget>("MSFlexGrid1")->hasFocus());
  }

  void NoCommandRunsBehindIt() {
    Start();
    Open();
    Press(Qt::Key_2, Qt::ControlModifier);
    Press(Qt::Key_F5);
    Press(Qt::Key_N, Qt::ControlModifier);
    QVERIFY(IsOpen());
    QCOMPARE(window().session().ActiveView, View::ViewDataGrid);
    QCOMPARE(window().Pane(2), "2 Records");
  }

  void NothingThatMatchesIsSaid() {
    Start();
    Type("qqqq");
    QVERIFY(Lines().isEmpty());
    QCOMPARE(Hint(), "Nothing is called that: try fewer letters");
    Press(Qt::Key_Return);
    Press(Qt::Key_Down);
    Press(Qt::Key_PageDown);
    QVERIFY(IsOpen());
  }

  void TheBarOpensItFromEveryView() {
    Start();
    for (int view = 1; view <= 7; ++view) {
      window().ShowView(static_cast<View>(view));
      auto* button = window().Find<QToolButton>("PaletteButton");
      QVERIFY(button->isVisible());
      button->click();
      QVERIFY(IsOpen());
      Press(Qt::Key_Escape);
    }
  }

  void TheBarYieldsInANarrowWindow() {
    Start();
    auto* button = window().Find<QToolButton>("PaletteButton");
    window().frame().resize(1600, 800);
    QTRY_COMPARE(button->toolButtonStyle(), Qt::ToolButtonTextBesideIcon);
    window().frame().resize(window().frame().minimumSize());
    QTRY_COMPARE(button->toolButtonStyle(), Qt::ToolButtonIconOnly);
    const QRect place(button->mapTo(&window().frame(), QPoint()), button->size());
    QVERIFY(window().frame().rect().contains(place));
    Open();
    QVERIFY(window().frame().rect().contains(Panel()->geometry()));
  }

  void NamesOfFilesAreLinesOfPlainText() {
    window().Start(window().WriteDataFile("odd.dcs", {"<b>A&B</b>", std::string(5000, 'y')}, {{"1", "2"}}));
    Type("a b b");
    QVERIFY(Lines().contains("<b>A&B</b>"));
    Text()->setText("yyyy");
    QVERIFY(Current().endsWith("..."));
    QVERIFY(Current().size() < 300);
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::PaletteTest)
#include "palette_test.moc"
