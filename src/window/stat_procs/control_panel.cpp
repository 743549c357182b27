#include "window/stat_procs/control_panel.h"

#include <QHBoxLayout>
#include <QMenu>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

#include "window/widgets/focus_outline.h"
#include "window/widgets/follow_font.h"
#include "window/widgets/text.h"

namespace tessara {
namespace {

constexpr int kCharactersOfAName = 9;
constexpr std::size_t kAnalysisArrow = 0;
constexpr std::size_t kIndependentArrow = 1;
constexpr std::size_t kControlArrow = 2;

constexpr const char* kNoSecondHeading = "Independent Variable";

// A menu that goes when it closes; its entries are found by name.
QMenu* MakeMenu(QWidget* owner) {
  auto* menu = new QMenu(owner);
  menu->setObjectName("ListMenu");
  menu->setAttribute(Qt::WA_DeleteOnClose);
  return menu;
}

}  // namespace

ControlPanel::ControlPanel(Session& session, QWidget* parent)
    : QGroupBox("Variable Control Panel", parent),
      session_(session),
      picker_(new VariablePicker(session.data, this)),
      analysis_(new ChosenVariablesModel(session.data, session.panel.SelectedVariables, this)),
      independent_(new ChosenVariablesModel(session.data, session.panel.IndependentVariables, this)),
      relation_(nullptr) {
  auto* targets = new QGridLayout;
  BuildTargets(targets);
  relation_ = new ControlBox(session.platform, this);

  auto* lists = new QHBoxLayout;
  lists->addWidget(picker_, 1);
  lists->addLayout(targets, 1);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(lists, 1);
  layout->addWidget(relation_);
  ConnectLists();
  ShowSession();
}

void ControlPanel::BuildTargets(QGridLayout* layout) {
  // Made in the order in which Tab goes through them.
  label2_ = new QLabel(this);
  label2_->setObjectName("Label2");
  BuildArrow(kAnalysisArrow);
  list2_ = new VariableListView(this);
  list2_->setObjectName("List2");
  FocusOutline::AskFor(list2_);
  list2_->setModel(analysis_);
  label3_ = new QLabel(this);
  label3_->setObjectName("Label3");
  BuildArrow(kIndependentArrow);
  list3_ = new VariableListView(this);
  list3_->setObjectName("List3");
  FocusOutline::AskFor(list3_);
  list3_->setModel(independent_);
  auto* label4 = new QLabel("Control", this);
  label4->setObjectName("Label4");
  BuildArrow(kControlArrow);
  field_ = new ControlField(this);
  FollowFont(field_,
             [this] { field_->setMinimumWidth(field_->fontMetrics().averageCharWidth() * kCharactersOfAName); });
  label2_->setBuddy(list2_);
  label3_->setBuddy(list3_);
  label4->setBuddy(field_);

  auto* reset = new QPushButton("Reset", this);
  reset->setObjectName("ResetVar");
  reset->setToolTip("Clear the control variable, its relation and value");
  connect(reset, &QPushButton::clicked, this, &ControlPanel::Reset);

  layout->setVerticalSpacing(layout->verticalSpacing() / 2);
  layout->addWidget(label2_, 0, 1, 1, 2);
  layout->addWidget(arrows_[kAnalysisArrow], 1, 0, Qt::AlignTop);
  layout->addWidget(list2_, 1, 1, 1, 2);
  layout->addWidget(label3_, 2, 1, 1, 2);
  layout->addWidget(arrows_[kIndependentArrow], 3, 0, Qt::AlignTop);
  layout->addWidget(list3_, 3, 1, 1, 2);
  layout->addWidget(label4, 4, 1, 1, 2);
  layout->addWidget(arrows_[kControlArrow], 5, 0, Qt::AlignVCenter);
  layout->addWidget(field_, 5, 1);
  layout->addWidget(reset, 5, 2);
  layout->setRowStretch(1, 1);
  layout->setRowStretch(3, 1);
  layout->setColumnStretch(1, 1);
}

void ControlPanel::BuildArrow(std::size_t place) {
  auto* arrow = new QToolButton(this);
  arrow->setObjectName(QString("Image2(%1)").arg(place));
  arrow->setShortcut(QKeySequence(QString("Alt+%1").arg(place + 1)));
  arrow->setFocusPolicy(Qt::StrongFocus);
  arrows_[place] = arrow;
  connect(arrow, &QToolButton::clicked, this, [this, place] { PressArrow(place); });
}

void ControlPanel::ConnectLists() {
  VariableListView* list1 = picker_->list();
  connect(picker_, &VariablePicker::Activated, this, &ControlPanel::AddFirst);
  connect(picker_, &VariablePicker::Picked, this, [this](std::size_t column) {
    PickVariable(session_.panel, column);
    emit Picked();
  });
  connect(list1, &VariableListView::DroppedFrom, this, &ControlPanel::RemoveMarked);
  connect(list2_, &VariableListView::DroppedFrom, this, [this](auto* source) { Drop(kAnalysisArrow, source); });
  connect(list3_, &VariableListView::DroppedFrom, this, [this](auto* source) { Drop(kIndependentArrow, source); });
  connect(field_, &ControlField::DroppedFrom, this, [this](auto* source) { Drop(kControlArrow, source); });
  connect(field_, &ControlField::DeletePressed, this, &ControlPanel::Reset);
  for (VariableListView* target : {list2_, list3_}) {
    connect(target, &VariableListView::DeletePressed, this, [this, target] { RemoveMarked(target); });
    connect(target, &QListView::doubleClicked, this, [this, target] { RemoveMarked(target); });
  }
  list1->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(list1, &QWidget::customContextMenuRequested, this, &ControlPanel::ShowSourceMenu);
  for (VariableListView* target : {list2_, list3_}) {
    target->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(target, &QWidget::customContextMenuRequested, this,
            [this, target](const QPoint& place) { ShowTargetMenu(target, place); });
  }
  field_->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(field_, &QWidget::customContextMenuRequested, this, &ControlPanel::ShowFieldMenu);
  // One list at a time has a selection, so that it is plain what an arrow will do.
  for (VariableListView* list : {list1, list2_, list3_}) {
    connect(list, &VariableListView::SelectionChanged, this, [this, list, list1] {
      if (list->selectionModel()->hasSelection()) {
        for (VariableListView* other : {list1, list2_, list3_}) {
          if (other != list) other->ClearSelection();
        }
      }
      ShowArrows();
    });
  }
  connect(relation_, &ControlBox::Changed, this, &ControlPanel::Changed);
}

void ControlPanel::PressArrow(std::size_t place) {
  StoreWidgets();
  using NoColumns = std::vector<std::size_t>;
  const auto chosen = picker_->Chosen();
  switch (place) {
    case kAnalysisArrow:
      PressAnalysisArrow(session_.panel, session_.platform, chosen, list2_->SelectedPlaces());
      break;
    case kIndependentArrow:
      // A list that the procedure does not use can be emptied, but takes nothing.
      PressIndependentArrow(session_.panel, session_.platform, SecondListIsIdle() ? NoColumns() : chosen,
                            list3_->SelectedPlaces());
      break;
    default:
      PressControlArrow(session_.panel, session_.data, session_.platform, chosen);
  }
  Finish();
}

void ControlPanel::AddFirst() {
  StoreWidgets();
  AddAnalysisVariable(session_.panel, session_.platform, picker_->Chosen());
  Finish();
}

void ControlPanel::Drop(std::size_t target, VariableListView* source) {
  StoreWidgets();
  const auto columns = source->SelectedColumns();
  if (columns.empty()) return;
  if (source != picker_->list() && target != kControlArrow) RemoveMarked(source);
  if (target == kAnalysisArrow) AddAnalysisVariable(session_.panel, session_.platform, columns);
  if (target == kIndependentArrow) AddIndependentVariable(session_.panel, session_.platform, columns);
  if (target == kControlArrow) SetControlVariable(session_.panel, session_.data, session_.platform, columns);
  Finish();
}

void ControlPanel::RemoveMarked(VariableListView* list) {
  const auto places = list->SelectedPlaces();
  if (places.empty()) return;
  if (list == list2_) RemoveAnalysisVariables(session_.panel, places);
  if (list == list3_) RemoveIndependentVariables(session_.panel, places);
  Finish();
  // The next entry stands ready to go too.
  const int rest = list->model()->rowCount();
  if (rest > 0) list->setCurrentIndex(list->model()->index(std::min(static_cast<int>(places.front()), rest - 1), 0));
}

void ControlPanel::RemoveAll(VariableListView* list) {
  list->selectAll();
  RemoveMarked(list);
}

void ControlPanel::ShowSourceMenu(const QPoint& place) {
  VariableListView* list = picker_->list();
  const bool taking = list->selectionModel()->hasSelection();
  QMenu* menu = MakeMenu(this);
  for (std::size_t arrow = 0; arrow < kArrows; ++arrow) {
    const QString key = arrows_[arrow]->shortcut().toString(QKeySequence::NativeText);
    QAction* add = menu->addAction("Add to " + TargetName(arrow) + '\t' + key);
    add->setObjectName(QString("AddTo%1").arg(arrow));
    add->setEnabled(taking && (arrow != kIndependentArrow || list3_->isEnabled()));
    connect(add, &QAction::triggered, this, [this, arrow] { PressArrow(arrow); });
  }
  menu->addSeparator();
  connect(menu->addAction("Select All"), &QAction::triggered, list, &QListView::selectAll);
  menu->popup(list->viewport()->mapToGlobal(place));
}

void ControlPanel::ShowTargetMenu(VariableListView* list, const QPoint& place) {
  QMenu* menu = MakeMenu(this);
  QAction* remove = menu->addAction("Remove\tDel");
  remove->setObjectName("Remove");
  remove->setEnabled(list->selectionModel()->hasSelection());
  connect(remove, &QAction::triggered, this, [this, list] { RemoveMarked(list); });
  QAction* all = menu->addAction("Remove All");
  all->setObjectName("RemoveAll");
  all->setEnabled(list->model()->rowCount() > 0);
  connect(all, &QAction::triggered, this, [this, list] { RemoveAll(list); });
  menu->popup(list->viewport()->mapToGlobal(place));
}

void ControlPanel::ShowFieldMenu(const QPoint& place) {
  QMenu* menu = MakeMenu(this);
  QAction* reset = menu->addAction("Reset");
  reset->setObjectName("Reset");
  reset->setEnabled(ControlIsSet(session_.panel, session_.data));
  connect(reset, &QAction::triggered, this, &ControlPanel::Reset);
  menu->popup(field_->mapToGlobal(place));
}

void ControlPanel::Reset() {
  ResetControl(session_.panel);
  relation_->Clear();
  Finish();
}

void ControlPanel::Finish() {
  ShowSession();
  emit Changed();
}

void ControlPanel::StoreWidgets() { session_.panel.control = relation_->Choice(); }

void ControlPanel::ShowSession() {
  picker_->ShowData();
  analysis_->Refresh();
  independent_->Refresh();
  const ProcedurePanel& panel = session_.panel;
  const bool controlled = ControlIsSet(panel, session_.data);
  field_->setText(controlled ? ToQt(session_.data.VariableName(panel.control_variable.column)) : QString());
  relation_->Show(panel.control);
  ShowHeadings();
  ShowArrows();
}

void ControlPanel::ShowHeadings() {
  const ProcedureRow* row = ShownRow(session_.panel);
  const bool sampling = row && row->first_heading.empty();
  label2_->setText(row && !sampling ? ToQt(row->first_heading) : QString("Analysis Variable"));
  const bool second = !row || !row->second_heading.empty();
  label3_->setText(row && second ? ToQt(row->second_heading) : QString(kNoSecondHeading));
  label3_->setEnabled(second);
  list3_->setEnabled(second);
  list2_->setAccessibleName(label2_->text());
  list3_->setAccessibleName(label3_->text());
  list2_->SetHint("Add with the arrow or Enter");
  list3_->SetHint(second ? QString("Add with the arrow") : QString("Not used here"));
}

QString ControlPanel::TargetName(std::size_t arrow) const {
  return arrow == kAnalysisArrow ? label2_->text() : arrow == kIndependentArrow ? label3_->text() : QString("Control");
}

bool ControlPanel::SecondListIsIdle() const {
  return !list3_->isEnabled() && !session_.panel.IndependentVariables.empty();
}

// An arrow points where the variables will go.
void ControlPanel::ShowArrows() {
  const bool taking = picker_->list()->selectionModel()->hasSelection();
  const std::array<bool, kArrows> filled = {analysis_->rowCount() > 0, independent_->rowCount() > 0,
                                            ControlIsSet(session_.panel, session_.data)};
  arrows_[kIndependentArrow]->setEnabled(list3_->isEnabled() || SecondListIsIdle());
  for (std::size_t place = 0; place < kArrows; ++place) {
    const bool idle = place == kIndependentArrow && SecondListIsIdle();
    const bool removes = filled[place] && (!taking || idle);
    QToolButton* arrow = arrows_[place];
    arrow->setIcon(QIcon::fromTheme(removes ? "go-previous" : "go-next",
                                    style()->standardIcon(removes ? QStyle::SP_ArrowLeft : QStyle::SP_ArrowRight)));
    const QString what = (removes ? "Remove from " : "Add to ") + TargetName(place);
    arrow->setToolTip(what + " (" + arrow->shortcut().toString(QKeySequence::NativeText) + ")");
    arrow->setAccessibleName(what);
  }
}

QString ControlPanel::ControlWords() const {
  if (!ControlIsSet(session_.panel, session_.data)) return {};
  const QString words = relation_->Words();
  return words.isEmpty() ? field_->text() : field_->text() + " " + words;
}

}  // namespace tessara
