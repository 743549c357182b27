#pragma once

#include <QGroupBox>
#include <QMap>
#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

#include "calculators/brevarum_panel.h"

class QComboBox;
class QKeyEvent;
class QLabel;
class QLineEdit;
class QStackedWidget;

namespace tessara {

class NormalCurve;
class Platform;

// The boxes of the calculators, one input panel at a time. Five panels share a frame, each with a layout of its own.
class BrevarumInput : public QGroupBox {
  Q_OBJECT

 public:
  BrevarumInput(Platform& platform, BrevarumPanel& panel, QWidget* parent);

  void ShowPanel();
  void StoreWidgets();
  void FocusFirst();  // the first box for a number
  bool HoldsFocus() const;

 signals:
  // A key is pressed in a box.
  void Typed(QWidget* box);
  // Enter in the last box: what comes next is Calculate.
  void EndReached();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* BuildOwnFrame(const BrevarumPanelRow& row);
  void BuildSharedFrame();
  QWidget* MakeBox(const BrevarumBox& box, QWidget* parent);
  void LayOutShared(const BrevarumPanelRow& row);
  void LayOutRows(const BrevarumPanelRow& row);
  void LayOutAccuracy();
  void LayOutPower();
  QLabel* Label(std::size_t number) const { return labels_[number - 1]; }

  void ShowFrame();
  void ShowBoxes();
  void FocusBox(std::string_view name);
  static int CodeOf(const QKeyEvent& key);
  void KeyReleased(QWidget* box, int key);
  // The box above (-1) or below (1) takes the focus. False when there is none.
  bool GoUpOrDown(QWidget* box, int lines);

  Platform& platform_;
  BrevarumPanel& panel_;
  QStackedWidget* frames_;
  QWidget* shared_ = nullptr;  // F1
  std::array<QLabel*, kBrevarumLabels> labels_{};
  std::vector<QLabel*> headings_;  // of the shared frame's present layout
  NormalCurve* curve_ = nullptr;
  QLabel* note_ = nullptr;  // Label28
  QMap<QString, QLineEdit*> boxes_;
  QMap<QString, QComboBox*> choices_;
  QMap<QString, QWidget*> own_frames_;
  struct Press {
    QWidget* box = nullptr;
    int code = 0;
  };
  QMap<quint32, Press> pressed_;  // the keys that are down
  int laid_out_ = -1;             // the panel whose layout the shared frame has
};

}  // namespace tessara
