#include <QHeaderView>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QTextBrowser>
#include <QToolButton>
#include <QWheelEvent>

#include "window_fixture.h"

namespace tessara {

// The size of type in the views, by keys and by the wheel.
class ZoomTest : public QObject {
  Q_OBJECT

  std::unique_ptr<WindowFixture> window_;
  WindowFixture& window() { return *window_; }

  void Press(Qt::Key key) {
    QTest::keyClick(QApplication::focusWidget(), key, Qt::ControlModifier);
    QCoreApplication::processEvents();
  }
  // How large the type of a widget is, compared with that of the program.
  static int PercentOf(const QWidget* widget) {
    return qRound(widget->font().pointSizeF() * 100 / QApplication::font().pointSizeF());
  }
  void Wheel(QWidget* widget, int notches) {
    const QPointF place(widget->rect().center());
    QWheelEvent wheel(place, widget->mapToGlobal(place), QPoint(), QPoint(0, notches * 120), Qt::NoButton,
                      Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(widget, &wheel);
    QCoreApplication::processEvents();
  }
  struct Shown {
    View view;
    const char* name;  // of a widget that shows type
  };
  static constexpr Shown kShown[] = {{View::ViewDataGrid, "MSFlexGrid1"}, {View::ViewStatProcs, "List1"},
                                     {View::ViewStatProcs, "Text9"},      {View::ViewBrevarum, "tx1"},
                                     {View::ViewBrevarum, "T5"},          {View::ViewOutput, "RichText1"},
                                     {View::ViewCharts, "MSChart1"},      {View::ViewHandbook, "Handbook1"}};

 private slots:
  void init() {
    window_ = std::make_unique<WindowFixture>();
    window().Start();
  }
  void cleanup() { window_.reset(); }

  void TheKeysChangeTheTypeOfEveryView() {
    for (const Shown& shown : kShown) {
      window().ShowView(shown.view);
      window().frame().current_view()->setFocus();
      Press(Qt::Key_Plus);
      Press(Qt::Key_Plus);
      QCOMPARE(PercentOf(window().Find<QWidget>(shown.name)), 120);
      Press(Qt::Key_Minus);
      QCOMPARE(PercentOf(window().Find<QWidget>(shown.name)), 110);
      Press(Qt::Key_0);
      QCOMPARE(PercentOf(window().Find<QWidget>(shown.name)), 100);
    }
  }

  void TheWheelWithControlChangesItToo() {
    window().ShowView(View::ViewOutput);
    Wheel(window().Find<QPlainTextEdit>("RichText1")->viewport(), 3);
    QCOMPARE(PercentOf(window().Find<QWidget>("RichText1")), 130);
    QCOMPARE(window().Find<QToolButton>("Zoom")->text(), "130 %");
    window().ShowView(View::ViewBrevarum);
    Wheel(window().Find<QPlainTextEdit>("T5")->viewport(), -4);
    QCOMPARE(PercentOf(window().Find<QWidget>("T5")), 90);
    QCOMPARE(PercentOf(window().Find<QWidget>("tx1")), 90);
  }

  void TheWheelAloneScrolls() {
    window().ShowView(View::ViewOutput);
    QWidget* page = window().Find<QPlainTextEdit>("RichText1")->viewport();
    QWheelEvent wheel(QPointF(5, 5), page->mapToGlobal(QPointF(5, 5)), QPoint(), QPoint(0, 120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(page, &wheel);
    QCOMPARE(PercentOf(window().Find<QWidget>("RichText1")), 100);
  }

  void TheSizeIsKept() {
    Press(Qt::Key_Plus);
    QCOMPARE(window().Setting("Zoom"), std::string("110"));
    window().End();
    window().Start();
    QCOMPARE(PercentOf(window().Find<QWidget>("MSFlexGrid1")), 110);
    QCOMPARE(PercentOf(window().Find<QWidget>("RichText1")), 110);
  }

  void ItHasLimits() {
    for (int i = 0; i < 60; ++i) Press(Qt::Key_Minus);
    QCOMPARE(window().Setting("Zoom"), std::string("40"));
    for (int i = 0; i < 60; ++i) Press(Qt::Key_Plus);
    QCOMPARE(window().Setting("Zoom"), std::string("400"));
    window().store().Write("Zoom", "many");
    window().End();
    window().Start();
    QCOMPARE(PercentOf(window().Find<QWidget>("MSFlexGrid1")), 100);
  }

  void TheButtonsOfTheOutputDoTheSame() {
    window().ShowView(View::ViewOutput);
    window().Find<QAction>("ZoomIn")->trigger();
    QCOMPARE(PercentOf(window().Find<QWidget>("RichText1")), 110);
    window().ShowView(View::ViewStatProcs);
    QCOMPARE(PercentOf(window().Find<QWidget>("List1")), 110);
    window().ShowView(View::ViewOutput);
    window().Find<QToolButton>("Zoom")->click();
    QCOMPARE(PercentOf(window().Find<QWidget>("RichText1")), 100);
  }

  void TheHelpWindowFollows() {
    window().Trigger(602);
    auto* browser = window().Find<QWidget>("TaskPanel")->findChild<QTextBrowser*>("WebBrowser1");
    window().frame().current_view()->setFocus();
    Press(Qt::Key_Plus);
    QCOMPARE(PercentOf(browser), 110);
  }

  void TheRowsOfTheGridFollow() {
    auto* grid = window().Find<QWidget>("MSFlexGrid1");
    for (int i = 0; i < 10; ++i) Press(Qt::Key_Plus);
    const auto headers = grid->findChildren<QHeaderView*>();
    const auto header = std::ranges::find(headers, Qt::Vertical, &QHeaderView::orientation);
    QVERIFY(header != headers.end());
    QVERIFY((*header)->sectionSize(0) >= grid->fontMetrics().height());
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::ZoomTest)
#include "zoom_test.moc"
