#include "book_printer.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QGuiApplication>
#include <QPainter>
#include <QPdfWriter>
#include <QTextBlock>
#include <QTextCursor>
#include <algorithm>
#include <vector>

#include "chapter.h"
#include "platform/safe_file_writer.h"
#include "window/widgets/text.h"
#include "window/widgets/theme.h"

namespace tessara {
namespace {

constexpr int kResolution = 96;
constexpr qreal kPixelsPerMillimetre = kResolution / 25.4;
constexpr qreal kSideMargin = 20;  // millimetres
constexpr qreal kUpperMargin = 20;
constexpr qreal kLowerMargin = 18;
constexpr qreal kContentsGap = 2;  // pixels
constexpr int kMostPasses = 6;     // until the page numbers in the text stand

// The sheet and what is printed on it, in pixels of 1/96 inch.
struct Layout {
  QSizeF sheet = QSizeF(210, 297) * kPixelsPerMillimetre;
  QRectF text = QRectF(kSideMargin, kUpperMargin, 210 - 2 * kSideMargin, 297 - kUpperMargin - kLowerMargin);

  Layout() { text = QRectF(text.topLeft() * kPixelsPerMillimetre, text.size() * kPixelsPerMillimetre); }
};

class BookPrinter {
 public:
  BookPrinter(const Book& book, const QString& help_folder) : book_(book), help_folder_(help_folder) {}

  bool Read(QString& error);
  void LayOut();
  QByteArray Pdf();

 private:
  ChapterStarts Starts(int contents_pages) const;
  std::unique_ptr<QTextDocument> Contents() const;
  void DrawTitle(QPainter& painter) const;
  void DrawPages(QPdfWriter& writer, QPainter& painter, QTextDocument& document, const QString& head);
  void DrawFoot(QPainter& painter, const QString& head) const;

  const Book& book_;
  QString help_folder_;
  Layout layout_;
  std::vector<Chapter> chapters_;
  std::unique_ptr<QTextDocument> contents_;
  ChapterStarts starts_;
  int page_ = 1;
};

bool BookPrinter::Read(QString& error) {
  for (const QString& page : book_.pages) {
    if (!chapters_.emplace_back().Read(help_folder_, page)) {
      error = page + " is no help page";
      return false;
    }
  }
  return true;
}

ChapterStarts BookPrinter::Starts(int contents_pages) const {
  ChapterStarts starts;
  int page = 2 + contents_pages;
  for (const Chapter& chapter : chapters_) {
    starts[chapter.file()] = page;
    page += chapter.pages();
  }
  return starts;
}

// Page numbers in the text move the text, which moves the pages: laid out again until they stand.
void BookPrinter::LayOut() {
  for (int pass = 0; pass < kMostPasses; ++pass) {
    for (Chapter& chapter : chapters_) chapter.LayOut(layout_.text.size(), starts_);
    contents_ = Contents();
    const ChapterStarts starts = Starts(contents_->pageCount());
    if (starts == starts_) return;
    starts_ = starts;
  }
}

// The lines of the contents: dots lead from a title to its page number at the right margin.
std::unique_ptr<QTextDocument> BookPrinter::Contents() const {
  auto contents = MakeDocument(help_folder_, StyleOfPages(help_folder_));
  contents->setHtml("<h1>Contents</h1>");
  const qreal width = layout_.text.width();
  const QFontMetricsF metrics(contents->defaultFont());
  QTextBlockFormat line;
  line.setTabPositions({QTextOption::Tab(width, QTextOption::RightTab)});
  line.setBottomMargin(kContentsGap);
  QTextCursor cursor(contents.get());
  cursor.movePosition(QTextCursor::End);
  const auto add = [&](const QString& title, int page) {
    const QString number = QString::number(page);
    const qreal room = width - metrics.horizontalAdvance(title + "  " + number) - kContentsGap;
    const int dots = std::max(0, static_cast<int>(room / metrics.horizontalAdvance(" .")));
    cursor.insertBlock(line, QTextCharFormat());
    cursor.insertText(title + QString(" .").repeated(dots) + "\t" + number);
  };
  for (const Chapter& chapter : chapters_) {
    const int start = starts_.value(chapter.file(), 0);
    add(chapter.title(), start);
    if (chapters_.size() > 1) continue;
    for (const Heading& section : chapter.Sections()) add("    " + section.text, start + section.page);
  }
  contents->setPageSize(layout_.text.size());
  return contents;
}

void BookPrinter::DrawTitle(QPainter& painter) const {
  const qreal middle = layout_.sheet.width() / 2;
  const QRectF logo(middle - 48, layout_.sheet.height() * 0.28, 96, 96);
  PaintLogo(painter, logo, QGuiApplication::palette());
  const auto line = [&](const QString& text, qreal top, qreal size) {
    QFont type("Liberation Sans");
    type.setStyleHint(QFont::SansSerif);
    type.setPixelSize(static_cast<int>(size));
    painter.setFont(type);
    painter.setPen(Qt::black);
    painter.drawText(QRectF(0, top, layout_.sheet.width(), size * 1.5), Qt::AlignHCenter, text);
  };
  line("Tessara", logo.bottom() + 30, 44);
  line(book_.title, logo.bottom() + 100, 26);
  line(QString("Version %1").arg(TESSARA_VERSION), layout_.text.bottom() - 20, 14);
}

void BookPrinter::DrawFoot(QPainter& painter, const QString& head) const {
  QFont type("Liberation Sans");
  type.setStyleHint(QFont::SansSerif);
  type.setPixelSize(11);
  painter.setFont(type);
  painter.setPen(QColor(90, 90, 90));
  const QRectF upper(layout_.text.left(), layout_.text.top() - 34, layout_.text.width(), 16);
  painter.drawText(upper, Qt::AlignLeft, "Tessara " + book_.title);
  painter.drawText(upper, Qt::AlignRight, head);
  const QRectF lower(layout_.text.left(), layout_.text.bottom() + 14, layout_.text.width(), 16);
  painter.drawText(lower, Qt::AlignHCenter, QString::number(page_));
}

void BookPrinter::DrawPages(QPdfWriter& writer, QPainter& painter, QTextDocument& document, const QString& head) {
  const QSizeF size = document.pageSize();
  for (int page = 0; page < document.pageCount(); ++page) {
    writer.newPage();
    ++page_;
    DrawFoot(painter, head);
    painter.save();
    const QRectF part(0, page * size.height(), size.width(), size.height());
    painter.translate(layout_.text.topLeft() - part.topLeft());
    painter.setClipRect(part);  // a paragraph that begins on the next page reaches into this one with its room above
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette.setColor(QPalette::Text, Qt::black);
    context.clip = part.adjusted(0, 1, 0, -1);  // a line that only touches the edge stands on another page
    document.documentLayout()->draw(&painter, context);
    painter.restore();
  }
}

QByteArray BookPrinter::Pdf() {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  {
    QPdfWriter writer(&buffer);
    writer.setTitle("Tessara " + book_.title);
    writer.setCreator("Tessara " TESSARA_VERSION);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins(QMarginsF(0, 0, 0, 0));
    writer.setResolution(kResolution);
    QPainter painter(&writer);
    DrawTitle(painter);
    DrawPages(writer, painter, *contents_, "Contents");
    for (const Chapter& chapter : chapters_) {
      DrawPages(writer, painter, chapter.document(), chapters_.size() > 1 ? chapter.title() : QString());
    }
  }
  return buffer.data();
}

}  // namespace

bool PrintBook(const Book& book, const QString& help_folder, const QString& pdf, QString& error) {
  BookPrinter printer(book, help_folder);
  if (!printer.Read(error)) return false;
  printer.LayOut();
  const QByteArray bytes = printer.Pdf();
  const bool written =
      WriteWholeFile(PathFromQt(pdf), {bytes.data(), static_cast<std::size_t>(bytes.size())}) == WriteResult::kWritten;
  if (!written) error = pdf + " cannot be written";
  return written;
}

}  // namespace tessara
