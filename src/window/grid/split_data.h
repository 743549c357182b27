#pragma once

#include <QDialog>

#include "shell/session.h"
#include "window/grid/delimit.h"

class QLabel;
class QListWidget;
class QPushButton;

namespace tessara {

class AllVariablesModel;
class VariableFilter;
class VariableListView;

// "Split Data": chooses variables for a new data file.
class SplitData : public QDialog {
  Q_OBJECT

 public:
  SplitData(Session& session, FormRunner run, QWidget* parent);

 signals:
  void HelpAsked(const QString& page);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildLists();
  void BuildButtons();
  void AddOne();
  void AddSelected();
  void Reset();
  void Run();
  void ShowChosen();

  Session& session_;
  FormRunner run_;
  AllVariablesModel* all_ = nullptr;
  VariableFilter* variables_ = nullptr;
  VariableListView* list1_ = nullptr;
  QListWidget* list2_ = nullptr;
  QPushButton* add_ = nullptr;
  QPushButton* add_all_ = nullptr;
  QLabel* count_ = nullptr;
};

}  // namespace tessara
