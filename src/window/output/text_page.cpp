#include "window/output/text_page.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>

#include "window/output/fixed_pitch_html.h"
#include "window/system/page_painter.h"
#include "window/widgets/hint_label.h"

namespace tessara {
namespace {

constexpr int kSheetColumns = 100;  // a report's width with some room beside it
constexpr QLatin1String kPageBreakLine("<Page Break>");

}  // namespace

TextPage::TextPage(QWidget* parent) : QPlainTextEdit(parent) {
  setFrameShape(QFrame::NoFrame);
  setLineWrapMode(QPlainTextEdit::NoWrap);
  setTabChangesFocus(true);
  empty_text_ = new HintLabel(QPalette::Text, viewport());
  empty_text_->setObjectName("EmptyText");
  empty_text_->setAlignment(Qt::AlignCenter);
  empty_text_->setWordWrap(true);
  empty_text_->setAttribute(Qt::WA_TransparentForMouseEvents);
  connect(this, &QPlainTextEdit::textChanged, this, &TextPage::ShowEmptyText);
  ApplyType();
}

void TextPage::SetZoom(int percent) {
  if (percent == zoom_) return;
  zoom_ = percent;
  ApplyType();
  emit ZoomChanged(zoom_);
}

void TextPage::ApplyType() {
  QFont type = FixedPitchFont();
  type.setPointSizeF(QApplication::font().pointSizeF() * zoom_ / 100.0);
  setFont(type);
  document()->setDefaultFont(type);
  document()->setDocumentMargin(QFontMetricsF(type).height() * 1.5);
  setTabStopDistance(QFontMetricsF(type).horizontalAdvance('0') * 8);
  setCursorWidth(2);
  QFont words = QApplication::font();
  words.setResolveMask(QFont::AllPropertiesResolved);  // and not the type of the sheet
  empty_text_->setFont(words);
  PlaceSheet();
}

void TextPage::SetEmptyText(const QString& text) { empty_text_->setText(text); }

void TextPage::ShowText(const QString& text) {
  setPlainText(text);
  moveCursor(QTextCursor::Start);
  PlaceSheet();
}

void TextPage::LengthenText(const QString& addition) {
  QTextCursor end(document());
  end.movePosition(QTextCursor::End);
  const int first_new_line = end.blockNumber();
  end.insertText(addition);
  document()->clearUndoRedoStacks();
  PlaceSheet();
  moveCursor(QTextCursor::End);
  verticalScrollBar()->setValue(first_new_line);
}

void TextPage::ReplaceText(const QString& text) {
  QTextCursor all(document());
  all.select(QTextCursor::Document);
  all.insertText(text);
  moveCursor(QTextCursor::Start);
  PlaceSheet();
}

QString TextPage::Text() const {
  QString text = document()->toRawText();
  text.replace(QChar::ParagraphSeparator, '\n');
  text.replace(QChar::LineSeparator, '\n');
  return text;
}

QMimeData* TextPage::createMimeDataFromSelection() const {
  QString text = textCursor().selectedText();
  text.replace(QChar::ParagraphSeparator, '\n');
  text.replace(QChar::LineSeparator, '\n');
  auto* content = new QMimeData;
  content->setText(text);
  content->setHtml(FixedPitchHtml(text));
  return content;
}

void TextPage::ShowEmptyText() { empty_text_->setVisible(document()->isEmpty()); }

// The sheet has the width of a report, more when a line is longer, and stands in the middle.
void TextPage::PlaceSheet() {
  const int gap = fontMetrics().height() / 2;
  const qreal margins = 2 * document()->documentMargin();
  const qreal report = QFontMetricsF(font()).horizontalAdvance('0') * kSheetColumns + margins;
  const int wanted = qCeil(qMax(report, document()->size().width() + document()->documentMargin()));
  const int room = width() - verticalScrollBar()->sizeHint().width();
  const int side = qMax(gap, (room - wanted) / 2);
  setViewportMargins(side, gap, side, 0);
  const int inset = qCeil(document()->documentMargin());
  empty_text_->setGeometry(viewport()->rect().adjusted(inset, inset, -inset, -inset));
}

bool TextPage::event(QEvent* event) {
  if (event->type() == QEvent::Paint) {
    PaintDesk();
    return true;
  }
  return QPlainTextEdit::event(event);
}

void TextPage::PaintDesk() {
  QPainter painter(this);
  painter.fillRect(rect(), palette().brush(QPalette::Window));
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawRect(viewport()->geometry().adjusted(-1, -1, 0, 0));
}

void TextPage::changeEvent(QEvent* event) {
  QPlainTextEdit::changeEvent(event);
  if (event->type() == QEvent::ApplicationFontChange) ApplyType();
}

void TextPage::paintEvent(QPaintEvent* event) {
  QPlainTextEdit::paintEvent(event);
  PaintPageBreaks();
}

// A page break mark stands back, and a rule shows where the sheet of paper ends.
void TextPage::PaintPageBreaks() {
  QPainter painter(viewport());
  QColor veil = palette().color(QPalette::Base);
  veil.setAlphaF(0.6F);
  const qreal width = fontMetrics().horizontalAdvance(kPageBreakLine);
  for (QTextBlock block = firstVisibleBlock(); block.isValid(); block = block.next()) {
    const QRectF place = blockBoundingGeometry(block).translated(contentOffset());
    if (place.top() > viewport()->height()) break;
    if (block.text() != kPageBreakLine) continue;
    const qreal left = place.left() + document()->documentMargin();
    painter.fillRect(QRectF(left, place.top(), width, place.height()), veil);
    painter.setPen(QPen(palette().color(QPalette::Mid), 1, Qt::DashLine));
    const qreal y = qRound(place.center().y());
    painter.drawLine(QPointF(left + width + fontMetrics().averageCharWidth(), y),
                     QPointF(qMax<qreal>(viewport()->width(), place.right()), y));
  }
}

void TextPage::contextMenuEvent(QContextMenuEvent* event) {
  QMenu* menu = createStandardContextMenu();
  menu->setObjectName("OutputMenu");
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->addSeparator();
  menu->addActions(actions());
  menu->popup(event->reason() == QContextMenuEvent::Mouse ? event->globalPos()
                                                          : viewport()->mapToGlobal(cursorRect().bottomLeft()));
}

void TextPage::resizeEvent(QResizeEvent* event) {
  QPlainTextEdit::resizeEvent(event);
  PlaceSheet();
}

}  // namespace tessara
