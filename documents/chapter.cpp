#include "chapter.h"

#include <QAbstractTextDocumentLayout>
#include <QFile>
#include <QFont>
#include <QPainter>
#include <QRegularExpression>
#include <QSvgRenderer>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocumentFragment>
#include <QTextObjectInterface>
#include <algorithm>
#include <map>

namespace tessara {
namespace {

constexpr qreal kTypeSize = 10;     // points
constexpr qreal kReportSize = 8.5;  // of what the program prints, at most
constexpr qreal kPitch = 0.6;       // width of a character of fixed pitch, in type sizes
constexpr qreal kPointsPerPixel = 0.75;
constexpr int kMostMoves = 100;  // of headings that would stand alone at the foot of a page

const QRegularExpression::PatternOptions kAcrossLines = QRegularExpression::DotMatchesEverythingOption;

QString ReadText(const QString& file) {
  QFile page(file);
  return page.open(QIODevice::ReadOnly) ? QString::fromUtf8(page.readAll()) : QString();
}

QString FirstMatch(const QString& pattern, const QString& text) {
  return QRegularExpression(pattern, kAcrossLines).match(text).captured(1);
}

// Draws the figures of a document as what they are, sharp at every size.
class Figures : public QObject, public QTextObjectInterface {
  Q_OBJECT
  Q_INTERFACES(QTextObjectInterface)

 public:
  Figures(const QString& folder, QObject* parent) : QObject(parent), folder_(folder) {}

  QSizeF intrinsicSize(QTextDocument*, int, const QTextFormat& format) override {
    const QTextImageFormat image = format.toImageFormat();
    const QSizeF drawn = Drawing(image.name()).defaultSize();
    if (image.width() <= 0) return drawn;
    return {image.width(), image.height() > 0 ? image.height() : drawn.height() * image.width() / drawn.width()};
  }

  void drawObject(QPainter* painter, const QRectF& place, QTextDocument*, int, const QTextFormat& format) override {
    Drawing(format.toImageFormat().name()).render(painter, place);
  }

 private:
  QSvgRenderer& Drawing(const QString& name) {
    std::unique_ptr<QSvgRenderer>& drawing = drawings_[name];
    if (!drawing) drawing = std::make_unique<QSvgRenderer>(folder_ + "/" + name);
    return *drawing;
  }

  QString folder_;
  std::map<QString, std::unique_ptr<QSvgRenderer>> drawings_;
};

bool IsReport(const QTextBlock& block) { return block.blockFormat().nonBreakableLines(); }

qsizetype LongestLine(const QString& text) {
  qsizetype longest = 0;
  for (const QString& line : text.split(QChar::LineSeparator)) longest = std::max(longest, line.size());
  return longest;
}

// The printed lines of the program keep their columns: a report that is too wide takes smaller type.
void FitReports(QTextDocument& document, qreal width) {
  for (QTextBlock block = document.begin(); block.isValid();) {
    const QTextBlock first = block;
    qsizetype longest = 0;
    while (block.isValid() && IsReport(block) == IsReport(first)) {
      longest = std::max(longest, LongestLine(block.text()));
      block = block.next();
    }
    if (!IsReport(first)) continue;
    QTextCharFormat type;
    type.setFontPointSize(std::min(kReportSize, width * kPointsPerPixel / (static_cast<qreal>(longest) * kPitch + 1)));
    QTextCursor cursor(first);
    const int end = block.isValid() ? block.position() - 1 : document.characterCount() - 1;
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    cursor.mergeCharFormat(type);
  }
}

// The page on which a block begins, counted from 0.
int PageOf(const QTextBlock& block) {
  const QTextDocument& document = *block.document();
  const QRectF place = document.documentLayout()->blockBoundingRect(block);
  const qreal height = document.pageSize().height();
  // The bounds of a block that moved to the next page begin on the page before: its first line tells.
  const qreal top = place.top() + (block.layout()->lineCount() > 0 ? block.layout()->lineAt(0).y() : 0);
  constexpr qreal kRounding = 0.5;  // of places in the layout
  return static_cast<int>((top + kRounding) / height);
}

// A heading goes to the page of what it heads. True when one had to be moved.
bool MoveOneHeading(QTextDocument& document) {
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    const QTextBlock next = block.next();
    if (block.blockFormat().headingLevel() == 0 || !next.isValid()) continue;
    if (PageOf(block) == PageOf(next)) continue;
    QTextBlockFormat format = block.blockFormat();
    if (format.pageBreakPolicy() == QTextFormat::PageBreak_AlwaysBefore) continue;
    format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    QTextCursor(block).setBlockFormat(format);
    return true;
  }
  return false;
}

}  // namespace

std::unique_ptr<QTextDocument> MakeDocument(const QString& help_folder, const QString& style) {
  auto document = std::make_unique<QTextDocument>();
  QFont type("Liberation Serif");
  type.setStyleHint(QFont::Serif);
  type.setPointSizeF(kTypeSize);
  document->setDefaultFont(type);
  document->setDefaultStyleSheet(style);
  document->setDocumentMargin(0);
  document->setUseDesignMetrics(true);
  document->documentLayout()->registerHandler(QTextFormat::ImageObject, new Figures(help_folder, document.get()));
  return document;
}

QString StyleOfPages(const QString& help_folder) {
  return ReadText(help_folder + "/style.css") +
         "h1 { font-size: 17pt; } h2 { font-size: 12pt; margin-top: 9px; } h3 { font-size: 10.5pt; }"
         "pre { margin-top: 2px; margin-bottom: 4px; } li { margin-bottom: 1px; } th { text-align: left; }"
         "tt { font-family: \"Courier New\", \"Liberation Mono\", monospace; font-size: 8.5pt; }";
}

bool Chapter::Read(const QString& help_folder, const QString& file) {
  const QString page = ReadText(help_folder + "/" + file);
  help_folder_ = help_folder;
  file_ = file;
  title_ = QTextDocumentFragment::fromHtml(FirstMatch("<title>\\s*(.*?)\\s*</title>", page)).toPlainText();
  body_ = FirstMatch("<body>(.*)</body>", page);
  style_ = StyleOfPages(help_folder);
  // The ways to other pages are of use on the screen alone.
  body_.remove(QRegularExpression("<p class=\"way\">.*?</p>", kAcrossLines));
  // A report follows the words ahead of it; what it was run with stands in a comment.
  body_.replace(QRegularExpression("(<pre[^>]*>)\\s*<!--.*?-->\\s*?\\n(\\s*\\n)*", kAcrossLines), "\\1");
  body_.replace("#version#", TESSARA_VERSION);
  return !title_.isEmpty() && !body_.isEmpty();
}

QString Chapter::TextWithPageNumbers(const ChapterStarts& starts) const {
  static const QRegularExpression link("<a\\s+href=\"([^\"]*)\"[^>]*>(.*?)</a>", kAcrossLines);
  QString text;
  qsizetype done = 0;
  for (auto found = link.globalMatch(body_); found.hasNext();) {
    const QRegularExpressionMatch match = found.next();
    text += body_.mid(done, match.capturedStart() - done) + match.captured(2);
    const int page = starts.value(match.captured(1).section('#', 0, 0), 0);
    if (page > 0) text += QString("&nbsp;<span style=\"font-size:8pt\">(page&nbsp;%1)</span>").arg(page);
    done = match.capturedEnd();
  }
  return text + body_.mid(done);
}

void Chapter::LayOut(const QSizeF& page, const ChapterStarts& starts) {
  ChapterStarts others = starts;
  others.remove(file_);
  document_ = MakeDocument(help_folder_, style_);
  document_->setHtml(TextWithPageNumbers(others));
  document_->setPageSize(page);
  FitReports(*document_, page.width());
  for (int moves = 0; moves < kMostMoves && MoveOneHeading(*document_); ++moves) {
  }
}

std::vector<Heading> Chapter::Sections() const {
  std::vector<Heading> sections;
  for (QTextBlock block = document_->begin(); block.isValid(); block = block.next()) {
    if (block.blockFormat().headingLevel() == 2) sections.push_back({block.text(), PageOf(block)});
  }
  return sections;
}

}  // namespace tessara

#include "chapter.moc"
