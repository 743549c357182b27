#include "window/grid/data1.h"

#include <QAction>
#include <QApplication>
#include <QHBoxLayout>
#include <QLocale>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

#include "data/edit/edit_limit.h"
#include "data/edit/grid_places.h"
#include "shell/command_row.h"
#include "shell/grid_operations.h"
#include "window/grid/data_format.h"
#include "window/grid/data_recode.h"
#include "window/grid/first_steps.h"
#include "window/grid/grid_text1.h"
#include "window/grid/name_box.h"
#include "window/grid/variable_view.h"
#include "window/widgets/command_menu.h"
#include "window/widgets/elided_label.h"
#include "window/widgets/segment_button.h"
#include "window/widgets/text.h"

namespace tessara {
namespace {

constexpr int kRecordsAboveAMatch = 15;

QString Count(std::size_t count) { return QLocale(QLocale::English, QLocale::UnitedStates).toString(count); }

QString Counted(std::size_t count, const char* one, const char* many) {
  return Count(count) + " " + (count == 1 ? one : many);
}

QString SizeText(const DataSet& data) {
  return Counted(data.RecordCount, "record", "records") + QString::fromUtf8(" \u00D7 ") +
         Counted(data.VariableCount, "variable", "variables");
}

// What the grid leaves out, in words; empty when it shows everything.
QString PartText(const DataSet& data) {
  QString part;
  if (data.GridRecords() < data.RecordCount) {
    part = "first " + Count(data.GridRecords()) + " of " + Count(data.RecordCount) + " records";
  }
  if (data.GridVariables() < data.VariableCount) {
    if (!part.isEmpty()) part += ", ";
    part += "first " + Count(data.GridVariables()) + " of " + Count(data.VariableCount) + " variables";
  }
  return part.isEmpty() ? part : "Shows the " + part;
}

// The new data set: no file, nothing in any cell, and the names that it came with.
bool IsUntouched(const DataSet& data) {
  if (data.GridTitle != kUntitledGrid) return false;
  for (std::size_t column = 1; column <= data.VariableCount; ++column) {
    if (data.VariableName(column) != "V" + std::to_string(column)) return false;
    if (data.matrix.UsedRecords(column, data.RecordCount) != 0) return false;
  }
  return true;
}

}  // namespace

Data1::Data1(Session& session, QWidget* parent)
    : ViewForm(session, View::ViewDataGrid, parent),
      model_(new GridModel(session.data, this, &session.recode.marks)),
      grid_(new GridView(session.data, this)),
      strip_(new QWidget(this)),
      text_(new GridText1(grid_->viewport())) {
  setObjectName("Data1");
  grid_->setObjectName("MSFlexGrid1");
  grid_->setAccessibleName("Data Grid");
  grid_->setModel(model_);
  BuildInfoStrip();

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(strip_);
  layout->addWidget(grid_, 1);
  setFocusProxy(grid_);

  ConnectGrid();
  ConnectEntry();
  grid_->ShowData();
  ShowInfo();
}

void Data1::ConnectGrid() {
  connect(grid_, &GridView::CopyAsked, this, [this] { Perform(WidgetAction::kCopy); });
  connect(grid_, &GridView::CursorMoved, this, [this] {
    ShowPlace();
    emit SessionChanged();
  });
  connect(grid_, &GridView::Pressed, this, [this] {
    if (format_) format_->FollowGrid();
  });
  connect(grid_, &GridView::Leaving, this, [this] { LeaveEntry(EntryLeft::kByClick); });
  connect(grid_, &GridView::Typed, this, [this](const QString& text) { BeginEntry(&text); });
  connect(grid_, &GridView::EditAsked, this, [this] { BeginEntry(nullptr); });
  connect(grid_, &GridView::IdleKey, this, &Data1::RefuseKey);
  connect(grid_, &GridView::ClearAsked, this, [this] { Edit([this] { ClearCells(session()); }); });
  connect(grid_, &GridView::MenuAsked, this, &Data1::ShowMenu);
  connect(grid_, &GridView::Moved, this, &Data1::PlaceEntry);
}

void Data1::ConnectEntry() {
  connect(text_, &GridText1::Ended, this, &Data1::EndEntry);
  connect(text_, &GridText1::Tabbed, this,
          [this](bool forward) { EndEntry(forward ? EntryKey::kRight : EntryKey::kLeft); });
  connect(text_, &GridText1::Escaped, this, [this] {
    session().cell_entry = {};
    grid_->setFocus();
    CloseEntry();
  });
  connect(text_, &GridText1::CommaTyped, this, [this] { RefuseComma(session().platform); });
  connect(text_, &QLineEdit::inputRejected, this,
          [this] { session().platform.SetStatusPane(kMessagePane, "There is no room for so long a text in a cell"); });
  // A click in the grid is the design's own way out of an entry, which leaves the changed flag alone.
  connect(text_, &GridText1::Left, this,
          [this] { LeaveEntry(QApplication::focusWidget() == grid_ ? EntryLeft::kByClick : EntryLeft::kByCommand); });
}

void Data1::BuildInfoStrip() {
  strip_->setObjectName("GridInfo");
  name_ = new NameBox(strip_);
  connect(name_, &NameBox::Named, this, &Data1::GoTo);
  connect(name_, &NameBox::GivenUp, this, [this] { grid_->setFocus(); });
  title_ = new ElidedLabel(strip_);
  title_->setObjectName("GridTitle");
  QFont bold = title_->font();
  bold.setBold(true);
  title_->setFont(bold);
  size_ = new QLabel(strip_);
  size_->setObjectName("GridSize");
  part_ = new QLabel(strip_);
  part_->setObjectName("GridPart");
  part_->setAutoFillBackground(true);
  part_->setMargin(fontMetrics().height() / 4);

  auto* layout = new QHBoxLayout(strip_);
  layout->setContentsMargins(layout->contentsMargins().left(), fontMetrics().height() / 3,
                             layout->contentsMargins().right(), fontMetrics().height() / 3);
  layout->addWidget(name_);
  layout->addSpacing(fontMetrics().averageCharWidth() * 2);
  layout->addWidget(title_, 1);
  layout->addWidget(part_);
  layout->addWidget(size_);
  variables_button_ = new SegmentButton(strip_);
  variables_button_->setObjectName("VariablesButton");
  variables_button_->setText("Variables");
  variables_button_->setToolTip("Table of all variables");
  variables_button_->setAccessibleName(variables_button_->toolTip());
  variables_button_->setIcon(QIcon::fromTheme("view-list-details"));
  variables_button_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  variables_button_->setFocusPolicy(Qt::TabFocus);
  layout->addWidget(variables_button_);
  connect(variables_button_, &QToolButton::clicked, this, &Data1::ToggleVariables);
}

DataFormat* Data1::FormatForm() {
  if (format_) return format_;
  format_ = new DataFormat(session(), this);
  connect(format_, &DataFormat::CommandRequested, this, &Data1::CommandRequested);
  connect(format_, &DataFormat::HelpAsked, this, &Data1::HelpPageAsked);
  return format_;
}

VariableView* Data1::VariablesForm() {
  if (variables_) return variables_;
  variables_ = new VariableView(session(), this);
  connect(variables_, &VariableView::Shown, variables_button_, &QToolButton::setChecked);
  connect(variables_, &VariableView::HelpAsked, this, &Data1::HelpPageAsked);
  connect(variables_, &VariableView::FormatAsked, this, [this](std::size_t column) {
    PickVariable(session().format, session().data, column);
    FormatForm()->Open();
  });
  return variables_;
}

void Data1::ToggleVariables() {
  if (variables_ && variables_->isVisible()) {
    variables_->close();
  } else {
    VariablesForm()->Open();
  }
}

void Data1::ShowSession() {
  // A save under another name changes the title and not a cell.
  if (grid_->ShowChanges() || title_->text() != ToQt(session().data.GridTitle)) ShowInfo();
  if (format_) format_->ShowSession();
  if (variables_) variables_->ShowSession();
  ShowMarks();
  if (recode_) recode_->ShowSession();
  if (session().grid_selection != stored_selection_) {  // an operation has selected something
    grid_->ShowSelection(session().grid_selection);
    stored_selection_ = session().grid_selection;
  }
  ShowPlace();
  PlaceEntry();
}

void Data1::OpenRecode() {
  if (!recode_) {
    recode_ = new DataRecode(session(), this);
    connect(recode_, &DataRecode::CommandRequested, this, &Data1::CommandRequested);
    connect(recode_, &DataRecode::HelpAsked, this, &Data1::HelpPageAsked);
  }
  recode_->Open();
}

// The bold cells, and a new match in sight: it becomes the current cell, some records below the top where there are
// any, at the left.
void Data1::ShowMarks() {
  const GridMarks& marks = session().recode.marks;
  if (shown_marks_ != marks.version()) grid_->viewport()->update();
  shown_marks_ = marks.version();
  if (std::exchange(shown_finds_, marks.finds()) == marks.finds()) return;
  const int row = static_cast<int>(marks.found_row() - kFirstRecordRow);
  const QModelIndex match = model_->index(row, static_cast<int>(marks.found_column()) - 1);
  if (!match.isValid()) return;  // the grid does not show it
  grid_->setCurrentIndex(match);
  grid_->verticalScrollBar()->setValue(std::max(row - kRecordsAboveAMatch, 0));
  grid_->horizontalScrollBar()->setValue(grid_->horizontalHeader()->sectionPosition(match.column()));
  grid_->scrollTo(match);
}

void Data1::StoreWidgets() {
  LeaveEntry(EntryLeft::kByCommand);
  session().grid_selection = stored_selection_ = grid_->Selection();
}

void Data1::ShowPlace() { name_->ShowName(ToQt(NameOfPlace(session().data, CursorOf(session().data)))); }

void Data1::ShowInfo() {
  const DataSet& shown = session().data;
  title_->setText(ToQt(shown.GridTitle));
  size_->setText(SizeText(shown));
  const QString part = PartText(shown);
  part_->setText(part);
  part_->setVisible(!part.isEmpty());
  part_->setToolTip(shown.WithinEditLimit() ? QString()
                                            : QString("The cells exceed the edit limit: all of them are used by the "
                                                      "procedures, but the grid cannot be edited."));
  const GridColours colours = ColoursOfGrid(palette(), false);
  QPalette pill = part_->palette();
  pill.setColor(QPalette::Window, colours.sheet);
  part_->setPalette(pill);
  ShowFirstSteps();
}

void Data1::BuildFirstSteps() {
  first_steps_ = new FirstSteps(session().platform.ProgramFolder() / "Data", grid_->viewport());
  connect(first_steps_, &FirstSteps::CommandAsked, this, &Data1::CommandRequested);
  connect(first_steps_, &FirstSteps::HelpAsked, this, &Data1::HelpPageAsked);
  connect(first_steps_, &FirstSteps::SampleChosen, this, &Data1::FileAsked);
  QWidget* ahead = variables_button_;
  for (QWidget* offer : first_steps_->Buttons()) {
    setTabOrder(ahead, offer);
    ahead = offer;
  }
  grid_->StandInMiddle(first_steps_);
}

// Tab comes to the offers ahead of the grid, which keeps that key for its cells, and goes on to the grid behind them.
bool Data1::focusNextPrevChild(bool next) {
  QWidgetList order;
  if (first_steps_ && first_steps_->isVisible()) {
    for (QPushButton* offer : first_steps_->Buttons()) {
      if (offer->isEnabled()) order += offer;
    }
  }
  order += grid_;
  const qsizetype wanted = order.indexOf(window()->focusWidget()) + (next ? 1 : -1);
  const bool among_them = order.contains(window()->focusWidget()) && wanted >= 0 && wanted < order.size();
  if (!among_them) return ViewForm::focusNextPrevChild(next);
  order[wanted]->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
  return true;
}

// They go away with the first datum, and the keyboard goes on in the grid.
void Data1::ShowFirstSteps() {
  const bool untouched = IsUntouched(session().data);
  if (untouched && !first_steps_) BuildFirstSteps();
  if (!first_steps_ || first_steps_->isHidden() != untouched) return;
  if (!untouched && first_steps_->isAncestorOf(window()->focusWidget())) grid_->setFocus();
  first_steps_->setVisible(untouched);
}

void Data1::FocusFirst() { grid_->setFocus(); }

void Data1::Perform(WidgetAction action) {
  if (action == WidgetAction::kSelectAll) {
    grid_->selectAll();
  } else if (action == WidgetAction::kCopy) {
    Copy();
  } else if (action == WidgetAction::kGoTo) {
    name_->Ask();
  } else if (action == WidgetAction::kFormatVariables) {
    FormatForm()->Open();
  } else if (action == WidgetAction::kShowVariables) {
    VariablesForm()->Open();
  } else if (action == WidgetAction::kShowRecodePanel) {
    OpenRecode();
  }
}

void Data1::Copy() {
  StoreWidgets();
  WithinMemory(session().platform, memory_reserve_, [this] { CopyCells(session()); });
}

// The entry of a cell.

void Data1::BeginEntry(const QString* typed) {
  CellEntry& entry = session().cell_entry;
  if (!StartEntry(entry, session().data, session().platform)) return;
  if (typed && typed->contains(u',')) {
    entry = {};
    return RefuseComma(session().platform);
  }
  if (!typed && entry.text.size() > GridText1::kMostCharacters) {
    entry = {};
    session().platform.SetStatusPane(kMessagePane, "This text is too long to be edited in its cell");
    return;
  }
  if (typed) entry.text = FromQt(*typed);
  grid_->Select(CursorOf(session().data));
  const auto over = grid_->PlaceOfEntry(entry.place);
  text_->Open(over.ground, over.place, typed ? *typed : ToQt(entry.text));
}

// The cell may have moved, or have become another one's.
void Data1::PlaceEntry() {
  if (text_->isHidden()) return;
  if (!session().cell_entry.open) return CloseEntry();
  text_->setGeometry(grid_->PlaceOfEntry(session().cell_entry.place).place);
}

// A text that nobody has changed stays as it is in the cell, whatever the box can show of it.
void Data1::TakeTypedText() {
  if (session().cell_entry.open && text_->isModified()) session().cell_entry.text = FromQt(text_->text());
}

void Data1::EndEntry(EntryKey key) {
  TakeTypedText();
  const bool done = WithinMemory(session().platform, memory_reserve_,
                                 [this, key] { CommitByKey(session().cell_entry, session().data, key); });
  if (!done) return;  // the box stays open with what was typed
  grid_->setFocus();
  CloseEntry();
}

void Data1::LeaveEntry(EntryLeft left) {
  if (!session().cell_entry.open) return;
  TakeTypedText();
  if (WithinMemory(session().platform, memory_reserve_,
                   [this, left] { CommitByLeaving(session().cell_entry, session().data, left); })) {
    CloseEntry();
  }
}

void Data1::CloseEntry() {
  // A box that is hidden hands the focus on to its neighbour; what is typed next belongs to the grid.
  if (window()->focusWidget() == text_) grid_->setFocus();
  text_->hide();
  text_->clear();
  ShowSession();
  emit SessionChanged();
}

// Enter and Escape begin no entry, but the edit limit's test comes first for them too.
void Data1::RefuseKey() { AllowsEntry(session().data, session().platform); }

void Data1::Edit(const std::function<void()>& operation) {
  StoreWidgets();
  BeginOperation(session());
  WithinMemory(session().platform, memory_reserve_, operation);
  ShowSession();
  emit SessionChanged();
}

void Data1::GoTo(const QString& name) {
  const NamedPlace found = FindPlace(session().data, FromQt(name), CursorOf(session().data));
  if (!found.place) {
    session().platform.SetStatusPane(kMessagePane, found.error);
    return name_->selectAll();
  }
  BeginOperation(session());
  grid_->Select(*found.place);
  grid_->setFocus();
}

void Data1::ShowMenu(const QPoint& place) {
  constexpr int kEntries[] = {
      202, 203, kMenuSeparator, 301, 302, 303, 304, 305, 306, 307, kMenuSeparator, 204, kMenuSeparator, 205,
      206, 213, kMenuSeparator, 207, 208, 209, 210};
  PopUpCommands(this, "GridMenu", kEntries, place);
}

}  // namespace tessara
