#include "shell/palette.h"

#include <algorithm>
#include <array>
#include <utility>

#include "shell/command_table.h"
#include "shell/glossary_operations.h"
#include "shell/handbook_operations.h"
#include "shell/palette_search.h"

namespace tessara {
namespace {

constexpr std::size_t kMostShown = 200;  // bytes of a text that anybody may have written

struct NamedView {
  View view;
  std::string_view name;
};
constexpr NamedView kViewNames[] = {{View::ViewDataGrid, "Data Grid"}, {View::ViewStatProcs, "Stat Procs"},
                                    {View::ViewBrevarum, "Brevarum"},  {View::ViewOutput, "Output"},
                                    {View::ViewCharts, "Charts"},      {View::ViewGlossary, "Glossary"},
                                    {View::ViewHandbook, "Handbook"},  {View::ViewTips, "Tips"}};

// One line of plain text.
std::string Shown(std::string_view text) {
  std::string shown(text.substr(0, kMostShown));
  std::ranges::replace_if(
      shown, [](unsigned char c) { return c < ' ' || c == 0x7F; }, ' ');
  const std::size_t first = shown.find_first_not_of(' ');
  shown.erase(0, first);
  if (first == std::string::npos) shown.clear();
  if (text.size() > kMostShown) shown += "...";
  return shown;
}

// A caption of a menu without the mark of its access letter.
std::string WithoutAccessLetter(std::string_view caption) {
  std::string plain;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&' && ++i == caption.size()) break;
    plain += caption[i];
  }
  return plain;
}

class Builder {
 public:
  Builder(Session& session, const StateOfView& state_of) : session_(session), state_of_(state_of) {}

  std::vector<PaletteEntry> Build() {
    AddCommands();
    AddProcedures();
    AddCalculators();
    AddTopics();
    AddPages();
    AddTerms();
    AddVariables();
    for (PaletteEntry& entry : entries_) MakeSearchable(entry);
    return std::move(entries_);
  }

 private:
  void Add(PaletteTarget target, std::string caption, std::string where) {
    PaletteEntry& entry = entries_.emplace_back();
    entry.target = std::move(target);
    entry.caption = std::move(caption);
    entry.where = std::move(where);
  }

  // The view in front comes ahead of the others.
  std::vector<NamedView> Views() const {
    std::vector<NamedView> views(std::begin(kViewNames), std::end(kViewNames));
    std::stable_partition(views.begin(), views.end(),
                          [&](const NamedView& named) { return named.view == session_.ActiveView; });
    return views;
  }

  void AddCommands() {
    std::vector<std::pair<NamedView, WidgetState>> views;
    for (const NamedView& named : Views()) {
      if (const auto state = state_of_(named.view)) views.emplace_back(named, *state);
    }
    if (views.empty()) return;
    for (std::size_t i = 0; i < views.size(); ++i) {
      for (const CommandMenu& menu : MenuBar()) {
        for (const BarEntry& bar_entry : menu.entries) AddCommand(menu, bar_entry, views, i);
      }
    }
  }

  // A command as it stands in one of the views. One that is the same in all of them is listed with the first alone.
  void AddCommand(const CommandMenu& menu, const BarEntry& bar_entry,
                  const std::vector<std::pair<NamedView, WidgetState>>& views, std::size_t at) {
    const int id = bar_entry.id;
    if (id == kPaletteCommand) return;
    const auto& [named, widgets] = views[at];
    const CommandState state = UpdateCommandIn(session_, named.view, id, widgets);
    if (!state.visible) return;
    const bool everywhere = std::ranges::all_of(views, [&](const auto& other) {
      const CommandState there = UpdateCommandIn(session_, other.first.view, id, other.second);
      return there.visible && there.caption == state.caption;
    });
    if (everywhere && at != 0) return;
    const CommandRow& row = *FindCommand(id);
    std::string where = WithoutAccessLetter(menu.title);
    if (!everywhere) where += " \xB7 " + std::string(named.name);
    Add(CommandTarget{id, everywhere ? View::kNone : named.view},
        WithoutAccessLetter(state.caption.empty() ? CaptionOf(bar_entry) : state.caption), std::move(where));
    entries_.back().shortcut = row.shortcut;
    entries_.back().enabled = state.enabled;
    entries_.back().reason = state.reason;
  }

  void AddProcedures() {
    for (const ProcedureRow& row : ProcedureRows()) {
      Add(ProcedureTarget{row.procedure, {}}, std::string(row.caption), "Stat Procs");
      if (row.procedure != Procedure::kRegression) continue;
      for (const RegressionKind kind : {RegressionKind::kLeastSquares, RegressionKind::kLogistic}) {
        Add(ProcedureTarget{row.procedure, kind},
            std::string(RegressionRow(kind).caption) + " " + std::string(row.caption), "Stat Procs");
      }
    }
  }

  void AddCalculators() {
    for (const BrevarumPanelRow& row : BrevarumPanelRows()) {
      std::string where = "Brevarum \xB7 " + std::string(row.button);
      if (!row.samples.empty()) where += " \xB7 " + std::string(row.samples);
      Add(CalculatorTarget{row.panel}, Shown(row.frame_caption), std::move(where));
    }
  }

  void AddTopics() {
    for (std::size_t i = 0; i < session_.handbook.topics.size(); ++i) {
      Add(TopicTarget{static_cast<int>(i) + 1}, Shown(session_.handbook.topics[i].title), "Handbook");
    }
  }

  // Those that are no topics of the handbook.
  void AddPages() {
    for (const HandbookTopic& page : HelpTitles(session_)) {
      if (std::ranges::find(session_.handbook.topics, page.page, &HandbookTopic::page) !=
          session_.handbook.topics.end()) {
        continue;
      }
      Add(PageTarget{page.page + ".html"}, Shown(page.title), "Help Window");
    }
  }

  void AddTerms() {
    if (!session_.glossary.opened) return;
    for (const GlossarySubject& term : session_.glossary.List) {
      if (!term.subject.empty()) Add(TermTarget{term.subject}, Shown(term.subject), "Glossary");
    }
  }

  void AddVariables() {
    const DataSet& data = session_.data;
    entries_.reserve(entries_.size() + data.VariableCount);
    for (std::size_t column = 1; column <= data.VariableCount; ++column) {
      std::string label = Shown(data.VariableLabel(column));
      if (label.empty()) label = "Variable";
      Add(VariableTarget{column}, Shown(data.VariableName(column)), std::move(label));
    }
  }

  Session& session_;
  const StateOfView& state_of_;
  std::vector<PaletteEntry> entries_;
};

// Carries a choice out.
struct Chooser {
  Session& session;

  WidgetAction operator()(const CommandTarget&) const { return WidgetAction::kNone; }

  // A procedure that is chosen already keeps its options.
  WidgetAction operator()(const ProcedureTarget& target) const {
    ProcedurePanel& panel = session.panel;
    if (panel.selected != target.procedure) SelectProcedure(panel, target.procedure);
    if (target.kind && panel.regression != *target.kind) SelectRegression(panel, *target.kind);
    session.wanted_view = View::ViewStatProcs;
    return WidgetAction::kNone;
  }

  WidgetAction operator()(const CalculatorTarget& target) const {
    const BrevarumPanelRow& row = BrevarumPanelRows()[static_cast<std::size_t>(target.panel)];
    BrevarumPanel& panel = session.brevarum;
    if (panel.Option1 != row.option) SelectPanel(panel, row.option);
    if (!row.samples.empty() && panel.one_sample != (row.samples == kOneSample)) {
      SelectSamples(panel, row.samples == kOneSample);
    }
    session.wanted_view = View::ViewBrevarum;
    return WidgetAction::kNone;
  }

  // The record stays.
  WidgetAction operator()(const VariableTarget& target) const {
    DataSet& data = session.data;
    session.wanted_view = View::ViewDataGrid;
    if (target.column > data.GridVariables()) {
      session.platform.SetStatusPane(kMessagePane, "The grid shows the first " + std::to_string(data.GridVariables()) +
                                                       " variables, and this one is variable " +
                                                       std::to_string(target.column));
      return WidgetAction::kNone;
    }
    const std::size_t row = std::clamp<std::size_t>(data.CurrentRow, 1, std::max<std::size_t>(data.GridRecords(), 1));
    MoveCursor(data, {row, target.column});
    session.grid_selection = {row, row, target.column, target.column};
    return WidgetAction::kNone;
  }

  WidgetAction operator()(const TopicTarget& target) const { return ShowTopicOfRow(session, target.row); }
  WidgetAction operator()(const PageTarget& target) const { return ShowHelpPage(session, target.page); }
  WidgetAction operator()(const TermTarget& target) const {
    ShowGlossaryTerm(session, target.subject);
    return WidgetAction::kNone;
  }
};

}  // namespace

std::vector<PaletteEntry> BuildPalette(Session& session, const StateOfView& state_of) {
  return Builder(session, state_of).Build();
}

WidgetAction ChooseFromPalette(Session& session, const PaletteTarget& target) {
  return std::visit(Chooser{session}, target);
}

}  // namespace tessara
