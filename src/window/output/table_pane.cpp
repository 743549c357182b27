#include "window/output/table_pane.h"

#include <QPainter>
#include <QVBoxLayout>

#include "presentation/table_edit.h"
#include "shell/command_row.h"
#include "shell/table_operations.h"
#include "window/output/grid_text2.h"
#include "window/output/table_sheet.h"
#include "window/widgets/command_menu.h"
#include "window/widgets/text.h"

namespace tessara {
namespace {

TableMove MoveOf(EntryKey key) {
  switch (key) {
    case EntryKey::kDown:
      return TableMove::kDown;
    case EntryKey::kUp:
      return TableMove::kUp;
    case EntryKey::kLeft:
      return TableMove::kLeft;
    case EntryKey::kRight:
      return TableMove::kRight;
  }
  return TableMove::kDown;
}

}  // namespace

TablePane::TablePane(Session& session, QWidget* parent)
    : QWidget(parent), session_(session), sheet_(new TableSheet(session.table.grid, session.table.face, this)) {
  setObjectName("TablePane");
  text_ = new GridText2(sheet_->viewport());
  auto* layout = new QVBoxLayout(this);
  const int gap = fontMetrics().height() / 2;
  layout->setContentsMargins(gap, 0, gap, 0);
  layout->addWidget(sheet_);
  setFocusProxy(sheet_);
  ConnectSheet();
  ConnectEntry();
}

void TablePane::ConnectSheet() {
  connect(sheet_, &TableSheet::CursorMoved, this, &TablePane::SessionChanged);
  connect(sheet_, &TableSheet::Leaving, this, &TablePane::StoreEntry);
  connect(sheet_, &TableSheet::Typed, this, [this](const QString& text) { BeginEntry(&text); });
  connect(sheet_, &TableSheet::EditAsked, this, [this] { BeginEntry(nullptr); });
  connect(sheet_, &TableSheet::ClearAsked, this, [this] { Change([this] { ClearTable(session_); }); });
  connect(sheet_, &TableSheet::CommandAsked, this, &TablePane::CommandRequested);
  connect(sheet_, &TableSheet::MenuAsked, this, &TablePane::ShowMenu);
  connect(sheet_, &TableSheet::Moved, this, &TablePane::PlaceEntry);
  connect(sheet_, &TableSheet::WidthAsked, this, [this](std::size_t column, double width) {
    Change([&] { SetTableColumnWidth(grid(), face(), column, width); });
  });
  connect(sheet_, &TableSheet::FitAsked, this,
          [this](std::size_t column) { Change([&] { FitTableColumn(grid(), face(), column); }); });
}

void TablePane::ConnectEntry() {
  connect(text_, &CellBox::Ended, this, [this](EntryKey key) { EndEntry(MoveOf(key)); });
  connect(text_, &CellBox::Tabbed, this,
          [this](bool forward) { EndEntry(forward ? TableMove::kNext : TableMove::kPrevious); });
  connect(text_, &CellBox::Escaped, this, &TablePane::CloseEntry);
  connect(text_, &CellBox::Left, this, &TablePane::StoreEntry);
  connect(text_, &QLineEdit::inputRejected, this,
          [this] { session_.platform.SetStatusPane(kMessagePane, "There is no room for so long a text in a cell"); });
}

void TablePane::ShowSession() {
  sheet_->ShowTable();
  PlaceEntry();
}

void TablePane::SetZoom(int percent) { sheet_->SetZoom(percent); }

void TablePane::FocusSheet() { sheet_->setFocus(); }

// The entry of a cell.

void TablePane::BeginEntry(const QString* typed) {
  const TablePlace cursor = face().selection.cursor;
  const std::string& text = grid().Text(cursor.row, cursor.column);
  if (!typed && text.size() > CellBox::kMostCharacters) {
    session_.platform.SetStatusPane(kMessagePane, "This text is too long to be edited in its cell");
    return;
  }
  sheet_->Select(cursor);
  entering_ = true;
  typed_over_ = typed != nullptr;
  text_->LetArrowsMoveInText(!typed_over_);
  text_->setFont(sheet_->font());
  text_->Open(sheet_->viewport(), sheet_->PlaceOfCursor(), typed ? *typed : ToQt(text));
}

void TablePane::PlaceEntry() {
  if (entering_) text_->setGeometry(sheet_->PlaceOfCursor());
}

// A text that nobody has changed stays as it is in the cell, whatever the box can show of it.
bool TablePane::WriteEntry() {
  if (!typed_over_ && !text_->isModified()) return true;
  return WithinMemory(session_.platform, memory_reserve_,
                      [this] { TypeIntoTable(grid(), face(), FromQt(text_->text())); });
}

void TablePane::EndEntry(TableMove move) {
  if (!WriteEntry()) return;
  MoveInTable(grid(), face(), PlaceBehind(grid(), face().selection.cursor, move));
  CloseEntry();
}

void TablePane::StoreEntry() {
  if (entering_ && WriteEntry()) CloseEntry();
}

void TablePane::CloseEntry() {
  // A box that is hidden hands the focus on to its neighbour; what is typed next belongs to the table.
  entering_ = false;
  if (window()->focusWidget() == text_) sheet_->setFocus();
  text_->hide();
  text_->clear();
  ShowSession();
  emit SessionChanged();
}

void TablePane::Change(const std::function<void()>& operation) {
  StoreEntry();
  BeginOperation(session_);
  WithinMemory(session_.platform, memory_reserve_, operation);
  ShowSession();
  emit SessionChanged();
}

void TablePane::ShowMenu(const QPoint& place) {
  constexpr int kEntries[] = {kUndoCommand,        kRedoCommand,          kMenuSeparator,      kCutCommand,
                              kCopyCommand,        kPasteCommand,         kSelectAllCommand,   kMenuSeparator,
                              kDeleteRowsCommand,  kDeleteColumnsCommand, kMenuSeparator,      kAlignLeftCommand,
                              kAlignCentreCommand, kAlignRightCommand,    kColumnWidthCommand, kMenuSeparator,
                              kFormatCommand,      kConvertCommand};
  PopUpCommands(this, "TableMenu", kEntries, place);
}

// A line around the sheet, as the text has one around its own.
void TablePane::paintEvent(QPaintEvent* event) {
  Q_UNUSED(event);
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawRect(sheet_->geometry().adjusted(-1, 0, 0, 0));
}

}  // namespace tessara
