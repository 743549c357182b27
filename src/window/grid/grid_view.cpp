#include "window/grid/grid_view.h"

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QScrollBar>
#include <algorithm>

#include "shell/settings.h"
#include "window/grid/grid_keys.h"
#include "window/grid/grid_model.h"
#include "window/widgets/text.h"

namespace tessara {
namespace {

constexpr int kDefaultColumnTwips = 740;
constexpr int kMostColumnCharacters = 28;
constexpr int kRecordsMeasured = 40;  // the first records tell how wide a column wants to be
constexpr int kDragInterval = 50;     // milliseconds

int At(std::size_t number) { return static_cast<int>(number) - 1; }

}  // namespace

// While it lives, what the selection model says is the view's own doing.
class GridView::Placing {
 public:
  explicit Placing(GridView& view) : view_(view) { ++view_.placing_; }
  ~Placing() { --view_.placing_; }
  Placing(const Placing&) = delete;
  Placing& operator=(const Placing&) = delete;

 private:
  GridView& view_;
};

GridView::GridView(DataSet& data_set, QWidget* parent) : TypingView(parent), data_(data_set) {
  BuildHeaders();
  setEditTriggers(NoEditTriggers);
  setSelectionMode(ContiguousSelection);
  setTabKeyNavigation(false);
  setWordWrap(false);
  setFrameShape(NoFrame);
  setHorizontalScrollMode(ScrollPerPixel);
  MeasureRows();
  ApplyColours();
}

void GridView::BuildHeaders() {
  auto* names = new GridHeader(Qt::Horizontal, data_, this);
  auto* numbers = new GridHeader(Qt::Vertical, data_, this);
  setHorizontalHeader(names);
  setVerticalHeader(numbers);
  numbers->setSectionResizeMode(QHeaderView::Fixed);
  names->setMinimumSectionSize(kDefaultColumnTwips / kTwipsPerPixel / 2);
  ConnectHeader(names);
  ConnectHeader(numbers);
  connect(names, &QHeaderView::sectionResized, this, &GridView::Moved);
  connect(names, &QHeaderView::sectionHandleDoubleClicked, this,
          [this](int section) { ApplyWidths(section, section); });
}

// A click on a heading takes the cursor into the heading row, one on a record number into the number column: whole
// columns and whole rows are told from cells by that.
void GridView::ConnectHeader(GridHeader* header) {
  const bool names = header->orientation() == Qt::Horizontal;
  const auto place = [this, names](int section) {
    const auto number = static_cast<std::size_t>(section) + 1;
    return names ? GridPlace{0, number} : GridPlace{number, 0};
  };
  disconnect(header, &QHeaderView::sectionPressed, this, nullptr);
  disconnect(header, &QHeaderView::sectionEntered, this, nullptr);
  connect(header, &QHeaderView::sectionPressed, this, [this, place, names](int section) {
    const bool extends = (QApplication::keyboardModifiers() & Qt::ShiftModifier) != 0 &&
                         (names ? data_.CurrentRow : data_.CurrentColumn) == 0;
    emit Leaving();
    setFocus(Qt::MouseFocusReason);
    Select(extends ? CursorOf(data_) : place(section), place(section));
    emit Pressed();
  });
  connect(header, &QHeaderView::sectionEntered, this, [this, place, names](int section) {
    if ((names ? data_.CurrentRow : data_.CurrentColumn) == 0) Select(CursorOf(data_), place(section));
  });
  header->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(header, &QWidget::customContextMenuRequested, this,
          [this, header](const QPoint& position) { AskForHeaderMenu(header, position); });
}

void GridView::AskForHeaderMenu(const GridHeader* header, const QPoint& place) {
  const bool names = header->orientation() == Qt::Horizontal;
  const int section = header->logicalIndexAt(place);
  if (section < 0) return;
  const auto number = static_cast<std::size_t>(section) + 1;
  const GridPlace heading = names ? GridPlace{0, number} : GridPlace{number, 0};
  emit Leaving();
  if ((names ? data_.CurrentRow : data_.CurrentColumn) != 0 || !IsSelected(heading)) Select(heading);
  emit MenuAsked(header->viewport()->mapToGlobal(place));
}

const GridModel& GridView::grid() const { return *static_cast<const GridModel*>(model()); }

void GridView::MeasureRows() {
  const int row_height = fontMetrics().height() + fontMetrics().height() / 2;
  verticalHeader()->setMinimumSectionSize(row_height);
  verticalHeader()->setDefaultSectionSize(row_height);
  horizontalHeader()->setFixedHeight(row_height + row_height / 6);
}

void GridView::setModel(QAbstractItemModel* grid_model) {
  QTableView::setModel(grid_model);
  connect(grid_model, &QAbstractItemModel::columnsInserted, this,
          [this](const QModelIndex&, int first, int last) { ApplyWidths(first, last); });
}

// What is shown of the data.

void GridView::ShowData() {
  const Placing placing(*this);
  ApplyColours();
  ApplyWidths(0, model()->columnCount() - 1);
  ShowCursor();
  PlaceMiddle();
}

bool GridView::ShowChanges() {
  const Placing placing(*this);  // the cursor of the data set is not the view's to move meanwhile
  const GridModel::Outcome outcome = static_cast<GridModel*>(model())->Refresh();
  const bool moved = shown_cursor_ != CursorOf(data_);
  if (outcome == GridModel::Outcome::kNothing) {
    if (moved) ShowCursor();
    return moved;
  }
  if (outcome == GridModel::Outcome::kEverything) {
    ShowData();
    return true;
  }
  ApplyColours();
  if (moved || data_.CurrentRow == 0 || data_.CurrentColumn == 0 || !currentIndex().isValid()) {
    ShowCursor();  // the operation has moved it, or the rows or columns that it stood for
  } else {
    MoveCursor(data_, {static_cast<std::size_t>(currentIndex().row()) + 1,  // cells ahead of it came or went
                       static_cast<std::size_t>(currentIndex().column()) + 1});
    shown_cursor_ = CursorOf(data_);
    TakeSelectionOver();
  }
  return true;
}

void GridView::ShowCursor() {
  end_ = CursorOf(data_);
  ShowBlock();
  ScrollTo(CursorOf(data_));
}

void GridView::ScrollTo(const GridPlace& place) {
  const QModelIndex cell = model()->index(std::max(At(place.row), 0), std::max(At(place.column), 0));
  if (!cell.isValid()) return;
  // A heading is in sight whatever the rows are, and a record number whatever the columns are.
  const int across = horizontalScrollBar()->value();
  const int down = verticalScrollBar()->value();
  scrollTo(cell);
  if (place.row == 0) verticalScrollBar()->setValue(down);
  if (place.column == 0) horizontalScrollBar()->setValue(across);
}

// Shows the block between the cursor and the end of the selection.
void GridView::ShowBlock() {
  const Placing placing(*this);
  const GridPlace cursor = CursorOf(data_);
  shown_cursor_ = cursor;
  block_ = BlockBetween(cursor, end_);
  // A heading stands for its variable, a record number for its record; the corner that is left when the first of them
  // is deleted stands for nothing.
  const bool corner = cursor == GridPlace{0, 0};
  if (cursor.row == 0 && !corner) block_.last_row = data_.GridRecords();
  if (cursor.column == 0 && !corner) block_.last_column = data_.GridVariables();
  const QModelIndex first = model()->index(std::max(At(block_.first_row), 0), std::max(At(block_.first_column), 0));
  const QModelIndex last = model()->index(At(block_.last_row), At(block_.last_column));
  const QModelIndex current = model()->index(std::max(At(cursor.row), 0), std::max(At(cursor.column), 0));
  if (first.isValid() && last.isValid()) {
    selectionModel()->select({first, last}, QItemSelectionModel::ClearAndSelect);
  } else {
    selectionModel()->clearSelection();
  }
  if (current.isValid()) selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
  horizontalHeader()->viewport()->update();
  verticalHeader()->viewport()->update();
  TellFocus();
}

int GridView::SpokenPart(const GridPlace& place) const {
  return static_cast<int>(place.row) * (model()->columnCount() + 1) + static_cast<int>(place.column);
}

// A heading or a record number is no cell of the model, so that nobody else tells those who have the grid read to them.
void GridView::TellFocus() {
  const GridPlace cursor = CursorOf(data_);
  if (!QAccessible::isActive() || (cursor.row != 0 && cursor.column != 0)) return;
  QAccessibleEvent event(this, QAccessible::Focus);
  event.setChild(SpokenPart(cursor));
  QAccessible::updateAccessibility(&event);
}

void GridView::Select(const GridPlace& cursor, const GridPlace& end) {
  const bool moves = cursor != CursorOf(data_);
  if (moves) emit Leaving();
  MoveCursor(data_, cursor);
  end_ = end;
  ShowBlock();
  ScrollTo(end);
  if (moves) emit CursorMoved();
}

void GridView::ShowSelection(const GridBlock& block) {
  const GridPlace cursor = CursorOf(data_);
  end_ = {cursor.row == block.last_row ? block.first_row : block.last_row,
          cursor.column == block.last_column ? block.first_column : block.last_column};
  ShowBlock();
}

void GridView::selectAll() {
  if (data_.GridRecords() == 0 || data_.GridVariables() == 0) return;
  emit Leaving();
  const bool moves = CursorOf(data_) != GridPlace{1, 1};
  MoveCursor(data_, {1, 1});
  end_ = {data_.GridRecords(), data_.GridVariables()};
  ShowBlock();
  if (moves) emit CursorMoved();
}

// The selection as the selection model has it.
void GridView::TakeSelectionOver() {
  const QItemSelection selection = selectionModel()->selection();
  block_ = BlockBetween(CursorOf(data_), CursorOf(data_));
  if (!selection.isEmpty()) {
    const QItemSelectionRange& range = selection.front();
    block_ = {static_cast<std::size_t>(range.top()) + 1, static_cast<std::size_t>(range.bottom()) + 1,
              static_cast<std::size_t>(range.left()) + 1, static_cast<std::size_t>(range.right()) + 1};
  }
}

void GridView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QTableView::selectionChanged(selected, deselected);
  if (placing_ == 0) TakeSelectionOver();
}

void GridView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  if (placing_ != 0 || !current.isValid()) return;
  MoveCursor(data_, {static_cast<std::size_t>(current.row()) + 1, static_cast<std::size_t>(current.column()) + 1});
  end_ = shown_cursor_ = CursorOf(data_);
  horizontalHeader()->viewport()->update();
  verticalHeader()->viewport()->update();
  emit CursorMoved();
}

bool GridView::IsSelected(const GridPlace& place) const {
  return place.row >= block_.first_row && place.row <= block_.last_row && place.column >= block_.first_column &&
         place.column <= block_.last_column;
}

GridView::EntryPlace GridView::PlaceOfEntry(const GridPlace& cell) {
  if (cell.row == 0) {
    const QHeaderView* names = horizontalHeader();
    const int section = At(cell.column);
    return {names->viewport(),
            {names->sectionViewportPosition(section), 0, names->sectionSize(section), names->height()}};
  }
  return {viewport(), visualRect(model()->index(At(cell.row), At(cell.column)))};
}

// The keyboard.

bool GridView::event(QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool forward = key->key() == Qt::Key_Tab;
    if ((forward || key->key() == Qt::Key_Backtab) && (key->modifiers() & Qt::ControlModifier) == 0) {
      if (const auto place = PlaceByTab(data_, CursorOf(data_), forward)) {
        Select(*place);
        return true;
      }
    }
  }
  return QTableView::event(event);
}

void GridView::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) {
    emit CopyAsked();
    return;
  }
  const bool extends = (event->modifiers() & Qt::ShiftModifier) != 0;
  const GridPlace cursor = CursorOf(data_);
  const int rows_in_sight = viewport()->height() / std::max(verticalHeader()->defaultSectionSize(), 1);
  const auto page = static_cast<std::size_t>(std::max(rows_in_sight - 1, 1));
  if (const auto place = PlaceByKey(*event, data_, extends ? end_ : cursor, page)) {
    Select(extends ? cursor : *place, *place);
    return;
  }
  PressKey(event);
}

// The keys that move nothing.
void GridView::PressKey(QKeyEvent* event) {
  const GridPlace cursor = CursorOf(data_);
  switch (event->key()) {
    case Qt::Key_Escape:
      Select(cursor);
      emit IdleKey();
      return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      emit IdleKey();
      return;
    case Qt::Key_F2:
      emit EditAsked();
      return;
    case Qt::Key_Delete:
      emit ClearAsked();
      return;
    case Qt::Key_Backspace:
      emit Typed("");
      return;
    case Qt::Key_Space:
      if ((event->modifiers() & Qt::ControlModifier) != 0) return Select({0, std::max<std::size_t>(cursor.column, 1)});
      if ((event->modifiers() & Qt::ShiftModifier) != 0) return Select({std::max<std::size_t>(cursor.row, 1), 0});
      break;
    default:
      break;
  }
  TypeKey(*event);
}

// The mouse.

// The cell there, or the one nearest to a place outside the cells.
GridPlace GridView::PlaceAt(const QPoint& position) const {
  const int row = rowAt(position.y());
  const int column = columnAt(position.x());
  const std::size_t last_row = data_.GridRecords();
  const std::size_t last_column = data_.GridVariables();
  GridPlace place;
  if (row >= 0) {
    place.row = static_cast<std::size_t>(row) + 1;
  } else {
    place.row = position.y() < 0 ? static_cast<std::size_t>(std::max(rowAt(0), 0)) + 1 : last_row;
  }
  if (column >= 0) {
    place.column = static_cast<std::size_t>(column) + 1;
  } else {
    place.column = position.x() < 0 ? static_cast<std::size_t>(std::max(columnAt(0), 0)) + 1 : last_column;
  }
  return place;
}

void GridView::mousePressEvent(QMouseEvent* event) {
  const QPoint position = event->position().toPoint();
  if (!indexAt(position).isValid()) return;
  emit Leaving();
  const GridPlace place = PlaceAt(position);
  if (event->button() == Qt::RightButton) {
    if (!IsSelected(place)) Select(place);
    return;
  }
  if (event->button() != Qt::LeftButton) return;
  const bool extends = (event->modifiers() & Qt::ShiftModifier) != 0;
  const GridPlace cursor = CursorOf(data_);
  if (extends && cursor.row > 0 && cursor.column > 0) {
    Select(cursor, place);
  } else {
    Select(place);
  }
  emit Pressed();
  dragging_ = true;
}

void GridView::mouseMoveEvent(QMouseEvent* event) {
  if (!dragging_) return;
  drag_position_ = event->position().toPoint();
  if (viewport()->rect().contains(drag_position_)) {
    drag_timer_.stop();
    DragTo(drag_position_);
  } else if (!drag_timer_.isActive()) {  // outside, the grid scrolls on
    drag_timer_.start(kDragInterval, this);
  }
}

void GridView::DragTo(const QPoint& position) {
  const GridPlace place = PlaceAt(position);
  if (place != end_) Select(CursorOf(data_), place);
}

void GridView::timerEvent(QTimerEvent* event) {
  if (event->timerId() != drag_timer_.timerId()) return QTableView::timerEvent(event);
  // One row or column beyond what is in sight.
  const QRect seen = viewport()->rect();
  const QPoint inside(std::clamp(drag_position_.x(), seen.left(), seen.right()),
                      std::clamp(drag_position_.y(), seen.top(), seen.bottom()));
  GridPlace place = PlaceAt(inside);
  if (drag_position_.y() > seen.bottom()) place.row = std::min(place.row + 1, data_.GridRecords());
  if (drag_position_.y() < seen.top() && place.row > 1) --place.row;
  if (drag_position_.x() > seen.right()) place.column = std::min(place.column + 1, data_.GridVariables());
  if (drag_position_.x() < seen.left() && place.column > 1) --place.column;
  if (place != end_) Select(CursorOf(data_), place);
}

void GridView::mouseReleaseEvent(QMouseEvent* event) {
  Q_UNUSED(event);
  dragging_ = false;
  drag_timer_.stop();
}

void GridView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !indexAt(event->position().toPoint()).isValid()) return;
  Select(PlaceAt(event->position().toPoint()));
  emit EditAsked();
}

void GridView::contextMenuEvent(QContextMenuEvent* event) {
  QPoint place = event->globalPos();
  if (event->reason() == QContextMenuEvent::Keyboard) {
    const EntryPlace cell = PlaceOfEntry(CursorOf(data_));
    place = cell.ground->mapToGlobal(cell.place.bottomLeft());
  }
  emit MenuAsked(place);
}

// Look and place.

void GridView::ApplyColours() {
  const GridColours colours =
      ColoursOfGrid(parentWidget() ? parentWidget()->palette() : QPalette(), data_.WithinEditLimit());
  if (palette().color(QPalette::Base) == colours.sheet) return;
  QPalette own = palette();
  own.setColor(QPalette::Base, colours.sheet);
  setPalette(own);
}

void GridView::ApplyWidths(int first, int last) {
  const int character = fontMetrics().averageCharWidth();
  const int least = std::max(kDefaultColumnTwips / kTwipsPerPixel, character * 9);
  QFont bold = font();
  bold.setBold(true);
  const QFontMetrics heading(bold);
  for (int column = first; column <= last; ++column) {
    std::size_t widest = 0;
    for (int row = 0; row < std::min(grid().rowCount(), kRecordsMeasured); ++row) {
      widest = std::max(widest, grid().CellLength(row, column));
    }
    const int characters = std::min(static_cast<int>(std::min<std::size_t>(widest, 1000)), kMostColumnCharacters);
    const QString name = grid().headerData(column, Qt::Horizontal).toString();
    const int wanted = std::max((characters + 3) * character, heading.horizontalAdvance(name) + character * 2);
    setColumnWidth(column, std::clamp(wanted, least, kMostColumnCharacters * character));
  }
}

void GridView::StandInMiddle(QWidget* widget) {
  middle_ = widget;
  PlaceMiddle();
}

// Its beginning stays in sight where the grid is smaller.
void GridView::PlaceMiddle() {
  if (!middle_) return;
  middle_->adjustSize();
  const QPoint place = viewport()->rect().center() - middle_->rect().center();
  middle_->move(std::max(place.x(), 0), std::max(place.y(), 0));
}

void GridView::scrollContentsBy(int dx, int dy) {
  QTableView::scrollContentsBy(dx, dy);
  PlaceMiddle();
  emit Moved();
}

void GridView::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  PlaceMiddle();
  emit Moved();
}

void GridView::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (event->type() == QEvent::ApplicationPaletteChange || event->type() == QEvent::StyleChange) ApplyColours();
  if (event->type() == QEvent::FontChange && model()) {
    MeasureRows();
    ApplyWidths(0, model()->columnCount() - 1);
    PlaceMiddle();
    emit Moved();
  }
}

}  // namespace tessara
