#pragma once

#include <QDialog>

#include "shell/session.h"

class QLabel;
class QTableView;
class QTimer;

namespace tessara {

class VariableTable;

// The window "Variables": a table of all variables beside the grid. A double click or Enter on one opens the form that
// describes it. The shares of cells come in while the window is open, those in sight first.
class VariableView : public QDialog {
  Q_OBJECT

 public:
  VariableView(Session& session, QWidget* parent);

  // Opens the window, or brings it to the front, on the variable of the grid's cursor.
  void Open();
  void ShowSession();

 signals:
  void FormatAsked(std::size_t column);
  void HelpAsked(const QString& page);
  void Shown(bool shown);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void BuildTable();
  QWidget* BuildButtons();
  void Measure();
  void AskForFormat();
  void CopyRows();
  void CountSome();

  Session& session_;
  VariableTable* model_;
  QTableView* table_;
  QTimer* counting_;
  bool resized_ = false;
};

}  // namespace tessara
