#include "window/output/table_sheet.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <algorithm>
#include <cmath>

#include "shell/command_row.h"
#include "window/grid/grid_keys.h"
#include "window/output/table_keys.h"
#include "window/output/table_look.h"
#include "window/output/table_model.h"
#include "window/system/page_painter.h"
#include "window/widgets/hint_label.h"

namespace tessara {
namespace {

constexpr int kDragInterval = 50;             // milliseconds
constexpr double kMostShownCharacters = 400;  // of one column
constexpr double kLeastCharacters = 3;

int At(std::size_t number) { return static_cast<int>(number) - 1; }
std::size_t NumberOf(int section) { return static_cast<std::size_t>(section) + 1; }

bool Shifted(const QKeyEvent& event) { return (event.modifiers() & Qt::ShiftModifier) != 0; }

}  // namespace

TableSheet::TableSheet(const TableGrid& grid, TableFace& face, QWidget* parent) : TypingView(parent), face_(face) {
  auto* model = new TableModel(grid, this);
  setObjectName("MSFlexGrid2");
  setAccessibleName(tr("Summary table"));
  setModel(model);
  setItemDelegate(new TableLook(*model, face_, this));
  setEditTriggers(NoEditTriggers);
  setSelectionMode(ContiguousSelection);
  setTabKeyNavigation(false);
  setShowGrid(false);
  setWordWrap(false);
  setCornerButtonEnabled(false);
  setAutoScroll(false);  // the sheet itself tells when a place comes into sight
  setFrameShape(NoFrame);
  setHorizontalScrollMode(ScrollPerPixel);
  hint_ = new HintLabel(QPalette::Text, viewport());
  hint_->setObjectName("TableHint");
  hint_->setAlignment(Qt::AlignCenter);
  hint_->setWordWrap(true);
  hint_->setAttribute(Qt::WA_TransparentForMouseEvents);
  hint_->setText(
      tr("There is no summary table yet.\n\n"
         "Choose Summary Tables in Stat Procs and run it: each run adds its rows and columns here."));
  hint_->setVisible(grid.empty());
  BuildEdges();
  ApplyType();
}

TableModel& TableSheet::table() const { return *static_cast<TableModel*>(model()); }

void TableSheet::BuildEdges() {
  columns_ = new TableEdge(Qt::Horizontal, face_, this);
  rows_ = new TableEdge(Qt::Vertical, face_, this);
  columns_->setObjectName("TableColumns");
  rows_->setObjectName("TableRows");
  setHorizontalHeader(columns_);
  setVerticalHeader(rows_);
  rows_->setSectionResizeMode(QHeaderView::Fixed);
  ConnectEdge(columns_);
  ConnectEdge(rows_);
  connect(columns_, &QHeaderView::sectionResized, this, [this](int section) {
    if (shaping_ == 0) dragged_column_ = section;
    emit Moved();
  });
  connect(columns_, &TableEdge::Released, this, &TableSheet::TakeWidth);
  connect(columns_, &QHeaderView::sectionHandleDoubleClicked, this, [this](int section) {
    dragged_column_ = -1;
    emit FitAsked(NumberOf(section));
  });
}

void TableSheet::ConnectEdge(TableEdge* edge) {
  const Qt::Orientation orientation = edge->orientation();
  disconnect(edge, &QHeaderView::sectionPressed, this, nullptr);
  disconnect(edge, &QHeaderView::sectionEntered, this, nullptr);
  connect(edge, &QHeaderView::sectionPressed, this, [this, orientation](int section) {
    emit Leaving();
    setFocus(Qt::MouseFocusReason);
    SelectSection(orientation, section, (QApplication::keyboardModifiers() & Qt::ShiftModifier) != 0);
  });
  connect(edge, &QHeaderView::sectionEntered, this,
          [this, orientation](int section) { SelectSection(orientation, section, true); });
  edge->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(edge, &QWidget::customContextMenuRequested, this, [this, edge, orientation](const QPoint& place) {
    const int section = edge->logicalIndexAt(place);
    if (section < 0) return;
    emit Leaving();
    const TableBlock block = SelectedBlock(face_);
    const bool within = orientation == Qt::Horizontal
                            ? NumberOf(section) >= block.first_column && NumberOf(section) <= block.last_column
                            : NumberOf(section) >= block.first_row && NumberOf(section) <= block.last_row;
    if (!within) SelectSection(orientation, section, false);
    emit MenuAsked(edge->viewport()->mapToGlobal(place));
  });
}

// The whole of a column or row, or all from that of the cursor to it.
void TableSheet::SelectSection(Qt::Orientation orientation, int section, bool extends) {
  const TableGrid& grid = table().grid();
  const std::size_t number = NumberOf(section);
  const TablePlace& cursor = face_.selection.cursor;
  if (orientation == Qt::Horizontal) {
    Place({1, extends ? cursor.column : number}, {std::max<std::size_t>(grid.RowCount(), 1), number});
  } else {
    Place({extends ? cursor.row : number, 1}, {number, std::max<std::size_t>(grid.ColumnCount(), 1)});
  }
}

// What the mouse has left a column with, in whole characters.
void TableSheet::TakeWidth() {
  const int column = std::exchange(dragged_column_, -1);
  if (column < 0) return;
  const double characters = std::round(columnWidth(column) / QFontMetricsF(font()).horizontalAdvance('0') - kAir);
  emit WidthAsked(NumberOf(column), std::max(characters, kLeastCharacters) * kCharacterWidth);
}

// What is shown of the table.

void TableSheet::ShowTable() {
  if (table().Refresh()) {
    ShowShape();
    hint_->setVisible(table().grid().empty());
    PlaceHint();
  }
  FollowTable(table().grid(), face_);
  if (shown_selection_ != face_.selection) {
    ShowSelection();
    scrollTo(model()->index(At(face_.selection.end.row), At(face_.selection.end.column)));
  }
  viewport()->update();
  emit Moved();
}

void TableSheet::SetZoom(int percent) {
  if (percent == zoom_) return;
  zoom_ = percent;
  ApplyType();
}

void TableSheet::ApplyType() {
  QFont type = FixedPitchFont();
  type.setPointSizeF(QApplication::font().pointSizeF() * zoom_ / 100.0);
  setFont(type);
  QFont words = QApplication::font();
  words.setResolveMask(QFont::AllPropertiesResolved);  // and not the type of the sheet
  hint_->setFont(words);
  columns_->MeasureEdge();
  rows_->MeasureEdge();
  columns_->setMinimumSectionSize(QFontMetrics(type).horizontalAdvance('0') * 2);
  airy_rows_.clear();
  rows_->setMinimumSectionSize(0);
  rows_->setDefaultSectionSize(QFontMetrics(type).height() * 3 / 2);
  ShowShape();
  PlaceHint();
  emit Moved();
}

// The widths of the columns, and some air above the headings of groups.
void TableSheet::ShowShape() {
  const QScopedValueRollback<int> guard(shaping_, shaping_ + 1);
  const TableGrid& grid = table().grid();
  const double character = QFontMetricsF(font()).horizontalAdvance('0');
  for (int column = 0; column < table().columnCount(); ++column) {
    const double characters = std::min(grid.Width(NumberOf(column)) / kCharacterWidth, kMostShownCharacters);
    const int width = static_cast<int>(std::ceil((characters + kAir) * character));
    if (columnWidth(column) != width) setColumnWidth(column, width);
  }
  std::vector<int> airy;
  for (std::size_t row = 1; row <= grid.RowCount(); ++row) {
    if (table().RowKind(At(row)) != TableRowKind::kPlain) airy.push_back(At(row));
  }
  if (airy == airy_rows_) return;
  const int height = rows_->defaultSectionSize();
  for (const int row : airy_rows_) {
    if (row < table().rowCount()) rows_->resizeSection(row, height);
  }
  for (const int row : airy) rows_->resizeSection(row, height * 5 / 4);
  airy_rows_ = std::move(airy);
}

void TableSheet::ShowSelection() {
  shown_selection_ = face_.selection;
  const TableBlock block = SelectedBlock(face_);
  const QModelIndex first = model()->index(At(block.first_row), At(block.first_column));
  const QModelIndex last = model()->index(At(block.last_row), At(block.last_column));
  const TablePlace& cursor = face_.selection.cursor;
  selectionModel()->select({first, last}, QItemSelectionModel::ClearAndSelect);
  selectionModel()->setCurrentIndex(model()->index(At(cursor.row), At(cursor.column)), QItemSelectionModel::NoUpdate);
  viewport()->update();
  columns_->viewport()->update();
  rows_->viewport()->update();
}

void TableSheet::Select(const TablePlace& cursor, const TablePlace& end) {
  Place(cursor, end);
  scrollTo(model()->index(At(face_.selection.end.row), At(face_.selection.end.column)));
}

// The same where the sheet stays where it is.
void TableSheet::Place(const TablePlace& cursor, const TablePlace& end) {
  if (cursor != face_.selection.cursor) emit Leaving();
  const TableSelection before = face_.selection;
  SelectInTable(table().grid(), face_, cursor, end);
  ShowSelection();
  if (before != face_.selection) emit CursorMoved();
}

void TableSheet::selectAll() { emit CommandAsked(kSelectAllCommand); }

QRect TableSheet::PlaceOfCursor() const {
  return visualRect(model()->index(At(face_.selection.cursor.row), At(face_.selection.cursor.column)));
}

// The keyboard.

bool TableSheet::event(QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool forward = key->key() == Qt::Key_Tab;
    if ((forward || key->key() == Qt::Key_Backtab) && (key->modifiers() & Qt::ControlModifier) == 0) {
      const TablePlace& cursor = face_.selection.cursor;
      const TablePlace place = PlaceBehind(table().grid(), cursor, forward ? TableMove::kNext : TableMove::kPrevious);
      if (place != cursor) {  // at both ends of the sheet the keyboard goes on to what stands beside it
        Select(place);
        return true;
      }
    }
  }
  return QTableView::event(event);
}

void TableSheet::keyPressEvent(QKeyEvent* event) {
  if (PressCommand(*event)) return;
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  const bool extends = Shifted(*event) && !enter;
  const TablePlace cursor = face_.selection.cursor;
  const int rows_in_sight = viewport()->height() / std::max(rows_->defaultSectionSize(), 1);
  const auto page = static_cast<std::size_t>(std::max(rows_in_sight - 1, 1));
  if (const auto place = TablePlaceByKey(*event, table().grid(), extends ? face_.selection.end : cursor, page)) {
    Select(extends ? cursor : *place, *place);
    return;
  }
  PressKey(event);
}

// The commands whose keys the frame has not taken.
bool TableSheet::PressCommand(const QKeyEvent& event) {
  struct Key {
    QKeySequence::StandardKey key;
    int command;
  };
  constexpr Key kKeys[] = {{QKeySequence::Copy, kCopyCommand},   {QKeySequence::Cut, kCutCommand},
                           {QKeySequence::Paste, kPasteCommand}, {QKeySequence::SelectAll, kSelectAllCommand},
                           {QKeySequence::Undo, kUndoCommand},   {QKeySequence::Redo, kRedoCommand}};
  const auto* const found =
      std::ranges::find_if(kKeys, [&event](const Key& key) { return const_cast<QKeyEvent&>(event).matches(key.key); });
  if (found == std::end(kKeys)) return false;
  emit CommandAsked(found->command);
  return true;
}

bool TableSheet::PressSpace(const QKeyEvent& event) {
  const bool column = (event.modifiers() & Qt::ControlModifier) != 0;
  if (event.key() != Qt::Key_Space || (!column && !Shifted(event))) return false;
  const TablePlace& cursor = face_.selection.cursor;
  if (column) {
    SelectSection(Qt::Horizontal, At(cursor.column), false);
  } else {
    SelectSection(Qt::Vertical, At(cursor.row), false);
  }
  return true;
}

// The keys that move nothing.
void TableSheet::PressKey(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Escape:
      return Select(face_.selection.cursor);
    case Qt::Key_F2:
      emit EditAsked();
      return;
    case Qt::Key_Delete:
      emit ClearAsked();
      return;
    case Qt::Key_Backspace:
      emit Typed("");
      return;
    default:
      break;
  }
  if (PressSpace(*event)) return;
  TypeKey(*event);
}

// The mouse.

// The cell there, or the one nearest to a place outside the cells.
TablePlace TableSheet::PlaceAt(const QPoint& position) const {
  const int row = rowAt(position.y());
  const int column = columnAt(position.x());
  const int last_row = position.y() < 0 ? 0 : model()->rowCount() - 1;
  const int last_column = position.x() < 0 ? 0 : model()->columnCount() - 1;
  return {NumberOf(row >= 0 ? row : last_row), NumberOf(column >= 0 ? column : last_column)};
}

void TableSheet::mousePressEvent(QMouseEvent* event) {
  const QPoint position = event->position().toPoint();
  if (!indexAt(position).isValid()) return;
  emit Leaving();
  const TablePlace place = PlaceAt(position);
  if (event->button() == Qt::RightButton) {
    const TableBlock block = SelectedBlock(face_);
    const bool within = place.row >= block.first_row && place.row <= block.last_row &&
                        place.column >= block.first_column && place.column <= block.last_column;
    if (!within) Select(place);
    return;
  }
  if (event->button() != Qt::LeftButton) return;
  const bool extends = (event->modifiers() & Qt::ShiftModifier) != 0;
  Select(extends ? face_.selection.cursor : place, place);
  dragging_ = true;
}

void TableSheet::mouseMoveEvent(QMouseEvent* event) {
  if (!dragging_) return;
  drag_position_ = event->position().toPoint();
  if (viewport()->rect().contains(drag_position_)) {
    drag_timer_.stop();
    DragTo(drag_position_);
  } else if (!drag_timer_.isActive()) {  // outside, the sheet scrolls on
    drag_timer_.start(kDragInterval, this);
  }
}

void TableSheet::DragTo(const QPoint& position) {
  const TablePlace place = PlaceAt(position);
  if (place != face_.selection.end) Select(face_.selection.cursor, place);
}

void TableSheet::timerEvent(QTimerEvent* event) {
  if (event->timerId() != drag_timer_.timerId()) return QTableView::timerEvent(event);
  // One row or column beyond what is in sight.
  const QRect seen = viewport()->rect();
  const QPoint inside(std::clamp(drag_position_.x(), seen.left(), seen.right()),
                      std::clamp(drag_position_.y(), seen.top(), seen.bottom()));
  TablePlace place = PlaceAt(inside);
  if (drag_position_.y() > seen.bottom()) ++place.row;
  if (drag_position_.y() < seen.top() && place.row > 1) --place.row;
  if (drag_position_.x() > seen.right()) ++place.column;
  if (drag_position_.x() < seen.left() && place.column > 1) --place.column;
  if (place != face_.selection.end) Select(face_.selection.cursor, place);
}

void TableSheet::mouseReleaseEvent(QMouseEvent* event) {
  Q_UNUSED(event);
  dragging_ = false;
  drag_timer_.stop();
}

void TableSheet::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !indexAt(event->position().toPoint()).isValid()) return;
  Select(PlaceAt(event->position().toPoint()));
  emit EditAsked();
}

void TableSheet::contextMenuEvent(QContextMenuEvent* event) {
  const bool by_mouse = event->reason() != QContextMenuEvent::Keyboard;
  emit MenuAsked(by_mouse ? event->globalPos() : viewport()->mapToGlobal(PlaceOfCursor().bottomLeft()));
}

// Place.

void TableSheet::PlaceHint() {
  const int inset = fontMetrics().height();
  hint_->setGeometry(viewport()->rect().adjusted(inset, inset, -inset, -inset));
}

void TableSheet::scrollContentsBy(int dx, int dy) {
  QTableView::scrollContentsBy(dx, dy);
  PlaceHint();
  emit Moved();
}

void TableSheet::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  PlaceHint();
  emit Moved();
}

void TableSheet::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (event->type() == QEvent::ApplicationFontChange && columns_) ApplyType();
}

}  // namespace tessara
