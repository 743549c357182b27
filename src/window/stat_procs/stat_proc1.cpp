#include "window/stat_procs/stat_proc1.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSplitter>
#include <QStackedWidget>
#include <QTimer>
#include <QVBoxLayout>

#include "window/stat_procs/control_panel.h"
#include "window/stat_procs/procedure_box.h"
#include "window/stat_procs/sampling_frames.h"
#include "window/stat_procs/stat_proc1_pages.h"
#include "window/widgets/accent_button.h"
#include "window/widgets/elided_label.h"
#include "window/widgets/flow_layout.h"
#include "window/widgets/focus_outline.h"
#include "window/widgets/follow_font.h"
#include "window/widgets/scrolled.h"
#include "window/widgets/segment_button.h"
#include "window/widgets/text.h"

namespace tessara {
namespace {

constexpr std::size_t kMostNamesInSummary = 3;

struct FaceButton {
  Face face;
  const char* caption;
  const char* tooltip;
  const char* icon;
};

constexpr std::array<FaceButton, 5> kFaceButtons = {{
    {Face::kControlPanel, "Variables", "View control panel", "view-list-details"},
    {Face::kGridStatistics, "Statistics", "View grid statistics", "view-statistics"},
    {Face::kProjectNotes, "Notes", "View project notes", "view-pim-notes"},
    {Face::kStatProcedures, "Procedures", "View stat procedures", "view-form-table"},
    {Face::kExample, "Example", "View example of output", "view-preview"},
}};

bool IsLeft(Face face) {
  return face == Face::kControlPanel || face == Face::kGridStatistics || face == Face::kProjectNotes;
}

// "AGE, SEX, SMOKE and 4 more"
QString Names(const DataSet& data, const std::vector<std::size_t>& columns) {
  QStringList names;
  for (std::size_t i = 0; i < columns.size() && i < kMostNamesInSummary; ++i) {
    names += ToQt(data.VariableName(columns[i]));
  }
  QString text = names.join(", ");
  if (columns.size() <= kMostNamesInSummary) return text;
  return text + QString(" and %1 more").arg(columns.size() - kMostNamesInSummary);
}

}  // namespace

StatProc1::StatProc1(Session& session, QWidget* parent) : ViewForm(session, View::ViewStatProcs, parent) {
  setObjectName("StatProc1");
  auto* layout = new QVBoxLayout(this);
  // The faces give way to the window's size, not the other way round.
  layout->setSizeConstraint(QLayout::SetNoConstraint);
  layout->addWidget(BuildViewbar());
  BuildFaces();
  layout->addWidget(rows_, 1);
  layout->addWidget(BuildFooter());

  connect(control_panel_, &ControlPanel::Changed, this, &StatProc1::PanelChanged);
  connect(control_panel_, &ControlPanel::Picked, this, &StatProc1::ShowSummary);
  connect(notes_, &NotesPage::Changed, this, &StatProc1::SessionChanged);
  connect(procedures_, &ProcedureBox::Selected, this, &StatProc1::ProcedureSelected);
  connect(procedures_, &ProcedureBox::Changed, this, &StatProc1::PanelChanged);
  connect(procedures_->sampling(), &SamplingFrames::Asked, this, &StatProc1::RunSampling);
  connect(example_, &ExamplePane::FoldPressed, this, [this] { PressFace(Face::kExample); });
  StatProc1::ShowSession();
  FollowFont(this, [this] {
    FitViewbar();
    ApplyFaces();
  });
}

QWidget* StatProc1::BuildViewbar() {
  viewbar_ = new QWidget(this);
  viewbar_->setObjectName("Viewbar1");
  auto* layout = new FlowLayout(viewbar_, 0);
  for (const FaceButton& row : kFaceButtons) {
    auto* button = new SegmentButton(viewbar_);
    button->setObjectName(QString("Viewbar1(%1)").arg(static_cast<int>(row.face)));
    button->setText(row.caption);
    button->setToolTip(row.tooltip);
    button->setAccessibleName(row.tooltip);
    button->setIcon(QIcon::fromTheme(row.icon));
    button->setFocusPolicy(Qt::TabFocus);
    connect(button, &QToolButton::clicked, this, [this, face = row.face] { PressFace(face); });
    face_buttons_[static_cast<std::size_t>(row.face)] = button;
    layout->addWidget(button);
  }
  return viewbar_;
}

// In a narrow window the buttons leave their icons out, so that they stay in one row as long as they can.
void StatProc1::FitViewbar() {
  for (const auto style : {Qt::ToolButtonTextBesideIcon, Qt::ToolButtonTextOnly}) {
    for (QToolButton* button : face_buttons_) button->setToolButtonStyle(style);
    if (viewbar_->sizeHint().width() <= viewbar_->width()) return;
  }
}

void StatProc1::BuildFaces() {
  rows_ = new QSplitter(Qt::Vertical, this);
  columns_ = new QSplitter(Qt::Horizontal, rows_);
  left_ = new QStackedWidget(columns_);
  control_panel_ = new ControlPanel(session(), left_);
  statistics_ = new StatisticsPage(left_);
  notes_ = new NotesPage(session(), left_);
  for (QWidget* page :
       {static_cast<QWidget*>(control_panel_), static_cast<QWidget*>(statistics_), static_cast<QWidget*>(notes_)}) {
    left_->addWidget(new Scrolled(page, left_));
  }
  procedures_ = new ProcedureBox(session().panel, session().samples, columns_);
  example_ = new ExamplePane(rows_);
  columns_->addWidget(left_);
  columns_->addWidget(procedures_);
  columns_->setStretchFactor(0, 3);
  columns_->setStretchFactor(1, 1);
  rows_->addWidget(columns_);
  rows_->addWidget(example_);
  rows_->setStretchFactor(0, 1);
  rows_->setStretchFactor(1, 1);
  rows_->setChildrenCollapsible(false);
  columns_->setChildrenCollapsible(false);
}

QWidget* StatProc1::BuildFooter() {
  auto* footer = new QWidget(this);
  summary_ = new ElidedLabel(footer);
  summary_->setObjectName("RunSummary");
  run_ = new AccentButton("media-playback-start", "Run", footer);
  run_->setObjectName("RunButton");
  FocusOutline::AskFor(run_);
  run_->setToolTip("Run the selected procedure (F5)");
  run_->setDefault(true);
  QFont bold = run_->font();
  bold.setBold(true);
  run_->setFont(bold);
  FollowFont(run_, [this] {
    run_->setMinimumWidth(0);
    run_->setMinimumWidth(run_->sizeHint().width() * 3 / 2);
  });
  connect(run_, &QPushButton::clicked, this, &StatProc1::Run);

  auto* layout = new QHBoxLayout(footer);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(summary_, 1);
  layout->addWidget(run_);
  return footer;
}

void StatProc1::Run() {
  StoreWidgets();
  emit CommandRequested(kRunCommand);
}

void StatProc1::RunSampling(int command) {
  StoreWidgets();
  const SamplingFrames::AtWork at_work(*procedures_->sampling());
  emit CommandRequested(command);
}

ProgressPlace* StatProc1::SamplingProgress() const { return procedures_->sampling(); }

void StatProc1::StoreWidgets() { control_panel_->StoreWidgets(); }

void StatProc1::ShowSession() {
  control_panel_->ShowSession();
  procedures_->ShowPanel();
  procedures_->sampling()->ShowSamples(session().data.RecordCount);
  example_->ShowPanel(session().panel);
  notes_->ShowData();
  const DataSet& shown = session().data;
  if (statistics_of_ != shown.Revision()) statistics_->ShowData(shown);
  statistics_of_ = shown.Revision();
  ShowSummary();
}

// Another procedure relabels the whole panel.
void StatProc1::ProcedureSelected() {
  control_panel_->StoreWidgets();
  ShowSession();
  // What it offers may need more width, which is known when it has been laid out.
  QTimer::singleShot(0, this, &StatProc1::ApplyFaces);
  emit SessionChanged();
}

void StatProc1::PanelChanged() {
  ShowSummary();
  emit SessionChanged();
}

// A sample has a button of its own, and iterations take the variable that is picked in the list.
QString StatProc1::SamplingWords() const {
  const ProcedurePanel& panel = session().panel;
  if (panel.selected == Procedure::kRandomSample) return "Random Sample: press Create Sample";
  if (panel.PickedVariable == 0) return "Repeated Sampling: choose a variable in the list";
  return "Repeated Sampling: " + Names(session().data, {panel.PickedVariable});
}

// What Run is about to do, or what it still needs.
void StatProc1::ShowSummary() {
  const ProcedurePanel& panel = session().panel;
  const DataSet& shown = session().data;
  const ProcedureRow* row = ShownRow(panel);
  const QString control = control_panel_->ControlWords();
  QString text;
  if (!row) {
    text = panel.SelectedVariables.empty() ? "Choose variables and a procedure" : "Choose a procedure";
  } else if (row->first_heading.empty()) {
    text = SamplingWords();
  } else if (panel.SelectedVariables.empty()) {
    text = ToQt(FindProcedureRow(panel.selected)->caption) + ": choose a variable for " + ToQt(row->first_heading);
  } else {
    text = ToQt(FindProcedureRow(panel.selected)->caption) + ": " + Names(shown, panel.SelectedVariables);
    if (!panel.IndependentVariables.empty()) {
      text += (RunUsesIndependents(panel) ? " by " : ", without ") + Names(shown, panel.IndependentVariables);
    }
  }
  if (!control.isEmpty()) text += QString::fromUtf8("  \u00B7  Control: ") + control;
  summary_->setText(text);
}

void StatProc1::ShowFace(Face face) {
  face_ = face;
  if (IsLeft(face)) left_face_ = face;
  if (face == Face::kExample) example_open_ = true;
  ApplyFaces();
}

// A button of Viewbar1: brings its face to where it can be seen, and the keyboard to it. The example is folded by the
// button that has opened it.
void StatProc1::PressFace(Face face) {
  if (face == Face::kExample && IsFaceShown(face)) {
    example_open_ = false;
    face_ = left_face_;
    ApplyFaces();
    return;
  }
  ShowFace(face);
  FocusFace(face);
}

void StatProc1::FocusFace(Face face) {
  switch (face) {
    case Face::kControlPanel:
      return control_panel_->FocusFirst();
    case Face::kProjectNotes:
      return notes_->FocusFirst();
    case Face::kStatProcedures:
      return procedures_->FocusFirst();
    case Face::kExample:
      return example_->FocusFirst();
    case Face::kGridStatistics:
      return;
  }
}

bool StatProc1::IsFaceShown(Face face) const { return shown_[static_cast<std::size_t>(face)]; }

int StatProc1::LeastLeftWidth() const {
  return control_panel_->minimumSizeHint().width() + style()->pixelMetric(QStyle::PM_ScrollBarExtent);
}

bool StatProc1::HasRoomBeside() const {
  return columns_->parentWidget()->width() >= LeastLeftWidth() + columns_->handleWidth() + procedures_->LeastWidth();
}

bool StatProc1::HasRoomBelow() const {
  return rows_->height() >= control_panel_->minimumSizeHint().height() + rows_->handleWidth() + example_->LeastHeight();
}

void StatProc1::ApplyFaces() {
  const bool beside = HasRoomBeside();
  const bool below = beside && HasRoomBelow();
  const bool example_alone = face_ == Face::kExample && !below;
  const bool left = !example_alone && (beside || IsLeft(face_));
  const bool procedures = !example_alone && (beside || face_ == Face::kStatProcedures);
  const bool example = example_alone || (below && example_open_);

  procedures_->setMinimumWidth(beside ? procedures_->LeastWidth() : 0);
  left_->setMinimumWidth(beside ? LeastLeftWidth() : 0);
  left_->setCurrentIndex(static_cast<int>(left_face_));
  left_->setVisible(left);
  procedures_->setVisible(procedures);
  columns_->setVisible(left || procedures);
  example_->setVisible(example || below);
  example_->SetOpen(example);

  shown_ = {left && left_face_ == Face::kControlPanel, left && left_face_ == Face::kGridStatistics,
            left && left_face_ == Face::kProjectNotes, procedures, example};
  for (std::size_t i = 0; i < kFaces; ++i) face_buttons_[i]->setChecked(shown_[i]);
}

void StatProc1::FocusFirst() {
  if (IsFaceShown(Face::kControlPanel)) {
    control_panel_->FocusFirst();
  } else {
    FocusFace(face_);
  }
}

// A run that the control's value has stopped leaves the keyboard with that value.
void StatProc1::FocusInput() {
  if (!ControlValueIsRefused(session().panel, session().data)) return;
  if (!IsFaceShown(Face::kControlPanel)) ShowFace(Face::kControlPanel);
  control_panel_->FocusValue();
}

// Of the edit commands, select all and copy act on the text that has the focus.
void StatProc1::Perform(WidgetAction action) {
  QWidget* focus = focusWidget();
  if (auto* text = qobject_cast<QPlainTextEdit*>(focus)) {
    if (action == WidgetAction::kSelectAll) text->selectAll();
    if (action == WidgetAction::kCopy) text->copy();
  } else if (auto* field = qobject_cast<QLineEdit*>(focus)) {
    if (action == WidgetAction::kSelectAll) field->selectAll();
    if (action == WidgetAction::kCopy) field->copy();
  } else if (auto* list = qobject_cast<VariableListView*>(focus)) {
    if (action == WidgetAction::kSelectAll) list->selectAll();
  }
}

QSize StatProc1::minimumSizeHint() const { return {0, 0}; }

QSize StatProc1::sizeHint() const { return {fontMetrics().averageCharWidth() * 120, fontMetrics().height() * 42}; }

void StatProc1::resizeEvent(QResizeEvent* event) {
  ViewForm::resizeEvent(event);
  layout()->activate();
  FitViewbar();
  ApplyFaces();
}

void StatProc1::showEvent(QShowEvent* event) {
  ViewForm::showEvent(event);
  ApplyFaces();
}

// The frame's Run command has F5 as well; this is for a panel that stands alone. Enter presses the default button.
void StatProc1::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F5 || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    Run();
  } else {
    ViewForm::keyPressEvent(event);
  }
}

}  // namespace tessara
