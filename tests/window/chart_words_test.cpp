#include <QDialog>
#include <QSet>

#include "presentation/chart_data.h"
#include "window/charts/chart_drawing.h"
#include "window/charts/chart_view.h"
#include "window_fixture.h"

namespace tessara {

// Words of charts: the labels of categories as the room gets narrow, and the names of files for a picture.
class ChartWordsTest : public QObject {
  Q_OBJECT

  // Every form that the labels take between a wide and a narrow drawing, with plain blanks.
  static QSet<QString> FormsOf(const Chart& chart) {
    QSet<QString> forms;
    for (int width = 2600; width >= 200; width -= 40) {
      DrawnChart drawn(chart, ColoursOfPaper(), QApplication::font());
      drawn.resize(QSizeF(width, 700));
      for (QString label : drawn.ShownLabels()) forms += label.replace(QChar::Nbsp, ' ');
    }
    return forms;
  }

 private slots:
  void AnIntervalIsFoldedAtItsTo() {
    std::vector<double> values;
    for (int i = 0; i <= 100; ++i) values.push_back(1000 + i);
    const Chart chart = WithRows(
        IntervalChart(ChartType::kHistogram, "Ages", "AGE", std::make_shared<const std::vector<double>>(values)));
    QVERIFY(chart.labels.size() > 2);
    QCOMPARE(chart.details.size(), chart.labels.size());
    const QStringList ends = {ToQt(chart.labels[0]), ToQt(chart.details[0])};
    const QString whole = ends.join(" to ");
    const QSet<QString> forms = FormsOf(chart);
    QVERIFY2(forms.contains(whole), qPrintable(whole));
    QVERIFY(forms.contains(ends[0] + " to<br>" + ends[1]));
    QVERIFY(forms.contains(ends[0] + "<br>to<br>" + ends[1]));
  }

  // The category stands above, its percent below it.
  void ThePercentOfACategoryStandsOnALineOfItsOwn() {
    WindowFixture window;
    window.Start(window.WriteDataFile("people.dcs", {"PARTY"},
                                      {{"Conservative"}, {"Conservative"}, {"Democratic"}, {"Independent"}}));
    window.ShowView(View::ViewStatProcs);
    SelectProcedure(window.session().panel, Procedure::kFrequencies);
    window.session().panel.SelectedVariables = {1};
    window.Trigger(308);
    QVERIFY(window.session().charts.charts.size() == 2);
    const QSet<QString> forms = FormsOf(WithRows(window.session().charts.charts[0]));
    QVERIFY2(forms.contains("Conservative<br>(50.00%)") || forms.contains("Conservative<br>(50.0%)"),
             qPrintable(QStringList(forms.values()).join(" | ")));
  }

  // A variable may be called what no file can.
  void APictureIsProposedUnderANameThatAFileCanHave() {
    WindowFixture window;
    window.Start(window.WriteDataFile("people.dcs", {"A/B:C*?\"<D>|\\E"}, {{"1"}, {"2"}, {"2"}}));
    window.ShowView(View::ViewStatProcs);
    SelectProcedure(window.session().panel, Procedure::kFrequencies);
    window.session().panel.SelectedVariables = {1};
    window.Trigger(308);
    window.ShowView(View::ViewCharts);
    auto* view = window.Find<ChartView>("MSChart1");
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, QPoint(40, 40));
    auto* form = window.frame().findChild<QDialog*>("Chart");
    QVERIFY(form);
    form->findChild<QPushButton*>("SaveChart")->click();
    const FileDialog& dialog = window.script().save_dialogs.back();
    QCOMPARE(dialog.initial_name, std::string("A-B-C----D---E.png"));
    QCOMPARE(dialog.initial_folder, window.documents_folder());
    QCOMPARE(dialog.default_extension, std::string("png"));
    QVERIFY(dialog.overwrite_prompt);
    QVERIFY(dialog.filter.find("*.svg") != std::string::npos);
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::ChartWordsTest)
#include "chart_words_test.moc"
