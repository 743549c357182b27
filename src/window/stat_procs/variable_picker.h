#pragma once

#include <QLineEdit>

#include "window/stat_procs/variable_lists.h"

namespace tessara {

// The list of all variables with a box above it in which a part of a name or label is typed to find one.
class VariablePicker : public QWidget {
  Q_OBJECT

 public:
  explicit VariablePicker(const DataSet& data_set, QWidget* parent = nullptr);

  void ShowData();
  // The selected variables as column numbers in list order; 0 stands for "None".
  std::vector<std::size_t> Chosen() const { return list_->SelectedColumns(); }
  VariableListView* list() const { return list_; }

 signals:
  // A double click, Enter, or Enter in the box on what it has found.
  void Activated();
  // A variable has been clicked or reached by a key.
  void Picked(std::size_t column);

 private:
  void Find(const QString& typed);
  void TakeFound();
  bool eventFilter(QObject* watched, QEvent* event) override;

  const DataSet& data_;
  AllVariablesModel* variables_;
  VariableFilter* filter_;
  QLineEdit* find_;
  VariableListView* list_;
};

}  // namespace tessara
