#pragma once

#include <string>

#include "shell/command_table.h"
#include "shell/tests/session_fixture.h"

// Commands of a session that has started, in each of its views.

namespace tessara {

inline constexpr int kViews = 8;

class CommandTest : public SessionFixture {
 protected:
  CommandTest() { StartSession(session, {}); }

  CommandState State(int id, View view) {
    session.ActiveView = view;
    return UpdateCommand(session, id, widgets);
  }
  std::string ReasonOf(int id, View view) { return State(id, view).reason; }
  WidgetAction Execute(int id, View view) {
    ActivateView(session, view);
    platform.most_wait_cursors = 0;
    const WidgetAction action = ExecuteCommand(session, id, widgets);
    EXPECT_EQ(platform.wait_cursors, 0);
    EXPECT_GE(platform.most_wait_cursors, 1);
    return action;
  }

  // One character for each of the views 1 to 8: "-" hidden, "+" enabled, "o" visible but not enabled.
  std::string StatesByView(int id) {
    std::string states;
    for (int view = 1; view <= kViews; ++view) {
      const CommandState state = State(id, static_cast<View>(view));
      states += !state.visible ? '-' : state.enabled ? '+' : 'o';
    }
    return states;
  }

  WidgetState widgets;
};

}  // namespace tessara
