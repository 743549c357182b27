#include <QClipboard>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTextBlock>
#include <QTextBrowser>
#include <QToolButton>
#include <cmath>

#include "window_fixture.h"

namespace tessara {

// The view of the calculators: buttons, boxes and keys reach the panel, and its texts reach the view.
class BrevarumTest : public QObject {
  Q_OBJECT

  std::unique_ptr<WindowFixture> window_;
  WindowFixture& window() { return *window_; }
  QLineEdit* Box(const char* name) { return window().Find<QLineEdit>(name); }
  QString Text(const char* name) { return window().Find<QPlainTextEdit>(name)->toPlainText(); }
  void Press(const char* name) {
    auto* button =
        window().Find<QWidget>("Brevarum1")->findChild<QAbstractButton*>(name);  // other views have a Viewbar1
    QTest::mouseClick(button, Qt::LeftButton);
    QCoreApplication::processEvents();
  }
  BrevarumPanel& Panel() { return window().session().brevarum; }

 private slots:
  void init() {
    window_ = std::make_unique<WindowFixture>();
    window().Start();
    window().ShowView(View::ViewBrevarum);
  }
  void cleanup() { window_.reset(); }

  void StartsWithTwoSampleMeansAndTheInstructions() {
    QCOMPARE(window().Find<QGroupBox>("InputFrame")->title(), "Two Sample Means");
    QVERIFY(window().Find<QAbstractButton>("Option1(0)")->isChecked());
    QVERIFY(window().Find<QRadioButton>("Option2(0)")->isChecked());
    QVERIFY(Box("tx1")->hasFocus());
    QCOMPARE(Box("Text11")->text(), "Sample(1)");
    QCOMPARE(window().Find<QLabel>("Label43")->text(), "Instructions");
    QVERIFY(Text("Text25").startsWith("Two-sample t-test:"));
    QVERIFY(Text("T5").contains("F= 0.00    DF= (0, 0)     p < 0.000"));
    QVERIFY(!window().Find<QPushButton>("Label44")->isEnabled());
  }

  void EnterGoesThroughTheBoxesAndF5Calculates() {
    const std::vector<std::pair<const char*, const char*>> typed = {{"tx1", "24.5"}, {"tx2", "22.1"}, {"ts1", "4.2"},
                                                                    {"ts2", "3.9"},  {"tn1", "30"},   {"tn2", "28"}};
    for (const auto& [box, text] : typed) {
      QVERIFY2(Box(box)->hasFocus(), box);
      QTest::keyClicks(Box(box), text);
      QTest::keyClick(Box(box), Qt::Key_Return);
    }
    // Behind the last box stands Calculate, which the next Enter presses.
    auto* calculate = window().Find<QPushButton>("CalculateButton");
    QVERIFY(calculate->hasFocus());
    QCOMPARE(window().Find<QLabel>("Label43")->text(), "Instructions");
    QTest::keyClick(calculate, Qt::Key_Return);
    QVERIFY(window().script().messages.empty());
    // t by hand: 2.4 / (sqrt((29 * 17.64 + 27 * 15.21) / 56) * sqrt(58 / 840)) = 2.2507
    QVERIFY(Text("T5").contains("2.2507"));
    QCOMPARE(window().Find<QLabel>("Label43")->text(), "Results");
    QVERIFY(Text("Text25").startsWith("Two-Sample T-Test"));
    QVERIFY(window().session().output.OutputLogText.find("Two-Sample Difference of Means") != std::string::npos);
  }

  void CountsAreTypedRowByRowWithEnterAlone() {
    Press("Option1(3)");
    for (const char* typed : {"30", "10", "", "15", "25", ""}) {
      QWidget* box = QApplication::focusWidget();
      QTest::keyClicks(box, typed);
      QTest::keyClick(box, Qt::Key_Return);
    }
    auto* calculate = window().Find<QPushButton>("CalculateButton");
    QVERIFY(calculate->hasFocus());
    QTest::keyClick(calculate, Qt::Key_Return);
    QVERIFY(Text("T5").contains("11.429"));  // 80 (30 * 25 - 10 * 15)^2 / (40 * 40 * 45 * 35)
    QVERIFY(Box("C1R1")->hasFocus());
  }

  void EnterOnALaterRowPassesUnusedColumns() {
    Press("Option1(3)");
    for (const char* box : {"C1R1", "C2R1", "C3R1"}) QTest::keyClicks(Box(box), "4");
    Box("C2R2")->setFocus();
    for (const char* next : {"C3R2", "C1R3"}) {
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
      QCOMPARE(QApplication::focusWidget()->objectName(), next);
    }
  }

  void UpAndDownMoveBetweenTheCells() {
    Press("Option1(3)");
    Box("C2R2")->setFocus();
    for (const auto& [key, next] : {std::pair{Qt::Key_Down, "C2R3"},
                                    {Qt::Key_Down, "C2R4"},
                                    {Qt::Key_Up, "C2R3"},
                                    {Qt::Key_Up, "C2R2"},
                                    {Qt::Key_Up, "C2R1"},
                                    {Qt::Key_Up, "Text2"},
                                    {Qt::Key_Up, "Text2"}}) {
      QTest::keyClick(QApplication::focusWidget(), key);
      QCOMPARE(QApplication::focusWidget()->objectName(), next);
    }
    Press("Option1(4)");
    QTest::keyClick(Box("T1"), Qt::Key_Down);
    QVERIFY(Box("T2")->hasFocus());
    QTest::keyClick(Box("T2"), Qt::Key_Down, Qt::ShiftModifier);  // selects, as in any field
    QVERIFY(Box("T2")->hasFocus());
  }

  void ALetterIsAnsweredAtOnceAndALoneMinusIsNot() {
    QTest::keyClicks(Box("tx1"), "-");
    QVERIFY(window().script().messages.empty());
    QTest::keyClicks(Box("tx1"), "x");
    QCOMPARE(window().script().messages.size(), std::size_t{1});
    QCOMPARE(window().script().messages[0].title, std::string("Error!"));
    QCOMPARE(window().script().messages[0].text, std::string("Non-numerical entry."));
    QCOMPARE(Box("tx1")->text(), "-x");  // left in place
  }

  void TypingInTheMiddleStaysThere() {
    QLineEdit* box = Box("tx1");
    QTest::keyClicks(box, "1234");
    QTest::keyClick(box, Qt::Key_Home);
    QTest::keyClicks(box, "56");
    QCOMPARE(box->text(), "561234");
    QCOMPARE(box->cursorPosition(), 2);
  }

  void AKeyIsJudgedInTheBoxInWhichItWasPressed() {
    QLineEdit* first = Box("tx1");
    QLineEdit* second = Box("tx2");
    QTest::keyPress(first, Qt::Key_5);
    QTest::keyClick(first, Qt::Key_Tab);
    QVERIFY(second->hasFocus());
    QTest::keyRelease(second, Qt::Key_5);
    QCOMPARE(window().script().messages.size(), std::size_t{0});
    // the release of a command's key, and of the Enter that has closed a message
    QTest::keyPress(second, Qt::Key_A, Qt::ControlModifier);
    QTest::keyRelease(second, Qt::Key_A);
    QTest::keyRelease(second, Qt::Key_Return);
    QCOMPARE(window().script().messages.size(), std::size_t{0});
    QVERIFY(second->hasFocus());
  }

  void ALetterIsAnsweredThoughTheNextKeyCameFirst() {
    QLineEdit* first = Box("tx1");
    QTest::keyPress(first, Qt::Key_X, Qt::NoModifier);
    QTest::keyClick(first, Qt::Key_Return);
    QVERIFY(Box("tx2")->hasFocus());
    QTest::keyRelease(Box("tx2"), Qt::Key_X);
    QCOMPARE(window().script().messages.size(), std::size_t{1});
    QCOMPARE(window().script().messages[0].text, "Non-numerical entry.");
    QCOMPARE(first->text(), "x");
  }

  void DeleteIsJudgedUnlessItEmptiesTheBox() {
    QLineEdit* box = Box("tx1");
    box->setText("1e5");
    box->setFocus();
    box->setCursorPosition(2);
    QTest::keyClick(box, Qt::Key_Delete);
    QCOMPARE(box->text(), "1e");
    QCOMPARE(window().script().messages.size(), std::size_t{1});
    box->selectAll();
    QTest::keyClick(box, Qt::Key_Delete);
    QCOMPARE(box->text(), "");
    QCOMPARE(window().script().messages.size(), std::size_t{1});
  }

  void EnterLeavesTheChoicesOfPowerToo() {
    Press("Option1(8)");
    auto* alpha = window().Find<QComboBox>("Alpha");
    alpha->setFocus();
    QTest::keyClick(alpha, Qt::Key_Return);
    QVERIFY(window().Find<QComboBox>("Beta")->hasFocus());
    QTest::keyClick(window().Find<QComboBox>("Beta"), Qt::Key_Return);
    QVERIFY(Box("T1")->hasFocus());
  }

  void TheFocusReturnsToTheInput() {
    QTest::keyClicks(Box("tx1"), "5");
    Box("ts2")->setFocus();
    window().Trigger(308);
    QVERIFY(Box("ts2")->hasFocus());  // where the user was at work
    auto* calculate = window().Find<QPushButton>("CalculateButton");
    calculate->setFocus();
    QTest::keyClick(calculate, Qt::Key_Return);
    QVERIFY(Box("tx1")->hasFocus());
  }

  void ARefusalIsSeenWithTheResultsOutOfSight() {
    auto* message = window().Find<QLabel>("CalculatorMessage");
    Press("Option1(3)");
    Press("Viewbar1(2)");
    QCOMPARE(message->text(), "");
    window().Trigger(308);
    QCOMPARE(message->text(), "Error: No cases in table");
    Press("Viewbar1(0)");
    QCOMPARE(message->text(), "");
    QCOMPARE(window().Find<QLabel>("Label43")->text(), "Error: No cases in table");
  }

  void KeysThatOnlyMoveAskNothing() {
    QTest::keyClick(Box("tx1"), Qt::Key_Tab);
    QTest::keyClick(Box("tx1"), Qt::Key_Left);
    QTest::keyClick(Box("tx1"), Qt::Key_Shift);
    QVERIFY(window().script().messages.empty());
  }

  void TabGoesAsTheEyeReads() {
    Box("Text11")->setFocus();
    for (const char* next : {"Text12", "tx1", "tx2", "ts1", "ts2", "tn1", "tn2", "CalculateButton"}) {
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
      QCOMPARE(QApplication::focusWidget()->objectName(), next);
    }
  }

  void EveryPanelRemembersItsBoxesAndResult() {
    Press("Option1(4)");
    QCOMPARE(window().Find<QGroupBox>("InputFrame")->title(), "Margin of Error for Means");
    QTest::keyClicks(Box("T1"), "25");
    QTest::keyClicks(Box("T2"), "100");
    QTest::keyClicks(Box("T3"), "10");
    window().Trigger(308);
    const QString result = Text("T5");
    // 2.064 * 10 / sqrt(25) = 4.128, by the printed table of t
    QVERIFY(result.contains("4.1280"));
    Press("Option1(6)");
    QCOMPARE(Box("T1")->text(), "");
    QTest::keyClicks(Box("T1"), "7");
    Press("Option1(4)");
    QCOMPARE(Box("T1")->text(), "25");
    QCOMPARE(Text("T5"), result);
    QCOMPARE(window().Find<QLabel>("Label43")->text(), "Instructions");
    Press("Option1(6)");
    QCOMPARE(Box("T1")->text(), "7");
  }

  void SamplesMatterToTwoKindsOnly() {
    Press("Option1(3)");
    Press("Option2(1)");
    QCOMPARE(Panel().CurrentPanel, std::int16_t{3});
    QCOMPARE(window().Find<QGroupBox>("InputFrame")->title(), "Chi-Square Test of Independence");
    Press("Option1(2)");
    QCOMPARE(Panel().CurrentPanel, std::int16_t{10});
    QCOMPARE(window().Find<QGroupBox>("InputFrame")->title(), "One Sample Proportion");
    QVERIFY(Box("PU1")->isVisible());
    QVERIFY(!Box("zp1")->isVisible());
  }

  void TheCurveTakesThePlaceOfTheCompactResult() {
    auto* curve = window().Find<QWidget>("NormalCurve");
    auto* compact = window().Find<QPlainTextEdit>("T5");
    Press("Option1(6)");
    QVERIFY(curve->isVisible());
    QVERIFY(!compact->isVisible());
    Press("Option1(5)");
    QVERIFY(!curve->isVisible());
    QVERIFY(compact->isVisible());
  }

  void AScoreOfZeroHasItsMarker() {
    Press("Option1(6)");
    auto* curve = window().Find<QWidget>("NormalCurve");
    const QImage bare = curve->grab().toImage();
    for (const auto& [name, text] : {std::pair{"T1", "0"}, {"T2", "5"}, {"T3", "2"}}) QTest::keyClicks(Box(name), text);
    window().Trigger(308);
    QCOMPARE(window().Find<QLabel>("L5")->text(), "");
    QVERIFY(curve->grab().toImage() != bare);
    window().Trigger(101);
    QCOMPARE(curve->grab().toImage(), bare);
  }

  void TheBellHasAtEachTickTheHeightOfItsScore() {
    Press("Option1(6)");
    window().frame().resize(1400, 1000);
    QCoreApplication::processEvents();
    auto* curve = window().Find<QWidget>("NormalCurve");
    const QImage picture = curve->grab().toImage();
    const QRgb ground = picture.pixel(1, 1);
    const int line = curve->fontMetrics().height();
    const int axis = qRound(curve->height() - 1.6 * line);
    // The column of a score by the rule of the marker: 700 of 1900 for a score of 1, on 92 of 100 parts of the width.
    const auto column = [&](double z) {
      return qRound(curve->width() * (0.5 + std::copysign(0.46 * 700 * std::sqrt(std::fabs(z)) / 1900, z)));
    };
    const auto height = [&](int x) {
      for (int y = 1; y < axis; ++y) {
        if (picture.pixel(x, y) != ground) return axis - y;
      }
      return 0;
    };
    const auto has_ink = [&](int x) { return picture.pixel(x, axis + 3) != ground; };
    const double top = height(column(0));
    QVERIFY(top > 60);
    for (const double z : {-4.0, -2.0, -1.0, 1.0, 2.0, 4.0}) {
      const int x = column(z);
      const double drawn = height(x) / top;
      QVERIFY2(std::fabs(drawn - std::exp(-z * z / 2)) < 0.06, qPrintable(QString("%1: %2").arg(z).arg(drawn)));
      QVERIFY2(has_ink(x - 1) || has_ink(x) || has_ink(x + 1), "a tick stands there");
      QVERIFY(!has_ink(x - 5) && !has_ink(x + 5));
    }
  }

  void ACalculationLeavesTheLayoutAlone() {
    Press("Option1(3)");
    for (int i = 0; i < 4; ++i) QCoreApplication::processEvents();  // until the layout has come to rest
    const QRect box = Box("C3R2")->geometry();
    QTest::keyClicks(Box("C1R1"), "5");
    QTest::keyClicks(Box("C2R2"), "5");
    window().Trigger(308);
    QCoreApplication::processEvents();
    QCOMPARE(Box("C3R2")->geometry(), box);
    Press("Option1(6)");
    for (int i = 0; i < 4; ++i) QCoreApplication::processEvents();
    auto* curve = window().Find<QWidget>("NormalCurve");
    const QRect drawn = curve->geometry();
    QTest::keyClicks(Box("T1"), "1");
    QTest::keyClicks(Box("T2"), "5");
    QTest::keyClicks(Box("T3"), "2");
    window().Trigger(308);
    QCoreApplication::processEvents();
    QCOMPARE(curve->geometry(), drawn);
  }

  void APressedButtonMakesTheFirstBoxReady() {
    Press("Option1(6)");
    QVERIFY(Box("T1")->hasFocus());
    Press("Option1(0)");
    Press("Option2(1)");
    QVERIFY(Box("Text20")->hasFocus());
  }

  void TheArrowKeysStayOnTheButtons() {
    auto* button = window().Find<QAbstractButton>("Option1(0)");
    button->setFocus(Qt::TabFocusReason);
    QTest::keyClick(button, Qt::Key_Right);
    QCOMPARE(Panel().CurrentPanel, std::int16_t{1});
    QVERIFY(window().Find<QAbstractButton>("Option1(1)")->hasFocus());
  }

  void EveryPanelShowsItsBoxesAndNoOther() {
    for (int option = 0; option < 9; ++option) {
      Press(QString("Option1(%1)").arg(option).toLatin1());
      const auto& boxes = CurrentRow(Panel()).boxes;
      for (QLineEdit* edit : window().Find<QGroupBox>("InputFrame")->findChildren<QLineEdit*>()) {
        const bool wanted =
            std::ranges::find(boxes, edit->objectName().toStdString(), &BrevarumBox::name) != boxes.end();
        QVERIFY2(edit->isVisible() == wanted, qPrintable(edit->objectName()));
      }
    }
  }

  void TheChoicesOfPowerReachThePanel() {
    Press("Option1(8)");
    QCOMPARE(window().Find<QComboBox>("Alpha")->currentText(), ".05");
    window().Find<QComboBox>("Alpha")->setCurrentText(".10");
    window().Find<QComboBox>("Beta")->setCurrentText(".95");
    QTest::keyClicks(Box("T3"), "2");
    QTest::keyClicks(Box("T4"), "4");
    window().Trigger(308);
    // 4 * 16 * (1.645 + 1.645)^2 / 4 = 173.1856
    QVERIFY(Text("T5").contains("= 173"));
    Press("Option1(0)");
    Press("Option1(8)");
    QCOMPARE(window().Find<QComboBox>("Beta")->currentText(), ".95");
  }

  void CopyAndClear() {
    Press("Option1(4)");
    QVERIFY(!window().Command(212)->isEnabled());
    QTest::keyClicks(Box("T1"), "25");
    QTest::keyClicks(Box("T2"), "100");
    QTest::keyClicks(Box("T3"), "10");
    window().Trigger(308);
    QVERIFY(window().Command(212)->isEnabled());
    Press("Label44");
    QVERIFY(QApplication::clipboard()->text().contains("Margin of Error for Means"));
    QVERIFY(!window().script().sounds.empty());
    Press("ClearButton");
    QCOMPARE(Box("T1")->text(), "");
    QVERIFY(!window().Command(212)->isEnabled());
    QCOMPARE(window().Find<QLabel>("Label43")->text(), "Instructions");
  }

  void PrintAsksAndPrintsTheResult() {
    QVERIFY(!window().Command(106)->isEnabled());
    Press("Option1(4)");
    QTest::keyClicks(Box("T1"), "25");
    QTest::keyClicks(Box("T2"), "100");
    QTest::keyClicks(Box("T3"), "10");
    window().Trigger(308);
    window().script().print_answers.push_back(PrintChoice{});
    window().Trigger(106);
    QCOMPARE(window().script().printed.size(), std::size_t{1});
    QVERIFY(window().script().printed[0][0].find("Tessara Output") != std::string::npos);
  }

  void TheTabsOfTheResults() {
    window().WriteFile(window().program_folder() / "Help/UserManual3.html", "<a name=\"sumt\"></a><p>About means</p>");
    Press("Viewbar1(1)");
    auto* browser = window().Find<QWidget>("Brevarum1")->findChild<QTextBrowser*>("WebBrowser1");
    QVERIFY(browser->isVisible());
    QVERIFY(browser->toPlainText().contains("About means"));
    QCOMPARE(browser->source().fragment(), "sumt");
    Press("Option1(3)");
    QCOMPARE(browser->source().fragment(), "sumchi");  // the choice survives a change of panel
    Press("Viewbar1(2)");
    QVERIFY(!browser->isVisible());
    QVERIFY(!window().Find<QPlainTextEdit>("Text25")->isVisible());
    Press("Viewbar1(0)");
    QVERIFY(window().Find<QPlainTextEdit>("Text25")->isVisible());
  }

  void F1OpensTheSectionOfTheCalculator() {
    window().WriteFile(window().program_folder() / "Help/UserManual3.html",
                       "<a name=\"sumt\"></a><p>About means</p><a name=\"sumchi\"></a><p>About counts</p>");
    Press("Option1(3)");
    auto* pane = window().Find<QWidget>("TaskPanel");
    QVERIFY(!pane->isVisible());
    QTest::keyClick(Box("C1R1"), Qt::Key_F1);
    QVERIFY(pane->isVisible());
    auto* browser = pane->findChild<QTextBrowser*>("WebBrowser1");
    QCOMPARE(browser->source().fileName(), "UserManual3.html");
    QCOMPARE(browser->source().fragment(), "sumchi");
    // From another calculator it goes on to that one's section, and from there the same key closes the pane.
    Press("Option1(0)");
    QTest::keyClick(Box("tx1"), Qt::Key_F1);
    QVERIFY(pane->isVisible());
    QCOMPARE(browser->source().fragment(), "sumt");
    QTest::keyClick(window().Find<QPlainTextEdit>("T5"), Qt::Key_F1);
    QVERIFY(!pane->isVisible());
  }

  void TheHelpStaysAtItsSectionWhenTheWindowChanges() {
    std::string page;
    for (int i = 0; i < 400; ++i) page += "<p>word after word after word after word, and so on to the end of it</p>";
    page += "<h2><a name=\"sumt\">T-Test</a></h2>";
    for (int i = 0; i < 100; ++i) page += "<p>more</p>";
    window().WriteFile(window().program_folder() / "Help/UserManual3.html", page);
    window().frame().resize(1200, 700);
    Press("Viewbar1(1)");
    auto* browser = window().Find<QWidget>("Brevarum1")->findChild<QTextBrowser*>("WebBrowser1");
    const auto line_at_top = [&] { return browser->cursorForPosition(QPoint(20, 12)).block().text(); };
    QTRY_COMPARE(line_at_top(), "T-Test");
    for (const QSize& size : {QSize(1500, 900), QSize(653, 493)}) {
      window().frame().resize(size);
      QTRY_COMPARE(line_at_top(), "T-Test");
    }
  }

  void TheFourfoldTableShowsItsTotals() {
    Press("Option1(7)");
    for (const auto& [box, text] :
         {std::pair{"T1", "90"}, std::pair{"T2", "10"}, std::pair{"T3", "20"}, std::pair{"T4", "80"}}) {
      QTest::keyClicks(Box(box), text);
    }
    window().Trigger(308);
    QCOMPARE(window().Find<QLabel>("L6")->text(), "100");
    QCOMPARE(window().Find<QLabel>("L10")->text(), "200");
    QVERIFY(Text("T5").contains("0.889"));  // 80 of 90 diseased
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::BrevarumTest)
#include "brevarum_test.moc"
