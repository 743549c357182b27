#include "window/grid/data_recode.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "data/recode/recode_run.h"
#include "shell/command_row.h"
#include "window/grid/recode_pages.h"
#include "window/grid/recode_preview.h"
#include "window/stat_procs/variable_lists.h"
#include "window/widgets/focus_outline.h"
#include "window/widgets/follow_font.h"
#include "window/widgets/text.h"

namespace tessara {
namespace {

constexpr int kCharactersOfAName = 18;
constexpr int kCharactersOfTheBoxes = 46;
constexpr int kLeastRowsOfTheList = 8;

}  // namespace

DataRecode::DataRecode(Session& session, QWidget* parent)
    : QDialog(parent), session_(session), variables_(new AllVariablesModel(session.data, this)) {
  setObjectName("DataRecode");
  setModal(false);
  help_ = new QLabel(this);
  help_->setObjectName("RecodeHelp");
  help_->setTextFormat(Qt::PlainText);
  help_->setWordWrap(true);
  help_->setFrameShape(QFrame::StyledPanel);
  help_->setMargin(fontMetrics().height() / 3);

  QWidget* variables = BuildVariables();
  pages_ = new RecodePages(session, this);
  FollowFont(pages_,
             [this] { pages_->setMinimumWidth(pages_->fontMetrics().averageCharWidth() * kCharactersOfTheBoxes); });
  preview_ = new RecodePreviewTable(this);
  auto* boxes = new QVBoxLayout;
  boxes->addWidget(pages_);
  boxes->addWidget(preview_);
  boxes->addStretch(1);
  auto* middle = new QHBoxLayout;
  middle->addWidget(variables);
  middle->addLayout(boxes, 1);

  auto* layout = new QVBoxLayout(this);
  layout->addWidget(help_);
  layout->addLayout(middle, 1);
  layout->addWidget(BuildButtons());
  Connect();
}

QWidget* DataRecode::BuildVariables() {
  list1_ = new QListView(this);
  list1_->setObjectName("List1");
  list1_->setAccessibleName("Variables");
  FocusOutline::AskFor(list1_);
  list1_->setModel(variables_);
  list1_->setUniformItemSizes(true);
  list1_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  list1_->setTextElideMode(Qt::ElideRight);
  FollowFont(list1_, [this] {
    list1_->setFixedWidth(list1_->fontMetrics().averageCharWidth() * (kCharactersOfAName + 4));
    list1_->setMinimumHeight(list1_->fontMetrics().height() * kLeastRowsOfTheList);
  });
  return list1_;
}

QPushButton* DataRecode::MakeButton(const char* name, const QString& caption, const QString& tip) {
  auto* button = new QPushButton(caption, this);
  button->setObjectName(name);
  button->setToolTip(tip);
  return button;
}

QWidget* DataRecode::BuildButtons() {
  auto* row = new QWidget(this);
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  // In the order of the keyboard, which reaches Run first.
  run_ = MakeButton("Run", {}, {});
  run_->setDefault(true);
  undo_ = MakeButton("Undo", "&Undo", "Write the cells as they were before the last Replace into the picked variable");
  reset_ = MakeButton("Reset", "Re&set", {});
  auto* help = MakeButton("RecodeHelpButton", "&Help", "Help on this panel (F1)");
  connect(help, &QPushButton::clicked, this, &DataRecode::AskHelp);
  auto* close = MakeButton("CloseRecode", "Close", "Close this panel (Esc)");
  connect(close, &QPushButton::clicked, this, &DataRecode::reject);
  layout->addWidget(help);
  layout->addStretch(1);
  layout->addWidget(undo_);
  layout->addWidget(reset_);
  layout->addWidget(run_);
  layout->addWidget(close);
  return row;
}

void DataRecode::Connect() {
  // A click picks a variable anew, also the one that is picked already; the arrow keys pick as they go.
  connect(list1_, &QListView::clicked, this, [this](const QModelIndex& index) { Pick(index.row()); });
  connect(list1_->selectionModel(), &QItemSelectionModel::currentChanged, this, [this](const QModelIndex& index) {
    if (!showing_ && index.isValid()) Pick(index.row());
  });
  connect(pages_, &RecodePages::Changed, this, &DataRecode::BoxesChanged);
  connect(pages_, &RecodePages::VariableAsked, this, &DataRecode::CopyVariable);
  connect(run_, &QPushButton::clicked, this, [this] { Press(kRunRecodeCommand); });
  connect(undo_, &QPushButton::clicked, this, [this] { Press(kUndoRecodeCommand); });
  connect(reset_, &QPushButton::clicked, this, [this] { Press(kResetRecodeCommand); });
  connect(new QShortcut(QKeySequence(Qt::Key_F1), this), &QShortcut::activated, this, &DataRecode::AskHelp);
}

void DataRecode::Open() {
  stale_ = true;
  ShowMode();
  show();
  ShowSession();
  GrowToContent();
  raise();
  activateWindow();
  if (session_.recode.RecodeColumn == 0) {
    list1_->setFocus();
  } else {
    pages_->FocusFirst();
  }
}

// The text on top takes more lines in a narrow panel, which the size hint alone does not know.
void DataRecode::GrowToContent() {
  layout()->activate();
  const QSize wanted = size().expandedTo(sizeHint());
  const int height = std::max(wanted.height(), layout()->totalHeightForWidth(wanted.width()));
  resize(QSize(wanted.width(), height).boundedTo(screen()->availableSize()));
}

void DataRecode::ShowMode() {
  const RecodeModeRow& row = RowOfMode(session_.recode.mode);
  setWindowTitle(ToQt(row.title));
  run_->setText(ToQt(row.run_caption));
  run_->setToolTip(ToQt(row.run_tip));
  help_->setText(ToQt(row.help).simplified());
  const bool finds = row.mode == RecodeMode::kFind;
  reset_->setToolTip(finds ? "Remove the bold marks" : "Empty the boxes and start a new variable");
  undo_->setVisible(row.mode == RecodeMode::kReplace);
  preview_->setVisible(!finds);
}

void DataRecode::ShowSession() {
  if (!isVisible()) return;
  variables_->Refresh();
  ShowVariables();
  pages_->ShowPanel();
  undo_->setEnabled(session_.recode.UndoColumn.has_value());
  if (!stale_ && revision_ == session_.data.Revision()) return;
  ShowPreview();
}

void DataRecode::ShowVariables() {
  showing_ = true;
  const QModelIndex picked = variables_->index(static_cast<int>(session_.recode.RecodeColumn), 0);
  if (list1_->currentIndex() != picked) list1_->setCurrentIndex(picked);
  showing_ = false;
}

void DataRecode::ShowPreview() {
  stale_ = false;
  revision_ = session_.data.Revision();
  if (preview_->isVisibleTo(this)) preview_->ShowPanel(session_.recode, session_.data);
}

void DataRecode::Pick(int row) {
  PickRecodeVariable(session_.recode, static_cast<std::size_t>(row));
  BoxesChanged();
}

void DataRecode::CopyVariable(int which) {
  if (which == 1) {
    CopyVariable1(session_.recode, session_.data, session_.platform);
  } else {
    CopyVariable2(session_.recode, session_.data, session_.platform);
  }
  BoxesChanged();
}

void DataRecode::BoxesChanged() {
  stale_ = true;
  pages_->ShowPanel();
  ShowPreview();
}

void DataRecode::Press(int command) {
  stale_ = true;
  emit CommandRequested(command);
}

void DataRecode::AskHelp() { emit HelpAsked("UserManual1.html#" + ToQt(RowOfMode(session_.recode.mode).help_section)); }

}  // namespace tessara
