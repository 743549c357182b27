#pragma once

#include <QLabel>
#include <functional>

#include "platform/memory.h"
#include "window/grid/grid_model.h"
#include "window/grid/grid_view.h"
#include "window/widgets/view_form.h"

class QToolButton;

namespace tessara {

class DataFormat;
class FirstSteps;
class VariableView;
class DataRecode;

class GridText1;
class NameBox;

// The Data Grid: a spreadsheet view of the data matrix under a strip that tells where the cursor is, which file it
// shows and how much of it.
class Data1 : public ViewForm {
  Q_OBJECT

 public:
  explicit Data1(Session& session, QWidget* parent = nullptr);

  void ShowSession() override;
  // Ends an entry that is open: what was typed is part of the data for whatever comes next.
  void StoreWidgets() override;
  void FocusFirst() override;
  void Perform(WidgetAction action) override;

 signals:
  // A data file is to be opened.
  void FileAsked(const Path& file);

 protected:
  bool focusNextPrevChild(bool next) override;

 private:
  void BuildFirstSteps();
  void ShowFirstSteps();
  void BuildInfoStrip();
  void ConnectGrid();
  void ConnectEntry();
  void ShowInfo();
  DataFormat* FormatForm();
  VariableView* VariablesForm();
  void ToggleVariables();
  void ShowPlace();

  // The entry of a cell. Text that is typed over the cell replaces it; without one the cell's own text is edited.
  void BeginEntry(const QString* typed);
  void PlaceEntry();
  void EndEntry(EntryKey key);
  void LeaveEntry(EntryLeft left);
  void CloseEntry();
  void TakeTypedText();
  void RefuseKey();

  void Edit(const std::function<void()>& operation);
  void GoTo(const QString& name);
  void ShowMenu(const QPoint& place);
  void Copy();
  void OpenRecode();
  void ShowMarks();

  GridModel* model_;
  GridView* grid_;
  QWidget* strip_;
  GridText1* text_;
  FirstSteps* first_steps_ = nullptr;
  NameBox* name_ = nullptr;
  QLabel* title_ = nullptr;
  QLabel* size_ = nullptr;
  QLabel* part_ = nullptr;
  QToolButton* variables_button_ = nullptr;
  // Made when they are first asked for.
  DataFormat* format_ = nullptr;
  VariableView* variables_ = nullptr;
  GridBlock stored_selection_;  // as the session has it from this view
  MemoryReserve memory_reserve_;
  DataRecode* recode_ = nullptr;  // made when it is first asked for
  std::size_t shown_marks_ = 0;   // the version of the marks, and the number of matches, that the grid shows
  std::size_t shown_finds_ = 0;
};

}  // namespace tessara
