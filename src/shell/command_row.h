#pragma once

#include <string>
#include <string_view>
#include <variant>

#include "shell/session.h"

// A command is one row: what it is called everywhere, and how it stands and what it does in each view.

namespace tessara {

// The commands that front ends name themselves.
inline constexpr int kNewCommand = 101;
inline constexpr int kOpenCommand = 102;
inline constexpr int kPrintCommand = 106;
inline constexpr int kExitCommand = 107;
inline constexpr int kFindCommand = 202;
inline constexpr int kSelectAllCommand = 204;
inline constexpr int kCopyCommand = 205;
inline constexpr int kPasteCommand = 206;
inline constexpr int kDeleteRowsCommand = 209;
inline constexpr int kDeleteColumnsCommand = 210;
inline constexpr int kConvertCommand = 211;
inline constexpr int kCopyOutputCommand = 212;
inline constexpr int kCutCommand = 213;
inline constexpr int kUndoCommand = 214;
inline constexpr int kRedoCommand = 215;
inline constexpr int kGoToCommand = 216;
inline constexpr int kPaletteCommand = 217;
inline constexpr int kFormatCommand = 301;
inline constexpr int kDictionaryCommand = 307;
inline constexpr int kRunCommand = 308;
inline constexpr int kVariablesCommand = 310;
// The buttons of the form that describes variables.
inline constexpr int kSaveFormatCommand = 311;
inline constexpr int kCopyFormatCommand = 312;
inline constexpr int kPasteFormatCommand = 313;
inline constexpr int kRevertFormatCommand = 314;
// Of the buttons of the recode panel; no menu has them.
inline constexpr int kRunRecodeCommand = 316;
inline constexpr int kUndoRecodeCommand = 317;
inline constexpr int kResetRecodeCommand = 318;
// Of the buttons of the sampling panels.
inline constexpr int kCreateSampleCommand = 320;
inline constexpr int kRunIterationsCommand = 321;
inline constexpr int kToggleOutputCommand = 350;
// The faces of the Output view, each by its own name.
inline constexpr int kShowMostRecentCommand = 351;
inline constexpr int kShowLogCommand = 352;
inline constexpr int kShowTableCommand = 353;
inline constexpr int kEmptyTableCommand = 354;
// The cells and columns of its table.
inline constexpr int kAlignLeftCommand = 451;
inline constexpr int kAlignCentreCommand = 452;
inline constexpr int kAlignRightCommand = 453;
inline constexpr int kColumnWidthCommand = 454;
inline constexpr int kDefaultSizeCommand = 401;
inline constexpr int kCalculatorCommand = 404;
inline constexpr int kOptionsCommand = 405;
inline constexpr int kDownloadCommand = 501;
inline constexpr int kToggleHelpCommand = 602;
inline constexpr int kUpdatesCommand = 606;
inline constexpr int kAboutCommand = 608;
inline constexpr int kHomePageCommand = 609;
// Of the glossary and the handbook.
inline constexpr int kAddNoteCommand = 801;
inline constexpr int kDeleteNoteCommand = 802;
inline constexpr int kResetSearchCommand = 803;
inline constexpr int kSelectNoteCommand = 805;  // a line of the list; no menu has it
inline constexpr int kGoBackCommand = 901;
inline constexpr int kGoForwardCommand = 902;
inline constexpr int kGoHomeCommand = 903;
inline constexpr int kTopicBoxCommand = 904;

// What the rules need to know of the front end's widgets.
struct WidgetState {
  bool output_has_selection = false;
  bool clipboard_has_text = false;
  bool can_undo = false;  // in the text of the Output view
  bool can_redo = false;
  bool note_has_selection = false;  // in one of the two boxes of the Glossary view
  bool page_can_go_back = false;    // of the Handbook view's browser
  bool page_can_go_forward = false;
};

// What is left to the front end, because only it has the widget.
enum class WidgetAction {
  kNone,
  kCloseFrame,
  kSelectAll,
  kCopy,
  kPaste,
  kCut,
  kUndo,
  kRedo,
  kPrintPage,
  kDefaultSize,
  kRefreshHelpLists,
  kToggleHelpPane,
  kShowAbout,
  kOpenHelp,
  kGoTo,
  kFormatVariables,
  kShowVariables,
  kShowImport,
  kShowExport,
  kShowSplit,
  kFormatPage,
  kSetColumnWidth,
  kShowRecodePanel,
  kGoBack,
  kGoForward,
  kGoHome,
  kShowTopic,  // the page that the handbook's state names
  kShowCalculator,
  kShowOptions,
  kApplyAppearance,
  kShowHelpPage,  // the page that the handbook's state names, in the help pane
  kShowPalette,
};

// The views that one part of a row speaks of.
class ViewSet {
 public:
  constexpr ViewSet() = default;
  template <typename... Views>
  constexpr ViewSet(View first, Views... others) : bits_((Bit(first) | ... | Bit(others))) {}

  constexpr bool contains(View view) const { return (bits_ & Bit(view)) != 0; }
  friend constexpr bool operator==(ViewSet, ViewSet) = default;

 private:
  static constexpr unsigned Bit(View view) { return 1u << static_cast<unsigned>(view); }

  unsigned bits_ = 0;
};

inline constexpr ViewSet kEveryView = {View::ViewDataGrid, View::ViewStatProcs, View::ViewBrevarum, View::ViewOutput,
                                       View::ViewCharts,   View::ViewGlossary,  View::ViewHandbook, View::ViewTips};

// No rule at all means always.
using Rule = bool (*)(const Session& session, const WidgetState& widgets);

// What a command does: an operation of the core, something of a widget's, or an operation that yields the latter.
// Nothing: it cannot be chosen.
using Operation = std::variant<std::monostate, void (*)(Session&), void (*)(Session&, const WidgetState&), WidgetAction,
                               WidgetAction (*)(Session&)>;

// How a command stands and what it does in some of the views.
struct CommandUse {
  ViewSet views = {};
  std::string_view caption = {};  // empty: that of the row
  Rule shown = nullptr;           // of several uses in a view the first one counts that this rule lets show
  Rule enabled = nullptr;
  Operation run = {};
  std::string_view reason = {};  // what the status bar says while the command is not enabled
  bool in_bars = true;           // false: no menu or button shows the command here, keys alone lead to it
  std::string (*named)(const Session& session) = nullptr;  // a caption that tells what the command is about to do
};

inline constexpr std::size_t kMostUses = 8;

struct CommandRow {
  int id = 0;
  std::string_view caption = {};   // of the menu, "&" ahead of the access letter
  std::string_view icon = {};      // name in the icon theme
  std::string_view shortcut = {};  // "Ctrl+O"
  std::string_view second_shortcut = {};
  std::string_view tooltip = {};
  Rule checked = nullptr;  // a command with this rule carries a mark while it holds
  CommandUse uses[kMostUses] = {};
};

// The row of a number; nullptr when no row has it.
const CommandRow* FindCommand(int id);

}  // namespace tessara
