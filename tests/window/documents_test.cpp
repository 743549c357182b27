#include <QPdfDocument>
#include <QRegularExpression>
#include <QtTest>

#include "reference/handbook_topics.h"
#include "window/reference/document_view.h"
#include "window_fixture.h"

// The documents that the build makes of the help pages: what their contents say is where they say it, nothing is cut,
// and the menu opens them.

namespace tessara {
namespace {

const Path kProgramFolder = TESSARA_BUILT_PROGRAM_FOLDER;

// The words of a text, with one blank between them.
QString Words(const QString& text) { return text.simplified(); }

// A document as its reader sees it.
class Document {
 public:
  explicit Document(const char* name) {
    loaded_ = document_.load(PathToQt(kProgramFolder / name)) == QPdfDocument::Error::None;
  }

  bool loaded() const { return loaded_; }
  int pages() const { return document_.pageCount(); }
  // A page by its printed number.
  QString Page(int number) { return Words(document_.getAllText(number - 1).text()); }
  QRectF TextOf(int number) { return document_.getAllText(number - 1).boundingRectangle(); }
  QSizeF SizeOf(int number) { return document_.pagePointSize(number - 1); }

 private:
  QPdfDocument document_;
  bool loaded_ = false;
};

// What a help page is called, as plain text.
QString TitleOf(const QString& page) {
  QFile file(PathToQt(kProgramFolder / "Help") + "/" + page);
  if (!file.open(QIODevice::ReadOnly)) return {};
  static const QRegularExpression title("<title>\\s*(.*?)\\s*</title>");
  QTextDocument text;
  text.setHtml(title.match(QString::fromUtf8(file.readAll())).captured(1));
  return Words(text.toPlainText());
}

// The number behind a title in the contents; 0 when it does not stand there.
int PageInContents(const QString& contents, const QString& title) {
  const QRegularExpression line(QRegularExpression::escape(title) + "[ .]+(\\d+)\\b");
  return line.match(contents).captured(1).toInt();
}

class DocumentsTest : public QObject {
  Q_OBJECT

 private slots:
  void EveryTopicOfTheHandbookStandsOnThePageThatTheContentsName() {
    Document handbook("Handbook.pdf");
    QVERIFY(handbook.loaded());
    QVERIFY(handbook.Page(1).contains("Methods Handbook"));
    QVERIFY(handbook.Page(1).contains(TESSARA_VERSION));
    int topics = 0;
    int last = 1;
    for (const HandbookTopic& topic : ReadHelpIndex(kProgramFolder / "Help")) {
      if (!topic.page.starts_with("hb-")) continue;
      const QString title = TitleOf(ToQt(topic.page) + ".html");
      const int page = PageInContents(handbook.Page(2), title);
      QVERIFY2(page > last, qPrintable(title));  // each on a new page, in the order of the list
      // The page's head names its topic, and its text begins with it.
      QVERIFY2(handbook.Page(page).count(title) >= 2, qPrintable(title));
      last = page;
      ++topics;
    }
    QVERIFY(topics >= 40);
  }

  void TheManualHasAPageForEachView() {
    Document manual("UserManual.pdf");
    QVERIFY(manual.loaded());
    for (int view = 1; view <= 8; ++view) {
      const QString title = TitleOf(QString("UserManual%1.html").arg(view));
      const int page = PageInContents(manual.Page(2), title);
      QVERIFY2(page > 2, qPrintable(title));
      QVERIFY2(manual.Page(page).count(title) >= 2, qPrintable(title));
    }
  }

  void TheWorkbookHasTwelveExercisesAndTheirAnswers() {
    Document workbook("Workbook.pdf");
    QVERIFY(workbook.loaded());
    QVERIFY(workbook.Page(1).contains("Student Workbook"));
    QString whole;
    for (int page = 2; page <= workbook.pages(); ++page) whole += workbook.Page(page) + " ";
    for (int exercise = 1; exercise <= 12; ++exercise) {
      QVERIFY2(whole.count(QRegularExpression(QString("\\b%1\\b").arg(exercise))) >= 2,
               qPrintable(QString::number(exercise)));
    }
    QVERIFY(whole.contains("Answers"));
  }

  void NothingIsCutAtThePagesEdge() {
    for (const char* name : {"UserManual.pdf", "Handbook.pdf", "Workbook.pdf"}) {
      Document document(name);
      for (int page = 2; page <= document.pages(); ++page) {
        const QSizeF sheet = document.SizeOf(page);
        const QRectF text = document.TextOf(page);
        const QRectF inner = QRectF(QPointF(), sheet).adjusted(40, 20, -40, -20);  // points
        QVERIFY2(inner.contains(text), qPrintable(QString("%1, page %2").arg(name).arg(page)));
      }
    }
  }

  void AReportKeepsItsColumns() {
    // A report of 117 characters: its type is smaller, its lines are whole.
    Document handbook("Handbook.pdf");
    QString whole;
    for (int page = 2; page <= handbook.pages(); ++page) whole += handbook.Page(page) + " ";
    QFile page(PathToQt(kProgramFolder / "Help") + "/hb-paired.html");
    QVERIFY(page.open(QIODevice::ReadOnly));
    static const QRegularExpression report("<pre[^>]*>(.*?)</pre>", QRegularExpression::DotMatchesEverythingOption);
    const QString html = QString::fromUtf8(page.readAll());
    int lines = 0;
    for (auto found = report.globalMatch(html); found.hasNext();) {
      QTextDocument text;
      text.setHtml("<pre>" + found.next().captured(1) + "</pre>");
      for (const QString& line : text.toPlainText().split('\n')) {
        QVERIFY2(whole.contains(Words(line)), qPrintable(line));
        ++lines;
      }
    }
    QVERIFY(lines > 5);
  }

  void TheMenuOpensTheDocument() {
    WindowFixture window;
    std::filesystem::copy_file(kProgramFolder / "Handbook.pdf", window.program_folder() / "Handbook.pdf");
    window.Start();
    QVERIFY(window.Command(504)->isEnabled());
    QVERIFY(!window.Command(503)->isEnabled());
    window.Trigger(504);
    auto* shown = window.frame().findChild<DocumentView*>();
    QVERIFY(shown && shown->isVisible());
    QVERIFY(shown->document()->pageCount() > 50);
  }
};

}  // namespace
}  // namespace tessara

QTEST_MAIN(tessara::DocumentsTest)
#include "documents_test.moc"
