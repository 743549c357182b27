#include "window/grid/grid_header.h"

#include <QPainter>
#include <algorithm>

namespace tessara {
namespace {

// Colour numbers of the design have blue in the highest byte and red in the lowest.
constexpr QRgb FromColourNumber(unsigned number) {
  return qRgb(static_cast<int>(number & 0xFF), static_cast<int>(number >> 8 & 0xFF),
              static_cast<int>(number >> 16 & 0xFF));
}
constexpr QRgb kSheet = FromColourNumber(0xFFFFFF);
constexpr QRgb kSheetAboveLimit = FromColourNumber(0xC0FFFF);
constexpr QRgb kMark = FromColourNumber(0x80C0FF);
constexpr QRgb kDarkSheetAboveLimit = qRgb(0x3A, 0x38, 0x22);
constexpr QRgb kDarkMark = qRgb(0x8F, 0x5A, 0x1C);

bool IsDark(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

}  // namespace

GridColours ColoursOfGrid(const QPalette& palette, bool within_edit_limit) {
  if (IsDark(palette)) {
    // The palette of the application: the grid's own one may already carry the colour of an earlier file.
    const QColor base = palette.color(QPalette::AlternateBase).darker(115);
    return {within_edit_limit ? base : QColor(kDarkSheetAboveLimit), QColor(kDarkMark), QColor(Qt::white)};
  }
  return {QColor(within_edit_limit ? kSheet : kSheetAboveLimit), QColor(kMark), QColor(Qt::black)};
}

GridHeader::GridHeader(Qt::Orientation orientation, const DataSet& data_set, QWidget* parent)
    : QHeaderView(orientation, parent), data_(data_set) {
  setSectionsClickable(true);
  setHighlightSections(false);
  setDefaultAlignment(orientation == Qt::Horizontal ? Qt::AlignCenter : Qt::AlignVCenter | Qt::AlignRight);
}

bool GridHeader::IsMarked(int section) const {
  const std::size_t cursor = orientation() == Qt::Horizontal ? data_.CurrentColumn : data_.CurrentRow;
  return cursor == static_cast<std::size_t>(section) + 1;
}

QSize GridHeader::sectionSizeFromContents(int section) const {
  QSize size = QHeaderView::sectionSizeFromContents(section);
  if (orientation() == Qt::Vertical) {  // room for the widest record number, so that scrolling never moves the columns
    const QString widest = QString::number(std::max<std::size_t>(data_.GridRecords(), 1000));
    size.setWidth(fontMetrics().horizontalAdvance(widest) + fontMetrics().averageCharWidth() * 3);
  }
  return size;
}

void GridHeader::paintSection(QPainter* painter, const QRect& rect, int section) const {
  const GridColours colours = ColoursOfGrid(palette(), true);
  const bool marked = IsMarked(section);
  painter->fillRect(rect, marked ? colours.mark : palette().color(QPalette::Window));

  QColor line = palette().color(QPalette::WindowText);
  line.setAlphaF(0.18F);
  painter->setPen(line);
  painter->drawLine(rect.bottomLeft(), rect.bottomRight());
  painter->drawLine(rect.topRight(), rect.bottomRight());

  QFont font = this->font();
  font.setBold(orientation() == Qt::Horizontal);
  painter->setFont(font);
  QColor text = marked ? colours.mark_text : palette().color(QPalette::WindowText);
  if (!marked && orientation() == Qt::Vertical) text.setAlphaF(0.7F);
  painter->setPen(text);
  const int margin = fontMetrics().averageCharWidth();
  const QString caption = model()->headerData(section, orientation(), Qt::DisplayRole).toString();
  painter->drawText(rect.adjusted(margin / 2, 0, -margin / 2 - 1, 0), static_cast<int>(defaultAlignment()),
                    QFontMetrics(font).elidedText(caption, Qt::ElideRight, rect.width() - margin));
}

}  // namespace tessara
