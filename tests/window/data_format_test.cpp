#include "window/grid/data_format.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QTabWidget>
#include <QTextBrowser>

#include "data/change_door.h"
#include "numerics/number_text.h"
#include "window/grid/grid_view.h"
#include "window_fixture.h"

namespace tessara {

// The form that describes variables, beside the real grid.
class DataFormatTest : public QObject {
  Q_OBJECT

  static constexpr int kFormat = 301;
  static constexpr int kSaveData = 103;

  std::unique_ptr<WindowFixture> window_;
  Path file_;
  WindowFixture& window() { return *window_; }
  DataSet& data() { return window().session().data; }
  DataFormat* form() { return window().frame().findChild<DataFormat*>("DataFormat"); }
  template <typename Widget = QLineEdit>
  Widget* Part(const char* name) {
    return form()->findChild<Widget*>(name);
  }
  QString Shown(const char* box) { return Part(box)->text(); }
  void Press(const char* button) {
    QTest::mouseClick(Part<QPushButton>(button), Qt::LeftButton);
    QCoreApplication::processEvents();
  }
  void ShowTab(int tab) {
    Part<QTabWidget>("FormatTabs")->setCurrentIndex(tab);
    QCoreApplication::processEvents();
  }
  // Types into a box in the place of what it holds.
  void Type(const char* box, const QString& text) {
    Part(box)->setFocus();
    QCoreApplication::processEvents();
    Part(box)->selectAll();
    QTest::keyClicks(Part(box), text);
  }
  void ClickColumn(int column) {
    auto* grid = window().Find<GridView>("MSFlexGrid1");
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, grid->visualRect(grid->model()->index(1, column)).center());
    QCoreApplication::processEvents();
  }
  std::string Text(std::size_t row, std::size_t column) { return TextOf(data().matrix.Cell(row, column)); }
  // Lines of the data file on disk, from 0; fields apart by "~".
  std::vector<std::string> FileLines() {
    std::string content = WindowFixture::ReadFile(file_);
    std::ranges::replace(content, '\x01', '~');
    std::vector<std::string> lines;
    for (std::size_t end = 0; (end = content.find("\r\n")) != std::string::npos; content.erase(0, end + 2)) {
      lines.push_back(content.substr(0, end));
    }
    return lines;
  }
  void WaitForSelection() { QCoreApplication::processEvents(); }

 private slots:
  void init() {
    window_ = std::make_unique<WindowFixture>();
    std::filesystem::copy(Path(TESSARA_SOURCE_DIR) / "installed/Help", window().program_folder() / "Help",
                          std::filesystem::copy_options::recursive | std::filesystem::copy_options::overwrite_existing);
    window().Start();
    file_ = window().WriteDataFile("people.dcs", {"SEX", "AGE", "CITY"},
                                   {{"1", "34.256", "Bern"}, {"2", "41", "Oslo"}, {"9", "", "Bern"}});
    window().script().open_answers.push_back(WindowFixture::Chosen(file_));
    window().Trigger(102);
    QCOMPARE(window().Pane(2), "3 Records");
  }
  void cleanup() { window_.reset(); }

  void OpensOnTheVariableOfTheGridsCursor() {
    QVERIFY(!form());
    ClickColumn(1);
    window().Trigger(kFormat);
    QVERIFY(form()->isVisible());
    QVERIFY(!form()->isModal());
    QCOMPARE(form()->windowTitle(), "Format Variables and Values");
    QCOMPARE(Part<QComboBox>("Combo1")->currentText(), "AGE");
    QCOMPARE(Part<QComboBox>("Combo1")->count(), 3);
    QCOMPARE(Shown("Text1"), "AGE");
    QVERIFY(!Part("Text22")->isEnabled());
  }

  void WhatIsTypedIsSavedAndStandsInTheFile() {
    window().Trigger(kFormat);
    Type("Text1", "GENDER");
    Type("Text2", "Sex of respondent");
    ShowTab(1);
    Type("Text4", "1");
    Type("Text5", "Male");
    Type("Text6", "2");
    Type("Text7", "Female");
    ShowTab(2);
    Type("Text3", "9");
    Type("Text20", "0");
    QCOMPARE(Text(15, 1), "SEX");  // nothing is stored ahead of a Save
    Press("SaveFormat");
    QCOMPARE(window().Pane(1), "Saved the format of GENDER");
    QVERIFY(window().frame().isWindowModified());
    auto* grid = window().Find<GridView>("MSFlexGrid1");
    QCOMPARE(grid->model()->headerData(0, Qt::Horizontal).toString(), "GENDER");
    QCOMPARE(Part<QComboBox>("Combo1")->currentText(), "GENDER");
    window().Trigger(kSaveData);
    const auto lines = FileLines();
    QCOMPARE(lines.size(), 19u);
    QCOMPARE(lines[1], "9||||0||~~");
    QCOMPARE(lines[2], "Sex of respondent~~");
    QCOMPARE(lines[4], "1=Male~~");
    QCOMPARE(lines[5], "2=Female~~");
    QCOMPARE(lines[11], "=~~");
    QCOMPARE(lines[15], "GENDER~AGE~CITY");
    QCOMPARE(lines[16], "1~34.256~Bern");
  }

  void TheFormFollowsTheGridAndKeepsWhatWasTyped() {
    window().Trigger(kFormat);
    Type("Text2", "typed for SEX");
    ClickColumn(2);
    QCOMPARE(Shown("Text1"), "CITY");
    QCOMPARE(Shown("Text2"), "");
    QCOMPARE(Part<QLabel>("Unsaved")->text(), "Not saved yet: SEX");
    Press("SaveFormat");  // of CITY
    QCOMPARE(Text(2, 1), "");
    ClickColumn(0);
    QCOMPARE(Shown("Text2"), "typed for SEX");
    Press("SaveFormat");
    QCOMPARE(Text(2, 1), "typed for SEX");
    QCOMPARE(Part<QLabel>("Unsaved")->text(), "");
  }

  void TheListPicksAVariableToo() {
    window().Trigger(kFormat);
    auto* list = Part<QComboBox>("Combo1");
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Down);
    QCOMPARE(Shown("Text1"), "AGE");
    Type("Text2", "Age in years");
    Press("SaveFormat");
    QCOMPARE(Text(2, 2), "Age in years");
    QCOMPARE(Text(2, 1), "");
  }

  void AClickOnTheColumnThatIsCurrentAlreadyPicksItsVariableAgain() {
    ClickColumn(1);
    window().Trigger(kFormat);
    auto* list = Part<QComboBox>("Combo1");
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Down);
    QCOMPARE(Shown("Text1"), "CITY");
    ClickColumn(1);
    QCOMPARE(Shown("Text1"), "AGE");

    auto* headings = window().Find<GridView>("MSFlexGrid1")->horizontalHeader();
    const QPoint heading(headings->sectionViewportPosition(1) + 5, headings->height() / 2);
    for (int click = 0; click < 2; ++click) {
      QTest::keyClick(list, Qt::Key_Down);
      QCOMPARE(Shown("Text1"), "CITY");
      QTest::mouseClick(headings->viewport(), Qt::LeftButton, {}, heading);
      QCOMPARE(Shown("Text1"), "AGE");
    }
  }

  void RevertGivesUpWhatWasTyped() {
    window().Trigger(kFormat);
    QVERIFY(!Part<QPushButton>("Revert")->isEnabled());
    Type("Text2", "typed");
    QVERIFY(Part<QPushButton>("Revert")->isEnabled());
    Press("Revert");
    QCOMPARE(Shown("Text2"), "");
    QCOMPARE(Part<QLabel>("Unsaved")->text(), "");
  }

  void AFormatIsCopiedFromOneVariableToAnother() {
    window().Trigger(kFormat);
    QVERIFY(!Part<QPushButton>("PasteFormat")->isEnabled());
    ShowTab(2);
    Type("Text3", "9");
    ShowTab(1);
    Type("Text4", "1");
    Type("Text5", "yes");
    Press("CopyFormat");
    ClickColumn(2);
    Press("PasteFormat");
    QCOMPARE(Shown("Text3"), "9");
    QCOMPARE(Shown("Text5"), "yes");
    QCOMPARE(Text(1, 3), "");
    Press("SaveFormat");
    QCOMPARE(Text(1, 3), "9||||||");
    QCOMPARE(Text(4, 3), "1=yes");
    QCOMPARE(Text(15, 3), "CITY");
    const auto& sounds = window().script().sounds;
    QCOMPARE(sounds.size(), 2u);
    QCOMPARE(sounds[0].filename().string(), "copy.wav");
    QCOMPARE(sounds[1].filename().string(), "paste.wav");
  }

  void DecimalsRewriteTheCellsInOneStepThatCanBeUndone() {
    ClickColumn(1);
    window().Trigger(kFormat);
    QTest::mouseClick(Part<QCheckBox>("Check1"), Qt::LeftButton, {}, {5, Part<QCheckBox>("Check1")->height() / 2});
    QVERIFY(Part("Text22")->isEnabled());
    QVERIFY(Part("Text22")->hasFocus());
    Type("Text22", "1");
    Press("SaveFormat");
    QCOMPARE(window().Pane(1), "Saved the format of AGE, 2 cells rewritten");
    QCOMPARE(Text(16, 2), "34.3");
    QCOMPARE(Text(17, 2), "41.0");
    QCOMPARE(Text(18, 2), "");
    auto* grid = window().Find<GridView>("MSFlexGrid1");
    QCOMPARE(grid->model()->index(0, 1).data().toString(), "34.3");
    QVERIFY(UndoChange(data()));
    QCOMPARE(Text(16, 2), "34.256");

    QTest::mouseClick(Part<QCheckBox>("Check1"), Qt::LeftButton, {}, {5, Part<QCheckBox>("Check1")->height() / 2});
    QVERIFY(!Part("Text22")->isEnabled());
    QCOMPARE(Shown("Text22"), "");
  }

  void AFormThatIsOpenedAgainRewritesNoData() {
    window().Trigger(kFormat);
    QTest::mouseClick(Part<QCheckBox>("Check1"), Qt::LeftButton, {}, {5, Part<QCheckBox>("Check1")->height() / 2});
    QTest::keyClick(form(), Qt::Key_Escape);
    QVERIFY(!form()->isVisible());
    window().Trigger(kFormat);
    QVERIFY(!Part<QCheckBox>("Check1")->isChecked());
  }

  void ACommaIsAnsweredByItsBoxAndBecomesABackspaceOrABlank() {
    window().Trigger(kFormat);
    Type("Text1", "AB,C");
    QCOMPARE(Shown("Text1"), "AB C");
    Type("Text2", "AB,C");
    QCOMPARE(Shown("Text2"), "AC");
    const auto& messages = window().script().messages;
    QCOMPARE(messages.size(), 2u);
    QCOMPARE(messages[0].title, "Error");
    QCOMPARE(messages[0].text, "Commas are prohibited");
    QCOMPARE(window().session().format.boxes[FormatBox::Text2], "AC");
  }

  void EnterGoesToTheNextBox() {
    window().Trigger(kFormat);
    ShowTab(1);
    Part("Text4")->setFocus();
    QTest::keyClick(Part("Text4"), Qt::Key_Return);
    QVERIFY(Part("Text5")->hasFocus());
    QTest::keyClick(Part("Text5"), Qt::Key_Enter);
    QVERIFY(Part("Text6")->hasFocus());
    QVERIFY(form()->isVisible());
  }

  void TheTabsTakeTheFocusToTheirFirstBox() {
    window().Trigger(kFormat);
    QVERIFY(Part<QComboBox>("Combo1")->hasFocus());
    ShowTab(2);
    QVERIFY(Part("Text3")->hasFocus());
    ShowTab(0);
    QVERIFY(Part<QComboBox>("Combo1")->hasFocus());
  }

  void LabelsAreTrimmedAndSelectedSoThatTypingReplacesThem() {
    ApplyChange(data(), CellChange(2, 1, "  a label  ", "Label"));
    ApplyChange(data(), CellChange(4, 1, "1= a value label of many characters", "Label"));
    window().Trigger(kFormat);
    Part("Text1")->setFocus();
    QTest::keyClick(Part("Text1"), Qt::Key_Return);
    WaitForSelection();
    QCOMPARE(Shown("Text2"), "a label");
    QCOMPARE(Part("Text2")->selectedText(), "a label");
    ShowTab(1);
    QTest::mouseClick(Part("Text5"), Qt::LeftButton);
    WaitForSelection();
    QCOMPARE(Part("Text5")->selectedText(), "a value label of man");
    QTest::keyClicks(Part("Text5"), "x");
    QCOMPARE(Shown("Text5"), "xy characters");
  }

  void ATextThatABoxCannotShowWholeIsKeptWhole() {
    const std::string label(100000, 'x');
    ApplyChange(data(), CellChange(2, 1, label, "Label"));
    window().Trigger(kFormat);
    QVERIFY(Part("Text2")->isReadOnly());
    Type("Text2", "y");
    Type("Text1", "S");
    Press("SaveFormat");
    QCOMPARE(Text(15, 1), "S");
    QVERIFY(Text(2, 1) == label);
    ClickColumn(1);
    QVERIFY(!Part("Text2")->isReadOnly());
  }

  void ADeletedVariableTakesItsFormAway() {
    ClickColumn(1);
    window().Trigger(kFormat);
    Type("Text2", "typed for AGE");
    ApplyChange(data(), RemoveColumns(data(), 2, 1, "Delete"));
    Press("SaveFormat");
    QCOMPARE(Text(15, 2), "CITY");
    QCOMPARE(Text(2, 2), "");
    QCOMPARE(Part<QComboBox>("Combo1")->count(), 2);
  }

  void OtherDataAreShownAtOnce() {
    window().Trigger(kFormat);
    Type("Text2", "typed for SEX");
    window().script().open_answers.push_back(
        WindowFixture::Chosen(window().WriteDataFile("other.dcs", {"WEIGHT"}, {{"80"}})));
    window().Trigger(102);
    QCOMPARE(Shown("Text1"), "WEIGHT");
    QCOMPARE(Shown("Text2"), "");
    Press("SaveFormat");
    QCOMPARE(Text(2, 1), "");
  }

  void ASaveWorksFromEveryView() {
    window().Trigger(kFormat);
    Type("Text2", "Sex of respondent");
    window().ShowView(View::ViewStatProcs);
    Press("SaveFormat");
    QCOMPARE(Text(2, 1), "Sex of respondent");
  }

  void HelpOpensItsSection() {
    window().Trigger(kFormat);
    Press("FormatHelp");
    QVERIFY(window().session().help_pane_visible);
    const auto browsers = window().frame().findChildren<QTextBrowser*>();
    QVERIFY(std::ranges::any_of(browsers, [](const QTextBrowser* browser) {
      return browser->source().toString().endsWith("UserManual1.html#format");
    }));
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::DataFormatTest)
#include "data_format_test.moc"
