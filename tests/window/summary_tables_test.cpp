#include <QCheckBox>
#include <QComboBox>
#include <QRadioButton>

#include "window/stat_procs/variable_lists.h"
#include "window_fixture.h"

namespace tessara {

// Summary tables and Explore in the frame: what is clicked on the panel reaches the run.
class SummaryTablesTest : public QObject {
  Q_OBJECT

  std::unique_ptr<WindowFixture> window_;
  WindowFixture& window() { return *window_; }
  Session& session() { return window().session(); }
  TableGrid& Grid() { return session().table.grid; }

  void Click(const char* name) {
    window().Find<QAbstractButton>(name)->click();
    QCoreApplication::processEvents();
  }
  // Chooses one variable and puts it where the arrow leads.
  void Put(int row, const char* arrow) {
    auto* list = window().Find<VariableListView>("List1");
    list->scrollTo(list->model()->index(row, 0));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(list->model()->index(row, 0)).center());
    Click(arrow);
  }
  // Output comes to the front behind a run.
  void RunAndComeBack() {
    Click("RunButton");
    window().ShowView(View::ViewStatProcs);
  }
  QStringList Row(std::size_t row) {
    QStringList texts;
    for (std::size_t column = 1; column <= Grid().ColumnCount(); ++column) texts += ToQt(Grid().Text(row, column));
    return texts;
  }

 private slots:
  void init() {
    window_ = std::make_unique<WindowFixture>();
    window().Start(window().WriteDataFile("people.dcs", {"SEX", "AGE"}, {{"f", "20"}, {"f", "40"}, {"m", "30"}}));
    window().frame().resize(1300, 1000);
    window().ShowView(View::ViewStatProcs);
  }
  void cleanup() { window_.reset(); }

  void ATableOfCountsAndPercents() {
    Put(1, "Image2(0)");
    Click("Reports");
    Click("Check3");
    Click("Check4");
    window().Find<QComboBox>("Combo1")->setCurrentIndex(1);
    Click("RunButton");
    QVERIFY(session().output.OutputGridMode);
    QCOMPARE(session().ActiveView, View::ViewOutput);
    QCOMPARE(Row(1), (QStringList{"", "", "   All"}));
    QCOMPARE(Row(2), (QStringList{"Total Count", "", "3"}));
    QCOMPARE(Row(3), (QStringList{"95% CI (+/-)", "", "56.58%"}));  // 1.96 * sqrt(0.25 / 3)
    QCOMPARE(Row(5), (QStringList{"f", "Percent", "66.67%"}));
    QCOMPARE(Row(6), (QStringList{"", "Count", "2.00"}));
    QVERIFY(session().output.OutputLogText.empty());
  }

  void EachBoxOfContinuousDataHasItsRow() {
    Put(2, "Image2(0)");
    Put(1, "Image2(1)");
    Click("Reports");
    Click("Option16");
    const std::pair<const char*, const char*> boxes[] = {{"Check9", "Count"},   {"Check5", "Mean"},
                                                         {"Check10", "Sum"},    {"Check6", "Std Dev"},
                                                         {"Check7", "SE Mean"}, {"Check8", "95% CI (+/-)"}};
    for (const auto& [box, name] : boxes) {
      Click(box);
      Grid().Clear();
      RunAndComeBack();
      QCOMPARE(Grid().RowCount(), std::size_t{3});
      QCOMPARE(Row(1), (QStringList{"", "", "All", "f", "m"}));
      QCOMPARE(Row(2)[0], "AGE");
      QCOMPARE(Row(3)[1], name);
      Click(box);
    }
  }

  void TheTableGrowsOverRunsAndTheOtherKindIsABlockOfItsOwn() {
    Put(1, "Image2(0)");
    Click("Reports");
    Click("Check3");
    RunAndComeBack();
    QCOMPARE(Grid().RowCount(), std::size_t{5});
    Click("Option16");
    Put(0, "Image2(0)");  // "None" adds nothing
    session().panel.SelectedVariables = {2};
    Click("Check5");
    RunAndComeBack();
    QCOMPARE(Grid().RowCount(), std::size_t{8});
    QCOMPARE(Row(6), (QStringList{"", "", "All"}));
    QCOMPARE(Row(8), (QStringList{"", "Mean", "30.0"}));
  }

  void WithoutABoxTheCategoricalTableAsksForAProcedure() {
    Put(1, "Image2(0)");
    Click("Reports");
    Click("RunButton");
    QCOMPARE(window().script().messages.size(), std::size_t{1});
    QCOMPARE(window().script().messages[0].title, "Try Again!");
    QVERIFY(!session().output.OutputGridMode);
    QVERIFY(Grid().empty());
  }

  void TheTableIsConvertedToTextAndTheTextIsInFront() {
    Put(1, "Image2(0)");
    Click("Reports");
    Click("Check3");
    window().Find<QComboBox>("Combo1")->setCurrentIndex(4);
    Click("RunButton");
    window().Trigger(211);
    QVERIFY(!session().output.OutputGridMode);
    const std::string text =
        "\r\nSummary Report Results - Tab Delimited\t\t   All\t   All\r\nTotal Count\t\t3\t3\r\nSEX\t\t\t\r\n"
        "f\tCount\t2\t2\r\nm\tCount\t1\t1\r\n";
    QCOMPARE(session().output.MostRecentText, text + std::string(kReportSeparator));
    QCOMPARE(session().output.OutputLogText, text + "\r\n\r\n\r\n" + std::string(kReportSeparator));
    QCOMPARE(Grid().RowCount(), std::size_t{5});  // the table itself stays
  }

  void NewEmptiesTheTableThatIsInFrontAndNoOther() {
    Put(1, "Image2(0)");
    Click("Reports");
    Click("Check3");
    Click("RunButton");
    window().script().message_answers = {Answer::kNo, Answer::kYes};
    window().Trigger(101);
    QCOMPARE(Grid().RowCount(), std::size_t{5});
    window().Trigger(101);
    QCOMPARE(window().script().messages.size(), std::size_t{2});
    QVERIFY(window().script().messages[1].text.find("This will clear the Output log.") == 0);
    QVERIFY(Grid().empty());

    window().ShowView(View::ViewStatProcs);
    RunAndComeBack();
    Click("Option1");
    Click("RunButton");
    QVERIFY(!session().output.OutputGridMode);
    window().script().message_answers = {Answer::kYes};
    window().Trigger(101);
    QVERIFY(session().output.OutputLogText.empty());
    QCOMPARE(Grid().RowCount(), std::size_t{5});
  }

  void ExploreShowsItsReport() {
    Put(2, "Image2(0)");
    Put(1, "Image2(1)");
    Click("Option20");
    Click("RunButton");
    QCOMPARE(session().ActiveView, View::ViewOutput);
    QVERIFY(!session().output.OutputGridMode);
    const std::string& text = session().output.MostRecentText;
    QVERIFY(text.find("Variable:  AGE\r\n\r\nCategory:  All\r\n") != text.npos);
    QVERIFY(text.find("Category:  f\r\n") != text.npos);
    QVERIFY(text.find("There are less than 2 observations") != text.npos);  // of m
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::SummaryTablesTest)
#include "summary_tables_test.moc"
