#pragma once

#include <QHeaderView>
#include <QStyledItemDelegate>

#include "presentation/table_face.h"

// How the summary table looks: like a table in a paper, ruled above and below its headings and at its end, without
// lines between the cells.

namespace tessara {

class TableModel;

// A column is so many characters wider than what it has room for: half of them stand at either side of a text.
inline constexpr double kAir = 1;

// The ground of selected cells: the palette's colour for selections, thinned so that the words stay as they are.
QColor SelectionTint(const QPalette& palette);

class TableLook : public QStyledItemDelegate {
  Q_OBJECT

 public:
  TableLook(const TableModel& model, const TableFace& face, QObject* parent);

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

 private:
  void PaintRules(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;

  const TableModel& model_;
  const TableFace& face_;
};

// An edge of the sheet: a slim bar that shows which rows or columns are selected. A press selects a row or column, and
// between two columns it sets a width.
class TableEdge : public QHeaderView {
  Q_OBJECT

 public:
  TableEdge(Qt::Orientation orientation, const TableFace& face, QWidget* parent);

  void MeasureEdge();

 signals:
  void Released();

 protected:
  void paintSection(QPainter* painter, const QRect& rect, int section) const override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  const TableFace& face_;
};

}  // namespace tessara
