#pragma once

#include <array>
#include <cstddef>
#include <functional>

#include "calculators/brevarum_panel.h"
#include "window/widgets/view_form.h"

class QButtonGroup;
class QLabel;
class QPlainTextEdit;
class QPushButton;
class QStackedWidget;

// The view of the calculators: what to calculate, the boxes of one input panel at a time, and the results in words, as
// a compact text and with the page that explains them. What a small window has no room for scrolls, but for the buttons
// at the bottom.

namespace tessara {

class BrevarumInput;
class ColumnSplitter;
class HelpBrowser;
class QtPlatform;
class Scrolled;

class Brevarum1 : public ViewForm {
  Q_OBJECT

 public:
  Brevarum1(QtPlatform& platform, Session& session, QWidget* parent = nullptr);

  void ShowSession() override;
  void StoreWidgets() override;
  void FocusFirst() override;
  void FocusInput() override;

  QSize minimumSizeHint() const override;
  QSize sizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  bool event(QEvent* event) override;

 private:
  QWidget* BuildKinds();
  QWidget* BuildSamples();
  QWidget* BuildTabs();
  QWidget* BuildInput();
  QWidget* BuildResults();
  QWidget* BuildFooter();

  void ShowResults();
  void ShowRightPane();
  // Beside the input, or below it where there is no room.
  void PlaceResults();
  // A button has been pressed: the boxes are stored ahead of the change and shown anew behind it.
  void ChangePanel(const std::function<void(BrevarumPanel&)>& change);
  void ShowTab(int tab);
  BrevarumPanel& panel() const;

  QtPlatform& platform_;
  QLabel* message_ = nullptr;
  std::array<QPushButton*, 2> actions_{};  // Calculate, Clear
  QButtonGroup* kinds_ = nullptr;          // Option1
  QButtonGroup* samples_ = nullptr;        // Option2
  QButtonGroup* tabs_ = nullptr;           // Viewbar1
  Scrolled* scroll_ = nullptr;
  ColumnSplitter* columns_ = nullptr;
  BrevarumInput* input_ = nullptr;
  QLabel* results_title_ = nullptr;      // Label43
  QPushButton* copy_ = nullptr;          // Label44
  QPlainTextEdit* compact_ = nullptr;    // T5
  QPlainTextEdit* narrative_ = nullptr;  // Text25
  HelpBrowser* browser_ = nullptr;       // WebBrowser1
  QStackedWidget* pane_ = nullptr;
};

}  // namespace tessara
