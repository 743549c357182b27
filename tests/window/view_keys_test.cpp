#include <QLabel>
#include <QPlainTextEdit>
#include <QTabBar>
#include <QTabWidget>

#include "window/widgets/theme.h"
#include "window_fixture.h"

namespace tessara {

// The keys of the views, and the colour of hints.
class ViewKeysTest : public QObject {
  Q_OBJECT

  std::unique_ptr<WindowFixture> window_;
  QPalette palette_;
  WindowFixture& window() { return *window_; }

 private slots:
  void initTestCase() { palette_ = QApplication::palette(); }
  void init() { window_ = std::make_unique<WindowFixture>(); }
  void cleanup() {
    window_.reset();
    QApplication::setPalette(palette_);
  }

  void ControlAndADigitShowTheTabOfThatPlace() {
    window().store().Write("Op16", "0");
    window().Start();
    auto* workspace = window().Find<QTabWidget>("workspace");
    QTRY_COMPARE(window().session().ActiveView, View::ViewTips);
    const View views[] = {View::ViewDataGrid, View::ViewStatProcs, View::ViewOutput,   View::ViewCharts,
                          View::ViewBrevarum, View::ViewGlossary,  View::ViewHandbook, View::ViewTips};
    QCOMPARE(workspace->count(), 8);
    for (int place = 0; place < 8; ++place) {
      QWidget* focused = QApplication::focusWidget();
      QTest::keyClick(focused ? focused : workspace, static_cast<Qt::Key>(Qt::Key_1 + place), Qt::ControlModifier);
      QCOMPARE(window().session().ActiveView, views[place]);
      QVERIFY(workspace->tabToolTip(place).contains(QString("Ctrl+%1").arg(place + 1)));
    }
    // The key of a view that has been closed does nothing.
    window().Find<QAbstractButton>("CloseTips")->click();
    QCoreApplication::processEvents();
    const View before = window().session().ActiveView;
    QTest::keyClick(workspace, Qt::Key_8, Qt::ControlModifier);
    QCOMPARE(window().session().ActiveView, before);
  }

  void HintsTakeTheColourOfText() {
    for (const auto& [text, ground] : {std::pair{Qt::black, Qt::white}, {Qt::white, Qt::black}}) {
      QPalette palette;
      for (const auto role : {QPalette::Text, QPalette::WindowText}) palette.setColor(role, text);
      for (const auto role : {QPalette::Base, QPalette::Window}) palette.setColor(role, ground);
      palette.setColor(QPalette::PlaceholderText, ground);  // of no use
      QApplication::setPalette(palette);
      if (!window_) window_ = std::make_unique<WindowFixture>();
      window().Start();
      for (const char* name : {"ProjectNotes", "StatisticsCaption1", "EmptyText", "Hint"}) {
        const QColor hint = window().Find<QWidget>(name)->palette().color(QPalette::PlaceholderText);
        QCOMPARE(QColor(hint.rgb()), QColor(text));
        QVERIFY(hint.alphaF() > 0.5 && hint.alphaF() < 1);
      }
      window().End();
    }
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::ViewKeysTest)
#include "view_keys_test.moc"
