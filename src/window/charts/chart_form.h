#pragma once

#include <QDialog>

#include "presentation/chart_data.h"

class QPlainTextEdit;
class QPushButton;

// The window Chart: one chart enlarged, with its short summary, to be printed, copied and saved. It keeps its chart
// when the next procedure runs.

namespace tessara {

class ChartView;
class QtPlatform;
struct Session;

class ChartForm : public QDialog {
  Q_OBJECT

 public:
  ChartForm(QtPlatform& platform, Session& session, QWidget* parent);

  // Shows the chart, with its rows filled in, and the summary that the last procedure left.
  void Open(const Chart& chart);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  QPushButton* MakeButton(const char* name, const QString& caption, const char* icon);

  QtPlatform& platform_;
  Session& session_;
  Chart chart_;
  ChartView* view_ = nullptr;
  QPlainTextEdit* summary_ = nullptr;
};

}  // namespace tessara
