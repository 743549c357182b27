#include "window/charts/charts1.h"

#include <QAction>
#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>

#include "window/charts/chart_form.h"
#include "window/charts/chart_output.h"
#include "window/charts/chart_view.h"
#include "window/system/qt_platform.h"
#include "window/widgets/hint_label.h"
#include "window/widgets/scrolled.h"
#include "window/widgets/theme.h"

namespace tessara {

Charts1::Charts1(QtPlatform& platform, Session& the_session, QWidget* parent)
    : ViewForm(the_session, View::ViewCharts, parent), platform_(platform) {
  setObjectName("Charts1");
  hint_ = new HintLabel(QPalette::WindowText, this);
  hint_->setText(tr("Double-click a chart, or press Enter, to enlarge, print, copy or save it."));
  hint_->setObjectName("Hint");
  hint_->setWordWrap(true);
  const int gap = fontMetrics().height() / 2;
  auto* page = new QWidget(this);
  grid_ = new QGridLayout(page);
  grid_->setContentsMargins(0, 0, 0, 0);
  grid_->setSpacing(gap);
  for (std::size_t i = 0; i < views_.size(); ++i) {
    views_[i] = new ChartView(page);
    views_[i]->setObjectName(QString("MSChart%1").arg(i + 1));
    connect(views_[i], &ChartView::Opened, this, [this, i] { OpenChart(i); });
    connect(views_[i], &ChartView::CopyAsked, this, [this, i] { CopyView(i); });
    AddMenu(i);
  }
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(gap, gap, gap, gap);
  layout->setSpacing(gap);
  layout->addWidget(hint_);
  layout->addWidget(new Scrolled(page, this), 1);
  ArrangeViews(0);
}

// What the window of an enlarged chart has as buttons.
void Charts1::AddMenu(std::size_t view) {
  const auto add = [&](const char* icon, const QString& caption, auto act) {
    auto* action = new QAction(ThemeIcon(icon), caption, views_[view]);
    views_[view]->addAction(action);
    connect(action, &QAction::triggered, this, act);
    return action;
  };
  add("zoom-in", tr("Enlarge"), [this, view] { OpenChart(view); })->setObjectName("Enlarge");
  const auto with_chart = [this, view](auto act) {
    return [this, view, act] {
      const ChartStore& store = session().charts;
      if (view < store.charts.size()) act(platform_, WithRows(store.charts[view]), views_[view]->size());
    };
  };
  add("edit-copy", tr("Copy Chart"), [this, view] { CopyView(view); })->setObjectName("CopyChart");
  add("document-print", tr("Print"), with_chart(PrintChart))->setObjectName("PrintChart");
  add("document-save-as", tr("Save as..."), with_chart(SaveChart))->setObjectName("SaveChart");
  views_[view]->setContextMenuPolicy(Qt::ActionsContextMenu);
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
    const bool has_chart = i < store.charts.size();
    for (QAction* action : views_[i]->actions()) action->setEnabled(has_chart || action->objectName() == "Enlarge");
    if (has_chart) {
      views_[i]->Show(WithRows(store.charts[i]));
    } else {
      views_[i]->ShowNothing(i == 0 ? EmptyWords() : tr("No chart"));
    }
  }
  ArrangeViews(store.charts.size());
}

// One chart has the whole place, two stand side by side, the third stands below both. The views without a chart stand
// as low as a line below them, where they can be chosen all the same; without any chart the first has the place and
// says why.
void Charts1::ArrangeViews(std::size_t count) {
  constexpr int kRowOfEmptyViews = 2;
  constexpr int kColumns = 6;  // two or three views share them
  for (ChartView* view : views_) grid_->removeWidget(view);
  const std::size_t shown = std::max<std::size_t>(count, 1);
  for (std::size_t i = 0; i < shown; ++i) {
    const bool alone_in_row = i + 1 == shown && i % 2 == 0;
    const int width = alone_in_row ? kColumns : kColumns / 2;
    grid_->addWidget(views_[i], static_cast<int>(i / 2), static_cast<int>(i % 2) * width, 1, width);
    views_[i]->SetLow(false);
  }
  for (std::size_t i = shown; i < views_.size(); ++i) {
    const int width = kColumns / static_cast<int>(views_.size() - shown);
    grid_->addWidget(views_[i], kRowOfEmptyViews, static_cast<int>(i - shown) * width, 1, width);
    views_[i]->SetLow(true);
  }
  grid_->setRowStretch(0, 1);
  grid_->setRowStretch(1, shown > 2 ? 1 : 0);
  for (int column = 0; column < kColumns; ++column) grid_->setColumnStretch(column, 1);
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
