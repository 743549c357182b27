#include "window/grid/data1.h"

#include <QHBoxLayout>
#include <QLocale>
#include <QScrollBar>
#include <QVBoxLayout>

#include "shell/command_row.h"
#include "window/grid/data_format.h"
#include "window/grid/data_recode.h"
#include "window/grid/variable_view.h"
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

// The new data set: no file and nothing in any cell.
bool IsUntouched(const DataSet& data) {
  if (data.GridTitle != kUntitledGrid) return false;
  for (std::size_t column = 1; column <= data.VariableCount; ++column) {
    if (data.matrix.UsedRecords(column, data.RecordCount) != 0) return false;
  }
  return true;
}

}  // namespace

Data1::Data1(Session& session, QWidget* parent)
    : ViewForm(session, View::ViewDataGrid, parent),
      model_(new GridModel(session.data, this, &session.recode.marks)),
      grid_(new GridView(session.data, this)),
      strip_(new QWidget(this)) {
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

  connect(grid_, &GridView::CopyAsked, this, [this] { Perform(WidgetAction::kCopy); });
  connect(grid_, &GridView::CursorMoved, this, &Data1::SessionChanged);
  grid_->ShowData();
  ShowInfo();
}

void Data1::BuildInfoStrip() {
  strip_->setObjectName("GridInfo");
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
  if (grid_->ShowChanges()) ShowInfo();
  if (format_) format_->ShowSession();
  if (variables_) variables_->ShowSession();
  ShowMarks();
  if (recode_) recode_->ShowSession();
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
  grid_->ShowHint(IsUntouched(shown) ? QString("Open a data file (Ctrl+O) or drop one here") : QString());
}

void Data1::FocusFirst() { grid_->setFocus(); }

void Data1::Perform(WidgetAction action) {
  if (action == WidgetAction::kSelectAll) {
    grid_->selectAll();
  } else if (action == WidgetAction::kCopy) {
    const std::string block = grid_->SelectedBlock();
    if (grid_->selectionModel()->hasSelection()) session().platform.SetClipboardText(block);
  } else if (action == WidgetAction::kFormatVariables) {
    FormatForm()->Open();
  } else if (action == WidgetAction::kShowVariables) {
    VariablesForm()->Open();
  } else if (action == WidgetAction::kShowRecodePanel) {
    OpenRecode();
  }
}

}  // namespace tessara
