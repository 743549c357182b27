#pragma once

#include <QBasicTimer>

#include "data/data_set.h"
#include "data/edit/grid_block.h"
#include "window/grid/grid_header.h"
#include "window/grid/typing_view.h"

// The table of the Data Grid, with its own headings, which mark the current cell. The cursor is that of the data set;
// the selection is a block with the cursor in one of its corners. The view writes nothing: what a user wants to do to
// the cells it tells by signals.

namespace tessara {

class GridModel;

class GridView : public TypingView {
  Q_OBJECT

 public:
  explicit GridView(DataSet& data_set, QWidget* parent = nullptr);

  // Shows a data set from its beginning: widths, colours and cursor.
  void ShowData();
  // Looks at the data set again and shows what has changed: selection, scroll position and widths stay where they can,
  // and only new columns are measured. False when nothing has changed.
  bool ShowChanges();
  // The selection. With the cursor in the heading row it holds whole columns with their headings, with the cursor in
  // the column of the record numbers whole rows.
  const GridBlock& Selection() const { return block_; }
  // Moves the cursor and selects what is between it and another place.
  void Select(const GridPlace& cursor, const GridPlace& end);
  void Select(const GridPlace& cursor) { Select(cursor, cursor); }
  // The selection that an operation has made around the cursor.
  void ShowSelection(const GridBlock& block);
  // Where the box for an entry has to be laid, and the widget that it is laid on.
  struct EntryPlace {
    QWidget* ground = nullptr;
    QRect place;
  };
  EntryPlace PlaceOfEntry(const GridPlace& cell);
  // The number under which a reader of the screen has a place among the grid's parts: row by row, the headings and the
  // record numbers first.
  int SpokenPart(const GridPlace& place) const;
  // Keeps a widget on the grid in its middle, over the cells.
  void StandInMiddle(QWidget* widget);

  void setModel(QAbstractItemModel* grid_model) override;
  void selectAll() override;

 signals:
  void CopyAsked();
  void CursorMoved();
  // A press of the mouse on a cell or heading, also on the one that the cursor was on already.
  void Pressed();
  // The user is about to take the cursor elsewhere.
  void Leaving();
  void EditAsked();
  // Enter or Escape, which begin no entry.
  void IdleKey();
  void ClearAsked();
  void MenuAsked(const QPoint& place);
  // Cells have moved on the screen.
  void Moved();

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

 private:
  class Placing;

  const GridModel& grid() const;
  void BuildHeaders();
  void ConnectHeader(GridHeader* header);
  void AskForHeaderMenu(const GridHeader* header, const QPoint& place);
  GridPlace PlaceAt(const QPoint& position) const;
  void DragTo(const QPoint& position);
  bool IsSelected(const GridPlace& place) const;
  void PressKey(QKeyEvent* event);
  void ShowBlock();
  void ShowCursor();
  void ScrollTo(const GridPlace& place);
  void TakeSelectionOver();
  void ApplyColours();
  void ApplyWidths(int first, int last);
  void MeasureRows();
  void PlaceMiddle();
  void TellFocus();

  DataSet& data_;
  QWidget* middle_ = nullptr;
  GridPlace end_;           // the corner of the selection that moves
  GridBlock block_;         // the selection
  GridPlace shown_cursor_;  // as the data set had it
  int placing_ = 0;         // selection and current cell follow the cursor, not the other way round
  bool dragging_ = false;
  QPoint drag_position_;
  QBasicTimer drag_timer_;
};

}  // namespace tessara
