#pragma once

#include <array>
#include <optional>

#include "window/widgets/view_form.h"

class QGridLayout;
class QLabel;

// The Charts view: MSChart1 to MSChart4, the charts of the last procedure, each of which opens enlarged.

namespace tessara {

class ChartForm;
class ChartView;
class QtPlatform;

class Charts1 : public ViewForm {
  Q_OBJECT

 public:
  Charts1(QtPlatform& platform, Session& session, QWidget* parent = nullptr);

  void ShowSession() override;
  void FocusFirst() override;

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void ShowCharts();
  void AddMenu(std::size_t view);
  void ArrangeViews(std::size_t count);
  QString EmptyWords() const;
  void OpenChart(std::size_t view);
  void CopyView(std::size_t view);

  QtPlatform& platform_;
  QLabel* hint_ = nullptr;
  QGridLayout* grid_ = nullptr;
  std::array<ChartView*, kChartViews> views_{};
  ChartForm* form_ = nullptr;
  std::optional<std::uint64_t> shown_revision_;
};

}  // namespace tessara
