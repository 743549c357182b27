#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>
#include <QTabWidget>
#include <QToolBar>
#include <QToolButton>
#include <QTreeView>

#include "window/options/frm_options.h"
#include "window_fixture.h"

namespace tessara {

// The options dialog through the frame, up to the settings file and the next start.
class OptionsTest : public QObject {
  Q_OBJECT

  std::unique_ptr<WindowFixture> window_;
  QPalette palette_;
  WindowFixture& window() { return *window_; }
  ScriptedPlatform& script() { return window().script(); }
  Settings& settings() { return window().session().settings; }

  FrmOptions* Options() { return window().frame().findChild<FrmOptions*>("frmOptions"); }
  template <typename Widget>
  Widget* In(const QString& name) {
    auto* found = Options()->findChild<Widget*>(name);
    if (!found) qWarning("no widget %s", qPrintable(name));
    return found;
  }
  void Open() {
    window().Trigger(405);
    QVERIFY(Options());
    QVERIFY(Options()->isVisible());
  }
  void Page(int page) {
    In<QTabWidget>("TabStrip1")->setCurrentIndex(page);
    QCoreApplication::processEvents();
  }
  void Press(const QString& name) {
    auto* button = In<QAbstractButton>(name);
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
    QCoreApplication::processEvents();
  }
  bool IsClosed() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return !Options();
  }
  static void Type(QLineEdit* box, const QString& text) {
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, text);
  }
  QImage Bar(QWidget* bar) { return bar->grab().toImage(); }
  QToolBar* Toolbar() { return window().Find<QToolBar>("Standard"); }

 private slots:
  void initTestCase() { palette_ = QApplication::palette(); }
  void init() {
    window_ = std::make_unique<WindowFixture>();
    window().Start();
  }
  void cleanup() {
    window_.reset();
    QApplication::setPalette(palette_);
  }

  void TheDialogHasItsPagesTextsAndTips() {
    Open();
    auto* pages = In<QTabWidget>("TabStrip1");
    QCOMPARE(pages->count(), 3);
    QCOMPARE(pages->tabText(0).remove('&'), "General Options");
    QCOMPARE(pages->currentIndex(), 0);
    const std::pair<const char*, const char*> texts[] = {
        {"Check1(0)", "Show Output Log after each run"},
        {"Check1(1)", "Put notes caption on printed output"},
        {"Check1(2)", "Put date on printed output"},
        {"Check1(3)", "Use sound effects"},
        {"Check1(4)", "Large Toolbar Icons"},
        {"Check1(5)", "Load Quick Tips Module"},
        {"Option2(0)", "Office 2003"},
        {"Option2(1)", "Office 2000"},
        {"Option2(2)", "Office XP"},
        {"Option2(3)", "Native Windows XP"},
        {"Option2(4)", "Whidbey"},
        {"Command3", "Default"},
        {"Command1", "Cancel"},
    };
    for (const auto& [name, text] : texts) QCOMPARE(In<QAbstractButton>(name)->text().remove('&'), text);
    QCOMPARE(In<QPushButton>("Command3")->toolTip(), "Reset options displayed on current tab to default");
    QCOMPARE(In<QPushButton>("SaveOptions")->toolTip(), "Save option settings");
    QCOMPARE(In<QPushButton>("Command1")->toolTip(), "Close without saving");
    QVERIFY(In<QCheckBox>("Check1(0)")->isChecked());
    QVERIFY(!In<QCheckBox>("Check1(4)")->isChecked());
    QVERIFY(!In<QCheckBox>("Check1(5)")->isChecked());  // the fixture has the tips off
    QVERIFY(In<QRadioButton>("Option2(0)")->isChecked());
    QCOMPARE(In<QLineEdit>("Text1")->text(), PathToQt(window().program_folder() / "Data"));
    QCOMPARE(In<QLineEdit>("Text2")->text(), PathToQt(window().program_folder() / "Lexicards.lx1"));
  }

  void LargeIconsComeAtOnceAndCancelLeavesThem() {
    const QSize small = Toolbar()->iconSize();
    Open();
    Page(2);
    Press("Check1(4)");
    QVERIFY(Toolbar()->iconSize().width() > small.width());
    QCOMPARE(settings().Op13, 1);
    Press("Command1");
    QVERIFY(IsClosed());
    QVERIFY(Toolbar()->iconSize().width() > small.width());
    QCOMPARE(window().Setting("Op13"), std::string());
    QVERIFY(script().messages.empty());
    Open();
    QVERIFY(In<QCheckBox>("Check1(4)")->isChecked());
  }

  void TheFrameKeepsItsSizeWhenTheIconsChange() {
    window().frame().resize(window().frame().minimumSize() + QSize(77, 33));
    QCoreApplication::processEvents();
    const QSize before = window().frame().size();
    Open();
    Page(2);
    Press("Check1(4)");
    Press("Option2(3)");
    QCOMPARE(window().frame().size(), before);
  }

  void EachStyleLooksDifferentAtOnce() {
    Open();
    Page(2);
    QWidget* heading = window().Find<QWidget>("ShortcutCaption1");
    std::vector<QImage> bars, headings;
    for (int style = 0; style < 5; ++style) {
      Press(QString("Option2(%1)").arg(style));
      QCOMPARE(settings().Op6, style);
      for (const QImage& other : bars) QVERIFY2(Bar(Toolbar()) != other, qPrintable(QString::number(style)));
      bars.push_back(Bar(Toolbar()));
      headings.push_back(Bar(heading));
    }
    QVERIFY(headings[3] == headings[4]);  // the pairs of themes: 2, 1, 0, 4, 4
    for (const auto& [one, other] : {std::pair{0, 1}, {0, 2}, {0, 3}, {1, 2}, {1, 3}, {2, 3}}) {
      QVERIFY2(headings[one] != headings[other], qPrintable(QString("%1 %2").arg(one).arg(other)));
    }
    Press("Command1");
    QCOMPARE(settings().Op6, 4);
    QCOMPARE(window().Setting("Op6"), std::string());
  }

  void DefaultOfTheAppearanceActsAtOnce() {
    const QSize small = Toolbar()->iconSize();
    const QString sheet = Toolbar()->styleSheet();
    Open();
    Page(2);
    Press("Check1(4)");
    Press("Option2(2)");
    QVERIFY(Toolbar()->styleSheet() != sheet);
    Press("Command3");
    QCOMPARE(Toolbar()->iconSize(), small);
    QCOMPARE(Toolbar()->styleSheet(), sheet);
    QVERIFY(In<QRadioButton>("Option2(0)")->isChecked());
    QVERIFY(!In<QCheckBox>("Check1(4)")->isChecked());
  }

  void DefaultActsOnThePageInFront() {
    Open();
    Press("Check1(0)");
    Press("Check1(3)");
    Page(1);
    Type(In<QLineEdit>("Text1"), "/elsewhere");
    Press("Command3");
    QCOMPARE(In<QLineEdit>("Text1")->text(), PathToQt(window().program_folder() / "Data") + "/");
    QVERIFY(!In<QCheckBox>("Check1(0)")->isChecked());
    Page(0);
    Press("Command3");
    for (const int box : {0, 1, 2, 3, 5}) QVERIFY(In<QCheckBox>(QString("Check1(%1)").arg(box))->isChecked());
    QVERIFY(settings().sounds());
  }

  void SaveStoresAllAndTheNextStartHasIt() {
    std::filesystem::create_directories(window().documents_folder() / "mine");
    Open();
    Press("Check1(0)");
    Press("Check1(3)");
    Page(1);
    Type(In<QLineEdit>("Text1"), "  " + PathToQt(window().documents_folder() / "mine") + " ");
    Page(2);
    Press("Option2(4)");
    Press("SaveOptions");
    QVERIFY(IsClosed());
    QCOMPARE(script().messages.size(), std::size_t(1));
    QCOMPARE(script().messages[0].title, std::string("Please note..."));
    QCOMPARE(window().Setting("Op10"), std::string("1"));
    QCOMPARE(window().Setting("Op3"), std::string("1"));
    QCOMPARE(window().Setting("Op6"), std::string("4"));
    QCOMPARE(window().Setting("Op14"), (window().documents_folder() / "mine").string());
    window().Trigger(102);
    QCOMPARE(script().open_dialogs.back().initial_folder, window().documents_folder() / "mine");
    const QString sheet = Toolbar()->styleSheet();
    window().End();
    window().Start();
    QCOMPARE(Toolbar()->styleSheet(), sheet);
    Open();
    QVERIFY(!In<QCheckBox>("Check1(0)")->isChecked());
    QVERIFY(In<QRadioButton>("Option2(4)")->isChecked());
  }

  void AFolderThatIsNotThereIsToldBesideTheField() {
    Open();
    Page(1);
    auto* hint = In<QLabel>("HintText1");
    QVERIFY(hint->text().isEmpty());
    Type(In<QLineEdit>("Text1"), "/no/such/folder");
    QTRY_VERIFY(!hint->text().isEmpty());
    QVERIFY(script().messages.empty());
    Press("SaveOptions");
    QCOMPARE(window().Setting("Op14"), std::string("/no/such/folder"));
  }

  void TheGlossaryIsChosenInTheFileDialog() {
    const Path chosen = window().WriteFile(window().documents_folder() / "words.lx1", "x");
    script().open_answers = {WindowFixture::Chosen(chosen)};
    Open();
    Page(1);
    Press("BrowseText2");
    QCOMPARE(script().open_dialogs.back().title, std::string("Select file and click open"));
    QCOMPARE(In<QLineEdit>("Text2")->text(), PathToQt(chosen));
    QVERIFY(In<QLabel>("HintText2")->text().isEmpty());
    Press("SaveOptions");
    QCOMPARE(window().Setting("Op15"), chosen.string());
  }

  void AFolderIsChosenInThePanel() {
    const Path mine = window().documents_folder() / "mine";
    std::filesystem::create_directories(mine);
    Open();
    Page(1);
    Press("BrowseText1");
    auto* tree = In<QTreeView>("Dir1");
    QVERIFY(tree->isVisible());
    QVERIFY(In<QComboBox>("Drive1")->count() >= 2);
    QCOMPARE(tree->currentIndex().data().toString(), "Data");
    Press("Command6");
    QVERIFY(!tree->isVisible());
    QCOMPARE(In<QLineEdit>("Text1")->text(), PathToQt(window().program_folder() / "Data"));

    Type(In<QLineEdit>("Text1"), PathToQt(mine) + "/not there");  // the nearest one above it is shown
    Press("BrowseText1");
    QCOMPARE(tree->currentIndex().data().toString(), "mine");
    QTest::keyClick(tree, Qt::Key_Escape);
    QVERIFY(!tree->isVisible());
    QVERIFY(Options()->isVisible());
    Press("BrowseText1");
    QTest::keyClick(tree, Qt::Key_Return);
    QVERIFY(!tree->isVisible());
    QVERIFY(Options()->isVisible());
    QCOMPARE(In<QLineEdit>("Text1")->text(), PathToQt(mine));
    QCOMPARE(window().Setting("Op14"), std::string());
    Press("SaveOptions");
    QCOMPARE(window().Setting("Op14"), mine.string());
  }

  void ADriveOfThePanelIsChosenAsAWhole() {
    Open();
    Page(1);
    Press("BrowseText1");
    auto* drives = In<QComboBox>("Drive1");
    drives->setCurrentIndex(drives->findData("/"));
    emit drives->activated(drives->currentIndex());
    Press("Command5");
    QCOMPARE(In<QLineEdit>("Text1")->text(), "/");
  }

  void NamesOutsideTheCodePageSurviveTheDialog() {
    const Path mine = window().documents_folder() / Path(u8"\u0434\u0430\u043D\u043D\u044B\u0435");
    std::filesystem::create_directories(mine);
    Open();
    Page(1);
    QApplication::clipboard()->setText(QString::fromStdString(mine.string()));
    In<QLineEdit>("Text1")->selectAll();
    In<QLineEdit>("Text1")->paste();
    Press("SaveOptions");
    QVERIFY(settings().Op14 == mine);
    window().End();
    window().Start();
    QVERIFY(settings().Op14 == mine);
    Open();
    QCOMPARE(In<QLineEdit>("Text1")->text(), QString::fromStdString(mine.string()));
  }

  void AHugeTextIsCutAndHurtsNothing() {
    Open();
    Page(1);
    QApplication::clipboard()->setText(QString("<b>\n\t") + QString(3'000'000, 'x'));
    In<QLineEdit>("Text1")->selectAll();
    In<QLineEdit>("Text1")->paste();
    QVERIFY(In<QLineEdit>("Text1")->text().size() <= 4096);
    Press("SaveOptions");
    QVERIFY(IsClosed());
    QCOMPARE(script().messages.size(), std::size_t(1));
  }

  void EscapeClosesWithoutSavingAndEnterSaves() {
    Open();
    Press("Check1(2)");
    QTest::keyClick(Options(), Qt::Key_Escape);
    QVERIFY(IsClosed());
    QCOMPARE(window().Setting("Op12"), std::string());
    Open();
    Press("Check1(2)");
    QTest::keyClick(In<QCheckBox>("Check1(2)"), Qt::Key_Return);
    QVERIFY(IsClosed());
    QCOMPARE(window().Setting("Op12"), std::string("1"));
  }

  void TheBarsFollowAPaletteThatTurnsDark() {
    const QImage light = Bar(Toolbar());
    QApplication::setPalette(QPalette(QColor(45, 45, 48), QColor(45, 45, 48)));
    for (int i = 0; i < 4; ++i) QCoreApplication::processEvents();
    for (QWidget* bar : {static_cast<QWidget*>(Toolbar()), static_cast<QWidget*>(window().frame().menuBar()),
                         static_cast<QWidget*>(window().frame().statusBar())}) {
      const QColor ground = Bar(bar).pixelColor(1, bar->height() / 2);
      QVERIFY2(ground.lightness() < 110, qPrintable(ground.name()));
    }
    QVERIFY(Bar(Toolbar()) != light);
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::OptionsTest)
#include "options_test.moc"
