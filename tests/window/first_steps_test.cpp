#include <QClipboard>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTableView>

#include "window/grid/data1.h"
#include "window/reference/help_browser.h"
#include "window/reference/help_pane.h"
#include "window_fixture.h"

namespace tessara {

// What an empty grid offers, and that it is out of the way of whoever types.
class FirstStepsTest : public QObject {
  Q_OBJECT

  std::unique_ptr<WindowFixture> window_;
  WindowFixture& window() { return *window_; }

  QWidget* Offers() { return window().Find("FirstSteps"); }
  QPushButton* Offer(const char* name) { return window().Find<QPushButton>(name); }
  QTableView* Grid() { return window().Find<QTableView>("MSFlexGrid1"); }
  DataSet& Data() { return window().session().data; }
  // The sample of that place in the menu.
  QAction* Sample(int place) {
    auto* menu = Offer("OpenSample")->menu();
    emit menu->aboutToShow();
    return menu->actions().at(place);
  }

 private slots:
  void init() { window_ = std::make_unique<WindowFixture>(); }
  void cleanup() { window_.reset(); }

  void TypingGoesToTheCellAtOnceAndTheOffersGoAway() {
    window().Start();
    QVERIFY(Offers()->isVisible());
    QVERIFY(Grid()->hasFocus());
    QTest::keyClicks(Grid(), "7");
    auto* entry = window().Find<QLineEdit>("GridText1");
    QVERIFY(entry->hasFocus());
    QCOMPARE(entry->text(), "7");
    QTest::keyClick(entry, Qt::Key_Return);
    QCOMPARE(std::string(Data().matrix.Cell(16, 1).text()), "7");
    QVERIFY(!Offers()->isVisible());
    window().Trigger(214);  // undone, nothing is there again
    QVERIFY(Offers()->isVisible());
  }

  void ANameIsADatumToo() {
    window().Start();
    QTest::keyClick(Grid(), Qt::Key_Up);
    QTest::keyClicks(Grid(), "AGE");
    QTest::keyClick(window().Find<QLineEdit>("GridText1"), Qt::Key_Return);
    QVERIFY(!Offers()->isVisible());
  }

  void AFileOfTheCommandLineNeedsNoOffer() {
    window().Start(window().WriteDataFile("known.dcs", {"A"}, {{"1"}}));
    QVERIFY(window().frame().findChildren<QWidget*>("FirstSteps").isEmpty());
  }

  void ASampleIsOpenedAsAnyFile() {
    const Path file = window().WriteDataFile("scores & co.dcs", {"SEX", "AGE"}, {{"1", "34"}, {"2", "41"}, {"1", "5"}});
    window().WriteFile("notes.txt", "3 2");
    window().Start();
    QAction* sample = Sample(0);
    QCOMPARE(sample->text(), QString::fromUtf8("scores && co\t3 records \u00D7 2 variables"));
    QCOMPARE(Offer("OpenSample")->menu()->actions().size(), 1);
    sample->trigger();
    QCOMPARE(window().Pane(2), "3 Records");
    QVERIFY(window().frame().windowTitle().contains("scores & co.dcs"));
    QVERIFY(!Offers()->isVisible());
    QVERIFY(!window().frame().isWindowModified());
    QCOMPARE(Data().DataFilePath, file);
  }

  void WithoutSamplesTheMenuSaysSo() {
    window().Start();
    QVERIFY(!Sample(0)->isEnabled());
    QVERIFY(Sample(0)->text().startsWith("There are no samples"));
  }

  void AFileIsAskedFor() {
    const Path file = window().WriteDataFile("known.dcs", {"A"}, {{"1"}});
    window().Start();
    window().script().open_answers.push_back(WindowFixture::Chosen(file));
    Offer("OpenFile")->click();
    QCOMPARE(window().Pane(2), "1 Records");
    QVERIFY(!Offers()->isVisible());
    QVERIFY(Grid()->hasFocus());
  }

  void CopiedDataArePasted() {
    QApplication::clipboard()->clear();
    window().Start();
    QVERIFY(!Offer("PasteData")->isEnabled());
    QCOMPARE(Offer("PasteData")->toolTip(), "The clipboard holds no text");
    auto* table = new QMimeData;  // as a browser gives it
    table->setHtml("<table><tr><td>1</td><td>2</td></tr></table>");
    table->setText("1\t2\r3\t4");
    QApplication::clipboard()->setMimeData(table);
    QCoreApplication::processEvents();
    QVERIFY(Offer("PasteData")->isEnabled());
    Offer("PasteData")->setFocus();
    Offer("PasteData")->click();
    QCOMPARE(std::string(Data().matrix.Cell(17, 2).text()), "4");
    QVERIFY(!Offers()->isVisible());
    QVERIFY(Grid()->hasFocus());
  }

  void TheFirstStepsAreShown() {
    window().WriteFile(window().program_folder() / "Help" / "Index.html",
                       "<html><body><h2><a name=\"first\"></a>First steps</h2></body></html>");
    window().Start();
    Offer("ReadFirstSteps")->click();
    QVERIFY(window().session().help_pane_visible);
    QVERIFY(window().frame().findChild<HelpPane*>()->Shows("Index.html#first"));
    QVERIFY(Offers()->isVisible());
  }

  // Shift and Tab lead from the first cell to the offers, the blank and Enter press them, and a digit is still a digit.
  void TheOffersAreReachedByKeyboard() {
    window().Start();
    QTest::keyClick(Grid(), Qt::Key_Backtab);
    QCOMPARE(QApplication::focusWidget()->objectName(), "ReadFirstSteps");
    QStringList passed;
    for (int i = 0; i < 3; ++i) {
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
      passed += QApplication::focusWidget()->objectName();
    }
    QVERIFY(passed.contains("OpenFile"));
    QVERIFY(passed.contains("OpenSample"));
    Offer("OpenFile")->setFocus();
    QTest::keyClick(Offer("OpenFile"), Qt::Key_Return);  // the question is cancelled
    QCOMPARE(window().script().open_dialogs.size(), std::size_t{1});
    Offer("OpenFile")->setFocus();
    QTest::keyClicks(Offer("OpenFile"), "4");
    QCOMPARE(window().Find<QLineEdit>("GridText1")->text(), "4");
  }

  void EachHasAName() {
    window().Start();
    for (const char* name : {"OpenSample", "OpenFile", "PasteData", "ReadFirstSteps"}) {
      QVERIFY(!Offer(name)->accessibleName().isEmpty());
      QVERIFY(!Offer(name)->icon().isNull());
    }
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::FirstStepsTest)
#include "first_steps_test.moc"
