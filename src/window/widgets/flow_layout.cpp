#include "window/widgets/flow_layout.h"

#include <algorithm>

namespace tessara {

FlowLayout::FlowLayout(QWidget* parent, int gap) : QLayout(parent), gap_(gap) { setContentsMargins(0, 0, 0, 0); }

FlowLayout::~FlowLayout() {
  for (QLayoutItem* item : items_) delete item;
}

void FlowLayout::addItem(QLayoutItem* item) { items_.push_back(item); }

QLayoutItem* FlowLayout::itemAt(int index) const {
  return index >= 0 && index < count() ? items_[static_cast<std::size_t>(index)] : nullptr;
}

QLayoutItem* FlowLayout::takeAt(int index) {
  QLayoutItem* taken = itemAt(index);
  if (taken) items_.erase(items_.begin() + index);
  return taken;
}

std::vector<FlowLayout::Row> FlowLayout::RowsWithin(int width) const {
  std::vector<Row> rows;
  for (std::size_t i = 0; i < items_.size(); ++i) {
    if (items_[i]->isEmpty()) continue;
    QSize wanted = items_[i]->sizeHint();
    // One that flows itself takes more rows of its own.
    if (wanted.width() > width && items_[i]->hasHeightForWidth()) wanted = {width, items_[i]->heightForWidth(width)};
    if (rows.empty() || rows.back().width + gap_ + wanted.width() > width) {
      rows.push_back({i, i + 1, wanted.width(), wanted.height()});
      continue;
    }
    Row& row = rows.back();
    row.behind = i + 1;
    row.width += gap_ + wanted.width();
    row.height = std::max(row.height, wanted.height());
  }
  return rows;
}

int FlowLayout::heightForWidth(int width) const {
  int height = 0;
  for (const Row& row : RowsWithin(width)) height += row.height + (height > 0 ? gap_ : 0);
  return height;
}

QSize FlowLayout::sizeHint() const {
  QSize size;
  for (const Row& row : RowsWithin(QLAYOUTSIZE_MAX)) size = {row.width, row.height};
  return size;
}

QSize FlowLayout::minimumSize() const {
  QSize size;
  for (const QLayoutItem* item : items_) {
    if (!item->isEmpty()) size = size.expandedTo(item->minimumSize());
  }
  return size;
}

void FlowLayout::setGeometry(const QRect& place) {
  QLayout::setGeometry(place);
  int top = place.top();
  for (const Row& row : RowsWithin(place.width())) {
    int left = place.left();
    for (std::size_t i = row.first; i < row.behind; ++i) {
      if (items_[i]->isEmpty()) continue;
      const QSize size(std::min(items_[i]->sizeHint().width(), place.width()), row.height);
      if (last_at_right_ && i + 1 == items_.size()) left = std::max(left, place.right() + 1 - size.width());
      items_[i]->setGeometry(QRect(QPoint(left, top), size));
      left += size.width() + gap_;
    }
    top += row.height + gap_;
  }
}

}  // namespace tessara
