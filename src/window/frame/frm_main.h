#pragma once

#include <QMainWindow>
#include <QPointer>
#include <functional>
#include <map>
#include <memory>

#include "shell/session.h"
#include "window/frame/frame_place.h"
#include "window/widgets/view_form.h"

class QLabel;
class QTabWidget;
class QTimer;

// The frame: the tabbed workspace with its views, the command bars, the status bar and the help pane. It owns the
// session.

namespace tessara {

class CommandBars;
class FrameForms;
class FramePalette;
class FrmSplash2;
class HelpPane;
class Output1;
class QtPlatform;
class RecentFiles;
class TopicBox;
class Zoom;

// How a frame starts. Tests leave the splash out and shorten the timers.
struct FrameStart {
  Path command_line_file;  // relative to the folder that the program was called from, or whole
  bool splash = true;
  int Timer1 = 1500;  // milliseconds until the appearance is applied again
  int Timer2 = 500;   // and from there until the splash closes
};

class FrmMain : public QMainWindow {
  Q_OBJECT

 public:
  FrmMain(QtPlatform& platform, SettingsStore& store, const FrameStart& start = {});
  ~FrmMain() override;

  Session& session() { return session_; }
  // The view of that number; nullptr when it is not in the workspace.
  ViewForm* view(View view) const;
  ViewForm* current_view() const;
  // What the rules of commands need to know of a view's widgets.
  WidgetState StateOf(View view) const;

  // Brings a view to the front.
  void ShowView(View view);
  // Runs a command of the command table, as an action of the menus does.
  void Execute(int id);
  // Opens a data file without asking, as one dropped on the frame.
  void OpenFile(const Path& path);
  // Asks the rules for the state of each command and shows panes, title and pages anew.
  void RefreshCommands();
  // The toolbar's icon size and style and the frame's size, by the settings.
  void ApplyAppearance();
  // The icon size and the style alone.
  void ApplyBars();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  class Busy;

  void BuildWorkspace();
  void AddView(ViewForm* view, const char* name, const QString& caption, const char* icon);
  void BuildStatusBar();
  void BuildHelpPane();
  void ConnectClipboard();
  void StartTimers(const FrameStart& start);
  void EndSplash();
  void TabChanged();
  // In a narrow window the tabs leave their icons out, so that all of them stay in sight.
  void FitTabs();
  void StoreViews();
  void ShowWantedView();
  void ShowSession();
  void Perform(WidgetAction action);
  void ShowHelpPane(std::string_view page);
  // The help page of the current view, of the calculators that of the one in front.
  std::string_view PageOfView() const;
  void ShowHelpOfView();
  // A page that a form asks for; the pane opens for it.
  void ShowHelpPage(const QString& page);
  void AddViewKeys();
  void ApplyZoom();
  // Runs what a form over the frame asks for, as a command is run.
  void RunForForm(const std::function<void()>& operation);
  // The same for what may leave something to a widget.
  void RunOperation(const std::function<WidgetAction()>& operation);
  // Links of pages to notes of the glossary.
  void ConnectTerms();
  void NoteRecentFile();
  void ShowTitle();
  WidgetState State() const;

  QtPlatform& platform_;
  Session session_;
  FramePlace place_;
  std::map<View, QPointer<ViewForm>> views_;
  QTabWidget* workspace_ = nullptr;
  QTimer* timer1_ = nullptr;
  QTimer* timer2_ = nullptr;
  std::unique_ptr<RecentFiles> recent_files_;
  std::unique_ptr<CommandBars> bars_;
  TopicBox* topic_box_ = nullptr;
  FrameForms* forms_ = nullptr;
  FramePalette* palette_ = nullptr;
  HelpPane* help_pane_ = nullptr;
  Zoom* zoom_ = nullptr;
  Output1* output_ = nullptr;
  std::unique_ptr<FrmSplash2> splash_;
  Path noted_file_;
  bool clipboard_has_text_ = false;
  int busy_ = 0;  // operations that run now
};

}  // namespace tessara
