#include <QAbstractItemView>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLineEdit>
#include <QMenu>
#include <QTableView>
#include <QTextDocumentFragment>
#include <QToolTip>

#include "window/system/plain_text_rule.h"
#include "window_fixture.h"

// Text of files is plain text in every widget of the real frame.

namespace tessara {

class PlainTextTest : public QObject {
  Q_OBJECT

 private:
  WindowFixture* window_ = nullptr;
  WindowFixture& window() { return *window_; }

  static constexpr const char* kName = "<b>Q&1</b>";
  static constexpr const char* kLabel = "<i>How</i> are <img src=\"/nowhere/x.png\"> you & yours?";

  // A data file whose every text looks like a page of the web, its own name among them.
  void OpenHostileFile() {
    const std::vector<std::string> names = {kName, "<h1>G</h1>", "V&W"};
    std::vector<std::vector<std::string>> lines(15, std::vector<std::string>(names.size()));
    lines[1] = {kLabel, "<u>Group</u>", "a & b"};
    lines[3] = {"1=<b>yes</b>", "1=<b>a</b>", ""};
    lines[14] = names;
    std::string content = "4 3 Tessara data\x01<b>notes</b> & more\x01\r\n";
    for (std::size_t i = 0; i < lines.size(); ++i) content += Joined(lines[i]);
    for (const char* record : {"1", "2", "<b>3</b>", "&"}) content += Joined({record, "<td>", "5"});
    const Path file = window().WriteFile("<b>data & more<br>.dcs", content);
    window().script().open_answers.push_back(WindowFixture::Chosen(file));
    window().Trigger(102);
    QCOMPARE(window().Pane(2), "4 Records");
  }
  static std::string Joined(const std::vector<std::string>& fields) {
    std::string line;
    for (std::size_t i = 0; i < fields.size(); ++i) line += (i == 0 ? "" : "\x01") + fields[i];
    return line + "\r\n";
  }

  // What the tip at a place says to a reader; nothing when there is none.
  static QString TipShownAt(QWidget* widget, const QPoint& place) {
    QToolTip::hideText();
    QHelpEvent event(QEvent::ToolTip, place, widget->mapToGlobal(place));
    QApplication::sendEvent(widget, &event);
    const QString shown = QToolTip::text();
    return Qt::mightBeRichText(shown) ? QTextDocumentFragment::fromHtml(shown).toPlainText() : shown;
  }

  void CheckAllWidgets() {
    for (QWidget* widget : QApplication::allWidgets()) {
      if (const auto* label = qobject_cast<QLabel*>(widget); label && !label->inherits("QTipLabel")) {
        const bool guesses = label->textFormat() == Qt::AutoText && label->testAttribute(Qt::WA_WState_Polished);
        QVERIFY2(!guesses && label->textFormat() != Qt::RichText,
                 qPrintable(label->objectName() + ": " + label->text()));
      }
      if (!widget->isVisible() || !Qt::mightBeRichText(widget->toolTip())) continue;
      QCOMPARE(TipShownAt(widget, widget->rect().center()), widget->toolTip().simplified());
    }
  }

 private slots:
  void init() {
    window_ = new WindowFixture;
    window().Start();
  }
  void cleanup() {
    QToolTip::hideText();
    delete window_;
    window_ = nullptr;
  }

  void LabelsOfEveryViewDoNotGuess() {
    OpenHostileFile();
    for (int view = 1; view <= 8; ++view) {
      window().ShowView(static_cast<View>(view));
      CheckAllWidgets();
    }
  }

  void FormsThatDescribeVariablesDoNotGuess() {
    OpenHostileFile();
    window().Trigger(310);
    window().Trigger(301);
    CheckAllWidgets();
    QCOMPARE(window().Find<QLineEdit>("Text1")->text(), QString(kName));
    QCOMPARE(window().Find<QLabel>("FormattedVariable")->text(), QString(kName) + "   " + kLabel);
    auto* table = window().Find<QTableView>("VariableTable");
    const QModelIndex label = table->model()->index(0, 1);
    QCOMPARE(label.data().toString(), QString(kLabel));
    QCOMPARE(TipShownAt(table->viewport(), table->visualRect(label).center()), QString(kLabel));
  }

  void ReportsChartsAndTheirTipsDoNotGuess() {
    OpenHostileFile();
    window().session().panel.SelectedVariables = {1};
    window().session().panel.selected = Procedure::kFrequencies;
    window().ShowView(View::ViewStatProcs);
    window().Trigger(308);
    for (const View view : {View::ViewOutput, View::ViewCharts, View::ViewStatProcs}) {
      window().ShowView(view);
      CheckAllWidgets();
    }
  }

  void TheSummaryTableDoesNotGuess() {
    TableGrid& grid = window().session().table.grid;
    grid.SetText(1, 1, kLabel);  // longer than its column
    grid.SetText(2, 3, kName);
    window().session().output.OutputGridMode = true;
    window().ShowView(View::ViewOutput);
    CheckAllWidgets();
    auto* table = window().Find<QTableView>("MSFlexGrid2");
    const QModelIndex cut = table->model()->index(0, 0);
    QCOMPARE(cut.data().toString(), QString(kLabel));
    QCOMPARE(TipShownAt(table->viewport(), table->visualRect(cut).center()), QString(kLabel));
    table->setFocus();
    QTest::keyClick(table, Qt::Key_F2);
    QCOMPARE(window().Find<QLineEdit>("GridText2")->text(), QString(kLabel));
    CheckAllWidgets();
  }

  void HeadingOfAColumnShowsItsLabelAsItStands() {
    OpenHostileFile();
    auto* table = window().Find<QTableView>("MSFlexGrid1");
    QHeaderView* header = table->horizontalHeader();
    const QPoint place(header->sectionViewportPosition(0) + 3, header->height() / 2);
    QCOMPARE(TipShownAt(header->viewport(), place), QString(kLabel));
  }

  void VariableOfAListShowsItsLabelAsItStands() {
    OpenHostileFile();
    window().ShowView(View::ViewStatProcs);
    int seen = 0;
    for (auto* list : window().frame().findChildren<QAbstractItemView*>()) {
      if (!list->isVisible() || !list->model() || qobject_cast<QHeaderView*>(list)) continue;
      for (int row = 0; row < list->model()->rowCount(); ++row) {
        const QModelIndex index = list->model()->index(row, 0);
        const QString tip = index.data(Qt::ToolTipRole).toString();
        if (!Qt::mightBeRichText(tip)) continue;
        list->scrollTo(index);
        ++seen;
        QCOMPARE(TipShownAt(list->viewport(), list->visualRect(index).center()), tip.simplified());
      }
    }
    QVERIFY(seen > 0);
  }

  void RecentFileShowsItsNameAsItStands() {
    OpenHostileFile();
    auto* menu = window().Find<QMenu>("RecentFiles");
    QCOMPARE(menu->actions().size(), 1);
    QAction* action = menu->actions().front();
    QVERIFY2(action->text().endsWith("<b>data && more<br>.dcs"), qPrintable(action->text()));
    menu->popup(QPoint(0, 0));
    const QString tip = TipShownAt(menu, menu->actionGeometry(action).center());
    QVERIFY2(tip.endsWith("<b>data & more<br>.dcs"), qPrintable(tip));
    menu->hide();
  }

  void RuleHoldsForALabelThatComesLater() {
    QLabel label("<img src='/nowhere'>");
    QCOMPARE(label.textFormat(), Qt::AutoText);
    label.show();
    QCOMPARE(label.textFormat(), Qt::PlainText);
    QLabel meant("<b>name</b>");
    meant.setTextFormat(Qt::RichText);
    meant.show();
    QCOMPARE(meant.textFormat(), Qt::RichText);
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::PlainTextTest)
#include "plain_text_test.moc"
