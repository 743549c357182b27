#include "window/grid/recode_pages.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>

#include "window/widgets/elided_label.h"
#include "window/widgets/text.h"

namespace tessara {
namespace {

constexpr int kCaptionColumn = 0;
constexpr int kBoxColumn = 1;
constexpr int kSecondOptionColumn = 2;
constexpr std::size_t kLongestShownText = 32767;  // of a box of one line

QString Shown(const std::string& text) { return ToQt(std::string_view(text).substr(0, kLongestShownText)); }

QGridLayout* PageLayout(QWidget* page) {
  auto* layout = new QGridLayout(page);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setColumnStretch(kBoxColumn, 1);
  return layout;
}

void EndPage(QGridLayout* layout) { layout->setRowStretch(layout->rowCount(), 1); }

}  // namespace

RecodePages::RecodePages(Session& session, QWidget* parent) : QStackedWidget(parent), session_(session) {
  setObjectName("RecodePages");
  pages_[RecodeMode::kRecode] = BuildRecode();
  pages_[RecodeMode::kCompute] = BuildCompute();
  pages_[RecodeMode::kCombine] = pages_[RecodeMode::kCompareDates] = BuildTwoVariables();
  pages_[RecodeMode::kTrim] = BuildTrim();
  pages_[RecodeMode::kReplace] = pages_[RecodeMode::kFind] = BuildFind();
}

QLabel* RecodePages::AddVariable(QGridLayout* layout, int row, const QString& caption) {
  layout->addWidget(new QLabel(caption, layout->parentWidget()), row, kCaptionColumn);
  auto* name = new ElidedLabel(layout->parentWidget());
  QFont bold = name->font();
  bold.setBold(true);
  name->setFont(bold);
  layout->addWidget(name, row, kBoxColumn, 1, 2);
  variables_.push_back(name);
  return name;
}

QLineEdit* RecodePages::MakeBox(QWidget* page, const char* name, const QString& caption, Box box) {
  auto* edit = new QLineEdit(page);
  edit->setObjectName(name);
  edit->setAccessibleName(caption);
  edit->installEventFilter(this);
  const BoxWidget widget{edit, box};
  boxes_.push_back(widget);
  connect(edit, &QLineEdit::textEdited, this, [this, widget] { Edited(widget); });
  return edit;
}

QLabel* RecodePages::AddBox(QGridLayout* layout, int row, const char* name, const QString& caption, Box box) {
  QWidget* page = layout->parentWidget();
  QLineEdit* edit = MakeBox(page, name, caption, box);
  auto* label = new QLabel(caption, page);
  label->setBuddy(edit);
  layout->addWidget(label, row, kCaptionColumn);
  layout->addWidget(edit, row, kBoxColumn, 1, 2);
  return label;
}

QCheckBox* RecodePages::AddCheck(QGridLayout* layout, int row, const char* name, const QString& caption,
                                 bool RecodePanel::*check) {
  auto* box = new QCheckBox(caption, layout->parentWidget());
  box->setObjectName(name);
  checks_.emplace_back(box, check);
  connect(box, &QCheckBox::clicked, this, [this, check](bool on) {
    session_.recode.*check = on;
    emit Changed();
  });
  layout->addWidget(box, row, kBoxColumn, 1, 2);
  return box;
}

// The options stand in two columns, in the order of the enumeration from 1.
template <typename Option>
void RecodePages::AddOptions(QGridLayout* layout, int row, Option RecodePanel::*option,
                             const std::vector<std::pair<const char*, const char*>>& rows) {
  QWidget* page = layout->parentWidget();
  auto* group = new QButtonGroup(page);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    auto* button = new QRadioButton(rows[i].second, page);
    button->setObjectName(rows[i].first);
    group->addButton(button, static_cast<int>(i) + 1);
    layout->addWidget(button, row + static_cast<int>(i / 2), i % 2 == 0 ? kBoxColumn : kSecondOptionColumn);
  }
  options_.emplace_back(group, [this, option] { return static_cast<int>(session_.recode.*option); });
  connect(group, &QButtonGroup::idClicked, this, [this, option](int id) {
    session_.recode.*option = static_cast<Option>(id);
    emit Changed();
  });
}

QWidget* RecodePages::BuildRecode() {
  auto* page = new QWidget(this);
  QGridLayout* layout = PageLayout(page);
  AddVariable(layout, 0, "If variable")->setObjectName("IfVariable");
  AddOptions(layout, 1, &RecodePanel::recode_option,
             {{"OptionLT", "Less than"}, {"OptionEQ", "Equal to"}, {"OptionGT", "Greater than"}});
  AddBox(layout, 3, "OldValue", "Old value", &RecodePanel::OldValue);
  AddCheck(layout, 4, "Check2", "Treat value as date (e.g. 1/1/02)", &RecodePanel::Check2);
  AddBox(layout, 5, "NewVar", "New variable", &RecodePanel::NewVar);
  AddBox(layout, 6, "NewValue", "New value", &RecodePanel::NewValue);
  EndPage(layout);
  addWidget(page);
  return page;
}

QWidget* RecodePages::BuildCompute() {
  auto* page = new QWidget(this);
  QGridLayout* layout = PageLayout(page);
  AddVariable(layout, 0, "Variable")->setObjectName("ComputedVariable");
  AddBox(layout, 1, "Text1", "New variable", &RecodePanel::Text1);
  AddOptions(layout, 2, &RecodePanel::compute_option,
             {{"OptionPlus", "Plus"},
              {"OptionMinus", "Minus"},
              {"OptionMult", "Multiplied by..."},
              {"OptionDiv", "Divided by ..."},
              {"OptionExp", "Power (^2 is squared, ^.5 is sqrt)"}});
  if (QWidget* power = page->findChild<QWidget*>("OptionExp")) layout->addWidget(power, 4, kBoxColumn, 1, 2);
  AddBox(layout, 5, "Text2", "Value", &RecodePanel::Text2);
  AddCheck(layout, 6, "Check1", "Create exact duplicate", &RecodePanel::Check1);
  AddCheck(layout, 7, "Check3", "Create log transformation", &RecodePanel::Check3);
  EndPage(layout);
  addWidget(page);
  return page;
}

QWidget* RecodePages::BuildTwoVariables() {
  auto* page = new QWidget(this);
  QGridLayout* layout = PageLayout(page);
  const auto add = [&](int row, int which, const char* button_name, const QString& caption, const char* name, Box box) {
    auto* button = new QPushButton(caption, page);
    button->setObjectName(button_name);
    button->setToolTip("Take the variable that is picked in the list");
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this, which] { emit VariableAsked(which); });
    layout->addWidget(button, row, kCaptionColumn);
    QLineEdit* edit = MakeBox(page, name, caption, box);
    edit->setReadOnly(true);  // filled by the button alone
    edit->setFocusPolicy(Qt::ClickFocus);
    layout->addWidget(edit, row, kBoxColumn, 1, 2);
  };
  add(0, 1, "Var1", "Var&1", "Date1", &RecodePanel::Date1);
  add(1, 2, "Var2", "Var&2", "Date2", &RecodePanel::Date2);
  AddOptions(layout, 2, &RecodePanel::combine_option,
             {{"OptPlus", "Plus"}, {"OptMinus", "Minus"}, {"OptMult", "Multiplied by"}, {"OptDiv", "Divided by"}});
  for (QRadioButton* option : page->findChildren<QRadioButton*>()) operators_.push_back(option);
  AddBox(layout, 4, "DateVar", "New variable", &RecodePanel::DateVar);
  EndPage(layout);
  addWidget(page);
  return page;
}

QWidget* RecodePages::BuildTrim() {
  auto* page = new QWidget(this);
  QGridLayout* layout = PageLayout(page);
  AddVariable(layout, 0, "Variable")->setObjectName("TrimmedVariable");
  AddBox(layout, 1, "Text4", "New variable", &RecodePanel::Text4);
  AddBox(layout, 2, "Text5", "Lower cutpoint", &RecodePanel::Text5);
  AddBox(layout, 3, "Text6", "Upper cutpoint", &RecodePanel::Text6);
  EndPage(layout);
  addWidget(page);
  return page;
}

QWidget* RecodePages::BuildFind() {
  auto* page = new QWidget(this);
  page->setObjectName("ReplaceFrame");
  QGridLayout* layout = PageLayout(page);
  AddVariable(layout, 0, "Variable")->setObjectName("SearchedVariable");
  AddBox(layout, 1, "Text12", "Find this value or string", &RecodePanel::Text12);
  replacement_.push_back(AddBox(layout, 2, "Text13", "Replace with this value or string", &RecodePanel::Text13));
  replacement_.push_back(boxes_.back().edit);
  label21_ = new QLabel("No Match Found", page);
  label21_->setObjectName("Label21");
  layout->addWidget(label21_, 3, kBoxColumn, 1, 2);
  EndPage(layout);
  addWidget(page);
  return page;
}

void RecodePages::Edited(const BoxWidget& box) {
  RecodePanel& panel = session_.recode;
  std::string text = FromQt(box.edit->text());
  if (&(panel.*box.box) == NewNameBox(panel)) {
    ChangeNewName(panel, std::move(text));
  } else {
    panel.*box.box = std::move(text);
  }
  emit Changed();
}

void RecodePages::ShowPanel() {
  const RecodePanel& panel = session_.recode;
  setCurrentWidget(pages_.at(RowOfMode(panel.mode).mode));
  for (const BoxWidget& box : boxes_) {
    const QString text = Shown(panel.*box.box);
    if (box.edit->text() != text) box.edit->setText(text);
  }
  for (const auto& [box, check] : checks_) box->setChecked(panel.*check);
  ShowOptions();
  const QString name =
      panel.RecodeColumn == 0 ? QString("None") : Shown(session_.data.VariableName(panel.RecodeColumn)).simplified();
  for (QLabel* variable : variables_) variable->setText(name);
  for (QWidget* option : operators_) option->setVisible(panel.mode == RecodeMode::kCombine);
  for (QWidget* part : replacement_) part->setVisible(panel.mode == RecodeMode::kReplace);
  label21_->setVisible(panel.mode == RecodeMode::kFind && panel.Label21);
}

void RecodePages::ShowOptions() {
  for (const auto& [group, chosen] : options_) {
    const QSignalBlocker blocker(group);
    group->setExclusive(false);  // none of them may be chosen
    for (QAbstractButton* button : group->buttons()) button->setChecked(group->id(button) == chosen());
    group->setExclusive(true);
  }
}

void RecodePages::FocusFirst() {
  const QWidget* page = currentWidget();
  for (const BoxWidget& box : boxes_) {
    if (box.edit->parentWidget() != page || box.edit->isReadOnly()) continue;
    box.edit->setFocus();
    box.edit->selectAll();
    return;
  }
}

// No wider than the widest page, and as high as the highest.
QSize RecodePages::minimumSizeHint() const {
  QSize size;
  for (int i = 0; i < count(); ++i) size = size.expandedTo(widget(i)->minimumSizeHint());
  return size;
}

// NewValue, NewVar and Text1 take no comma, Text2 digits and points alone.
bool RecodePages::eventFilter(QObject* watched, QEvent* event) {
  auto* edit = qobject_cast<QLineEdit*>(watched);
  if (!edit || event->type() != QEvent::KeyPress) return QStackedWidget::eventFilter(watched, event);
  const auto* key = static_cast<QKeyEvent*>(event);
  const QString typed = key->text();
  const bool is_character = !typed.isEmpty() && typed[0].isPrint() && !(key->modifiers() & Qt::ControlModifier);
  const QString name = edit->objectName();
  if (is_character && typed == "," && (name == "NewValue" || name == "NewVar" || name == "Text1")) {
    return PressComma(edit);
  }
  if (is_character && name == "Text2") return PressConstantKey(edit, typed);
  return QStackedWidget::eventFilter(watched, event);
}

bool RecodePages::PressComma(QLineEdit* edit) {
  std::string emptied;
  const char instead = RefuseComma(emptied, session_.platform);
  edit->selectAll();
  edit->insert(ToQt(emptied + instead));  // told as typed
  return true;
}

bool RecodePages::PressConstantKey(QLineEdit* edit, const QString& key) {
  if (IsConstantKey(key[0].toLatin1())) return false;
  std::string scratch;
  RefuseConstantKey(scratch, session_.platform);
  edit->backspace();
  return true;
}

}  // namespace tessara
