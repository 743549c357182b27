#pragma once

#include <QBasicTimer>
#include <vector>

#include "presentation/table_face.h"
#include "window/grid/typing_view.h"

class QLabel;

// The sheet that the summary table stands on. Cursor and selection are those of the table's face; the view writes
// nothing into the table: what a user wants to do to it is told by signals.

namespace tessara {

class TableEdge;
class TableModel;

class TableSheet : public TypingView {
  Q_OBJECT

 public:
  TableSheet(const TableGrid& grid, TableFace& face, QWidget* parent);

  // Looks at table and face again.
  void ShowTable();
  void Select(const TablePlace& cursor, const TablePlace& end);
  void Select(const TablePlace& cursor) { Select(cursor, cursor); }
  QRect PlaceOfCursor() const;
  // The size of the type, in percent of the usual one.
  void SetZoom(int percent);

  void selectAll() override;

 signals:
  void CursorMoved();
  // The user is about to take the cursor elsewhere.
  void Leaving();
  void EditAsked();
  void ClearAsked();
  void CommandAsked(int id);
  void MenuAsked(const QPoint& place);
  // A width that the user has given to a column, in hundredths of a character.
  void WidthAsked(std::size_t column, double width);
  void FitAsked(std::size_t column);
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

 private:
  TableModel& table() const;
  void BuildEdges();
  void ConnectEdge(TableEdge* edge);
  void Place(const TablePlace& cursor, const TablePlace& end);
  void SelectSection(Qt::Orientation orientation, int section, bool extends);
  void TakeWidth();
  bool PressCommand(const QKeyEvent& event);
  bool PressSpace(const QKeyEvent& event);
  void PressKey(QKeyEvent* event);
  TablePlace PlaceAt(const QPoint& position) const;
  void DragTo(const QPoint& position);
  void ApplyType();
  void ShowShape();
  void ShowSelection();
  void PlaceHint();

  TableFace& face_;
  TableEdge* columns_ = nullptr;
  TableEdge* rows_ = nullptr;
  QLabel* hint_ = nullptr;
  int zoom_ = 100;
  int shaping_ = 0;             // widths change by the program's hand
  int dragged_column_ = -1;     // whose width the mouse sets
  std::vector<int> airy_rows_;  // higher than the others
  TableSelection shown_selection_;
  bool dragging_ = false;
  QPoint drag_position_;
  QBasicTimer drag_timer_;
};

}  // namespace tessara
