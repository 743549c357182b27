#include "window/output/table_look.h"

#include <QMouseEvent>
#include <QPainter>

#include "window/output/table_model.h"

namespace tessara {
namespace {

constexpr float kTint = 0.28F;
constexpr float kEdgeTint = 0.75F;
constexpr float kRule = 0.75F;  // of the colour of text
constexpr float kTick = 0.16F;

QColor Faint(QColor colour, float part) {
  colour.setAlphaF(part);
  return colour;
}

bool Contains(const TableBlock& block, std::size_t row, std::size_t column) {
  return row >= block.first_row && row <= block.last_row && column >= block.first_column && column <= block.last_column;
}

}  // namespace

QColor SelectionTint(const QPalette& palette) { return Faint(palette.color(QPalette::Highlight), kTint); }

TableLook::TableLook(const TableModel& model, const TableFace& face, QObject* parent)
    : QStyledItemDelegate(parent), model_(model), face_(face) {}

void TableLook::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  QStyleOptionViewItem cell = option;
  initStyleOption(&cell, index);
  painter->save();
  // Over what the style paints for a selected cell, which would take the words their colour.
  painter->fillRect(cell.rect, cell.palette.color(QPalette::Base));
  const TablePlace place = {static_cast<std::size_t>(index.row()) + 1, static_cast<std::size_t>(index.column()) + 1};
  if (Contains(SelectedBlock(face_), place.row, place.column) && face_.selection.cursor != face_.selection.end) {
    painter->fillRect(cell.rect, SelectionTint(cell.palette));
  }
  PaintRules(*painter, cell, index);

  const int margin = static_cast<int>(QFontMetricsF(cell.font).horizontalAdvance('0') * kAir / 2);
  const QRect words = cell.rect.adjusted(margin, 0, -margin, 0);
  painter->setFont(cell.font);
  painter->setPen(cell.palette.color(QPalette::Text));
  // A text that has no room keeps its beginning, whatever its alignment.
  const QFontMetrics metrics(cell.font);
  const bool cut = metrics.horizontalAdvance(cell.text) > words.width();
  const QString text = cut ? metrics.elidedText(cell.text, Qt::ElideRight, words.width()) : cell.text;
  painter->drawText(words, static_cast<int>(cell.displayAlignment) | Qt::TextSingleLine, text);

  if (face_.selection.cursor == place) {
    painter->setPen(QPen(cell.palette.color(QPalette::Highlight), 2));
    painter->drawRect(cell.rect.adjusted(1, 1, -1, -1));
  }
  painter->restore();
}

// Above and below a row of headings, and below the last row of the table.
void TableLook::PaintRules(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  const TableGrid& grid = model_.grid();
  const auto row = static_cast<std::size_t>(index.row()) + 1;
  if (row > grid.RowCount() || static_cast<std::size_t>(index.column()) >= grid.ColumnCount()) return;
  const bool heading = model_.RowKind(index.row()) == TableRowKind::kHeading;
  painter.setPen(Faint(option.palette.color(QPalette::Text), kRule));
  if (heading) painter.drawLine(option.rect.topLeft(), option.rect.topRight());
  if (heading || row == grid.RowCount()) painter.drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
}

QSize TableLook::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  Q_UNUSED(index);
  return {option.fontMetrics.horizontalAdvance('0') * 3, option.fontMetrics.height()};
}

TableEdge::TableEdge(Qt::Orientation orientation, const TableFace& face, QWidget* parent)
    : QHeaderView(orientation, parent), face_(face) {
  setSectionsClickable(true);
  setHighlightSections(false);
}

void TableEdge::MeasureEdge() {
  const int slim = fontMetrics().height() * 2 / 3;
  if (orientation() == Qt::Horizontal) {
    setFixedHeight(slim);
  } else {
    setFixedWidth(slim);
  }
}

void TableEdge::paintSection(QPainter* painter, const QRect& rect, int section) const {
  painter->fillRect(rect, palette().color(QPalette::Window));
  const TableBlock block = SelectedBlock(face_);
  const auto number = static_cast<std::size_t>(section) + 1;
  const bool across = orientation() == Qt::Horizontal;
  const bool selected = across ? number >= block.first_column && number <= block.last_column
                               : number >= block.first_row && number <= block.last_row;
  if (selected) painter->fillRect(rect, Faint(palette().color(QPalette::Highlight), kEdgeTint));
  painter->setPen(Faint(palette().color(QPalette::WindowText), kTick));
  painter->drawLine(across ? rect.topRight() : rect.bottomLeft(), rect.bottomRight());
}

void TableEdge::mouseReleaseEvent(QMouseEvent* event) {
  QHeaderView::mouseReleaseEvent(event);
  emit Released();
}

}  // namespace tessara
