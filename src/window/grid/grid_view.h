#pragma once

#include <QHeaderView>
#include <QLabel>
#include <QTableView>
#include <utility>

#include "data/data_set.h"

// The table of the Data Grid: read-only, with its own headings, which mark the current cell.

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

class GridView : public QTableView {
  Q_OBJECT

 public:
  explicit GridView(DataSet& data_set, QWidget* parent = nullptr);

  // Shows a data set from its beginning: widths, colours and cursor.
  void ShowData();
  // Looks at the data set again and shows what has changed: selection, scroll position and widths stay where they can,
  // and only new columns are measured. False when nothing has changed.
  bool ShowChanges();
  // The selected block: tabs between cells, CR between rows; empty without a selection.
  std::string SelectedBlock() const;
  // A hint in the middle of an empty grid; empty for none.
  void ShowHint(const QString& hint);

  void setModel(QAbstractItemModel* grid_model) override;
  void keyboardSearch(const QString& search) override;

 signals:
  void CopyAsked();
  void CursorMoved();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  void MoveCursor(std::size_t row, std::size_t column);
  void ApplyColours();
  void ApplyWidths(int first, int last);
  void ShowCursor();
  void MeasureRows();
  void PlaceHint();

  DataSet& data_;
  QLabel* hint_;
  bool showing_ = false;
  std::pair<std::size_t, std::size_t> shown_cursor_;  // row and column, as the data set had them
};

}  // namespace tessara
