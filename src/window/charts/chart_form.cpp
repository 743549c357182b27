#include "window/charts/chart_form.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>

#include "shell/session.h"
#include "window/charts/chart_output.h"
#include "window/charts/chart_view.h"
#include "window/system/page_painter.h"
#include "window/widgets/text.h"
#include "window/widgets/theme.h"

namespace tessara {
namespace {

constexpr int kStartWidth = 960;
constexpr int kStartHeight = 640;

}  // namespace

ChartForm::ChartForm(QtPlatform& platform, Session& session, QWidget* parent)
    : QDialog(parent), platform_(platform), session_(session) {
  setObjectName("Chart");
  setSizeGripEnabled(true);
  view_ = new ChartView(this);
  view_->setObjectName("MSChart");
  summary_ = new QPlainTextEdit(this);
  summary_->setObjectName("Text2");
  summary_->setReadOnly(true);
  summary_->setTabChangesFocus(true);
  summary_->setLineWrapMode(QPlainTextEdit::NoWrap);
  summary_->setAccessibleName(tr("Summary"));
  QFont type = FixedPitchFont();
  type.setPointSizeF(font().pointSizeF());
  summary_->setFont(type);
  auto* words = new QLabel(this);
  words->setObjectName("Label1");
  words->setTextFormat(Qt::PlainText);
  words->setWordWrap(true);
  words->setText(
      "To copy the chart image, click \"Copy Chart\" and then use \"Edit/Paste Special/Bitmap\" to paste the image "
      "into other software applications.  To paste the data used to create the chart, use the standard paste option.");

  QPushButton* print = MakeButton("Command1", tr("Print"), "document-print");
  QPushButton* copy = MakeButton("Command3", tr("Copy Chart"), "edit-copy");
  QPushButton* save = MakeButton("SaveChart", tr("Save as..."), "document-save-as");
  QPushButton* close = MakeButton("Command2", tr("Close"), "dialog-close");
  copy->setToolTip(tr("Copy chart image"));
  save->setToolTip(tr("Save as a PNG picture or an SVG drawing"));
  connect(print, &QPushButton::clicked, this, [this] { PrintChart(platform_, chart_, view_->size()); });
  connect(copy, &QPushButton::clicked, this, [this] { CopyChart(platform_, session_, chart_, view_->size()); });
  connect(view_, &ChartView::CopyAsked, copy, &QPushButton::click);
  connect(save, &QPushButton::clicked, this, [this] { SaveChart(platform_, chart_, view_->size()); });
  connect(close, &QPushButton::clicked, this, &QDialog::reject);

  auto* top = new QHBoxLayout;
  top->addWidget(view_, 1);
  top->addWidget(summary_);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(print);
  buttons->addWidget(copy);
  buttons->addWidget(save);
  buttons->addStretch();
  buttons->addWidget(close);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(top, 1);
  layout->addWidget(words);
  layout->addLayout(buttons);
  resize(kStartWidth, kStartHeight);
}

QPushButton* ChartForm::MakeButton(const char* name, const QString& caption, const char* icon) {
  auto* button = new QPushButton(ThemeIcon(icon), caption, this);
  button->setObjectName(name);
  button->setAutoDefault(false);  // Enter on the chart presses nothing
  return button;
}

// The narrower the window, the more lines its words take.
void ChartForm::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  const int least = layout()->totalMinimumHeightForWidth(width());
  if (least != minimumHeight()) setMinimumHeight(least);
}

void ChartForm::Open(const Chart& chart) {
  chart_ = chart;
  const QString title = ToQt(chart.title);
  setWindowTitle(title.isEmpty() ? tr("Chart") : tr("Chart - %1").arg(title));
  const QString text = ToQtLines(session_.charts.summary);
  summary_->setPlainText(text);
  summary_->setVisible(!text.isEmpty());  // most procedures have none: the chart takes the room
  int columns = 32;
  for (const QString& line : text.split('\n')) columns = std::max(columns, static_cast<int>(line.size()) + 2);
  summary_->setFixedWidth(summary_->fontMetrics().averageCharWidth() * std::min(columns, 48) +
                          summary_->verticalScrollBar()->sizeHint().width());
  view_->Show(chart_);
  show();
  raise();
  activateWindow();
  view_->setFocus();
}

}  // namespace tessara
