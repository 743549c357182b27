#include <QDockWidget>
#include <QPdfDocument>
#include <QPdfView>
#include <QPdfWriter>
#include <QTextBrowser>
#include <QToolButton>

#include "window/reference/document_view.h"
#include "window_fixture.h"

namespace tessara {

// The help pane: documents and pages in its browser, the lists below it.
class HelpPaneTest : public QObject {
  Q_OBJECT

  std::unique_ptr<WindowFixture> window_;
  WindowFixture& window() { return *window_; }
  QDockWidget* Pane() { return window().Find<QDockWidget>("TaskPanel"); }
  QTextBrowser* Browser() { return Pane()->findChild<QTextBrowser*>("WebBrowser1"); }
  DocumentView* Document() { return Pane()->findChild<DocumentView*>("DocumentView"); }
  QToolButton* Button(const char* name) { return Pane()->findChild<QToolButton*>(name); }
  QStringList Labels() {
    QStringList captions;
    for (int i = 0; auto* label = Button(QString("Label1(%1)").arg(i).toLatin1()); ++i) captions += label->text();
    return captions;
  }
  void Click(const char* name) {
    Button(name)->click();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
  }

  void WriteDocument(const char* name, int pages = 3) {
    QPdfWriter writer(PathToQt(window().program_folder() / name));
    QPainter painter(&writer);
    for (int page = 0; page < pages; ++page) {
      if (page > 0) writer.newPage();
      painter.drawText(QPointF(1000, 1000), QString("Sheet %1").arg(page + 1));
    }
  }

  // The real pages of the product.
  void CopyHelpPages() {
    std::filesystem::copy(Path(TESSARA_SOURCE_DIR) / "installed" / "Help", window().program_folder() / "Help",
                          std::filesystem::copy_options::overwrite_existing | std::filesystem::copy_options::recursive);
  }

 private slots:
  void init() { window_ = std::make_unique<WindowFixture>(); }
  void cleanup() { window_.reset(); }

  void OnlyDocumentsThatAreThereStandInTheList() {
    WriteDocument("Handbook.pdf");
    window().Start();
    window().Trigger(602);
    Click("ShortcutCaption1");
    QCOMPARE(Labels(), QStringList{"Methods Handbook"});
    QVERIFY(window().Command(504)->isEnabled());
    QVERIFY(!window().Command(503)->isEnabled());
  }

  void TheListFollowsTheRefreshCommand() {
    window().Start();
    window().Trigger(602);
    Click("ShortcutCaption1");
    QVERIFY(Labels().isEmpty());
    WriteDocument("UserManual.pdf");
    WriteDocument("Brochure.pdf");
    window().Trigger(502);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(Labels(), QStringList({"User Manual", "Brochure"}));
    std::filesystem::remove(window().program_folder() / "UserManual.pdf");
    window().Trigger(502);
    QCOMPARE(Labels(), QStringList{"Brochure"});
  }

  void ADocumentOpensInThePane() {
    WriteDocument("Workbook.pdf");
    window().Start();
    window().Trigger(602);
    Click("ShortcutCaption1");
    Click("Label1(0)");
    QVERIFY(Document()->isVisible());
    QVERIFY(!Browser()->isVisible());
    QCOMPARE(Document()->document()->pageCount(), 3);
    QVERIFY(window().script().documents.empty());  // the desktop was not asked
    QVERIFY(window().script().messages.empty());
  }

  void ACommandOpensItsDocumentInThePane() {
    WriteDocument("Brochure.pdf", 2);
    window().Start();
    QVERIFY(!Pane()->isVisible());
    window().Trigger(507);
    QVERIFY(Pane()->isVisible());
    QVERIFY(window().session().help_pane_visible);
    QVERIFY(Document()->isVisible());
    QCOMPARE(Document()->document()->pageCount(), 2);
    QVERIFY(window().Command(602)->isChecked());
    QVERIFY(window().script().documents.empty());
  }

  void AFailureNamesTheDocument() {
    WriteDocument("Workbook.pdf");
    window().WriteFile(window().program_folder() / "Discount.pdf", "no document at all");
    window().Start();
    window().Trigger(602);
    Click("ShortcutCaption1");
    Click("Label1(0)");
    Click("Label1(1)");
    QCOMPARE(window().script().messages.size(), std::size_t{1});
    QCOMPARE(window().script().messages.back().title, std::string("Error!"));
    QCOMPARE(window().script().messages.back().text,
             std::string("Tessara was unable to open the Discount.pdf file.  The most likely reason is because you "
                         "don't have Adobe Acrobat Reader version 4.0 or later installed on your computer."));
    QCOMPARE(Document()->document()->pageCount(), 3);  // the other one stays
    window().Trigger(506);
    QCOMPARE(window().script().messages.back().text,
             std::string("Tessara was unable to open the pdf file.  The most likely reason is because you don't have "
                         "Adobe Acrobat Reader version 4.0 or later installed on your computer."));
    QVERIFY(window().script().documents.empty());
  }

  void ADocumentThatVanishedIsAFailureToo() {
    WriteDocument("Workbook.pdf");
    window().Start();
    std::filesystem::remove(window().program_folder() / "Workbook.pdf");
    window().script().documents_open = false;
    window().Trigger(505);
    QCOMPARE(window().script().messages.back().title, std::string("Error!"));
  }

  void BackLeadsFromTheDocumentToThePage() {
    WriteDocument("Handbook.pdf");
    window().WriteFile(window().program_folder() / "Help" / "UserManual1.html", "<p>About the grid</p>");
    window().Start();
    window().Trigger(602);
    QVERIFY(!Button("Image1(0)")->isEnabled());
    window().Trigger(504);
    QVERIFY(Button("Image1(0)")->isEnabled());
    QVERIFY(!Button("Image1(1)")->isEnabled());
    Click("Image1(0)");
    QVERIFY(Browser()->isVisible());
    QVERIFY(Browser()->toPlainText().contains("About the grid"));
    Click("Image1(1)");
    QVERIFY(Document()->isVisible());
    window().ShowView(View::ViewOutput);  // its page comes
    QVERIFY(Browser()->isVisible());
  }

  void TheKeyboardTurnsPagesAndZooms() {
    WriteDocument("Handbook.pdf", 4);
    window().Start();
    window().Trigger(504);
    auto* pages = Document()->findChild<QPdfView*>("DocumentPages");
    auto* place = Document()->findChild<QLabel*>("PageOfDocument");
    QCOMPARE(place->text(), "Page 1 of 4");
    pages->setFocus();
    QTest::keyClick(pages, Qt::Key_PageDown, Qt::ControlModifier);
    QCOMPARE(Document()->page(), 1);
    QCOMPARE(place->text(), "Page 2 of 4");
    QTest::keyClick(pages, Qt::Key_End);
    QCOMPARE(place->text(), "Page 4 of 4");
    QVERIFY(!Button("NextPage")->isEnabled());
    Click("PreviousPage");
    QCOMPARE(Document()->page(), 2);
    QTest::keyClick(pages, Qt::Key_Home);
    QCOMPARE(Document()->page(), 0);
    QCOMPARE(pages->zoomMode(), QPdfView::ZoomMode::FitToWidth);
    Click("DocumentLarger");
    QCOMPARE(pages->zoomMode(), QPdfView::ZoomMode::Custom);
    const qreal larger = pages->zoomFactor();
    QTest::keyClick(pages, Qt::Key_Minus, Qt::ControlModifier);
    QVERIFY(pages->zoomFactor() < larger);
    QTest::keyClick(pages, Qt::Key_0, Qt::ControlModifier);
    QCOMPARE(pages->zoomMode(), QPdfView::ZoomMode::FitToWidth);
  }

  void ADocumentIsPrintedPageByPage() {
    WriteDocument("Handbook.pdf", 2);
    window().Start();
    window().Trigger(504);
    Click("Image1(2)");
    QCOMPARE(window().script().print_dialogs.size(), std::size_t{1});
    QVERIFY(window().platform().printed_pictures.empty());  // cancelled
    window().script().print_answers.push_back(PrintChoice{2});
    Click("Image1(2)");
    const std::vector<QImage>& sheets = window().platform().printed_pictures;
    QCOMPARE(sheets.size(), std::size_t{4});
    QVERIFY(sheets[0] != sheets[1]);
    QVERIFY(sheets[0] == sheets[2]);
    window().script().printer_works = false;
    window().script().print_answers.push_back(PrintChoice{1});
    Click("Image1(2)");
    QCOMPARE(window().script().messages.back().title, std::string("Printer Error"));
  }

  void TheLinksArePagesOfThisMachine() {
    CopyHelpPages();
    window().Start();
    window().Trigger(602);
    Click("ShortcutCaption2");
    QCOMPARE(Labels(),
             QStringList({"Download Documentation", "Statistics Links", "Tessara Home Page", "Check for Updates"}));
    const std::pair<const char*, const char*> expected[] = {{"Label1(0)", "Documentation"},
                                                            {"Label1(1)", "Statistics Links"},
                                                            {"Label1(2)", "Tessara"},
                                                            {"Label1(3)", "Updates"}};
    for (const auto& [label, title] : expected) {
      Click(label);
      QVERIFY(Browser()->isVisible());
      QCOMPARE(Browser()->documentTitle(), title);
    }
    QVERIFY(window().script().documents.empty());
  }

  // No page of the product leads nowhere.
  void EveryLinkBetweenTheHelpPagesHasItsPage() {
    const Path folder = Path(TESSARA_SOURCE_DIR) / "installed" / "Help";
    int links = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      if (entry.path().extension() != ".html") continue;
      const QString page = QString::fromStdString(WindowFixture::ReadFile(entry.path()));
      static const QRegularExpression link("href=\"([^\"]*)\"");
      for (auto found = link.globalMatch(page); found.hasNext();) {
        const QString target = found.next().captured(1).section('#', 0, 0);
        if (target.isEmpty() || target.startsWith("https://") || target.startsWith("glossary:")) continue;
        ++links;
        QVERIFY2(std::filesystem::exists(folder / target.toStdString()),
                 qPrintable(PathToQt(entry.path().filename()) + ": " + target));
      }
    }
    QVERIFY(links > 20);
  }
};

}  // namespace tessara

QTEST_MAIN(tessara::HelpPaneTest)
#include "help_pane_test.moc"
