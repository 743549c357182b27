#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QToolButton>
#include <array>

#include "shell/session.h"
#include "window/stat_procs/control_box.h"
#include "window/stat_procs/variable_picker.h"

class QGridLayout;

namespace tessara {

// The frame "Variable Control Panel": the list of all variables, the lists that take the variables of a run, each with
// its arrow, and the case control.
class ControlPanel : public QGroupBox {
  Q_OBJECT

 public:
  explicit ControlPanel(Session& session, QWidget* parent = nullptr);

  void ShowSession();
  void StoreWidgets();
  void FocusFirst() { picker_->list()->setFocus(); }
  // The field of the control's value.
  void FocusValue() { relation_->FocusValue(); }
  // The control variable with its relation in words; empty without one.
  QString ControlWords() const;

 signals:
  void Changed();
  // Another variable of List1 has been clicked.
  void Picked();

 private:
  static constexpr std::size_t kArrows = 3;

  void BuildTargets(QGridLayout* layout);
  void BuildArrow(std::size_t place);
  void ConnectLists();
  void PressArrow(std::size_t place);
  void AddFirst();
  void Drop(std::size_t target, VariableListView* source);
  void RemoveMarked(VariableListView* list);
  void RemoveAll(VariableListView* list);
  void ShowSourceMenu(const QPoint& place);
  void ShowTargetMenu(VariableListView* list, const QPoint& place);
  void ShowFieldMenu(const QPoint& place);
  // The list of independent variables holds something, but the procedure has no use for one.
  bool SecondListIsIdle() const;
  void Reset();
  void Finish();
  void ShowHeadings();
  void ShowArrows();
  QString TargetName(std::size_t arrow) const;

  Session& session_;
  VariablePicker* picker_;
  ChosenVariablesModel* analysis_;
  ChosenVariablesModel* independent_;
  std::array<QToolButton*, kArrows> arrows_{};
  QLabel* label2_ = nullptr;
  QLabel* label3_ = nullptr;
  VariableListView* list2_ = nullptr;
  VariableListView* list3_ = nullptr;
  ControlField* field_ = nullptr;
  ControlBox* relation_;
};

}  // namespace tessara
