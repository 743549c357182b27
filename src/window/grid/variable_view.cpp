#include "window/grid/variable_view.h"

#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <new>

#include "window/grid/variable_table.h"
#include "window/widgets/focus_outline.h"
#include "window/widgets/follow_font.h"
#include "window/widgets/text.h"

namespace tessara {
namespace {

constexpr const char* kHelpPage = "UserManual1.html#variables";
constexpr int kSlice = 12;  // milliseconds of counting between two looks at the keyboard
// Characters that the sections are wide at first.
constexpr std::array<int, VariableTable::kSections> kCharacters = {13, 30, 17, 32, 9, 9, 13};
constexpr int kRowsWanted = 18;

}  // namespace

VariableView::VariableView(Session& session, QWidget* parent)
    : QDialog(parent, Qt::Window),
      session_(session),
      model_(new VariableTable(session.data, this)),
      table_(new QTableView(this)),
      counting_(new QTimer(this)) {
  setObjectName("VariableView");
  setWindowTitle("Variables");
  setModal(false);
  BuildTable();
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(table_, 1);
  layout->addWidget(BuildButtons());
  FollowFont(this, [this] { Measure(); });
  counting_->setInterval(0);
  connect(counting_, &QTimer::timeout, this, &VariableView::CountSome);
  connect(new QShortcut(QKeySequence(Qt::Key_F1), this), &QShortcut::activated, this,
          [this] { emit HelpAsked(kHelpPage); });
  connect(new QShortcut(QKeySequence(QKeySequence::Copy), this), &QShortcut::activated, this, &VariableView::CopyRows);
}

void VariableView::BuildTable() {
  table_->setObjectName("VariableTable");
  table_->setAccessibleName("Variables");
  FocusOutline::AskFor(table_);
  table_->setModel(model_);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table_->setTabKeyNavigation(false);
  table_->setWordWrap(false);
  table_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  table_->horizontalHeader()->setHighlightSections(false);
  table_->horizontalHeader()->setStretchLastSection(true);
  connect(table_, &QTableView::doubleClicked, this, &VariableView::AskForFormat);
}

QWidget* VariableView::BuildButtons() {
  auto* row = new QWidget(this);
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addStretch(1);
  const auto add = [&](const char* name, const QString& caption, const QString& tip) {
    auto* button = new QPushButton(caption, row);
    button->setObjectName(name);
    button->setToolTip(tip);
    button->setAutoDefault(false);
    layout->addWidget(button);
    return button;
  };
  connect(add("FormatVariable", "&Format...", "Describe the selected variable (Enter)"), &QPushButton::clicked, this,
          &VariableView::AskForFormat);
  connect(add("VariablesHelp", "&Help", "Help on this table (F1)"), &QPushButton::clicked, this,
          [this] { emit HelpAsked(kHelpPage); });
  connect(add("CloseVariables", "&Close", "Close this table (Esc)"), &QPushButton::clicked, this,
          &VariableView::reject);
  return row;
}

void VariableView::Measure() {
  const int character = fontMetrics().averageCharWidth();
  const int height = fontMetrics().height() * 3 / 2;
  table_->verticalHeader()->setMinimumSectionSize(height);
  table_->verticalHeader()->setDefaultSectionSize(height);
  for (int section = 0; section < VariableTable::kSections; ++section) {
    table_->setColumnWidth(section, kCharacters[static_cast<std::size_t>(section)] * character);
  }
}

void VariableView::Open() {
  if (!isVisible()) {
    int width = table_->verticalHeader()->sizeHint().width();
    for (int section = 0; section < VariableTable::kSections; ++section) width += table_->columnWidth(section);
    const QSize wanted(width + fontMetrics().height() * 3, fontMetrics().height() * kRowsWanted * 3 / 2);
    if (!resized_) resize(wanted.boundedTo(screen()->availableSize()));
    resized_ = true;
    show();
  }
  ShowSession();
  raise();
  activateWindow();
  const auto column = static_cast<int>(std::max<std::size_t>(session_.data.CurrentColumn, 1));
  table_->setCurrentIndex(model_->index(column - 1, 0));
  table_->setFocus();
}

void VariableView::ShowSession() {
  if (!isVisible()) return;
  model_->Refresh();
  counting_->start();
}

void VariableView::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  emit Shown(true);
}

void VariableView::hideEvent(QHideEvent* event) {
  QDialog::hideEvent(event);
  if (event->spontaneous()) return;
  counting_->stop();
  emit Shown(false);
}

void VariableView::CountSome() {
  QElapsedTimer time;
  time.start();
  const int first = std::max(table_->rowAt(0), 0);
  bool more = true;
  try {
    while (more && time.elapsed() < kSlice) more = model_->CountNext(first);
  } catch (const std::bad_alloc&) {
    more = false;  // the shares that are not there yet stay empty
  }
  if (!more) counting_->stop();
}

void VariableView::AskForFormat() {
  const QModelIndex current = table_->currentIndex();
  if (current.isValid()) emit FormatAsked(static_cast<std::size_t>(current.row()) + 1);
}

// The selected rows as a block: tabs between the sections, CR between the rows.
void VariableView::CopyRows() {
  QModelIndexList rows = table_->selectionModel()->selectedRows();
  std::ranges::sort(rows, {}, &QModelIndex::row);
  QString block;
  for (const QModelIndex& row : rows) {
    if (!block.isEmpty()) block += '\r';
    for (int section = 0; section < VariableTable::kSections; ++section) {
      if (section > 0) block += '\t';
      block += row.siblingAtColumn(section).data().toString();
    }
  }
  if (!rows.isEmpty()) session_.platform.SetClipboardText(FromQt(block));
}

void VariableView::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    AskForFormat();
    return;
  }
  QDialog::keyPressEvent(event);
}

}  // namespace tessara
