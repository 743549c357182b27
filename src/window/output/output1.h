#pragma once

#include <QList>
#include <optional>

#include "window/output/sheet_changes.h"
#include "window/widgets/view_form.h"

class QAction;
class QButtonGroup;
class QLabel;
class QShortcut;
class QStackedWidget;
class QLineEdit;
class QToolButton;
class QVBoxLayout;

// The Output view: the log of all reports or those of the latest run, on a sheet that can be edited.

namespace tessara {

class QtPlatform;
class TablePane;
class TextPage;

class Output1 : public ViewForm {
  Q_OBJECT

 public:
  Output1(QtPlatform& platform, Session& session, QWidget* parent = nullptr);

  void ShowSession() override;
  void StoreWidgets() override;
  void FocusFirst() override;
  WidgetState State() const override;
  void Perform(WidgetAction action) override;
  void SetZoom(int percent) override;

  // Print preview and PDF, which have no command of their own.
  QList<QAction*> PrintActions() const { return {preview_, pdf_}; }

 private:
  QWidget* MakeHead();
  QWidget* MakeSwitches();
  QWidget* MakeTools();
  QToolButton* MakeCommandTool(const char* name, const char* icon, const QString& caption, int command);
  void ShowFace();
  void AddFocusKey();
  QWidget* MakeFindBar();
  QToolButton* MakeSwitch(const char* name, const QString& caption, QButtonGroup* group);
  QToolButton* MakeTool(QAction* action);
  QAction* MakeAction(const char* name, const char* icon, const QString& caption);
  void ShowBox(const BoxVersion& now);
  void UserChangedText();
  void ShowZoom(int percent);
  void ShowFindBar();
  void HideFindBar();
  void Find(bool backward);
  void Preview();
  void PrintToPdf();
  std::optional<PrintJob> Job();

  QtPlatform& platform_;
  QStackedWidget* faces_ = nullptr;
  TextPage* page_ = nullptr;
  TablePane* table_ = nullptr;
  QToolButton* most_recent_ = nullptr;
  QToolButton* log_ = nullptr;
  QToolButton* summary_ = nullptr;
  QList<QWidget*> text_tools_;   // of the text alone
  QList<QWidget*> table_tools_;  // of the table alone
  QToolButton* zoom_ = nullptr;
  QWidget* find_bar_ = nullptr;
  QLineEdit* find_text_ = nullptr;
  QLabel* find_result_ = nullptr;
  QShortcut* escape_ = nullptr;
  QAction* preview_ = nullptr;
  QAction* pdf_ = nullptr;

  SheetChanges changes_;
  BoxVersion shown_;      // what has been put on the sheet last
  bool showing_ = false;  // the sheet changes by the program's hand
  bool edited_ = false;   // the user has changed the sheet since it was stored
};

}  // namespace tessara
