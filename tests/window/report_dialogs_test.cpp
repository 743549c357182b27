#include <QCheckBox>
#include <QLineEdit>

#include "window/output/report_form.h"
#include "window/output/rpt_options.h"
#include "window_fixture.h"

namespace tessara {

// The header and footer of the printed table, and its columns, through the frame up to the printed sheets.
class ReportDialogsTest : public QObject {
  Q_OBJECT

  std::unique_ptr<WindowFixture> window_;
  WindowFixture& window() { return *window_; }
  ScriptedPlatform& script() { return window().script(); }
  Session& session() { return window().session(); }

  RptOptions* Options() { return window().frame().findChild<RptOptions*>("RptOptions"); }
  ReportForm* Form() { return window().frame().findChild<ReportForm*>("ReportForm"); }
  template <typename Widget>
  static Widget* In(QWidget* form, const char* name) {
    auto* found = form->findChild<Widget*>(name);
    if (!found) qWarning("no widget %s", name);
    return found;
  }
  static void Press(QWidget* form, const char* button) {
    In<QAbstractButton>(form, button)->click();
    QCoreApplication::processEvents();
  }
  static void Key(QWidget* form, const char* key) {
    In<QAction>(form, key)->trigger();
    QCoreApplication::processEvents();
  }
  bool IsClosed(const QPointer<QDialog>& form) {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return form.isNull();
  }
  void OpenOptions() {
    window().Trigger(301);
    QVERIFY(Options());
  }
  std::string PrintedPage() {
    script().print_answers.push_back(PrintChoice{});
    window().Trigger(106);
    return script().print_jobs.empty() ? std::string() : script().print_jobs.back().sheets.front().text;
  }

 private slots:
  void init() {
    window_ = std::make_unique<WindowFixture>();
    window().Start();
    TableGrid& grid = session().table.grid;
    grid.SetText(1, 3, "All");
    grid.SetText(2, 1, "Age");
    grid.SetText(3, 2, "Mean");
    grid.SetText(3, 3, "41.50");
    grid.SetWidth(1, 600);
    grid.SetWidth(2, 600);
    grid.SetWidth(3, 800);
    session().output.OutputGridMode = true;
    window().ShowView(View::ViewOutput);
  }
  void cleanup() { window_.reset(); }

  void TheTextsOfTheDialogAreOnThePrintedPage() {
    OpenOptions();
    QCOMPARE(Options()->windowTitle(), "Format Header/Footers");
    QCOMPARE(In<QLineEdit>(Options(), "Text1")->text(), "Tessara Summary Report  #date#");
    QCOMPARE(In<QLineEdit>(Options(), "Text2")->text(), "Page pg#");
    In<QLineEdit>(Options(), "Text1")->setText("Ages");
    In<QLineEdit>(Options(), "Text1")->setFocus();
    Key(Options(), "left");
    In<QLineEdit>(Options(), "Text2")->setFocus();
    Key(Options(), "right");
    In<QCheckBox>(Options(), "Check1")->setChecked(true);
    Press(Options(), "Command1");
    Press(Options(), "Command2");
    const std::string blanks(111 - std::string("Page pg#").size(), ' ');
    QCOMPARE(PrintedPage(), "  Ages\r\n  " + std::string(111, '_') +
                                "\r\n\r\n\r\n"
                                "                   All\r\n"
                                "  Age                 \r\n"
                                "        Mean     41.50\r\n  " +
                                blanks + "Page 1");
  }

  void CloseStoresNothing() {
    OpenOptions();
    const QPointer<QDialog> options = Options();
    In<QLineEdit>(options, "Text1")->setText("Gone");
    In<QCheckBox>(options, "Check2")->setChecked(true);
    Press(options, "Command2");
    QVERIFY(IsClosed(options));
    QCOMPARE(session().report_page.ReportHeader, std::string(kUsualReportHeader));
    QVERIFY(!session().report_page.ReportFooterRule);
  }

  void TheKeysAppendTokensToTheBoxInFocus() {
    OpenOptions();
    Press(Options(), "Command4");
    QCOMPARE(In<QLineEdit>(Options(), "Text1")->text(), "");
    QCOMPARE(In<QLineEdit>(Options(), "Text2")->text(), "");
    In<QLineEdit>(Options(), "Text2")->setFocus();
    Key(Options(), "page");
    In<QLineEdit>(Options(), "Text1")->setFocus();
    Key(Options(), "date");
    Key(Options(), "page");
    QCOMPARE(In<QLineEdit>(Options(), "Text1")->text(), "#date#pg#");
    QCOMPARE(In<QLineEdit>(Options(), "Text2")->text(), "pg#");
    Press(Options(), "Command3");
    QCOMPARE(In<QLineEdit>(Options(), "Text1")->text(), QString(kUsualReportHeader));
    QCOMPARE(In<QLineEdit>(Options(), "Text2")->text(), QString(kUsualReportFooter));
  }

  void TheAlignmentKeysTellOfTheBoxInFocus() {
    OpenOptions();
    In<QLineEdit>(Options(), "Text1")->setFocus();
    Key(Options(), "left");
    In<QLineEdit>(Options(), "Text2")->setFocus();
    QVERIFY(In<QAction>(Options(), "center")->isChecked());
    In<QLineEdit>(Options(), "Text1")->setFocus();
    QVERIFY(In<QAction>(Options(), "left")->isChecked());
  }

  void AColumnWidthIsAsked() {
    window().Trigger(454);
    QVERIFY(Form());
    QCOMPARE(Form()->windowTitle(), "Equalize Column Width");
    QCOMPARE(In<QLineEdit>(Form(), "Text1")->text(), "800");
    In<QLineEdit>(Form(), "Text1")->setText("wide");
    Press(Form(), "Command1");
    QCOMPARE(script().messages.size(), std::size_t(1));
    QCOMPARE(script().messages[0].title, std::string("Entry Error"));
    QVERIFY(Form()->isVisible());
    In<QLineEdit>(Form(), "Text1")->setText("1500");
    const QPointer<QDialog> form = Form();
    Press(form, "Command1");
    QVERIFY(IsClosed(form));
    QCOMPARE(session().table.grid.Width(3), 1500.0);
    QCOMPARE(session().table.grid.Width(1), 600.0);
  }

  void ATableThatIsTooWideIsNotPrinted() {
    session().table.grid.SetWidth(3, 14000);
    QVERIFY(PrintedPage().empty());
    QCOMPARE(script().messages.size(), std::size_t(1));
    QVERIFY(script().messages[0].text.starts_with("The output is too wide to print properly."));
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::ReportDialogsTest)
#include "report_dialogs_test.moc"
