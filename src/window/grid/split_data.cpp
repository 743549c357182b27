#include "window/grid/split_data.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include "shell/exchange_questions.h"
#include "window/stat_procs/variable_lists.h"
#include "window/widgets/focus_outline.h"
#include "window/widgets/follow_font.h"
#include "window/widgets/text.h"

namespace tessara {
namespace {

constexpr int kCharactersOfALine = 64;
constexpr int kRowsWanted = 12;
constexpr const char* kPrompt =
    "Use split data to create a new data file that only contains variables you select from the current file.  "
    "Double-click 'None' to reset the new file variable list.";

// All variables, but not the entry that stands for none.
class VariablesAlone : public VariableFilter {
 public:
  using VariableFilter::VariableFilter;

 protected:
  bool filterAcceptsRow(int row, const QModelIndex& parent) const override {
    return row != 0 && VariableFilter::filterAcceptsRow(row, parent);
  }
};

}  // namespace

SplitData::SplitData(Session& session, FormRunner run, QWidget* parent)
    : QDialog(parent), session_(session), run_(std::move(run)) {
  setObjectName("SplitData");
  setWindowTitle(tr("Split Data"));
  auto* prompt = new QLabel(kPrompt, this);
  prompt->setObjectName("Label1");
  prompt->setWordWrap(true);
  FollowFont(prompt,
             [prompt] { prompt->setMinimumWidth(prompt->fontMetrics().averageCharWidth() * kCharactersOfALine); });
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(prompt);
  BuildLists();
  BuildButtons();
  ShowChosen();
  list1_->setFocus();
}

void SplitData::BuildLists() {
  all_ = new AllVariablesModel(session_.data, this);
  variables_ = new VariablesAlone(this);
  variables_->setSourceModel(all_);
  list1_ = new VariableListView(this);
  list1_->setObjectName("List1");
  list1_->setModel(variables_);
  list1_->setDragEnabled(false);
  list1_->setAccessibleName(tr("Current File Variables"));
  FocusOutline::AskFor(list1_);
  list1_->SetHint(tr("No name or label holds this text"));
  auto* find = new QLineEdit(this);
  find->setObjectName("FindVariable");
  find->setPlaceholderText(tr("Find"));
  find->setAccessibleName(tr("Find variable"));
  find->setClearButtonEnabled(true);
  list2_ = new QListWidget(this);
  list2_->setObjectName("List2");
  list2_->setAccessibleName(tr("New File Variables"));
  FocusOutline::AskFor(list2_);
  list2_->installEventFilter(this);
  auto* current = new QLabel(tr("&Current File Variables"), this);
  current->setBuddy(list1_);
  auto* chosen = new QLabel(tr("New &File Variables"), this);
  chosen->setBuddy(list2_);
  add_ = new QPushButton(tr("&Add"), this);
  add_->setObjectName("Image1");
  add_->setToolTip(tr("Adds the variable, also once more"));
  add_all_ = new QPushButton(tr("Add A&ll Selected"), this);
  add_all_->setObjectName("Image3");
  add_all_->setToolTip(tr("Adds every selected variable that is not there yet"));
  count_ = new QLabel(this);
  count_->setObjectName("Count");
  auto* lists = new QGridLayout;
  lists->addWidget(current, 0, 0);
  lists->addWidget(chosen, 0, 2);
  lists->addWidget(find, 1, 0);
  lists->addWidget(list1_, 2, 0, 4, 1);
  lists->addWidget(list2_, 1, 2, 5, 1);
  lists->addWidget(add_, 3, 1);
  lists->addWidget(add_all_, 4, 1);
  lists->addWidget(count_, 6, 2);
  lists->setRowStretch(2, 1);
  lists->setRowStretch(5, 1);
  lists->setColumnStretch(0, 1);
  lists->setColumnStretch(2, 1);
  static_cast<QVBoxLayout*>(layout())->addLayout(lists, 1);
  FollowFont(list1_, [this] { list1_->setMinimumHeight(list1_->fontMetrics().lineSpacing() * kRowsWanted); });
  connect(find, &QLineEdit::textChanged, this, [this](const QString& typed) { variables_->SetTyped(typed); });
  connect(list1_, &VariableListView::Typed, this, [find](const QString& text) {
    find->setFocus();
    find->setText(text);
  });
  connect(list1_, &QListView::doubleClicked, this, &SplitData::AddOne);
  connect(list1_, &VariableListView::EnterPressed, this, &SplitData::AddOne);
  connect(add_, &QPushButton::clicked, this, &SplitData::AddOne);
  connect(add_all_, &QPushButton::clicked, this, &SplitData::AddSelected);
  connect(list2_, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* item) {
    if (list2_->row(item) == 0) Reset();
  });
}

void SplitData::BuildButtons() {
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel | QDialogButtonBox::Help, this);
  auto* run = buttons->addButton(tr("&Run"), QDialogButtonBox::ActionRole);
  run->setObjectName("Run1");
  for (QPushButton* button : findChildren<QPushButton*>()) button->setAutoDefault(false);
  layout()->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  const auto ask_help = [this] { emit HelpAsked("UserManual1.html#split"); };
  connect(buttons, &QDialogButtonBox::helpRequested, this, ask_help);
  connect(new QShortcut(QKeySequence(Qt::Key_F1), this), &QShortcut::activated, this, ask_help);
  connect(run, &QPushButton::clicked, this, &SplitData::Run);
}

// Enter on "None" is its double click by keyboard.
bool SplitData::eventFilter(QObject* watched, QEvent* event) {
  if (watched != list2_ || event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
  const int key = static_cast<QKeyEvent*>(event)->key();
  if ((key != Qt::Key_Return && key != Qt::Key_Enter) || list2_->currentRow() != 0) return false;
  Reset();
  return true;
}

// The one that the cursor is on, if it is among the selected ones.
void SplitData::AddOne() {
  const std::vector<std::size_t> selected = list1_->SelectedColumns();
  const QModelIndex current = list1_->currentIndex();
  std::size_t column = selected.empty() ? 0 : selected.front();
  if (current.isValid() && list1_->selectionModel()->isSelected(current)) {
    column = current.data(kColumnRole).toULongLong();
  }
  run_([&] { AddVariable(session_.split, column, session_.platform); });
  ShowChosen();
}

void SplitData::AddSelected() {
  const std::vector<std::size_t> selected = list1_->SelectedColumns();
  run_([&] { AddAllVariables(session_.split, selected, session_.platform); });
  ShowChosen();
}

void SplitData::Reset() {
  ResetSplit(session_.split);
  ShowChosen();
}

void SplitData::Run() {
  bool written = false;
  run_([&] { written = AskAndSplit(session_); });
  if (written) accept();
}

void SplitData::ShowChosen() {
  const std::vector<std::size_t>& columns = session_.split.SplitColumns;
  list2_->clear();
  list2_->addItem(tr("None"));
  for (const std::size_t column : columns) list2_->addItem(ToQt(session_.data.VariableName(column)));
  list2_->scrollToBottom();
  count_->setText(tr("%1 of at most %2 variables").arg(columns.size()).arg(kMostSplitVariables));
}

}  // namespace tessara
