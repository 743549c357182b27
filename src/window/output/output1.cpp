#include "window/output/output1.h"

#include <QAction>
#include <QButtonGroup>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QShortcut>
#include <QStackedWidget>
#include <QTextCursor>
#include <QToolButton>
#include <QVBoxLayout>
#include <utility>

#include "presentation/print_pages.h"
#include "shell/command_rules.h"
#include "shell/report_operations.h"
#include "window/output/table_pane.h"
#include "window/output/text_page.h"
#include "window/system/qt_platform.h"
#include "window/widgets/flow_layout.h"
#include "window/widgets/follow_font.h"
#include "window/widgets/segment_button.h"
#include "window/widgets/text.h"
#include "window/widgets/theme.h"

namespace tessara {

Output1::Output1(QtPlatform& platform, Session& the_session, QWidget* parent)
    : ViewForm(the_session, View::ViewOutput, parent), platform_(platform) {
  setObjectName("Output1");
  page_ = new TextPage(this);
  page_->setObjectName("RichText1");
  page_->setAccessibleName(tr("Output text"));
  page_->SetEmptyText(
      tr("There is no output in this session.\n\n"
         "Run a procedure in Stat Procs, and its report appears here."));
  table_ = new TablePane(the_session, this);
  faces_ = new QStackedWidget(this);
  faces_->setObjectName("OutputFaces");
  faces_->addWidget(page_);
  faces_->addWidget(table_);
  preview_ = MakeAction("PrintPreview", "document-print-preview", tr("Print Pre&view..."));
  pdf_ = MakeAction("PrintToPdf", "application-pdf", tr("Save as P&DF..."));
  connect(preview_, &QAction::triggered, this, &Output1::Preview);
  connect(pdf_, &QAction::triggered, this, &Output1::PrintToPdf);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(MakeHead());
  layout->addWidget(faces_, 1);
  layout->addWidget(MakeFindBar());

  connect(page_, &QPlainTextEdit::textChanged, this, &Output1::UserChangedText);
  connect(page_->document(), &QTextDocument::contentsChange, this,
          [this](int position, int, int added) { changes_.Note(*page_->document(), position, added); });
  connect(page_, &QPlainTextEdit::copyAvailable, this, &ViewForm::SessionChanged);
  connect(page_, &QPlainTextEdit::undoAvailable, this, &ViewForm::SessionChanged);
  connect(page_, &QPlainTextEdit::redoAvailable, this, &ViewForm::SessionChanged);
  connect(table_, &TablePane::SessionChanged, this, &ViewForm::SessionChanged);
  connect(table_, &TablePane::CommandRequested, this, &ViewForm::CommandRequested);
  AddFocusKey();
  connect(page_, &TextPage::ZoomChanged, this, &Output1::ShowZoom);
  ShowZoom(page_->zoom());
  ShowFace();
}

QAction* Output1::MakeAction(const char* name, const char* icon, const QString& caption) {
  auto* action = new QAction(ThemeIcon(icon), caption, this);
  action->setObjectName(name);
  return action;
}

// The faces by name, the one that shows pressed.
QToolButton* Output1::MakeSwitch(const char* name, const QString& caption, QButtonGroup* group) {
  auto* button = new SegmentButton(this);
  button->setObjectName(name);
  button->setText(caption);
  button->setFocusPolicy(Qt::StrongFocus);
  button->setToolButtonStyle(Qt::ToolButtonTextOnly);
  FollowFont(button, [button] {  // never cut, whatever room there is
    button->setMinimumWidth(0);
    button->setMinimumWidth(button->sizeHint().width());
  });
  group->addButton(button);
  return button;
}

QToolButton* Output1::MakeTool(QAction* action) {
  auto* button = new QToolButton(this);
  button->setDefaultAction(action);
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::TabFocus);
  button->setAccessibleName(action->text().remove('&').remove("..."));
  return button;
}

// A tool that asks for a command of the frame.
QToolButton* Output1::MakeCommandTool(const char* name, const char* icon, const QString& caption, int command) {
  QAction* action = MakeAction(name, icon, caption);
  connect(action, &QAction::triggered, this, [this, command] { emit CommandRequested(command); });
  return MakeTool(action);
}

// The faces to the left, the tools to the right or, in a narrow window, below.
QWidget* Output1::MakeHead() {
  auto* head = new QWidget(this);
  auto* layout = new QVBoxLayout(head);
  const int gap = fontMetrics().height() / 3;
  layout->setContentsMargins(gap, gap, gap, gap);
  auto* bar = new QWidget(head);
  auto* flow = new FlowLayout(bar, gap);
  flow->SetLastAtRight();
  flow->addWidget(MakeSwitches());
  flow->addWidget(MakeTools());
  layout->addWidget(bar);
  return head;
}

QWidget* Output1::MakeSwitches() {
  auto* switches = new QWidget(this);
  auto* layout = new FlowLayout(switches, 0);
  auto* group = new QButtonGroup(this);
  most_recent_ = MakeSwitch("ShowMostRecent", tr("Most Recent Output"), group);
  log_ = MakeSwitch("ShowOutputLog", tr("Output Log"), group);
  layout->addWidget(most_recent_);
  layout->addWidget(log_);
  summary_ = MakeSwitch("ShowSummaryTable", tr("Summary Table"), group);
  summary_->setToolTip(tr("The table that the runs of Summary Tables fill"));
  layout->addWidget(summary_);
  // A press on the face that shows already asks for nothing.
  const auto ask = [this](int command) {
    const OutputLog& output = session().output;
    const int shown = output.OutputGridMode ? kShowTableCommand
                      : output.ShowLogMode  ? kShowLogCommand
                                            : kShowMostRecentCommand;
    if (command != shown) emit CommandRequested(command);
  };
  connect(most_recent_, &QToolButton::clicked, this, [ask] { ask(kShowMostRecentCommand); });
  connect(log_, &QToolButton::clicked, this, [ask] { ask(kShowLogCommand); });
  connect(summary_, &QToolButton::clicked, this, [ask] { ask(kShowTableCommand); });
  return switches;
}

QWidget* Output1::MakeTools() {
  auto* tools = new QWidget(this);
  auto* layout = new FlowLayout(tools, fontMetrics().height() / 3);
  QAction* find = MakeAction("FindText", "edit-find", tr("Find in Output (Ctrl+F)"));
  QAction* smaller = MakeAction("ZoomOut", "list-remove", tr("Smaller Type (Ctrl+-)"));
  QAction* larger = MakeAction("ZoomIn", "list-add", tr("Larger Type (Ctrl++)"));
  connect(find, &QAction::triggered, this, &Output1::ShowFindBar);
  page_->addAction(find);
  QAction* convert = MakeAction("ConvertOutput", "document-export-table", tr("Convert Output to Tab Delimited"));
  connect(convert, &QAction::triggered, this, [this] { emit CommandRequested(kConvertCommand); });
  page_->addAction(convert);
  connect(smaller, &QAction::triggered, this, [this] { emit ZoomAsked(-1); });
  connect(larger, &QAction::triggered, this, [this] { emit ZoomAsked(1); });
  zoom_ = new QToolButton(this);
  zoom_->setObjectName("Zoom");
  zoom_->setAutoRaise(true);
  zoom_->setFocusPolicy(Qt::TabFocus);
  zoom_->setToolTip(tr("Usual Size (Ctrl+0)"));
  FollowFont(zoom_, [this] {
    const QFontMetrics type = zoom_->fontMetrics();
    zoom_->setMinimumWidth(type.horizontalAdvance("400 %") + type.height() / 2);
  });
  connect(zoom_, &QToolButton::clicked, this, [this] { emit ZoomAsked(0); });
  text_tools_ = {MakeTool(find)};
  table_tools_ = {MakeCommandTool("ClearTable", "edit-clear-all", tr("Clear the Table"), kEmptyTableCommand),
                  MakeCommandTool("ConvertTable", "document-export-table",
                                  tr("Convert Table to Tab Delimited (Ctrl+T)"), kConvertCommand)};
  layout->addWidget(text_tools_.front());
  layout->addWidget(MakeTool(smaller));
  layout->addWidget(zoom_);
  layout->addWidget(MakeTool(larger));
  layout->addWidget(MakeTool(preview_));
  layout->addWidget(MakeTool(pdf_));
  for (QWidget* tool : table_tools_) layout->addWidget(tool);
  return tools;
}

QWidget* Output1::MakeFindBar() {
  find_bar_ = new QWidget(this);
  find_bar_->setObjectName("FindBar");
  auto* layout = new QHBoxLayout(find_bar_);
  const int gap = fontMetrics().height() / 3;
  layout->setContentsMargins(gap, gap, gap, gap);
  find_text_ = new QLineEdit(find_bar_);
  find_text_->setObjectName("FindWords");
  find_text_->setPlaceholderText(tr("Find in output"));
  find_text_->setClearButtonEnabled(true);
  find_text_->setAccessibleName(tr("Find in output"));
  find_result_ = new QLabel(find_bar_);
  find_result_->setObjectName("FindResult");
  QAction* previous = MakeAction("FindPrevious", "go-up", tr("Previous"));
  QAction* next = MakeAction("FindNext", "go-down", tr("Next (F3)"));
  QAction* close = MakeAction("FindClose", "dialog-close", tr("Close (Esc)"));
  connect(previous, &QAction::triggered, this, [this] { Find(true); });
  connect(next, &QAction::triggered, this, [this] { Find(false); });
  connect(close, &QAction::triggered, this, &Output1::HideFindBar);
  connect(find_text_, &QLineEdit::returnPressed, this, [this] { Find(false); });
  connect(find_text_, &QLineEdit::textEdited, find_result_, &QLabel::clear);
  layout->addWidget(find_text_, 1);
  layout->addWidget(MakeTool(previous));
  layout->addWidget(MakeTool(next));
  layout->addWidget(find_result_);
  layout->addWidget(MakeTool(close));
  find_bar_->hide();

  const auto shortcut = [this](const QKeySequence& keys, auto act) {
    auto* made = new QShortcut(keys, this);
    made->setContext(Qt::WidgetWithChildrenShortcut);
    connect(made, &QShortcut::activated, this, act);
    return made;
  };
  shortcut(QKeySequence::Find, [this] { ShowFindBar(); });
  shortcut(Qt::Key_F3, [this] { Find(false); });
  shortcut(Qt::SHIFT | Qt::Key_F3, [this] { Find(true); });
  escape_ = shortcut(Qt::Key_Escape, [this] { HideFindBar(); });
  escape_->setEnabled(false);  // without the bar the key belongs to the faces
  return find_bar_;
}

// The sheets alone: the buttons above them keep their size.
void Output1::SetZoom(int percent) {
  page_->SetZoom(percent);
  table_->SetZoom(percent);
}

void Output1::ShowZoom(int percent) { zoom_->setText(tr("%1 %").arg(percent)); }

void Output1::ShowSession() {
  const OutputLog& output = session().output;
  ShowFace();
  table_->ShowSession();
  const BoxVersion now = output.Version();
  if (now.lineage == shown_.lineage && now.size == shown_.size) return;
  ShowBox(now);
}

void Output1::ShowFace() {
  const OutputLog& output = session().output;
  const bool table = output.OutputGridMode;
  summary_->setEnabled(HasTable(session(), {}));
  summary_->setChecked(table);
  log_->setChecked(!table && output.ShowLogMode);
  most_recent_->setChecked(!table && !output.ShowLogMode);
  for (QWidget* tool : text_tools_) tool->setVisible(!table);
  for (QWidget* tool : table_tools_) tool->setVisible(table);
  QWidget* face = table ? static_cast<QWidget*>(table_) : page_;
  if (faces_->currentWidget() == face) return;
  const QWidget* focus = window()->focusWidget();
  const bool had_focus = focus && faces_->isAncestorOf(focus);
  if (table) HideFindBar();
  faces_->setCurrentWidget(face);
  if (had_focus) FocusFirst();
}

// The keyboard goes from the face to its switch and back.
void Output1::AddFocusKey() {
  auto* key = new QShortcut(Qt::Key_F6, this);
  key->setContext(Qt::WidgetWithChildrenShortcut);
  connect(key, &QShortcut::activated, this, [this] {
    const QWidget* focus = window()->focusWidget();
    const bool in_face = focus && faces_->isAncestorOf(focus);
    if (!in_face) return FocusFirst();
    for (QToolButton* button : {most_recent_, log_, summary_}) {
      if (button->isChecked()) button->setFocus(Qt::ShortcutFocusReason);
    }
  });
}

// A text that has only grown is lengthened by what it has gained; what took the place of another can be taken back when
// it was made from it. An edit that was not stored goes.
void Output1::ShowBox(const BoxVersion& now) {
  const std::string& text = session().output.BoxText();
  const QScopedValueRollback<bool> guard(showing_, true);
  const bool anew = std::exchange(edited_, false) || shown_.size == 0;
  if (!anew && now.lineage == shown_.lineage) {
    page_->LengthenText(ToQtLines(std::string_view(text).substr(shown_.size)));
  } else if (!anew && now.made_from == shown_.lineage) {
    page_->ReplaceText(ToQtLines(text));
  } else {
    page_->ShowText(ToQtLines(text));
  }
  shown_ = now;
  changes_.Begin(*page_->document(), now.size);
}

void Output1::UserChangedText() {
  if (showing_) return;
  edited_ = true;
  session().output.OutputChanged = true;
  // The text itself is stored when somebody asks for it; the command rules ask only whether there is any.
  if (page_->document()->isEmpty() != session().output.BoxText().empty()) {
    StoreWidgets();
    emit SessionChanged();
  }
}

void Output1::StoreWidgets() {
  table_->StoreEntry();
  if (!edited_) return;
  edited_ = false;
  OutputLog& output = session().output;
  if (auto edit = changes_.Edit(*page_->document())) {
    EditBox(output, edit->at, edit->removed, edit->text);
  } else {
    EditBox(output, FromQtLines(page_->Text()));
  }
  shown_ = output.Version();
  changes_.Begin(*page_->document(), shown_.size);
}

void Output1::FocusFirst() {
  if (session().output.OutputGridMode) {
    table_->FocusSheet();
  } else {
    page_->setFocus();
  }
}

WidgetState Output1::State() const {
  return {.output_has_selection = page_->textCursor().hasSelection(),
          .can_undo = page_->document()->isUndoAvailable(),
          .can_redo = page_->document()->isRedoAvailable()};
}

void Output1::Perform(WidgetAction action) {
  switch (action) {
    case WidgetAction::kSelectAll:
      page_->setFocus();
      return page_->selectAll();
    case WidgetAction::kCopy:
      return page_->copy();
    case WidgetAction::kPaste:
      return page_->paste();
    case WidgetAction::kCut:
      return page_->cut();
    case WidgetAction::kUndo:
      return page_->undo();
    case WidgetAction::kRedo:
      return page_->redo();
    default:
      return;
  }
}

void Output1::ShowFindBar() {
  if (session().output.OutputGridMode) return;  // the words to find are those of the text
  find_bar_->show();
  escape_->setEnabled(true);
  const QString selected = page_->textCursor().selectedText();
  if (!selected.isEmpty() && !selected.contains(QChar::ParagraphSeparator)) find_text_->setText(selected);
  find_text_->selectAll();
  find_text_->setFocus();
}

void Output1::HideFindBar() {
  if (find_bar_->isHidden()) return;
  find_bar_->hide();
  escape_->setEnabled(false);
  FocusFirst();
}

// Goes on from the other end when there is nothing further on.
void Output1::Find(bool backward) {
  const QString words = find_text_->text();
  if (words.isEmpty()) return ShowFindBar();
  const auto flags = backward ? QTextDocument::FindFlags(QTextDocument::FindBackward) : QTextDocument::FindFlags();
  find_result_->clear();
  if (page_->find(words, flags)) return;
  QTextCursor cursor = page_->textCursor();
  const QTextCursor before = cursor;
  cursor.movePosition(backward ? QTextCursor::End : QTextCursor::Start);
  page_->setTextCursor(cursor);
  if (page_->find(words, flags)) return;
  page_->setTextCursor(before);
  find_result_->setText(tr("Not found"));
}

// The face that shows: the table, or the text. Nothing where a box has said why.
std::optional<PrintJob> Output1::Job() {
  StoreWidgets();
  if (session().output.OutputGridMode) return TableJob(session());
  const PrintOptions options = {.date = session().settings.print_date(),
                                .notes_caption = session().settings.notes_caption()};
  return JobOfPages(OutputPages(session().output.BoxText(), options, platform_.Now().date));
}

void Output1::Preview() {
  const auto job = Job();
  if (job && !platform_.Preview(*job)) ShowPrinterError(platform_);
}

void Output1::PrintToPdf() {
  const auto job = Job();
  if (!job) return;
  FileDialog dialog;
  dialog.title = "Save as PDF";
  dialog.filter = "PDF documents (*.pdf)|*.pdf";
  dialog.initial_folder = platform_.DocumentsFolder();
  dialog.initial_name = "Output.pdf";
  dialog.default_extension = "pdf";
  dialog.overwrite_prompt = true;
  const auto chosen = platform_.AskSaveFile(dialog);
  if (!chosen) return;
  const WaitCursor wait(platform_);
  if (platform_.WritePdf(*job, chosen->path)) {
    platform_.SetStatusPane(1, "Save Completed");
  } else {
    platform_.ShowMessage({"Error", "The PDF file could not be written.", Buttons::kOk, Tone::kRefusal});
  }
}

}  // namespace tessara
