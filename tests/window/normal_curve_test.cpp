#include <QImage>
#include <QLineEdit>

#include "window_fixture.h"

namespace tessara {

// The marker on the picture of the normal curve: 700 times the root of the score from the middle, 1900 at the edge.
class NormalCurveTest : public QObject {
  Q_OBJECT

  std::unique_ptr<WindowFixture> window_;
  WindowFixture& window() { return *window_; }
  QWidget* Curve() { return window().Find<QWidget>("NormalCurve"); }

  void Calculate(const char* score, const char* mean, const char* deviation) {
    for (const auto& [name, text] : {std::pair{"T1", score}, {"T2", mean}, {"T3", deviation}}) {
      window().Find<QLineEdit>(name)->setText(text);
    }
    window().Trigger(308);
  }
  QImage Picture() { return Curve()->grab().toImage(); }
  // Where the marker stands, from the middle of the picture: what differs from the picture without it, in the rows
  // between the caption and the axis.
  double MarkerOf(const char* score) {
    window().Trigger(101);
    const QImage bare = Picture();
    Calculate(score, "0", "1");
    const QImage marked = Picture();
    double sum = 0;
    int count = 0;
    for (int y = marked.height() * 45 / 100; y < marked.height() * 55 / 100; ++y) {
      for (int x = 0; x < marked.width(); ++x) {
        if (marked.pixel(x, y) == bare.pixel(x, y)) continue;
        sum += x + 0.5;
        ++count;
      }
    }
    return count == 0 ? 0 : sum / count - marked.width() / 2.0;
  }

 private slots:
  void init() {
    window_ = std::make_unique<WindowFixture>();
    window().Start();
    window().frame().resize(1300, 900);
    window().ShowView(View::ViewBrevarum);
    auto* button = window().Find<QWidget>("Brevarum1")->findChild<QAbstractButton*>("Option1(6)");
    QTest::mouseClick(button, Qt::LeftButton);
    QCoreApplication::processEvents();
    QVERIFY(Curve()->isVisible());
  }
  void cleanup() { window_.reset(); }

  void TheMarkerStandsOnTheSideOfTheScore() {
    const double one = MarkerOf("1");
    QVERIFY(one > 20);
    QVERIFY(std::abs(one + MarkerOf("-1")) <= 2);
  }

  void FourTimesTheScoreIsTwiceAsFar() {
    const double one = MarkerOf("1");
    QVERIFY(std::abs(MarkerOf("4") - 2 * one) <= 2);
    QVERIFY(std::abs(MarkerOf("0.25") - one / 2) <= 2);
  }

  // From a score of 8 on the marker stands at the edge, 1900 / 700 as far as that of 1.
  void TheEdgeIsNotPassed() {
    const double one = MarkerOf("1");
    const double edge = one * 1900 / 700;
    QVERIFY(std::abs(MarkerOf("8") - edge) <= 3);
    QVERIFY(std::abs(MarkerOf("500") - edge) <= 3);
    QVERIFY(std::abs(MarkerOf("-500") + edge) <= 3);
  }

  // The curve itself is the same on both sides, and highest in its middle.
  void TheBellIsEvenOnBothSides() {
    const QImage picture = Picture();
    const QRgb ground = picture.pixel(1, 1);
    const auto top_of = [&](int x) {
      for (int y = 2; y < picture.height(); ++y) {
        if (picture.pixel(x, y) != ground) return y;
      }
      return picture.height();
    };
    const int middle = picture.width() / 2;
    const int far = picture.width() * 30 / 100;
    QVERIFY(top_of(middle) < top_of(middle + far));
    QVERIFY(top_of(middle) < top_of(middle - far));
    for (const int away : {far / 8, far / 4, far / 2, far}) {
      QVERIFY2(std::abs(top_of(middle - away) - top_of(middle + away)) <= 3, qPrintable(QString::number(away)));
    }
  }

  void TheReaderIsToldWhereItStands() {
    Calculate("7", "5", "2");
    QVERIFY(Curve()->accessibleDescription().contains("1.0000"));
    window().Trigger(101);
    QCOMPARE(Curve()->accessibleDescription(), "");
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::NormalCurveTest)
#include "normal_curve_test.moc"
