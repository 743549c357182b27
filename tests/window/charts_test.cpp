#include <QBarSeries>
#include <QBarSet>
#include <QClipboard>
#include <QDialog>
#include <QLabel>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QSvgRenderer>
#include <QToolTip>

#include "chart_pictures.h"
#include "presentation/chart_data.h"
#include "window/charts/chart_drawing.h"
#include "window/charts/chart_view.h"
#include "window_fixture.h"

namespace tessara {

// The Charts view and the window Chart.
class ChartsTest : public QObject {
  Q_OBJECT

  std::unique_ptr<WindowFixture> window_;
  WindowFixture& window() { return *window_; }
  ChartView* MsChart(int number) { return window().Find<ChartView>(("MSChart" + std::to_string(number)).c_str()); }
  QDialog* ChartWindow() { return window().frame().findChild<QDialog*>("Chart"); }
  void DoubleClick(int number) {
    QVERIFY(MsChart(number)->isVisible());
    QTest::mouseDClick(MsChart(number)->viewport(), Qt::LeftButton, {}, MsChart(number)->viewport()->rect().center());
    QCoreApplication::processEvents();
  }
  void Click(const char* name) { ChartWindow()->findChild<QPushButton*>(name)->click(); }

  // Runs a procedure through the panel's command and comes back to the charts.
  void Run(Procedure procedure, const std::vector<std::size_t>& variables) {
    window().ShowView(View::ViewStatProcs);
    SelectProcedure(window().session().panel, procedure);
    window().session().panel.SelectedVariables = variables;
    window().Trigger(308);
    window().ShowView(View::ViewCharts);
  }
  static std::vector<double> FirstValues(ChartView* view) {
    std::vector<double> values;
    const auto* bars = qobject_cast<QBarSeries*>(view->chart()->series().value(0));
    if (!bars) return values;
    for (int i = 0; i < bars->barSets()[0]->count(); ++i) values.push_back(bars->barSets()[0]->at(i));
    return values;
  }
 private slots:
  void init() {
    window_ = std::make_unique<WindowFixture>();
    const Path file = window().WriteDataFile("people.dcs", {"SEX", "AGE"},
                                             {{"1", "20"}, {"2", "30"}, {"2", "40"}, {"1", "50"}, {"2", "60"}});
    window().Start(file);
  }
  void cleanup() { window_.reset(); }

  void WithoutARunTheFirstViewSaysHowToGetCharts() {
    window().ShowView(View::ViewCharts);
    QVERIFY(MsChart(1)->isVisible());
    QVERIFY(MsChart(1)->findChild<QLabel*>("EmptyText")->text().contains("Stat Procs"));
    for (const int number : {1, 2, 3, 4}) {
      QVERIFY(MsChart(number)->isVisible());
      DoubleClick(number);
      QCOMPARE(window().script().messages.size(), static_cast<std::size_t>(number));
      QCOMPARE(window().script().messages.back().text, std::string("Charts are not available for this procedure."));
    }
  }

  void FrequenciesFillTwoViews() {
    Run(Procedure::kFrequencies, {1});
    QVERIFY(MsChart(2)->has_chart());
    QVERIFY(!MsChart(3)->has_chart());
    QCOMPARE(MsChart(1)->chart()->title(), "SEX");
    QCOMPARE(FirstValues(MsChart(1)), (std::vector<double>{2, 3}));
    QCOMPARE(FirstValues(MsChart(2)), (std::vector<double>{40, 60}));
    QCOMPARE(dynamic_cast<DrawnChart*>(MsChart(1)->chart())->ShownLabels().join('|').replace(QChar::Nbsp, ' '),
             "1  (40.0%)|2  (60.0%)");
    QVERIFY(!MsChart(1)->chart()->legend()->isVisible());
  }

  void DescriptivesFillThreeViewsAndTheNextRunReplacesThem() {
    Run(Procedure::kDescriptives, {2});
    QVERIFY(MsChart(3)->has_chart());
    QCOMPARE(MsChart(1)->chart()->title(), "Histogram");
    QCOMPARE(FirstValues(MsChart(1)), (std::vector<double>{1, 1, 1, 1, 1}));
    QCOMPARE(MsChart(3)->chart()->series().size(), 2);  // bars and line
    Run(Procedure::kFrequencies, {1});
    QVERIFY(!MsChart(3)->has_chart());
    QVERIFY(MsChart(3)->chart()->title().isEmpty());
  }

  void ADoubleClickOpensTheChartEnlarged() {
    Run(Procedure::kDescriptives, {2});
    DoubleClick(1);
    QVERIFY(ChartWindow()->isVisible());
    QVERIFY(!ChartWindow()->isModal());
    auto* enlarged = ChartWindow()->findChild<ChartView*>("MSChart");
    QCOMPARE(enlarged->chart()->title(), "Histogram");
    QVERIFY(ChartWindow()->findChild<QPlainTextEdit*>("Text2")->toPlainText().contains(
        "Count                5.0000\nMean                40.0000\n"));
    QCOMPARE(ChartWindow()->findChild<QLabel*>("Label1")->text(),
             "To copy the chart image, click \"Copy Chart\" and then use \"Edit/Paste Special/Bitmap\" to paste the "
             "image into other software applications.  To paste the data used to create the chart, use the standard "
             "paste option.");
    QCOMPARE(ChartWindow()->findChild<QPushButton*>("Command1")->text(), "Print");
    QCOMPARE(ChartWindow()->findChild<QPushButton*>("Command2")->text(), "Close");
    QCOMPARE(ChartWindow()->findChild<QPushButton*>("Command3")->text(), "Copy Chart");
    QCOMPARE(ChartWindow()->findChild<QPushButton*>("Command3")->toolTip(), "Copy chart image");
    Click("Command2");
    QVERIFY(!ChartWindow()->isVisible());
  }

  void TheKeyboardWalksOpensAndCloses() {
    Run(Procedure::kFrequencies, {1});
    MsChart(1)->setFocus();
    QTest::keyClick(MsChart(1), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), MsChart(2));
    QTest::keyClick(MsChart(2), Qt::Key_Return);
    QVERIFY(ChartWindow()->isVisible());
    QVERIFY(ChartWindow()->windowTitle().contains("SEX (%)"));
    QVERIFY(ChartWindow()->findChild<QPlainTextEdit*>("Text2")->isHidden());
    QTest::keyClick(ChartWindow(), Qt::Key_Escape);
    QVERIFY(!ChartWindow()->isVisible());
  }

  void TheEnlargedChartStaysWhenTheNextProcedureRuns() {
    Run(Procedure::kFrequencies, {1});
    DoubleClick(1);
    Run(Procedure::kFrequencies, {1, 2});
    QCOMPARE(ChartWindow()->findChild<ChartView*>("MSChart")->chart()->title(), "SEX");
  }

  void TwoVariablesGiveTheBox() {
    Run(Procedure::kFrequencies, {1, 2});
    QVERIFY(MsChart(1)->findChild<QLabel*>("EmptyText")->text().contains("several variables"));
    DoubleClick(1);
    QCOMPARE(window().script().messages.back().title, std::string("No Chart Available"));
    QCOMPARE(window().script().messages.back().text,
             std::string("Charts are not shown when there is more than one variable in a stat procedure list box."));
    QVERIFY(!ChartWindow());
  }

  // Views with a chart share the place; those without stand below, where mouse and keyboard reach them.
  void AllFourViewsCanBeChosen() {
    Run(Procedure::kFrequencies, {1});
    QVERIFY(MsChart(1)->height() > 3 * MsChart(3)->height());
    QVERIFY(MsChart(3)->y() > MsChart(1)->geometry().bottom());
    MsChart(2)->setFocus();
    QTest::keyClick(MsChart(2), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), MsChart(3));
    QTest::keyClick(MsChart(3), Qt::Key_Return);
    QCOMPARE(window().script().messages.back().text, std::string("Charts are not available for this procedure."));
    Run(Procedure::kDescriptives, {2});
    QVERIFY(MsChart(3)->height() > 3 * MsChart(4)->height());
  }

  void ClearedChartsLeaveNoTitle() {
    Run(Procedure::kDescriptives, {2});
    ClearCharts(window().session().charts);
    dynamic_cast<ViewForm*>(window().Find("Charts1"))->ShowSession();
    for (const int number : {1, 2, 3, 4}) {
      QVERIFY(MsChart(number)->chart()->title().isEmpty());
      QVERIFY(MsChart(number)->chart()->axes().isEmpty());
    }
  }

  void TheMenuOfAViewHasTheButtonsOfTheWindow() {
    Run(Procedure::kFrequencies, {1});
    const auto entry = [this](int number, const char* name) { return MsChart(number)->findChild<QAction*>(name); };
    QCOMPARE(MsChart(2)->contextMenuPolicy(), Qt::ActionsContextMenu);
    entry(2, "CopyChart")->trigger();
    QCOMPARE(QApplication::clipboard()->text(), "1  (40.0%)\t40\n2  (60.0%)\t60\n");
    entry(2, "PrintChart")->trigger();
    QCOMPARE(window().platform().printed_pictures.size(), std::size_t{1});
    const Path target = window().folder() / "chart.svg";
    window().script().save_answers.push_back(WindowFixture::Chosen(target));
    entry(2, "SaveChart")->trigger();
    QVERIFY(QSvgRenderer(PathToQt(target)).isValid());
    entry(2, "Enlarge")->trigger();
    QVERIFY(ChartWindow()->isVisible());
    for (const char* name : {"CopyChart", "PrintChart", "SaveChart"}) QVERIFY(!entry(3, name)->isEnabled());
    entry(3, "Enlarge")->trigger();
    QCOMPARE(window().script().messages.back().title, std::string("No Chart Available"));
  }

  void HintsAreWeakerThanTheTextButOfItsColour() {
    window().ShowView(View::ViewCharts);
    QPalette odd = window().frame().palette();
    odd.setColor(QPalette::Text, QColor(0x204060));
    odd.setColor(QPalette::PlaceholderText, QColor(Qt::red));
    MsChart(1)->setPalette(odd);
    const auto* words = MsChart(1)->findChild<QLabel*>("EmptyText");
    const QColor colour = words->palette().color(words->foregroundRole());
    QCOMPARE(colour.rgb(), QColor(0x204060).rgb());
    QVERIFY(colour.alphaF() < 0.9F && colour.alphaF() > 0.5F);
  }

  // At its least size nothing of the window of a chart lies over another thing.
  void TheLeastWindowKeepsTheFootnoteApart() {
    Chart chart = BarsOf(6);
    chart.footnote = "Controlling for SEX = 1";
    KeepCharts(window().session().charts, ChartKind::kFrequencies, {chart});
    window().session().charts.SelectedVariableCount = 1;
    window().ShowView(View::ViewCharts);
    DoubleClick(1);
    ChartWindow()->resize(ChartWindow()->minimumSizeHint());
    QCoreApplication::processEvents();
    ChartWindow()->resize(1, 1);  // as small as it gets
    QCoreApplication::processEvents();
    auto* words = ChartWindow()->findChild<QLabel*>("Label1");
    auto* view = ChartWindow()->findChild<ChartView*>("MSChart");
    QVERIFY(words->height() >= words->heightForWidth(words->width()));
    QVERIFY(words->y() > view->geometry().bottom());
    QVERIFY(words->geometry().bottom() < ChartWindow()->findChild<QPushButton*>("Command1")->y());
    const auto* drawn = dynamic_cast<DrawnChart*>(view->chart());
    QVERIFY(drawn->FootnotePlace().top() > drawn->plotArea().bottom());
    QVERIFY(drawn->FootnotePlace().bottom() <= drawn->size().height());
  }

  void AViewWithoutAChartGivesTheOtherBox() {
    Run(Procedure::kFrequencies, {1});
    DoubleClick(4);
    QCOMPARE(window().script().messages.back().title, std::string("No Chart Available"));
    QCOMPARE(window().script().messages.back().text, std::string("Charts are not available for this procedure."));
    QVERIFY(!ChartWindow());
  }

  void PrintOfTheFrameSaysWhereAChartIsPrinted() {
    Run(Procedure::kFrequencies, {1});
    window().Trigger(106);
    QCOMPARE(window().script().messages.back().title, std::string("Information"));
    QCOMPARE(window().script().messages.back().text, std::string("Please click graph to view print screen"));
  }

  void CopyPutsThePictureAndTheRowsOnTheClipboard() {
    Run(Procedure::kFrequencies, {1});
    DoubleClick(1);
    Click("Command3");
    const QMimeData* content = QApplication::clipboard()->mimeData();
    QVERIFY(content->hasImage());
    const QImage picture = qvariant_cast<QImage>(content->imageData());
    QVERIFY(picture.width() > 600);
    QVERIFY(HasColour(picture, 0x0072B2));
    QCOMPARE(content->text(), "1  (40.0%)\t2\n2  (60.0%)\t3\n");
    QCOMPARE(window().script().sounds.back().filename().string(), std::string("copy.wav"));
  }

  void CopyWorksOnAViewToo() {
    Run(Procedure::kFrequencies, {1});
    QTest::keyClick(MsChart(2), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), "1  (40.0%)\t40\n2  (60.0%)\t60\n");
  }

  void WithoutSoundsCopyIsSilent() {
    window().session().settings.Op3 = 1;
    QVERIFY(!window().session().settings.sounds());
    Run(Procedure::kFrequencies, {1});
    DoubleClick(1);
    Click("Command3");
    QVERIFY(window().script().sounds.empty());
    QVERIFY(QApplication::clipboard()->mimeData()->hasImage());
  }

  void SaveWritesAPictureOfTwiceTheSize() {
    Run(Procedure::kFrequencies, {1});
    DoubleClick(1);
    const Path target = window().folder() / "chart.png";
    window().script().save_answers.push_back(WindowFixture::Chosen(target));
    Click("SaveChart");
    QCOMPARE(window().script().save_dialogs.back().initial_name, std::string("SEX.png"));
    const QImage picture(PathToQt(target));
    const QSize shown = ChartWindow()->findChild<ChartView*>("MSChart")->size();
    QCOMPARE(picture.size(), 2 * shown);
    QVERIFY(HasColour(picture, 0x0072B2));
    QCOMPARE(window().Pane(1), "Save Completed");
  }

  void SaveWritesADrawing() {
    Run(Procedure::kDescriptives, {2});
    DoubleClick(3);
    const Path target = window().folder() / "chart.svg";
    window().script().save_answers.push_back(WindowFixture::Chosen(target));
    Click("SaveChart");
    QCOMPARE(window().script().save_dialogs.back().initial_name, std::string("Line-Hist.png"));
    QSvgRenderer drawing(PathToQt(target));
    QVERIFY(drawing.isValid());
    QCOMPARE(drawing.viewBox().size(), ChartWindow()->findChild<ChartView*>("MSChart")->size());
    QVERIFY(WindowFixture::ReadFile(target).find("Frequency") != std::string::npos);
  }

  void SaveThatFailsSaysSoAndCancelIsQuiet() {
    Run(Procedure::kFrequencies, {1});
    DoubleClick(1);
    Click("SaveChart");
    QVERIFY(window().script().messages.empty());
    window().script().save_answers.push_back(WindowFixture::Chosen(window().folder() / "no such folder" / "chart.png"));
    Click("SaveChart");
    QCOMPARE(window().script().messages.back().text, std::string("The picture could not be written."));
  }

  void PrintDrawsOnASheetAndAPrinterThatRefusesGetsItsBox() {
    Run(Procedure::kFrequencies, {1});
    DoubleClick(1);
    Click("Command1");
    QCOMPARE(window().platform().printed_pictures.size(), std::size_t{1});
    QVERIFY(HasColour(window().platform().printed_pictures[0], 0x0072B2));
    QVERIFY(window().script().messages.empty());
    window().script().printer_works = false;
    Click("Command1");
    QCOMPARE(window().script().messages.back().title, std::string("Printer Error"));
  }

  void TheDrawingFollowsThePalette() {
    Run(Procedure::kFrequencies, {1});
    QPalette dark;
    dark.setColor(QPalette::Base, QColor(0x1B1E20));
    dark.setColor(QPalette::Text, Qt::white);
    MsChart(1)->setPalette(dark);
    QCOMPARE(MsChart(1)->chart()->titleBrush().color(), QColor(Qt::white));
    const QImage picture = MsChart(1)->grab().toImage();
    QVERIFY(HasColour(picture, 0x56B4E9));
    QVERIFY(!HasColour(picture, 0x0072B2));
  }

  void AHintTellsABarsFigure() {
    Run(Procedure::kFrequencies, {1});
    QVERIFY(MsChart(1)->viewport()->hasMouseTracking());
    auto* bars = qobject_cast<QBarSeries*>(MsChart(1)->chart()->series()[0]);
    emit bars->hovered(true, 1, bars->barSets()[0]);
    QVERIFY(QToolTip::text().endsWith("2  (60.0%)<br>3"));
    emit bars->hovered(false, 1, bars->barSets()[0]);
    QTRY_VERIFY(!QToolTip::isVisible());
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::ChartsTest)
#include "charts_test.moc"
