#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QScrollBar>
#include <QStackedWidget>
#include <QTextBrowser>
#include <QToolBar>
#include <QToolButton>

#include "window_fixture.h"

namespace tessara {

// The handbook as a reader meets it: pages, their history, the topic box, words that are looked for.
class HandbookTest : public QObject {
  Q_OBJECT

  std::unique_ptr<WindowFixture> window_;
  WindowFixture& window() { return *window_; }
  QTextBrowser* Page() { return window().frame().findChild<QTextBrowser*>("HandbookPage"); }
  QComboBox* Topics() { return window().frame().findChild<QComboBox*>("HandbookTopics"); }
  QLineEdit* Search() { return window().frame().findChild<QLineEdit*>("GlossarySearch"); }
  bool Shows(const char* words) { return Page()->toPlainText().contains(words); }

  void WritePage(const char* name, const std::string& body) {
    window().WriteFile(window().program_folder() / "Help" / name, "<html><body>" + body + "</body></html>");
  }
  // A glossary of two notes.
  void WriteGlossary() {
    std::string bytes;
    int number = 3;  // of the last record; the others have their own
    for (const char* subject : {"", "Median", "Mean deviation"}) {
      std::string record = {static_cast<char>(number), '\0'};
      record += subject;
      record.resize(3062, ' ');
      record.resize(3080, '\0');
      bytes += record;
      number = number == 3 && bytes.size() == 3080 ? 2 : 3;
    }
    window().WriteFile(window().program_folder() / "Lexicards.lx1", bytes);
  }
  void Start() {
    WritePage("Index.html", "<p>The first page</p><p><a href=\"hb-out.html\">outliers</a></p>");
    std::string long_page = "<h1>About means</h1>";
    for (int i = 0; i < 200; ++i) long_page += "<p>A line of the mean</p>";
    WritePage("hb-means.html", long_page + "<p>The median at last</p>");
    WritePage("hb-out.html", "<p>About outliers</p>");
    window().WriteFile(window().program_folder() / "Help" / "Index.log",
                       "Contents,Index\r\nMeans,hb-means\r\nOutliers,hb-out\r\nNowhere,gone\r\n");
    window().Start();
    window().ShowView(View::ViewHandbook);
  }
  void Press(QWidget* widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(widget, key, modifiers);
    QCoreApplication::processEvents();
  }
  void ChooseTopic(int row) {
    Topics()->setFocus();
    emit Topics()->activated(row - 1);
    QCoreApplication::processEvents();
  }
  // A click on the first place of a text, as on a link.
  void FollowLink(const QUrl& link) {
    emit Page()->anchorClicked(link);
    QCoreApplication::processEvents();
  }

 private slots:
  void init() { window_ = std::make_unique<WindowFixture>(); }
  void cleanup() { window_.reset(); }

  void TheViewOpensOnItsFirstPage() {
    Start();
    QVERIFY(Shows("The first page"));
    QCOMPARE(window().session().ActiveView, View::ViewHandbook);
    QCOMPARE(window().Pane(1), "Ready");
    QCOMPARE(window().Pane(2), " Research Methods Handbook");
    QVERIFY(Page()->hasFocus());
  }

  void NoPageIsLoadedUntilTheViewIsSeen() {
    WritePage("Index.html", "<p>The first page</p>");
    window().Start();
    QVERIFY(Page()->source().isEmpty());
    window().ShowView(View::ViewHandbook);
    QVERIFY(Shows("The first page"));
  }

  void BackForwardAndHomeFollowTheHistory() {
    Start();
    QVERIFY(!window().Command(901)->isEnabled());
    QVERIFY(!window().Command(902)->isEnabled());
    QCOMPARE(window().Command(901)->statusTip(), "There is no page to go back to");
    FollowLink(QUrl("hb-out.html"));
    QVERIFY(Shows("About outliers"));
    QVERIFY(window().Command(901)->isEnabled());
    Press(Page(), Qt::Key_Left, Qt::AltModifier);
    QVERIFY(Shows("The first page"));
    QVERIFY(!window().Command(901)->isEnabled());
    QVERIFY(window().Command(902)->isEnabled());
    Press(Page(), Qt::Key_Right, Qt::AltModifier);
    QVERIFY(Shows("About outliers"));
    Press(Page(), Qt::Key_Home, Qt::AltModifier);
    QVERIFY(Shows("The first page"));
    window().Trigger(901);
    QVERIFY(Shows("About outliers"));
  }

  void TheTopicBoxListsTheTopicsAndShowsTheirPages() {
    Start();
    QVERIFY(window().Command(904)->isVisible());
    QVERIFY(Topics()->isVisible());
    QVERIFY(!Search()->isVisible());
    QCOMPARE(Topics()->count(), 4);
    QCOMPARE(Topics()->itemText(1), "Means");
    QCOMPARE(Topics()->currentIndex(), -1);
    QCOMPARE(Topics()->placeholderText(), "Select Handbook Topic...");
    ChooseTopic(2);
    QVERIFY(Shows("About means"));
    QCOMPARE(Topics()->currentText(), "Means");
    ChooseTopic(1);  // the first row is the first topic
    QVERIFY(Shows("The first page"));
  }

  void TheTopicBoxFollowsThePage() {
    Start();
    FollowLink(QUrl("hb-out.html"));
    QCOMPARE(Topics()->currentText(), "Outliers");
    ChooseTopic(2);
    QCOMPARE(Topics()->currentText(), "Means");
    window().Trigger(901);
    QCOMPARE(Topics()->currentText(), "Outliers");
    window().Trigger(903);
    QCOMPARE(Topics()->currentIndex(), -1);
  }

  void AChosenTopicIsShownFromItsTop() {
    Start();
    ChooseTopic(2);
    QScrollBar* bar = Page()->verticalScrollBar();
    QVERIFY(bar->maximum() > 0);
    bar->setValue(bar->maximum());
    ChooseTopic(2);
    QCOMPARE(bar->value(), 0);
  }

  void LettersJumpInTheTopicBox() {
    Start();
    Topics()->setFocus();
    QTest::keyClicks(Topics(), "ou");
    QCoreApplication::processEvents();
    QVERIFY(Shows("About outliers"));
    QVERIFY(Topics()->hasFocus());  // the next letter belongs to it too
  }

  void AMissingPageIsToldByTheBrowser() {
    Start();
    ChooseTopic(4);
    QVERIFY(Shows("This page is not in your installation."));
    QVERIFY(Shows("gone.html"));
    QVERIFY(window().script().messages.empty());
    window().Trigger(901);
    QVERIFY(Shows("The first page"));
  }

  void WithoutAListTheBoxIsEmpty() {
    window().Start();
    window().ShowView(View::ViewHandbook);
    QCOMPARE(Topics()->count(), 0);
    QVERIFY(Shows("Index.html"));
    Press(Topics(), Qt::Key_Down);
    QCOMPARE(Topics()->currentIndex(), -1);
  }

  void ThePageIsPrintedWithItsDialog() {
    Start();
    window().Trigger(106);
    QCOMPARE(window().script().print_dialogs.size(), std::size_t{1});
    QCOMPARE(window().script().print_dialogs[0].title, std::string("Print"));
  }

  void WordsAreFoundOnThePage() {
    Start();
    ChooseTopic(2);
    Page()->setFocus();
    auto* words = Page()->parentWidget()->findChild<QLineEdit*>("FindWords");
    auto* result = Page()->parentWidget()->findChild<QLabel*>("FindResult");
    QVERIFY(!words->isVisible());
    Press(Page(), Qt::Key_F, Qt::ControlModifier);
    QVERIFY(words->hasFocus());
    QTest::keyClicks(words, "me");
    QCOMPARE(Page()->textCursor().selectedText(), "me");
    const int first = Page()->textCursor().selectionStart();
    QTest::keyClicks(words, "dian");
    QCOMPARE(Page()->textCursor().selectedText(), "median");
    QVERIFY(Page()->textCursor().selectionStart() > first);
    QVERIFY(Page()->verticalScrollBar()->value() > 0);
    words->setText("mean");
    Press(words, Qt::Key_Return);  // from behind the match around to the first one
    QCOMPARE(Page()->textCursor().selectedText(), "mean");
    QCOMPARE(Page()->textCursor().selectionStart(), first);
    Press(words, Qt::Key_F3, Qt::ShiftModifier);
    QVERIFY(Page()->textCursor().selectionStart() > first);
    QTest::keyClicks(words, "xyz");
    QCOMPARE(result->text(), "Not found");
    QVERIFY(!Page()->textCursor().hasSelection());
    Press(words, Qt::Key_Escape);
    QVERIFY(!words->isVisible());
    QVERIFY(Page()->hasFocus());
  }

  void TheGlossaryHasABoxToSearchWith() {
    Start();
    window().ShowView(View::ViewGlossary);
    QVERIFY(window().Command(904)->isVisible());
    QVERIFY(Search()->isVisible());
    QVERIFY(!Topics()->isVisible());
    QCOMPARE(Search()->text(), "Enter Search String...");
    QVERIFY(window().session().glossary.SearchText.empty());
    Search()->setFocus(Qt::TabFocusReason);
    QCOMPARE(Search()->selectedText(), "Enter Search String...");
    QTest::keyClicks(Search(), "mean");
    QCOMPARE(Search()->text(), "mean");
    QCOMPARE(window().session().glossary.SearchText, std::string("mean"));
    // It is there again when the view comes back.
    window().ShowView(View::ViewHandbook);
    window().ShowView(View::ViewGlossary);
    QCOMPARE(Search()->text(), "mean");
    Search()->selectAll();
    Search()->setFocus();
    Press(Search(), Qt::Key_Delete);
    QVERIFY(window().session().glossary.SearchText.empty());
    window().frame().current_view()->setFocus();
    QCOMPARE(Search()->text(), "Enter Search String...");
  }

  void EnterSearchesTheGlossary() {
    WriteGlossary();
    Start();
    window().ShowView(View::ViewGlossary);
    Search()->setFocus(Qt::TabFocusReason);
    Press(Search(), Qt::Key_Return);  // the hint is no text to search for
    QCOMPARE(window().Pane(1), "Ready");
    QVERIFY(window().script().messages.empty());
    QTest::keyClicks(Search(), "deviation");
    Press(Search(), Qt::Key_Return);
    QCOMPARE(window().Pane(1), "Find> deviation");
    QCOMPARE(window().Pane(2), "The search found 1 matching records.");
    // The key of the search command leads to the box from anywhere in the view.
    window().frame().current_view()->setFocus();
    Press(window().frame().current_view(), Qt::Key_F, Qt::ControlModifier);
    QVERIFY(Search()->hasFocus());
    QCOMPARE(Search()->selectedText(), "deviation");
    QVERIFY(window().session().glossary.search_is_on);
    Press(Search(), Qt::Key_Escape);
    QVERIFY(!window().session().glossary.search_is_on);
  }

  void TheHintOfTheSearchBoxNeverStandsInTheWay() {
    Start();
    window().ShowView(View::ViewGlossary);
    Search()->setFocus();
    Press(Search(), Qt::Key_End);
    QTest::keyClicks(Search(), "p");
    QCOMPARE(Search()->text(), "p");
    Press(Search(), Qt::Key_Backspace);
    QCOMPARE(Search()->text(), "");
    Search()->setText("Enter Search String...");
    Search()->setCursorPosition(5);
    QApplication::clipboard()->setText("median\nmode");
    Press(Search(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(window().session().glossary.SearchText, std::string("median mode"));
  }

  void OnlyTwoViewsHaveTheBox() {
    Start();
    for (int view = 1; view <= 5; ++view) {
      window().ShowView(static_cast<View>(view));
      QVERIFY(!window().Command(904)->isVisible());
      QVERIFY(!window().Find<QWidget>("TopicBox")->isVisible());
    }
  }

  void TheBoxYieldsInANarrowWindow() {
    Start();
    auto* box = window().Find<QWidget>("TopicBox");
    auto* more = window().Find<QToolBar>("Standard")->findChild<QToolButton*>("qt_toolbar_ext_button");
    window().frame().resize(1400, 800);
    window().ShowView(View::ViewGlossary);
    const int wide = box->width();
    window().frame().resize(window().frame().minimumSize());
    QTRY_VERIFY(box->width() < wide);
    QVERIFY(box->isVisible());
    window().ShowView(View::ViewHandbook);
    QTRY_VERIFY(!more->isVisible());
    QVERIFY(box->isVisible());
    QVERIFY(window().frame().rect().contains(QRect(box->mapTo(&window().frame(), QPoint()), box->size())));
  }

  void HostileTitlesAreShortLinesOfPlainText() {
    std::string list = "<b>bold</b>\t\x01 title,a\r\n" + std::string(50000, 'x') + ",b\r\n";
    for (int i = 0; i < 10000; ++i) list += "Topic " + std::to_string(i) + ",page\r\n";
    window().WriteFile(window().program_folder() / "Help" / "Index.log", list);
    window().Start();
    window().ShowView(View::ViewHandbook);
    QCOMPARE(Topics()->count(), 10002);
    QCOMPARE(Topics()->itemText(0), "<b>bold</b> title");
    QCOMPARE(Topics()->itemText(1).size(), 200);
    Topics()->showPopup();
    QCoreApplication::processEvents();
    Topics()->hidePopup();
  }

  void ALinkToATermLeadsToTheGlossary() {
    WriteGlossary();
    Start();
    FollowLink(QUrl("glossary:Mean%20deviation"));
    QCOMPARE(window().session().ActiveView, View::ViewGlossary);
    QCOMPARE(window().session().glossary.Text1, std::string("Mean deviation"));
    QVERIFY(window().script().documents.empty());  // the desktop was not asked
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::HandbookTest)
#include "handbook_test.moc"
