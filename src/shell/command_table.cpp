#include "shell/command_table.h"

#include <algorithm>
#include <iterator>

namespace tessara {
namespace {

// The part of a row that holds in a view; nullptr when there is none.
const CommandUse* UseOf(const CommandRow* row, View view, const Session& session, const WidgetState& widgets) {
  if (!row) return nullptr;
  const auto holds = [&](const CommandUse& use) {
    return use.views.contains(view) && (!use.shown || use.shown(session, widgets));
  };
  const auto* const found = std::ranges::find_if(row->uses, holds);
  return found == std::end(row->uses) ? nullptr : found;
}

// Carries an operation out, whatever its form.
struct Runner {
  Session& session;
  const WidgetState& widgets;

  WidgetAction operator()(std::monostate) const { return WidgetAction::kNone; }
  WidgetAction operator()(WidgetAction action) const { return action; }
  WidgetAction operator()(WidgetAction (*run)(Session&)) const { return run(session); }
  WidgetAction operator()(void (*run)(Session&)) const {
    run(session);
    return WidgetAction::kNone;
  }
  WidgetAction operator()(void (*run)(Session&, const WidgetState&)) const {
    run(session, widgets);
    return WidgetAction::kNone;
  }
};

}  // namespace

const std::vector<CommandMenu>& MenuBar() {
  constexpr bool kGroup = true;
  static const std::vector<CommandMenu> menus = {
      {"&File", {{101}, {102}, {103, kGroup}, {110}, {104, kGroup}, {105}, {108}, {109}, {106, kGroup}, {107, kGroup}}},
      {"&Edit",
       {
           {214},         {215},         {201, kGroup}, {202, kGroup}, {803},         {203}, {216},
           {204, kGroup}, {205, kGroup}, {206},         {213},         {207, kGroup}, {208}, {209},
           {210},         {212},         {211, kGroup}, {451},         {452},         {453}, {454},
           {801, kGroup}, {802},         {901},         {902},         {903},         {350}, {217, kGroup},
       }},
      {"&Variable", {{301}, {310}, {302}, {303}, {304}, {305}, {306}, {307, kGroup}, {308, kGroup}}},
      {"&Options", {{405}, {401}, {402}, {404, kGroup}}},
      {"&Documentation", {{501}, {502}, {503, kGroup}, {504}, {505}, {506, kGroup}, {507}}},
      {"&Help", {{601}, {602}, {609}, {606, kGroup}, {608, kGroup}}},
  };
  return menus;
}

const std::vector<BarEntry>& Toolbar() {
  constexpr bool kGroup = true;
  constexpr auto kText = CommandStyle::kIconAndCaption;
  static const std::vector<BarEntry> entries = {
      {.id = 901},
      {.id = 902},
      {.id = 903, .caption = "&Home"},
      {.id = 101},
      {.id = 102, .word = "Open"},
      {.id = 103, .caption = "&Save", .word = "Save"},
      {.id = 108, .begin_group = kGroup, .caption = "Export", .style = kText},
      {.id = 109, .begin_group = kGroup, .caption = "Export", .style = kText},
      {.id = 213, .begin_group = kGroup},
      {.id = 205},
      {.id = 212, .begin_group = kGroup, .caption = "&Copy Output"},
      {.id = 206},
      {.id = 801, .begin_group = kGroup, .caption = "&Add a Record"},
      {.id = 802},
      {.id = 803, .begin_group = kGroup},
      {.id = 904, .begin_group_in = View::ViewGlossary},
      {.id = 202, .begin_group = kGroup, .caption = "&Find", .style = kText},
      {.id = 207, .begin_group = kGroup, .caption = "Add Rows"},
      {.id = 208, .caption = "Add Columns"},
      {.id = 209},
      {.id = 210},
      {.id = 301, .begin_group = kGroup, .caption = "&Format Variables", .style = kText, .word = "Format"},
      {.id = 350, .begin_group = kGroup, .caption = "Output Log", .style = kText},
      {.id = 308, .begin_group = kGroup, .style = kText, .word = "Run"},
      {.id = 302, .word = "Recode"},
      {.id = 304, .caption = "&Combine Variables"},
      {.id = 305, .caption = "&Compute New Variable", .word = "Compute"},
      {.id = 451, .caption = "&Left Align Text"},
      {.id = 452, .caption = "&Center Text"},
      {.id = 453, .caption = "&Right Align Text"},
      {.id = 454, .caption = "&Adjust Column Width"},
      {.id = 404, .begin_group = kGroup, .caption = "&Calculator"},
      {.id = 106, .style = kText, .word = "Print"},
      {.id = 602, .begin_group = kGroup, .caption = "Help &Window", .style = kText},
  };
  return entries;
}

bool ToolbarIsVisible(View view) {
  return view != View::ViewStatProcs && view != View::ViewCharts && view != View::ViewTips;
}

std::string_view CaptionOf(const BarEntry& entry) {
  if (!entry.caption.empty()) return entry.caption;
  const CommandRow* row = FindCommand(entry.id);
  return row ? row->caption : std::string_view();
}

CommandState UpdateCommand(const Session& session, int id, const WidgetState& widgets) {
  return UpdateCommandIn(session, session.ActiveView, id, widgets);
}

CommandState UpdateCommandIn(const Session& session, View view, int id, const WidgetState& widgets) {
  const CommandRow* row = FindCommand(id);
  const CommandUse* use = UseOf(row, view, session, widgets);
  if (!use || !use->in_bars) return {};
  CommandState state;
  state.visible = true;
  state.enabled =
      !std::holds_alternative<std::monostate>(use->run) && (!use->enabled || use->enabled(session, widgets));
  state.caption = use->named ? use->named(session) : std::string(use->caption);
  if (!state.enabled) state.reason = use->reason;
  state.checked = row->checked && row->checked(session, widgets);
  return state;
}

WidgetAction ExecuteCommand(Session& session, int id, const WidgetState& widgets) {
  const WaitCursor wait(session.platform);
  const CommandUse* use = UseOf(FindCommand(id), session.ActiveView, session, widgets);
  if (!use) return WidgetAction::kNone;
  BeginOperation(session);
  const WidgetAction left = std::visit(Runner{session, widgets}, use->run);
  FollowPanel(session);
  return left;
}

}  // namespace tessara
