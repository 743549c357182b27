#include <QAbstractItemView>
#include <QCheckBox>
#include <QClipboard>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QRadioButton>

#include "data/change_door.h"
#include "platform/files.h"
#include "presentation/office/zip_archive.h"
#include "window/grid/delimit.h"
#include "window/grid/split_data.h"
#include "window/reference/help_pane.h"
#include "window/stat_procs/variable_lists.h"
#include "window_fixture.h"

namespace tessara {

// Import, export and split through the frame, up to the files on the disk.
class ExchangeTest : public QObject {
  Q_OBJECT

  std::unique_ptr<WindowFixture> window_;
  WindowFixture& window() { return *window_; }
  ScriptedPlatform& script() { return window().script(); }

  Delimit* Wizard() { return window().frame().findChild<Delimit*>("Delimit"); }
  SplitData* Split() { return window().frame().findChild<SplitData*>("SplitData"); }
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
  // A form that was closed goes with the next turn of the events.
  bool IsClosed(const QPointer<QDialog>& form) {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return form.isNull();
  }
  // The import page, with one of its options and a file chosen.
  void Choose(int option, const Path& file) {
    window().Trigger(104);
    QVERIFY(Wizard());
    script().open_answers.push_back(WindowFixture::Chosen(file));
    In<QRadioButton>(Wizard(), qPrintable(QString("Option5(%1)").arg(option)))->click();
    Press(Wizard(), "Next");
  }
  QString Heading(int column) {
    auto* grid = window().Find<QAbstractItemView>("MSFlexGrid1");
    return grid->model()->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
  }
  const DataSet& Data() { return window().session().data; }
  Path KnownData() { return window().WriteDataFile("known.dcs", {"SEX", "AGE"}, {{"1", "34"}, {"2", "41"}}); }

 private slots:
  void init() { window_ = std::make_unique<WindowFixture>(); }
  void cleanup() { window_.reset(); }

  void ACommaFileComesIn() {
    const Path csv = window().WriteFile("in.csv", "NAME,PAY\r\nRay,$5.00\r\nJones,7\r\n");
    window().Start(KnownData());
    Choose(2, csv);
    const QPointer<QDialog> wizard = Wizard();
    QCOMPARE(wizard->windowTitle(), "Import Data File");
    QVERIFY(In<QRadioButton>(wizard, "Option2")->isChecked());
    QVERIFY(In<QCheckBox>(wizard, "Check1")->isChecked());
    QCOMPARE(In<QPlainTextEdit>(wizard, "Text1")->toPlainText(), "NAME\tPAY\nRay\t$5.00\nJones\t7");
    QCOMPARE(script().open_dialogs.back().title, "Import Data");
    QCOMPARE(script().open_dialogs.back().filter, "Data text files (*.csv)|*.csv|All files (*.*)|*.*");
    Press(wizard, "DelOK");
    QVERIFY(IsClosed(wizard));
    QVERIFY(script().messages.empty());
    QCOMPARE(window().Pane(2), "2 Records");
    QCOMPARE(Data().matrix.Cell(16, 2).text(), "5.00");
    QVERIFY(window().frame().windowTitle().contains("Data Grid"));
    QVERIFY(!window().frame().isWindowModified());
  }

  // Save asks for a name, and the text stays as it was.
  void ASaveBehindAnImportAsksForAName() {
    const Path csv = window().WriteFile("in.csv", "NAME,PAY\nRay,5\n");
    window().Start(KnownData());
    Choose(2, csv);
    Press(Wizard(), "DelOK");
    script().save_answers.push_back(WindowFixture::Chosen(window().folder() / "new.dcs"));
    window().Trigger(103);
    QCOMPARE(script().save_dialogs.size(), std::size_t{1});
    QCOMPARE(script().save_dialogs[0].title, "Save As");
    QCOMPARE(WindowFixture::ReadFile(csv), "NAME,PAY\nRay,5\n");
    const std::string saved = WindowFixture::ReadFile(window().folder() / "new.dcs");
    QVERIFY(saved.starts_with("1 2 Tessara data\x01"));
    QVERIFY(
        saved.ends_with("NAME\x01PAY\r\nRay\x01"
                        "5\r\n"));
    QVERIFY(window().frame().windowTitle().contains("new.dcs"));
  }

  // The same when the text was chosen and the wizard cancelled; and it is no data file to open again.
  void ASaveBehindACancelledImportAsksTooAndTheTextIsNoRecentFile() {
    const Path csv = window().WriteFile("in.csv", "NAME,PAY\nRay,5\n");
    const Path known = KnownData();
    window().Start();
    script().open_answers.push_back(WindowFixture::Chosen(known));
    window().Trigger(102);
    Choose(2, csv);
    const QPointer<QDialog> wizard = Wizard();
    QTest::keyClick(wizard, Qt::Key_Escape);
    QVERIFY(IsClosed(wizard));
    QCOMPARE(Heading(0), "SEX");
    window().Trigger(103);
    QCOMPARE(script().save_dialogs.size(), std::size_t{1});
    QCOMPARE(WindowFixture::ReadFile(csv), "NAME,PAY\nRay,5\n");
    for (const QAction* action : window().frame().findChildren<QAction*>()) QVERIFY(!action->text().contains("in.csv"));
  }

  void TheDelimiterIsChosenByKeyboard() {
    const Path text = window().WriteFile("in.txt", "1::2\n3::4\n");
    window().Start();
    Choose(3, text);
    QCOMPARE(script().open_dialogs.back().filter, "Data text files (*.txt)|*.txt|All files (*.*)|*.*");
    QWidget* wizard = Wizard();
    QVERIFY(In<QRadioButton>(wizard, "Option1")->isChecked());
    QVERIFY(!In<QCheckBox>(wizard, "Check1")->isChecked());
    auto* other = In<QLineEdit>(wizard, "Text2");
    other->setFocus();
    QTest::keyClicks(other, "::");
    QVERIFY(In<QRadioButton>(wizard, "Option3")->isChecked());
    QCOMPARE(In<QPlainTextEdit>(wizard, "Text1")->toPlainText(), "1\t2\n3\t4");
    const QPointer<QDialog> open = Wizard();
    QTest::keyClick(In<QCheckBox>(wizard, "Check1"), Qt::Key_Return);  // the default button imports
    QVERIFY(IsClosed(open));
    QCOMPARE(Heading(0), "V1");
    QCOMPARE(Data().matrix.Cell(17, 2).text(), "4");
  }

  void EnterInTheOtherDelimiterIsRefused() {
    window().Start();
    Choose(3, window().WriteFile("in.txt", "a;b\n1;2\n"));
    auto* other = In<QLineEdit>(Wizard(), "Text2");
    QTest::keyClicks(other, ";");
    QTest::keyClick(other, Qt::Key_Return);
    QCOMPARE(script().messages.size(), std::size_t{1});
    QCOMPARE(script().messages[0].title, "Error");
    QCOMPARE(script().messages[0].text, "An invalid character was entered.");
    QCOMPARE(other->text(), "");
    QVERIFY(Wizard()->isVisible());
    QCOMPARE(Data().VariableCount, std::size_t{20});
  }

  void NextNeedsAnOption() {
    window().Start();
    window().Trigger(104);
    QCOMPARE(Wizard()->windowTitle(), "Import Data");
    Press(Wizard(), "Next");
    QCOMPARE(script().messages.at(0).text, "You must select an import option to continue");
    QVERIFY(Wizard()->page() == Delimit::Page::kImport);
    Wizard()->reject();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    window().Trigger(105);
    QCOMPARE(Wizard()->windowTitle(), "Export Data");
    Press(Wizard(), "Next");
    QCOMPARE(script().messages.at(1).text, "You must select an export option to continue");
  }

  void AFileThatCannotBeOpenedKeepsThePage() {
    window().Start();
    Choose(1, window().folder() / "nowhere.txt");
    QCOMPARE(script().messages.at(0).title, "Unable to open file");
    QVERIFY(Wizard()->page() == Delimit::Page::kImport);
    script().open_answers.push_back(std::nullopt);  // cancelled
    Press(Wizard(), "Next");
    QCOMPARE(script().messages.size(), std::size_t{1});
    QVERIFY(Wizard()->page() == Delimit::Page::kImport);
  }

  void TheClipboardComesInAndUndoBringsTheDataBack() {
    window().Start(KnownData());
    QApplication::clipboard()->setText("NAME\tPAY\nRay\t1,005\n");
    window().Trigger(104);
    In<QRadioButton>(Wizard(), "Option5(0)")->click();
    Press(Wizard(), "Next");
    QCOMPARE(Wizard()->windowTitle(), "Paste Data");
    Press(Wizard(), "DelOK");
    QCOMPARE(Heading(1), "PAY");
    QCOMPARE(Data().matrix.Cell(16, 2).text(), "1005");
    const Path file = window().documents_folder() / "Tessara Data" / "Temp2.txt";
    QVERIFY(WindowFixture::ReadFile(file).starts_with("NAME\tPAY"));
    QVERIFY(UndoChange(window().session().data));
    window().frame().RefreshCommands();
    QCOMPARE(Data().matrix.Cell(17, 2).text(), "41");
  }

  void AnImportWithoutDataSaysSoAndKeepsTheWizard() {
    window().Start(KnownData());
    Choose(2, window().WriteFile("in.csv", "NAME,PAY\n"));
    Press(Wizard(), "DelOK");
    QCOMPARE(script().messages.at(0).text, "No data found.");
    QVERIFY(Wizard()->isVisible());
    QCOMPARE(Heading(0), "SEX");
    In<QCheckBox>(Wizard(), "Check1")->setChecked(false);  // then it is one record
    Press(Wizard(), "DelOK");
    QCOMPARE(Heading(0), "V1");
    QCOMPARE(Data().matrix.Cell(16, 1).text(), "NAME");
  }

  void BackLeadsToTheOptions() {
    window().Start();
    Choose(2, window().WriteFile("in.csv", "A,B\n1,2\n"));
    Press(Wizard(), "Back");
    QCOMPARE(Wizard()->windowTitle(), "Import Data");
    QVERIFY(In<QRadioButton>(Wizard(), "Option5(2)")->isChecked());
  }

  void TextOfAFileIsPlainTextInThePreview() {
    window().Start();
    Choose(2, window().WriteFile("in.csv", "<b>A</b>,<img src=x>\n1,2\n"));
    QCOMPARE(In<QPlainTextEdit>(Wizard(), "Text1")->toPlainText(), "<b>A</b>\t<img src=x>\n1\t2");
  }

  void DataGoOut() {
    window().Start(KnownData());
    const Path out = window().folder() / "out.txt";
    script().save_answers.push_back(WindowFixture::Chosen(out));
    window().Trigger(105);
    const QPointer<QDialog> wizard = Wizard();
    In<QRadioButton>(wizard, "Option6(2)")->click();
    Press(wizard, "Next");
    QCOMPARE(script().messages.at(0).title, "Reminder!");
    QCOMPARE(script().save_dialogs.at(0).title, "Export Data");
    QCOMPARE(script().save_dialogs.at(0).filter, "Tab delimited text files (*.txt)|*.txt");
    QVERIFY(script().save_dialogs.at(0).overwrite_prompt);
    QCOMPARE(WindowFixture::ReadFile(out), "SEX\tAGE\r\n1\t34\r\n2\t41\r\n");
    QVERIFY(IsClosed(wizard));
  }

  void DataGoOutAsASpreadsheet() {
    window().Start(KnownData());
    window().Trigger(108);
    const QPointer<QDialog> wizard = Wizard();
    In<QRadioButton>(wizard, "Option6(0)")->click();
    Press(wizard, "Next");
    QCOMPARE(script().messages.size(), std::size_t{1});
    QCOMPARE(script().messages.at(0).title, "Reminder!");
    QVERIFY(script().save_dialogs.empty());
    const Path file = window().documents_folder() / "Tessara Data" / "Data 2026-11-05.xlsx";
    QCOMPARE(script().documents, std::vector<std::string>{PathToUtf8(file)});
    QVERIFY(IsWholeArchive(file, "xl/worksheets/sheet", "<c ", {6}));  // two names and two records of two cells
    QCOMPARE(window().Pane(1), "Saved as " + PathToQt(file));
    QVERIFY(IsClosed(wizard));
  }

  void TheSpreadsheetCommandOpensTheExportPage() {
    window().Start(KnownData());
    window().Trigger(108);
    QVERIFY(Wizard()->page() == Delimit::Page::kExport);
    window().Trigger(104);  // one form at a time
    QVERIFY(Wizard()->page() == Delimit::Page::kExport);
  }

  void ASplitWritesTheChosenVariables() {
    window().Start(KnownData());
    window().Trigger(201);
    const QPointer<QDialog> split = Split();
    QVERIFY(split);
    auto* list1 = In<VariableListView>(split, "List1");
    auto* list2 = In<QListWidget>(split, "List2");
    QCOMPARE(list1->model()->rowCount(), 2);  // the variables alone
    QCOMPARE(list2->count(), 1);
    QCOMPARE(list2->item(0)->text(), "None");
    Press(split, "Run1");
    QCOMPARE(script().messages.at(0).text, "You must have at least one variable in new data file list");
    Press(split, "Image1");
    QCOMPARE(script().messages.at(1).text, "You must select a variable from the list");

    list1->setFocus();
    QTest::keyClick(list1, Qt::Key_Home);
    QTest::keyClick(list1, Qt::Key_Down);
    QTest::keyClick(list1, Qt::Key_Return);  // AGE
    list1->selectAll();
    Press(split, "Image3");  // SEX alone is missing
    QCOMPARE(list2->count(), 3);
    QCOMPARE(list2->item(1)->text(), "AGE");
    QCOMPARE(list2->item(2)->text(), "SEX");
    const Path out = window().folder() / "part.dcs";
    script().save_answers.push_back(WindowFixture::Chosen(out));
    Press(split, "Run1");
    QCOMPARE(script().messages.at(2).title, "Operation Completed");
    QCOMPARE(script().save_dialogs.at(0).filter, "Tessara files (*.dcs)|*.dcs");
    const std::string written = WindowFixture::ReadFile(out);
    QVERIFY(written.starts_with("2 2 Tessara data\x01"));
    QVERIFY(
        written.ends_with("AGE\x01SEX\r\n34\x01"
                          "1\r\n41\x01"
                          "2\r\n"));
    QVERIFY(IsClosed(split));
    QVERIFY(window().frame().windowTitle().contains("known.dcs"));
  }

  void NoneResetsTheList() {
    window().Start(KnownData());
    window().Trigger(201);
    auto* list1 = In<VariableListView>(Split(), "List1");
    auto* list2 = In<QListWidget>(Split(), "List2");
    list1->setCurrentIndex(list1->model()->index(1, 0));
    Press(Split(), "Image1");
    Press(Split(), "Image1");
    QCOMPARE(list2->count(), 3);  // the same one twice
    list2->setFocus();
    list2->setCurrentRow(0);
    QTest::keyClick(list2, Qt::Key_Return);
    QCOMPARE(list2->count(), 1);
    QCOMPARE(window().session().split.SplitCount(), std::size_t{0});
    const QPoint place = list1->visualRect(list1->model()->index(0, 0)).center();
    QTest::mouseClick(list1->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(list1->viewport(), Qt::LeftButton, {}, place);
    QCOMPARE(list2->count(), 2);
    const QPoint none = list2->visualItemRect(list2->item(0)).center();
    QTest::mouseClick(list2->viewport(), Qt::LeftButton, {}, none);
    QTest::mouseDClick(list2->viewport(), Qt::LeftButton, {}, none);
    QCOMPARE(list2->count(), 1);
  }

  void HelpOpensItsSection() {
    window().Start();
    window().Trigger(104);
    QTest::keyClick(Wizard(), Qt::Key_F1);
    QVERIFY(window().session().help_pane_visible);
    QVERIFY(window().Find<HelpPane>("TaskPanel")->Shows("UserManual1.html#import"));
    Wizard()->reject();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    window().Trigger(201);
    QTest::keyClick(Split(), Qt::Key_F1);
    QVERIFY(window().Find<HelpPane>("TaskPanel")->Shows("UserManual1.html#split"));
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::ExchangeTest)
#include "exchange_test.moc"
