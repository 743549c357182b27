#pragma once

#include <QHeaderView>

#include "data/data_set.h"

namespace tessara {

// The colours of the grid. The design states them for a light window; a dark one takes colours of the same sense.
struct GridColours {
  QColor sheet;
  QColor mark;
  QColor mark_text;
};
GridColours ColoursOfGrid(const QPalette& palette, bool within_edit_limit);

// A heading row or the column of record numbers. The section of the grid cursor is marked.
class GridHeader : public QHeaderView {
  Q_OBJECT

 public:
  GridHeader(Qt::Orientation orientation, const DataSet& data_set, QWidget* parent = nullptr);

  // Whether a section, from 0, carries the mark of the cursor.
  bool IsMarked(int section) const;

 protected:
  void paintSection(QPainter* painter, const QRect& rect, int section) const override;
  QSize sectionSizeFromContents(int section) const override;

 private:
  const DataSet& data_;
};

}  // namespace tessara
