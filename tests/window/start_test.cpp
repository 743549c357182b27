#include <QToolBar>
#include <QtTest>

#include "window_fixture.h"

// The start of a process, and the bars of the frame that come and go with the view.

namespace tessara {
namespace {

class StartTest : public QObject {
  Q_OBJECT

 private slots:
  // The first frame of a process gives the program its colours while the splash stands there alone: this test stands
  // ahead of all others.
  void TheFirstFrameStartsBehindItsSplash() {
    WindowFixture window;
    FrameStart start;
    start.Timer1 = 50;
    start.Timer2 = 50;
    window.StartWith(start);
    QWidget* splash = nullptr;
    for (QWidget* top : QApplication::topLevelWidgets()) {
      if (top->objectName() == "frmSplash2") splash = top;
    }
    QVERIFY(splash);
    QPointer<QWidget> seen = splash;
    QTRY_VERIFY(!seen);
    QVERIFY(window.frame().isVisible());
  }

  void ThePaletteMayChangeAtEveryMoment() {
    WindowFixture window;
    window.Start();
    const QPalette before = QApplication::palette();
    QApplication::setPalette(QPalette(QColor(40, 40, 44)));
    QCoreApplication::processEvents();
    QApplication::setPalette(before);
    QCoreApplication::processEvents();
    QVERIFY(window.frame().isVisible());
  }

  void TheToolbarStaysAwayFromSomeViewsAndTheRowStays() {
    WindowFixture window;
    window.store().Write("Op16", "0");
    window.Start();
    const std::pair<View, bool> expected[] = {
        {View::ViewDataGrid, true}, {View::ViewStatProcs, false}, {View::ViewBrevarum, true}, {View::ViewOutput, true},
        {View::ViewCharts, false},  {View::ViewGlossary, true},   {View::ViewHandbook, true}, {View::ViewTips, false}};
    int top = -1;
    for (const auto& [view, visible] : expected) {
      window.ShowView(view);
      QCoreApplication::processEvents();
      QCOMPARE(window.Find<QToolBar>("Standard")->isVisible(), visible);
      QVERIFY(window.Find<QToolBar>("Palette")->isVisible());
      const int place = window.Find<QTabWidget>("workspace")->y();
      if (top < 0) top = place;
      QCOMPARE(place, top);  // the tabs do not jump
    }
  }
};

}  // namespace
}  // namespace tessara

QTEST_MAIN(tessara::StartTest)
#include "start_test.moc"
