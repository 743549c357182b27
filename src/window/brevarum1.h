#pragma once

#include <QMap>
#include <array>
#include <cstddef>
#include <functional>
#include <vector>

#include "calculators/brevarum_panel.h"
#include "window/view_form.h"

class QButtonGroup;
class QComboBox;
class QGridLayout;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QSplitter;
class QStackedWidget;

// The view of the calculators: what to calculate, the boxes of one input panel at a time, and the results in words, as
// a compact text and with the page that explains them.

namespace tessara {

class HelpBrowser;
class NormalCurve;
class QtPlatform;

class Brevarum1 : public ViewForm {
  Q_OBJECT

 public:
  Brevarum1(QtPlatform& platform, Session& session, QWidget* parent = nullptr);

  void ShowSession() override;
  void StoreWidgets() override;
  void FocusFirst() override;

  QSize minimumSizeHint() const override;
  QSize sizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* BuildButtons();
  QLayout* BuildTabs(QWidget* bar);
  QWidget* BuildInput();
  QWidget* BuildResults();
  QWidget* BuildOwnFrame(const BrevarumPanelRow& row);
  void BuildSharedFrame();
  void LayOutShared(const BrevarumPanelRow& row);
  void LayOutRows(const BrevarumPanelRow& row);
  void LayOutAccuracy();
  void LayOutPower();
  QWidget* MakeBox(const BrevarumBox& box, QWidget* parent);
  QLabel* Label(std::size_t number) const { return labels_[number - 1]; }

  void ShowInput();
  void ShowBoxes();
  void ShowResults();
  void ShowRightPane();
  // A button has been pressed: the boxes are stored ahead of the change and shown anew behind it.
  void ChangePanel(const std::function<void(BrevarumPanel&)>& change);
  void ShowTab(int tab);
  void KeyReleased(QLineEdit* box, int key);
  void FocusBox(std::string_view name);
  BrevarumPanel& panel() const;

  QtPlatform& platform_;
  std::array<QPushButton*, 2> actions_{};  // Calculate, Clear
  QButtonGroup* kinds_ = nullptr;          // Option1
  QButtonGroup* samples_ = nullptr;        // Option2
  QButtonGroup* tabs_ = nullptr;           // Viewbar1
  QSplitter* columns_ = nullptr;
  QGroupBox* frame_ = nullptr;
  QStackedWidget* frames_ = nullptr;
  QWidget* shared_ = nullptr;  // F1
  std::array<QLabel*, kBrevarumLabels> labels_{};
  std::vector<QLabel*> headings_;  // of the shared frame's present layout
  NormalCurve* curve_ = nullptr;
  QLabel* note_ = nullptr;               // Label28
  QLabel* results_title_ = nullptr;      // Label43
  QPushButton* copy_ = nullptr;          // Label44
  QPlainTextEdit* compact_ = nullptr;    // T5
  QPlainTextEdit* narrative_ = nullptr;  // Text25
  HelpBrowser* browser_ = nullptr;       // WebBrowser1
  QStackedWidget* pane_ = nullptr;
  QMap<QString, QLineEdit*> boxes_;
  QMap<QString, QComboBox*> choices_;
  QMap<QString, QWidget*> own_frames_;
  int laid_out_ = -1;  // the panel whose layout the shared frame has
};

}  // namespace tessara
