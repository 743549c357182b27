#include "window/charts/chart_drawing.h"

#include <QAreaSeries>
#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QLineSeries>
#include <QScatterSeries>
#include <QToolTip>
#include <QValueAxis>
#include <QtTest>

#include "chart_pictures.h"
#include "presentation/chart_data.h"
#include "window/charts/chart_output.h"
#include "window/charts/chart_view.h"
#include "window/charts/counted_dots.h"
#include "window/charts/point_cloud.h"

namespace tessara {

// The drawings of charts themselves: bars, outlines, lines, dots, their axes, labels and legends.
class ChartDrawingTest : public QObject {
  Q_OBJECT

  static std::unique_ptr<DrawnChart> Draw(const Chart& chart, const QSizeF& size) {
    auto drawn = std::make_unique<DrawnChart>(WithRows(chart), ColoursOfPaper(), QApplication::font());
    drawn->resize(size);
    return drawn;
  }
  static ChartValues Values(std::vector<double> values) {
    return std::make_shared<const std::vector<double>>(std::move(values));
  }

 private slots:
  void EqualAndOddLabelsKeepTheirBars() {
    const Chart chart = BarsChart("<b>A</b> & B", "", "Frequency", {"x", "x", "", "<i>y</i>"}, {{"n", {1, 2, 3, 4}}});
    const auto drawn = Draw(chart, {800, 500});
    QCOMPARE(drawn->ShownLabels().size(), 4);
    QCOMPARE(drawn->ShownLabels()[1], "x");
    QCOMPARE(drawn->ShownLabels()[3], "&lt;i&gt;y&lt;/i&gt;");
    QVERIFY(!drawn->title().contains('<'));
    QCOMPARE(qobject_cast<QBarCategoryAxis*>(drawn->axes(Qt::Horizontal).value(0))->count(), 4);
  }

  void TheAxesOfALowChartHaveNoTitles() {
    const Chart chart = BarsOf(3);
    const auto title_at = [&](qreal height) {
      return Draw(chart, QSizeF(500, height))->axes(Qt::Vertical).value(0)->titleText();
    };
    const qreal line = QFontMetricsF(QApplication::font()).height();
    QCOMPARE(title_at(30 * line), "Frequency");
    QCOMPARE(title_at(8 * line), "");
  }

  void LabelsTurnAndThinOutAsTheRoomGetsNarrow() {
    const auto turned = [](const DrawnChart& chart) {
      return qobject_cast<QBarCategoryAxis*>(chart.axes(Qt::Horizontal).value(0))->labelsAngle() != 0;
    };
    const auto few = Draw(BarsOf(4), {900, 500});
    QVERIFY(!turned(*few));
    few->resize(200, 300);
    QVERIFY(turned(*few));
    QCOMPARE(few->ShownLabels().count(QString()), 0);
    few->resize(200, 130);  // too low for turned labels
    QVERIFY(!turned(*few));
    QVERIFY(few->ShownLabels().count(QString()) > 0);
    // An interval's ends stand in lines ahead of that.
    const auto lines = Draw(IntervalChart(ChartType::kLine, "L", "X", Values({1, 2})), {340, 300});
    QVERIFY(!turned(*lines));
    QVERIFY(lines->ShownLabels()[0].contains("<br>"));
    const auto many = Draw(BarsOf(80), {600, 400});
    QVERIFY(turned(*many));
    QVERIFY(many->ShownLabels().count(QString()) >= 40);
    QVERIFY(many->ShownLabels().count(QString()) < 60);
    QCOMPARE(many->series().size(), 1);
  }

  void BarsHaveGapsAndHistogramsHaveNone() {
    const auto bars = Draw(BarsOf(3), {600, 400});
    const auto histogram = Draw(IntervalChart(ChartType::kHistogram, "H", "X", Values({1, 2, 3})), {600, 400});
    QVERIFY(qobject_cast<QBarSeries*>(bars->series()[0])->barWidth() < 0.9);
    QCOMPARE(qobject_cast<QBarSeries*>(histogram->series()[0])->barWidth(), 1.0);
  }

  void TheLegendNamesSeveralSeries() {
    const auto drawn =
        Draw(BarsChart("T", "", "Frequency", {"a", "b"}, {{"first", {1, 2}}, {"second", {3, 4}}}), {600, 400});
    QVERIFY(drawn->legend()->isVisible());
    const QList<QBarSet*> sets = qobject_cast<QBarSeries*>(drawn->series()[0])->barSets();
    QVERIFY(sets[0]->color() != sets[1]->color());
  }

  void CountsOfAFewHaveWholeTicks() {
    for (const double count : {0.0, 1.0, 2.0, 5.0}) {
      const auto drawn = Draw(BarsChart("T", "", "Frequency", {"a"}, {{"n", {count}}}), {600, 400});
      auto* axis = qobject_cast<QValueAxis*>(drawn->axes(Qt::Vertical).value(0));
      QCOMPARE(axis->min(), 0.0);
      QCOMPARE(axis->max(), std::max(1.0, count));
      QCOMPARE(axis->tickCount(), static_cast<int>(std::max(1.0, count)) + 1);
    }
  }

  void ThePointsOfALineKeepOffTheEdge() {
    const auto drawn = Draw(IntervalChart(ChartType::kLine, "L", "X", Values(std::vector<double>(30, 1))), {600, 400});
    QVERIFY(qobject_cast<QValueAxis*>(drawn->axes(Qt::Vertical).value(0))->max() > 30);
  }

  void ThousandsOfCategoriesAreDrawnAsOneOutline() {
    QImage picture(700, 400, QImage::Format_RGB32);
    QPainter painter(&picture);
    PaintChart(painter, picture.rect(), BarsOf(10000), ColoursOfPaper(), picture.size());
    QVERIFY(HasColour(picture, 0x0072B2));
    const auto drawn = Draw(BarsOf(10000), {700, 400});
    QVERIFY(!qobject_cast<QBarSeries*>(drawn->series()[0]));
    QVERIFY(drawn->ShownLabels().size() > 10);
    QVERIFY(drawn->ShownLabels().size() < 60);
  }

  // Where the area of a series stands in its first category.
  static std::pair<qreal, qreal> FirstColumn(const QAbstractSeries* series) {
    const QList<QPointF> points = qobject_cast<const QAreaSeries*>(series)->upperSeries()->points();
    return {points[0].x(), points[2].x()};
  }

  void OutlinesOfSeveralSeriesStandSideBySide() {
    std::vector<std::string> labels;
    Chart::Series men{"Men", {}}, women{"Women", {}};
    for (int i = 0; i < 60; ++i) {
      labels.push_back(std::to_string(i));
      men.values.push_back(2 + i % 7);
      women.values.push_back(9 - i % 7);
    }
    const auto drawn = Draw(BarsChart("Bars", "", "Frequency", labels, {men, women}), {900, 400});
    QCOMPARE(drawn->series().size(), 2);
    const auto [left, middle] = FirstColumn(drawn->series()[0]);
    const auto [next, right] = FirstColumn(drawn->series()[1]);
    QVERIFY(left > -0.5 && right < 0.5);
    QVERIFY(left < middle && next < right);
    QVERIFY(std::abs(middle - next) < 1e-9);
    QVERIFY(drawn->legend()->isVisible());
  }

  void AnOutlineOfFewCategoriesHasUprightLabels() {
    std::vector<Chart::Series> series;
    for (int i = 0; i < 30; ++i) series.push_back({"S", {1, 2, 3, 4}});
    const std::vector<std::string> regions{"North", "South", "East", "West"};
    const auto wide = Draw(BarsChart("Bars", "", "Frequency", regions, series), {900, 400});
    QCOMPARE(wide->axes(Qt::Horizontal).value(0)->labelsAngle(), 0);
    QCOMPARE(wide->ShownLabels(), QStringList({"North", "South", "East", "West"}));
    const auto narrow = Draw(BarsChart("Bars", "", "Frequency", regions, series), {150, 400});
    QCOMPARE(narrow->axes(Qt::Horizontal).value(0)->labelsAngle(), -90);
  }

  void AHintNamesTheSeriesAsItIs() {
    const Chart chart = BarsChart("Bars", "", "Frequency", {"a"}, {{"R&D", {1}}, {"<5", {2}}});
    const auto drawn = Draw(chart, {600, 400});
    auto* bars = qobject_cast<QBarSeries*>(drawn->series().value(0));
    QVERIFY(bars);
    emit bars->hovered(true, 0, bars->barSets()[1]);
    QCOMPARE(QToolTip::text(), "a<br>&lt;5<br>2");
    emit bars->hovered(true, 0, bars->barSets()[0]);
    QCOMPARE(QToolTip::text(), "a<br>R&amp;D<br>1");
    emit bars->hovered(false, 0, bars->barSets()[0]);
  }

  void ManySeriesHaveNoLegend() {
    std::vector<Chart::Series> series;
    for (int i = 0; i < 15; ++i) series.push_back({"S", {1, 2}});
    QVERIFY(!Draw(BarsChart("Bars", "", "Frequency", {"a", "b"}, series), {900, 400})->legend()->isVisible());
    series.pop_back();
    QVERIFY(Draw(BarsChart("Bars", "", "Frequency", {"a", "b"}, series), {900, 400})->legend()->isVisible());
  }

  void SmallSharesHaveAnAxisOfTheirOwn() {
    const auto drawn = Draw(BarsChart("Bars", "", "Percent", {"a", "b"}, {{"p", {0.25, 0.5}}}), {600, 400});
    const auto* axis = qobject_cast<QValueAxis*>(drawn->axes(Qt::Vertical).value(0));
    QCOMPARE(axis->max(), 0.5);
    QCOMPARE(axis->labelFormat(), "%.1f");
  }

  void ALowChartHasFewerMarks() {
    const Chart chart = BarsChart("Bars", "", "Frequency", {"a", "b"}, {{"n", {90, 40}}});
    const qreal line = QFontMetricsF(QApplication::font()).height();
    const auto marks_at = [&](qreal lines) {
      const auto drawn = Draw(chart, QSizeF(500, lines * line));
      return qobject_cast<QValueAxis*>(drawn->axes(Qt::Vertical).value(0))->tickCount();
    };
    QCOMPARE(marks_at(30), 6);  // 0 to 100 by 20
    QCOMPARE(marks_at(9), 3);   // by 50
    const Chart small = BarsChart("Bars", "", "Frequency", {"a"}, {{"n", {3}}});
    const auto drawn = Draw(small, QSizeF(500, 9 * line));
    const auto* axis = qobject_cast<QValueAxis*>(drawn->axes(Qt::Vertical).value(0));
    QCOMPARE(axis->max() / (axis->tickCount() - 1), 2.0);  // no half case
  }

  void AScatterFillsItsPlotUpToAMargin() {
    const auto drawn = Draw(ScatterChart("T", "X", "Y", Values({-3, 4}), Values({10, 60})), {600, 400});
    const auto* across = qobject_cast<QValueAxis*>(drawn->axes(Qt::Horizontal).value(0));
    const auto* upward = qobject_cast<QValueAxis*>(drawn->axes(Qt::Vertical).value(0));
    // 2 percent of 7 and of 50
    QCOMPARE(across->min(), -3.14);
    QCOMPARE(across->max(), 4.14);
    QCOMPARE(upward->min(), 9.0);
    QCOMPARE(upward->max(), 61.0);
    QCOMPARE(across->tickInterval(), 2.0);
    QCOMPARE(across->tickAnchor(), -2.0);
  }

  void ChartsThatShareAxesCanBeCompared() {
    Chart one = IntervalChart(ChartType::kHistogram, "Group 1 (1)", "X", Values({1, 2, 3, 4, 5}));
    Chart two = IntervalChart(ChartType::kHistogram, "Group 2 (2)", "X", Values({3, 3, 3, 4, 13}));
    ShareAxes(one, two);
    const auto first = Draw(one, {500, 400});
    const auto second = Draw(two, {500, 400});
    for (const Qt::Orientation along : {Qt::Horizontal, Qt::Vertical}) {
      const auto* a = qobject_cast<QValueAxis*>(first->axes(along).value(0));
      const auto* b = qobject_cast<QValueAxis*>(second->axes(along).value(0));
      QVERIFY(a && b);
      QCOMPARE(a->min(), b->min());
      QCOMPARE(a->max(), b->max());
      QCOMPARE(a->tickCount(), b->tickCount());
    }
    const auto* across = qobject_cast<QValueAxis*>(first->axes(Qt::Horizontal).value(0));
    QVERIFY(across->min() <= 1 && across->max() >= 13);
    const auto* upward = qobject_cast<QValueAxis*>(first->axes(Qt::Vertical).value(0));
    QCOMPARE(upward->max(), 4.0);  // 3, 3, 3 and 4 stand in the first interval of the second group
    // The bars stand where their intervals are.
    const auto* bars = qobject_cast<QAreaSeries*>(second->series().value(0));
    QVERIFY(bars);
    QCOMPARE(bars->upperSeries()->points()[1], QPointF(3, 4));
    QCOMPARE(bars->upperSeries()->points()[2], QPointF(5, 4));
    emit const_cast<QAreaSeries*>(bars)->hovered(QPointF(12, 0.5), true);
    QCOMPARE(QToolTip::text(), "11.00 to 13.00<br>1");
    emit const_cast<QAreaSeries*>(bars)->hovered(QPointF(12, 0.5), false);
  }

  void AGroupOfOneValueStillHasItsBar() {
    Chart one = IntervalChart(ChartType::kHistogram, "1", "X", Values({7, 7, 7}));
    Chart two = IntervalChart(ChartType::kHistogram, "2", "X", Values({7, 7}));
    ShareAxes(one, two);
    const auto drawn = Draw(one, {500, 400});
    const auto points = qobject_cast<QAreaSeries*>(drawn->series().value(0))->upperSeries()->points();
    QCOMPARE(points.size(), 4);
    QVERIFY(points[1].x() < 7 && points[2].x() > 7);
    QCOMPARE(points[1].y(), 3.0);
  }

  void ADotTellsHowManyCasesItHolds() {
    // Codes: (1, 1) nine times, (1, 2) once, (2, 1) four times.
    std::vector<double> x(9, 1), y(9, 1);
    x.insert(x.end(), {1, 2, 2, 2, 2});
    y.insert(y.end(), {2, 1, 1, 1, 1});
    const auto drawn = Draw(ScatterChart("T", "X", "Y", Values(x), Values(y)), {600, 400});
    QVERIFY(drawn->dots());
    QCOMPARE(drawn->dots()->most(), std::size_t{9});
    QVERIFY(drawn->key().endsWith("9"));
    QCOMPARE(drawn->dots()->HintAt(drawn->mapToPosition({1, 1})), "1, 1\n9 cases");
    QCOMPARE(drawn->dots()->HintAt(drawn->mapToPosition({1, 2})), "1, 2\n1 case");
    QCOMPARE(drawn->dots()->HintAt(drawn->mapToPosition({2, 1})), "2, 1\n4 cases");
    QCOMPARE(drawn->dots()->HintAt(drawn->mapToPosition({1.5, 1.5})), "");
    // Areas as 9 to 4 to 1.
    QCOMPARE(DiameterOfDot(9, 9) / DiameterOfDot(1, 9), 3.0);
    QCOMPARE(DiameterOfDot(9, 9) / DiameterOfDot(4, 9), 1.5);
    QVERIFY(DiameterOfDot(1000000, 1000000) <= 30);
    QVERIFY(DiameterOfDot(1, 1000000) >= 3);
    // Where each point stands for itself there is nothing to tell.
    const auto plain = Draw(ScatterChart("T", "X", "Y", Values({1, 2}), Values({1, 2})), {600, 400});
    QVERIFY(!plain->dots());
    QCOMPARE(plain->key(), "");
  }

  void AMillionCodedCasesAreAFewDots() {
    std::vector<double> x, y;
    for (int i = 0; i < 1000000; ++i) {
      x.push_back(i % 5);
      y.push_back(i % 3);
    }
    const Chart chart = ScatterChart("T", "X", "Y", Values(x), Values(y));
    const auto places = PlacesOfPoints(chart);
    QVERIFY(places);
    QCOMPARE(places->size(), 15);
    std::size_t cases = 0;
    for (const CountedDot& dot : *places) cases += dot.cases;
    QCOMPARE(cases, std::size_t{1000000});
    QImage picture(600, 400, QImage::Format_RGB32);
    QPainter painter(&picture);
    PaintChart(painter, picture.rect(), chart, ColoursOfPaper(), picture.size());
    QVERIFY(HasColour(picture, 0x4C9CC9));  // the first colour, as strong as 7 in 10, on white
  }

  void ASmallScatterShowsEachPointAndALargeOneItsCells() {
    std::vector<double> x, y;
    for (int i = 0; i < 1000000; ++i) {
      x.push_back(i % 1000);
      y.push_back(static_cast<double>((i * 7919LL) % 100003));
    }
    const auto small = Draw(ScatterChart("T", "X", "Y", Values({1, 2, 3}), Values({3, 1, 2})), {600, 400});
    QCOMPARE(qobject_cast<QScatterSeries*>(small->series()[0])->count(), 3);
    const Chart chart = ScatterChart("T", "X", "Y", Values(x), Values(y));
    const auto large = Draw(chart, {600, 400});
    QCOMPARE(qobject_cast<QScatterSeries*>(large->series()[0])->count(), 0);
    QImage picture(600, 400, QImage::Format_RGB32);
    QPainter painter(&picture);
    PaintChart(painter, picture.rect(), chart, ColoursOfPaper(), picture.size());
    QVERIFY(picture.pixelColor(330, 200).blue() > picture.pixelColor(330, 200).red() + 20);
  }

  void CellsStandWhereTheirPointsAre() {
    const Chart chart = ScatterChart("T", "X", "Y", Values({0, 10, 10, 10}), Values({0, 5, 5, 5}));
    const QRectF range = RangeOfPoints(chart);
    QCOMPARE(range, QRectF(0, 0, 10, 5));
    const QImage picture = PictureOfPoints(chart, range, Qt::blue);
    QVERIFY(picture.pixelColor(0, picture.height() - 1).alpha() > 0);
    QCOMPARE(picture.pixelColor(picture.width() - 1, 0).alpha(), 255);  // the cell with the most points
    QVERIFY(picture.pixelColor(0, picture.height() - 1).alpha() < 255);
    QCOMPARE(picture.pixelColor(picture.width() / 2, picture.height() / 2).alpha(), 0);
  }

  // None of these may hang, crash or upset the sanitizers.
  void StrangeChartsAreDrawn() {
    const double huge = 1.7e308;
    const std::vector<Chart> charts = {
        Chart(),
        BarsChart("", "", "", {}, {}),
        BarsChart("T", "", "", {"a", "b"}, {{"short", {1}}}),
        BarsChart("T", "", "", {"a"}, {{"n", {huge}}}),
        BarsChart(std::string(500, 'T'), std::string(500, 'h'), std::string(500, 'v'), {std::string(500, 'l'), "b"},
                  {{"n", {1, 2}}}),
        IntervalChart(ChartType::kHistogramAndLine, "T", "X", Values({})),
        IntervalChart(ChartType::kHistogramAndLine, "T", "X", Values({7, 7, 7})),
        IntervalChart(ChartType::kLine, "T", "X", Values({-huge, huge})),
        ScatterChart("T", "X", "Y", nullptr, nullptr),
        ScatterChart("T", "X", "Y", Values({5, 5}), Values({0, 0})),
        ScatterChart("T", "X", "Y", Values({-huge, huge}), Values({1e15, 1e15 + 0.125})),
        ScatterChart("T", "X", "Y", Values({1e-300, 2e-300}), Values({5e-324, 0})),
        ScatterChart("T", "X", "Y", Values(std::vector<double>(5000, 3)), Values(std::vector<double>(5000, huge))),
    };
    for (const Chart& chart : charts) {
      for (const QSize size : {QSize(600, 400), QSize(20, 20)}) {
        QImage picture(size, QImage::Format_RGB32);
        picture.fill(Qt::red);
        QPainter painter(&picture);
        PaintChart(painter, picture.rect(), WithRows(chart), ColoursOfPaper(), size);
        QCOMPARE(picture.pixelColor(0, 0), QColor(Qt::white));
      }
    }
  }

  void TheFootnoteIsDrawn() {
    Chart chart = BarsOf(2);
    QImage without(600, 400, QImage::Format_RGB32);
    QImage with = without;
    for (QImage* picture : {&without, &with}) {
      QPainter painter(picture);
      PaintChart(painter, picture->rect(), chart, ColoursOfPaper(), picture->size());
      chart.footnote = "Controlling for SEX = 1";
    }
    const QRect foot(0, 372, 100, 28);
    QVERIFY(!HasColour(without.copy(foot), 0x000000));
    QVERIFY(HasColour(with.copy(foot), 0x000000));
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::ChartDrawingTest)
#include "chart_drawing_test.moc"
