#include "window/stat_procs/stat_proc1_pages.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QTextDocument>
#include <QVBoxLayout>

#include "data/data_statistics.h"
#include "procedures/examples/examples.h"
#include "window/system/page_painter.h"
#include "window/widgets/elided_label.h"
#include "window/widgets/focus_outline.h"
#include "window/widgets/follow_font.h"
#include "window/widgets/text.h"

namespace tessara {
namespace {

constexpr int kExampleLines = 6;  // an example that shows fewer lines is of no use

}  // namespace

StatisticsPage::StatisticsPage(QWidget* parent)
    : QGroupBox("Data Grid Statistics", parent), usage_(new QProgressBar(this)) {
  auto* layout = new QGridLayout;
  layout->setColumnStretch(2, 1);
  for (std::size_t i = 0; i < captions_.size(); ++i) {
    captions_[i] = new QLabel(this);
    captions_[i]->setObjectName(QString("StatisticsCaption%1").arg(i + 1));
    captions_[i]->setForegroundRole(QPalette::PlaceholderText);
    values_[i] = new QLabel(this);
    values_[i]->setObjectName(QString("StatisticsValue%1").arg(i + 1));
    values_[i]->setTextInteractionFlags(Qt::TextSelectableByMouse);
    layout->addWidget(captions_[i], static_cast<int>(i), 0);
    layout->addWidget(values_[i], static_cast<int>(i), 1);
  }
  usage_->setObjectName("UsageBar");
  usage_->setRange(0, 100);
  usage_->setTextVisible(false);
  usage_->setAccessibleName("Data cell usage");
  FollowFont(usage_, [this] { usage_->setMaximumHeight(usage_->fontMetrics().height()); });
  auto* page = new QVBoxLayout(this);
  page->addLayout(layout);
  page->addWidget(usage_);
  page->addStretch(1);
}

void StatisticsPage::ShowData(const DataSet& data_set) {
  const DataStatistics statistics = RefreshDataStatistics(data_set);
  for (std::size_t i = 0; i < captions_.size(); ++i) {
    captions_[i]->setText(ToQt(statistics.lines[i].caption));
    values_[i]->setText(ToQt(statistics.lines[i].value));
  }
  usage_->setValue(qRound(statistics.usage_bar));
}

NotesPage::NotesPage(Session& session, QWidget* parent)
    : QGroupBox("Project Notes", parent), session_(session), notes_(new QPlainTextEdit(this)) {
  notes_->setObjectName("ProjectNotes");
  notes_->setAccessibleName("Project Notes");
  notes_->setPlaceholderText(
      "What these data are, where they come from, what you have done to them. Saved with the "
      "data file.");
  notes_->setTabChangesFocus(true);
  notes_->viewport()->setAcceptDrops(false);  // a data file that is dropped here is for the frame
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(notes_);
  connect(notes_, &QPlainTextEdit::textChanged, this, &NotesPage::Store);
  ShowData();
}

void NotesPage::Store() {
  SetProjectNotes(session_, FromQtLines(notes_->toPlainText()));
  emit Changed();
}

void NotesPage::ShowData() {
  const QString notes = ToQtLines(session_.data.ProjectNotes);
  if (notes_->toPlainText() == notes) return;
  const QSignalBlocker quiet(notes_);
  notes_->setPlainText(notes);
}

ExamplePane::ExamplePane(QWidget* parent)
    : QWidget(parent),
      fold_(new QToolButton(this)),
      heading_(new ElidedLabel(this)),
      example_(new QPlainTextEdit(this)) {
  fold_->setObjectName("FoldExample");
  fold_->setAutoRaise(true);
  fold_->setArrowType(Qt::DownArrow);
  fold_->setAccessibleName("Example of output");
  connect(fold_, &QToolButton::clicked, this, &ExamplePane::FoldPressed);

  heading_->setObjectName("Label10");
  heading_->setTextFormat(Qt::PlainText);
  QFont bold = heading_->font();
  bold.setBold(true);
  heading_->setFont(bold);
  heading_->setBuddy(example_);

  example_->setObjectName("Text9");
  FocusOutline::AskFor(example_);
  example_->setAccessibleName("Example of output");
  example_->setReadOnly(true);
  example_->setTabChangesFocus(true);
  example_->setAcceptDrops(false);
  example_->setFont(FixedPitchFont());
  example_->setLineWrapMode(QPlainTextEdit::NoWrap);
  FollowFont(this, [this] {
    example_->document()->setDocumentMargin(fontMetrics().height());
    SetOpen(example_->isVisibleTo(this));
  });
  example_->setPlaceholderText("Select a procedure to see an example of its report and how to read it.");

  auto* header = new QHBoxLayout;
  header->addWidget(fold_);
  header->addWidget(heading_, 1);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(layout->spacing() / 2);
  layout->addLayout(header);
  layout->addWidget(example_, 1);
}

void ExamplePane::ShowPanel(const ProcedurePanel& panel) {
  const auto wanted = std::make_pair(panel.selected, panel.regression);
  if (shown_ == wanted) return;
  shown_ = wanted;
  const ProcedureRow* row = ShownRow(panel);
  heading_->setText(row ? ToQt(row->example_heading) : QString("  Example of output"));
  example_->setPlainText(ToQt(ExampleOfOutput(panel.selected, panel.regression)));
}

void ExamplePane::SetOpen(bool open) {
  fold_->setArrowType(open ? Qt::DownArrow : Qt::RightArrow);
  fold_->setToolTip(open ? "Fold the example away" : "Show the example");
  example_->setVisible(open);
  setMaximumHeight(open ? QWIDGETSIZE_MAX : FoldedHeight());
}

int ExamplePane::FoldedHeight() const { return std::max(fold_->sizeHint().height(), heading_->sizeHint().height()); }

int ExamplePane::LeastHeight() const {
  return FoldedHeight() + QFontMetrics(example_->font()).lineSpacing() * kExampleLines + fontMetrics().height() * 2;
}

}  // namespace tessara
