#include "window/deskcalc/calc_pad.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMessageBox>
#include <QTableView>
#include <QToolButton>

#include "shell/command_row.h"
#include "window_fixture.h"

namespace tessara {

// The desk calculator over the frame: keys by mouse and keyboard, tape, memories, menu, and the way of a number into
// the frame.
class CalcPadTest : public QObject {
  Q_OBJECT

  std::unique_ptr<WindowFixture> window_;
  WindowFixture& window() { return *window_; }
  ScriptedPlatform& script() { return window().script(); }
  DeskCalculator& Calculator() { return window().session().calculator; }

  CalcPad* Pad() { return window().frame().findChild<CalcPad*>("CalcPad"); }
  template <typename Widget>
  Widget* In(const char* name) {
    auto* found = Pad()->findChild<Widget*>(name);
    if (!found) qWarning("no widget %s", name);
    return found;
  }
  void Open() {
    window().Trigger(404);
    QVERIFY(Pad());
    QVERIFY(QTest::qWaitForWindowExposed(Pad()));
    QApplication::setActiveWindow(Pad());
    QCoreApplication::processEvents();
  }
  QString Display() { return In<QLineEdit>("CalcText1")->text(); }
  QStringList Tape() {
    QStringList lines;
    const auto* model = In<QListView>("List1")->model();
    for (int row = 0; row < model->rowCount(); ++row) lines += model->index(row, 0).data().toString();
    return lines;
  }
  void Type(const QString& keys) { QTest::keyClicks(QApplication::focusWidget(), keys); }
  void Click(CalcKey key) {
    const QByteArray name = QString("Image1(%1)").arg(static_cast<int>(key)).toLatin1();
    QTest::mouseClick(In<QWidget>(name.constData()), Qt::LeftButton);
  }
  // An entry of the tape's menu, which the right button opens.
  void Choose(const char* entry) {
    auto* tape = In<QListView>("List1");
    QContextMenuEvent ask(QContextMenuEvent::Keyboard, tape->rect().center(), tape->mapToGlobal(tape->rect().center()));
    QApplication::sendEvent(tape, &ask);
    auto* menu = In<QMenu>("TapeMenu");
    QVERIFY(menu);
    for (QAction* action : menu->actions()) {
      if (action->text() == entry) action->trigger();
    }
    menu->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
  }

 private slots:
  void init() {
    window_ = std::make_unique<WindowFixture>();
    window().Start();
  }
  void cleanup() { window_.reset(); }

  void TheCommandShowsItOnTopAndKeepsIt() {
    Open();
    QCOMPARE(Pad()->windowTitle(), "  Calculator");
    QVERIFY(Pad()->windowFlags() & Qt::WindowStaysOnTopHint);
    QVERIFY(!Pad()->isModal());
    QCOMPARE(Display(), " 0");
    QCOMPARE(Tape(), QStringList{"    Calculation History"});
    const QPointer<CalcPad> pad = Pad();
    Type("7");
    pad->close();
    QVERIFY(pad);
    window().Trigger(404);
    QCOMPARE(Pad(), pad.data());
    QVERIFY(pad->isVisible());
    QCOMPARE(Display(), " 7");
    QCOMPARE(window().frame().findChildren<CalcPad*>().size(), 1);
  }

  void KeysAreClicked() {
    Open();
    for (const CalcKey key :
         {CalcKey::k1, CalcKey::k2, CalcKey::kPoint, CalcKey::k5, CalcKey::kAdd, CalcKey::k3, CalcKey::kEqual}) {
      Click(key);
    }
    QCOMPARE(Display(), " 15.5");
    QCOMPARE(Tape().back(), "   =              15.5");
    QCOMPARE(In<QListView>("List1")->currentIndex().row(), 4);  // the result is chosen
    Click(CalcKey::kClear);
    Click(CalcKey::k9);
    Click(CalcKey::kSquareRoot);
    QCOMPARE(Display(), " 3");
    Click(CalcKey::kBackspace);
    Click(CalcKey::kReciprocal);
    QCOMPARE(Tape().back(), "   = 0.3333333333333333");  // of the value, which is 3
  }

  void KeysAreTyped() {
    Open();
    Type("12.5*2");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(Display(), " 25");
    Type("9,5-");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_5, Qt::KeypadModifier);
    Type("=");
    QCOMPARE(Display(), " 4.5");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backspace);
    QCOMPARE(Display(), " 4.");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    QCOMPARE(Display(), " 0");
    QVERIFY(Pad()->isVisible());
    Type("5!");
    QCOMPARE(Display(), " 120");
    Type("/0=");
    QCOMPARE(Display(), "System limit exceeded   ");
  }

  // Wherever the keyboard is: a key under it is pressed by the blank, a digit is a digit.
  void EachKeyIsReachedByTab() {
    Open();
    QSet<QString> reached;
    for (int i = 0; i < 80; ++i) {
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
      reached += QApplication::focusWidget()->objectName();
    }
    for (int i = 0; i < 32; ++i) QVERIFY2(reached.contains(QString("Image1(%1)").arg(i)), QByteArray::number(i));
    for (const char* name : {"CalcText1", "List1", "Viewbar1", "TapeMenuButton"}) QVERIFY(reached.contains(name));
    In<QWidget>("Image1(7)")->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    Type("3");
    In<QListView>("List1")->setFocus();
    Type("1");
    QCOMPARE(Display(), " 731");
  }

  void EveryControlHasANameAndTheKeysTheirTips() {
    Open();
    for (const QAbstractButton* key : Pad()->findChildren<QAbstractButton*>()) {
      QVERIFY2(!key->accessibleName().isEmpty(), qPrintable(key->objectName()));
    }
    QCOMPARE(In<QAbstractButton>("Image1(19)")->toolTip(), "Reciprical of X");
    QCOMPARE(In<QAbstractButton>("Image1(20)")->toolTip(), "n factorial");
    QCOMPARE(In<QAbstractButton>("Image1(24)")->toolTip(), "Display Integer");
    QCOMPARE(In<QAbstractButton>("Image1(5)")->toolTip(), "");
    QCOMPARE(In<QWidget>("Label1")->toolTip(), "Memory contents");
  }

  void TheTapeIsHidden() {
    Open();
    auto* bar = In<QToolButton>("Viewbar1");
    QCOMPARE(bar->text(), "Hide calculations");
    const int width = Pad()->width();
    bar->click();
    QCOMPARE(bar->text(), "View calculations");
    QVERIFY(!In<QListView>("List1")->isVisible());
    QTRY_VERIFY(Pad()->width() < width);
    Type("1+");
    bar->click();
    QVERIFY(In<QListView>("List1")->isVisible());
    QCOMPARE(Tape().back(), "   +                 1");
  }

  void MemoriesAreShownAndHeard() {
    Open();
    QCOMPARE(In<QLabel>("Label1")->text(), "        Empty");
    QCOMPARE(In<QLabel>("Label2")->text(), "Empty");
    Type("42");
    In<QAbstractButton>("Image1(26)")->click();
    QCOMPARE(In<QLabel>("Label1")->text(), "42");
    QCOMPARE(script().sounds.size(), std::size_t{1});
    QCOMPARE(script().sounds[0].filename().string(), "copy.wav");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    In<QAbstractButton>("Image1(27)")->click();
    QCOMPARE(Display(), " 42");
    In<QAbstractButton>("Image1(29)")->click();
    QCOMPARE(In<QLabel>("Label2")->text(), "42");
    In<QAbstractButton>("Image1(28)")->click();
    QCOMPARE(In<QLabel>("Label1")->text(), "        Empty");
    In<QAbstractButton>("Image1(31)")->click();
    QCOMPARE(In<QLabel>("Label2")->text(), "Empty");
  }

  void TheMenuOfTheTape() {
    Open();
    Type("0-2=");
    Choose("Copy");
    QCOMPARE(QApplication::clipboard()->text(), "-2");
    QCOMPARE(Display(), " 2");  // the sign leaves with the operators
    Choose("All");
    QVERIFY(QApplication::clipboard()->text().startsWith("    Calculation History"));
    QVERIFY(QApplication::clipboard()->text().endsWith("   =                -2"));
    Choose("Reset");
    QCOMPARE(Tape(), QStringList{"    Calculation History"});
    QCOMPARE(Calculator().selected, -1);
  }

  void TheTapeIsPrinted() {
    Open();
    Type("6+");
    script().print_answers.push_back(PrintChoice{});
    Choose("Print");
    QCOMPARE(script().print_dialogs.back().title, "Print");
    QVERIFY(script().printed.back().front().starts_with(
        "Abaquill Calculator Output\r\n\r\n    Calculation History\r\n   +                 6\r\n\r\nNotes\r\n___"));
    script().printer_works = false;
    script().print_answers.push_back(PrintChoice{});
    Choose("Print");
    QCOMPARE(script().messages.back().title, "Printer Error");
  }

  void TheClipboardComesAndGoes() {
    Open();
    QApplication::clipboard()->setText(" 1,234.5\n");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(Display(), " 1234.5");
    QApplication::clipboard()->setText("no number");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(Display(), " 1234.5");
    QCOMPARE(window().Pane(1), "The clipboard holds no number");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), "1234.5");
  }

  void ABoxThatAsksStandsInFront() {
    Open();
    bool in_sight = true;
    QMessageBox box(&window().frame());
    QTimer::singleShot(100, &box, [&] {
      in_sight = Pad()->isVisible();
      box.close();
    });
    box.exec();
    QVERIFY(!in_sight);
    QTRY_VERIFY(Pad()->isVisible());
  }

  void ATransferGoesToTheCalculatorsBox() {
    window().ShowView(View::ViewBrevarum);
    auto* box = window().Find<QLineEdit>("tx1");
    box->setFocus();
    Open();
    Type("82.4=");
    Choose("Transfer");
    QCOMPARE(box->text(), "82.4");
    QVERIFY(box->hasFocus());
    window().frame().Execute(308);
    QCOMPARE(ToQt(window().session().brevarum.Box("tx1")), "82.4");
  }

  void ATransferBeginsTheEntryOfTheCell() {
    auto* grid = window().Find<QTableView>("MSFlexGrid1");
    grid->setFocus();
    Open();
    Type("3*4=");
    Choose("Transfer");
    auto* entry = window().Find<QLineEdit>("GridText1");
    QVERIFY(entry->isVisible());
    QCOMPARE(entry->text(), "12");
    QTest::keyClick(entry, Qt::Key_Return);
    QCOMPARE(std::string(window().session().data.matrix.Cell(16, 1).text()), "12");
    QVERIFY(window().session().data.DataDirty);
  }

  void ATransferWithoutAPlaceIsRefused() {
    window().ShowView(View::ViewTips);
    window().ShowView(View::ViewBrevarum);
    for (auto* button : window().frame().findChildren<QAbstractButton*>()) {
      if (button->isVisible() && button->focusPolicy() != Qt::NoFocus) {
        button->setFocus();
        break;
      }
    }
    Open();
    Type("5");
    Choose("Transfer");
    QVERIFY(window().Pane(1).startsWith("Click the box or cell"));
  }

  void ItFollowsTheSizeOfType() {
    Open();
    const int height = In<QWidget>("Image1(7)")->height();
    const qreal type = In<QWidget>("CalcText1")->font().pointSizeF();
    window().Find<QAction>("LargerType")->trigger();
    QVERIFY(In<QWidget>("CalcText1")->font().pointSizeF() > type);
    QTRY_VERIFY(In<QWidget>("Image1(7)")->height() >= height);
    window().Find<QAction>("UsualType")->trigger();
  }

  void ALongTapeAndEntryAreShownAtOnce() {
    Open();
    for (int i = 0; i < 100'000; ++i) PressOperator(Calculator(), CalcOperator::kAdd);
    for (int i = 0; i < 100'000; ++i) PressDigit(Calculator(), '8');
    Type("8+");
    QCOMPARE(Display(), "System limit exceeded   ");
    QCOMPARE(In<QListView>("List1")->model()->rowCount(), 100'001);
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::CalcPadTest)
#include "calc_pad_test.moc"
