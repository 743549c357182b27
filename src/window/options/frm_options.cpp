#include "window/options/frm_options.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>

#include "shell/options_operations.h"
#include "shell/toolbar_style.h"
#include "window/options/folder_panel.h"
#include "window/widgets/follow_font.h"
#include "window/widgets/hint_label.h"
#include "window/widgets/text.h"

namespace tessara {
namespace {

constexpr int kCharactersOfAPath = 44;
constexpr int kLongestPath = 4096;
constexpr int kHintDelay = 300;  // milliseconds behind the last key: a folder may be far away
constexpr std::size_t kLargeIcons = 4;

QString NameOf(const char* array, std::size_t index) { return QString("%1(%2)").arg(array).arg(index); }

}  // namespace

FrmOptions::FrmOptions(Session& session, FormRunner run, QWidget* parent)
    : QDialog(parent), session_(session), run_(std::move(run)), hint_timer_(new QTimer(this)) {
  setObjectName("frmOptions");
  setWindowTitle(tr("Options"));
  hint_timer_->setSingleShot(true);
  hint_timer_->setInterval(kHintDelay);
  connect(hint_timer_, &QTimer::timeout, this, &FrmOptions::ShowHints);
  pages_ = new QTabWidget(this);
  pages_->setObjectName("TabStrip1");
  pages_->setAccessibleName(tr("Pages of options"));
  pages_->addTab(MakeGeneralPage(), tr("&General Options"));
  pages_->addTab(MakeFoldersPage(), tr("&Folders"));
  pages_->addTab(MakeAppearancePage(), tr("&Appearance"));
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(pages_, 1);
  layout->addWidget(MakeButtons());
  pages_->setCurrentIndex(static_cast<int>(session_.options.page));
  connect(pages_, &QTabWidget::currentChanged, this,
          [this](int page) { session_.options.page = static_cast<OptionsPage>(page); });
  ShowForm();
  ShowHints();
  setAttribute(Qt::WA_KeyboardFocusChange);  // the keyboard's place is marked from the start
  pages_->setFocus(Qt::TabFocusReason);
}

QCheckBox* FrmOptions::AddCheck(std::size_t index, const QString& caption, QWidget* page) {
  auto* check = new QCheckBox(caption, page);
  check->setObjectName(NameOf("Check1", index));
  checks_[index] = check;
  connect(check, &QCheckBox::clicked, this, [this, index](bool checked) {
    if (index != kLargeIcons) {
      session_.options.Check1[index] = checked;
      return;
    }
    SetLargeIcons(session_, checked);
    emit AppearanceChanged();
  });
  return check;
}

QWidget* FrmOptions::MakeGeneralPage() {
  auto* page = new QWidget(this);
  auto* layout = new QVBoxLayout(page);
  layout->addWidget(AddCheck(0, "Show Output Log after each run", page));
  layout->addWidget(AddCheck(1, "Put notes caption on printed output", page));
  layout->addWidget(AddCheck(2, "Put date on printed output", page));
  layout->addWidget(AddCheck(3, "Use sound effects", page));
  layout->addWidget(AddCheck(5, "Load Quick Tips Module", page));
  layout->addStretch(1);
  return page;
}

FrmOptions::PathRow FrmOptions::AddPathRow(const char* name, const QString& caption, const QString& browse,
                                           QVBoxLayout* layout) {
  PathRow row;
  auto* label = new QLabel(caption, this);
  row.box = new QLineEdit(this);
  row.box->setObjectName(name);
  row.box->setMaxLength(kLongestPath);
  label->setBuddy(row.box);
  row.browse = new QPushButton(browse, this);
  row.browse->setObjectName(QString("Browse") + name);
  row.browse->setAccessibleName(tr("Browse: %1").arg(QString(caption).remove('&')));
  row.browse->setAutoDefault(false);
  row.hint = new HintLabel(QPalette::WindowText, this);
  row.hint->setObjectName(QString("Hint") + name);
  row.hint->setWordWrap(true);
  FollowFont(row.box,
             [box = row.box] { box->setMinimumWidth(box->fontMetrics().averageCharWidth() * kCharactersOfAPath); });
  auto* line = new QHBoxLayout;
  line->addWidget(row.box, 1);
  line->addWidget(row.browse);
  layout->addWidget(label);
  layout->addLayout(line);
  layout->addWidget(row.hint);
  return row;
}

QWidget* FrmOptions::MakeFoldersPage() {
  auto* page = new QWidget(this);
  auto* layout = new QVBoxLayout(page);
  folder_ = AddPathRow("Text1", tr("&Location of Tessara Data Files"), tr("&Browse"), layout);
  layout->addSpacing(fontMetrics().height() / 2);
  glossary_ = AddPathRow("Text2", tr("Name and location of Glossar&y"), tr("Bro&wse"), layout);
  layout->addStretch(1);
  connect(folder_.browse, &QPushButton::clicked, this, &FrmOptions::BrowseFolder);
  connect(glossary_.browse, &QPushButton::clicked, this, &FrmOptions::BrowseGlossary);
  // Only what is typed is taken over: a text that stands stands for its path.
  connect(folder_.box, &QLineEdit::textEdited, this, [this](const QString& text) {
    session_.options.Text1 = text.toStdString();
    hint_timer_->start();
  });
  connect(glossary_.box, &QLineEdit::textEdited, this, [this](const QString& text) {
    session_.options.Text2 = text.toStdString();
    hint_timer_->start();
  });
  return page;
}

QWidget* FrmOptions::MakeAppearancePage() {
  auto* page = new QWidget(this);
  auto* icons = new QGroupBox(tr("Icon Appearance"), page);
  auto* icons_layout = new QVBoxLayout(icons);
  icons_layout->addWidget(AddCheck(kLargeIcons, "Large Toolbar Icons", icons));
  auto* looks = new QGroupBox(tr("Toolbar Style"), page);
  auto* looks_layout = new QVBoxLayout(looks);
  const auto styles = ToolbarStyles();
  for (std::size_t i = 0; i < styles.size(); ++i) {
    auto* style = new QRadioButton(ToQt(styles[i].caption), looks);
    style->setObjectName(NameOf("Option2", i));
    styles_[i] = style;
    looks_layout->addWidget(style);
    connect(style, &QRadioButton::clicked, this, [this, i] {
      SetToolbarStyle(session_, static_cast<int>(i));
      emit AppearanceChanged();
    });
  }
  auto* layout = new QVBoxLayout(page);
  layout->addWidget(icons);
  layout->addWidget(looks);
  layout->addStretch(1);
  return page;
}

QWidget* FrmOptions::MakeButtons() {
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Help, this);
  const auto add = [&](const char* name, const QString& caption, const QString& tip, auto role) {
    QPushButton* button = buttons->addButton(caption, role);
    button->setObjectName(name);
    button->setToolTip(tip);
    return button;
  };
  QPushButton* usual =
      add("Command3", tr("&Default"), "Reset options displayed on current tab to default", QDialogButtonBox::ResetRole);
  QPushButton* save = add("SaveOptions", tr("&Save"), "Save option settings", QDialogButtonBox::ApplyRole);
  QPushButton* cancel = add("Command1", tr("&Cancel"), "Close without saving", QDialogButtonBox::RejectRole);
  for (QAbstractButton* button : buttons->buttons()) static_cast<QPushButton*>(button)->setAutoDefault(false);
  save->setDefault(true);
  connect(usual, &QPushButton::clicked, this, &FrmOptions::ResetPage);
  connect(save, &QPushButton::clicked, this, &FrmOptions::Save);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  const auto ask_help = [this] { emit HelpAsked("options.html"); };
  connect(buttons, &QDialogButtonBox::helpRequested, this, ask_help);
  connect(new QShortcut(QKeySequence(Qt::Key_F1), this), &QShortcut::activated, this, ask_help);
  return buttons;
}

void FrmOptions::BrowseFolder() {
  if (!panel_) {
    panel_ = new FolderPanel(this);
    panel_->setObjectName("FolderPanel");
    auto* layout = static_cast<QVBoxLayout*>(folder_.box->parentWidget()->layout());
    layout->insertWidget(layout->indexOf(folder_.hint) + 1, panel_);
    connect(panel_, &FolderPanel::Chosen, this, &FrmOptions::TakeFolder);
    connect(panel_, &FolderPanel::Left, this, &FrmOptions::CloseFolderPanel);
    QWidget* before = folder_.browse;
    for (const char* name : {"Drive1", "Dir1", "Command5", "Command6"}) {
      auto* part = panel_->findChild<QWidget*>(name);
      setTabOrder(before, part);
      before = part;
    }
  }
  panel_->show();
  panel_->ShowFolder(FolderOfForm(session_));
}

void FrmOptions::TakeFolder() {
  ChooseDataFolder(session_, panel_->Folder());
  CloseFolderPanel();
  ShowForm();
  ShowHints();
}

void FrmOptions::CloseFolderPanel() {
  folder_.browse->setFocus();
  panel_->hide();
}

void FrmOptions::BrowseGlossary() {
  run_([this] { AskGlossaryFile(session_); });
  ShowForm();
  ShowHints();
}

void FrmOptions::ShowForm() {
  const OptionsForm& form = session_.options;
  for (std::size_t i = 0; i < checks_.size(); ++i) checks_[i]->setChecked(form.Check1[i]);
  for (std::size_t i = 0; i < styles_.size(); ++i) styles_[i]->setChecked(static_cast<int>(i) == form.Option2);
  folder_.box->setText(QString::fromStdString(form.Text1));
  glossary_.box->setText(QString::fromStdString(form.Text2));
}

void FrmOptions::ShowHints() {
  folder_.hint->setText(FolderIsThere(session_) ? QString() : tr("There is no such folder now."));
  glossary_.hint->setText(GlossaryIsThere(session_) ? QString() : tr("There is no such file now."));
}

void FrmOptions::ResetPage() {
  ResetOptionsPage(session_);
  ShowForm();
  ShowHints();
  if (session_.options.page == OptionsPage::kAppearance) emit AppearanceChanged();
}

// The box comes when the dialog is out of sight. Without the memory for it nothing was saved, and the dialog is back.
void FrmOptions::Save() {
  bool saved = false;
  hide();
  run_([&] {
    SaveOptions(session_);
    saved = true;
  });
  if (!saved) return open();
  accept();
}

// Escape leaves the panel of folders ahead of the dialog.
void FrmOptions::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && panel_ && panel_->isVisible()) return CloseFolderPanel();
  QDialog::keyPressEvent(event);
}

}  // namespace tessara
