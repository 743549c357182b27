#include "window/grid/grid_view.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

#include "shell/settings.h"
#include "window/grid/grid_model.h"
#include "window/widgets/text.h"

namespace tessara {
namespace {

constexpr int kDefaultColumnTwips = 740;
constexpr int kMostColumnCharacters = 28;
constexpr int kRecordsMeasured = 40;  // the first records tell how wide a column wants to be

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

GridView::GridView(DataSet& data_set, QWidget* parent)
    : QTableView(parent), data_(data_set), hint_(new QLabel(viewport())) {
  setHorizontalHeader(new GridHeader(Qt::Horizontal, data_set, this));
  setVerticalHeader(new GridHeader(Qt::Vertical, data_set, this));
  setEditTriggers(NoEditTriggers);
  setSelectionMode(ContiguousSelection);
  setTabKeyNavigation(false);
  setWordWrap(false);
  setFrameShape(NoFrame);
  setHorizontalScrollMode(ScrollPerPixel);

  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  horizontalHeader()->setMinimumSectionSize(kDefaultColumnTwips / kTwipsPerPixel / 2);

  // A click on a heading takes the cursor into the heading row, one on a record number into the number column: whole
  // columns and whole rows are told from cells by that.
  connect(horizontalHeader(), &QHeaderView::sectionPressed, this,
          [this](int section) { MoveCursor(0, static_cast<std::size_t>(section) + 1); });
  connect(verticalHeader(), &QHeaderView::sectionPressed, this,
          [this](int section) { MoveCursor(static_cast<std::size_t>(section) + 1, 0); });

  hint_->setObjectName("GridHint");
  hint_->setAlignment(Qt::AlignCenter);
  hint_->setAttribute(Qt::WA_TransparentForMouseEvents);
  hint_->setAutoFillBackground(true);
  hint_->hide();
  MeasureRows();
  ApplyColours();
}

void GridView::MeasureRows() {
  const int row_height = fontMetrics().height() + fontMetrics().height() / 2;
  verticalHeader()->setMinimumSectionSize(row_height);
  verticalHeader()->setDefaultSectionSize(row_height);
  horizontalHeader()->setFixedHeight(row_height + row_height / 6);
  hint_->setMargin(fontMetrics().height());
}

void GridView::setModel(QAbstractItemModel* grid_model) {
  QTableView::setModel(grid_model);
  connect(grid_model, &QAbstractItemModel::columnsInserted, this,
          [this](const QModelIndex&, int first, int last) { ApplyWidths(first, last); });
}

void GridView::ShowData() {
  showing_ = true;
  ApplyColours();
  ApplyWidths(0, model()->columnCount() - 1);
  ShowCursor();
  showing_ = false;
  PlaceHint();
}

bool GridView::ShowChanges() {
  showing_ = true;  // the cursor of the data set is not the view's to move meanwhile
  const GridModel::Outcome outcome = static_cast<GridModel*>(model())->Refresh();
  showing_ = false;
  if (outcome == GridModel::Outcome::kNothing) return false;
  if (outcome == GridModel::Outcome::kEverything) {
    ShowData();
    return true;
  }
  ApplyColours();
  showing_ = true;
  if (shown_cursor_ != std::pair(data_.CurrentRow, data_.CurrentColumn)) {
    ShowCursor();  // the operation has moved it
  } else if (data_.CurrentRow > 0 && data_.CurrentColumn > 0 && currentIndex().isValid()) {
    data_.CurrentRow = static_cast<std::size_t>(currentIndex().row()) + 1;  // cells ahead of it came or went
    data_.CurrentColumn = static_cast<std::size_t>(currentIndex().column()) + 1;
    shown_cursor_ = {data_.CurrentRow, data_.CurrentColumn};
  }
  showing_ = false;
  return true;
}

void GridView::ShowCursor() {
  shown_cursor_ = {data_.CurrentRow, data_.CurrentColumn};
  const int row = static_cast<int>(data_.CurrentRow) - 1;
  const int column = static_cast<int>(data_.CurrentColumn) - 1;
  const QModelIndex cursor = model()->index(std::max(row, 0), std::max(column, 0));
  if (cursor.isValid()) {
    selectionModel()->setCurrentIndex(cursor, QItemSelectionModel::ClearAndSelect);
    scrollTo(cursor);
  }
  horizontalHeader()->viewport()->update();
  verticalHeader()->viewport()->update();
}

void GridView::ApplyColours() {
  const GridColours colours =
      ColoursOfGrid(parentWidget() ? parentWidget()->palette() : QPalette(), data_.WithinEditLimit());
  if (palette().color(QPalette::Base) == colours.sheet) return;
  QPalette own = palette();
  own.setColor(QPalette::Base, colours.sheet);
  setPalette(own);
}

void GridView::ApplyWidths(int first, int last) {
  const auto* grid = static_cast<const GridModel*>(model());
  const int character = fontMetrics().averageCharWidth();
  const int least = std::max(kDefaultColumnTwips / kTwipsPerPixel, character * 9);
  QFont bold = font();
  bold.setBold(true);
  const QFontMetrics heading(bold);
  for (int column = first; column <= last; ++column) {
    std::size_t widest = 0;
    for (int row = 0; row < std::min(grid->rowCount(), kRecordsMeasured); ++row) {
      widest = std::max(widest, grid->CellLength(row, column));
    }
    const int characters = std::min(static_cast<int>(std::min<std::size_t>(widest, 1000)), kMostColumnCharacters);
    const QString name = grid->headerData(column, Qt::Horizontal).toString();
    const int wanted = std::max((characters + 3) * character, heading.horizontalAdvance(name) + character * 2);
    setColumnWidth(column, std::clamp(wanted, least, kMostColumnCharacters * character));
  }
}

std::string GridView::SelectedBlock() const {
  const QItemSelection selection = selectionModel()->selection();
  if (selection.isEmpty()) return {};
  const QItemSelectionRange& block = selection.front();
  const auto* grid = static_cast<const GridModel*>(model());
  std::string text;
  for (int row = block.top(); row <= block.bottom(); ++row) {
    if (row > block.top()) text += '\r';
    for (int column = block.left(); column <= block.right(); ++column) {
      if (column > block.left()) text += '\t';
      text += grid->CellText(row, column);
    }
  }
  return text;
}

void GridView::MoveCursor(std::size_t row, std::size_t column) {
  data_.CurrentRow = row;
  data_.CurrentColumn = column;
  shown_cursor_ = {row, column};
  horizontalHeader()->viewport()->update();
  verticalHeader()->viewport()->update();
  emit CursorMoved();
}

void GridView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  if (showing_ || !current.isValid()) return;
  MoveCursor(static_cast<std::size_t>(current.row()) + 1, static_cast<std::size_t>(current.column()) + 1);
}

void GridView::mousePressEvent(QMouseEvent* event) {
  QTableView::mousePressEvent(event);
  // A click on the cell that was current already: the cursor comes back from a heading.
  const QModelIndex cell = indexAt(event->pos());
  if (cell.isValid() && cell == currentIndex()) {
    MoveCursor(static_cast<std::size_t>(cell.row()) + 1, static_cast<std::size_t>(cell.column()) + 1);
  }
}

void GridView::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) {
    emit CopyAsked();
    return;
  }
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return;  // does nothing in the grid
  QTableView::keyPressEvent(event);
}

// Typed characters start an entry in an editable grid; they never make the cursor jump to a cell that begins so.
void GridView::keyboardSearch(const QString& search) { Q_UNUSED(search); }

void GridView::ShowHint(const QString& hint) {
  hint_->setText(hint);
  hint_->setVisible(!hint.isEmpty());
  PlaceHint();
}

void GridView::PlaceHint() {
  hint_->adjustSize();
  hint_->move(viewport()->rect().center() - hint_->rect().center());
}

void GridView::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  PlaceHint();
}

void GridView::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (event->type() == QEvent::ApplicationPaletteChange || event->type() == QEvent::StyleChange) ApplyColours();
  if (event->type() == QEvent::FontChange && hint_ && model()) {
    MeasureRows();
    ApplyWidths(0, model()->columnCount() - 1);
    PlaceHint();
  }
}

}  // namespace tessara
