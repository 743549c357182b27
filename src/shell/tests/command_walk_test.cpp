#include <gtest/gtest.h>

#include <bit>
#include <string>
#include <vector>

#include "shell/tests/command_fixture.h"

// Every command in every view and in every state that a rule asks for, against the rules as they are written down: for
// each id the views that show it, what enables it, and its caption where it changes.

namespace tessara {
namespace {

// What the rules look at.
struct Situation {
  bool output_has_text = false;
  bool output_has_selection = false;
  bool clipboard_has_text = false;
  bool shows_table = false;   // the second face of the Output view
  bool explore_mode = false;  // Explore is chosen on the panel
  bool log_mode = false;
  bool has_result = false;  // of the calculator in front
  bool note_has_selection = false;
  bool has_documents = false;
};
constexpr unsigned kSituations = 1u << 9;

Situation SituationOf(unsigned bits) {
  const auto bit = [bits](int place) { return (bits >> place & 1u) != 0; };
  return {bit(0), bit(1), bit(2), bit(3), bit(4), bit(5), bit(6), bit(7), bit(8)};
}

struct Expected {
  bool visible = true;
  bool enabled = true;
  std::string caption = {};  // empty: no rule changes it
};

constexpr Expected kHidden = {false, false};

Expected InViews(std::initializer_list<int> views, int view, const Expected& there = {}) {
  return std::ranges::find(views, view) == views.end() ? kHidden : there;
}

// The commands of the menu File.
Expected ExpectedOfFiles(int id, int view, const Situation& now) {
  const bool text_face = view != 4 || !now.shows_table;
  switch (id) {
    case 101:
      return InViews({1, 2, 3, 4}, view);
    case 102:
      if (!text_face) return kHidden;
      return InViews({1, 6, 4}, view,
                     {.caption = view == 1   ? "Open Data File"
                                 : view == 6 ? "Open Glossary File"
                                             : "Open Text File"});
    case 103:
      if (!text_face) return kHidden;
      return InViews({1, 6, 4}, view, {.caption = view == 1 ? "Save Data" : view == 6 ? "Save Note" : "Save Output"});
    case 104:
      return InViews({1, 6}, view, {.caption = view == 1 ? "Import Data" : "Import Tab Delimited File"});
    case 105:
      return InViews({1, 6}, view, {.caption = view == 1 ? "Export Data" : "Export Tab Delimited File"});
    case 106:
      // What has not been calculated cannot be printed.
      return InViews({2, 3, 4, 5, 6, 7, 8}, view, {.enabled = view != 3 || now.has_result});
    case 108:
      return InViews({1, 4}, view);
    case 109:
      return InViews({4}, view);
    default:  // 110
      return InViews({1, 6}, view, {.caption = view == 1 ? "Save Data As..." : "Save Glossary As..."});
  }
}

// Those of the menu Edit that work on text, cells and notes.
Expected ExpectedOfEdits(int id, int view, const Situation& now) {
  const bool edited_table = view == 4 && now.shows_table && !now.explore_mode;
  const bool has_text = now.shows_table || now.output_has_text;
  switch (id) {
    case 204:
      return InViews({1, 4}, view, {.enabled = view == 1 || has_text});
    case 205:
    case 213: {
      const bool of_output = now.shows_table || now.output_has_selection;
      return InViews({1, 4, 6}, view, {.enabled = view == 1 || (view == 4 ? of_output : now.note_has_selection)});
    }
    case 206:
      return InViews({1, 4, 6}, view, {.enabled = now.clipboard_has_text});
    case 209:
    case 210:
      return view == 1 || edited_table ? Expected{} : kHidden;
    case 211:
      return InViews({4}, view, {.enabled = has_text});
    case 212:
      return InViews({3}, view, {.enabled = now.has_result});
    case 350:
      if (now.shows_table) return kHidden;
      return InViews({4}, view, {.caption = now.log_mode ? "Most Recent Output" : "Output Log"});
    default:  // 451 to 454
      return edited_table ? Expected{} : kHidden;
  }
}

Expected ExpectedOf(int id, int view, const Situation& now) {
  switch (id) {
    case 101:
    case 102:
    case 103:
    case 104:
    case 105:
    case 106:
    case 108:
    case 109:
    case 110:
      return ExpectedOfFiles(id, view, now);
    case 204:
    case 205:
    case 206:
    case 209:
    case 210:
    case 211:
    case 212:
    case 213:
    case 350:
    case 451:
    case 452:
    case 453:
    case 454:
      return ExpectedOfEdits(id, view, now);
    case 201:
    case 203:
    case 207:
    case 208:
    case 302:
    case 303:
    case 304:
    case 305:
    case 306:
    case 307:
      return InViews({1}, view);
    case 202:
      return InViews({1, 6}, view, {.caption = view == 1 ? "Find Cell Data" : "Search Glossary"});
    case 301:
      if (view == 4 && (!now.shows_table || now.explore_mode)) return kHidden;
      return InViews({1, 4}, view, {.caption = view == 1 ? "Format Variables" : "Format Page"});
    case 308:
      return InViews({2, 3}, view);
    case 503:
    case 504:
    case 505:
    case 506:
    case 507:
      return {.enabled = now.has_documents};
    case 801:
    case 802:
      return InViews({6}, view);
    case 803:
      // In the grid it takes the marks of a search away; there are none here.
      return InViews({1, 6}, view, {.enabled = view == 6});
    case 901:
    case 902:
      return InViews({7}, view, {.enabled = false});  // no page has been left so far
    case 903:
      return InViews({7}, view);
    case 904:
      return InViews({6, 7}, view);
    default:  // 107, 401, 402, 404, 405, 501, 502, 601, 602, 606, 608
      return {};
  }
}

constexpr int kIds[] = {101, 102, 103, 104, 105, 106, 107, 108, 109, 110, 201, 202, 203, 204, 205,
                        206, 207, 208, 209, 210, 211, 212, 213, 301, 302, 303, 304, 305, 306, 307,
                        308, 350, 401, 402, 404, 405, 451, 452, 453, 454, 501, 502, 503, 504, 505,
                        506, 507, 601, 602, 606, 608, 801, 802, 803, 901, 902, 903, 904};

class CommandWalk : public CommandTest {
 protected:
  void Enter(const Situation& now) {
    OutputLog& output = session.output;
    output.OutputGridMode = now.shows_table;
    output.ShowLogMode = now.log_mode;
    output.OutputLogText = output.MostRecentText = now.output_has_text ? "report\r\n" : "";
    session.panel.selected = now.explore_mode ? Procedure::kExplore : Procedure::kFrequencies;
    session.brevarum.BrevarumResults[static_cast<std::size_t>(session.brevarum.CurrentPanel)] =
        now.has_result ? "result" : "";
    session.documentation_found.fill(now.has_documents);
    widgets.output_has_selection = now.output_has_selection;
    widgets.clipboard_has_text = now.clipboard_has_text;
    widgets.note_has_selection = now.note_has_selection;
  }
};

TEST_F(CommandWalk, EveryCommandStandsInEveryViewAndStateAsItsRuleSays) {
  session.table.grid.SetText(1, 1, "x");
  int looked_at = 0;
  for (unsigned bits = 0; bits < kSituations; ++bits) {
    const Situation now = SituationOf(bits);
    Enter(now);
    for (const int id : kIds) {
      for (int view = 1; view <= kViews; ++view) {
        const Expected expected = ExpectedOf(id, view, now);
        const CommandState state = State(id, static_cast<View>(view));
        ASSERT_EQ(state.visible, expected.visible) << id << " in view " << view << ", situation " << bits;
        ASSERT_EQ(state.enabled, expected.enabled) << id << " in view " << view << ", situation " << bits;
        if (expected.visible && id != 904) {
          ASSERT_EQ(state.caption, expected.caption) << id << " in view " << view;
        }
        ++looked_at;
      }
    }
  }
  EXPECT_EQ(looked_at, static_cast<int>(kSituations * std::size(kIds) * kViews));
}

TEST_F(CommandWalk, NoCommandIsLeftWithoutAnOperation) {
  for (const CommandMenu& menu : MenuBar()) {
    for (const BarEntry& entry : menu.entries) {
      for (const CommandUse& use : FindCommand(entry.id)->uses) {
        if (use.views == ViewSet()) continue;
        EXPECT_FALSE(std::holds_alternative<std::monostate>(use.run)) << entry.id;
      }
    }
  }
}

}  // namespace
}  // namespace tessara
