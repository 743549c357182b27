#include "window/frame/frm_main.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QDropEvent>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QStatusBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>
#include <QToolButton>
#include <QUrl>
#include <array>

#include "platform/files.h"
#include "shell/close_request.h"
#include "shell/palette.h"
#include "window/brevarum/brevarum1.h"
#include "window/charts/charts1.h"
#include "window/frame/bar_paint.h"
#include "window/frame/command_bars.h"
#include "window/frame/frame_forms.h"
#include "window/frame/frame_palette.h"
#include "window/frame/frm_splash2.h"
#include "window/frame/recent_files.h"
#include "window/frame/topic_box.h"
#include "window/grid/data1.h"
#include "window/output/output1.h"
#include "window/reference/glossary1.h"
#include "window/reference/handbook1.h"
#include "window/reference/help_pane.h"
#include "window/reference/tips.h"
#include "window/stat_procs/stat_proc1.h"
#include "window/system/qt_platform.h"
#include "window/widgets/accessible_parts.h"
#include "window/widgets/focus_outline.h"
#include "window/widgets/text.h"
#include "window/widgets/theme.h"
#include "window/widgets/zoom.h"

namespace tessara {
namespace {

constexpr int kLargeIcon = 32;
constexpr int kSmallIcon = 22;
constexpr int kBusyRetry = 200;  // milliseconds

// The data file of a drag, if it brings one.
Path DroppedFile(const QMimeData& data) {
  for (const QUrl& url : data.urls()) {
    if (url.isLocalFile() && url.path().endsWith(".dcs", Qt::CaseInsensitive)) return PathFromQt(url.toLocalFile());
  }
  return {};
}

}  // namespace

// An operation that runs: views are not stored back over what it does, and what would come between waits.
class FrmMain::Busy {
 public:
  explicit Busy(FrmMain& frame) : frame_(frame) { ++frame_.busy_; }
  ~Busy() { --frame_.busy_; }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;

 private:
  FrmMain& frame_;
};

FrmMain::FrmMain(QtPlatform& platform, SettingsStore& store, const FrameStart& start)
    : platform_(platform), session_(platform, store), place_(*this, store, platform, session_.settings) {
  setObjectName("frmMain");
  setAcceptDrops(true);
  new AccessibleParts(this);  // ahead of the parts that it names
  AddIconFolder(platform.ProgramFolder());
  UseIconsOfPalette(palette());
  UseLegibleColours();
  setWindowIcon(LogoIcon(palette()));
  place_.BoundLeastSize();
  setCursor(start.splash ? Qt::WaitCursor : Qt::ArrowCursor);
  if (start.splash) {
    splash_ = std::make_unique<FrmSplash2>();
    splash_->ShowNow();
  }
  BuildStatusBar();
  StartSession(session_, start.command_line_file);

  recent_files_ = std::make_unique<RecentFiles>(store, this);
  connect(recent_files_.get(), &RecentFiles::Chosen, this, &FrmMain::OpenFile);
  topic_box_ = new TopicBox(session_, this);
  bars_ = std::make_unique<CommandBars>(
      *this, [this](int id) { Execute(id); }, topic_box_);
  BuildWorkspace();
  bars_->InsertBehind(kOpenCommand, {recent_files_->menu()->menuAction()});
  bars_->InsertBehind(kPrintCommand, output_->PrintActions());
  BuildHelpPane();
  forms_ = new FrameForms(
      platform, session_, [this](const auto& operation) { RunForForm(operation); }, this);
  connect(forms_, &FrameForms::HelpAsked, this, &FrmMain::ShowHelpPage);
  palette_ = new FramePalette(*this, [this](const auto& operation) { RunOperation(operation); });
  ConnectTerms();
  connect(forms_, &FrameForms::AppearanceChanged, this, &FrmMain::ApplyBars);
  ConnectClipboard();
  FocusOutline::Watch(this);
  AddViewKeys();
  zoom_ = new Zoom(store, this);
  connect(zoom_, &Zoom::Changed, this, &FrmMain::ApplyZoom);
  ApplyZoom();
  ApplyAppearance();
  place_.Restore();
  NoteRecentFile();
  TabChanged();
  StartTimers(start);
}

FrmMain::~FrmMain() {
  platform_.AttachFrame(nullptr, {}, {});
  platform_.ShowDocumentsIn({});
  platform_.ShowProgressIn(nullptr);
  QApplication::clipboard()->disconnect(this);
  // The views look at the session to the last: they go ahead of it.
  disconnect(workspace_, nullptr, this, nullptr);
  delete help_pane_;
  delete takeCentralWidget();
  workspace_ = nullptr;
}

void FrmMain::BuildStatusBar() {
  std::array<QLabel*, 3> panes{};
  for (std::size_t i = 0; i < panes.size(); ++i) {
    panes[i] = new QLabel(this);
    panes[i]->setObjectName(QString("pane%1").arg(i + 1));
    panes[i]->setTextFormat(Qt::PlainText);
    panes[i]->setMargin(fontMetrics().height() / 6);
    if (i == 0) {
      statusBar()->addWidget(panes[i], 1);
    } else {
      panes[i]->setMinimumWidth(fontMetrics().averageCharWidth() * 20);
      statusBar()->addPermanentWidget(panes[i]);
    }
  }
  platform_.AttachFrame(this, panes, [this] {
    if (splash_) splash_->hide();  // nothing stands on top of a question
    if (bars_) ShowWantedView();
  });
}

void FrmMain::BuildWorkspace() {
  workspace_ = new QTabWidget(this);
  workspace_->setObjectName("workspace");
  workspace_->setDocumentMode(true);
  workspace_->setIconSize(QSize(kSmallIcon, kSmallIcon));
  output_ = new Output1(platform_, session_);
  auto* grid = new Data1(session_);
  connect(grid, &Data1::FileAsked, this, &FrmMain::OpenFile);
  AddView(grid, "Data1", tr("Data Grid"), "view-grid");
  auto* procedures = new StatProc1(session_);
  platform_.ShowProgressIn(procedures->SamplingProgress());
  AddView(procedures, "StatProc1", tr("Stat Procs"), "view-statistics");
  AddView(output_, "Output1", tr("Output"), "text-x-generic");
  AddView(new Charts1(platform_, session_), "Charts1", tr("Charts"), "office-chart-bar");
  AddView(new Brevarum1(platform_, session_), "Brevarum1", tr("Brevarum"), "accessories-calculator");
  AddView(new Glossary1(session_), "Glossary1", tr("Glossary"), "view-list-text");
  AddView(new Handbook1(platform_, session_), "Handbook1", tr("Handbook"), "documentation");
  if (session_.settings.Op16 == 0) {
    AddView(new Tips(platform_, session_), "Tips", tr("Tips"), "help-hint");
    const int tips = workspace_->count() - 1;
    auto* close = new QToolButton(workspace_);
    close->setObjectName("CloseTips");
    close->setIcon(ThemeIcon("tab-close"));
    close->setAutoRaise(true);
    close->setToolTip(tr("Close the tips until the next start"));
    close->setAccessibleName(tr("Close Tips"));
    workspace_->tabBar()->setTabButton(tips, QTabBar::RightSide, close);
    connect(close, &QToolButton::clicked, this, [this] { delete view(View::ViewTips); });
  }
  setCentralWidget(workspace_);
  connect(workspace_, &QTabWidget::currentChanged, this, &FrmMain::TabChanged);
}

void FrmMain::AddView(ViewForm* view, const char* name, const QString& caption, const char* icon) {
  view->setObjectName(name);
  views_[view->view()] = view;
  workspace_->addTab(view, ThemeIcon(icon), caption);
  connect(view, &ViewForm::CommandRequested, this, &FrmMain::Execute);
  connect(view, &ViewForm::HelpAsked, this, &FrmMain::ShowHelpOfView);
  connect(view, &ViewForm::HelpPageAsked, this, &FrmMain::ShowHelpPage);
  connect(view, &ViewForm::ZoomAsked, this, [this](int steps) { zoom_->Step(steps); });
  connect(view, &ViewForm::SessionChanged, this, [this] {
    if (busy_ != 0) return;
    const Busy busy(*this);
    ShowSession();
    RefreshCommands();
  });
}

void FrmMain::BuildHelpPane() {
  help_pane_ = new HelpPane(platform_, session_, this);
  addDockWidget(Qt::RightDockWidgetArea, help_pane_);
  help_pane_->setVisible(session_.help_pane_visible);
  platform_.ShowDocumentsIn([this](const QString& file) {
    if (!help_pane_->ShowDocument(file)) return false;
    session_.help_pane_visible = true;
    help_pane_->show();
    help_pane_->raise();
    return true;
  });
  connect(help_pane_, &HelpPane::Closed, this, [this] {
    session_.help_pane_visible = false;
    RefreshCommands();
  });
}

// The clipboard is asked when it changes and not at every refresh: it may belong to a slow program.
void FrmMain::ConnectClipboard() {
  const auto look = [this] {
    const QMimeData* content = QApplication::clipboard()->mimeData();
    clipboard_has_text_ = content && content->hasText();
  };
  look();
  connect(QApplication::clipboard(), &QClipboard::dataChanged, this, [this, look] {
    look();
    RefreshCommands();
  });
}

void FrmMain::StartTimers(const FrameStart& start) {
  timer1_ = new QTimer(this);
  timer1_->setObjectName("Timer1");
  timer1_->setSingleShot(true);
  timer1_->setInterval(start.Timer1);
  timer2_ = new QTimer(this);
  timer2_->setObjectName("Timer2");
  timer2_->setSingleShot(true);
  timer2_->setInterval(start.Timer2);
  connect(timer1_, &QTimer::timeout, this, [this] {
    ApplyAppearance();
    timer2_->start();
  });
  connect(timer2_, &QTimer::timeout, this, &FrmMain::EndSplash);
  timer1_->start();
}

void FrmMain::EndSplash() {
  if (busy_ != 0) {
    timer2_->start(kBusyRetry);
    return;
  }
  if (session_.settings.Op16 == 0 && view(View::ViewTips)) ShowView(View::ViewTips);
  setCursor(Qt::ArrowCursor);
  splash_.reset();
}

ViewForm* FrmMain::view(View view) const {
  const auto found = views_.find(view);
  return found == views_.end() ? nullptr : found->second.data();
}

ViewForm* FrmMain::current_view() const { return qobject_cast<ViewForm*>(workspace_->currentWidget()); }

void FrmMain::ShowView(View wanted) {
  if (ViewForm* form = view(wanted)) workspace_->setCurrentWidget(form);
}

void FrmMain::ShowWantedView() { ShowView(std::exchange(session_.wanted_view, View::kNone)); }

void FrmMain::TabChanged() {
  ViewForm* form = current_view();
  if (!form) return;
  const bool by_user = busy_ == 0;
  if (by_user) StoreViews();
  const Busy busy(*this);
  platform_.WithinMemory([&] { ActivateView(session_, form->view()); });
  form->ShowSession();
  if (session_.help_pane_visible) help_pane_->ShowPage(HelpPage(form->view()));
  // On the tabs themselves the arrow keys go on, but for the grid, which takes the keyboard.
  if (form->view() == View::ViewDataGrid || !workspace_->tabBar()->hasFocus()) form->FocusFirst();
  if (by_user) RefreshCommands();  // an operation that brings a view to the front does so at its end
}

void FrmMain::StoreViews() {
  for (const auto& [id, form] : views_) {
    if (form) form->StoreWidgets();
  }
}

void FrmMain::ShowSession() {
  for (const auto& [id, form] : views_) {
    if (form) form->ShowSession();
  }
}

void FrmMain::Execute(int id) {
  if (busy_ != 0) return;
  StoreViews();
  const Busy busy(*this);
  WidgetAction action = WidgetAction::kNone;
  platform_.WithinMemory([&] { action = ExecuteCommand(session_, id, State()); });
  ShowWantedView();
  NoteRecentFile();
  ShowSession();
  Perform(action);
  if (id == kNewCommand || id == kOpenCommand) current_view()->FocusFirst();
  if (id == kRunCommand) current_view()->FocusInput();
  if (id == kFindCommand && session_.ActiveView == View::ViewGlossary) topic_box_->FocusSearch();
  RefreshCommands();
}

void FrmMain::OpenFile(const Path& path) {
  if (busy_ != 0) return;
  StoreViews();
  const Busy busy(*this);
  ShowView(View::ViewDataGrid);
  {
    const WaitCursor wait(platform_);
    platform_.WithinMemory([&] {
      if (OpenDataFile(session_, path, FilePick::kPicked) == LoadOutcome::kUnreadable) recent_files_->Remove(path);
    });
  }
  NoteRecentFile();
  ShowSession();
  RefreshCommands();
}

void FrmMain::NoteRecentFile() {
  // A file of the command line is at hand too, though its path is not yet that of the data.
  const DataSet& at_hand = session_.data;
  const bool has_path = !at_hand.PathOfText && FactsOfFile(at_hand.DataFilePath);
  const Path& file = has_path ? at_hand.DataFilePath : at_hand.LoadedFile;
  if (file == noted_file_) return;
  noted_file_ = file;
  if (FactsOfFile(file)) recent_files_->Add(file);
}

void FrmMain::Perform(WidgetAction action) {
  switch (action) {
    case WidgetAction::kCloseFrame:
      // The close has its own questions, which come when the command is over.
      QMetaObject::invokeMethod(
          this, [this] { close(); }, Qt::QueuedConnection);
      return;
    case WidgetAction::kSelectAll:
    case WidgetAction::kCopy:
    case WidgetAction::kPaste:
    case WidgetAction::kCut:
    case WidgetAction::kUndo:
    case WidgetAction::kRedo:
    case WidgetAction::kPrintPage:
    case WidgetAction::kGoTo:
    case WidgetAction::kFormatVariables:
    case WidgetAction::kShowVariables:
    case WidgetAction::kShowRecodePanel:
    case WidgetAction::kGoBack:
    case WidgetAction::kGoForward:
    case WidgetAction::kGoHome:
    case WidgetAction::kShowTopic:
      current_view()->Perform(action);
      return;
    case WidgetAction::kShowPalette:
      return palette_->Open();
    case WidgetAction::kDefaultSize:
      return place_.UseDefaultSize();
    case WidgetAction::kRefreshHelpLists:
      return help_pane_->RefreshLists();
    case WidgetAction::kToggleHelpPane:
    case WidgetAction::kOpenHelp:
      return ShowHelpPane(action == WidgetAction::kOpenHelp ? "Index.html" : PageOfView());
    case WidgetAction::kShowHelpPage:
      return ShowHelpPane(session_.handbook.wanted_page);
    case WidgetAction::kNone:
      return;
    default:
      forms_->Show(action);
      return;
  }
}

void FrmMain::ShowHelpPane(std::string_view page) {
  help_pane_->setVisible(session_.help_pane_visible);
  if (!session_.help_pane_visible) return;
  help_pane_->RefreshLists();
  help_pane_->ShowPage(page);
  help_pane_->raise();
}

std::string_view FrmMain::PageOfView() const {
  if (session_.ActiveView == View::ViewBrevarum) return CurrentRow(session_.brevarum).help_page;
  return HelpPage(session_.ActiveView);
}

// The key for help: a pane that is open goes to the page, one that shows it already is closed.
void FrmMain::ShowHelpOfView() {
  if (!session_.help_pane_visible || help_pane_->Shows(PageOfView())) return Execute(kToggleHelpCommand);
  ShowHelpPane(PageOfView());
}

void FrmMain::ShowHelpPage(const QString& page) {
  session_.help_pane_visible = true;
  ShowHelpPane(page.toStdString());
  RefreshCommands();
}

// Ctrl and a digit bring the tab of that place to the front.
void FrmMain::AddViewKeys() {
  for (int place = 0; place < workspace_->count(); ++place) {
    const QKeySequence key(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_1 + place));
    auto* action = new QAction(workspace_->tabText(place), this);
    action->setObjectName(QString("View%1").arg(place + 1));
    action->setShortcut(key);
    addAction(action);
    connect(action, &QAction::triggered, this, [form = QPointer(workspace_->widget(place)), this] {
      if (form) workspace_->setCurrentWidget(form);
    });
    workspace_->setTabToolTip(place, action->text() + " (" + key.toString(QKeySequence::NativeText) + ")");
  }
}

void FrmMain::ApplyZoom() {
  for (const auto& [id, form] : views_) {
    if (form) form->SetZoom(zoom_->percent());
  }
  ZoomType(help_pane_->widget(), zoom_->percent());
  forms_->SetZoom(zoom_->percent());
}

void FrmMain::RunForForm(const std::function<void()>& operation) {
  if (busy_ != 0) return;
  const Busy busy(*this);
  {
    const WaitCursor wait(platform_);
    BeginOperation(session_);
    platform_.WithinMemory(operation);
  }
  ShowWantedView();
  NoteRecentFile();
  ShowSession();
  RefreshCommands();
}

void FrmMain::RunOperation(const std::function<WidgetAction()>& operation) {
  if (busy_ != 0) return;
  StoreViews();
  const Busy busy(*this);
  WidgetAction action = WidgetAction::kNone;
  {
    const WaitCursor wait(platform_);
    BeginOperation(session_);
    platform_.WithinMemory([&] { action = operation(); });
  }
  ShowWantedView();
  ShowSession();
  Perform(action);
  RefreshCommands();
}

void FrmMain::ConnectTerms() {
  for (HelpBrowser* browser : findChildren<HelpBrowser*>()) {
    connect(browser, &HelpBrowser::TermAsked, this, [this](const QString& subject) {
      RunOperation([&] { return ChooseFromPalette(session_, TermTarget{FromQt(subject)}); });
    });
  }
}

WidgetState FrmMain::State() const { return StateOf(session_.ActiveView); }

WidgetState FrmMain::StateOf(View view) const {
  const ViewForm* form = this->view(view);
  WidgetState state = form ? form->State() : WidgetState{};
  state.clipboard_has_text = clipboard_has_text_;
  return state;
}

void FrmMain::RefreshCommands() {
  bars_->Refresh(session_, State());
  topic_box_->ShowSession();
  const bool in_output = session_.ActiveView == View::ViewOutput;
  const bool has_output =
      session_.output.OutputGridMode ? !session_.table.grid.empty() : !session_.output.BoxText().empty();
  for (QAction* action : output_->PrintActions()) {
    action->setVisible(in_output);
    action->setEnabled(in_output && has_output);
  }
  const bool in_grid = session_.ActiveView == View::ViewDataGrid;
  recent_files_->menu()->menuAction()->setVisible(in_grid || session_.ActiveView == View::ViewStatProcs);
  RefreshStatus(session_);
  ShowTitle();
}

void FrmMain::ShowTitle() {
  setWindowTitle("Tessara - " + ToQt(session_.data.GridTitle) + "[*]");
  setWindowModified(session_.data.DataDirty);
}

void FrmMain::ApplyAppearance() {
  ApplyBars();
  place_.ApplySize();
}

void FrmMain::ApplyBars() {
  if (!bars_) return;  // the palette has changed while the splash stands there alone
  bars_->UseIconSize(session_.settings.large_icons() ? kLargeIcon : kSmallIcon);
  PaintBars(*this, session_.settings.Op6);
}

void FrmMain::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (busy_ != 0) return;
  StoreViews();
  const Busy busy(*this);
  if (!RequestClose(session_)) {
    ShowWantedView();
    NoteRecentFile();
    ShowSession();
    RefreshCommands();
    return;
  }
  place_.Store();
  timer1_->stop();
  timer2_->stop();
  splash_.reset();
  setUpdatesEnabled(false);  // the data may be gone
  event->accept();
}

void FrmMain::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  FitTabs();
}

void FrmMain::FitTabs() {
  if (!workspace_) return;
  workspace_->setIconSize({kSmallIcon, kSmallIcon});
  if (workspace_->tabBar()->sizeHint().width() > workspace_->width()) workspace_->setIconSize({0, 0});
}

void FrmMain::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ApplicationPaletteChange) {
    UseIconsOfPalette(palette());
    // When the change has reached every widget: one within it would be overtaken by it.
    QMetaObject::invokeMethod(
        this,
        [this] {
          UseLegibleColours();
          ApplyBars();
        },
        Qt::QueuedConnection);
  }
  if (event->type() == QEvent::ApplicationFontChange && zoom_) {
    ApplyZoom();
    ApplyBars();
  }
}

void FrmMain::dragEnterEvent(QDragEnterEvent* event) {
  if (busy_ == 0 && !DroppedFile(*event->mimeData()).empty()) event->acceptProposedAction();
}

void FrmMain::dropEvent(QDropEvent* event) {
  const Path file = DroppedFile(*event->mimeData());
  if (file.empty()) return;
  event->acceptProposedAction();
  OpenFile(file);
}

}  // namespace tessara
