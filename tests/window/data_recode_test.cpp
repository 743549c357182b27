#include "window/grid/data_recode.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QListView>
#include <QRadioButton>
#include <QTableWidget>
#include <QTextBrowser>

#include "data/change_door.h"
#include "window/grid/grid_view.h"
#include "window_fixture.h"

namespace tessara {

// The panel that recodes, computes, finds and replaces, through the frame: typed, clicked, saved and looked at.
class DataRecodeTest : public QObject {
  Q_OBJECT

  static constexpr int kFind = 202, kReplace = 203, kReset = 803, kSave = 103, kOpen = 102;
  static constexpr int kRecode = 302, kDates = 303, kCombine = 304, kCompute = 305, kTrim = 306;

  std::unique_ptr<WindowFixture> window_;
  Path file_;
  WindowFixture& window() { return *window_; }
  DataSet& data() { return window().session().data; }
  GridView* grid() { return window().Find<GridView>("MSFlexGrid1"); }
  DataRecode* form() { return window().Find<DataRecode>("DataRecode"); }
  template <typename Widget>
  Widget* In(const char* name) {
    return form()->findChild<Widget*>(name);
  }
  QLineEdit* Box(const char* name) { return In<QLineEdit>(name); }
  QString Words(const char* name) { return In<QLabel>(name)->text(); }

  void Open(const std::vector<std::string>& names, const std::vector<std::vector<std::string>>& records) {
    file_ = window().WriteDataFile("data.dcs", names, records);
    window().script().open_answers.push_back(WindowFixture::Chosen(file_));
    window().Trigger(kOpen);
  }
  void Pick(int row) {
    auto* list = In<QListView>("List1");
    const QRect place = list->visualRect(list->model()->index(row, 0));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place.center());
  }
  void Type(const char* name, const char* text) {
    Box(name)->setFocus();
    Box(name)->selectAll();
    QTest::keyClicks(Box(name), text);
  }
  void Press(const char* name) { QTest::mouseClick(In<QPushButton>(name), Qt::LeftButton); }
  void Choose(const char* name) { In<QRadioButton>(name)->click(); }
  void UndoInGrid() {
    QVERIFY(UndoChange(data()));
    window().frame().RefreshCommands();
  }
  // The records of the saved file, cells apart by bars.
  QStringList Saved() {
    window().Trigger(kSave);
    const QString text = QString::fromLatin1(QByteArray::fromStdString(WindowFixture::ReadFile(file_)));
    return text.split("\r\n", Qt::SkipEmptyParts).join("\n").replace('\x01', '|').split('\n').mid(1);
  }
  QStringList SavedRecords(const QString& names) {
    const QStringList lines = Saved();
    const auto place = lines.indexOf(names);
    return place < 0 ? QStringList{"names: " + lines.join(" / ")} : lines.mid(place + 1);
  }

 private slots:
  void init() {
    window_ = std::make_unique<WindowFixture>();
    window().Start();
    Open({"AGE", "SEX"}, {{"20", "1"}, {"30", "2"}, {"40", "1"}});
  }
  void cleanup() { window_.reset(); }

  void RecodeGoesOnFromRunToRun() {
    window().Trigger(kRecode);
    QVERIFY(form()->isVisible());
    QVERIFY(!form()->isModal());
    QCOMPARE(form()->windowTitle(), QString("Recode"));
    QCOMPARE(In<QPushButton>("Run")->text(), QString("Run Recode"));
    QCOMPARE(In<QPushButton>("Run")->toolTip(), QString("Creates new variable and value"));
    QVERIFY(data().DataDirty);
    Pick(1);
    QCOMPARE(Words("IfVariable"), QString("AGE"));
    Choose("OptionLT");
    Type("OldValue", "30");
    Type("NewVar", "GROUP");
    Type("NewValue", "young");
    QTest::keyClick(Box("NewValue"), Qt::Key_Return);  // Enter runs
    QCOMPARE(window().Pane(1), QString("Recode: 1 cell changed"));
    QCOMPARE(window().Pane(3), QString("3 Variables"));
    Choose("OptionGT");
    Type("OldValue", "29");
    Type("NewValue", "old");
    QCOMPARE(Words("PreviewCaption"), QString("Goes on in the variable GROUP"));
    Press("Run");
    QCOMPARE(window().Pane(1), QString("Recode: 2 cells changed"));
    QCOMPARE(SavedRecords("AGE|SEX|GROUP"), (QStringList{"20|1|young", "30|2|old", "40|1|old"}));
    UndoInGrid();
    QCOMPARE(SavedRecords("AGE|SEX|GROUP"), (QStringList{"20|1|young", "30|2|", "40|1|"}));
    UndoInGrid();
    QCOMPARE(SavedRecords("AGE|SEX"), (QStringList{"20|1", "30|2", "40|1"}));
  }

  void ThePreviewFollowsWhatIsTyped() {
    window().Trigger(kRecode);
    auto* table = In<QTableWidget>("Preview");
    QCOMPARE(Words("PreviewCaption"), QString("You must select a variable from the list"));
    Pick(1);
    Choose("OptionGT");
    Type("NewVar", "G");
    Type("NewValue", "x");
    QCOMPARE(Words("PreviewCaption"), QString("All boxes must be completed."));
    QCOMPARE(table->rowCount(), 0);
    Type("OldValue", "2");
    QCOMPARE(table->rowCount(), 3);
    Type("OldValue", "25");
    QCOMPARE(table->rowCount(), 2);
    QCOMPARE(table->item(0, 0)->text(), QString("2"));
    QCOMPARE(table->item(0, 1)->text(), QString("30"));
    QCOMPARE(table->item(0, 2)->text(), QString("x"));
    QCOMPARE(table->horizontalHeaderItem(1)->text(), QString("AGE"));
    QCOMPARE(table->horizontalHeaderItem(2)->text(), QString("G"));
    QCOMPARE(data().VariableCount, std::size_t{2});
  }

  void ComputeTakesDigitsAlone() {
    window().Trigger(kCompute);
    QCOMPARE(form()->windowTitle(), QString("Compute"));
    Pick(1);
    Choose("OptionDiv");
    Type("Text1", "TENTH");
    Type("Text2", "1x0");
    QCOMPARE(window().script().messages.back().title, std::string("Warning"));
    QCOMPARE(window().script().messages.back().text, std::string("Only numerical entries are allowed."));
    QCOMPARE(Box("Text2")->text(), QString("0"));  // the key acts as a backspace
    Type("Text2", "10");
    QTest::keyClick(Box("Text2"), Qt::Key_Backspace);
    QCOMPARE(Box("Text2")->text(), QString("1"));
    QTest::keyClicks(Box("Text2"), "0");
    QCOMPARE(window().script().messages.size(), std::size_t{1});
    Press("Run");
    QCOMPARE(window().Pane(1), QString("Compute: 3 cells changed"));
    QCOMPARE(SavedRecords("AGE|SEX|TENTH"), (QStringList{"20|1|2", "30|2|3", "40|1|4"}));
  }

  void ComputeDuplicatesAndTakesLogarithms() {
    window().Trigger(kCompute);
    Pick(2);
    Type("Text1", "COPY");
    In<QCheckBox>("Check1")->click();
    Press("Run");
    Type("Text1", "LN");
    In<QCheckBox>("Check3")->click();  // wins over the duplicate
    Press("Run");
    QCOMPARE(SavedRecords("AGE|SEX|COPY|LN"), (QStringList{"20|1|1|0", "30|2|2|0.6931471805599453", "40|1|1|0"}));
  }

  void ACommaEmptiesItsBox() {
    window().Trigger(kRecode);
    Type("NewVar", "AB,C");
    QCOMPARE(window().script().messages.back().text, std::string("Commas are prohibited"));
    QCOMPARE(Box("NewVar")->text(), QString(" C"));
    QCOMPARE(window().session().recode.NewVar, std::string(" C"));
    Type("OldValue", "1,5");  // this box takes it
    QCOMPARE(Box("OldValue")->text(), QString("1,5"));
    QCOMPARE(window().script().messages.size(), std::size_t{1});
  }

  void CombineTakesTheVariablesByItsButtons() {
    window().Trigger(kCombine);
    QCOMPARE(form()->windowTitle(), QString("Combine Two Variables"));
    Press("Var1");
    QCOMPARE(window().script().messages.back().text, std::string("You must select a variable from the list"));
    Pick(1);
    Press("Var1");
    Pick(2);
    Press("Var2");
    QCOMPARE(Box("Date1")->text(), QString("AGE"));
    QCOMPARE(Box("Date2")->text(), QString("SEX"));
    Choose("OptMinus");
    Type("DateVar", "LESS");
    QCOMPARE(In<QTableWidget>("Preview")->item(0, 3)->text(), QString("19.00000"));
    Press("Run");
    QCOMPARE(SavedRecords("AGE|SEX|LESS"), (QStringList{"20|1|19.00000", "30|2|28.00000", "40|1|39.00000"}));
    UndoInGrid();
    QCOMPARE(SavedRecords("AGE|SEX"), (QStringList{"20|1", "30|2", "40|1"}));
  }

  void AQuotientOfZeroShowsDecimalsUntilItIsReadAgain() {
    Open({"A", "B"}, {{"4", "0"}, {"4", "2"}});
    window().Trigger(kCombine);
    Pick(1);
    Press("Var1");
    Pick(2);
    Press("Var2");
    Choose("OptDiv");
    Type("DateVar", "Q");
    Press("Run");
    QCOMPARE(grid()->model()->index(0, 2).data().toString(), QString("0.00000"));
    QCOMPARE(grid()->model()->index(1, 2).data().toString(), QString("2.00000"));
    QCOMPARE(SavedRecords("A|B|Q"), (QStringList{"4|0|0", "4|2|2.00000"}));
    window().script().open_answers.push_back(WindowFixture::Chosen(file_));
    window().Trigger(kOpen);
    QCOMPARE(grid()->model()->index(0, 2).data().toString(), QString("0"));
  }

  void CompareDatesEmptiesItsBoxes() {
    Open({"FROM", "TO"}, {{"1/1/2002", "1/11/2002"}, {"1/1/2002", "soon"}});
    window().Trigger(kDates);
    QCOMPARE(form()->windowTitle(), QString("Compare Dates"));
    QVERIFY(!In<QRadioButton>("OptPlus")->isVisible());
    Pick(1);
    Press("Var1");
    Pick(2);
    Press("Var2");
    Type("DateVar", "DAYS");
    Press("Run");
    QCOMPARE(Box("Date1")->text() + Box("Date2")->text() + Box("DateVar")->text(), QString());
    QCOMPARE(In<QListView>("List1")->currentIndex().row(), 0);
    QCOMPARE(SavedRecords("FROM|TO|DAYS"), (QStringList{"1/1/2002|1/11/2002|10", "1/1/2002|soon|"}));
  }

  void TrimKeepsWhatIsWithinTheCutpoints() {
    window().Trigger(kTrim);
    QCOMPARE(form()->windowTitle(), QString("Trim Extreme Values"));
    Pick(1);
    Type("Text4", "T");
    Type("Text5", "25");
    Type("Text6", "30");
    Press("Run");
    QCOMPARE(SavedRecords("AGE|SEX|T"), (QStringList{"20|1|", "30|2|30", "40|1|"}));
  }

  void ReplaceAndItsUndo() {
    window().Trigger(kReplace);
    QCOMPARE(form()->windowTitle(), QString("Find and Replace"));
    QVERIFY(!In<QPushButton>("Undo")->isEnabled());
    Pick(1);
    Type("Text12", "0");
    Type("Text13", "00");
    Press("Run");
    QCOMPARE(window().Pane(1), QString("Find and Replace: 3 cells changed"));
    QCOMPARE(SavedRecords("AGE|SEX"), (QStringList{"200|1", "300|2", "400|1"}));
    QVERIFY(In<QPushButton>("Undo")->isEnabled());
    Press("Undo");
    QCOMPARE(SavedRecords("AGE|SEX"), (QStringList{"20|1", "30|2", "40|1"}));
    Pick(2);
    Press("Undo");  // onto the variable that is picked now
    QCOMPARE(SavedRecords("AGE|SEX"), (QStringList{"20|20", "30|30", "40|40"}));
  }

  void FoundCellsAreBoldAndInSight() {
    std::vector<std::vector<std::string>> records;
    for (int record = 1; record <= 200; ++record) records.push_back({"x", std::to_string(record)});
    Open({"A", "N"}, records);
    window().Trigger(kFind);
    QCOMPARE(form()->windowTitle(), QString("Find Cell Contents"));
    QCOMPARE(In<QPushButton>("Run")->text(), QString("Find"));
    QVERIFY(!In<QWidget>("Preview")->isVisible());
    QVERIFY(!Box("Text13")->isVisible());
    Pick(2);
    Type("Text12", "150");
    QVERIFY(!window().Command(kReset)->isEnabled());
    Press("Run");
    const QModelIndex match = grid()->model()->index(149, 1);
    QCOMPARE(window().Pane(1), QString("Record 150, 1 match in N"));
    QCOMPARE(grid()->currentIndex(), match);
    QVERIFY(grid()->viewport()->rect().contains(grid()->visualRect(match)));
    QVERIFY(match.data(Qt::FontRole).value<QFont>().bold());
    QVERIFY(!grid()->model()->index(148, 1).data(Qt::FontRole).isValid());
    QVERIFY(!In<QWidget>("Label21")->isVisible());
    Press("Run");
    QVERIFY(In<QWidget>("Label21")->isVisible());
    QCOMPARE(Words("Label21"), QString("No Match Found"));
    window().Trigger(kReset);
    QVERIFY(!match.data(Qt::FontRole).isValid());
    QVERIFY(!In<QWidget>("Label21")->isVisible());
  }

  void EachModeHasItsHelpText() {
    window().Trigger(kTrim);
    QVERIFY(Words("RecodeHelp").startsWith("Create a new variable that excludes extreme low and high values."));
    window().Trigger(kFind);
    QVERIFY(Words("RecodeHelp").startsWith("Use find to search cell contents within one variable (column)."));
    QCOMPARE(form()->windowTitle(), QString("Find Cell Contents"));
  }

  void HelpOpensItsSection() {
    window().WriteFile(window().program_folder() / "Help" / "UserManual1.html",
                       "<h1>Grid</h1><h2><a name=\"trim\">Trim</a></h2>");
    window().Trigger(kTrim);
    QTest::keyClick(form(), Qt::Key_F1);
    QVERIFY(window().session().help_pane_visible);
    bool shown = false;
    for (const QTextBrowser* browser : window().frame().findChildren<QTextBrowser*>()) {
      shown = shown || (browser->source().fileName() == "UserManual1.html" && browser->source().fragment() == "trim");
    }
    QVERIFY(shown);
  }

  void EscapeClosesAndWhatWasTypedStays() {
    window().Trigger(kRecode);
    Type("NewVar", "KEPT");
    QTest::keyClick(form(), Qt::Key_Escape);
    QVERIFY(!form()->isVisible());
    window().Trigger(kRecode);
    QCOMPARE(Box("NewVar")->text(), QString("KEPT"));
    Press("Reset");
    QCOMPARE(Box("NewVar")->text(), QString());
  }

  void TheListFollowsTheData() {
    window().Trigger(kRecode);
    auto* list = In<QListView>("List1");
    QCOMPARE(list->model()->rowCount(), 3);
    QCOMPARE(list->model()->index(0, 0).data().toString(), QString("None"));
    Pick(2);
    QVERIFY(ApplyChange(data(), RemoveColumns(data(), 1, 1, "Delete Columns")));
    emit window().frame().view(View::ViewDataGrid)->SessionChanged();
    emit window().frame().view(View::ViewDataGrid)->SessionChanged();
    QCOMPARE(list->model()->rowCount(), 2);
    QCOMPARE(window().session().recode.RecodeColumn, std::size_t{1});
    QCOMPARE(list->currentIndex().row(), 1);
    Open({"OTHER"}, {{"1"}});
    QCOMPARE(list->currentIndex().row(), 0);
    QCOMPARE(Words("IfVariable"), QString("None"));
  }

  void NamesAndCellsAreShownAsPlainText() {
    Open({"<b>N</b>"}, {{"<img src=x>"}});
    window().Trigger(kRecode);
    Pick(1);
    Choose("OptionEQ");
    Type("OldValue", "<img src=x>");
    Type("NewVar", "<u>G");
    Type("NewValue", "<i>");
    QCOMPARE(In<QLabel>("IfVariable")->textFormat(), Qt::PlainText);
    QCOMPARE(In<QTableWidget>("Preview")->item(0, 1)->text(), QString("<img src=x>"));
    Press("Run");
    QCOMPARE(SavedRecords("<b>N</b>|<u>G"), QStringList{"<img src=x>|<i>"});
  }

  void NoBoxIsSqueezedInAnyMode() {
    for (const int mode : {kRecode, kCompute, kCombine, kDates, kTrim}) {
      window().Trigger(mode);
      QTest::qWait(20);
      for (const auto* box : window().Find<QDialog>("DataRecode")->findChildren<QLineEdit*>()) {
        if (!box->isVisible()) continue;
        QVERIFY2(box->height() >= box->sizeHint().height(), qPrintable(box->objectName()));
      }
    }
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::DataRecodeTest)
#include "data_recode_test.moc"
