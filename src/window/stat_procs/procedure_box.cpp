#include "window/stat_procs/procedure_box.h"

#include <QButtonGroup>
#include <QFrame>
#include <QGridLayout>
#include <QScrollBar>
#include <QVBoxLayout>
#include <array>

#include "window/stat_procs/sampling_frames.h"
#include "window/widgets/follow_font.h"
#include "window/widgets/scrolled.h"
#include "window/widgets/text.h"

namespace tessara {
namespace {

struct Group {
  const char* title;
  int column;  // of the two columns of groups
  std::vector<Procedure> procedures;
};

const std::vector<Group>& Groups() {
  static const std::vector<Group> groups = {
      {"Describe", 0, {Procedure::kFrequencies, Procedure::kDescriptives, Procedure::kExplore}},
      {"Compare", 0, {Procedure::kTTest, Procedure::kAnova, Procedure::kCrosstabulation}},
      {"Relate", 1, {Procedure::kCorrelation, Procedure::kRegression, Procedure::kDiagnostic}},
      {"Tables and samples",
       1,
       {Procedure::kListVariables, Procedure::kSummaryTables, Procedure::kRandomSample, Procedure::kRepeatedSampling}},
  };
  return groups;
}

constexpr std::array<std::string_view, 12> kBoxes = {"Check1", "Check2", "Check3", "Check4",  "Check5",  "Check6",
                                                     "Check7", "Check8", "Check9", "Check10", "Check11", "Check12"};
constexpr std::array<std::string_view, 3> kFields = {"Text5", "Text6", "Text7"};
constexpr std::string_view kOutputFormat = "Combo1";
constexpr std::size_t kCategoricalBoxes = 2;  // the rest of the boxes of a summary table are for continuous data

void CheckOnly(QButtonGroup* group, QRadioButton* option) {
  group->setExclusive(false);
  for (QAbstractButton* each : group->buttons()) each->setChecked(each == option);
  group->setExclusive(true);
}

}  // namespace

ProcedureBox::ProcedureBox(ProcedurePanel& panel, SamplePanel& samples, QWidget* parent)
    : QGroupBox("Statistical Procedure", parent),
      panel_(panel),
      samples_(samples),
      content_(new QWidget(this)),
      procedures_(new QButtonGroup(this)),
      regressions_(new QButtonGroup(this)),
      table_kinds_(new QButtonGroup(this)) {
  auto* procedures = new QGridLayout;
  BuildProcedures(procedures);
  BuildOptions();
  BuildKinds();

  auto* inside = new QVBoxLayout(content_);
  inside->setContentsMargins(0, 0, 0, 0);
  inside->addLayout(procedures);
  inside->addWidget(separator_);
  inside->addLayout(offered_);
  inside->addStretch(1);

  scroll_ = new Scrolled(content_, this);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(scroll_);
  ShowPanel();
}

void ProcedureBox::BuildProcedures(QGridLayout* layout) {
  layout->setVerticalSpacing(layout->verticalSpacing() / 3);
  std::array<int, 2> next_row{};
  for (const Group& group : Groups()) {
    int& row = next_row[static_cast<std::size_t>(group.column)];
    auto* title = new QLabel(group.title, content_);
    QFont bold = title->font();
    bold.setBold(true);
    title->setFont(bold);
    if (row > 0) FollowFont(title, [title] { title->setContentsMargins(0, title->fontMetrics().height() / 2, 0, 0); });
    layout->addWidget(title, row++, group.column);
    for (const Procedure procedure : group.procedures) {
      const ProcedureRow& shown = *FindProcedureRow(procedure);
      QRadioButton* option = AddOption(shown.control.data(), shown.caption, shown.tooltip, procedures_);
      options_[procedure] = option;
      layout->addWidget(option, row++, group.column);
      connect(option, &QRadioButton::clicked, this, [this, procedure] { Select(procedure); });
    }
  }
  layout->setColumnStretch(0, 1);
  layout->setColumnStretch(1, 1);
}

QRadioButton* ProcedureBox::AddOption(const char* name, std::string_view caption, std::string_view tooltip,
                                      QButtonGroup* group) {
  auto* option = new QRadioButton(ToQt(caption), content_);
  option->setObjectName(name);
  option->setToolTip(ToQt(tooltip));
  group->addButton(option);
  return option;
}

void ProcedureBox::BuildOptions() {
  auto* line = new QFrame(content_);
  line->setFrameShape(QFrame::HLine);
  line->setFrameShadow(QFrame::Sunken);
  separator_ = line;
  offered_ = new QGridLayout;
  offered_->setVerticalSpacing(offered_->verticalSpacing() / 2);
  offered_->setColumnStretch(0, 1);
  offered_->setColumnStretch(1, 1);

  for (const std::string_view control : kBoxes) {
    auto* box = new QCheckBox(content_);
    box->setObjectName(ToQt(control));
    boxes_[control] = box;
    connect(box, &QCheckBox::toggled, this, [this, control](bool on) { TellBox(control, on); });
    connect(box, &QCheckBox::clicked, this, &ProcedureBox::Changed);
  }
  for (const std::string_view control : kFields) {
    auto* field = new QLineEdit(content_);
    field->setObjectName(ToQt(control));
    fields_[control] = field;
    connect(field, &QLineEdit::textChanged, this, [this, control](const QString& text) { TellField(control, text); });
    // The edit is reported ahead of the change: the panel must know it before anybody shows the panel again.
    connect(field, &QLineEdit::textEdited, this, [this, control](const QString& text) {
      TellField(control, text);
      emit Changed();
    });
  }
  auto* format = new QComboBox(content_);
  format->setObjectName(ToQt(kOutputFormat));
  format->addItems({"0.0", "0.00", "0.000", "0.0000", "0"});
  connect(format, &QComboBox::currentTextChanged, this,
          [this](const QString& text) { TellField(kOutputFormat, text); });
  fields_[kOutputFormat] = format;
  for (const auto& [control, field] : fields_) {
    captions_[control] = new QLabel(content_);
    captions_[control]->setBuddy(field);
  }
}

void ProcedureBox::BuildKinds() {
  const ProcedureRow& squares = RegressionRow(RegressionKind::kLeastSquares);
  const ProcedureRow& logistic = RegressionRow(RegressionKind::kLogistic);
  least_squares_ = AddOption("Option21", squares.caption, squares.tooltip, regressions_);
  logistic_ = AddOption("Option22", logistic.caption, logistic.tooltip, regressions_);
  categorical_ = AddOption("Option15", "Categorical Data", "", table_kinds_);
  continuous_ = AddOption("Option16", "Continuous Data", "", table_kinds_);
  const auto select_regression = [this](RegressionKind kind) {
    SelectRegression(panel_, kind);
    emit Selected();
  };
  connect(least_squares_, &QRadioButton::clicked, this,
          [select_regression] { select_regression(RegressionKind::kLeastSquares); });
  connect(logistic_, &QRadioButton::clicked, this,
          [select_regression] { select_regression(RegressionKind::kLogistic); });
  for (QRadioButton* kind : {categorical_, continuous_}) {
    connect(kind, &QRadioButton::clicked, this, [this] {
      panel_.table_data = continuous_->isChecked() ? TableData::kContinuous : TableData::kCategorical;
      EnableTableBoxes();
      emit Changed();
    });
  }
  sampling_ = new SamplingFrames(samples_, content_);
}

void ProcedureBox::Select(Procedure procedure) {
  if (panel_.selected == procedure) return;
  SelectProcedure(panel_, procedure);
  emit Selected();
  scroll_->verticalScrollBar()->setValue(0);
}

void ProcedureBox::ShowPanel() {
  const auto option = options_.find(panel_.selected);
  CheckOnly(procedures_, option == options_.end() ? nullptr : option->second);
  CheckOnly(regressions_, panel_.regression == RegressionKind::kLogistic ? logistic_ : least_squares_);
  CheckOnly(table_kinds_, panel_.table_data == TableData::kContinuous ? continuous_ : categorical_);
  if (ShownRow(panel_) != laid_out_ || !laid_out_) LayOutOptions();
  ShowOptions();
  EnableTableBoxes();
}

void ProcedureBox::ShowOptions() {
  if (!laid_out_) return;
  for (const ProcedureRow::Box& box : laid_out_->boxes) boxes_[box.control]->setChecked(box.option(panel_.options));
  for (const ProcedureRow::Field& field : laid_out_->fields) {
    const QString text = ToQt(field.option(panel_.options));
    if (auto* line = qobject_cast<QLineEdit*>(fields_[field.control])) {
      if (line->text() != text) line->setText(text);
    } else {
      static_cast<QComboBox*>(fields_[field.control])->setCurrentText(text);
    }
  }
}

// What a box or field shows is the panel's option, and a change of it is told at once.
void ProcedureBox::TellBox(std::string_view control, bool on) {
  if (!laid_out_) return;
  for (const ProcedureRow::Box& box : laid_out_->boxes) {
    if (box.control == control) box.option(panel_.options) = on;
  }
}

void ProcedureBox::TellField(std::string_view control, const QString& text) {
  if (!laid_out_) return;
  for (const ProcedureRow::Field& field : laid_out_->fields) {
    if (field.control == control) field.option(panel_.options) = FromQt(text);
  }
}

void ProcedureBox::LayOutOptions() {
  while (QLayoutItem* item = offered_->takeAt(0)) delete item;
  offered_row_ = 0;
  for (const auto& [control, box] : boxes_) box->hide();
  for (const auto& [control, field] : fields_) {
    field->hide();
    captions_[control]->hide();
  }
  for (QWidget* kind : {least_squares_, logistic_, categorical_, continuous_}) kind->hide();
  sampling_->hide();
  separator_->hide();

  laid_out_ = ShownRow(panel_);
  if (!laid_out_) return;
  const ProcedureRow& row = *laid_out_;
  if (row.procedure == Procedure::kRegression) LayOutRegression();
  if (row.procedure == Procedure::kSummaryTables) {
    LayOutSummaryTables(row);
  } else {
    LayOutBoxes(row, 0, row.boxes.size());
  }
  LayOutFields(row);
  if (row.procedure == Procedure::kRandomSample || row.procedure == Procedure::kRepeatedSampling) {
    sampling_->ShowFrame(row.procedure);
    Place(sampling_, 0, 2);
  }
  separator_->setVisible(offered_row_ > 0);
}

// Puts a widget into the row under construction; one that reaches the right edge ends the row.
void ProcedureBox::Place(QWidget* widget, int column, int span) {
  offered_->addWidget(widget, offered_row_, column, 1, span);
  if (const QWidget* before = offered_->count() > 1 ? offered_->itemAt(offered_->count() - 2)->widget() : nullptr) {
    setTabOrder(const_cast<QWidget*>(before), widget);
  } else {
    setTabOrder(options_[Procedure::kRepeatedSampling], widget);
  }
  widget->show();
  if (column + span == 2) ++offered_row_;
}

void ProcedureBox::LayOutBoxes(const ProcedureRow& row, std::size_t from, std::size_t to) {
  for (std::size_t i = from; i < to; ++i) {
    const ProcedureRow::Box& box = row.boxes[i];
    QCheckBox* control = boxes_[box.control];
    control->setText(ToQt(box.caption));
    control->setToolTip(ToQt(box.tooltip));
    const int column = static_cast<int>((i - from) % 2);
    // The last one of an odd number has the row to itself.
    Place(control, column, column == 0 && i + 1 == to ? 2 : 1);
  }
}

void ProcedureBox::LayOutFields(const ProcedureRow& row) {
  for (const ProcedureRow::Field& field : row.fields) {
    QWidget* control = fields_[field.control];
    captions_[field.control]->setText(ToQt(field.caption));
    control->setAccessibleName(ToQt(field.caption));
    control->setToolTip(ToQt(field.tooltip));
    Place(captions_[field.control], 0, 1);
    Place(control, 1, 1);
  }
}

void ProcedureBox::LayOutRegression() {
  Place(least_squares_, 0, 2);
  Place(logistic_, 0, 2);
}

void ProcedureBox::LayOutSummaryTables(const ProcedureRow& row) {
  Place(categorical_, 0, 2);
  LayOutBoxes(row, 0, kCategoricalBoxes);
  Place(continuous_, 0, 2);
  LayOutBoxes(row, kCategoricalBoxes, row.boxes.size());
}

// In a summary table only the boxes of the chosen kind of data count.
void ProcedureBox::EnableTableBoxes() {
  for (const auto& [control, box] : boxes_) box->setEnabled(true);
  if (!laid_out_ || laid_out_->procedure != Procedure::kSummaryTables) return;
  for (std::size_t i = 0; i < laid_out_->boxes.size(); ++i) {
    boxes_[laid_out_->boxes[i].control]->setEnabled((i < kCategoricalBoxes) == categorical_->isChecked());
  }
}

void ProcedureBox::FocusFirst() {
  const auto option = options_.find(panel_.selected);
  (option == options_.end() ? options_[Procedure::kFrequencies] : option->second)->setFocus();
}

int ProcedureBox::LeastWidth() const {
  const QMargins inside = contentsMargins() + layout()->contentsMargins();  // the frame's and the layout's
  content_->layout()->activate();
  return content_->minimumSizeHint().width() + scroll_->verticalScrollBar()->sizeHint().width() + inside.left() +
         inside.right();
}

}  // namespace tessara
