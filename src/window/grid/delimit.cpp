#include "window/grid/delimit.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "shell/exchange_questions.h"
#include "shell/office_operations.h"
#include "window/widgets/follow_font.h"
#include "window/widgets/text.h"

namespace tessara {
namespace {

constexpr int kCharactersOfALine = 64;
constexpr int kPreviewLinesShown = 6;
constexpr int kTabWidth = 12;  // characters

constexpr const char* kImportOptions[] = {"Paste from data you copied in another program",
                                          "Import tab separated file (txt)", "Import comma separated value file (csv)",
                                          "Other delimited file"};
constexpr const char* kExportOptions[] = {"Export to Excel spreadsheet", "Create comma separated value (csv) file",
                                          "Create tab separated (txt) file"};
struct DelimiterRow {
  const char* name;
  const char* caption;
};
constexpr DelimiterRow kDelimiterRows[] = {{"Option1", "&Tab Delimited"},
                                           {"Option2", "&Comma Delimited"},
                                           {"Option4", "&Space Delimited"},
                                           {"Option3", "&Other"}};

constexpr const char* kImportHelp =
    "If the first row of the data contains variable names, selecting the checkbox will allow Tessara to use the "
    "variable names as column labels and listbox keys. To successfully import data, each variable must be separated by "
    "a delimiter. The delimiter is used to separate the data into columns. The most common delimiters are tabs or "
    "commas.";

// The number of the checked button; nothing when none is.
template <typename Option>
std::optional<Option> CheckedOption(const QButtonGroup& group) {
  if (group.checkedId() < 0) return std::nullopt;
  return static_cast<Option>(group.checkedId());
}

QRadioButton* AddOption(QButtonGroup* group, int id, const QString& name, const QString& caption, QWidget* parent) {
  auto* option = new QRadioButton(caption, parent);
  option->setObjectName(name);
  group->addButton(option, id);
  return option;
}

}  // namespace

Delimit::Delimit(Session& session, Page page, FormRunner run, QWidget* parent)
    : QDialog(parent), session_(session), run_(std::move(run)) {
  setObjectName("Delimit");
  pages_ = new QStackedWidget(this);
  pages_->addWidget(BuildImportPage());
  pages_->addWidget(BuildFormatPage());
  pages_->addWidget(BuildExportPage());
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(pages_, 1);
  BuildButtons();
  ShowPage(page);
}

Delimit::Page Delimit::page() const { return static_cast<Page>(pages_->currentIndex()); }

QLabel* Delimit::Instruction(const QString& text) {
  auto* label = new QLabel(text, this);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  FollowFont(label, [label] { label->setMinimumWidth(label->fontMetrics().averageCharWidth() * kCharactersOfALine); });
  return label;
}

QWidget* Delimit::BuildImportPage() {
  auto* page = new QWidget(this);
  auto* layout = new QVBoxLayout(page);
  layout->addWidget(Instruction(
      tr("Data of another program come in as text: copied there and pasted here, or from a file in which a delimiter "
         "stands between the fields of a line.\n\n"
         "The imported data take the place of the data in the grid. Undo brings those back.\n\n"
         "Quotes have no meaning. Dollar and percent signs are left out, and so are commas that are not the "
         "delimiter.")));
  import_options_ = new QButtonGroup(this);
  for (int i = 0; i < 4; ++i) {
    layout->addWidget(AddOption(import_options_, i, QString("Option5(%1)").arg(i), kImportOptions[i], page));
  }
  layout->addStretch();
  return page;
}

QWidget* Delimit::BuildFormatPage() {
  auto* page = new QWidget(this);
  auto* layout = new QVBoxLayout(page);
  layout->addWidget(Instruction(kImportHelp));
  layout->addWidget(BuildDelimiters());
  names_ = new QCheckBox(tr("Check box if top row contains &variable names"), page);
  names_->setObjectName("Check1");
  layout->addWidget(names_);
  auto* heading = new QLabel(tr("&Preview"), page);
  layout->addWidget(heading);
  preview_ = new QPlainTextEdit(page);
  preview_->setObjectName("Text1");
  preview_->setReadOnly(true);
  preview_->setTabChangesFocus(true);
  preview_->setLineWrapMode(QPlainTextEdit::NoWrap);
  preview_->setAccessibleName(tr("Preview of the first lines"));
  heading->setBuddy(preview_);
  FollowFont(preview_, [this] {
    const QFontMetrics metrics = preview_->fontMetrics();
    preview_->setTabStopDistance(metrics.averageCharWidth() * kTabWidth);
    preview_->setMinimumHeight(metrics.lineSpacing() * kPreviewLinesShown);
  });
  layout->addWidget(preview_, 1);
  return page;
}

QGroupBox* Delimit::BuildDelimiters() {
  auto* box = new QGroupBox(tr("Delimiter"), this);
  auto* layout = new QGridLayout(box);
  delimiters_ = new QButtonGroup(this);
  for (int i = 0; i < 4; ++i) {
    layout->addWidget(AddOption(delimiters_, i, kDelimiterRows[i].name, tr(kDelimiterRows[i].caption), box), i / 2,
                      i % 2 * 2);
  }
  other_ = new QLineEdit(box);
  other_->setObjectName("Text2");
  other_->setAccessibleName(tr("Other delimiter"));
  other_->installEventFilter(this);
  layout->addWidget(other_, 1, 3);
  layout->setColumnStretch(3, 1);
  connect(delimiters_, &QButtonGroup::idClicked, this, [this](int id) {
    if (id == static_cast<int>(DelimiterOption::kOther)) other_->setFocus();
    ShowPreview();
  });
  connect(other_, &QLineEdit::textEdited, this, [this] {
    delimiters_->button(static_cast<int>(DelimiterOption::kOther))->setChecked(true);
    ShowPreview();
  });
  return box;
}

QWidget* Delimit::BuildExportPage() {
  auto* page = new QWidget(this);
  auto* layout = new QVBoxLayout(page);
  layout->addWidget(Instruction(tr(
      "The variable names and all records are written to a file that other programs read.\n\n"
      "Labels, missing values and notes stay behind. In the two kinds of text there is no quoting: a cell that holds "
      "the delimiter becomes two. The spreadsheet goes to the folder Tessara Data among your documents.")));
  export_options_ = new QButtonGroup(this);
  for (int i = 0; i < 3; ++i) {
    layout->addWidget(AddOption(export_options_, i, QString("Option6(%1)").arg(i), kExportOptions[i], page));
  }
  // The command may have chosen already.
  if (const auto& chosen = session_.delimit.export_option) {
    export_options_->button(static_cast<int>(*chosen))->setChecked(true);
  }
  layout->addStretch();
  return page;
}

void Delimit::BuildButtons() {
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel | QDialogButtonBox::Help, this);
  back_ = buttons->addButton(tr("&Back"), QDialogButtonBox::ActionRole);
  back_->setObjectName("Back");
  next_ = buttons->addButton(tr("&Next"), QDialogButtonBox::ActionRole);
  next_->setObjectName("Next");
  import_ = buttons->addButton(tr("&Import"), QDialogButtonBox::ActionRole);
  import_->setObjectName("DelOK");
  for (QAbstractButton* button : buttons->buttons()) {
    if (auto* push = qobject_cast<QPushButton*>(button)) push->setAutoDefault(false);
  }
  layout()->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  const auto ask_help = [this] { emit HelpAsked(HelpSection()); };
  connect(buttons, &QDialogButtonBox::helpRequested, this, ask_help);
  connect(new QShortcut(QKeySequence(Qt::Key_F1), this), &QShortcut::activated, this, ask_help);
  connect(back_, &QPushButton::clicked, this, &Delimit::GoBack);
  connect(next_, &QPushButton::clicked, this, &Delimit::Next);
  connect(import_, &QPushButton::clicked, this, &Delimit::Import);
}

void Delimit::ShowPage(Page page) {
  pages_->setCurrentIndex(static_cast<int>(page));
  const bool format = page == Page::kFormat;
  back_->setVisible(format);
  next_->setVisible(!format);
  import_->setVisible(format);
  (format ? import_ : next_)->setDefault(true);
  if (format) {
    setWindowTitle(session_.delimit.PasteImport ? tr("Paste Data") : tr("Import Data File"));
    ShowForm();
    names_->setFocus();
    return;
  }
  setWindowTitle(page == Page::kImport ? tr("Import Data") : tr("Export Data"));
  QButtonGroup* options = page == Page::kImport ? import_options_ : export_options_;
  QAbstractButton* first = options->checkedButton();
  for (int i = 0; !first; ++i) {
    if (options->button(i)->isEnabled()) first = options->button(i);
  }
  first->setFocus();
}

void Delimit::Next() {
  if (page() == Page::kExport) return ExportPageNext();
  ImportPageNext();
}

void Delimit::ImportPageNext() {
  session_.delimit.import_option = CheckedOption<ImportOption>(*import_options_);
  bool taken = false;
  run_([&] {
    switch (ImportNext(session_.delimit, session_.platform)) {
      case NextStep::kStay:
        return;
      case NextStep::kPaste:
        TakePaste(session_.delimit, session_.platform.ClipboardText());
        break;
      case NextStep::kAskFile:
        if (!AskImportFile(session_)) return;
        break;
    }
    taken = true;
  });
  if (taken) ShowPage(Page::kFormat);
}

void Delimit::ExportPageNext() {
  session_.delimit.export_option = CheckedOption<ExportOption>(*export_options_);
  bool written = false;
  run_([&] {
    if (session_.delimit.export_option == ExportOption::kSpreadsheet) {
      written = SendDataToExcel(session_);
      return;
    }
    const auto delimiter = ExportNext(session_.delimit, session_.platform);
    written = delimiter && AskAndExport(session_, *delimiter);
  });
  if (written) accept();
}

void Delimit::Import() {
  StoreFormat();
  std::optional<ImportOutcome> outcome;
  run_([&] { outcome = ImportData(session_); });
  if (outcome == ImportOutcome::kImported || outcome == ImportOutcome::kNoDelimiter) accept();
}

void Delimit::GoBack() { ShowPage(Page::kImport); }

void Delimit::StoreFormat() {
  DelimitForm& form = session_.delimit;
  form.delimiter = CheckedOption<DelimiterOption>(*delimiters_);
  form.Text2 = FromQt(other_->text());
  form.Check1 = names_->isChecked();
}

void Delimit::ShowForm() {
  const DelimitForm& form = session_.delimit;
  if (form.delimiter) delimiters_->button(static_cast<int>(*form.delimiter))->setChecked(true);
  other_->setText(ToQt(form.Text2));
  names_->setChecked(form.Check1);
  ShowPreview();
}

void Delimit::ShowPreview() {
  StoreFormat();
  preview_->setPlainText(ToQtLines(PreviewText(session_.delimit)));
}

// The Enter key in the other delimiter does not import.
bool Delimit::eventFilter(QObject* watched, QEvent* event) {
  if (watched != other_ || event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
  const int key = static_cast<QKeyEvent*>(event)->key();
  if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
  run_([this] { RefuseEnter(session_.delimit, session_.platform); });
  other_->clear();
  ShowPreview();
  return true;
}

QString Delimit::HelpSection() const {
  return page() == Page::kExport ? "UserManual1.html#export" : "UserManual1.html#import";
}

}  // namespace tessara
