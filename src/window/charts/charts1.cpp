#include "window/charts/charts1.h"

#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "window/charts/chart_form.h"
#include "window/charts/chart_output.h"
#include "window/charts/chart_view.h"
#include "window/system/qt_platform.h"

namespace tessara {

Charts1::Charts1(QtPlatform& platform, Session& the_session, QWidget* parent)
    : ViewForm(the_session, View::ViewCharts, parent), platform_(platform) {
  setObjectName("Charts1");
  hint_ = new QLabel(tr("Double-click a chart, or press Enter, to enlarge, print, copy or save it."), this);
  hint_->setObjectName("Hint");
  hint_->setForegroundRole(QPalette::PlaceholderText);
  const int gap = fontMetrics().height() / 2;
  grid_ = new QGridLayout;
  grid_->setSpacing(gap);
  for (std::size_t i = 0; i < views_.size(); ++i) {
    views_[i] = new ChartView(this);
    views_[i]->setObjectName(QString("MSChart%1").arg(i + 1));
    connect(views_[i], &ChartView::Opened, this, [this, i] { OpenChart(i); });
    connect(views_[i], &ChartView::CopyAsked, this, [this, i] { CopyView(i); });
  }
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(gap, gap, gap, gap);
  layout->setSpacing(gap);
  layout->addWidget(hint_);
  layout->addLayout(grid_, 1);
  ArrangeViews(0);
}

void Charts1::ShowSession() {
  if (isVisible() && shown_revision_ != session().charts.Revision) ShowCharts();
}

void Charts1::showEvent(QShowEvent* event) {
  ViewForm::showEvent(event);
  ShowSession();
}

void Charts1::FocusFirst() { views_[0]->setFocus(); }

void Charts1::ShowCharts() {
  const ChartStore& store = session().charts;
  shown_revision_ = store.Revision;
  for (std::size_t i = 0; i < views_.size(); ++i) {
    if (i < store.charts.size()) {
      views_[i]->Show(WithRows(store.charts[i]));
    } else {
      views_[i]->ShowNothing(i == 0 ? EmptyWords() : QString());
    }
  }
  ArrangeViews(store.charts.size());
}

// One chart has the whole place, two stand side by side, the third stands below both. The first view shows also
// without a chart: it says why there is none.
void Charts1::ArrangeViews(std::size_t count) {
  for (ChartView* view : views_) grid_->removeWidget(view);
  for (std::size_t i = 0; i < views_.size(); ++i) {
    const bool alone_in_row = i + 1 >= count && i % 2 == 0;
    grid_->addWidget(views_[i], static_cast<int>(i / 2), static_cast<int>(i % 2), 1, alone_in_row ? 2 : 1);
    views_[i]->setVisible(i == 0 || i < count);
  }
  for (int line = 0; line < 2; ++line) {
    grid_->setRowStretch(line, line == 0 || count > 2 ? 1 : 0);
    grid_->setColumnStretch(line, line == 0 || count > 1 ? 1 : 0);
  }
  hint_->setVisible(count > 0);
}

QString Charts1::EmptyWords() const {
  const ChartStore& store = session().charts;
  if (store.SelectedVariableCount > 1) {
    return tr(
        "The last run had several variables, and charts are drawn for one.\n\n"
        "Choose a single variable in Stat Procs and run the procedure again.");
  }
  if (store.SelectedVariableCount == 1) {
    return tr(
        "The last procedure left no charts.\n\n"
        "Frequencies, Descriptives, Correlation, Crosstabulation, Diagnostic and the T-test draw them.");
  }
  return tr(
      "There are no charts in this session.\n\n"
      "Run a procedure for one variable in Stat Procs, and its charts appear here.");
}

void Charts1::OpenChart(std::size_t view) {
  const std::optional<Chart> chart = ShowChart(session().charts, view, platform_);
  if (!chart) return;
  if (!form_) form_ = new ChartForm(platform_, session(), this);
  form_->Open(*chart);
}

void Charts1::CopyView(std::size_t view) {
  const ChartStore& store = session().charts;
  if (view < store.charts.size()) CopyChart(platform_, session(), WithRows(store.charts[view]), views_[view]->size());
}

}  // namespace tessara
