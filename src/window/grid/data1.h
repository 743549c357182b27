#pragma once

#include <QLabel>

#include "window/grid/grid_model.h"
#include "window/grid/grid_view.h"
#include "window/widgets/view_form.h"

class QToolButton;

namespace tessara {

class DataFormat;
class VariableView;
class DataRecode;

// The Data Grid: a spreadsheet view of the data matrix under a strip that tells which file it shows and how much of it.
class Data1 : public ViewForm {
  Q_OBJECT

 public:
  explicit Data1(Session& session, QWidget* parent = nullptr);

  void ShowSession() override;
  void FocusFirst() override;
  void Perform(WidgetAction action) override;

 private:
  void BuildInfoStrip();
  void ShowInfo();
  DataFormat* FormatForm();
  VariableView* VariablesForm();
  void ToggleVariables();
  void OpenRecode();
  void ShowMarks();

  GridModel* model_;
  GridView* grid_;
  QWidget* strip_;
  QLabel* title_ = nullptr;
  QLabel* size_ = nullptr;
  QLabel* part_ = nullptr;
  QToolButton* variables_button_ = nullptr;
  // Made when they are first asked for.
  DataFormat* format_ = nullptr;
  VariableView* variables_ = nullptr;
  DataRecode* recode_ = nullptr;  // made when it is first asked for
  std::size_t shown_marks_ = 0;   // the version of the marks, and the number of matches, that the grid shows
  std::size_t shown_finds_ = 0;
};

}  // namespace tessara
