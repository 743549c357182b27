#include "window/grid/data_format.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QSortFilterProxyModel>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

#include "shell/command_row.h"
#include "window/stat_procs/variable_lists.h"
#include "window/widgets/elided_label.h"
#include "window/widgets/follow_font.h"
#include "window/widgets/hint_label.h"
#include "window/widgets/scrolled.h"
#include "window/widgets/text.h"

namespace tessara {
namespace {

constexpr const char* kHelpPage = "UserManual1.html#format";
constexpr const char* kIntro =
    "Make your output clearer by adding labels to variable names and values. What you enter here will be used in "
    "frequency and crosstabulation output to label the tables. Establishing value labels is limited to eight or fewer "
    "values. Click on the column you wish to format or select from the variable name dropdown list.";
constexpr int kCharactersOfAName = 12;
constexpr int kCharactersOfALabel = 40;
constexpr int kCharactersOfAValue = 14;
constexpr int kCharactersOfDecimals = 4;
constexpr std::size_t kLongestEditableText = 32767;  // of a box of one line
constexpr std::size_t kMostNamesShown = 3;
constexpr int kVariableTab = 0;
constexpr int kValueLabelTab = 1;
constexpr int kMissingTab = 2;

// The variables without "None".
class NamedVariables : public QSortFilterProxyModel {
 public:
  using QSortFilterProxyModel::QSortFilterProxyModel;

 protected:
  bool filterAcceptsRow(int row, const QModelIndex&) const override { return row > 0; }
};

QLabel* Hint(const QString& text, QWidget* parent) {
  auto* hint = new HintLabel(QPalette::WindowText, parent);
  hint->setText(text);
  return hint;
}

// "AGE, SEX, SMOKE and 4 more"
QString Names(const DataSet& data, const std::vector<std::size_t>& columns) {
  QStringList names;
  for (std::size_t i = 0; i < std::min(columns.size(), kMostNamesShown); ++i) {
    names += ToQt(data.VariableName(columns[i]).substr(0, kLongestEditableText));
  }
  const QString text = names.join(", ");
  if (columns.size() <= kMostNamesShown) return text;
  return text + QString(" and %1 more").arg(columns.size() - kMostNamesShown);
}

}  // namespace

DataFormat::DataFormat(Session& session, QWidget* parent)
    : QDialog(parent), session_(session), variables_(new AllVariablesModel(session.data, this)) {
  setObjectName("DataFormat");
  setWindowTitle("Format Variables and Values");
  setModal(false);
  auto* intro = new QLabel(kIntro, this);
  intro->setObjectName("Intro");
  intro->setWordWrap(true);
  variable_ = new ElidedLabel(this);
  variable_->setObjectName("FormattedVariable");
  QFont bold = variable_->font();
  bold.setBold(true);
  variable_->setFont(bold);
  tabs_ = new QTabWidget(this);
  tabs_->setObjectName("FormatTabs");
  tabs_->addTab(new Scrolled(BuildVariablePage(), tabs_), "&Variable Information");
  tabs_->addTab(new Scrolled(BuildValueLabelPage(), tabs_), "Value &Labels");
  tabs_->addTab(new Scrolled(BuildMissingPage(), tabs_), "&Missing Values");

  auto* layout = new QVBoxLayout(this);
  layout->addWidget(intro);
  layout->addWidget(variable_);
  layout->addWidget(tabs_, 1);
  layout->addWidget(BuildUnsavedLine());
  layout->addWidget(BuildButtons());
  connect(tabs_, &QTabWidget::currentChanged, this, &DataFormat::FocusTab);
  connect(new QShortcut(QKeySequence(Qt::Key_F1), this), &QShortcut::activated, this,
          [this] { emit HelpAsked(kHelpPage); });
}

QLineEdit* DataFormat::MakeBox(FormatBox box, const QString& caption, const QString& tip, int characters) {
  const auto place = static_cast<std::size_t>(box);
  auto* edit = new QLineEdit(this);
  edit->setObjectName(ToQt(kFormatBoxNames[place]));
  edit->setAccessibleName(caption);
  edit->setToolTip(tip);
  FollowFont(edit, [edit, characters] {
    const int width = edit->fontMetrics().averageCharWidth() * (characters + 2);
    edit->setMinimumWidth(width);
    edit->setMaximumWidth(characters == kCharactersOfALabel ? QWIDGETSIZE_MAX : width * 2);
  });
  edit->installEventFilter(this);
  connect(edit, &QLineEdit::textEdited, this, [this, place] { Edited(place); });
  boxes_[place] = edit;
  return edit;
}

QWidget* DataFormat::BuildVariablePage() {
  auto* page = new QWidget(this);
  auto* grid = new QGridLayout(page);
  combo1_ = new QComboBox(page);
  combo1_->setObjectName("Combo1");
  combo1_->setAccessibleName("Variable");
  combo1_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  combo1_->setMinimumContentsLength(kCharactersOfAName);
  auto* named = new NamedVariables(this);
  named->setSourceModel(variables_);
  combo1_->setModel(named);
  connect(combo1_, &QComboBox::activated, this, &DataFormat::Pick);

  auto* variable = new QLabel("Variable", page);
  variable->setBuddy(combo1_);
  grid->addWidget(variable, 0, 0);
  grid->addWidget(combo1_, 0, 1);
  grid->addWidget(new QLabel("Variable Name", page), 1, 0);
  grid->addWidget(MakeBox(FormatBox::Text1, "Variable Name", "First character cannot be a number", kCharactersOfAName),
                  1, 1);
  grid->addWidget(Hint("(8 characters or less)", page), 1, 2);
  grid->addWidget(new QLabel("Variable Label", page), 2, 0);
  grid->addWidget(MakeBox(FormatBox::Text2, "Variable Label", "Enter description of variable", kCharactersOfALabel), 2,
                  1, 1, 2);
  grid->addWidget(Hint("(40 characters or less)", page), 3, 1, 1, 2);
  BuildDecimals(grid, 4);
  grid->setColumnStretch(2, 1);
  grid->setRowStretch(5, 1);
  return page;
}

void DataFormat::BuildDecimals(QGridLayout* layout, int row) {
  check1_ = new QCheckBox("Change &Decimals", this);
  check1_->setObjectName("Check1");
  check1_->setToolTip("Rewrite the numbers of this variable with so many decimals");
  connect(check1_, &QCheckBox::clicked, this, [this](bool on) {
    SetChangeDecimals(session_.format, on);
    ShowSession();
    if (on) boxes_[static_cast<std::size_t>(FormatBox::Text22)]->setFocus();
  });
  layout->addWidget(check1_, row, 0);
  layout->addWidget(
      MakeBox(FormatBox::Text22, "Number of decimals", "Enter the number of decimals", kCharactersOfDecimals), row, 1);
  layout->addWidget(Hint("(click Save to permanently change data)", this), row, 2);
}

QWidget* DataFormat::BuildValueLabelPage() {
  auto* page = new QWidget(this);
  auto* grid = new QGridLayout(page);
  grid->addWidget(new QLabel("Value", page), 0, 0);
  auto* label = new QLabel("Label", page);
  grid->addWidget(label, 0, 1);
  grid->addWidget(Hint("(20 characters or less)", page), 0, 2);
  for (std::size_t pair = 0; pair < kValueLabelSlots; ++pair) {
    const int row = static_cast<int>(pair) + 1;
    const QString number = QString::number(row);
    const std::size_t place = kFirstValueLabelBox + 2 * pair;
    grid->addWidget(
        MakeBox(static_cast<FormatBox>(place), "Value " + number, "Representative data value", kCharactersOfAValue),
        row, 0);
    grid->addWidget(MakeBox(static_cast<FormatBox>(place + 1), "Label " + number, "Enter what the value represents",
                            kCharactersOfALabel),
                    row, 1, 1, 2);
  }
  grid->setColumnStretch(2, 1);
  grid->setRowStretch(static_cast<int>(kValueLabelSlots) + 1, 1);
  return page;
}

QWidget* DataFormat::BuildMissingPage() {
  auto* page = new QWidget(this);
  auto* grid = new QGridLayout(page);
  for (std::size_t i = 0; i < kMissingEntries; ++i) {
    const bool single = i < kSingleMissingEntries;
    const char* caption = single ? "Missing Value =" : i == kLowerBoundEntry ? "Missing Values <" : "Missing Values >";
    const int row = static_cast<int>(i);
    grid->addWidget(new QLabel(caption, page), row, 0);
    grid->addWidget(MakeBox(static_cast<FormatBox>(kFirstMissingBox + i), caption,
                            single ? "Enter one missing value or character string" : "", kCharactersOfAValue),
                    row, 1);
  }
  grid->setColumnStretch(2, 1);
  grid->setRowStretch(static_cast<int>(kMissingEntries), 1);
  return page;
}

QWidget* DataFormat::BuildUnsavedLine() {
  auto* line = new QWidget(this);
  unsaved_ = new ElidedLabel(line);
  unsaved_->setObjectName("Unsaved");
  revert_ = MakeButton("Revert", "&Revert", "Give up what was typed for this variable", kRevertFormatCommand);
  auto* layout = new QHBoxLayout(line);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(unsaved_, 1);
  layout->addWidget(revert_);
  return line;
}

QPushButton* DataFormat::MakeButton(const char* name, const QString& caption, const QString& tip, int command) {
  auto* button = new QPushButton(caption, this);
  button->setObjectName(name);
  button->setToolTip(tip);
  button->setAutoDefault(false);  // Enter goes from box to box
  if (command != 0) {
    connect(button, &QPushButton::clicked, this, [this, command] { emit CommandRequested(command); });
  }
  return button;
}

QWidget* DataFormat::BuildButtons() {
  auto* row = new QWidget(this);
  auto* copy = MakeButton("CopyFormat", "&Copy Format", "Copy missing values and value labels", kCopyFormatCommand);
  paste_ = MakeButton("PasteFormat", "&Paste Format", "Paste copied variable format", kPasteFormatCommand);
  auto* help = MakeButton("FormatHelp", "&Help", "Help on this form (F1)", 0);
  connect(help, &QPushButton::clicked, this, [this] { emit HelpAsked(kHelpPage); });
  save_ = MakeButton("SaveFormat", "&Save", "Store the format of this variable", kSaveFormatCommand);
  auto* close = MakeButton("CloseFormat", "Close", "Close this form (Esc)", 0);
  connect(close, &QPushButton::clicked, this, &DataFormat::reject);
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(copy);
  layout->addWidget(paste_);
  layout->addStretch(1);
  layout->addWidget(help);
  layout->addWidget(save_);
  layout->addWidget(close);
  return row;
}

void DataFormat::Open() {
  cursor_ = session_.data.CurrentColumn;
  if (!isVisible()) {
    tabs_->setCurrentIndex(kVariableTab);
    if (!placed_) PlaceBesideGrid();
    show();
  }
  ShowSession();
  raise();
  activateWindow();
  FocusTab(tabs_->currentIndex());
}

// In the lower right corner of the window, where it leaves the columns in sight that are to be clicked on.
void DataFormat::PlaceBesideGrid() {
  placed_ = true;
  const QRect screen_place = screen()->availableGeometry();
  resize(sizeHint().boundedTo(screen_place.size()));
  if (!parentWidget()) return;
  const QRect frame = parentWidget()->window()->frameGeometry().intersected(screen_place);
  move(std::max(frame.right() - width(), screen_place.left()), std::max(frame.bottom() - height(), screen_place.top()));
}

// The box for the decimals is taken back: a form that is opened again never rewrites data by a box ticked long ago.
void DataFormat::hideEvent(QHideEvent* event) {
  QDialog::hideEvent(event);
  if (!event->spontaneous()) SetChangeDecimals(session_.format, false);
}

void DataFormat::FollowGrid() {
  cursor_ = 0;
  ShowSession();
}

void DataFormat::FollowCursor() {
  const std::size_t column = session_.data.CurrentColumn;
  const bool moved = cursor_ != column && column != 0;
  if (moved || session_.format.column == 0) {
    PickVariable(session_.format, session_.data, std::max<std::size_t>(column, 1));
  }
  cursor_ = column;
}

void DataFormat::ShowSession() {
  if (!isVisible()) return;
  FollowCursor();
  variables_->Refresh();
  combo1_->setCurrentIndex(static_cast<int>(session_.format.column) - 1);
  for (std::size_t place = 0; place < kFormatBoxes; ++place) ShowBox(place);
  check1_->setChecked(session_.format.Check1);
  boxes_[static_cast<std::size_t>(FormatBox::Text22)]->setEnabled(session_.format.Check1);
  ShowVariable();
}

void DataFormat::ShowBox(std::size_t place) {
  const std::string& text = session_.format.boxes[place];
  if (text == shown_[place]) return;
  shown_[place] = text;
  QLineEdit* box = boxes_[place];
  box->setText(ToQt(text.substr(0, kLongestEditableText)));
  box->setCursorPosition(0);
  box->setReadOnly(text.size() > kLongestEditableText);  // what a box cannot show whole is not to be cut by typing
}

void DataFormat::ShowVariable() {
  const VariableFormat& format = session_.format;
  const std::string& label = format.stored[FormatBox::Text2];
  QString words = ToQt(format.stored[FormatBox::Text1].substr(0, kLongestEditableText));
  if (!label.empty()) words += "   " + ToQt(label.substr(0, kLongestEditableText));
  variable_->setText(words);
  const std::vector<std::size_t> unsaved = UnsavedVariables(format);
  unsaved_->setText(unsaved.empty() ? QString() : "Not saved yet: " + Names(session_.data, unsaved));
  revert_->setEnabled(HasUnsavedBoxes(format));
  paste_->setEnabled(session_.copied_format.copied);
  save_->setEnabled(format.column != 0);
}

void DataFormat::Edited(std::size_t place) {
  shown_[place] = FromQt(boxes_[place]->text());
  session_.format.boxes[place] = shown_[place];
  ShowVariable();
}

void DataFormat::Pick(int row) {
  PickVariable(session_.format, session_.data, static_cast<std::size_t>(row) + 1);
  ShowSession();
}

void DataFormat::FocusTab(int tab) {
  if (tab == kVariableTab) combo1_->setFocus();
  if (tab == kValueLabelTab) boxes_[static_cast<std::size_t>(FormatBox::Text4)]->setFocus();
  if (tab == kMissingTab) boxes_[static_cast<std::size_t>(FormatBox::Text3)]->setFocus();
}

void DataFormat::EnterBox(FormatBox box) {
  QLineEdit* edit = boxes_[static_cast<std::size_t>(box)];
  const auto selected = FocusBox(session_.format, box);
  if (!selected) return;
  ShowBox(static_cast<std::size_t>(box));
  // Behind the press of the mouse that may have brought the focus, since it would take the selection away.
  const int length = static_cast<int>(std::min(*selected, kLongestEditableText));
  QTimer::singleShot(0, edit, [edit, length] {
    if (edit->hasFocus()) edit->setSelection(0, length);
  });
}

// Whether the key is dealt with.
bool DataFormat::PressKey(FormatBox box, QKeyEvent* key) {
  if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
    focusNextChild();
    return true;
  }
  const QPointer<QLineEdit> edit = boxes_[static_cast<std::size_t>(box)];
  const bool typed = (key->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) == 0;
  if (!typed || key->text() != "," || edit->isReadOnly()) return false;
  const CommaTurn turn = PressComma(session_.platform, box);
  if (!edit) return true;
  if (turn == CommaTurn::kBlank) {
    edit->insert(" ");
  } else {
    edit->backspace();
  }
  Edited(static_cast<std::size_t>(box));
  return true;
}

bool DataFormat::eventFilter(QObject* watched, QEvent* event) {
  const auto found = std::ranges::find(boxes_, watched);
  if (found == boxes_.end()) return QDialog::eventFilter(watched, event);
  const auto box = static_cast<FormatBox>(found - boxes_.begin());
  if (event->type() == QEvent::KeyPress) return PressKey(box, static_cast<QKeyEvent*>(event));
  if (event->type() == QEvent::FocusIn) {
    // A window that comes back to the front leaves its boxes as they were.
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) EnterBox(box);
  }
  return QDialog::eventFilter(watched, event);
}

}  // namespace tessara
