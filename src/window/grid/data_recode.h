#pragma once

#include <QDialog>
#include <cstdint>

#include "shell/session.h"

class QItemSelection;
class QLabel;
class QListView;
class QPushButton;

namespace tessara {

class AllVariablesModel;
class RecodePages;
class RecodePreviewTable;

// The form "DataRecode": one panel with one Run button that recodes, computes, combines, compares dates, trims, finds
// and replaces. It stays open beside the grid.
class DataRecode : public QDialog {
  Q_OBJECT

 public:
  DataRecode(Session& session, QWidget* parent);

  // Opens the form, or brings it to the front, in the mode of the session's panel.
  void Open();
  void ShowSession();

 signals:
  // A command of the command table, by its id.
  void CommandRequested(int id);
  // A page of the help, or a section of one.
  void HelpAsked(const QString& page);

 private:
  QWidget* BuildVariables();
  QWidget* BuildButtons();
  QPushButton* MakeButton(const char* name, const QString& caption, const QString& tip);
  void Connect();

  void GrowToContent();
  void ShowMode();
  void ShowVariables();
  void ShowPreview();
  void Pick(int row);
  void CopyVariable(int which);
  void BoxesChanged();
  void Press(int command);
  void AskHelp();

  Session& session_;
  AllVariablesModel* variables_;
  QLabel* help_ = nullptr;
  QListView* list1_ = nullptr;
  RecodePages* pages_ = nullptr;
  RecodePreviewTable* preview_ = nullptr;
  QPushButton* run_ = nullptr;
  QPushButton* reset_ = nullptr;
  QPushButton* undo_ = nullptr;
  bool showing_ = false;        // the list is filled, not clicked
  bool stale_ = true;           // the preview is of another panel
  std::uint64_t revision_ = 0;  // of the data that the preview is of
};

}  // namespace tessara
