#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <map>
#include <string_view>

#include "procedures/panel.h"
#include "procedures/samples/sample_panel.h"

class QButtonGroup;
class QGridLayout;

namespace tessara {

class SamplingFrames;
class Scrolled;

// The frame "Statistical Procedure": the procedures in four titled groups and, under them, the boxes and fields of the
// selected one. What it shows is read from the rows of the panel.
class ProcedureBox : public QGroupBox {
  Q_OBJECT

 public:
  ProcedureBox(ProcedurePanel& panel, SamplePanel& samples, QWidget* parent = nullptr);

  void ShowPanel();
  void FocusFirst();
  SamplingFrames* sampling() const { return sampling_; }
  // The width below which options would be cut off.
  int LeastWidth() const;

 signals:
  // Another procedure, or another kind of it, has been selected in the panel.
  void Selected();
  // A box or field has changed.
  void Changed();

 private:
  void BuildProcedures(QGridLayout* layout);
  void BuildOptions();
  void BuildKinds();
  QRadioButton* AddOption(const char* name, std::string_view caption, std::string_view tooltip, QButtonGroup* group);
  void Select(Procedure procedure);

  // The lay-out of what the selected procedure offers, two to a row.
  void LayOutOptions();
  void LayOutBoxes(const ProcedureRow& row, std::size_t from, std::size_t to);
  void LayOutFields(const ProcedureRow& row);
  void LayOutRegression();
  void LayOutSummaryTables(const ProcedureRow& row);
  void Place(QWidget* widget, int column, int span);
  void EnableTableBoxes();

  void ShowOptions();
  void TellBox(std::string_view control, bool on);
  void TellField(std::string_view control, const QString& text);

  ProcedurePanel& panel_;
  SamplePanel& samples_;
  QWidget* content_;
  Scrolled* scroll_ = nullptr;
  QButtonGroup* procedures_;
  QButtonGroup* regressions_;
  QButtonGroup* table_kinds_;
  std::map<Procedure, QRadioButton*> options_;
  QWidget* separator_ = nullptr;
  QGridLayout* offered_ = nullptr;
  int offered_row_ = 0;
  std::map<std::string_view, QCheckBox*> boxes_;
  std::map<std::string_view, QLabel*> captions_;
  std::map<std::string_view, QWidget*> fields_;
  QRadioButton* least_squares_ = nullptr;
  QRadioButton* logistic_ = nullptr;
  QRadioButton* categorical_ = nullptr;
  QRadioButton* continuous_ = nullptr;
  SamplingFrames* sampling_ = nullptr;
  const ProcedureRow* laid_out_ = nullptr;
};

}  // namespace tessara
