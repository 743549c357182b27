#pragma once

#include <QDialog>
#include <array>

#include "shell/session.h"

class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QTabWidget;

namespace tessara {

class AllVariablesModel;

// The form "Format Variables and Values". It stays open beside the grid and shows the variable of the grid's cursor.
// What was typed for a variable and not saved comes back with it.
class DataFormat : public QDialog {
  Q_OBJECT

 public:
  DataFormat(Session& session, QWidget* parent);

  // Opens the form, or brings it to the front, with the variable that the session's format shows.
  void Open();
  void ShowSession();
  // The user has clicked on a column, perhaps on the one that was current already: its variable is wanted.
  void FollowGrid();

 signals:
  // A command of the command table, by its id.
  void CommandRequested(int id);
  void HelpAsked(const QString& page);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  QWidget* BuildVariablePage();
  QWidget* BuildValueLabelPage();
  QWidget* BuildMissingPage();
  QWidget* BuildButtons();
  QWidget* BuildUnsavedLine();
  void BuildDecimals(QGridLayout* layout, int row);
  QLineEdit* MakeBox(FormatBox box, const QString& caption, const QString& tip, int characters);
  QPushButton* MakeButton(const char* name, const QString& caption, const QString& tip, int command);

  void PlaceBesideGrid();
  void FollowCursor();
  void ShowBox(std::size_t place);
  void ShowVariable();
  void Edited(std::size_t place);
  void Pick(int row);
  void FocusTab(int tab);
  void EnterBox(FormatBox box);
  bool PressKey(FormatBox box, QKeyEvent* key);

  Session& session_;
  AllVariablesModel* variables_;
  QLabel* variable_ = nullptr;
  QTabWidget* tabs_ = nullptr;
  QComboBox* combo1_ = nullptr;
  QCheckBox* check1_ = nullptr;
  QLabel* unsaved_ = nullptr;
  QPushButton* revert_ = nullptr;
  QPushButton* paste_ = nullptr;
  QPushButton* save_ = nullptr;
  std::array<QLineEdit*, kFormatBoxes> boxes_{};
  std::array<std::string, kFormatBoxes> shown_;  // what the boxes were last filled with, or typed to
  bool placed_ = false;
  std::size_t cursor_ = 0;  // the grid's column that the form has followed to
};

}  // namespace tessara
